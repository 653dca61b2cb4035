// SPDX-License-Identifier: MIT
#include "adapters/opcua/endpoint.h"

#include <netdb.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <memory>
#include <string_view>

namespace velt::opcua {
namespace {

constexpr std::string_view Scheme = "opc.tcp://";
constexpr std::string_view DefaultPort = ":4840";

}  // namespace

std::string endpointOf(const std::optional<std::string>& node) {
    std::string text = node.value_or("");
    if (text.empty()) text = "localhost";
    if (text.starts_with(Scheme)) return text;
    std::string url(Scheme);
    const auto colons = std::ranges::count(text, ':');
    // More than one colon without brackets is the address of a host, not a port.
    if (colons > 1 && !text.starts_with('['))
        return url + "[" + text + "]" + std::string(DefaultPort);
    const bool hasPort = text.starts_with('[') ? text.find("]:") != std::string::npos : colons == 1;
    url += text;
    return hasPort ? url : url + std::string(DefaultPort);
}

std::string hostOf(const std::string& endpoint) {
    std::string_view rest = endpoint;
    if (rest.starts_with(Scheme)) rest.remove_prefix(Scheme.size());
    if (rest.starts_with('[')) return std::string(rest.substr(1, rest.find(']') - 1));
    return std::string(rest.substr(0, rest.find_first_of(":/")));
}

std::vector<std::string> otherAddresses(const std::string& endpoint) {
    const std::string host = hostOf(endpoint);
    const std::size_t place = endpoint.find(host, Scheme.size());
    addrinfo hints{};
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    if (host.empty() || getaddrinfo(host.c_str(), nullptr, &hints, &found) != 0) return {};
    const std::unique_ptr<addrinfo, decltype(&freeaddrinfo)> owner(found, freeaddrinfo);
    std::vector<std::string> urls;
    for (const addrinfo* next = found->ai_next; next; next = next->ai_next) {
        std::array<char, NI_MAXHOST> address{};
        if (getnameinfo(next->ai_addr, next->ai_addrlen, address.data(), address.size(), nullptr, 0,
                        NI_NUMERICHOST) != 0)
            continue;
        std::string text = address.data();
        if (next->ai_family == AF_INET6) text = "[" + text + "]";
        urls.push_back(std::string(endpoint).replace(place, host.size(), text));
    }
    return urls;
}

}  // namespace velt::opcua
