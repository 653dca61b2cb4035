// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/jet/bytes.h"
#include "adapters/access/jet/datapage.h"
#include "adapters/access/jet/pagewindow.h"
#include "adapters/access/jet/tablecontent.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace velt::jet {

/// Walks over the places of a table's live rows. The table must outlive it.
class RowFinder {
public:
    explicit RowFinder(const Table::Content& table);

    /// The next row that is not deleted; false behind the last.
    [[nodiscard]] bool next();
    void rewind();
    /// Goes to a row of the table that is not deleted; false when there is none at `id`.
    [[nodiscard]] bool seek(RowId id);

    [[nodiscard]] RowId place() const;
    /// The bytes of the row at place(), wherever they lie; nothing when they cannot be found.
    [[nodiscard]] std::optional<Bytes> row();

private:
    [[nodiscard]] bool nextPage();
    void enter(const std::uint8_t* page);
    [[nodiscard]] std::optional<Bytes> follow(RowPointer pointer);
    [[nodiscard]] bool isOwn(const DataPage& page) const {
        return page.rows() > 0 && page.owner() == table_->definitionPage;
    }

    const Table::Content* table_;
    PageWindow window_;
    DataPage page_;
    std::size_t pageIndex_ = 0;  ///< of page_; behind the last at the end
    bool started_ = false;
    int rows_ = 0;
    int row_ = 0;
    std::vector<std::uint8_t> elsewhere_;  ///< the page of a moved row
};

}  // namespace velt::jet
