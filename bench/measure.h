// SPDX-License-Identifier: MIT
#pragma once

#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

/// What the benchmarks measure with. Times are milliseconds.
namespace velt::bench {

using SteadyClock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

inline double since(SteadyClock::time_point start) {
    return Milliseconds(SteadyClock::now() - start).count();
}

inline double median(std::vector<double> values) {
    std::ranges::sort(values);
    return values.empty() ? 0 : values[values.size() / 2];
}

/// Processor time so far: of the process (what the machine's other work does not change much) or,
/// with CLOCK_THREAD_CPUTIME_ID, of this thread.
inline double processorTime(clockid_t clock = CLOCK_PROCESS_CPUTIME_ID) {
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

/// Memory of the process, in KiB.
inline long residentKiB() {
    std::ifstream status("/proc/self/statm");
    long pages = 0;
    status >> pages >> pages;
    return pages * (sysconf(_SC_PAGESIZE) / 1024);
}

/// What a process holds that must not grow.
class Footprint {
public:
    void printGrowth() const {
        const Footprint now;
        std::printf("memory %+ld KiB, threads %+td, descriptors %+td\n", now.memory_ - memory_,
                    now.threads_ - threads_, now.descriptors_ - descriptors_);
    }

private:
    static std::ptrdiff_t entries(const char* folder) {
        return std::distance(std::filesystem::directory_iterator(folder), {});
    }
    long memory_ = residentKiB();
    std::ptrdiff_t threads_ = entries("/proc/self/task");
    std::ptrdiff_t descriptors_ = entries("/proc/self/fd");
};

}  // namespace velt::bench
