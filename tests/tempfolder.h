// SPDX-License-Identifier: MIT
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <stdexcept>
#include <string>

namespace velt {

/// A new folder that goes when this object does.
class TempFolder {
public:
    TempFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "velt-XXXXXX").string();
        if (!mkdtemp(name.data())) throw std::runtime_error("mkdtemp");
        path_ = name;
    }
    ~TempFolder() {
        std::error_code error;
        std::filesystem::remove_all(path_, error);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return path_; }
    [[nodiscard]] std::filesystem::path operator/(const std::string& name) const {
        return path_ / name;
    }

private:
    std::filesystem::path path_;
};

}  // namespace velt
