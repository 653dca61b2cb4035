// SPDX-License-Identifier: MIT
#include "adapters/ini/filelock.h"

#include "adapters/ini/settingsfile.h"
#include "platform/runtimeerror.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace velt::ini {
namespace {

int openLockFile(const std::string& path) {
    constexpr int flags = O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
    const int created = open(path.c_str(), O_RDWR | O_CREAT | flags, 0666);
    // Another user's lock file: for locking it is enough that it can be opened at all.
    return created < 0 && errno == EACCES ? open(path.c_str(), O_RDONLY | flags) : created;
}

/// False when the file was removed, or replaced, by the holder before.
bool isStillAt(const std::string& path, int descriptor) {
    struct stat opened {};
    struct stat present {};
    return fstat(descriptor, &opened) == 0 && stat(path.c_str(), &present) == 0 &&
           opened.st_ino == present.st_ino && opened.st_dev == present.st_dev;
}

}  // namespace

FileLock::FileLock(std::string path, std::chrono::milliseconds wait) : path_(std::move(path)) {
    const auto deadline = std::chrono::steady_clock::now() + wait;
    while (!tryOnce()) {
        if (std::chrono::steady_clock::now() >= deadline)
            throw RuntimeError(ErrorNumber::FileLocked,
                               "Il file «" + path_ + "» è bloccato da un altro programma");
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
}

FileLock::~FileLock() {
    unlink(path_.c_str());  // while still locked, so that nobody is left with a removed file
    close(descriptor_);
}

bool FileLock::tryOnce() {
    const int descriptor = openLockFile(path_);
    if (descriptor < 0) failWith(errno, path_);
    if (flock(descriptor, LOCK_EX | LOCK_NB) == 0) {
        if (isStillAt(path_, descriptor)) {
            descriptor_ = descriptor;
            return true;
        }
    } else if (errno != EWOULDBLOCK && errno != EINTR) {
        const int error = errno;
        close(descriptor);
        failWith(error, path_);
    }
    close(descriptor);
    return false;
}

}  // namespace velt::ini
