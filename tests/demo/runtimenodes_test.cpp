// SPDX-License-Identifier: MIT
#include "demo/runtimenodes.h"

#include "demo/plantserver.h"
#include "demo/runtimemodel.h"
#include "tests/demo/nodesettext.h"
#include "tests/filebytes.h"

#include <cstdlib>

namespace velt::demo {
namespace {

class RuntimeNodesTest : public testing::Test {
protected:
    void start() {
        PlantServerOptions options;
        options.loadStations = 2;
        options.loadVariables = 1;
        options.server.shutdownNotice = std::chrono::milliseconds(0);
        server = startPlantServer(std::move(options), clock);
        ASSERT_EQ(client.connect(server->endpoint()), UA_STATUSCODE_GOOD);
        UA_String uri = opcua::borrowed(runtimemodel::Space);
        ASSERT_EQ(UA_Client_NamespaceGetIndex(client.get(), &uri, &space), UA_STATUSCODE_GOOD);
    }
    SystemClock clock;
    std::unique_ptr<OpcServer> server;
    UaClient client;
    std::uint16_t space = 0;
};

TEST_F(RuntimeNodesTest, ThePublishedModelIsThatOfTheServer) {
    start();
    const std::string actual = nodeSetText(
        client, space, runtimemodel::Space,
        {runtimemodel::RuntimeType, runtimemodel::StazioneType, runtimemodel::ErroreEventType});
    // After a change that was meant the published file is written anew: NODESET_OUT says where.
    if (const char* out = std::getenv("NODESET_OUT")) test::writeBytes(out, actual);
    EXPECT_EQ(actual, test::bytesOf(NODESET_FILE));
}

TEST_F(RuntimeNodesTest, CallsReachTheRuntime) {
    start();
    const UA_NodeId runtime = UA_NODEID_STRING(space, const_cast<char*>("Runtime"));
    const UA_NodeId connect = UA_NODEID_NUMERIC(space, runtimemodel::ConnettiRTU);
    const auto call = [&](const PlantValue& argument) {
        opcua::OwnedVariant input;
        EXPECT_EQ(toUa(argument, *input), UA_STATUSCODE_GOOD);
        return UA_Client_call(client.get(), runtime, connect, 1, input.get(), nullptr, nullptr);
    };
    EXPECT_EQ(call(std::string("RTU02")), UA_STATUSCODE_GOOD);
    EXPECT_EQ(call(std::string("RTU99")), UA_STATUSCODE_BADNOTFOUND);
    EXPECT_EQ(call(std::int32_t{2}), UA_STATUSCODE_BADINVALIDARGUMENT);
}

}  // namespace
}  // namespace velt::demo
