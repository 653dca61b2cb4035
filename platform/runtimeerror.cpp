// SPDX-License-Identifier: MIT
#include "platform/runtimeerror.h"

namespace velt {
namespace {

const char* usualDescription(ErrorNumber number) {
    switch (number) {
        case ErrorNumber::InvalidCall: return "Chiamata di routine o argomento non validi";
        case ErrorNumber::Overflow: return "Overflow";
        case ErrorNumber::SubscriptOutOfRange: return "Indice non compreso nell'intervallo";
        case ErrorNumber::DivisionByZero: return "Divisione per zero";
        case ErrorNumber::TypeMismatch: return "Tipo non corrispondente";
        case ErrorNumber::FileNotFound: return "Impossibile trovare il file";
        case ErrorNumber::PathAccess: return "Errore di accesso al percorso o al file";
        case ErrorNumber::ObjectNotSet: return "Variabile oggetto non impostata";
        case ErrorNumber::KeyInUse: return "La chiave è già associata a un elemento dell'insieme";
        case ErrorNumber::Cancelled: return "Operazione annullata";
        case ErrorNumber::NoCurrentRecord: return "Nessun record corrente";
        case ErrorNumber::UnknownField: return "Impossibile trovare il campo";
        case ErrorNumber::ObjectClosed: return "Operazione non consentita se l'oggetto è chiuso";
        case ErrorNumber::ObjectOpen: return "Operazione non consentita se l'oggetto è aperto";
        case ErrorNumber::InvalidConnection:
            return "La connessione non è utilizzabile per questa operazione";
        case ErrorNumber::UnsupportedStatement: return "È ammessa solo l'istruzione SELECT";
        case ErrorNumber::SyntaxError: return "Errore di sintassi nella query";
        case ErrorNumber::UnknownTable: return "Impossibile trovare la tabella";
        case ErrorNumber::UnknownColumn: return "Impossibile trovare la colonna";
        case ErrorNumber::FileLocked: return "Impossibile leggere il file: è bloccato";
        case ErrorNumber::UnknownFileFormat: return "Formato di database non riconosciuto";
        case ErrorNumber::EncryptedFile: return "Il database è protetto da password";
    }
    return "Errore";
}

}  // namespace

RuntimeError::RuntimeError(ErrorNumber number) : RuntimeError(number, usualDescription(number)) {}

}  // namespace velt
