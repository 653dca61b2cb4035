// SPDX-License-Identifier: MIT
#pragma once

#include "tests/fakes/fakeservices.h"
#include "widgets/controlwidget.h"
#include "widgets/internal/livecontrol.h"

#include <functional>
#include <memory>
#include <string>

namespace velt::ui {

/// What happened to the logic of a ProbeWidget, and what it does then. Outlives the widget.
struct Probe {
    std::string log;
    std::function<void()> onStart = [] {};
};

/// A control whose logic does nothing but say what happens to it; started by each show.
class ProbeWidget final : public ControlWidget {
public:
    ProbeWidget(Probe& probe, Services& services)
        : ControlWidget("File", &services, nullptr), probe_(probe) {}
    using ControlWidget::readSource;
    using ControlWidget::source;

private:
    class Live final : public LiveControl, public Control {
    public:
        Live(ProbeWidget& widget, Services& services)
            : LiveControl(widget),
              Control({.name = "Probe",
                       .sourceProperty = "File",
                       .start = ControlTraits::Start::EveryShow,
                       .loadsSettings = true},
                      *this, services),
              probe_(widget.probe_) {
            probe_.log += "live;";
        }
        ~Live() override { probe_.log += "destroyed;"; }
        Control& logic() override { return *this; }
        void assignSource(const std::string& value) override { source(value); }

    private:
        void applyBackColor(OleColor) override {}
        void applyForeColor(OleColor) override {}
        void start() override {
            probe_.log += "start " + source() + ";";
            probe_.onStart();
        }
        void sourceAssigned() override { probe_.log += "source " + source() + ";"; }
        void loadSettings() override { probe_.log += "settings " + section() + ";"; }
        void release() override { probe_.log += "release;"; }

        Probe& probe_;
    };

    std::shared_ptr<LiveControl> makeLogic(Services& services) override {
        return std::make_shared<Live>(*this, services);
    }

    Probe& probe_;
};

}  // namespace velt::ui
