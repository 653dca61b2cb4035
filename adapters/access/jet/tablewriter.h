// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/jet/longvaluewriter.h"
#include "adapters/access/jet/rowappender.h"
#include "adapters/access/jet/rowencoder.h"
#include "adapters/access/jet/tabledefinition.h"
#include "platform/variant.h"

#include <cstdint>
#include <map>
#include <span>
#include <vector>

namespace velt::jet {

/// Appends rows to one table. Its indexes, if it has any, are the caller's business.
class TableWriter {
public:
    /// Goes on with the table's last page. Raises Damaged.
    TableWriter(PageAllocator& allocator, std::uint32_t definitionPage);
    TableWriter(const TableWriter&) = delete;
    TableWriter& operator=(const TableWriter&) = delete;

    [[nodiscard]] const TableDefinition& definition() const { return definition_; }
    [[nodiscard]] const DefinitionTail& tail() const { return tail_; }
    /// True when all columns are of kinds that can be written.
    [[nodiscard]] bool isWritable() const;

    RowPointer append(std::span<const Variant> values);
    void flush();

private:
    void storeLongValue(std::size_t index, Bytes value, std::vector<std::uint8_t>& row);

    PageAllocator* allocator_;
    std::uint32_t page_;
    TableDefinition definition_;
    DefinitionTail tail_;
    RowEncoder encoder_;
    RowAppender rows_;
    std::map<std::size_t, LongValueWriter> longValues_;  ///< by index of the column
    std::uint32_t rowCount_;
    std::uint32_t writtenRowCount_;
};

}  // namespace velt::jet
