// SPDX-License-Identifier: MIT
#include "adapters/access/jet/valueencoder.h"

#include "adapters/access/jet/bytewriter.h"
#include "adapters/access/jet/numeric.h"
#include "adapters/access/jet/rowformat.h"
#include "adapters/access/jet/textencoder.h"
#include "platform/runtimeerror.h"

#include <bit>
#include <cmath>
#include <limits>
#include <string>
#include <type_traits>

namespace velt::jet {
namespace {

[[noreturn]] void fail(ErrorNumber number, const Column& column, const std::string& reason) {
    throw RuntimeError(number, "Il valore per la colonna \"" + column.name + "\" " + reason + ".");
}

[[noreturn]] void failType(const Column& column) {
    fail(ErrorNumber::TypeMismatch, column, "non è del tipo giusto");
}

/// The number that the value is; doubles are exact up to 2^53.
double asNumber(const Column& column, const Variant& value) {
    return std::visit(
        [&column](const auto& held) -> double {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_arithmetic_v<Held> && !std::is_same_v<Held, bool>)
                return static_cast<double>(held);
            else
                failType(column);
        },
        value.storage());
}

template <typename Integer>
void appendInteger(const Column& column, double number, std::vector<std::uint8_t>& out) {
    if (number != std::nearbyint(number)) failType(column);
    // The highest 64-bit integer is not a double, one more is.
    const double limit = std::ldexp(1.0, std::numeric_limits<Integer>::digits);
    const double lowest = std::is_signed_v<Integer> ? -limit : 0.0;
    if (!(number >= lowest && number < limit))
        fail(ErrorNumber::Overflow, column, "è troppo grande");
    put(out, static_cast<std::make_unsigned_t<Integer>>(static_cast<Integer>(number)));
}

void appendSingle(const Column& column, const Variant& value, std::vector<std::uint8_t>& out) {
    const double number = asNumber(column, value);
    const auto single = static_cast<float>(number);
    if (std::isfinite(number) && !std::isfinite(single))
        fail(ErrorNumber::Overflow, column, "è troppo grande");
    put(out, std::bit_cast<std::uint32_t>(single));
}

template <typename T>
const T& held(const Column& column, const Variant& value) {
    if (!value.holds<T>()) failType(column);
    return value.get<T>();
}

void appendLimitedText(const Column& column, const Variant& value, TextEncoding encoding,
                       std::vector<std::uint8_t>& out) {
    const std::size_t most = encoding == TextEncoding::Utf16 ? column.length / 2U : column.length;
    const auto& text = held<std::string>(column, value);
    if (appendText(text, encoding, column.compressible, out) > most)
        fail(ErrorNumber::Overflow, column, "è troppo lungo");
}

void appendBytes(const Column& column, const Variant& value, std::size_t fewest, std::size_t most,
                 std::vector<std::uint8_t>& out) {
    const auto& bytes = held<std::vector<std::uint8_t>>(column, value);
    if (bytes.size() < fewest || bytes.size() > most)
        fail(ErrorNumber::Overflow, column, "non è della lunghezza giusta");
    out.insert(out.end(), bytes.begin(), bytes.end());
}

void appendNumeric(const Column& column, const Variant& value, std::vector<std::uint8_t>& out) {
    const auto stored =
        parseNumeric(held<std::string>(column, value), column.precision, column.scale);
    if (!stored) fail(ErrorNumber::Overflow, column, "non è un numero con queste cifre");
    out.insert(out.end(), stored->begin(), stored->end());
}

}  // namespace

void appendValue(const Column& column, const Variant& value, TextEncoding encoding,
                 std::vector<std::uint8_t>& out) {
    constexpr std::size_t Any = std::numeric_limits<std::size_t>::max();
    const auto number = [&] { return asNumber(column, value); };
    switch (column.type) {
        case ColumnType::Byte: return appendInteger<std::uint8_t>(column, number(), out);
        case ColumnType::Integer: return appendInteger<std::int16_t>(column, number(), out);
        case ColumnType::Long: return appendInteger<std::int32_t>(column, number(), out);
        case ColumnType::BigInt: return appendInteger<std::int64_t>(column, number(), out);
        case ColumnType::Currency:
            return appendInteger<std::int64_t>(column, std::nearbyint(number() * 10000.0), out);
        case ColumnType::Single: return appendSingle(column, value, out);
        case ColumnType::Double: return put(out, std::bit_cast<std::uint64_t>(number()));
        case ColumnType::Date:
            return put(out, std::bit_cast<std::uint64_t>(held<Date>(column, value).serial()));
        case ColumnType::Text: return appendLimitedText(column, value, encoding, out);
        case ColumnType::Memo:
            appendText(held<std::string>(column, value), encoding, column.compressible, out);
            return;
        case ColumnType::Binary: return appendBytes(column, value, 0, column.length, out);
        case ColumnType::Ole: return appendBytes(column, value, 0, Any, out);
        case ColumnType::Guid: return appendBytes(column, value, 16, 16, out);
        case ColumnType::Numeric: return appendNumeric(column, value, out);
        case ColumnType::Boolean:  // is a bit of the null mask
        case ColumnType::ComplexId:
        case ColumnType::ExtendedDate: break;
    }
    fail(ErrorNumber::TypeMismatch, column, "non può essere scritto");
}

bool asBoolean(const Column& column, const Variant& value) { return held<bool>(column, value); }

}  // namespace velt::jet
