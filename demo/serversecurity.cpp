// SPDX-License-Identifier: MIT
#include "demo/serversecurity.h"

#include "adapters/opcua/pki.h"
#include "demo/uaerror.h"
#include "demo/uavalue.h"

#include <open62541/plugin/accesscontrol_default.h>
#include <open62541/plugin/pki_default.h>
#include <open62541/server_config_default.h>

#include <vector>

namespace velt::demo {

void secure(UA_ServerConfig& config, const ServerSecurity& security) {
    const opcua::Pki pki(security.pki);
    const opcua::OwnCertificate identity =
        pki.own({"CN=Server dimostrativo",
                 {"DNS:localhost", "IP:127.0.0.1", std::string("URI:") + ServerUri}});
    const std::vector<std::string> trusted = pki.trusted();
    const std::vector<std::string> issuers = pki.issuers();
    const std::vector<UA_ByteString> trust = opcua::borrowedAll(trusted);
    const std::vector<UA_ByteString> issue = opcua::borrowedAll(issuers);
    const UA_ByteString own = opcua::borrowed(identity.certificate);
    const UA_ByteString ownKey = opcua::borrowed(identity.key);

    check(UA_ServerConfig_setBasics_withPort(&config, 0), "Configurazione del server");
    // The library's own setup would trust everybody when the list is empty.
    for (UA_CertificateVerification* verification :
         {&config.secureChannelPKI, &config.sessionPKI}) {
        if (verification->clear) verification->clear(verification);
        check(UA_CertificateVerification_Trustlist(verification, trust.data(), trust.size(),
                                                   issue.data(), issue.size(), nullptr, 0),
              "Certificati fidati");
    }
    check(UA_ServerConfig_addSecurityPolicyBasic256Sha256(&config, &own, &ownKey),
          "Certificato del server");
    // Without it no client could ask which endpoints there are.
    check(UA_ServerConfig_addSecurityPolicyNone(&config, &own), "Configurazione del server");
    config.securityPolicyNoneDiscoveryOnly = true;
    const UA_String policy =
        UA_STRING_STATIC("http://opcfoundation.org/UA/SecurityPolicy#Basic256Sha256");
    const UA_UsernamePasswordLogin login = {opcua::borrowed(security.user),
                                            opcua::borrowed(security.password)};
    check(UA_AccessControl_default(&config, false, &policy, 1, &login), "Accesso al server");
    check(UA_ServerConfig_addEndpoint(&config, policy, UA_MESSAGESECURITYMODE_SIGNANDENCRYPT),
          "Configurazione del server");
}

}  // namespace velt::demo
