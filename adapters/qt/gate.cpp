// SPDX-License-Identifier: MIT
#include "adapters/qt/gate.h"

#include "adapters/qt/gatedcontrol.h"

#include <QApplication>
#include <QMetaObject>

#include <algorithm>
#include <exception>
#include <optional>
#include <utility>

namespace velt::qt {
namespace {

/// The error that `call` raised, if any.
std::optional<RuntimeError> errorOf(const Gate::Call& call) {
    try {
        call();
    } catch (const RuntimeError& error) {
        return error;
    } catch (const std::exception& error) {
        return RuntimeError(0, error.what());
    } catch (...) {
        return RuntimeError(0, "Errore sconosciuto");
    }
    return std::nullopt;
}

}  // namespace

Gate& Gate::ofProcess() {
    static Gate gate;
    return gate;
}

bool Gate::operatorInput(const Owner& owner, const Call& call) {
    if (inside_) return false;
    perform(owner, call);
    followUp();
    return true;
}

void Gate::event(const Owner& owner, const void* key, Call call) {
    if (!inside_ && events_.empty()) {
        perform(owner, call);
        followUp();
        return;
    }
    const auto same = std::ranges::find_if(
        events_, [&](const Item& item) { return key && item.key == key && item.owner == owner; });
    if (same != events_.end())
        same->call = std::move(call);
    else
        events_.push_back({owner, key, std::move(call)});
}

void Gate::handle(const Owner& owner, const Call& call) {
    if (!inside_) {
        perform(owner, call);
        followUp();
        return;
    }
    const Owner outer = std::exchange(current_, owner);
    const std::optional<RuntimeError> error = errorOf(call);
    current_ = outer;
    if (error) GatedControl::report(owner, *error);
}

void Gate::hostCall(const Owner& owner, Call call) {
    hostCalls_.push_back({owner, nullptr, std::move(call)});
    if (!inside_) followUp();
}

void Gate::terminate(const Owner& owner, Call call) {
    terminations_.push_back({owner, nullptr, std::move(call)});
    if (!inside_)
        followUp();
    else if (wait_)
        wait_->cancel();
}

void Gate::abandon(const GatedControl& control) {
    const auto isOfControl = [&control](const Item& item) { return item.owner.get() == &control; };
    std::erase_if(hostCalls_, isOfControl);
    std::erase_if(events_, isOfControl);
    if (current_.get() == &control && wait_) wait_->cancel();
}

QWidget* Gate::window() const {
    QWidget* widget = current_ ? current_->widget() : nullptr;
    return widget && widget->window()->isVisible() ? widget->window()
                                                   : QApplication::activeWindow();
}

void Gate::perform(const Owner& owner, const Call& call) {
    inside_ = true;
    current_ = owner;
    const std::optional<RuntimeError> error = errorOf(call);
    current_.reset();
    inside_ = false;
    if (error) GatedControl::report(owner, *error);
}

void Gate::followUp() {
    while (!inside_ && !(terminations_.empty() && hostCalls_.empty())) {
        std::deque<Item>& queue = terminations_.empty() ? hostCalls_ : terminations_;
        const Item item = std::move(queue.front());
        queue.pop_front();
        perform(item.owner, item.call);
    }
    if (!events_.empty()) scheduleEvents();
}

void Gate::scheduleEvents() {
    if (eventsScheduled_ || !QCoreApplication::instance()) return;
    eventsScheduled_ = true;
    QMetaObject::invokeMethod(
        QCoreApplication::instance(), [this] { runEvents(); }, Qt::QueuedConnection);
}

void Gate::runEvents() {
    eventsScheduled_ = false;
    if (inside_) return;  // they follow when the handler has ended
    // One round only: the operator gets a turn before what these bring about.
    std::size_t round = events_.size();
    while (round-- > 0 && !events_.empty()) {
        const Item item = std::move(events_.front());
        events_.pop_front();
        perform(item.owner, item.call);
        followUp();
    }
}

Gate::Wait::Wait(Gate& gate, Call cancel) : gate_(gate), cancel_(std::move(cancel)) {
    if (gate_.wait_)
        throw RuntimeError(ErrorNumber::InvalidCall, "Un'altra operazione è già in attesa");
    const bool gone = gate_.current_ && gate_.current_->isClosed();
    if (gone || !gate_.terminations_.empty()) throw RuntimeError(ErrorNumber::Cancelled);
    gate_.wait_ = this;
    entered_ = !gate_.inside_;
    gate_.inside_ = true;
}

Gate::Wait::~Wait() {
    gate_.wait_ = nullptr;
    if (!entered_) return;
    gate_.inside_ = false;
    gate_.followUp();
}

void Gate::Wait::cancel() {
    if (const Call cancel = std::exchange(cancel_, nullptr)) cancel();
}

}  // namespace velt::qt
