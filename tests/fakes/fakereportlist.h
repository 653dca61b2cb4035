// SPDX-License-Identifier: MIT
// An item table in memory.
#pragma once

#include "tests/fakes/fakewidgets.h"

#include <array>

namespace velt::fakes {

struct ReportListRow {
    std::string key;
    std::string icon;
    std::array<std::string, 4> texts;
    int changes = 0;  ///< of the sub-items
};

struct FakeReportList final : KeyedRows<ReportList, ReportListRow> {
    void Add(const std::string& key, const std::string& text, const std::string& icon) override {
        append({key, icon, {text}});
    }
    void SubItem(int row, int column, const std::string& text) override {
        ReportListRow& changed = elementAt(rows, row - 1);
        elementAt(changed.texts, column) = text;
        ++changed.changes;
    }
    int SortKey() const override { return sortKey; }
    void SortKey(int column) override { sortKey = column; }
    Order SortOrder() const override { return sortOrder; }
    void SortOrder(Order order) override { sortOrder = order; }

    int sortKey = 0;
    Order sortOrder = Order::Ascending;
};

struct FakeTextBox final : TextBox {
    std::string Text() const override { return text; }
    std::string text;
};

}  // namespace velt::fakes
