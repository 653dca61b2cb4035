// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/qt/gatedcontrol.h"
#include "framework/control.h"
#include "platform/ambient.h"
#include "widgets/controlwidget.h"

#include <functional>
#include <string>

namespace velt::ui {

/// A control's logic with its adapters and its surroundings; outlives the widget while a handler
/// is inside.
class LiveControl : public qt::GatedControl, public Ambient {
public:
    explicit LiveControl(ControlWidget& widget);

    [[nodiscard]] virtual Control& logic() = 0;
    virtual void assignSource(const std::string& value) = 0;

    [[nodiscard]] bool UserMode() const override;
    /// The widget's object name.
    [[nodiscard]] std::string DisplayName() const override;
    /// Through the gate; an error is announced by the widget.
    void Handle(const std::function<void()>& handler) override { handle(handler); }

private:
    void announce(const RuntimeError& error) override;
    /// Null once the widget is going.
    [[nodiscard]] ControlWidget* controlWidget() const;
};

}  // namespace velt::ui
