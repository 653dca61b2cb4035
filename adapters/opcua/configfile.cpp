// SPDX-License-Identifier: MIT
#include "adapters/opcua/configfile.h"

#include "platform/runtimeerror.h"

#include <fstream>
#include <string_view>

namespace velt::opcua {
namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";  // of editors that write one

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// False when the key or its value is not known.
bool take(ConfigFile& file, std::string_view key, std::string_view value) {
    if (key == "Security") {
        using Security = ConfigFile::Security;
        if (value == "None")
            file.security = Security::None;
        else if (value == "Sign")
            file.security = Security::Sign;
        else if (value == "SignAndEncrypt")
            file.security = Security::SignAndEncrypt;
        else
            return false;
    } else if (key == "User") {
        file.user = value;
    } else if (key == "Password") {
        file.password = value;
    } else if (key == "Pki") {
        file.pkiFolder = value;
    } else if (key == "CheckHost") {
        file.checkHost = value != "no";
        return value == "yes" || value == "no";
    } else {
        return false;
    }
    return true;
}

}  // namespace

ConfigFile readConfigFile(const std::string& path) {
    std::ifstream stream(path);
    if (!stream)
        throw RuntimeError(ErrorNumber::FileNotFound,
                           "Impossibile leggere la configurazione OPC: " + path);
    ConfigFile file;
    file.pkiFolder = "pki";
    bool inSection = false;
    bool hasSection = false;
    std::string raw;
    for (int number = 1; std::getline(stream, raw); ++number) {
        std::string_view line = raw;
        if (number == 1 && line.starts_with(ByteOrderMark))
            line.remove_prefix(ByteOrderMark.size());
        line = trimmed(line);
        if (line.empty() || line.front() == ';' || line.front() == '#') continue;
        if (line.front() == '[') {
            inSection = line == "[OPC]";
            hasSection = hasSection || inSection;
            continue;
        }
        if (!inSection) continue;
        const std::size_t equals = line.find('=');
        if (equals == std::string_view::npos ||
            !take(file, trimmed(line.substr(0, equals)), trimmed(line.substr(equals + 1))))
            throw RuntimeError(ErrorNumber::InvalidCall,
                               path + ", riga " + std::to_string(number) + ": non compresa");
    }
    // Who names a file wants what it says: without its section it would mean no security at all.
    if (stream.bad() || !hasSection)
        throw RuntimeError(ErrorNumber::InvalidCall,
                           path + ": illeggibile, o senza la sezione [OPC]");
    if (file.security == ConfigFile::Security::None && !file.user.empty())
        throw RuntimeError(ErrorNumber::InvalidCall,
                           path +
                               ": utente e password viaggerebbero in chiaro; con User serve "
                               "Security = SignAndEncrypt");
    if (file.pkiFolder.is_relative())
        file.pkiFolder = std::filesystem::path(path).parent_path() / file.pkiFolder;
    return file;
}

}  // namespace velt::opcua
