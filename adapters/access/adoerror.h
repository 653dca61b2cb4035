// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtimeerror.h"

/// Errors of ADO objects that ErrorNumber does not list.
namespace velt::access {

inline RuntimeError noCurrentRecord() { return {3021, "Nessun record corrente"}; }
inline RuntimeError unknownField() { return {3265, "Impossibile trovare il campo"}; }
inline RuntimeError alreadyOpen() {
    return {3705, "Operazione non consentita se l'oggetto è aperto"};
}
inline RuntimeError invalidConnection() {
    return {3709, "La connessione non è utilizzabile per questa operazione"};
}

}  // namespace velt::access
