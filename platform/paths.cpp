// SPDX-License-Identifier: MIT
#include "platform/paths.h"

#include "platform/characters.h"

#include <algorithm>
#include <system_error>

namespace velt {
namespace {

namespace fs = std::filesystem;

bool mayExist(const fs::path& path) {
    std::error_code error;
    if (fs::exists(path, error)) return true;
    return error && error != std::errc::no_such_file_or_directory &&
           error != std::errc::not_a_directory && error != std::errc::filename_too_long;
}

std::optional<fs::path> entryIgnoringCase(const fs::path& folder, const std::string& name) {
    const std::string wanted = foldLatin(name);
    std::optional<std::string> found;
    std::error_code error;
    fs::directory_iterator entry(folder.empty() ? fs::path(".") : folder, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        std::string candidate = entry->path().filename().string();
        if (foldLatin(candidate) == wanted && (!found || candidate < *found))
            found = std::move(candidate);
    }
    if (!found) return std::nullopt;
    return folder / *found;
}

}  // namespace

std::optional<fs::path> resolvePath(const std::string& path) {
    if (path.empty() || path.find('\0') != std::string::npos) return std::nullopt;
    std::string separated = path;
    std::ranges::replace(separated, '\\', '/');
    const fs::path wanted(separated);
    if (mayExist(wanted)) return wanted;

    fs::path resolved = wanted.root_path();
    for (const fs::path& component : wanted.relative_path()) {
        if (component.empty()) continue;  // a separator at the end
        if (mayExist(resolved / component)) {
            resolved /= component;
            continue;
        }
        const std::optional<fs::path> entry = entryIgnoringCase(resolved, component.string());
        if (!entry) return std::nullopt;
        resolved = *entry;
    }
    return resolved;
}

}  // namespace velt
