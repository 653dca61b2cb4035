// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace velt::opcua {

/// A certificate and its key; DER.
struct Certificate {
    std::string certificate;
    std::string key;
};

/// What a certificate says of its owner.
struct CertificateOwner {
    std::string subject;             ///< such as "CN=VELT Viewers"
    std::vector<std::string> names;  ///< such as "DNS:scada1", "IP:10.0.0.7", "URI:urn:scada1:velt"
};

/// Makes a certificate that its owner has signed, for ten years. RuntimeError.
[[nodiscard]] Certificate makeCertificate(const CertificateOwner& owner);

}  // namespace velt::opcua
