// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/opcua/certificate.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace velt::opcua {

/// The certificate by which an application shows itself.
struct OwnCertificate : Certificate {
    std::string uri;  ///< the application's name in the certificate
};

/// A folder of certificates (DER files): own/cert.der and own/key.der (mode 0600), trusted/,
/// issuers/ (with *.crl), rejected/. Errors are RuntimeError.
class Pki {
public:
    explicit Pki(std::filesystem::path folder) : folder_(std::move(folder)) {}

    /// Made when there is none yet, for `owner`.
    [[nodiscard]] OwnCertificate own(const CertificateOwner& owner = thisStation()) const;
    [[nodiscard]] std::vector<std::string> trusted() const { return files("trusted", ".der"); }
    [[nodiscard]] std::vector<std::string> issuers() const { return files("issuers", ".der"); }
    [[nodiscard]] std::vector<std::string> revocations() const { return files("issuers", ".crl"); }
    /// So that an integrator finds it and may move it to trusted/. A hundred at most.
    void storeRejected(std::string_view certificate) const;

    /// By the name of its host.
    [[nodiscard]] static CertificateOwner thisStation();

private:
    [[nodiscard]] std::vector<std::string> files(const char* name, const char* ending) const;

    std::filesystem::path folder_;
};

}  // namespace velt::opcua
