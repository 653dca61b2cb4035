// SPDX-License-Identifier: MIT
#include "adapters/access/filesystem.h"

#include "platform/paths.h"

#include <memory>
#include <stop_token>
#include <system_error>

namespace velt::access {

bool LocalFileSystem::FileExists(const std::string& path) {
    if (path.empty()) return false;
    // Shared with the work, which may outlive a cancelled wait.
    const auto exists = std::make_shared<bool>(false);
    dispatcher_.run([exists, path](const std::stop_token&) {
        std::error_code unreachable;  // what cannot be asked counts as missing
        const auto file = resolvePath(path);
        *exists = file && std::filesystem::exists(*file, unreachable) &&
                  !std::filesystem::is_directory(*file, unreachable);
    });
    return *exists;
}

}  // namespace velt::access
