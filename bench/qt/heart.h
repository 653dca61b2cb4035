// SPDX-License-Identifier: MIT
#pragma once

#include "bench/measure.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <functional>
#include <thread>
#include <vector>

/// How late the window's thread is while something goes on, and other figures of a window.
namespace velt::bench {

inline constexpr auto Beat = std::chrono::milliseconds(10);

/// Lateness of a beat, in milliseconds.
class Lateness {
public:
    void beat() {
        values_.push_back(std::max(0.0, since(last_) - Milliseconds(Beat).count()));
        last_ = SteadyClock::now();
    }
    void restart() {
        values_.clear();
        last_ = SteadyClock::now();
    }
    [[nodiscard]] double worst() const {
        return values_.empty() ? 0 : *std::ranges::max_element(values_);
    }
    [[nodiscard]] double p999() const {
        std::vector<double> sorted = values_;
        std::ranges::sort(sorted);
        return sorted.empty() ? 0 : sorted[(sorted.size() * 999) / 1000];
    }

private:
    std::vector<double> values_;
    SteadyClock::time_point last_ = SteadyClock::now();
};

/// A beat on the window's thread and, for the length of one action, one on a thread of its own.
class Heart {
public:
    Heart() {
        timer_.setTimerType(Qt::PreciseTimer);
        QObject::connect(&timer_, &QTimer::timeout, [this] { window_.beat(); });
        timer_.start(Beat);
    }
    void measure(const char* what, const std::function<void()>& action) {
        std::atomic<bool> over = false;
        Lateness machine;
        std::thread sleeper([&] {
            machine.restart();
            while (!over) {
                std::this_thread::sleep_for(Beat);
                machine.beat();
            }
        });
        window_.restart();
        const auto start = SteadyClock::now();
        const double processor = processorTime(CLOCK_THREAD_CPUTIME_ID);
        action();
        const double duration = since(start);
        const double used = processorTime(CLOCK_THREAD_CPUTIME_ID) - processor;
        window_.beat();
        over = true;
        sleeper.join();
        std::printf(
            "%-40s %7.0f ms (window's thread busy %5.0f)  late: p99.9 %6.1f, max %6.1f  machine: "
            "max "
            "%5.1f ms\n",
            what, duration, used, window_.p999(), window_.worst(), machine.worst());
    }

    /// How late the window's beat was at worst since the last question.
    double takeWorst() {
        const double worst = window_.worst();
        window_.restart();
        return worst;
    }

private:
    QTimer timer_;
    Lateness window_;
};

inline void waitFor(const std::function<bool()>& condition) {
    while (!condition()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

inline void figure(const char* what, const std::vector<double>& values) {
    std::printf("%-44s %8.1f ms   (median of %zu, max %.1f)\n", what, median(values), values.size(),
                *std::ranges::max_element(values));
}

}  // namespace velt::bench
