// SPDX-License-Identifier: MIT
#include "adapters/qt/sorttext.h"

#include "adapters/qt/text.h"
#include "platform/conversions.h"
#include "platform/runtimeerror.h"

namespace velt::qt {
namespace {

/// Whether a try at converting is worth it: most names are told from numbers by their first sign.
bool mayBeNumber(const std::string& text) {
    return text.find_first_of("0123456789") < 3 &&
           text.find_first_not_of("0123456789+-,.Ee") == std::string::npos;
}

bool mayBeDate(const std::string& text, const Locale& locale) {
    return text.front() >= '0' && text.front() <= '9' &&
           text.find(locale.dateSeparator) != std::string::npos;
}

}  // namespace

SortText::Rules::Rules(const Locale& locale)
    : locale_(locale), collator_(QLocale(QLocale::Italian, QLocale::Italy)) {
    collator_.setNumericMode(true);
    collator_.setCaseSensitivity(Qt::CaseInsensitive);
}

SortText::SortText(const std::string& text, const Rules& rules) {
    if (text.empty()) return;
    // A text of neither kind stays a text: the conversion says so by its error.
    ignoreErrors([&] {
        if (mayBeNumber(text)) {
            number_ = conversions::toDouble(text, rules.locale_);
            kind_ = Kind::Number;
        } else if (mayBeDate(text, rules.locale_)) {
            number_ = static_cast<double>(conversions::toDate(text, rules.locale_).milliseconds());
            kind_ = Kind::Date;
        }
    });
    if (kind_ != Kind::Empty) return;
    kind_ = Kind::Text;
    text_ = rules.collator_.sortKey(toQt(text));
}

std::weak_ordering SortText::operator<=>(const SortText& other) const {
    if (kind_ != other.kind_) return kind_ <=> other.kind_;
    if (kind_ == Kind::Text) return text_->compare(*other.text_) <=> 0;
    // Never a NaN: no text means one.
    return number_ < other.number_   ? std::weak_ordering::less
           : number_ > other.number_ ? std::weak_ordering::greater
                                     : std::weak_ordering::equivalent;
}

}  // namespace velt::qt
