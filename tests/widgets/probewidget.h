// SPDX-License-Identifier: MIT
#pragma once

#include "tests/fakes/fakeservices.h"
#include "widgets/controlwidget.h"
#include "widgets/internal/livecontrol.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace velt::ui {

/// What happened to the logic of a ProbeWidget, and what it does then. Outlives the widget.
struct Probe {
    std::vector<std::string> log;
    std::function<void()> onStart = [] {};
    std::function<void()> onSource = [] {};
};

/// A control whose logic does nothing but say what happens to it.
class ProbeLogic final : public Control {
public:
    ProbeLogic(Probe& probe, ControlTraits::Start start, Ambient& ambient, Services& services)
        : Control(
              {.name = "Probe", .sourceProperty = "File", .start = start, .loadsSettings = true},
              ambient, services),
          probe_(probe) {}
    ~ProbeLogic() override { probe_.log.emplace_back("destroyed"); }
    void File(const std::string& value) { source(value); }

private:
    void applyBackColor(OleColor) override {}
    void applyForeColor(OleColor) override {}
    void start() override {
        probe_.log.push_back("start " + source());
        probe_.onStart();
    }
    void sourceAssigned() override {
        probe_.log.push_back("source " + source());
        probe_.onSource();
    }
    void loadSettings() override { probe_.log.push_back("settings " + section()); }
    void release() override { probe_.log.emplace_back("release"); }

    Probe& probe_;
};

class ProbeWidget final : public ControlWidget {
public:
    ProbeWidget(Probe& probe, Services& services, QWidget* parent = nullptr,
                ControlTraits::Start start = ControlTraits::Start::EveryShow)
        : ControlWidget("File", &services, parent), probe_(probe), start_(start) {}
    void File(const QString& path) { source(path); }
    [[nodiscard]] QString File() const { return source(); }
    void readFile(const QString& path) { readSource(path); }

private:
    class Live final : public LiveControl {
    public:
        Live(ProbeWidget& widget, Services& services)
            : LiveControl(widget), logic_(widget.probe_, widget.start_, *this, services) {}
        Control& logic() override { return logic_; }
        void assignSource(const std::string& value) override { logic_.File(value); }

    private:
        ProbeLogic logic_;
    };

    std::shared_ptr<LiveControl> makeLogic(Services& services) override {
        probe_.log.emplace_back("live");
        return std::make_shared<Live>(*this, services);
    }

    Probe& probe_;
    ControlTraits::Start start_;
};

}  // namespace velt::ui
