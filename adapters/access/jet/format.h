// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace velt::jet {

/// The format of a file, from the version byte of its header.
enum class Version { Jet3, Jet4, Ace2007, Ace2010, Ace2016 };

/// Column types as they lie in a table definition.
enum class ColumnType : std::uint8_t {
    Boolean = 1,
    Byte = 2,
    Integer = 3,
    Long = 4,
    Currency = 5,
    Single = 6,
    Double = 7,
    Date = 8,
    Binary = 9,
    Text = 10,
    Ole = 11,
    Memo = 12,
    Guid = 15,
    Numeric = 16,
    ComplexId = 18,
    BigInt = 19,
    ExtendedDate = 20,
};

struct Column {
    std::string name;  ///< as the file spells it, UTF-8
    ColumnType type = ColumnType::Text;
    std::uint16_t number = 0;         ///< position in the null mask; columns are sorted by it
    std::uint16_t variableIndex = 0;  ///< among the variable-length columns
    std::uint16_t fixedOffset = 0;    ///< of a fixed-length column, counted behind the row's head
    std::uint16_t length = 0;         ///< bytes
    bool fixed = false;
    bool calculated = false;     ///< by an expression; its values cannot be read
    bool compressible = false;   ///< text may be stored in its compressed form
    std::uint8_t precision = 0;  ///< of Numeric
    std::uint8_t scale = 0;      ///< of Numeric
};

/// Where a row lies.
struct RowId {
    std::uint32_t page = 0;
    std::uint16_t row = 0;
    friend bool operator==(const RowId&, const RowId&) = default;
};

}  // namespace velt::jet
