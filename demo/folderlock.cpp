// SPDX-License-Identifier: MIT
#include "demo/folderlock.h"

#include "platform/runtimeerror.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <system_error>

namespace velt::demo {

FolderLock::FolderLock(const std::filesystem::path& folder) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    const std::filesystem::path file = folder / ".lock";
    descriptor_ = ::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
    if (descriptor_ < 0)
        throw RuntimeError(ErrorNumber::PathAccess,
                           "Impossibile scrivere nella cartella " + folder.string());
    if (::flock(descriptor_, LOCK_EX | LOCK_NB) != 0) {
        ::close(descriptor_);
        throw RuntimeError(ErrorNumber::PathAccess,
                           "La cartella " + folder.string() +
                               " è già usata da un'altra installazione dimostrativa");
    }
}

FolderLock::~FolderLock() { ::close(descriptor_); }

}  // namespace velt::demo
