// SPDX-License-Identifier: MIT
#include "adapters/access/equalities.h"

#include "adapters/access/keywords.h"

#include <utility>

namespace velt::access {
namespace {

// `(`, name, `=`, text, `)`
constexpr std::size_t TermLength = 5;
// Fewer comparisons are quicker one by one.
constexpr std::size_t FewestTerms = 4;

class Joiner {
public:
    explicit Joiner(std::vector<SqlToken> tokens) : tokens_(std::move(tokens)) {}

    std::vector<SqlToken> run() {
        for (at_ = 0; at_ < tokens_.size(); ++at_) {
            joined_.push_back(tokens_[at_]);
            if (!isOperator(tokens_[at_], "(")) continue;
            const std::size_t terms = countTerms(at_ + 1);
            if (terms >= FewestTerms) join(at_ + 1, terms);
        }
        return std::move(joined_);
    }

private:
    bool isTerm(std::size_t first) const {
        return first + TermLength <= tokens_.size() && isOperator(tokens_[first], "(") &&
               isName(tokens_[first + 1]) && !isKeyword(tokens_[first + 1]) &&
               isOperator(tokens_[first + 2], "=") &&
               tokens_[first + 3].kind == SqlToken::Kind::String &&
               isOperator(tokens_[first + 4], ")");
    }

    /// Terms on one column that fill a bracket from `first` to its end; 0 when anything else is in
    /// the bracket, for AND would bind stronger.
    std::size_t countTerms(std::size_t first) const {
        std::size_t terms = 0;
        for (std::size_t term = first;; term += TermLength + 1) {
            if (!isTerm(term) || tokens_[term + 1].text != tokens_[first + 1].text) return 0;
            ++terms;
            const std::size_t behind = term + TermLength;
            if (behind >= tokens_.size()) return 0;
            if (isOperator(tokens_[behind], ")")) return terms;
            if (!isWord(tokens_[behind], "OR")) return 0;
        }
    }

    void join(std::size_t first, std::size_t terms) {
        const auto add = [this](const SqlToken& like, SqlToken::Kind kind, const char* text) {
            joined_.push_back({kind, text, like.offset});
        };
        joined_.push_back(tokens_[first + 1]);
        add(tokens_[first + 2], SqlToken::Kind::Word, "IN");
        add(tokens_[first], SqlToken::Kind::Operator, "(");
        for (std::size_t term = first; terms > 0; term += TermLength + 1, --terms) {
            joined_.push_back(tokens_[term + 3]);
            add(tokens_[term + 4], SqlToken::Kind::Operator, terms > 1 ? "," : ")");
            at_ = term + TermLength - 1;
        }
    }

    std::vector<SqlToken> tokens_;
    std::vector<SqlToken> joined_;
    std::size_t at_ = 0;
};

}  // namespace

std::vector<SqlToken> joinEqualities(std::vector<SqlToken> tokens) {
    return Joiner(std::move(tokens)).run();
}

}  // namespace velt::access
