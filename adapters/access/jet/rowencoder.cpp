// SPDX-License-Identifier: MIT
#include "adapters/access/jet/rowencoder.h"

#include "adapters/access/jet/bytewriter.h"
#include "adapters/access/jet/textcodec.h"
#include "adapters/access/jet/valueencoder.h"

#include <algorithm>
#include <utility>

namespace velt::jet {
namespace {

bool isNull(const Variant& value) { return value.isNull() || value.isEmpty(); }

bool isLong(ColumnType type) { return type == ColumnType::Memo || type == ColumnType::Ole; }

}  // namespace

RowEncoder::RowEncoder(std::span<const Column> columns, RowFormat format,
                       std::uint16_t variableColumns, StoreLongValue store)
    : columns_(columns),
      format_(std::move(format)),
      store_(std::move(store)),
      variables_(variableColumns, -1) {
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (columns[i].fixed) continue;
        const std::size_t place = columns[i].variableIndex;
        if (place >= variables_.size()) variables_.resize(place + 1, -1);
        variables_[place] = static_cast<int>(i);
    }
}

Bytes RowEncoder::encode(std::span<const Variant> values) {
    mask_.assign((format_.columnCount + 7U) / 8U, 0);
    encodeFixed(values);
    if (format_.hasVariables) {
        encodeVariable(values);
        if (format_.jet3)
            appendTailJet3();
        else
            appendTail();
    }
    row_.insert(row_.end(), mask_.begin(), mask_.end());
    return row_;
}

void RowEncoder::setPresent(std::size_t index) {
    const std::size_t number = format_.fields[index].number;
    mask_[number / 8] = static_cast<std::uint8_t>(mask_[number / 8] | 1U << number % 8);
}

void RowEncoder::encodeFixed(std::span<const Variant> values) {
    row_.assign(format_.fixedEnd, 0);
    if (format_.jet3)
        row_[0] = static_cast<std::uint8_t>(format_.columnCount);
    else
        putAt(row_.data(), format_.columnCount);
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        if (!columns_[i].fixed || isNull(values[i])) continue;
        if (columns_[i].type == ColumnType::Boolean) {
            if (asBoolean(columns_[i], values[i])) setPresent(i);
            continue;
        }
        value_.clear();
        appendValue(columns_[i], values[i], format_.encoding(), value_);
        value_.resize(format_.fields[i].size);
        std::ranges::copy(value_, row_.begin() + format_.fields[i].offset);
        setPresent(i);
    }
}

void RowEncoder::encodeVariable(std::span<const Variant> values) {
    starts_.clear();
    for (const int index : variables_) {
        starts_.push_back(static_cast<std::uint16_t>(row_.size()));
        if (index < 0) continue;
        const auto i = static_cast<std::size_t>(index);
        if (isNull(values[i])) continue;
        if (isLong(columns_[i].type)) {
            value_.clear();
            appendValue(columns_[i], values[i], format_.encoding(), value_);
            store_(i, value_, row_);
        } else {
            appendValue(columns_[i], values[i], format_.encoding(), row_);
        }
        setPresent(i);
    }
    starts_.push_back(static_cast<std::uint16_t>(row_.size()));
}

void RowEncoder::appendTail() {
    for (auto start = starts_.rbegin(); start != starts_.rend(); ++start) put(row_, *start);
    put(row_, static_cast<std::uint16_t>(variables_.size()));
}

/// Starts have one byte here: the jump table tells from which one on 256 more are to be added. Its
/// size follows from the length of the whole row, its own bytes included.
void RowEncoder::appendTailJet3() {
    const std::size_t length = row_.size() + starts_.size() + 1 + mask_.size();
    std::size_t jumps = 0;
    while ((length + jumps - 1) / 256 > jumps) ++jumps;

    for (auto start = starts_.rbegin(); start != starts_.rend(); ++start)
        row_.push_back(static_cast<std::uint8_t>(*start & 0xFF));
    for (std::size_t jump = jumps; jump > 0; --jump) {
        const auto first = std::ranges::lower_bound(starts_, 256 * jump);
        const bool needed = first != starts_.end();
        row_.push_back(static_cast<std::uint8_t>(needed ? first - starts_.begin() : 0xFF));
    }
    row_.push_back(static_cast<std::uint8_t>(variables_.size()));
}

}  // namespace velt::jet
