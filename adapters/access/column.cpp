// SPDX-License-Identifier: MIT
#include "adapters/access/column.h"

#include "adapters/access/plaintext.h"
#include "adapters/access/timeline.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace velt::access {
namespace {

template <typename Integer>
bool isWhole(double number) {
    return number >= static_cast<double>(std::numeric_limits<Integer>::min()) &&
           number <= static_cast<double>(std::numeric_limits<Integer>::max()) &&
           std::trunc(number) == number;
}

}  // namespace

bool Column::fits(double number) const {
    switch (type_) {
        case FieldType::Boolean: return number == 0.0 || number == -1.0;
        case FieldType::Byte: return isWhole<std::uint8_t>(number);
        case FieldType::Integer: return isWhole<std::int16_t>(number);
        case FieldType::Long: return isWhole<std::int32_t>(number);
        case FieldType::Single: return static_cast<double>(static_cast<float>(number)) == number;
        default: return true;
    }
}

void Column::appendNull() {
    if (holdsText())
        ids_.push(0);
    else
        numbers_.push_back(std::numeric_limits<double>::quiet_NaN());
}

void Column::append(double number) {
    if (holdsText()) return append(std::string_view(plainText(number)));
    if (!fits(number)) type_ = FieldType::Double;
    numbers_.push_back(number);
}

void Column::truncate(std::size_t rows) {
    if (holdsText())
        ids_.truncate(rows);
    else
        numbers_.resize(std::min(rows, numbers_.size()));
}

void Column::makeText() {
    if (holdsText()) return;
    const std::vector<double> numbers = std::move(numbers_);
    const bool dates = type_ == FieldType::Date;
    numbers_ = {};
    type_ = FieldType::Text;
    for (const double number : numbers) {
        if (std::isnan(number))
            appendNull();
        else
            append(std::string_view(dates ? plainText(Date(number)) : plainText(number)));
    }
}

Variant Column::value(std::size_t row) const {
    if (isNull(row)) return Null{};
    if (holdsText()) return std::string(text(row));
    const double number = numbers_[row];
    switch (type_) {
        case FieldType::Boolean: return number != 0.0;
        case FieldType::Byte: return static_cast<std::uint8_t>(number);
        case FieldType::Integer: return static_cast<std::int16_t>(number);
        case FieldType::Long: return static_cast<std::int32_t>(number);
        case FieldType::Single: return static_cast<float>(number);
        case FieldType::Date: return Date(number);
        default: return number;
    }
}

std::size_t Column::bytes() const { return numbers_.capacity() * sizeof(double) + ids_.bytes(); }

void Column::freeze() {
    numbers_.shrink_to_fit();
    ids_.shrink();
    dictionary_->freeze();
}

}  // namespace velt::access
