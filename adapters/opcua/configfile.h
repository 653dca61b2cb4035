// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

namespace velt::opcua {

/// What stands in the section [OPC] of the configuration file.
struct ConfigFile {
    enum class Security { None, Sign, SignAndEncrypt };
    Security security = Security::None;
    std::string user;
    std::string password;
    std::filesystem::path pkiFolder;  ///< default: "pki" beside the file
    bool checkHost = true;            ///< the server's certificate must name its node
};

/// RuntimeError, naming file and line, for a file that cannot be read or has anything that is not
/// understood: a misspelt key must not lead to less security.
[[nodiscard]] ConfigFile readConfigFile(const std::string& path);

}  // namespace velt::opcua
