// SPDX-License-Identifier: MIT
#include "bench/opcua/serverchild.h"

#include "tests/adapters/opcua/testserver.h"

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <memory>
#include <thread>

namespace velt::opcua::bench {
namespace {

using namespace std::chrono;

/// Every read of a variable gives the number of the present interval: the same work for the server
/// however many clients look, and a client can tell how old a value is.
void readPresent(UA_DataValue& value, int interval) {
    const auto now = duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
    const auto number = static_cast<UA_Int32>(interval > 0 ? now / interval : 0);
    UA_Variant_setScalarCopy(&value.value, &number, &UA_TYPES[UA_TYPES_INT32]);
    value.hasValue = true;
}

[[noreturn]] void serve(int stations, int variables, int interval, std::uint16_t port, int ready) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    static int shared;
    shared = interval;
    UA_DataSource source{};
    source.read = [](UA_Server*, const UA_NodeId*, void*, const UA_NodeId*, void*, UA_Boolean,
                     const UA_NumericRange*, UA_DataValue* value) -> UA_StatusCode {
        readPresent(*value, shared);
        return UA_STATUSCODE_GOOD;
    };
    const test::TestServer server(
        [&](test::Builder& build) {
            for (int s = 1; s <= stations; ++s) {
                const NodeId rtu = build.folder("RTU0" + std::to_string(s));
                for (int v = 0; v < variables; ++v)
                    UA_Server_setVariableNode_dataSource(
                        build.server(),
                        *build.variable("S" + std::to_string(s) + "_V" + std::to_string(v), rtu,
                                        std::int32_t{0}),
                        source);
            }
        },
        port);
    if (write(ready, "1", 1) != 1) _exit(1);
    for (;;) pause();
}

}  // namespace

ServerChild::ServerChild(int stations, int variables, int interval, std::uint16_t port) {
    int ready[2];
    if (pipe(ready) != 0) std::abort();
    process_ = fork();
    if (process_ == 0) serve(stations, variables, interval, port, ready[1]);
    close(ready[1]);
    char byte = 0;
    if (read(ready[0], &byte, 1) != 1) std::abort();
    close(ready[0]);
}

ServerChild::~ServerChild() {
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
}

}  // namespace velt::opcua::bench
