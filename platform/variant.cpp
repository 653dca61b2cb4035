// SPDX-License-Identifier: MIT
#include "platform/variant.h"

#include <array>

namespace velt {

int Variant::typeCode() const {
    namespace code = vartype;
    // In the order of Storage's alternatives.
    static constexpr std::array codes = {
        code::Empty,
        code::Null,
        code::Bool,
        code::UI1,
        code::I2,
        code::I4,
        code::R4,
        code::R8,
        code::Date,
        code::BStr,
        code::Array + code::Bool,
        code::Array + code::UI1,
        code::Array + code::I2,
        code::Array + code::I4,
        code::Array + code::R4,
        code::Array + code::R8,
        code::Array + code::Date,
        code::Array + code::BStr,
    };
    static_assert(codes.size() == std::variant_size_v<Storage>);
    return codes[value_.index()];
}

}  // namespace velt
