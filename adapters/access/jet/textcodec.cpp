// SPDX-License-Identifier: MIT
#include "adapters/access/jet/textcodec.h"

#include "platform/characters.h"

#include <cstring>

namespace velt::jet {
namespace {

std::string_view asText(Bytes bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

/// Takes UTF-16 units one by one; a surrogate waits for its other half.
class Utf16Sink {
public:
    explicit Utf16Sink(std::string& out) : out_(out) {}
    void unit(char16_t u) {
        if (high_ != 0) {
            if (u >= 0xDC00 && u < 0xE000) {
                appendUtf8(0x10000 + ((static_cast<char32_t>(high_) - 0xD800) << 10) + (u - 0xDC00),
                           out_);
                high_ = 0;
                return;
            }
            end();
        }
        if (u >= 0xD800 && u < 0xDC00)
            high_ = u;
        else
            appendUtf8(u >= 0xDC00 && u < 0xE000 ? ReplacementCharacter : u, out_);
    }
    void end() {
        if (high_ != 0) appendUtf8(ReplacementCharacter, out_);
        high_ = 0;
    }

private:
    std::string& out_;
    char16_t high_ = 0;
};

void decodePlainUtf16(Bytes stored, Utf16Sink& sink) {
    std::size_t i = 0;
    for (; i + 1 < stored.size(); i += 2) sink.unit(u16At(&stored[i]));
    if (i < stored.size()) sink.unit(static_cast<char16_t>(ReplacementCharacter));
}

/// One byte per character; each 0 byte switches to UTF-16 and back.
void decodeCompressed(Bytes stored, Utf16Sink& sink) {
    bool compressed = true;
    for (std::size_t i = 0; i < stored.size();) {
        if (stored[i] == 0) {
            compressed = !compressed;
            ++i;
        } else if (compressed) {
            sink.unit(stored[i]);
            ++i;
        } else if (i + 1 < stored.size()) {
            sink.unit(u16At(&stored[i]));
            i += 2;
        } else {
            sink.unit(static_cast<char16_t>(ReplacementCharacter));
            ++i;
        }
    }
}

}  // namespace

std::string_view decodeText(Bytes stored, TextEncoding encoding, std::string& buffer) {
    if (encoding == TextEncoding::Windows1252) {
        if (isPlain(stored)) return asText(stored);
        buffer.clear();
        for (const std::uint8_t byte : stored) appendUtf8(fromWindows1252(byte), buffer);
        return buffer;
    }
    const bool compressed = stored.size() >= 2 && stored[0] == 0xFF && stored[1] == 0xFE;
    if (compressed) {
        stored = stored.subspan(2);
        if (isPlain(stored)) return asText(stored);
    }
    buffer.clear();
    Utf16Sink sink(buffer);
    if (compressed)
        decodeCompressed(stored, sink);
    else
        decodePlainUtf16(stored, sink);
    sink.end();
    return buffer;
}

std::string decodeText(Bytes stored, TextEncoding encoding) {
    std::string buffer;
    return std::string(decodeText(stored, encoding, buffer));
}

bool isPlain(Bytes bytes) {
    const std::uint8_t* p = bytes.data();
    std::size_t left = bytes.size();
    std::uint64_t bad = 0;
    // In words of eight: a byte of 0 or above 127 has its high bit set in `(w - 01..01) | w` (a
    // borrow only comes from a byte that is 0 itself).
    for (; left >= 8; left -= 8, p += 8) {
        std::uint64_t word = 0;
        std::memcpy(&word, p, 8);
        bad |= (word - 0x0101010101010101ULL) | word;
    }
    bad &= 0x8080808080808080ULL;
    for (; left > 0; --left, ++p) bad |= static_cast<std::uint64_t>(*p == 0 || *p > 127);
    return bad == 0;
}

bool sameName(std::string_view a, std::string_view b) {
    return a.size() == b.size() && foldLatin(a) == foldLatin(b);
}

}  // namespace velt::jet
