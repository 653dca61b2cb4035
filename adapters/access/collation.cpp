// SPDX-License-Identifier: MIT
#include "adapters/access/collation.h"

#include "platform/runtimeerror.h"

#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/stringoptions.h>
#include <unicode/ucol.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace velt::access {
namespace {

std::string_view withoutTrailingBlanks(std::string_view text) {
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    return text;
}

/// The root collation of Unicode at its second level (letters, then accents), and a shortcut that
/// gives the same order for plain ASCII at a fraction of the cost.
class Collator {
public:
    Collator() {
        UErrorCode error = U_ZERO_ERROR;
        collator_ = ucol_open("root", &error);
        ucol_setAttribute(collator_, UCOL_STRENGTH, UCOL_SECONDARY, &error);
        if (U_FAILURE(error) != 0) {
            ucol_close(collator_);
            throw RuntimeError(
                ErrorNumber::InvalidCall,
                std::string("Ordinamento dei testi non disponibile: ") + u_errorName(error));
        }
        rankAscii();
    }
    ~Collator() { ucol_close(collator_); }
    Collator(const Collator&) = delete;
    Collator& operator=(const Collator&) = delete;

    int compare(std::string_view a, std::string_view b) const {
        if (isRanked(a) && isRanked(b)) return compareRanked(a, b);
        return compareFully(a, b);
    }

private:
    int compareFully(std::string_view a, std::string_view b) const {
        UErrorCode error = U_ZERO_ERROR;
        return ucol_strcollUTF8(collator_, a.data(), static_cast<std::int32_t>(a.size()), b.data(),
                                static_cast<std::int32_t>(b.size()), &error);
    }

    /// Printable ASCII characters weigh by themselves alone, so their order one by one is the
    /// order of the texts. Rank 0 marks what must go the long way.
    void rankAscii() {
        std::array<char, '~' - ' ' + 1> printable{};
        for (std::size_t i = 0; i < printable.size(); ++i)
            printable[i] = static_cast<char>(' ' + static_cast<int>(i));
        const auto character = [](const char& c) { return std::string_view(&c, 1); };
        std::ranges::stable_sort(printable, [&](const char& x, const char& y) {
            return compareFully(character(x), character(y)) < 0;
        });
        std::uint8_t rank = 0;
        const char* previous = nullptr;
        for (const char& c : printable) {
            if (previous == nullptr || compareFully(character(*previous), character(c)) != 0)
                ++rank;
            ranks_[static_cast<unsigned char>(c)] = rank;
            previous = &c;
        }
    }

    bool isRanked(std::string_view text) const {
        return std::ranges::all_of(
            text, [this](char c) { return ranks_[static_cast<unsigned char>(c)] != 0; });
    }

    int compareRanked(std::string_view a, std::string_view b) const {
        const std::size_t common = std::min(a.size(), b.size());
        for (std::size_t i = 0; i < common; ++i) {
            const int difference =
                ranks_[static_cast<unsigned char>(a[i])] - ranks_[static_cast<unsigned char>(b[i])];
            if (difference != 0) return difference;
        }
        return a.size() < b.size() ? -1 : static_cast<int>(a.size() > b.size());
    }

    UCollator* collator_ = nullptr;
    std::array<std::uint8_t, 256> ranks_{};
};

template <typename Mapping>
std::string mapCase(std::string_view text, Mapping mapping) {
    std::string mapped;
    icu::StringByteSink<std::string> sink(&mapped);
    UErrorCode error = U_ZERO_ERROR;
    mapping(icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())), sink, error);
    return mapped;
}

}  // namespace

int compareText(std::string_view a, std::string_view b) {
    static const Collator collator;
    return collator.compare(withoutTrailingBlanks(a), withoutTrailingBlanks(b));
}

std::string foldCase(std::string_view text) {
    return mapCase(text, [](icu::StringPiece piece, icu::ByteSink& sink, UErrorCode& error) {
        icu::CaseMap::utf8Fold(U_FOLD_CASE_DEFAULT, piece, sink, nullptr, error);
    });
}

std::string upperCase(std::string_view text) {
    return mapCase(text, [](icu::StringPiece piece, icu::ByteSink& sink, UErrorCode& error) {
        icu::CaseMap::utf8ToUpper("", 0, piece, sink, nullptr, error);
    });
}

std::string lowerCase(std::string_view text) {
    return mapCase(text, [](icu::StringPiece piece, icu::ByteSink& sink, UErrorCode& error) {
        icu::CaseMap::utf8ToLower("", 0, piece, sink, nullptr, error);
    });
}

}  // namespace velt::access
