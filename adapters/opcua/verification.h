// SPDX-License-Identifier: MIT
#pragma once

#include <open62541/plugin/pki.h>

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace velt::opcua {

/// Whom to trust. Certificates are DER.
struct VerificationRules {
    std::vector<std::string> trusted;  ///< none: nobody is trusted
    std::vector<std::string> issuers;
    std::vector<std::string> revocations;
    std::string host;                                ///< that a certificate must name; "": any
    std::function<void(std::string_view)> rejected;  ///< gets certificates that are not trusted
    std::shared_ptr<std::atomic<UA_StatusCode>> verdict;  ///< gets why a certificate was refused
};

/// Replaces a verification of the library's by one with these rules. RuntimeError when the
/// certificates cannot be used.
void setVerification(UA_CertificateVerification& verification, VerificationRules rules);

}  // namespace velt::opcua
