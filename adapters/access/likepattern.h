// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

namespace velt::access {

/// The pattern of a LIKE: `*` any characters, `?` one, `#` one digit, `[a-f]` one of these,
/// `[!a-f]` one but these; everything else stands for itself. Letter case does not count.
class LikePattern {
public:
    /// UTF-8. RuntimeError 93 for a bracket that does not close or more than 1000
    /// characters.
    explicit LikePattern(std::string_view pattern);

    [[nodiscard]] bool matches(std::string_view text) const;

private:
    using Range = std::pair<std::int32_t, std::int32_t>;
    struct Element {
        enum class Kind { AnyNumber, AnyOne, Digit, OneOf, NoneOf };
        Kind kind;
        std::vector<Range> ranges{};

        [[nodiscard]] bool accepts(std::int32_t character) const;
    };

    std::vector<Element> elements_;
};

}  // namespace velt::access
