// SPDX-License-Identifier: MIT
#include "adapters/qt/qtcombobox.h"

#include "adapters/qt/indices.h"
#include "adapters/qt/text.h"

namespace velt::qt {

QtComboBox::QtComboBox(GatedControl& control, QComboBox* box) : box_(box) {
    box->clear();
    QObject::connect(box, &QComboBox::activated, &connections_, [this, &control](int index) {
        if (control.operatorInput([this] { Click.raise(); }))
            index_ = index;
        else
            show();
    });
}

void QtComboBox::Clear() {
    entries_.clear();
    index_ = -1;
    if (box_) box_->clear();
}

void QtComboBox::AddItem(const std::string& text) {
    entries_.push_back(text);
    if (!box_) return;
    box_->addItem(toQt(text));
    show();  // Qt selects the first entry by itself
}

std::string QtComboBox::List(int index) const { return elementAt(entries_, index); }

void QtComboBox::ListIndex(int index) {
    if (index != -1) elementAt(entries_, index);
    index_ = index;
    show();
    Click.raise();
}

void QtComboBox::show() {
    if (box_) box_->setCurrentIndex(index_);
}

}  // namespace velt::qt
