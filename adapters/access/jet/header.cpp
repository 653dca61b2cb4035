// SPDX-License-Identifier: MIT
#include "adapters/access/jet/header.h"

#include "adapters/access/jet/bytewriter.h"
#include "adapters/access/jet/layout.h"

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
constexpr std::size_t FirstPagesAt = 0x18;
constexpr std::size_t SortOrderJet3At = 0x3A;
constexpr std::size_t CodePageAt = 0x3C;
constexpr std::size_t PageKeyAt = 0x3E;
constexpr std::size_t PasswordAt = 0x42;
constexpr std::size_t PasswordSize = 40;
constexpr std::size_t EngineBuildAt = 0x6A;
constexpr std::size_t SortOrderAt = 0x6E;
constexpr std::size_t CreatedAt = 0x72;
constexpr std::size_t EngineVersionAt = 0x98;
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
    return Header{*version, u32At(&plain[PageKeyAt]) != 0,
                  std::bit_cast<double>(u64At(&plain[CreatedAt]))};
}

std::vector<std::uint8_t> makeHeader(Version version, double created) {
    const bool jet3 = version == Version::Jet3;
    constexpr std::uint16_t SortOrder = 0x0409;  // General
    constexpr std::uint16_t CodePage = 1252;
    std::vector<std::uint8_t> page(layoutOf(version).pageSize);
    page[1] = 1;
    std::ranges::copy(std::string_view("Standard Jet DB"), page.begin() + SignatureAt);
    page[VersionAt] = jet3 ? 0 : 1;
    // The flags of the file, then the definition pages of the four system tables.
    constexpr std::array<std::uint32_t, 6> Words{0x100, 0x101, 2, 3, 4, 5};
    for (std::size_t i = 0; i < Words.size(); ++i) putAt(&page[FirstPagesAt + 4 * i], Words[i]);
    putAt(&page[CodePageAt], CodePage);
    if (jet3) {
        putAt(&page[SortOrderJet3At], SortOrder);
    } else {
        // An empty password is the day of creation over and over.
        for (std::size_t i = 0; i < PasswordSize; i += 4)
            putAt(&page[PasswordAt + i], static_cast<std::uint32_t>(created));
        putAt(&page[EngineBuildAt], std::uint32_t{8618});
        putAt(&page[SortOrderAt], std::uint32_t{SortOrder});
        putAt(&page[CreatedAt], std::bit_cast<std::uint64_t>(created));
        putAt(&page[EngineVersionAt], std::uint32_t{1620});
        std::ranges::copy(std::string_view("4.0"), page.begin() + EngineVersionAt + 4);
    }
    const std::size_t pairsAt = jet3 ? 0x600 : 0xE00;
    for (std::size_t i = pairsAt + 1; i < page.size(); i += 2) page[i] = 1;
    maskHeader(page, version);
    return page;
}

}  // namespace velt::jet
