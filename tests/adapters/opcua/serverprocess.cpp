// SPDX-License-Identifier: MIT
#include "tests/adapters/opcua/serverprocess.h"

#include "tests/adapters/opcua/testserver.h"

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <stdexcept>

namespace velt::opcua::test {

ServerProcess::ServerProcess() : port_(freePort()) {
    int ready[2];
    if (pipe(ready) != 0) throw std::runtime_error("pipe");
    std::string program = OPCUA_TEST_SERVER;
    std::string port = std::to_string(port_);
    process_ = fork();
    if (process_ == 0) {
        dup2(ready[1], STDOUT_FILENO);
        close(ready[0]);
        close(ready[1]);
        char* const arguments[] = {program.data(), port.data(), nullptr};
        execv(program.c_str(), arguments);
        _exit(127);
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

void ServerProcess::signal(int number) const { kill(process_, number); }

}  // namespace velt::opcua::test
