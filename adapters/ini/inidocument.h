// SPDX-License-Identifier: MIT
#pragma once

#include <list>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace velt::ini {

/// The text of a settings file, edited line by line: what is not changed stays byte for byte, be
/// it a comment, a duplicate, a blank line or something that no settings file should contain.
/// Sections and keys are case-sensitive; keys before the first section are in section "". Of
/// several equal keys the first counts. How texts stand in a line: see textform.h.
///
/// The file is UTF-8, or Windows-1252 when it has no mark and a line that is not UTF-8; it stays
/// what it is, until a text comes that the code page lacks: then it becomes UTF-8 with a mark. A
/// line is read by its own bytes, so that one damaged line does not spoil the others.
class IniDocument {
public:
    /// Takes any bytes.
    explicit IniDocument(std::string_view bytes);
    IniDocument(IniDocument&&) = default;
    IniDocument& operator=(IniDocument&&) = default;
    IniDocument(const IniDocument&) = delete;
    IniDocument& operator=(const IniDocument&) = delete;
    ~IniDocument() = default;

    [[nodiscard]] std::optional<std::string> get(const std::string& section,
                                                 const std::string& key) const;
    /// Changes the line of the key, or adds one behind the last key of its section.
    void set(const std::string& section, const std::string& key, std::string_view value);

    [[nodiscard]] std::string bytes() const;

private:
    struct Line {
        std::string text;    ///< as in the file
        std::string ending;  ///< "\n", "\r\n", or "" on a last line without one
    };
    using Lines = std::list<Line>;

    struct Section {
        std::unordered_map<std::string, Lines::iterator> entries;
        /// Header or last key; nothing when the section "" has no key yet.
        std::optional<Lines::iterator> last;
    };

    void readLines(std::string_view bytes);
    void indexLines();
    Section& sectionFor(const std::string& name);
    Lines::iterator insert(Lines::iterator before, const std::string& utf8);
    std::string encoded(const std::string& utf8);
    void becomeUtf8();

    Lines lines_;
    std::unordered_map<std::string, Section> sections_;
    std::string newEnding_ = "\n";
    bool marked_ = false;
    bool windows1252_ = false;
};

}  // namespace velt::ini
