// SPDX-License-Identifier: MIT
#include "adapters/opcua/certificate.h"

#include "adapters/opcua/status.h"
#include "adapters/opcua/ua.h"

#include <open62541/plugin/create_certificate.h>

namespace velt::opcua {

Certificate makeCertificate(const CertificateOwner& owner) {
    const UA_String subject = borrowed(owner.subject);
    const std::vector<UA_String> names = borrowedAll(owner.names);
    UA_KeyValueMap parameters = UA_KEYVALUEMAP_NULL;
    const auto set = [&parameters](const char* name, UA_UInt16 value) {
        const UA_QualifiedName key{0, borrowed(name)};
        check(UA_KeyValueMap_setScalar(&parameters, key, &value, &UA_TYPES[UA_TYPES_UINT16]));
    };
    set("expires-in-days", 3650);
    set("key-size-bits", 2048);
    const UA_Logger silent{nullptr, nullptr, nullptr};
    OwnedBytes key;
    OwnedBytes certificate;
    const UA_StatusCode status =
        UA_CreateCertificate(&silent, &subject, 1, names.data(), names.size(),
                             UA_CERTIFICATEFORMAT_DER, &parameters, key.get(), certificate.get());
    UA_KeyValueMap_clear(&parameters);
    check(status);
    return {toText(*certificate), toText(*key)};
}

}  // namespace velt::opcua
