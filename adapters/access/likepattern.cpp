// SPDX-License-Identifier: MIT
#include "adapters/access/likepattern.h"

#include "platform/runtimeerror.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <cstddef>

namespace velt::access {
namespace {

constexpr int InvalidPattern = 93;
// Keeps one comparison short, for it cannot be interrupted.
constexpr std::size_t MaxPatternLength = 1000;

/// The characters of a text without differences of letter case; invalid bytes read U+FFFD.
std::vector<std::int32_t> foldedCharacters(std::string_view text) {
    std::vector<std::int32_t> characters;
    characters.reserve(text.size());
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    const auto length = static_cast<std::int32_t>(text.size());
    for (std::int32_t at = 0; at < length;) {
        std::int32_t character = 0;
        U8_NEXT_OR_FFFD(bytes, at, length, character);
        characters.push_back(u_foldCase(character, U_FOLD_CASE_DEFAULT));
    }
    return characters;
}

}  // namespace

bool LikePattern::Element::accepts(std::int32_t character) const {
    const bool listed = std::ranges::any_of(ranges, [character](const Range& range) {
        return character >= range.first && character <= range.second;
    });
    switch (kind) {
        case Kind::AnyNumber:
        case Kind::AnyOne: return true;
        case Kind::Digit: return character >= '0' && character <= '9';
        case Kind::OneOf: return listed;
        case Kind::NoneOf: return !listed;
    }
    return false;
}

LikePattern::LikePattern(std::string_view pattern) {
    const std::vector<std::int32_t> characters = foldedCharacters(pattern);
    if (characters.size() > MaxPatternLength)
        throw RuntimeError(InvalidPattern, "Modello di LIKE troppo lungo");
    for (std::size_t at = 0; at < characters.size(); ++at) {
        const std::int32_t character = characters[at];
        switch (character) {
            case '*': elements_.push_back({Element::Kind::AnyNumber}); continue;
            case '?': elements_.push_back({Element::Kind::AnyOne}); continue;
            case '#': elements_.push_back({Element::Kind::Digit}); continue;
            case '[': break;
            default:
                elements_.push_back({Element::Kind::OneOf, {{character, character}}});
                continue;
        }
        const auto open = characters.begin() + static_cast<std::ptrdiff_t>(at) + 1;
        const auto close = std::find(open, characters.end(), ']');
        if (close == characters.end())
            throw RuntimeError(InvalidPattern,
                               "Modello di LIKE non valido: " + std::string(pattern));
        const bool negated = open != close && *open == '!';
        Element element{negated ? Element::Kind::NoneOf : Element::Kind::OneOf};
        for (auto item = open + (negated ? 1 : 0); item != close; ++item) {
            const bool range = close - item > 2 && item[1] == '-';
            element.ranges.emplace_back(*item, range ? item[2] : *item);
            if (range) item += 2;
        }
        elements_.push_back(std::move(element));
        at = static_cast<std::size_t>(close - characters.begin());
    }
}

bool LikePattern::matches(std::string_view text) const {
    // Going back to the last `*` alone is enough: what an earlier one could take more, the last
    // can as well. So the cost is at most the product of the two lengths.
    const std::vector<std::int32_t> characters = foldedCharacters(text);
    std::size_t element = 0;
    std::size_t at = 0;
    std::size_t retryElement = elements_.size() + 1;  // none
    std::size_t retryAt = 0;
    while (at < characters.size() || element < elements_.size()) {
        if (element < elements_.size()) {
            if (elements_[element].kind == Element::Kind::AnyNumber) {
                retryElement = element++;
                retryAt = at + 1;
                continue;
            }
            if (at < characters.size() && elements_[element].accepts(characters[at])) {
                ++element;
                ++at;
                continue;
            }
        }
        if (retryElement > elements_.size() || retryAt > characters.size()) return false;
        element = retryElement;
        at = retryAt;
    }
    return true;
}

}  // namespace velt::access
