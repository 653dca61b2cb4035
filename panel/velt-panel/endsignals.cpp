// SPDX-License-Identifier: MIT
#include "panel/velt-panel/endsignals.h"

#include <QSocketNotifier>

#include <sys/signalfd.h>
#include <unistd.h>

#include <csignal>
#include <utility>

namespace velt::panel {
namespace {

sigset_t ends() {
    sigset_t set;
    sigemptyset(&set);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) sigaddset(&set, signal);
    return set;
}

}  // namespace

void EndSignals::holdBack() {
    const sigset_t set = ends();
    pthread_sigmask(SIG_BLOCK, &set, nullptr);
}

EndSignals::EndSignals(std::function<void()> end) : end_(std::move(end)) {
    const sigset_t set = ends();
    descriptor_ = signalfd(-1, &set, SFD_CLOEXEC | SFD_NONBLOCK);
    if (descriptor_ < 0) {
        // Better an end without saving than none.
        pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
        return;
    }
    auto* const notifier = new QSocketNotifier(descriptor_, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] {
        signalfd_siginfo information;
        if (read(descriptor_, &information, sizeof information) == sizeof information) end_();
    });
}

EndSignals::~EndSignals() {
    if (descriptor_ >= 0) close(descriptor_);
}

}  // namespace velt::panel
