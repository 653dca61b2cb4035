// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace velt::demo {

/// Makes a folder (when missing) and keeps it for this process alone until destroyed; RuntimeError
/// when it cannot be made or another process has it.
class FolderLock {
public:
    explicit FolderLock(const std::filesystem::path& folder);
    ~FolderLock();
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

private:
    int descriptor_;
};

}  // namespace velt::demo
