// SPDX-License-Identifier: MIT
// The runtime of ServerProcess: runtime_test_server PORT. Writes a byte once it stands. Its
// downloads take a minute.
#include "tests/adapters/opcua/runtimeserver.h"

#include <sys/prctl.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>

int main(int count, char** arguments) {
    using namespace velt::opcua::test;
    if (count != 2) return 2;
    prctl(PR_SET_PDEATHSIG, SIGKILL);  // never outlives a test that crashed
    RuntimeServerOptions options;
    options.runtime = quickRuntime({"A", "B"});
    options.runtime.downloading = std::chrono::minutes(1);
    options.server.port = static_cast<std::uint16_t>(std::atoi(arguments[1]));
    const auto server = startRuntime(std::move(options));
    if (write(STDOUT_FILENO, "1", 1) != 1) return 1;
    for (;;) pause();
}
