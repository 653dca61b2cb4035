// SPDX-License-Identifier: MIT
#pragma once

#include "platform/locale.h"

#include <QCollator>

#include <compare>
#include <optional>
#include <string>

namespace velt::qt {

/// The place of a cell's text in a sorted column, as an operator expects it: empty cells first,
/// then numbers and dates by what they mean, then texts, case-blind and with the numbers in them
/// by their value ("RTU9" before "RTU10").
class SortText {
public:
    class Rules {
    public:
        explicit Rules(const Locale& locale);

    private:
        friend class SortText;
        Locale locale_;
        QCollator collator_;
    };

    SortText(const std::string& text, const Rules& rules);
    [[nodiscard]] std::weak_ordering operator<=>(const SortText& other) const;
    [[nodiscard]] bool operator==(const SortText& other) const { return (*this <=> other) == 0; }

private:
    enum class Kind { Empty, Number, Date, Text };
    Kind kind_ = Kind::Empty;
    double number_ = 0;
    std::optional<QCollatorSortKey> text_;
};

}  // namespace velt::qt
