// SPDX-License-Identifier: MIT
#pragma once

#include "platform/export.h"

#include <filesystem>
#include <optional>
#include <string>

namespace velt {

/// The existing file or folder that a path from a Windows world means: "\" and "/" both separate,
/// and a component whose exact name is missing is found whatever its letter case (ASCII and the
/// accented Latin letters; of several the first in byte order). Nothing when there is none.
/// A place that may not be looked into is returned as it stands, for its opener to report.
[[nodiscard]] VELT_API std::optional<std::filesystem::path> resolvePath(const std::string& path);

}  // namespace velt
