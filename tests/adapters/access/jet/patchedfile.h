// SPDX-License-Identifier: MIT
#pragma once

#include "tests/filebytes.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <utility>

namespace velt::jet::test {

/// The bytes of a Jet 4 file, to be changed by hand into what other programs leave behind.
class PatchedFile {
public:
    static constexpr std::size_t PageSize = 4096;

    explicit PatchedFile(std::filesystem::path path)
        : path_(std::move(path)), bytes_(velt::test::bytesOf(path_)) {}
    void save() const { velt::test::writeBytes(path_, bytes_); }

    [[nodiscard]] std::string& bytes() { return bytes_; }
    [[nodiscard]] std::uint8_t u8(std::size_t at) const {
        return static_cast<std::uint8_t>(bytes_.at(at));
    }
    [[nodiscard]] std::uint16_t u16(std::size_t at) const {
        return static_cast<std::uint16_t>(u8(at) | u8(at + 1) << 8);
    }
    void put8(std::size_t at, unsigned value) { bytes_.at(at) = static_cast<char>(value); }
    void put16(std::size_t at, unsigned value) {
        put8(at, value & 0xFF);
        put8(at + 1, value >> 8 & 0xFF);
    }

    /// Where the offset word of a row stands.
    [[nodiscard]] static std::size_t rowWord(std::size_t page, std::size_t row) {
        return page * PageSize + 14 + 2 * row;
    }
    /// Where the bytes of a row begin.
    [[nodiscard]] std::size_t rowPlace(std::size_t page, std::size_t row) const {
        return page * PageSize + (u16(rowWord(page, row)) & 0x1FFFU);
    }
    void markDeleted(std::size_t page, std::size_t row) {
        put16(rowWord(page, row), u16(rowWord(page, row)) | 0x8000U);
    }
    /// Lets a row say that it went to another place.
    void markMoved(std::size_t page, std::size_t row, std::size_t toPage, std::size_t toRow) {
        put16(rowWord(page, row), u16(rowWord(page, row)) | 0x4000U);
        const std::size_t at = rowPlace(page, row);
        put8(at, static_cast<unsigned>(toRow));
        put16(at + 1, static_cast<unsigned>(toPage & 0xFFFF));
        put8(at + 3, static_cast<unsigned>(toPage >> 16));
    }

private:
    std::filesystem::path path_;
    std::string bytes_;
};

}  // namespace velt::jet::test
