// SPDX-License-Identifier: MIT
#pragma once

#include "platform/clock.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace velt::demo {

struct InstallationOptions {
    std::filesystem::path folder;  ///< where the data lies; made when missing
    std::uint64_t seed = 1;
    std::chrono::milliseconds alarmInterval{4000};  ///< between the alarms that come in
    int historyDays = 90;
    int historyAlarms = 20000;
    /// Told, on another thread, what went wrong while running.
    std::function<void(const std::string&)> log;
};

/// The demo installation: a plant in a data folder that lives while this object does. The first
/// start writes an alarm history up to now; while it runs new alarms are appended. One at a time
/// may use a folder. Errors are RuntimeError.
class Installation {
public:
    Installation(InstallationOptions options, Clock& clock);
    ~Installation();

    [[nodiscard]] std::filesystem::path alarmFile() const;
    [[nodiscard]] std::filesystem::path settingsFile() const;

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace velt::demo
