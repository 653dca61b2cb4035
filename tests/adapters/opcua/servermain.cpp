// SPDX-License-Identifier: MIT
// The server of ServerProcess: opcua_test_server PORT. Writes a byte once it stands.
#include "tests/adapters/opcua/serverprocess.h"
#include "tests/adapters/opcua/testserver.h"

#include <sys/prctl.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>

int main(int count, char** arguments) {
    using namespace velt::opcua::test;
    if (count != 2) return 2;
    prctl(PR_SET_PDEATHSIG, SIGKILL);  // never outlives a test that crashed
    std::vector<velt::opcua::NodeId> nodes;
    TestServer server(
        [&nodes](Builder& build) {
            const auto rtu = build.folder("RTU01");
            for (std::size_t i = 0; i < ServerProcess::Variables; ++i)
                nodes.push_back(build.variable("V" + std::to_string(i), rtu, 0, true));
        },
        {}, static_cast<std::uint16_t>(std::atoi(arguments[1])));
    if (write(STDOUT_FILENO, "1", 1) != 1) return 1;
    for (int value = 1;; ++value) {
        server.run([&](Builder& build) {
            for (const auto& node : nodes) build.write(node, value);
        });
        usleep(5000);
    }
}
