// SPDX-License-Identifier: MIT
#include "adapters/opcua/certificatenames.h"

#include <arpa/inet.h>
#include <strings.h>

#include <algorithm>
#include <array>
#include <optional>

namespace velt::opcua {
namespace {

constexpr unsigned char Sequence = 0x30;
constexpr unsigned char ObjectIdentifier = 0x06;
constexpr unsigned char OctetString = 0x04;
constexpr unsigned char Extensions = 0xA3;  // [3] of the TBSCertificate
constexpr unsigned char DnsName = 0x82;
constexpr unsigned char Uri = 0x86;
constexpr unsigned char IpAddress = 0x87;
constexpr std::string_view SubjectAltName = "\x55\x1D\x11";  // 2.5.29.17

struct Element {
    unsigned char tag;
    std::string_view content;
};

/// Takes the first element off `rest`; nothing when there is no whole one.
std::optional<Element> take(std::string_view& rest) {
    if (rest.size() < 2) return std::nullopt;
    const auto byte = [&rest](std::size_t i) { return static_cast<unsigned char>(rest[i]); };
    std::size_t length = byte(1);
    std::size_t start = 2;
    if (length & 0x80) {
        const std::size_t bytes = length & 0x7F;
        if (bytes == 0 || bytes > 4 || rest.size() < 2 + bytes) return std::nullopt;
        length = 0;
        for (; start < 2 + bytes; ++start) length = length << 8 | byte(start);
    }
    if (length > rest.size() - start) return std::nullopt;
    const Element element{byte(0), rest.substr(start, length)};
    rest.remove_prefix(start + length);
    return element;
}

/// The content of the first element with that tag, of a list of elements.
std::string_view find(std::string_view list, unsigned char tag) {
    while (const auto element = take(list))
        if (element->tag == tag) return element->content;
    return {};
}

void collect(std::string_view extensionValue, CertificateNames& names) {
    std::string_view list = find(extensionValue, Sequence);
    while (const auto name = take(list)) {
        if (name->tag == DnsName) names.hosts.emplace_back(name->content);
        if (name->tag == Uri) names.uris.emplace_back(name->content);
        if (name->tag == IpAddress) names.addresses.emplace_back(name->content);
    }
}

}  // namespace

CertificateNames namesOf(std::string_view der) {
    CertificateNames names;
    const std::string_view certificate = find(der, Sequence);
    const std::string_view signedPart = find(certificate, Sequence);
    std::string_view extensions = find(find(signedPart, Extensions), Sequence);
    while (const auto extension = take(extensions))
        if (find(extension->content, ObjectIdentifier) == SubjectAltName)
            collect(find(extension->content, OctetString), names);
    return names;
}

bool holdsHost(const CertificateNames& names, const std::string& host) {
    std::array<char, 16> bytes{};
    std::string address;
    if (inet_pton(AF_INET, host.c_str(), bytes.data()) == 1) address.assign(bytes.data(), 4);
    if (inet_pton(AF_INET6, host.c_str(), bytes.data()) == 1) address.assign(bytes.data(), 16);
    if (!address.empty() && std::ranges::find(names.addresses, address) != names.addresses.end())
        return true;
    // Addresses stand among the host names too, in what some tools make.
    return std::ranges::any_of(names.hosts, [&host](const std::string& name) {
        return strcasecmp(name.c_str(), host.c_str()) == 0;
    });
}

}  // namespace velt::opcua
