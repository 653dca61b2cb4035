// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace velt::opcua {

/// The alternative names (RFC 5280, 4.2.1.6) in a certificate.
struct CertificateNames {
    std::vector<std::string> hosts;
    std::vector<std::string> uris;
    std::vector<std::string> addresses;  ///< 4 or 16 bytes each
};

/// From the first certificate of `der`; empty for what is not one. Takes any bytes.
[[nodiscard]] CertificateNames namesOf(std::string_view der);

/// Whether the names hold that host name (letter case does not matter) or IP address.
[[nodiscard]] bool holdsHost(const CertificateNames& names, const std::string& host);

}  // namespace velt::opcua
