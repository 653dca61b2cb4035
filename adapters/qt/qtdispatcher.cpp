// SPDX-License-Identifier: MIT
#include "adapters/qt/qtdispatcher.h"

#include "adapters/qt/progressdialog.h"

#include <QApplication>
#include <QEventLoop>
#include <QThread>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>
#include <utility>

namespace velt::qt {
namespace {

using namespace std::chrono_literals;

constexpr auto QuickWork = 20ms;       ///< works that end sooner, together, are not worth a loop
constexpr auto ProgressDelay = 500ms;  ///< until the operator is told that something goes on
constexpr auto PatienceAtTheEnd = 1s;  ///< for cancelled works when the program ends

bool onUiThread() {
    return qobject_cast<QApplication*>(QCoreApplication::instance()) &&
           QThread::currentThread() == QCoreApplication::instance()->thread();
}

}  // namespace

/// Shared by the waiting thread and the working one, which may outlive the wait.
struct QtDispatcher::Job {
    std::mutex mutex;
    std::condition_variable ended;
    bool done = false;
    std::exception_ptr error;
    QEventLoop* loop = nullptr;  ///< to be ended with the work, while the wait is on
    std::stop_source stop;

    void finish(std::exception_ptr outcome) {
        const std::lock_guard lock(mutex);
        error = std::move(outcome);
        done = true;
        if (loop) QMetaObject::invokeMethod(loop, &QEventLoop::quit, Qt::QueuedConnection);
        ended.notify_all();
    }
    bool waitAMoment(std::chrono::milliseconds moment) {
        std::unique_lock lock(mutex);
        return ended.wait_for(lock, moment, [this] { return done; });
    }
    /// False when the work has ended already.
    bool attach(QEventLoop& waiting) {
        const std::lock_guard lock(mutex);
        loop = &waiting;
        return !done;
    }
    bool detach() {
        const std::lock_guard lock(mutex);
        loop = nullptr;
        return done;
    }
};

QtDispatcher::QtDispatcher(Gate& gate) : gate_(gate) {}

QtDispatcher::~QtDispatcher() {
    const auto deadline = std::chrono::steady_clock::now() + PatienceAtTheEnd;
    for (const auto& job : cancelled_) {
        const auto left = deadline - std::chrono::steady_clock::now();
        job->waitAMoment(
            std::max(0ms, std::chrono::duration_cast<std::chrono::milliseconds>(left)));
    }
}

void QtDispatcher::run(std::function<void(std::stop_token)> work) {
    if (!onUiThread()) {
        work({});
        return;
    }
    QEventLoop loop;
    Gate::Wait wait(gate_, [&loop] { loop.quit(); });
    const auto job = std::make_shared<Job>();
    std::thread([job, work = std::move(work)]() mutable {
        std::exception_ptr error;
        try {
            work(job->stop.get_token());
        } catch (...) {
            error = std::current_exception();
        }
        work = nullptr;  // what it owned goes before anybody is told that it has ended
        job->finish(std::move(error));
    }).detach();

    if (!job->waitAMoment(patience())) waitFor(*job, loop);
    if (!job->detach()) {  // cancelled, or the program is being ended
        job->stop.request_stop();
        std::erase_if(cancelled_, [](const auto& old) { return old->waitAMoment(0ms); });
        cancelled_.push_back(job);
        throw RuntimeError(ErrorNumber::Cancelled);
    }
    if (job->error) std::rethrow_exception(job->error);
}

std::chrono::milliseconds QtDispatcher::patience() {
    const auto now = std::chrono::steady_clock::now();
    if (!turnExpected_) {
        turnExpected_ = true;
        lastTurn_ = now;
        QMetaObject::invokeMethod(
            &uiThread_, [this] { turnExpected_ = false; }, Qt::QueuedConnection);
    }
    const auto deaf = std::chrono::duration_cast<std::chrono::milliseconds>(now - lastTurn_);
    return std::max(0ms, QuickWork - deaf);
}

void QtDispatcher::waitFor(Job& job, QEventLoop& loop) {
    if (!job.attach(loop)) return;
    // Owned by the window below, which may be destroyed during the wait.
    QPointer<ProgressDialog> progress;
    QTimer::singleShot(ProgressDelay, &loop, [this, &progress, &loop] {
        progress = new ProgressDialog(gate_.window());
        discarder_.spare(progress);
        QObject::connect(progress, &QDialog::rejected, &loop, &QEventLoop::quit);
        progress->show();
    });
    discarder_.switchOn();
    QGuiApplication::setOverrideCursor(Qt::BusyCursor);
    loop.exec();
    QGuiApplication::restoreOverrideCursor();
    discarder_.switchOff();
    delete progress;
}

void QtDispatcher::post(std::function<void()> call) {
    QMetaObject::invokeMethod(
        &uiThread_, [this, call = std::move(call)] { gate_.event(nullptr, nullptr, call); },
        Qt::QueuedConnection);
}

void QtDispatcher::yield() {
    if (!onUiThread()) return;
    // Exactly layout and painting, nothing that could bring another handler about.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::UpdateRequest);
}

}  // namespace velt::qt
