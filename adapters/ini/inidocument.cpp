// SPDX-License-Identifier: MIT
#include "adapters/ini/inidocument.h"

#include "adapters/ini/encoding.h"
#include "adapters/ini/textform.h"

#include <iterator>

namespace velt::ini {
namespace {

std::string decoded(std::string_view line) {
    return isUtf8(line) ? std::string(line) : fromWindows1252(line);
}

/// The name in a section's header; nothing when the line is none. A header without its closing
/// bracket counts: the keys behind it must not fall to the section before.
std::optional<std::string> headerName(const std::string& line) {
    std::string_view text = trimmed(line);
    if (text.empty() || text.front() != '[') return std::nullopt;
    text.remove_prefix(1);
    if (!text.empty() && text.back() == ']')
        text.remove_suffix(1);  // the last one: a name may have brackets of its own
    else
        text = text.substr(0, text.find(']'));
    return readText(text);
}

/// Place of the "=" of a key's line; npos in any other line.
std::size_t equalsSign(const std::string& line) {
    const std::string_view text = trimmed(line);
    if (text.empty() || text.front() == ';' || text.front() == '#') return std::string::npos;
    return line.find('=');
}

}  // namespace

IniDocument::IniDocument(std::string_view bytes) {
    marked_ = bytes.starts_with(utf8Mark);
    readLines(marked_ ? bytes.substr(utf8Mark.size()) : bytes);
    indexLines();
}

void IniDocument::readLines(std::string_view bytes) {
    while (!bytes.empty()) {
        const std::size_t feed = bytes.find('\n');
        const std::size_t end = feed == std::string_view::npos ? bytes.size() : feed + 1;
        std::size_t text = feed == std::string_view::npos ? bytes.size() : feed;
        if (text < end && text > 0 && bytes[text - 1] == '\r') --text;
        lines_.push_back(
            {std::string(bytes.substr(0, text)), std::string(bytes.substr(text, end - text))});
        if (!marked_ && !isUtf8(lines_.back().text)) windows1252_ = true;
        bytes.remove_prefix(end);
    }
    if (!lines_.empty() && !lines_.front().ending.empty()) newEnding_ = lines_.front().ending;
}

void IniDocument::indexLines() {
    Section* section = &sections_[""];
    bool firstBlock = true;  // of the section's name; new keys go there
    for (auto line = lines_.begin(); line != lines_.end(); ++line) {
        const std::string text = decoded(line->text);
        if (const auto name = headerName(text)) {
            const auto [entry, added] = sections_.try_emplace(*name);
            section = &entry->second;
            firstBlock = added;
        } else if (const auto equals = equalsSign(text); equals != std::string::npos) {
            section->entries.try_emplace(readText(text.substr(0, equals)), line);
        } else {
            continue;
        }
        if (firstBlock) section->last = line;
    }
}

std::optional<std::string> IniDocument::get(const std::string& section,
                                            const std::string& key) const {
    const auto found = sections_.find(section);
    if (found == sections_.end()) return std::nullopt;
    const auto entry = found->second.entries.find(key);
    if (entry == found->second.entries.end()) return std::nullopt;
    const std::string line = decoded(entry->second->text);
    return readText(line.substr(line.find('=') + 1));
}

void IniDocument::set(const std::string& section, const std::string& key, std::string_view value) {
    Section& target = sectionFor(section);
    const auto entry = target.entries.find(key);
    if (entry == target.entries.end()) {
        const auto place = target.last ? std::next(*target.last) : lines_.begin();
        target.last = insert(place, writtenName(key) + '=' + writtenValue(value));
        target.entries.emplace(key, *target.last);
        return;
    }
    const std::string line = decoded(entry->second->text);
    std::size_t valueAt = line.find('=') + 1;
    if (readText(line.substr(valueAt)) == value) return;
    while (valueAt < line.size() && (line[valueAt] == ' ' || line[valueAt] == '\t')) ++valueAt;
    entry->second->text = encoded(line.substr(0, valueAt) + writtenValue(value));
}

IniDocument::Section& IniDocument::sectionFor(const std::string& name) {
    const auto [entry, added] = sections_.try_emplace(name);
    if (added) {
        if (!lines_.empty() && !trimmed(lines_.back().text).empty()) insert(lines_.end(), "");
        entry->second.last = insert(lines_.end(), '[' + writtenName(name) + ']');
    }
    return entry->second;
}

IniDocument::Lines::iterator IniDocument::insert(Lines::iterator before, const std::string& utf8) {
    if (before != lines_.begin() && std::prev(before)->ending.empty())
        std::prev(before)->ending = newEnding_;
    return lines_.insert(before, {encoded(utf8), newEnding_});
}

std::string IniDocument::encoded(const std::string& utf8) {
    if (!windows1252_ || isAscii(utf8)) return utf8;
    const auto bytes = toWindows1252(utf8);
    // Bytes that happen to be UTF-8 would be read as that.
    if (bytes && !isUtf8(*bytes)) return *bytes;
    becomeUtf8();
    return utf8;
}

void IniDocument::becomeUtf8() {
    for (Line& line : lines_) line.text = decoded(line.text);
    windows1252_ = false;
    marked_ = true;
}

std::string IniDocument::bytes() const {
    std::string result(marked_ ? utf8Mark : std::string_view());
    for (const Line& line : lines_) result.append(line.text).append(line.ending);
    return result;
}

}  // namespace velt::ini
