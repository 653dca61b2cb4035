// SPDX-License-Identifier: MIT
#include "adapters/access/jet/cursor.h"

#include "adapters/access/jet/bytes.h"
#include "adapters/access/jet/fileerror.h"
#include "adapters/access/jet/longvalue.h"
#include "adapters/access/jet/numeric.h"
#include "adapters/access/jet/rowfinder.h"
#include "adapters/access/jet/rowview.h"
#include "adapters/access/jet/tablecontent.h"

#include <utility>

namespace velt::jet {

struct Cursor::Impl {
    explicit Impl(const Table& t) : content(t.content), finder(*content) {}

    std::shared_ptr<const Table::Content> content;
    RowFinder finder;
    RowView row;
    std::uint64_t unreadable = 0;
    std::string text;
    std::vector<std::uint8_t> bytes;

    [[nodiscard]] const Field& field(int index) const {
        const Field& found = content->format.fields[static_cast<std::size_t>(index)];
        if (found.calculated) refuseCalculated(index);
        return found;
    }
    /// The column's bytes, none for null.
    [[nodiscard]] Bytes value(int index) const {
        const Field& wanted = field(index);
        return row.isNull(wanted) ? Bytes() : row.value(wanted);
    }
    [[nodiscard]] Bytes longValue(int index);
    [[noreturn]] void refuseCalculated(int index) const;
};

Bytes Cursor::Impl::longValue(int index) {
    const Bytes head = value(index);
    if (head.empty()) return head;
    try {
        return readLongValue(*content->file, head, bytes);
    } catch (const Damaged& damage) {
        const std::string& column = content->columns[static_cast<std::size_t>(index)].name;
        throw fileError(ErrorNumber::UnknownFileFormat, content->file->path(),
                        "la tabella \"" + content->name + "\" è danneggiata (colonna \"" + column +
                            "\": " + damage.what() + ")");
    }
}

void Cursor::Impl::refuseCalculated(int index) const {
    throw fileError(ErrorNumber::UnknownColumn, content->file->path(),
                    "la colonna \"" + content->columns[static_cast<std::size_t>(index)].name +
                        "\" della tabella \"" + content->name +
                        "\" è calcolata e non può essere letta");
}

Cursor::Cursor(const Table& table) : impl_(std::make_unique<Impl>(table)) {}
Cursor::~Cursor() = default;
Cursor::Cursor(Cursor&&) noexcept = default;
Cursor& Cursor::operator=(Cursor&&) noexcept = default;

bool Cursor::next() {
    while (impl_->finder.next()) {
        const auto bytes = impl_->finder.row();
        if (bytes && impl_->row.take(*bytes, impl_->content->format)) return true;
        ++impl_->unreadable;
    }
    return false;
}

void Cursor::rewind() { impl_->finder.rewind(); }

RowId Cursor::rowId() const { return impl_->finder.place(); }

bool Cursor::seek(RowId id) {
    if (!impl_->finder.seek(id)) return false;
    const auto bytes = impl_->finder.row();
    return bytes && impl_->row.take(*bytes, impl_->content->format);
}

std::uint64_t Cursor::unreadableRows() const { return impl_->unreadable; }

bool Cursor::isNull(int index) const {
    return impl_->row.isNull(impl_->content->format.fields[static_cast<std::size_t>(index)]);
}

bool Cursor::boolean(int index) const { return impl_->row.boolean(impl_->field(index)); }

std::int64_t Cursor::integer(int index) const {
    const Bytes value = impl_->value(index);
    if (value.empty()) return 0;
    switch (sizeOf(impl_->field(index).type)) {
        case 1: return value[0];
        case 2: return static_cast<std::int16_t>(u16At(value.data()));
        case 4: return static_cast<std::int32_t>(u32At(value.data()));
        case 8: return static_cast<std::int64_t>(u64At(value.data()));
        default: return 0;
    }
}

double Cursor::real(int index) const {
    const Bytes value = impl_->value(index);
    if (value.empty()) return 0.0;
    switch (sizeOf(impl_->field(index).type)) {
        case 4: return static_cast<double>(std::bit_cast<float>(u32At(value.data())));
        case 8: return std::bit_cast<double>(u64At(value.data()));
        default: return 0.0;
    }
}

std::string_view Cursor::text(int index) {
    switch (impl_->field(index).type) {
        case ColumnType::Memo:
            return decodeText(impl_->longValue(index), impl_->content->format.encoding(),
                              impl_->text);
        case ColumnType::ExtendedDate:
            return decodeText(impl_->value(index), TextEncoding::Windows1252, impl_->text);
        default:
            return decodeText(impl_->value(index), impl_->content->format.encoding(), impl_->text);
    }
}

Bytes Cursor::raw(int index) const { return impl_->value(index); }

Bytes Cursor::bytes(int index) {
    if (impl_->field(index).type == ColumnType::Ole) return impl_->longValue(index);
    return impl_->value(index);
}

std::string Cursor::numeric(int index) const {
    const Bytes value = impl_->value(index);
    const Column& column = impl_->content->columns[static_cast<std::size_t>(index)];
    if (column.type != ColumnType::Numeric || value.empty()) return {};
    return numericText(value, column.scale);
}

}  // namespace velt::jet
