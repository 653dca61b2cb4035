// SPDX-License-Identifier: MIT
#include "tests/adapters/opcua/serverprocess.h"

#include "demo/plantcatalog.h"
#include "demo/serverport.h"
#include "tests/adapters/opcua/runtimeserver.h"

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <stdexcept>

namespace velt::opcua::test {

ServerProcess::ServerProcess() : port_(demo::freePort()) {
    int ready[2];
    if (pipe(ready) != 0) throw std::runtime_error("pipe");
    process_ = fork();
    if (process_ == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);  // never outlives a test that crashed
        RuntimeServerOptions options;
        options.runtime = quickRuntime({"A", "B"});
        options.runtime.downloading = std::chrono::minutes(1);
        options.server.port = port_;
        options.more = std::make_unique<demo::PlantNodes>(demo::loadStations(1, Variables, 1),
                                                          std::chrono::milliseconds(5));
        const auto server = startRuntime(std::move(options));
        if (write(ready[1], "1", 1) == 1)
            for (;;) pause();
        _exit(1);
    }
    close(ready[1]);
    char byte = 0;
    const bool stands = read(ready[0], &byte, 1) == 1;
    close(ready[0]);
    if (!stands) throw std::runtime_error("the server did not come up");
}

ServerProcess::~ServerProcess() {
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
}

std::string ServerProcess::endpoint() const {
    return "opc.tcp://127.0.0.1:" + std::to_string(port_);
}

void ServerProcess::signal(int number) const {
    kill(process_, number);
    if (number == SIGSTOP) waitpid(process_, nullptr, WUNTRACED);  // it stops a moment later
}

}  // namespace velt::opcua::test
