// SPDX-License-Identifier: MIT
#pragma once

#include "platform/widgets.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <optional>

namespace velt::qt {

/// Colours the surface of a widget and what stands on it. System colours follow the desktop.
class QtFrame final : public QObject, public Frame {
public:
    explicit QtFrame(QWidget* widget);
    void BackColor(OleColor color) override;
    void ForeColor(OleColor color) override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void apply();

    QPointer<QWidget> widget_;
    std::optional<OleColor> back_;
    std::optional<OleColor> fore_;
};

}  // namespace velt::qt
