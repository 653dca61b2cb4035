// SPDX-License-Identifier: MIT
#pragma once

#include "tests/errorof.h"
#include "tests/filebytes.h"
#include "tests/tempfolder.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
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

    /// The page on which a text of names stands.
    [[nodiscard]] std::size_t pageOf(const std::string& text) const {
        std::string utf16;
        for (const char c : text) utf16 += {c, '\0'};
        return bytes_.find(utf16) / PageSize;
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

/// Tests on a file of a temporary folder.
class FileTest : public testing::Test {
protected:
    void patch(const std::function<void(PatchedFile&)>& change) const {
        PatchedFile file(file_);
        change(file);
        file.save();
    }
    /// The error must name its reason and, where it is about one, the file.
    static void expectError(ErrorNumber number, const std::string& reason,
                            const std::function<void()>& action,
                            const std::filesystem::path& file = {}) {
        const RuntimeError error = raisedBy(action);
        EXPECT_TRUE(error.is(number)) << error.Number() << " instead of " << reason;
        EXPECT_THAT(error.Description(), testing::HasSubstr(reason));
        EXPECT_THAT(error.Description(), testing::HasSubstr(file.string()));
    }

    TempFolder folder_;
    std::filesystem::path file_ = folder_ / "Prova.mdb";
};

}  // namespace velt::jet::test
