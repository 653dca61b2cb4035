// SPDX-License-Identifier: MIT
#include "adapters/access/queryerror.h"

namespace velt::access {
namespace {

constexpr std::size_t ExcerptLength = 40;

bool continuesCharacter(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

/// The beginning of `text`, not cut within a character.
std::string excerpt(std::string_view text) {
    if (text.size() <= ExcerptLength) return std::string(text);
    std::size_t end = ExcerptLength;
    while (end > 0 && continuesCharacter(text[end])) --end;
    return std::string(text.substr(0, end)) + "...";
}

}  // namespace

RuntimeError syntaxError(std::string_view reason, std::string_view statement, std::size_t offset) {
    std::string description = "Errore di sintassi nella query";
    if (!reason.empty()) description.append(" (").append(reason).append(")");
    if (offset < statement.size())
        description += ", vicino a: " + excerpt(statement.substr(offset));
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
