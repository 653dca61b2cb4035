// SPDX-License-Identifier: MIT
#include "adapters/access/jet/textcodec.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velt::jet {
namespace {

constexpr auto Jet3 = TextEncoding::Windows1252;
constexpr auto Jet4 = TextEncoding::Utf16;

Bytes asBytes(const std::string& text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

TEST(TextCodec, DecodesStoredText) {
    using namespace std::string_literals;
    const auto mark = "\xFF\xFE"s;  // of compressed text
    const auto half = "\x3D\xD8"s;  // of a pair
    const auto otherHalf = "\x00\xDE"s;
    const struct {
        TextEncoding encoding;
        std::string stored;
        std::string text;
    } cases[] = {
        {Jet3, "pi\xF9 \x80", "più €"},
        {Jet3, "lungo abbastanza \x81", "lungo abbastanza \u0081"},
        {Jet4, "\xF9\0\xAC\x20"s, "ù€"},
        {Jet4, half + otherHalf, "\U0001F600"},
        {Jet4, half, "\uFFFD"},
        {Jet4, half + half + otherHalf, "\uFFFD\U0001F600"},
        {Jet4, otherHalf + "A\0"s, "\uFFFDA"},
        {Jet4, "A\0B"s, "A\uFFFD"},  // cut
        {Jet4, mark, ""},
        {Jet4, mark + "a\0\xAC\x20\0b"s, "a€b"},  // plain for one character
        {Jet4, mark + "a\0\xAC\x20"s, "a€"},
        {Jet4, mark + "a\0\xAC"s, "a\uFFFD"},
        {Jet4, "\xFF", "\uFFFD"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(decodeText(asBytes(c.stored), c.encoding), c.text)
            << testing::PrintToString(c.stored);
}

// Eight bytes are looked at in one step: the odd one must be seen wherever it stands.
TEST(TextCodec, SeesTheOneByteThatIsNotPlain) {
    for (std::size_t size = 1; size <= 20; ++size)
        for (std::size_t at = 0; at < size; ++at)
            for (const char odd : {'\0', '\x80', '\xFF', '\x01', '\x7F'}) {
                std::string text(size, 'a');
                text[at] = odd;
                EXPECT_EQ(isPlain(asBytes(text)), odd == '\x01' || odd == '\x7F');
            }
}

}  // namespace
}  // namespace velt::jet
