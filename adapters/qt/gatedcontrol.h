// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/qt/gate.h"

#include <memory>

namespace velt::qt {

/// The logic of one control together with its adapters, as a unit of life: whoever is inside the
/// gate for it keeps it alive, so that its widget may be destroyed at any time. Made by
/// std::make_shared and held by the widget, which must call close() when it goes.
class VELT_API GatedControl : public std::enable_shared_from_this<GatedControl> {
public:
    explicit GatedControl(QWidget* widget, Gate& gate = Gate::ofProcess())
        : gate_(gate), widget_(widget) {}
    virtual ~GatedControl() = default;
    GatedControl(const GatedControl&) = delete;
    GatedControl& operator=(const GatedControl&) = delete;

    // The ways through the gate, see there. All are shut after close().

    /// False when the input is discarded. Otherwise `call` follows from the event loop: no widget
    /// is on the stack then, so that a handler may destroy any.
    bool operatorInput(Gate::Call call);
    void event(const void* key, Gate::Call call);
    void handle(const Gate::Call& call);
    void hostCall(Gate::Call call);
    void terminate(Gate::Call call);

    /// The widget is going: nothing enters any more.
    void close();
    [[nodiscard]] bool isClosed() const { return closed_; }
    /// Null once it is gone.
    [[nodiscard]] QWidget* widget() const { return widget_; }

    /// The one guard: logs an error that has left a handler of `control` (which may be null) and
    /// announces it. A cancelled operation is no error: who cancelled knows.
    static void report(const std::shared_ptr<GatedControl>& control, const RuntimeError& error);

private:
    /// Tells the host; only while the widget lives.
    virtual void announce(const RuntimeError& error) = 0;

    Gate& gate_;
    QPointer<QWidget> widget_;
    bool closed_ = false;
};

}  // namespace velt::qt
