// SPDX-License-Identifier: MIT
#include "panel/velt-demo-server/options.h"
#include "platform/runtimeerror.h"

#include <csignal>
#include <cstdio>
#include <memory>
#include <span>
#include <string>

namespace velt::demo {
namespace {

int run(std::span<const char* const> arguments) {
    const cli::CommandLine line(arguments, serverOptions());
    if (line.has("--help")) {
        std::fputs(serverHelp, stdout);
        return 0;
    }
    if (line.has("--version")) {
        std::puts("velt-demo-server " VELT_VERSION);
        return 0;
    }
    PlantServerOptions options = plantServerOptions(line);
    options.server.log = [](const std::string& text) {
        std::fprintf(stderr, "velt-demo-server: %s\n", text.c_str());
    };
    // Blocked before there are threads, so that the signals wait for sigwait().
    sigset_t ends;
    sigemptyset(&ends);
    sigaddset(&ends, SIGTERM);
    sigaddset(&ends, SIGINT);
    pthread_sigmask(SIG_BLOCK, &ends, nullptr);

    SystemClock clock;
    std::unique_ptr<OpcServer> server;
    std::unique_ptr<Installation> installation;
    std::string endpoint;
    if (line.has("--data")) {
        installation = std::make_unique<Installation>(installationOptions(line, options), clock);
        endpoint = installation->opcEndpoint();
    } else {
        server = startPlantServer(std::move(options), clock);
        endpoint = server->endpoint();
    }
    std::printf("%s\n", endpoint.c_str());
    std::fflush(stdout);
    int signal = 0;
    sigwait(&ends, &signal);
    return 0;
}

}  // namespace
}  // namespace velt::demo

int main(int count, char** arguments) {
    try {
        const std::span<const char* const> all(arguments, static_cast<std::size_t>(count));
        return velt::demo::run(all.empty() ? all : all.subspan(1));
    } catch (const velt::cli::UsageError& error) {
        std::fprintf(stderr, "velt-demo-server: %s\nTry 'velt-demo-server --help'.\n",
                     error.what());
        return 2;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "velt-demo-server: %s\n", error.what());
        return 1;
    }
}
