// SPDX-License-Identifier: MIT
#include "adapters/opcua/runtimeclientfactory.h"
#include "demo/serverport.h"
#include "platform/queueddispatcher.h"
#include "tests/adapters/opcua/runtimeserver.h"
#include "tests/connviewer/connviewerfixture.h"

namespace velt {
namespace {

using namespace std::chrono_literals;

class ConnViewerRuntimeTest : public ConnViewerFixture {
protected:
    ~ConnViewerRuntimeTest() override { viewer.reset(); }

    /// Lets time pass until `done`.
    bool until(const std::function<bool()>& done) {
        const auto end = std::chrono::steady_clock::now() + 15s;
        while (!done() && std::chrono::steady_clock::now() < end) {
            (void)dispatcher.runUntil(done, std::chrono::steady_clock::now() + 50ms);
            t.fire();
        }
        return done();
    }

    opcua::test::HandClock clock;
    QueuedDispatcher dispatcher;
    opcua::OpcUaRuntimeClientFactory factory{dispatcher};
};

TEST_F(ConnViewerRuntimeTest, ListsDialsAndTellsTheLoss) {
    const std::vector<std::string> stations = {"RTU01", "RTU02", "RTU03"};
    opcua::test::RuntimeServerOptions options;
    options.runtime = opcua::test::quickRuntime(stations);
    options.server.port = demo::freePort();
    options.server.shutdownNotice = 0ms;
    options.clock = clock.function();
    services.settingsFactory.files["VeltRTU.ini"]["Common"]["Hostname"] =
        "opc.tcp://127.0.0.1:" + std::to_string(options.server.port);
    services.realRuntimes = &factory;
    auto server = opcua::test::startRuntime(std::move(options));
    start();
    ASSERT_TRUE(until([&] { return listed() == stations; }));
    lvVRX.select(3);
    const auto shows = [this](const char* text) {
        return until([this, text] { return lblStato.Caption() == text; });
    };
    ASSERT_TRUE(shows("Disconnesso"));
    cmdConnetti.click();
    ASSERT_TRUE(shows("Dialing"));
    clock.pass(1s);
    ASSERT_TRUE(shows("Connesso"));
    server.reset();
    ASSERT_TRUE(until([this] { return t.Enabled(); }));
    EXPECT_EQ(lblLog.Caption(), "Runtime non attivo!!");
}

}  // namespace
}  // namespace velt
