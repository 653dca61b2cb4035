// SPDX-License-Identifier: MIT
#include "opcviewer/writevalue.h"

#include "platform/conversions.h"

namespace velt {
namespace {

// Codes of the VARTYPE enumeration that values from a server may have and ours never do.
constexpr int Code15 = 15;  // no standard type; servers that use it mean a byte
constexpr int I1 = 16;
constexpr int UI2 = 18;
constexpr int UI4 = 19;
constexpr int Int = 22;
constexpr int UInt = 23;

}  // namespace

std::vector<std::string> SeparaParti(const std::string& text) {
    std::vector<std::string> parts(1);
    for (const char c : text) {
        if (c == ';')
            parts.emplace_back();
        else
            parts.back() += c;
    }
    return parts;
}

std::optional<Variant> ConvertiParti(int type, const std::vector<std::string>& parts,
                                     const Locale& locale) {
    const bool isArray = type >= vartype::Array;
    const auto values = [&](auto convert) -> Variant {
        if (!isArray) return convert(parts.front(), locale);
        std::vector<decltype(convert(parts.front(), locale))> elements;
        elements.reserve(parts.size());
        for (const std::string& part : parts) elements.push_back(convert(part, locale));
        return elements;
    };
    switch (isArray ? type - vartype::Array : type) {
        case vartype::I2:
        case I1: return values(conversions::toInt16);
        case vartype::I4:
        case UI2:
        case UI4:
        case Int:
        case UInt: return values(conversions::toInt32);
        case vartype::R4: return values(conversions::toSingle);
        case vartype::R8: return values(conversions::toDouble);
        case vartype::Bool: return values(conversions::toBool);
        case Code15:
            if (isArray) return std::nullopt;
            [[fallthrough]];
        case vartype::UI1: return values(conversions::toByte);
        case vartype::Date: return values(conversions::toDate);
        case vartype::BStr:
            return values([](const std::string& part, const Locale&) { return part; });
        default: return std::nullopt;
    }
}

}  // namespace velt
