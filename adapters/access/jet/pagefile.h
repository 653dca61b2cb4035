// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/jet/bytes.h"
#include "adapters/access/jet/pagereader.h"

#include <cstdint>
#include <filesystem>
#include <memory>

namespace velt::jet {

/// An Access file open for writing. Holds an advisory lock, so that two writers cannot mix.
class PageFile {
public:
    /// Takes a file that was opened for writing; RuntimeError when another writer has it.
    explicit PageFile(std::shared_ptr<const PageReader> file);

    [[nodiscard]] const std::shared_ptr<const PageReader>& reader() const { return file_; }
    [[nodiscard]] const Layout& layout() const { return file_->layout(); }
    [[nodiscard]] const std::filesystem::path& path() const { return file_->path(); }

    /// Writes bytes within one page or whole pages. What was written before is seen by other
    /// programs no later than this. RuntimeError when the disk is full or fails.
    void write(std::uint32_t page, std::size_t offset, Bytes bytes);

    /// The number of the page that comes behind all others, those not yet written included.
    [[nodiscard]] std::uint32_t takePage();

private:
    std::shared_ptr<const PageReader> file_;
    std::uint32_t nextPage_;
};

}  // namespace velt::jet
