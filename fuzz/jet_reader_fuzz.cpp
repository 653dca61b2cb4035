// SPDX-License-Identifier: MIT
// libFuzzer target: opens the input as an Access file and reads every value of every table.
#include "platform/runtimeerror.h"
#include "tests/adapters/access/jet/everytype.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

namespace {

/// A file in memory that is filled anew for each input.
class MemoryFile {
public:
    MemoryFile() : file_(::memfd_create("fuzz.mdb", 0)) {
        if (file_ < 0) std::abort();
    }
    ~MemoryFile() { ::close(file_); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    void fill(const std::uint8_t* data, std::size_t size) const {
        const bool filled = ::ftruncate(file_, 0) == 0 &&
                            ::pwrite(file_, data, size, 0) == static_cast<ssize_t>(size);
        if (!filled) std::abort();
    }
    [[nodiscard]] std::string path() const { return "/proc/self/fd/" + std::to_string(file_); }

private:
    int file_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const MemoryFile file;
    file.fill(data, size);
    try {
        velt::jet::test::readEverything(file.path());
    } catch (const velt::RuntimeError&) {
        // The file was refused: as it should be, whatever the reason.
        return 0;
    }
    return 0;
}

/// Most of the structure stands at fixed places of pages: bytes are changed where they are, and
/// seldom moved.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t maxSize, unsigned seed) {
    std::minstd_rand random(seed);
    const auto below = [&random](std::size_t limit) { return random() % limit; };
    if (size < 256 || below(30) == 0) return LLVMFuzzerMutate(data, size, maxSize);

    const std::size_t pageSize = data[0x14] == 0 ? 2048 : 4096;
    const std::size_t pages = std::max<std::size_t>(size / pageSize, 1);
    for (std::size_t changes = 1 + below(6); changes > 0; --changes) {
        const std::size_t page = below(pages) * pageSize;
        const std::size_t within = below(2) == 0 ? below(160) : below(pageSize);
        const std::size_t at = std::min(page + within, size - 9);
        constexpr std::array<std::uint8_t, 8> Usual{0, 1, 2, 5, 0x7F, 0x80, 0xC0, 0xFF};
        switch (below(6)) {
            case 0: data[at] = Usual[below(Usual.size())]; break;
            case 1: data[at] = static_cast<std::uint8_t>(data[at] ^ 1U << below(8)); break;
            case 2: data[at] = static_cast<std::uint8_t>(data[at] + below(9) - 4); break;
            case 3: std::memset(data + at, static_cast<int>(Usual[below(Usual.size())]), 4); break;
            case 4: std::memmove(data + at, data + below(size - 8), 8); break;
            default: LLVMFuzzerMutate(data + at, 8, 8); break;
        }
    }
    return below(200) == 0 ? std::max(below(size), std::size_t{1}) : size;
}
