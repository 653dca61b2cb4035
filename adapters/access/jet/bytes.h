// SPDX-License-Identifier: MIT
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <stdexcept>

namespace velt::jet {

using Bytes = std::span<const std::uint8_t>;

/// A structure of the file contradicts itself. Inside this module only: Database and Cursor turn
/// it into a RuntimeError that names the file.
class Damaged : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Little-endian numbers at a place that the caller has checked.

[[nodiscard]] inline std::uint16_t u16At(const std::uint8_t* p) {
    return static_cast<std::uint16_t>(p[0] | p[1] << 8);
}
[[nodiscard]] inline std::uint32_t u24At(const std::uint8_t* p) {
    return p[0] | static_cast<std::uint32_t>(p[1]) << 8 | static_cast<std::uint32_t>(p[2]) << 16;
}
[[nodiscard]] inline std::uint32_t u32At(const std::uint8_t* p) {
    return u24At(p) | static_cast<std::uint32_t>(p[3]) << 24;
}
[[nodiscard]] inline std::uint64_t u64At(const std::uint8_t* p) {
    return u32At(p) | static_cast<std::uint64_t>(u32At(p + 4)) << 32;
}

/// Numbers out of bytes whose length is not known beforehand: beyond the end raises Damaged.
class CheckedBytes {
public:
    explicit CheckedBytes(Bytes bytes) : bytes_(bytes) {}

    [[nodiscard]] std::size_t size() const { return bytes_.size(); }
    [[nodiscard]] std::uint8_t u8(std::size_t at) const { return part(at, 1)[0]; }
    [[nodiscard]] std::uint16_t u16(std::size_t at) const { return u16At(part(at, 2).data()); }
    [[nodiscard]] std::uint32_t u24(std::size_t at) const { return u24At(part(at, 3).data()); }
    [[nodiscard]] std::uint32_t u32(std::size_t at) const { return u32At(part(at, 4).data()); }
    [[nodiscard]] Bytes part(std::size_t at, std::size_t length) const {
        if (at > bytes_.size() || length > bytes_.size() - at)
            throw Damaged("una struttura è più corta del dovuto");
        return bytes_.subspan(at, length);
    }

private:
    Bytes bytes_;
};

}  // namespace velt::jet
