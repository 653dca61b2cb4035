// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

struct UA_ServerConfig;

namespace velt::demo {

/// How the demo's server is guarded: signed and encrypted connections (Basic256Sha256) of trusted
/// clients with a user name and a password; nothing else.
struct ServerSecurity {
    /// Folder with own/ (certificate and key of the server, made when missing), trusted/ and
    /// issuers/ (certificates, *.der). An empty trusted/ trusts nobody.
    std::filesystem::path pki;
    std::string user;
    std::string password;
};

/// Sets up a blank configuration; RuntimeError when a file cannot be read or made.
void secure(UA_ServerConfig& config, const ServerSecurity& security);

/// Application URI of the server, also in its certificate.
inline constexpr const char* ServerUri = "urn:velt:demo:server";

}  // namespace velt::demo
