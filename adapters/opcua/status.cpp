// SPDX-License-Identifier: MIT
#include "adapters/opcua/status.h"

namespace velt::opcua {
namespace {

const char* textOf(UA_StatusCode code) {
    switch (code) {
        // Writing and adding.
        case UA_STATUSCODE_BADTYPEMISMATCH:
            return "Il server non accetta un valore di questo tipo o di questa lunghezza";
        case UA_STATUSCODE_BADOUTOFRANGE: return "Il server rifiuta il valore: fuori dai limiti";
        case UA_STATUSCODE_BADNOTWRITABLE: return "La variabile è di sola lettura";
        case UA_STATUSCODE_BADNOTREADABLE: return "La variabile non si può leggere";
        case UA_STATUSCODE_BADUSERACCESSDENIED: return "Il server nega l'accesso a questo utente";
        case UA_STATUSCODE_BADWRITENOTSUPPORTED: return "Il server non sa scrivere la variabile";
        case UA_STATUSCODE_BADNODEIDUNKNOWN: return "La variabile non esiste nel server";
        case UA_STATUSCODE_BADNODEIDINVALID: return "Il nome della variabile non è valido";
        case UA_STATUSCODE_BADATTRIBUTEIDINVALID: return "Il nodo non è una variabile";
        case UA_STATUSCODE_BADTOOMANYMONITOREDITEMS: return "Il server non accetta altre variabili";
        case UA_STATUSCODE_BADTOOMANYSUBSCRIPTIONS: return "Il server non accetta altri gruppi";
        case UA_STATUSCODE_BADTOOMANYSESSIONS: return "Il server non accetta altre connessioni";
        case UA_STATUSCODE_BADDEVICEFAILURE: return "L'apparecchiatura è guasta";
        case UA_STATUSCODE_BADNOCOMMUNICATION: return "L'apparecchiatura non risponde al server";
        case UA_STATUSCODE_BADOUTOFSERVICE: return "La variabile è fuori servizio";
        // The link.
        case UA_STATUSCODE_BADTIMEOUT: return "Il server non risponde";
        case UA_STATUSCODE_BADCONNECTIONCLOSED:
        case UA_STATUSCODE_BADSECURECHANNELCLOSED:
        case UA_STATUSCODE_BADSESSIONCLOSED:
        case UA_STATUSCODE_BADSESSIONIDINVALID:
        case UA_STATUSCODE_BADDISCONNECT:
        case UA_STATUSCODE_BADNOTCONNECTED:
        case UA_STATUSCODE_BADSERVERNOTCONNECTED: return "La connessione con il server è caduta";
        case UA_STATUSCODE_BADCONNECTIONREJECTED: return "Il server non accetta la connessione";
        case UA_STATUSCODE_BADSHUTDOWN:
        case UA_STATUSCODE_BADSERVERHALTED: return "Il server è in arresto";
        case UA_STATUSCODE_BADTCPENDPOINTURLINVALID: return "L'indirizzo del server non è valido";
        case UA_STATUSCODE_BADRESPONSETOOLARGE:
        case UA_STATUSCODE_BADENCODINGLIMITSEXCEEDED:
        case UA_STATUSCODE_BADTCPMESSAGETOOLARGE: return "La risposta del server è troppo grande";
        // Security.
        case UA_STATUSCODE_BADIDENTITYTOKENREJECTED:
        case UA_STATUSCODE_BADIDENTITYTOKENINVALID: return "Il server rifiuta utente o password";
        case UA_STATUSCODE_BADCERTIFICATEUNTRUSTED:
            return "Il certificato del server non è tra quelli fidati";
        case UA_STATUSCODE_BADCERTIFICATECHAININCOMPLETE:
            return "Manca il certificato di chi ha firmato quello del server";
        case UA_STATUSCODE_BADCERTIFICATETIMEINVALID:
        case UA_STATUSCODE_BADCERTIFICATEISSUERTIMEINVALID:
            return "Il certificato del server è scaduto o non è ancora valido";
        case UA_STATUSCODE_BADCERTIFICATEHOSTNAMEINVALID:
            return "Il certificato del server è di un altro nodo";
        case UA_STATUSCODE_BADCERTIFICATEURIINVALID:
            return "Il certificato del server è di un'altra applicazione";
        case UA_STATUSCODE_BADCERTIFICATEREVOKED: return "Il certificato del server è revocato";
        case UA_STATUSCODE_BADCERTIFICATEINVALID: return "Il certificato del server non è valido";
        case UA_STATUSCODE_BADSECURITYCHECKSFAILED:
            return "Il server rifiuta il certificato di questa stazione";
        case UA_STATUSCODE_BADSECURITYPOLICYREJECTED:
        case UA_STATUSCODE_BADSECURITYMODEREJECTED:
        case UA_STATUSCODE_BADNOMATCH:
            return "Il server non offre la sicurezza richiesta dalla configurazione";
        default: return nullptr;
    }
}

}  // namespace

std::string describe(UA_StatusCode status) {
    const UA_StatusCode code = status & 0xFFFF0000;
    if (const char* const text = textOf(code)) return text;
    return std::string("Errore del server OPC: ") + UA_StatusCode_name(code);
}

RuntimeError statusError(UA_StatusCode status) {
    return {static_cast<int>(status), describe(status)};
}

void check(UA_StatusCode status) {
    if (UA_StatusCode_isBad(status)) throw statusError(status);
}

}  // namespace velt::opcua
