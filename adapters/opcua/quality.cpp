// SPDX-License-Identifier: MIT
#include "adapters/opcua/quality.h"

#include <open62541/statuscodes.h>

#include <algorithm>
#include <array>

namespace velt::opcua {
namespace {

struct Pair {
    UA_StatusCode status;
    std::int32_t quality;
};

constexpr std::array pairs = {
    Pair{UA_STATUSCODE_GOOD, 192},
    Pair{UA_STATUSCODE_GOODLOCALOVERRIDE, 216},
    Pair{UA_STATUSCODE_UNCERTAIN, 64},
    Pair{UA_STATUSCODE_UNCERTAINLASTUSABLEVALUE, 68},
    Pair{UA_STATUSCODE_UNCERTAINSENSORNOTACCURATE, 80},
    Pair{UA_STATUSCODE_UNCERTAINENGINEERINGUNITSEXCEEDED, 84},
    Pair{UA_STATUSCODE_UNCERTAINSUBNORMAL, 88},
    Pair{UA_STATUSCODE_UNCERTAINNOCOMMUNICATIONLASTUSABLEVALUE, 20},
    Pair{UA_STATUSCODE_BAD, 0},
    Pair{UA_STATUSCODE_BADCONFIGURATIONERROR, 4},
    Pair{UA_STATUSCODE_BADNOTCONNECTED, 8},
    Pair{UA_STATUSCODE_BADDEVICEFAILURE, 12},
    Pair{UA_STATUSCODE_BADSENSORFAILURE, 16},
    Pair{UA_STATUSCODE_BADNOCOMMUNICATION, 24},
    Pair{UA_STATUSCODE_BADOUTOFSERVICE, 28},
    Pair{UA_STATUSCODE_BADWAITINGFORINITIALDATA, 32},
};

constexpr UA_StatusCode CodeMask = 0xFFFF0000;
constexpr UA_StatusCode SeverityMask = 0xC0000000;
constexpr int LimitShift = 8;
constexpr std::uint32_t LimitMask = 3;

std::int32_t mainQuality(UA_StatusCode status) {
    switch (status & SeverityMask) {
        case UA_STATUSCODE_GOOD: return 192;
        case UA_STATUSCODE_UNCERTAIN: return 64;
        default: return 0;
    }
}

UA_StatusCode severity(std::int32_t quality) {
    switch (quality & 0xC0) {
        case 0xC0: return UA_STATUSCODE_GOOD;
        case 0x40: return UA_STATUSCODE_UNCERTAIN;
        default: return UA_STATUSCODE_BAD;
    }
}

}  // namespace

std::int32_t qualityOf(UA_StatusCode status) {
    const auto* const found = std::ranges::find(pairs, status & CodeMask, &Pair::status);
    const std::int32_t quality = found == pairs.end() ? mainQuality(status) : found->quality;
    return quality | static_cast<std::int32_t>((status >> LimitShift) & LimitMask);
}

UA_StatusCode statusOf(std::int32_t quality) {
    constexpr UA_StatusCode DataValueInfo = 0x400;  // says that the limit bits mean something
    const auto* const found = std::ranges::find(pairs, quality & 0xFC, &Pair::quality);
    const UA_StatusCode status = found == pairs.end() ? severity(quality) : found->status;
    const UA_StatusCode limit = static_cast<UA_StatusCode>(quality) & LimitMask;
    return limit == 0 ? status : status | DataValueInfo | limit << LimitShift;
}

}  // namespace velt::opcua
