// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <string>

namespace velt::ini {

/// An exclusive lock among all threads and processes that ask for it under the same path. The
/// lock's file exists only while somebody holds or awaits it; the lock of a program that died is
/// free, even if its file has remained.
class FileLock {
public:
    /// Waits at most `wait`. RuntimeError when the lock is not free until then, or when its file
    /// cannot be made.
    FileLock(std::string path, std::chrono::milliseconds wait);
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

private:
    bool tryOnce();

    std::string path_;
    int descriptor_ = -1;
};

}  // namespace velt::ini
