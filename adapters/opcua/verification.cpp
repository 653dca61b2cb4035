// SPDX-License-Identifier: MIT
#include "adapters/opcua/verification.h"

#include "adapters/opcua/certificatenames.h"
#include "adapters/opcua/status.h"
#include "adapters/opcua/ua.h"

#include <open62541/plugin/pki_default.h>

namespace velt::opcua {
namespace {

/// The rules, and the library's own check of chains, dates and revocations.
struct Verifier {
    VerificationRules rules;
    UA_CertificateVerification inner{};

    ~Verifier() {
        if (inner.clear) inner.clear(&inner);
    }
};

const Verifier& of(const UA_CertificateVerification* verification) {
    return *static_cast<const Verifier*>(verification->context);
}

UA_StatusCode verdict(const Verifier& verifier, const UA_ByteString& certificate) {
    // Some versions of the library take an empty list for "everybody".
    if (verifier.rules.trusted.empty()) return UA_STATUSCODE_BADCERTIFICATEUNTRUSTED;
    const UA_StatusCode status = verifier.inner.verifyCertificate(&verifier.inner, &certificate);
    if (UA_StatusCode_isBad(status)) return status;
    if (!verifier.rules.host.empty() && !holdsHost(namesOf(view(certificate)), verifier.rules.host))
        return UA_STATUSCODE_BADCERTIFICATEHOSTNAMEINVALID;
    return UA_STATUSCODE_GOOD;
}

UA_StatusCode verify(const UA_CertificateVerification* verification,
                     const UA_ByteString* certificate) {
    try {
        const Verifier& verifier = of(verification);
        const UA_StatusCode status = verdict(verifier, *certificate);
        if (!UA_StatusCode_isBad(status)) return status;
        if (verifier.rules.verdict) *verifier.rules.verdict = status;
        // A copy for the integrator is a convenience: the refusal counts without it.
        if (status == UA_STATUSCODE_BADCERTIFICATEUNTRUSTED && verifier.rules.rejected)
            ignoreErrors([&] { verifier.rules.rejected(view(*certificate)); });
        return status;
    } catch (...) {
        return UA_STATUSCODE_BADINTERNALERROR;  // must not go through the library
    }
}

UA_StatusCode verifyUri(const UA_CertificateVerification* verification,
                        const UA_ByteString* certificate, const UA_String* uri) {
    const UA_CertificateVerification& inner = of(verification).inner;
    return inner.verifyApplicationURI(&inner, certificate, uri);
}

void clear(UA_CertificateVerification* verification) {
    delete static_cast<Verifier*>(verification->context);
    *verification = {};
}

}  // namespace

void setVerification(UA_CertificateVerification& verification, VerificationRules rules) {
    auto verifier = std::make_unique<Verifier>();
    verifier->rules = std::move(rules);
    const auto trusted = borrowedAll(verifier->rules.trusted);
    const auto issuers = borrowedAll(verifier->rules.issuers);
    const auto revocations = borrowedAll(verifier->rules.revocations);
    verifier->inner.logging = verification.logging;
    check(UA_CertificateVerification_Trustlist(&verifier->inner, trusted.data(), trusted.size(),
                                               issuers.data(), issuers.size(), revocations.data(),
                                               revocations.size()));
    const UA_CertificateVerification old = verification;
    if (verification.clear) verification.clear(&verification);
    verification = {};
    verification.getExpirationDate = verifier->inner.getExpirationDate;
    verification.getSubjectName = verifier->inner.getSubjectName;
    verification.verifyCertificate = verify;
    verification.verifyApplicationURI = verifyUri;
    verification.clear = clear;
    verification.logging = old.logging;
    verification.context = verifier.release();
}

}  // namespace velt::opcua
