// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace velt::opcua {

/// The certificate by which this station shows itself, and its key; DER.
struct OwnCertificate {
    std::string certificate;
    std::string key;
    std::string uri;  ///< the application's name in the certificate
};

/// A folder of certificates (DER files): own/cert.der and own/key.der (mode 0600), trusted/,
/// issuers/ (with *.crl), rejected/. Errors are RuntimeError.
class Pki {
public:
    explicit Pki(std::filesystem::path folder) : folder_(std::move(folder)) {}

    /// Made by itself when there is none yet, for ten years.
    [[nodiscard]] OwnCertificate own() const;
    [[nodiscard]] std::vector<std::string> trusted() const { return files("trusted", ".der"); }
    [[nodiscard]] std::vector<std::string> issuers() const { return files("issuers", ".der"); }
    [[nodiscard]] std::vector<std::string> revocations() const { return files("issuers", ".crl"); }
    /// So that an integrator finds it and may move it to trusted/. A hundred at most.
    void storeRejected(std::string_view certificate) const;

private:
    [[nodiscard]] std::vector<std::string> files(const char* name, const char* ending) const;

    std::filesystem::path folder_;
};

}  // namespace velt::opcua
