// SPDX-License-Identifier: MIT
// The runtime client: runtime_bench PATH-OF-velt-demo-server.
#include "adapters/opcua/runtimeclientfactory.h"
#include "adapters/opcua/session.h"
#include "bench/measure.h"
#include "platform/queueddispatcher.h"
#include "platform/runtimeerror.h"
#include "tests/adapters/opcua/testserver.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace velt::opcua::bench {
namespace {

using namespace std::chrono;
using namespace velt::bench;
using Clock = SteadyClock;

/// The demo's server with many stations, in a process of its own.
class Server {
public:
    Server(const char* program, int stations) {
        int ends[2];
        if (pipe(ends) != 0) std::abort();
        process_ = fork();
        if (process_ == 0) {
            dup2(ends[1], STDOUT_FILENO);
            const std::string count = std::to_string(stations);
            execl(program, program, "--port", "0", "--stations", count.c_str(), "--variables", "1",
                  nullptr);
            _exit(127);
        }
        close(ends[1]);
        for (char c = 0; read(ends[0], &c, 1) == 1 && c != '\n';) endpoint += c;
        close(ends[0]);
    }
    ~Server() {
        kill(process_, SIGKILL);
        waitpid(process_, nullptr, 0);
    }
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    std::string endpoint;

private:
    pid_t process_;
};

/// Takes events on this thread until `done`; the longest time that one of them took, in ms.
double turn(QueuedDispatcher& dispatcher, const std::function<bool()>& done) {
    double longest = 0;
    const auto end = Clock::now() + 60s;
    auto last = Clock::now();
    while (!done() && Clock::now() < end) {
        bool one = false;
        last = Clock::now();
        (void)dispatcher.runUntil([&one] { return std::exchange(one, true); }, Clock::now() + 10ms);
        longest = std::max(longest, since(last) - 10);
    }
    return longest;
}

void stations(const char* program, int count) {
    const Server server(program, count);
    for (int round = 0; round < 5; ++round) {
        QueuedDispatcher dispatcher;
        OpcUaRuntimeClientFactory factory(dispatcher);
        const auto client = factory.create();
        std::set<std::string> shown;
        std::size_t told = 0;
        Clock::time_point linked;
        client->Connessione.subscribe([&] {
            linked = Clock::now();
            // As a control does it.
            for (const std::string& station : client->ElencoRTU())
                client->RichiediStatoRTU(station);
        });
        client->Stato.subscribe([&](const std::string& station, std::int32_t) {
            shown.insert(station);
            ++told;
        });
        const auto start = Clock::now();
        client->ConnettiRuntime("bench", server.endpoint);
        const double returned = since(start);
        const double longest =
            turn(dispatcher, [&] { return shown.size() == static_cast<std::size_t>(count); });
        std::printf(
            "%d stations: ConnettiRuntime returned after %.3f ms, linked after %.3f s, all states "
            "%.3f s later (%zu told), the thread busy for %.1f ms at most\n",
            count, returned, duration<double>(linked - start).count(), since(linked) / 1000, told,
            longest);
    }
}

void retries(int count) {
    QueuedDispatcher dispatcher;
    OpcUaRuntimeClientFactory factory(dispatcher);
    const auto client = factory.create();
    int errors = 0;
    client->ConnectionError.subscribe([&](std::int32_t) { ++errors; });
    const std::string nobody = "127.0.0.1:" + std::to_string(test::freePort());
    std::optional<Footprint> hundredth;
    const auto start = Clock::now();
    for (int i = 1; i <= count; ++i) {
        client->ConnettiRuntime("bench", nobody);
        turn(dispatcher, [&] { return errors == i; });
        if (i == 100) hundredth.emplace();
    }
    const double time = since(start) / 1000;
    (void)Session::waitForAll(5s);
    std::printf("%d retries in %.1f s, %d errors; since the hundredth: ", count, time, errors);
    hundredth->printGrowth();
}

}  // namespace
}  // namespace velt::opcua::bench

int main(int count, char** arguments) {
    using namespace velt::opcua::bench;
    if (count != 2) {
        std::fputs("Usage: runtime_bench PATH-OF-velt-demo-server\n", stderr);
        return 2;
    }
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    stations(arguments[1], 500);
    retries(3600);
}
