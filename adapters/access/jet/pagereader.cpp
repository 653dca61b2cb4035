// SPDX-License-Identifier: MIT
#include "adapters/access/jet/pagereader.h"

#include "adapters/access/jet/fileerror.h"
#include "adapters/access/jet/header.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <limits>
#include <sys/stat.h>
#include <unistd.h>

namespace velt::jet {
namespace {

// Header, free pages, catalogue: no Access file has fewer.
constexpr std::uint32_t FewestPages = 3;

}  // namespace

std::shared_ptr<const PageReader> PageReader::open(const std::filesystem::path& path, Mode mode) {
    // Not blocking: a pipe of that name must not hang the caller.
    const int access = mode == Mode::Read ? O_RDONLY : O_RDWR;
    const int file = ::open(path.c_str(), access | O_CLOEXEC | O_NONBLOCK);
    if (file < 0) throw systemError(errno, path);
    const std::shared_ptr<PageReader> reader(new PageReader(path, file));
    reader->readHeader();
    return reader;
}

std::shared_ptr<const PageReader> PageReader::create(const std::filesystem::path& path,
                                                     Version version) {
    const int file = ::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (file < 0) throw systemError(errno, path);
    std::shared_ptr<PageReader> reader(new PageReader(path, file));
    reader->version_ = version;
    return reader;
}

PageReader::~PageReader() { ::close(file_); }

void PageReader::readHeader() {
    struct stat status {};
    if (::fstat(file_, &status) != 0) throw systemError(errno, path_);
    if (S_ISDIR(status.st_mode)) throw systemError(EISDIR, path_);
    if (!S_ISREG(status.st_mode))
        throw fileError(ErrorNumber::PathAccess, path_, "non è un file normale");
    if (status.st_size == 0) throw fileError(ErrorNumber::UnknownFileFormat, path_, "è vuoto");

    std::array<std::uint8_t, HeaderSize> start{};
    const auto header = parseHeader(std::span(start).first(readAt(0, start)));
    if (!header) throw fileError(ErrorNumber::UnknownFileFormat, path_, "non è un database Access");
    version_ = header->version;
    if (header->encrypted)
        throw fileError(ErrorNumber::EncryptedFile, path_, "è cifrato o protetto da password");
    if (pageCount() < FewestPages)
        throw fileError(ErrorNumber::UnknownFileFormat, path_, "è incompleto (troncato)");
}

std::uint64_t PageReader::size() const {
    struct stat status {};
    if (::fstat(file_, &status) != 0) throw systemError(errno, path_);
    return static_cast<std::uint64_t>(status.st_size);
}

std::uint32_t PageReader::pageCount() const {
    return static_cast<std::uint32_t>(std::min<std::uint64_t>(
        size() / layout().pageSize, std::numeric_limits<std::uint32_t>::max()));
}

std::size_t PageReader::readAt(std::uint64_t offset, std::span<std::uint8_t> into) const {
    std::size_t done = 0;
    while (done < into.size()) {
        const ssize_t got = ::pread(file_, into.data() + done, into.size() - done,
                                    static_cast<off_t>(offset + done));
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) throw systemError(errno, path_);
        if (got == 0) break;
        done += static_cast<std::size_t>(got);
    }
    return done;
}

void PageReader::read(std::uint32_t first, std::span<std::uint8_t> pages) const {
    if (readAt(first * static_cast<std::uint64_t>(layout().pageSize), pages) != pages.size())
        throw fileError(ErrorNumber::UnknownFileFormat, path_,
                        "è incompleto o è stato accorciato durante la lettura");
}

std::vector<std::uint8_t> PageReader::page(std::uint32_t number) const {
    std::vector<std::uint8_t> bytes(layout().pageSize);
    read(number, bytes);
    return bytes;
}

}  // namespace velt::jet
