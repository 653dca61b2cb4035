// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace velt::test {

inline void writeBytes(const std::filesystem::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

inline std::string bytesOf(const std::filesystem::path& path) {
    std::ostringstream bytes;
    bytes << std::ifstream(path, std::ios::binary).rdbuf();
    return bytes.str();
}

}  // namespace velt::test
