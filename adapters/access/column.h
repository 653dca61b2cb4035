// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/packedids.h"
#include "adapters/access/textdictionary.h"
#include "platform/variant.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace velt::access {

/// What the values of a column are. Currency, 64-bit and decimal numbers are Double; memos, GUIDs
/// and binary values (as hexadecimal digits) are Text.
enum class FieldType { Unknown, Boolean, Byte, Integer, Long, Single, Double, Date, Text };

/// The values of one column, compact: numbers and dates as doubles (null is NaN), texts as numbers
/// into a dictionary of the different ones. Reading is free of locks once it is filled.
class Column {
public:
    /// A Text column may share its dictionary with others.
    explicit Column(FieldType type,
                    std::shared_ptr<TextDictionary> dictionary = std::make_shared<TextDictionary>())
        : type_(type), dictionary_(std::move(dictionary)) {}

    [[nodiscard]] FieldType type() const { return type_; }
    [[nodiscard]] std::size_t size() const { return holdsText() ? ids_.size() : numbers_.size(); }

    /// Gives a column of Unknown kind its kind, which must not be Text.
    void assume(FieldType type) {
        if (type_ == FieldType::Unknown) type_ = type;
    }
    void appendNull();
    /// A number or, in a column of dates, a date. A column that cannot hold it becomes Double or,
    /// when it holds text, takes it as text.
    void append(double number);
    /// A column of anything but text becomes one of text.
    void append(std::string_view text) {
        makeText();
        appendText(intern(text));
    }
    void reserve(std::size_t rows) { numbers_.reserve(rows); }
    /// A number that another column of the same kind holds, or NaN for null.
    void appendHeld(double number) { numbers_.push_back(number); }
    /// Adds a text that is at its number in the dictionary of a Text column.
    void appendText(std::uint32_t id) { ids_.push(id + 1); }
    [[nodiscard]] std::uint32_t intern(std::string_view text) { return dictionary_->intern(text); }

    /// Takes back what was appended behind the first `rows` values.
    void truncate(std::size_t rows);

    [[nodiscard]] bool isNull(std::size_t row) const {
        return holdsText() ? ids_[row] == 0 : numbers_[row] != numbers_[row];
    }
    /// Of a column that is not Text.
    [[nodiscard]] double number(std::size_t row) const { return numbers_[row]; }
    /// Of a Text column, not null. Valid as long as the column.
    [[nodiscard]] std::string_view text(std::size_t row) const {
        return dictionary_->text(textId(row));
    }
    /// Its number in the dictionary.
    [[nodiscard]] std::uint32_t textId(std::size_t row) const { return ids_[row] - 1; }
    [[nodiscard]] Variant value(std::size_t row) const;
    /// Empty for a Text column.
    [[nodiscard]] std::span<const double> numbers() const { return numbers_; }

    /// The different texts that were appended.
    [[nodiscard]] const TextDictionary& dictionary() const { return *dictionary_; }
    /// Memory taken, roughly; the dictionary counts by itself.
    [[nodiscard]] std::size_t bytes() const;
    /// Frees what only appending needs, also in the dictionary.
    void freeze();

private:
    [[nodiscard]] bool holdsText() const { return type_ == FieldType::Text; }
    [[nodiscard]] bool fits(double number) const;
    void makeText();

    FieldType type_;
    std::vector<double> numbers_;
    PackedIds ids_;  ///< number in the dictionary + 1; 0 is null
    std::shared_ptr<TextDictionary> dictionary_;
};

}  // namespace velt::access
