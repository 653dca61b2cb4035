// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/qt/gatedcontrol.h"
#include "platform/widgets.h"

#include <QComboBox>
#include <QPointer>

#include <string>
#include <vector>

namespace velt::qt {

/// Keeps its entries and its selection when the box is gone. Takes the box over empty.
class QtComboBox final : public ComboBox {
public:
    QtComboBox(GatedControl& control, QComboBox* box);
    void Clear() override;
    void AddItem(const std::string& text) override;
    [[nodiscard]] int ListCount() const override { return static_cast<int>(entries_.size()); }
    [[nodiscard]] std::string List(int index) const override;
    [[nodiscard]] int ListIndex() const override { return index_; }
    void ListIndex(int index) override;
    [[nodiscard]] std::string Text() const override { return index_ < 0 ? "" : List(index_); }

private:
    void show();

    QPointer<QComboBox> box_;
    std::vector<std::string> entries_;
    int index_ = -1;
    QObject connections_;
};

}  // namespace velt::qt
