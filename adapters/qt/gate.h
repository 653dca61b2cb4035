// SPDX-License-Identifier: MIT
#pragma once

#include "platform/export.h"
#include "platform/runtimeerror.h"

#include <QPointer>
#include <QWidget>

#include <deque>
#include <functional>
#include <memory>

namespace velt::qt {

class GatedControl;

/// The one way into the logic of all controls of a process. One handler runs at a time, to its
/// end; it may wait inside (for a query, for a message box) while the windows live on. What
/// arrives as long as a handler is inside:
///   operator input is discarded: an impatient second click must not be replayed;
///   events (data, timers) queue, the newest of each key, and follow from the event loop;
///   host calls queue, and follow as soon as the handler has ended;
///   a termination cancels the wait, and follows before anything else.
/// An error that leaves a handler ends here: it is logged and announced by its control.
/// User-interface thread only.
class VELT_API Gate {
public:
    using Call = std::function<void()>;
    /// Kept alive while its calls run or queue. May be null: a call of no control.
    using Owner = std::shared_ptr<GatedControl>;

    class Wait;

    /// The gate of this process.
    static Gate& ofProcess();

    Gate() = default;
    Gate(const Gate&) = delete;
    Gate& operator=(const Gate&) = delete;

    /// False when the input was discarded.
    bool operatorInput(const Owner& owner, const Call& call);
    /// Of the queued events of one owner and key only the newest is kept, at the place of the
    /// first; a null key stands for none.
    void event(const Owner& owner, const void* key, Call call);
    /// The handler of an event that its source has raised by now: no gate can make it wait. Within
    /// a call of no control, in which data sources raise theirs, it becomes the handler inside.
    void handle(const Owner& owner, const Call& call);
    void hostCall(const Owner& owner, Call call);
    void terminate(const Owner& owner, Call call);

    /// Forgets what is queued for a control whose widget is gone, except its termination, and
    /// cancels its wait.
    void abandon(const GatedControl& control);

    /// A handler is inside.
    [[nodiscard]] bool busy() const { return inside_; }
    /// The window over which a dialog is to stand: that of the control whose handler is inside, or
    /// the active one; null when there is neither.
    [[nodiscard]] QWidget* window() const;

private:
    struct Item {
        Owner owner;
        const void* key;
        Call call;
    };

    void perform(const Owner& owner, const Call& call);
    /// Runs what must follow at once, and sees to it that the events follow.
    void followUp();
    void scheduleEvents();
    void runEvents();

    bool inside_ = false;
    Owner current_;
    Wait* wait_ = nullptr;
    bool eventsScheduled_ = false;
    std::deque<Item> terminations_;
    std::deque<Item> hostCalls_;
    std::deque<Item> events_;
};

/// A handler waits, as long as this object lives. Raises RuntimeError 3059 instead when the
/// handler's control is being terminated or gone, and RuntimeError 5 when a wait is on already.
class VELT_API Gate::Wait {
public:
    /// `cancel` is called at most once, and must make the wait end soon.
    Wait(Gate& gate, Call cancel);
    ~Wait();
    Wait(const Wait&) = delete;
    Wait& operator=(const Wait&) = delete;

    void cancel();

private:
    Gate& gate_;
    Call cancel_;
    bool entered_ = false;  ///< without a handler: the wait itself closes the gate
};

}  // namespace velt::qt
