// SPDX-License-Identifier: MIT
#pragma once

#include "platform/date.h"
#include "platform/export.h"

#include <cstdint>
#include <string>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

namespace velt {

/// Type codes of values as OPC Data Access and automation use them (the VARTYPE enumeration).
namespace vartype {
inline constexpr int Empty = 0;
inline constexpr int Null = 1;
inline constexpr int I2 = 2;
inline constexpr int I4 = 3;
inline constexpr int R4 = 4;
inline constexpr int R8 = 5;
inline constexpr int Date = 7;
inline constexpr int BStr = 8;
inline constexpr int Bool = 11;
inline constexpr int UI1 = 17;
inline constexpr int Array = 8192;  ///< added to the element's code
}  // namespace vartype

struct Null {
    friend bool operator==(const Null&, const Null&) = default;
};

/// One value of a database field or of an OPC item. Text is UTF-8.
class VELT_API Variant {
public:
    using Storage =
        std::variant<std::monostate, Null, bool, std::uint8_t, std::int16_t, std::int32_t, float,
                     double, Date, std::string, std::vector<bool>, std::vector<std::uint8_t>,
                     std::vector<std::int16_t>, std::vector<std::int32_t>, std::vector<float>,
                     std::vector<double>, std::vector<Date>, std::vector<std::string>>;

    Variant() = default;
    Variant(const char* text) : value_(std::string(text)) {}
    /// From exactly one of the held types: nothing is converted on the way in.
    template <typename T>
    requires(!std::is_same_v<std::decay_t<T>, Variant> &&
             std::is_constructible_v<Storage, std::in_place_type_t<std::decay_t<T>>, T>)
        // NOLINTNEXTLINE(bugprone-forwarding-reference-overload): the requirement excludes Variant
        Variant(T&& value)
        : value_(std::in_place_type<std::decay_t<T>>, std::forward<T>(value)) {}

    /// The code of `vartype` (2 I2, 3 I4, ..., 8192 + element code for arrays).
    [[nodiscard]] int typeCode() const;
    [[nodiscard]] bool isEmpty() const { return holds<std::monostate>(); }
    [[nodiscard]] bool isNull() const { return holds<Null>(); }
    [[nodiscard]] bool isArray() const { return typeCode() >= vartype::Array; }

    template <typename T>
    [[nodiscard]] bool holds() const {
        return std::holds_alternative<T>(value_);
    }
    /// The held value, which must be a T.
    template <typename T>
    [[nodiscard]] const T& get() const {
        return std::get<T>(value_);
    }
    [[nodiscard]] const Storage& storage() const { return value_; }

    friend bool operator==(const Variant&, const Variant&) = default;

private:
    Storage value_;
};

}  // namespace velt
