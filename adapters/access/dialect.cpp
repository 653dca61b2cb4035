// SPDX-License-Identifier: MIT
#include "adapters/access/dialect.h"

#include "adapters/access/collation.h"
#include "adapters/access/dateliteral.h"
#include "adapters/access/enclosed.h"
#include "adapters/access/equalities.h"
#include "adapters/access/keywords.h"
#include "adapters/access/queryerror.h"
#include "adapters/access/selectlist.h"
#include "adapters/access/timeline.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>

namespace velt::access {
namespace {

using Kind = SqlToken::Kind;

std::string lowerCase(std::string word) {
    for (char& c : word)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return word;
}

std::string numberText(double number) {
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "(%.17g)", number);
    return text.data();
}

class Translator {
public:
    Translator(const std::vector<SqlToken>& tokens, std::string_view statement)
        : tokens_(tokens), statement_(statement), open_(tokens.size()), close_(tokens.size()) {}

    Translation run() {
        for (std::size_t i = 0; i < tokens_.size(); ++i)
            if (isOperator(tokens_[i], "&")) separateOperands(i);
        const SelectList list = readSelectList(tokens_);
        result_.extremeOf = list.extremeOf;
        for (at_ = 0; at_ < tokens_.size(); ++at_) {
            const std::size_t index = at_;
            for (int n = open_[index]; n > 0; --n) emit("(");
            translateToken();
            for (int n = close_[index]; n > 0; --n) emit(")");
            const auto name = list.names.find(at_);
            if (name != list.names.end()) emit("AS " + enclosed(name->second, '"'));
        }
        if (levels_.size() != 1) fail("parentesi non chiusa", statement_.size());
        emitLimit();
        return std::move(result_);
    }

private:
    /// What is known of the SELECT of an open bracket, or of the whole statement.
    struct Level {
        std::string limit;  ///< the number of TOP
        bool united = false;
    };

    [[noreturn]] void fail(std::string_view reason, std::size_t offset) const {
        throw syntaxError(reason, statement_, offset);
    }

    const SqlToken* following(std::size_t ahead = 1) const {
        return at_ + ahead < tokens_.size() ? &tokens_[at_ + ahead] : nullptr;
    }

    void emit(const std::string& text) {
        const std::size_t offset = at_ < tokens_.size() ? tokens_[at_].offset : statement_.size();
        result_.places.emplace_back(result_.sql.size(), offset);
        // Always a blank between, so that two signs never make a comment.
        result_.sql += text + " ";
    }

    void translateToken() {
        const SqlToken& token = tokens_[at_];
        switch (token.kind) {
            case Kind::Word: return translateWord(token);
            case Kind::Identifier: return emit(enclosed(token.text, '"'));
            case Kind::String: return translateString(token);
            case Kind::Number: return emit(token.text);
            case Kind::Date: {
                const std::optional<Date> date = parseDateLiteral(token.text);
                if (!date) fail("data non valida", token.offset);
                return emit(numberText(toTimeline(date->serial())));
            }
            case Kind::Operator: return translateOperator(token);
        }
    }

    void translateWord(const SqlToken& token) {
        const bool call = following() != nullptr && isOperator(*following(), "(");
        const bool function = call && (isWord(token, "LEFT") || isWord(token, "RIGHT"));
        if (!isKeyword(token) || function)
            return emit(enclosed(call ? lowerCase(token.text) : token.text, '"'));
        if (isWord(token, "TRUE")) return emit("(-1)");
        if (isWord(token, "FALSE")) return emit("0");
        if (isWord(token, "TOP")) return translateTop(token);
        if (isWord(token, "UNION")) {
            levels_.back().united = true;
            refuseLimitedUnion(token);
        }
        emit(token.text);
    }

    void refuseLimitedUnion(const SqlToken& token) const {
        if (levels_.back().united && !levels_.back().limit.empty())
            fail("TOP e UNION nella stessa istruzione", token.offset);
    }

    /// The rows are counted at the end of the SELECT that the words stand in.
    void translateTop(const SqlToken& token) {
        const SqlToken* count = following();
        if (count == nullptr || count->kind != Kind::Number ||
            count->text.find_first_not_of("0123456789") != std::string::npos)
            fail("TOP senza numero", token.offset);
        levels_.back().limit = count->text;
        refuseLimitedUnion(token);
        ++at_;
    }

    bool isOperandSign(std::size_t index) const {
        return index < tokens_.size() &&
               (isArithmetic(tokens_[index]) || isOperator(tokens_[index], "&") ||
                isOperator(tokens_[index], "("));
    }

    /// True when the text at `at_` is compared with anything but a plain column.
    bool comparedWithExpression() const {
        if (at_ >= 2 && isComparison(tokens_[at_ - 1])) {
            std::size_t first = at_ - 2;
            if (!isName(tokens_[first])) return true;
            while (first >= 2 && isOperator(tokens_[first - 1], ".")) first -= 2;
            return first > 0 && !isOperator(tokens_[first - 1], "(") && isOperandSign(first - 1);
        }
        if (at_ + 2 < tokens_.size() && isComparison(tokens_[at_ + 1])) {
            std::size_t last = at_ + 2;
            if (!isName(tokens_[last])) return true;
            while (last + 2 < tokens_.size() && isOperator(tokens_[last + 1], ".")) last += 2;
            return isOperandSign(last + 1);
        }
        return false;
    }

    /// A text beside an expression brings the order of texts along. A column has it by itself, and
    /// the engine shows the table only a bare literal, for it to check the kind.
    void translateString(const SqlToken& token) {
        std::string text = enclosed(token.text, '\'');
        if (comparedWithExpression()) text.append(" COLLATE ").append(TextCollation);
        emit(text);
    }

    void translateOperator(const SqlToken& token) {
        if (token.text == "&") return emit("->");  // the engine is given a function of this name
        if (token.text == "/") return emit("* 1.0 /");
        if (token.text == ";") fail("è ammessa una sola istruzione", token.offset);
        if (token.text == "(") levels_.emplace_back();
        if (token.text == ")") {
            if (levels_.size() == 1) fail("parentesi chiusa in più", token.offset);
            emitLimit();
        }
        emit(token.text);
    }

    void emitLimit() {
        if (!levels_.back().limit.empty()) emit("LIMIT " + levels_.back().limit);
        levels_.pop_back();
    }

    /// `&` binds weaker than arithmetic, but its counterpart in the engine stronger: operands with
    /// arithmetic in them get brackets.
    void separateOperands(std::size_t sign) {
        const auto isEnd = [this](std::size_t i) {
            const SqlToken& token = tokens_[i];
            return isKeyword(token) || isComparison(token) || isOperator(token, ",") ||
                   isOperator(token, "&") || isOperator(token, ";");
        };
        std::size_t first = sign;
        std::size_t last = sign;
        bool arithmetic = false;
        for (int depth = 0; first > 0; --first) {
            const SqlToken& token = tokens_[first - 1];
            depth += isOperator(token, ")") ? 1 : (isOperator(token, "(") ? -1 : 0);
            if (depth < 0 || (depth == 0 && isEnd(first - 1))) break;
            arithmetic = arithmetic || (depth == 0 && isArithmetic(token));
        }
        if (arithmetic) ++open_[first], ++close_[sign - 1];
        arithmetic = false;
        for (int depth = 0; last + 1 < tokens_.size(); ++last) {
            const SqlToken& token = tokens_[last + 1];
            depth += isOperator(token, "(") ? 1 : (isOperator(token, ")") ? -1 : 0);
            if (depth < 0 || (depth == 0 && isEnd(last + 1))) break;
            arithmetic = arithmetic || (depth == 0 && isArithmetic(token));
        }
        if (arithmetic) ++open_[sign + 1], ++close_[last];
    }

    const std::vector<SqlToken>& tokens_;
    std::string_view statement_;
    std::vector<int> open_;   ///< brackets to be added before the token
    std::vector<int> close_;  ///< and behind it
    std::size_t at_ = 0;
    std::vector<Level> levels_ = std::vector<Level>(1);
    Translation result_;
};

}  // namespace

std::size_t Translation::sourcePlace(std::size_t place) const {
    const auto next =
        std::ranges::upper_bound(places, place, {}, &std::pair<std::size_t, std::size_t>::first);
    return next == places.begin() ? 0 : std::prev(next)->second;
}

void Translation::replace(std::size_t place, std::size_t length, const std::string& text) {
    sql.replace(place, length, text);
    for (auto& [translated, source] : places)
        if (translated > place) translated += text.size() - length;
}

Translation translate(std::vector<SqlToken> tokens, std::string_view statement) {
    if (!tokens.empty() && isOperator(tokens.back(), ";")) tokens.pop_back();
    if (tokens.empty()) throw syntaxError("istruzione vuota", statement, statement.size());
    if (tokens.front().kind == Kind::Word && !isWord(tokens.front(), "SELECT"))
        throw RuntimeError(ErrorNumber::UnsupportedStatement,
                           "È ammessa solo l'istruzione SELECT, non " + tokens.front().text);
    tokens = joinEqualities(std::move(tokens));
    return Translator(tokens, statement).run();
}

}  // namespace velt::access
