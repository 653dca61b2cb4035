// SPDX-License-Identifier: MIT
#include "adapters/access/queryerror.h"

#include <algorithm>

namespace velt::access {
namespace {

constexpr std::size_t ExcerptBefore = 20;
constexpr std::size_t ExcerptBehind = 30;

bool continuesCharacter(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

/// What stands around a place, not cut within a character.
std::string excerpt(std::string_view text, std::size_t place) {
    std::size_t first = place > ExcerptBefore ? place - ExcerptBefore : 0;
    std::size_t end = std::min(place + ExcerptBehind, text.size());
    while (first > 0 && continuesCharacter(text[first])) --first;
    while (end < text.size() && continuesCharacter(text[end])) ++end;
    return (first > 0 ? "..." : "") + std::string(text.substr(first, end - first)) +
           (end < text.size() ? "..." : "");
}

}  // namespace

RuntimeError syntaxError(std::string_view reason, std::string_view statement, std::size_t offset) {
    std::string description = "Errore di sintassi nella query";
    if (!reason.empty()) description.append(" (").append(reason).append(")");
    if (offset < statement.size())
        description += ", vicino a: " + excerpt(statement, offset);
    else
        description += ", alla fine dell'istruzione";
    return {ErrorNumber::SyntaxError, description};
}

RuntimeError unknownTable(std::string_view name) {
    return {ErrorNumber::UnknownTable,
            "Impossibile trovare la tabella \"" + std::string(name) + "\""};
}

RuntimeError unknownColumn(std::string_view name) {
    return {ErrorNumber::UnknownColumn,
            "Impossibile trovare la colonna \"" + std::string(name) + "\""};
}

RuntimeError typeMismatch(std::string_view column) {
    return {ErrorNumber::TypeMismatch,
            "Tipi di dati non corrispondenti nel confronto con la colonna \"" +
                std::string(column) + "\""};
}

}  // namespace velt::access
