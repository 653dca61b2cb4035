// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/jet/bytes.h"
#include "adapters/access/jet/layout.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace velt::jet {

/// An open Access file as numbered pages. Any thread may read: nothing here changes after opening.
/// Reads with pread and never maps the file, because a mapped file that another program shortens
/// kills its reader.
class PageReader {
public:
    enum class Mode { Read, ReadWrite };
    /// RuntimeError when the file is not a readable, unencrypted Access file.
    [[nodiscard]] static std::shared_ptr<const PageReader> open(const std::filesystem::path& path,
                                                                Mode mode = Mode::Read);
    /// A new, empty file; RuntimeError when there is one already.
    [[nodiscard]] static std::shared_ptr<const PageReader> create(const std::filesystem::path& path,
                                                                  Version version);
    ~PageReader();
    PageReader(const PageReader&) = delete;
    PageReader& operator=(const PageReader&) = delete;

    [[nodiscard]] Version version() const { return version_; }
    [[nodiscard]] const Layout& layout() const { return layoutOf(version_); }
    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

    /// For a writer on the same file.
    [[nodiscard]] int descriptor() const { return file_; }

    /// Whole pages in the file at this moment.
    [[nodiscard]] std::uint32_t pageCount() const;
    /// Fills `pages`, a multiple of the page size, from page `first` on. Pages that are not (or
    /// no longer) in the file: RuntimeError.
    void read(std::uint32_t first, std::span<std::uint8_t> pages) const;
    [[nodiscard]] std::vector<std::uint8_t> page(std::uint32_t number) const;

private:
    PageReader(std::filesystem::path path, int file) : path_(std::move(path)), file_(file) {}
    void readHeader();
    [[nodiscard]] std::uint64_t size() const;
    [[nodiscard]] std::size_t readAt(std::uint64_t offset, std::span<std::uint8_t> into) const;

    std::filesystem::path path_;
    int file_;
    Version version_ = Version::Jet4;
};

}  // namespace velt::jet
