// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/keywords.h"
#include "adapters/access/sqltoken.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace velt::access {

/// Walks over the tokens of a statement, taking what fits.
class TokenMatcher {
public:
    explicit TokenMatcher(const std::vector<SqlToken>& tokens) : tokens_(tokens) {}

    bool word(std::string_view word) { return takeIf(!ended() && isWord(tokens_[at_], word)); }
    bool sign(std::string_view sign) { return takeIf(!ended() && isOperator(tokens_[at_], sign)); }
    /// A name; when `name` holds one already, only that one.
    bool name(std::string& name) {
        if (ended() || !isName(tokens_[at_]) || isKeyword(tokens_[at_])) return false;
        if (!name.empty() && tokens_[at_].text != name) return false;
        name = tokens_[at_++].text;
        return true;
    }
    /// A name where nothing else can stand: there also a reserved word is one.
    bool nameOnly(std::string& name) {
        if (ended() || !isName(tokens_[at_])) return false;
        name = tokens_[at_++].text;
        return true;
    }
    /// A date literal, without its marks.
    bool date(std::string& text) {
        if (ended() || tokens_[at_].kind != SqlToken::Kind::Date) return false;
        text = tokens_[at_++].text;
        return true;
    }
    bool end() {
        sign(";");
        return ended();
    }

private:
    [[nodiscard]] bool ended() const { return at_ == tokens_.size(); }
    bool takeIf(bool fits) {
        if (fits) ++at_;
        return fits;
    }

    const std::vector<SqlToken>& tokens_;
    std::size_t at_ = 0;
};

}  // namespace velt::access
