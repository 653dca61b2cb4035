// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/jet/format.h"
#include "adapters/access/jet/textcodec.h"

#include <cstdint>
#include <span>
#include <vector>

namespace velt::jet {

/// Where the values of a column are found in a row.
struct Field {
    ColumnType type = ColumnType::Text;
    bool fixed = false;          ///< at `offset`; otherwise variable value number `variable`
    bool calculated = false;     ///< its bytes are wrapped in a way that is not read here
    std::uint16_t number = 0;    ///< in the null mask
    std::uint16_t variable = 0;  ///< among the variable values
    std::uint32_t offset = 0;    ///< from the row's begin
    std::uint16_t size = 0;      ///< bytes that a value has at least
};

/// What all rows of a table have in common.
struct RowFormat {
    bool jet3 = false;
    bool hasVariables = false;
    std::vector<Field> fields;      ///< in the order of the table's columns
    std::uint16_t columnCount = 0;  ///< rows with at least so many columns...
    std::uint32_t fixedEnd = 0;     ///< ...and so many bytes before the first variable value hold
                                    ///< all fixed values
    bool checkEachField = false;    ///< that alone does not tell that all values are whole

    RowFormat() = default;
    RowFormat(bool isJet3, std::uint16_t variableColumns, std::span<const Column> columns);

    [[nodiscard]] TextEncoding encoding() const {
        return jet3 ? TextEncoding::Windows1252 : TextEncoding::Utf16;
    }
};

/// Bytes of a value whose type sets them; 0 for the other types.
[[nodiscard]] std::uint16_t sizeOf(ColumnType type);

}  // namespace velt::jet
