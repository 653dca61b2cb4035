// SPDX-License-Identifier: MIT
#include "adapters/access/jet/tablecontent.h"
#include "adapters/access/jet/tabledefinition.h"
#include "adapters/access/jet/textcodec.h"
#include "adapters/access/jet/usagemap.h"

#include <algorithm>
#include <utility>

namespace velt::jet {

const std::string& Table::name() const { return content->name; }

const std::vector<Column>& Table::columns() const { return content->columns; }

int Table::columnIndex(std::string_view name) const {
    const auto found = std::ranges::find_if(
        columns(), [name](const Column& column) { return sameName(column.name, name); });
    return found == columns().end() ? -1 : static_cast<int>(found - columns().begin());
}

std::uint32_t Table::statedRows() const { return content->statedRows; }

Table loadTable(const std::shared_ptr<const PageReader>& file, std::string name,
                std::uint32_t page) {
    TableDefinition definition = readDefinition(*file, page);
    auto content = std::make_shared<Table::Content>();
    content->file = file;
    content->name = std::move(name);
    content->definitionPage = page;
    content->statedRows = definition.statedRows;
    content->format =
        RowFormat(file->layout().jet3, definition.variableColumns, definition.columns);
    content->columns = std::move(definition.columns);
    content->pages = mappedPages(*file, definition.ownedPages);
    return {std::move(content)};
}

}  // namespace velt::jet
