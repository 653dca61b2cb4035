// SPDX-License-Identifier: MIT
#include "adapters/qt/qtdatacontrol.h"

#include "adapters/qt/text.h"

#include <algorithm>

namespace velt::qt {

QtDataControl::QtDataControl(GatedControl& control, RecordBar* bar) : bar_(bar) {
    QObject::connect(bar, &RecordBar::moveRequested, &connections_,
                     [this, &control](MoveButton::Move direction) {
                         control.operatorInput([this, direction] { move(direction); });
                     });
}

void QtDataControl::Recordset(const std::shared_ptr<velt::Recordset>& recordset) {
    recordset_ = recordset;
    rows_.reset();
    position_ = 0;
    binding_ = std::make_shared<char>();
    if (!recordset_) {
        show();
        return;
    }
    recordset_->MoveComplete.subscribe([this, bound = std::weak_ptr(binding_)] {
        if (!bound.expired()) moved();
    });
    moved();
}

std::int32_t QtDataControl::RecordCount() const {
    return rows_ ? static_cast<std::int32_t>(rows_->rowCount()) : 0;
}

void QtDataControl::Caption(const std::string& text) {
    if (bar_) bar_->setCaption(toQt(text));
}

void QtDataControl::moved() {
    rows_ = recordset_->rows();
    const std::int32_t count = RecordCount();
    // Before the first row or behind the last one the nearest row is shown.
    const std::int32_t first = recordset_->EOF_() ? count : 1;
    position_ = count == 0 ? 0 : std::clamp(recordset_->AbsolutePosition(), first, count);
    show();
    MoveComplete.raise();
}

void QtDataControl::moveTo(std::int32_t position) {
    if (position < 1 || position > RecordCount() || position == position_) return;
    if (recordset_->State() == ado::StateOpen) {
        recordset_->AbsolutePosition(position);  // moved() follows
        return;
    }
    position_ = position;
    show();
    MoveComplete.raise();
}

void QtDataControl::move(MoveButton::Move move) {
    switch (move) {
        case MoveButton::Move::First: moveTo(1); break;
        case MoveButton::Move::Previous: moveTo(position_ - 1); break;
        case MoveButton::Move::Next: moveTo(position_ + 1); break;
        case MoveButton::Move::Last: moveTo(RecordCount()); break;
    }
}

void QtDataControl::show() {
    if (bar_) bar_->setUsable(RecordCount() > 0);
    Shown.raise();
}

}  // namespace velt::qt
