// SPDX-License-Identifier: MIT
#pragma once

#include "platform/export.h"

#include <string>

namespace velt {

/// What the controls ask of the file system. Paths come from a Windows world: "\" and "/" both
/// separate, and where the exact name is missing its letter case does not matter.
class VELT_API clsFileSystem {
public:
    virtual ~clsFileSystem() = default;
    /// True for an existing file; false for a folder, an empty path, or one that cannot be asked.
    [[nodiscard]] virtual bool FileExists(const std::string& path) = 0;
};

}  // namespace velt
