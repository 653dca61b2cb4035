// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>

/// Settings files on the disk. Errors are RuntimeError 75 whose description names the file and the
/// reason.
namespace velt::ini {

/// A larger file is no settings file and is neither read nor written.
inline constexpr std::size_t largestFile = std::size_t{32} * 1024 * 1024;

/// The file that a path of the Windows world means here, symbolic links followed to their end, so
/// that all names of a file lead to one lock. The file need not exist.
[[nodiscard]] std::string settingsPath(const std::string& path);

/// All bytes of the file; nothing when it does not exist.
[[nodiscard]] std::optional<std::string> readFile(const std::string& path);

/// Gives the file new bytes at once: whoever reads it, or a crash at any moment, finds either the
/// old or the new. The mode of an existing file is kept, and its owner as far as the process may
/// set it. Only one caller per file at a time. On failure the old file is as it was.
void replaceFile(const std::string& path, const std::string& bytes);

/// Path of a file beside `path` that serves it: hidden, with `suffix` behind the name.
[[nodiscard]] std::string companionPath(const std::string& path, const std::string& suffix);

[[noreturn]] void failWith(int systemError, const std::string& path);

}  // namespace velt::ini
