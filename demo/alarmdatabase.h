// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/jet/writer.h"
#include "demo/alarmgenerator.h"

#include <filesystem>
#include <span>

namespace velt::demo {

/// The alarm history file of the demo installation: the table Allarmi in an Access file.
class AlarmDatabase {
public:
    /// A new file that holds `alarms`. It appears under its name only when it is complete.
    static void create(const std::filesystem::path& path, std::span<const Alarm> alarms);

    /// Opens an existing file to append to it.
    explicit AlarmDatabase(const std::filesystem::path& path);
    void append(const Alarm& alarm);

private:
    jet::Writer writer_;
};

}  // namespace velt::demo
