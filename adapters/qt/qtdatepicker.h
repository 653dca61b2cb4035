// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/qt/gatedcontrol.h"
#include "platform/widgets.h"

#include <QDateTimeEdit>
#include <QPointer>

namespace velt::qt {

/// Keeps its value when the editor is gone. The editor's display format says which part of the
/// value it shows. What is typed counts once it is complete: with Enter, with the focus leaving, or
/// with a shortcut.
class QtDatePicker final : public DatePicker {
public:
    QtDatePicker(GatedControl& control, QDateTimeEdit* edit);
    [[nodiscard]] Date Value() const override { return value_; }
    void Value(const Date& value) override;

private:
    void show();
    void edited(const QDateTime& dateTime);

    GatedControl& control_;
    QPointer<QDateTimeEdit> edit_;
    Date value_;
    bool showing_ = false;
    QObject connections_;
};

}  // namespace velt::qt
