// SPDX-License-Identifier: MIT
#include "adapters/access/sqltoken.h"

#include "adapters/access/queryerror.h"

#include <algorithm>
#include <array>

namespace velt::access {
namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
char upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

/// Letters, "_" and every character beyond ASCII (a word may be accented).
bool startsWord(char c) {
    return (upper(c) >= 'A' && upper(c) <= 'Z') || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}
bool continuesWord(char c) { return startsWord(c) || isDigit(c) || c == '$'; }

class Tokenizer {
public:
    explicit Tokenizer(std::string_view statement) : statement_(statement) {}

    std::vector<SqlToken> run() {
        std::vector<SqlToken> tokens;
        while (skipBlanks()) tokens.push_back(next());
        return tokens;
    }

private:
    using Kind = SqlToken::Kind;

    bool skipBlanks() {
        while (at_ < statement_.size() && isBlank(statement_[at_])) ++at_;
        return at_ < statement_.size();
    }

    char peek(std::size_t ahead = 0) const {
        return at_ + ahead < statement_.size() ? statement_[at_ + ahead] : '\0';
    }

    SqlToken next() {
        const char c = peek();
        switch (c) {
            case '\'': return delimited(Kind::String, '\'', true, "stringa non chiusa");
            case '"': return delimited(Kind::String, '"', true, "stringa non chiusa");
            case '#': return delimited(Kind::Date, '#', false, "data non chiusa");
            case '[': return delimited(Kind::Identifier, ']', false, "nome non chiuso");
            case '`': return delimited(Kind::Identifier, '`', false, "nome non chiuso");
            default: break;
        }
        if (startsWord(c)) return run(Kind::Word, continuesWord);
        if (isDigit(c) || (c == '.' && isDigit(peek(1)))) return number();
        return operatorToken();
    }

    SqlToken delimited(Kind kind, char close, bool doubling, const char* unclosed) {
        const std::size_t start = at_++;
        SqlToken token{kind, {}, start};
        for (;; ++at_) {
            if (at_ >= statement_.size() || statement_[at_] == '\0')
                throw syntaxError(unclosed, statement_, start);
            if (statement_[at_] == close) {
                if (!doubling || peek(1) != close) break;
                ++at_;
            }
            token.text += statement_[at_];
        }
        ++at_;
        if (kind == Kind::Identifier && token.text.empty())
            throw syntaxError("nome vuoto", statement_, start);
        return token;
    }

    template <typename Predicate>
    SqlToken run(Kind kind, Predicate belongs) {
        const std::size_t start = at_;
        while (at_ < statement_.size() && belongs(statement_[at_])) ++at_;
        return {kind, std::string(statement_.substr(start, at_ - start)), start};
    }

    SqlToken number() {
        const std::size_t start = at_;
        const auto digits = [this] {
            const std::size_t from = at_;
            while (isDigit(peek())) ++at_;
            return at_ > from;
        };
        digits();
        if (peek() == '.') {
            ++at_;
            digits();
        }
        bool wellFormed = true;
        if (upper(peek()) == 'E') {
            ++at_;
            if (peek() == '+' || peek() == '-') ++at_;
            wellFormed = digits();
        }
        if (!wellFormed || continuesWord(peek()) || peek() == '.')
            throw syntaxError("numero non valido", statement_, start);
        return {Kind::Number, std::string(statement_.substr(start, at_ - start)), start};
    }

    SqlToken operatorToken() {
        static constexpr std::array<std::string_view, 3> pairs{"<=", ">=", "<>"};
        static constexpr std::string_view singles = "=<>()+-*/&,.;";
        const std::string_view two = statement_.substr(at_, 2);
        const std::size_t length = std::ranges::find(pairs, two) != pairs.end() ? 2 : 1;
        if (length == 1 && singles.find(peek()) == std::string_view::npos)
            throw syntaxError("carattere non ammesso", statement_, at_);
        SqlToken token{Kind::Operator, std::string(two.substr(0, length)), at_};
        at_ += length;
        return token;
    }

    std::string_view statement_;
    std::size_t at_ = 0;
};

}  // namespace

std::vector<SqlToken> tokenize(std::string_view statement) { return Tokenizer(statement).run(); }

bool isWord(const SqlToken& token, std::string_view word) {
    return token.kind == SqlToken::Kind::Word && std::ranges::equal(token.text, word, {}, upper);
}

bool isOperator(const SqlToken& token, std::string_view text) {
    return token.kind == SqlToken::Kind::Operator && token.text == text;
}

bool isName(const SqlToken& token) {
    return token.kind == SqlToken::Kind::Word || token.kind == SqlToken::Kind::Identifier;
}

}  // namespace velt::access
