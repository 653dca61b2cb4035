// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace velt::access {

/// One lexical element of a statement in the Jet dialect.
struct SqlToken {
    enum class Kind {
        Word,        ///< a bare name or keyword
        Identifier,  ///< a name in [brackets] or `accents`; text without them
        String,      ///< '...' or "..."; text without the quotes, doubled ones made single
        Date,        ///< #...#; text without the marks
        Number,      ///< unsigned
        Operator,    ///< everything else, one or two characters
    };
    Kind kind = Kind::Operator;
    std::string text;
    std::size_t offset = 0;  ///< in the statement
};

/// Takes a statement apart. A literal or name that does not end, a malformed number and a
/// character that the dialect does not know raise RuntimeError 3075 with their place.
[[nodiscard]] std::vector<SqlToken> tokenize(std::string_view statement);

/// True for a bare word that reads `word` (given in upper case), whatever its letter case.
[[nodiscard]] bool isWord(const SqlToken& token, std::string_view word);
[[nodiscard]] bool isOperator(const SqlToken& token, std::string_view text);
/// A bare or quoted name.
[[nodiscard]] bool isName(const SqlToken& token);

}  // namespace velt::access
