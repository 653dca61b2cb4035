// SPDX-License-Identifier: MIT
#include "demo/serverport.h"

#include "platform/runtimeerror.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>

namespace velt::demo {
namespace {

/// Binds a socket to the port without sharing it; the port that it got, 0 when it got none.
template <typename Address>
std::uint16_t bound(Address address) {
    const auto* generic = reinterpret_cast<const sockaddr*>(&address);
    const int s = ::socket(generic->sa_family, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (s < 0) return 0;
    const int on = 1;
    // Connections of a server that has ended linger; they are no reason to call the port busy.
    ::setsockopt(s, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    std::uint16_t port = 0;
    socklen_t length = sizeof address;
    if (::bind(s, generic, length) == 0 && ::listen(s, 1) == 0 &&
        ::getsockname(s, reinterpret_cast<sockaddr*>(&address), &length) == 0) {
        if constexpr (requires { address.sin_port; })
            port = ntohs(address.sin_port);
        else
            port = ntohs(address.sin6_port);
    }
    ::close(s);
    return port;
}

std::uint16_t bound4(std::uint16_t port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return bound(address);
}

/// False only when the port is taken: a machine may have no such addresses at all.
bool isFree6(std::uint16_t port) {
    sockaddr_in6 address{};
    address.sin6_family = AF_INET6;
    address.sin6_port = htons(port);
    address.sin6_addr = in6addr_loopback;
    errno = 0;
    return bound(address) != 0 || errno != EADDRINUSE;
}

}  // namespace

bool isPortFree(std::uint16_t port) { return bound4(port) != 0 && isFree6(port); }

std::uint16_t freePort() {
    for (int attempt = 0; attempt < 20; ++attempt)
        if (const std::uint16_t port = bound4(0); port != 0 && isFree6(port)) return port;
    throw RuntimeError(ErrorNumber::PathAccess, "Nessuna porta TCP libera");
}

}  // namespace velt::demo
