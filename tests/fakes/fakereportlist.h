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

class FakeReportList final : public KeyedRows<ReportList, ReportListRow> {
public:
    void Add(const std::string& key, const std::string& text,
             const std::string& smallIcon) override {
        append({key, smallIcon, {text}});
    }
    void SubItem(int row, int column, const std::string& text) override {
        ReportListRow& changed = elementAt(rows, row - 1);
        elementAt(changed.texts, column) = text;
        ++changed.changes;
    }
    int SortKey() const override { return sortKey_; }
    void SortKey(int column) override { sortKey_ = column; }
    Order SortOrder() const override { return sortOrder_; }
    void SortOrder(Order order) override { sortOrder_ = order; }

private:
    int sortKey_ = 0;
    Order sortOrder_ = Order::Ascending;
};

class FakeTextBox final : public TextBox {
public:
    std::string Text() const override { return text; }
    std::string text;
};

}  // namespace velt::fakes
