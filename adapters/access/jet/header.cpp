// SPDX-License-Identifier: MIT
#include "adapters/access/jet/header.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <string_view>
#include <utility>

namespace velt::jet {
namespace {

constexpr std::size_t SignatureAt = 4;
constexpr std::size_t VersionAt = 0x14;
constexpr std::size_t MaskedAt = 0x18;
constexpr std::size_t PageKeyAt = 0x3E;
constexpr std::array<std::uint8_t, 4> MaskKey{0xC7, 0xDA, 0x39, 0x6B};

std::optional<Version> versionOf(std::string_view signature, std::uint8_t byte) {
    if (signature == "Standard Jet DB") {
        if (byte == 0) return Version::Jet3;
        if (byte == 1) return Version::Jet4;
    }
    if (signature == "Standard ACE DB") {
        if (byte == 2) return Version::Ace2007;
        if (byte == 3) return Version::Ace2010;
        // 4 was never seen in the field; 5 and 6 are written by the releases from 2016 on.
        if (byte >= 4 && byte <= 6) return Version::Ace2016;
    }
    return {};
}

/// XORs `data` with the RC4 stream of `key`.
void rc4(std::span<const std::uint8_t> key, std::span<std::uint8_t> data) {
    std::array<std::uint8_t, 256> state{};
    std::iota(state.begin(), state.end(), std::uint8_t{0});
    std::uint8_t j = 0;
    for (std::size_t i = 0; i < state.size(); ++i) {
        j = static_cast<std::uint8_t>(j + state[i] + key[i % key.size()]);
        std::swap(state[i], state[j]);
    }
    std::uint8_t i = 0;
    j = 0;
    for (std::uint8_t& byte : data) {
        ++i;
        j = static_cast<std::uint8_t>(j + state[i]);
        std::swap(state[i], state[j]);
        byte ^= state[static_cast<std::uint8_t>(state[i] + state[j])];
    }
}

}  // namespace

void maskHeader(std::span<std::uint8_t> start, Version version) {
    rc4(MaskKey, start.subspan(MaskedAt, version == Version::Jet3 ? 126 : 128));
}

std::optional<Header> parseHeader(Bytes start) {
    constexpr std::array<std::uint8_t, 4> Magic{0, 1, 0, 0};
    if (start.size() < HeaderSize || !std::equal(Magic.begin(), Magic.end(), start.begin()))
        return {};
    const std::string_view signature(reinterpret_cast<const char*>(&start[SignatureAt]), 15);
    const auto version = versionOf(signature, start[VersionAt]);
    if (!version) return {};

    std::array<std::uint8_t, HeaderSize> plain{};
    std::copy_n(start.begin(), HeaderSize, plain.begin());
    maskHeader(plain, *version);
    // A key of the pages means that all of them are encrypted, in every version.
    return Header{*version, u32At(&plain[PageKeyAt]) != 0};
}

}  // namespace velt::jet
