// SPDX-License-Identifier: MIT
#include "adapters/access/functions.h"

#include "adapters/access/collation.h"
#include "adapters/access/likepattern.h"
#include "adapters/access/plaintext.h"
#include "adapters/access/queryerror.h"
#include "adapters/access/timeline.h"
#include "platform/clock.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <span>
#include <string>

namespace velt::access {
namespace {

using Arguments = std::span<sqlite3_value*>;

bool isNull(sqlite3_value* value) { return sqlite3_value_type(value) == SQLITE_NULL; }

/// The value as text; null reads "".
std::string textOf(sqlite3_value* value) {
    switch (sqlite3_value_type(value)) {
        case SQLITE_NULL: return "";
        case SQLITE_FLOAT: return plainText(sqlite3_value_double(value));
        default:
            const auto* bytes = static_cast<const char*>(sqlite3_value_blob(value));
            return bytes == nullptr
                       ? ""
                       : std::string(bytes, static_cast<std::size_t>(sqlite3_value_bytes(value)));
    }
}

void giveText(sqlite3_context* result, const std::string& text) {
    sqlite3_result_text64(result, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

void giveNumber(sqlite3_context* result, double number) {
    constexpr double exactlyWhole = 9007199254740992.0;  // 2^53
    if (std::abs(number) < exactlyWhole && std::trunc(number) == number)
        sqlite3_result_int64(result, static_cast<sqlite3_int64>(number));
    else
        sqlite3_result_double(result, number);
}

/// The number of an argument; text that is not one reads 0, as everywhere in the engine.
double numberOf(sqlite3_value* value) { return sqlite3_value_double(value); }

std::size_t countOf(sqlite3_value* value) {
    const double count = std::trunc(numberOf(value));
    if (!(count >= 0.0)) throw RuntimeError(ErrorNumber::InvalidCall);
    return static_cast<std::size_t>(std::min(count, 1e9));
}

/// The place in bytes behind the first `count` characters of a text.
std::size_t bytesOf(std::string_view text, std::size_t count) {
    std::size_t at = 0;
    for (; at < text.size(); ++at) {
        const bool continues = (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80;
        if (!continues && count-- == 0) break;
    }
    return at;
}

std::size_t lengthOf(std::string_view text) {
    return static_cast<std::size_t>(std::ranges::count_if(
        text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

// `a & b`: null counts as an empty text.
void concatenate(sqlite3_context* result, Arguments arguments) {
    giveText(result, textOf(arguments[0]) + textOf(arguments[1]));
}

void like(sqlite3_context* result, Arguments arguments) {
    if (isNull(arguments[0]) || isNull(arguments[1])) return;
    // The engine keeps what was made of a constant argument.
    auto* pattern = static_cast<LikePattern*>(sqlite3_get_auxdata(result, 0));
    std::unique_ptr<LikePattern> made;
    if (pattern == nullptr) {
        made = std::make_unique<LikePattern>(textOf(arguments[0]));
        pattern = made.get();
    }
    sqlite3_result_int(result, pattern->matches(textOf(arguments[1])) ? 1 : 0);
    if (made)
        sqlite3_set_auxdata(result, 0, made.release(),
                            [](void* kept) { delete static_cast<LikePattern*>(kept); });
}

void nz(sqlite3_context* result, Arguments arguments) {
    if (!isNull(arguments[0])) return sqlite3_result_value(result, arguments[0]);
    if (arguments.size() > 1) return sqlite3_result_value(result, arguments[1]);
    giveText(result, "");
}

void isNullTest(sqlite3_context* result, Arguments arguments) {
    sqlite3_result_int(result, isNull(arguments[0]) ? -1 : 0);
}

void upper(sqlite3_context* result, Arguments arguments) {
    giveText(result, upperCase(textOf(arguments[0])));
}

void lower(sqlite3_context* result, Arguments arguments) {
    giveText(result, lowerCase(textOf(arguments[0])));
}

void length(sqlite3_context* result, Arguments arguments) {
    giveNumber(result, static_cast<double>(lengthOf(textOf(arguments[0]))));
}

void left(sqlite3_context* result, Arguments arguments) {
    const std::string text = textOf(arguments[0]);
    giveText(result, text.substr(0, bytesOf(text, countOf(arguments[1]))));
}

void right(sqlite3_context* result, Arguments arguments) {
    const std::string text = textOf(arguments[0]);
    const std::size_t all = lengthOf(text);
    giveText(result, text.substr(bytesOf(text, all - std::min(all, countOf(arguments[1])))));
}

void middle(sqlite3_context* result, Arguments arguments) {
    std::string text = textOf(arguments[0]);
    const std::size_t start = countOf(arguments[1]);
    if (start == 0) throw RuntimeError(ErrorNumber::InvalidCall);
    text.erase(0, bytesOf(text, start - 1));
    if (arguments.size() > 2) text.resize(bytesOf(text, countOf(arguments[2])));
    giveText(result, text);
}

void wholeDown(sqlite3_context* result, Arguments arguments) {
    giveNumber(result, std::floor(numberOf(arguments[0])));
}

void wholePart(sqlite3_context* result, Arguments arguments) {
    giveNumber(result, std::trunc(numberOf(arguments[0])));
}

// Half to even, as conversions round.
void round(sqlite3_context* result, Arguments arguments) {
    constexpr std::size_t mostDigits = 15;
    const std::size_t digits =
        arguments.size() > 1 ? std::min(countOf(arguments[1]), mostDigits) : 0;
    const double scale = std::pow(10.0, static_cast<double>(digits));
    giveNumber(result, std::nearbyint(numberOf(arguments[0]) * scale) / scale);
}

void now(sqlite3_context* result, Arguments) {
    sqlite3_result_double(result, toTimeline(SystemClock().now().serial()));
}

void today(sqlite3_context* result, Arguments) {
    giveNumber(result, std::floor(toTimeline(SystemClock().now().serial())));
}

/// A field of a date; null for a date beyond the calendar.
template <int Date::Fields::*Field>
void dateField(sqlite3_context* result, Arguments arguments) {
    const Date date(fromTimeline(numberOf(arguments[0])));
    if (date.isValid()) sqlite3_result_int(result, date.fields().*Field);
}

using Function = void (*)(sqlite3_context*, Arguments);

template <Function function, bool nullTolerant>
void call(sqlite3_context* result, int count, sqlite3_value** values) {
    const Arguments arguments(values, static_cast<std::size_t>(count));
    if (!nullTolerant && std::ranges::any_of(arguments, isNull)) return;
    auto& context = *static_cast<QueryContext*>(sqlite3_user_data(result));
    if (!context.guarded([&] { function(result, arguments); })) sqlite3_result_error(result, "", 0);
}

struct Entry {
    const char* name = nullptr;
    int arguments = 0;
    void (*call)(sqlite3_context*, int, sqlite3_value**) = nullptr;
    bool constant = true;  ///< equal arguments give an equal result
};

constexpr Entry Functions[] = {
    {"->", 2, call<concatenate, true>},
    {"like", 2, call<like, true>},
    {"nz", 1, call<nz, true>},
    {"nz", 2, call<nz, true>},
    {"isnull", 1, call<isNullTest, true>},
    {"ucase", 1, call<upper, false>},
    {"lcase", 1, call<lower, false>},
    {"len", 1, call<length, false>},
    {"left", 2, call<left, false>},
    {"right", 2, call<right, false>},
    {"mid", 2, call<middle, false>},
    {"mid", 3, call<middle, false>},
    {"int", 1, call<wholeDown, false>},
    {"fix", 1, call<wholePart, false>},
    {"round", 1, call<round, false>},
    {"round", 2, call<round, false>},
    {"now", 0, call<now, false>, false},
    {"date", 0, call<today, false>, false},
    {"year", 1, call<dateField<&Date::Fields::year>, false>},
    {"month", 1, call<dateField<&Date::Fields::month>, false>},
    {"day", 1, call<dateField<&Date::Fields::day>, false>},
    {"hour", 1, call<dateField<&Date::Fields::hour>, false>},
    {"minute", 1, call<dateField<&Date::Fields::minute>, false>},
    {"second", 1, call<dateField<&Date::Fields::second>, false>},
};

/// Those of the engine itself that mean the same in the dialect.
constexpr std::array<std::string_view, 10> EngineFunctions{
    "count", "sum", "avg", "min", "max", "abs", "iif", "trim", "ltrim", "rtrim"};

int collate(void* context, int sizeA, const void* a, int sizeB, const void* b) {
    auto& query = *static_cast<QueryContext*>(context);
    // Sorting calls nothing but this for a long time. It cannot fail: once the query must stop,
    // everything is equal, and the sorting soon over.
    if (query.failure) return 0;
    if (++query.comparisons % 4096 == 0) query.guarded([&query] { query.control.check(); });
    return compareText({static_cast<const char*>(a), static_cast<std::size_t>(sizeA)},
                       {static_cast<const char*>(b), static_cast<std::size_t>(sizeB)});
}

}  // namespace

void registerFunctions(sqlite3* engine, QueryContext& context) {
    int result =
        sqlite3_create_collation_v2(engine, TextCollation, SQLITE_UTF8, &context, collate, nullptr);
    for (const Entry& entry : Functions) {
        const int flags = SQLITE_UTF8 | (entry.constant ? SQLITE_DETERMINISTIC : 0);
        if (result == SQLITE_OK)
            result = sqlite3_create_function_v2(engine, entry.name, entry.arguments, flags,
                                                &context, entry.call, nullptr, nullptr, nullptr);
    }
    if (result != SQLITE_OK) throw RuntimeError(queryerror::OutOfMemory, sqlite3_errstr(result));
}

bool isAllowedFunction(std::string_view name) {
    return std::ranges::find(EngineFunctions, name) != EngineFunctions.end() ||
           std::ranges::any_of(Functions, [name](const Entry& e) { return name == e.name; });
}

}  // namespace velt::access
