// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/jet/bytes.h"
#include "adapters/access/jet/format.h"
#include "adapters/access/jet/rowformat.h"
#include "platform/variant.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

namespace velt::jet {

/// Puts rows together; the counterpart of RowView.
class RowEncoder {
public:
    /// Stores a Memo or OLE value of column `index` and appends to the row what stands there.
    using StoreLongValue =
        std::function<void(std::size_t index, Bytes value, std::vector<std::uint8_t>& row)>;

    /// `columns` must outlive the encoder. `variableColumns` is what the definition states.
    RowEncoder(std::span<const Column> columns, RowFormat format, std::uint16_t variableColumns,
               StoreLongValue store);

    /// The row of the values, valid until the next call. Null in a Boolean column is false.
    /// RuntimeError when a value does not fit its column.
    [[nodiscard]] Bytes encode(std::span<const Variant> values);

private:
    void encodeFixed(std::span<const Variant> values);
    void encodeVariable(std::span<const Variant> values);
    void appendTail();
    void appendTailJet3();
    void setPresent(std::size_t index);

    std::span<const Column> columns_;
    RowFormat format_;
    StoreLongValue store_;
    std::vector<int> variables_;  ///< index of the column of each variable value, -1 for none
    std::vector<std::uint8_t> row_;
    std::vector<std::uint8_t> mask_;
    std::vector<std::uint8_t> value_;
    std::vector<std::uint16_t> starts_;
};

}  // namespace velt::jet
