// SPDX-License-Identifier: MIT
// An item table in memory.
#pragma once

#include "tests/fakes/fakewidgets.h"

#include <array>

namespace velt::fakes {

class FakeReportList final : public ReportList {
public:
    struct Row {
        std::string key;
        std::string icon;
        std::array<std::string, 4> texts;
        int changes = 0;  ///< of the sub-items
    };

    void Clear() override {
        rows.clear();
        rowOf_.clear();
        selected = 0;
    }
    void Add(const std::string& key, const std::string& text,
             const std::string& smallIcon) override {
        if (!rowOf_.emplace(key, Count() + 1).second) throw RuntimeError(ErrorNumber::KeyInUse);
        rows.push_back({key, smallIcon, {text}});
    }
    int Count() const override { return static_cast<int>(rows.size()); }
    std::string Key(int row) const override { return elementAt(rows, row - 1).key; }
    int RowOf(const std::string& key) const override {
        const auto found = rowOf_.find(key);
        return found == rowOf_.end() ? 0 : found->second;
    }
    void SubItem(int row, int column, const std::string& text) override {
        Row& changed = elementAt(rows, row - 1);
        elementAt(changed.texts, column) = text;
        ++changed.changes;
    }
    int SelectedItem() const override { return selected; }
    int SortKey() const override { return sortKey_; }
    void SortKey(int column) override { sortKey_ = column; }
    Order SortOrder() const override { return sortOrder_; }
    void SortOrder(Order order) override { sortOrder_ = order; }

    std::vector<Row> rows;
    int selected = 0;

private:
    std::unordered_map<std::string, int> rowOf_;
    int sortKey_ = 0;
    Order sortOrder_ = Order::Ascending;
};

class FakeTextBox final : public TextBox {
public:
    std::string Text() const override { return text; }
    std::string text;
};

}  // namespace velt::fakes
