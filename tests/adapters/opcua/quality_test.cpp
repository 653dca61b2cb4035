// SPDX-License-Identifier: MIT
#include "adapters/opcua/quality.h"

#include "opcviewer/quality.h"

#include <open62541/statuscodes.h>

#include <gtest/gtest.h>

namespace velt::opcua {
namespace {

TEST(QualityTest, StatusCodesBecomeQualityWords) {
    struct Case {
        UA_StatusCode status;
        std::int32_t quality;
    };
    for (const Case& c : {
             Case{UA_STATUSCODE_UNCERTAINENGINEERINGUNITSEXCEEDED, 84},
             {UA_STATUSCODE_UNCERTAINNOCOMMUNICATIONLASTUSABLEVALUE, 20},
             {UA_STATUSCODE_BADWAITINGFORINITIALDATA, 32},
             // Without a row of their own: by severity. The reserved severity is bad.
             {UA_STATUSCODE_GOODCLAMPED, 192},
             {UA_STATUSCODE_UNCERTAININITIALVALUE, 64},
             {UA_STATUSCODE_BADNODEIDUNKNOWN, 0},
             {0xFFFF0000, 0},
             // Limit bits; the overflow bit and those of structure and semantics do not count.
             {0x00000500, 193},
             {UA_STATUSCODE_UNCERTAINSUBNORMAL | 0x600, 90},
             {UA_STATUSCODE_BADSENSORFAILURE | 0x700, 19},
             {0x00000480, 192},
             {UA_STATUSCODE_GOODLOCALOVERRIDE | 0x0000C000, 216},
         })
        EXPECT_EQ(qualityOf(c.status), c.quality) << std::hex << c.status;
}

TEST(QualityTest, EveryQualityWithATextSurvivesTheWayThroughAStatusCode) {
    int texts = 0;
    for (int quality = 0; quality < 256; ++quality) {
        if (DescrizioneQualita(quality & ~3).starts_with("Quality")) continue;
        ++texts;
        EXPECT_EQ(qualityOf(statusOf(quality)), quality);
    }
    EXPECT_EQ(texts, 16 * 4);
}

}  // namespace
}  // namespace velt::opcua
