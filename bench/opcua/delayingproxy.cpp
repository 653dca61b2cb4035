// SPDX-License-Identifier: MIT
#include "bench/opcua/delayingproxy.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <deque>
#include <string>

namespace velt::opcua::bench {
namespace {

using Clock = std::chrono::steady_clock;

sockaddr_in loopback(std::uint16_t port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

/// One direction.
struct Way {
    struct Packet {
        Clock::time_point due;
        std::string bytes;
    };
    int from;
    int to;
    std::deque<Packet> packets;

    /// False when the other side has gone.
    bool turn(std::chrono::milliseconds delay) {
        std::array<char, 65536> buffer;
        const ssize_t size = recv(from, buffer.data(), buffer.size(), MSG_DONTWAIT);
        if (size == 0) return false;
        if (size > 0)
            packets.push_back(
                {Clock::now() + delay, std::string(buffer.data(), static_cast<std::size_t>(size))});
        while (!packets.empty() && packets.front().due <= Clock::now()) {
            std::string& bytes = packets.front().bytes;
            const ssize_t sent = send(to, bytes.data(), bytes.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
            if (sent < 0) return errno == EAGAIN;
            bytes.erase(0, static_cast<std::size_t>(sent));
            if (!bytes.empty()) break;
            packets.pop_front();
        }
        return true;
    }
};

}  // namespace

DelayingProxy::DelayingProxy(std::uint16_t port, std::uint16_t target,
                             std::chrono::milliseconds delay)
    : listener_(socket(AF_INET, SOCK_STREAM, 0)), target_(target), delay_(delay) {
    const int on = 1;
    setsockopt(listener_, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    sockaddr_in address = loopback(port);
    if (bind(listener_, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
        listen(listener_, 5) != 0)
        std::abort();
    thread_ = std::thread([this] { serve(); });
}

DelayingProxy::~DelayingProxy() {
    stopped_ = true;
    thread_.join();
    close(listener_);
}

void DelayingProxy::serve() {
    while (!stopped_) {
        pollfd waiting{listener_, POLLIN, 0};
        if (poll(&waiting, 1, 50) <= 0) continue;
        const int client = accept(listener_, nullptr, nullptr);
        const int server = socket(AF_INET, SOCK_STREAM, 0);
        sockaddr_in address = loopback(target_);
        const int on = 1;
        for (const int end : {client, server})
            setsockopt(end, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
        if (connect(server, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0)
            pass(client, server);
        close(client);
        close(server);
    }
}

void DelayingProxy::pass(int a, int b) const {
    Way there{a, b, {}};
    Way back{b, a, {}};
    while (!stopped_ && there.turn(delay_) && back.turn(delay_)) {
        std::array<pollfd, 2> ends = {pollfd{a, POLLIN, 0}, pollfd{b, POLLIN, 0}};
        poll(ends.data(), ends.size(), 1);
    }
}

}  // namespace velt::opcua::bench
