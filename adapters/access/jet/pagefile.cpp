// SPDX-License-Identifier: MIT
#include "adapters/access/jet/pagefile.h"

#include "adapters/access/jet/fileerror.h"

#include <cerrno>
#include <sys/file.h>
#include <unistd.h>

namespace velt::jet {
namespace {

// Access files end at 2 GiB.
constexpr std::uint64_t MostBytes = std::uint64_t{1} << 31;

}  // namespace

PageFile::PageFile(std::shared_ptr<const PageReader> file)
    : file_(std::move(file)), nextPage_(file_->pageCount()) {
    if (::flock(file_->descriptor(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK)
        throw systemError(EBUSY, path());
    // A file system without locks is written to without one.
}

void PageFile::write(std::uint32_t page, std::size_t offset, Bytes bytes) {
    std::uint64_t place = page * static_cast<std::uint64_t>(layout().pageSize) + offset;
    while (!bytes.empty()) {
        const ssize_t done =
            ::pwrite(file_->descriptor(), bytes.data(), bytes.size(), static_cast<off_t>(place));
        if (done < 0 && errno == EINTR) continue;
        if (done < 0) throw systemError(errno, path());
        bytes = bytes.subspan(static_cast<std::size_t>(done));
        place += static_cast<std::uint64_t>(done);
    }
}

std::uint32_t PageFile::takePage() {
    if ((nextPage_ + std::uint64_t{1}) * layout().pageSize > MostBytes)
        throw fileError(ErrorNumber::PathAccess, path(), "ha raggiunto la dimensione massima");
    return nextPage_++;
}

}  // namespace velt::jet
