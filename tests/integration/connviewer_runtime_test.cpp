// SPDX-License-Identifier: MIT
#include "adapters/opcua/runtimeclientfactory.h"
#include "demo/serverport.h"
#include "platform/queueddispatcher.h"
#include "tests/adapters/opcua/runtimeserver.h"
#include "tests/connviewer/connviewerfixture.h"

namespace velt {
namespace {

using namespace std::chrono_literals;

const std::vector<std::string> Stations = {"RTU01", "RTU02", "RTU03", "RTU04"};

class ConnViewerRuntimeTest : public ConnViewerFixture {
protected:
    ConnViewerRuntimeTest() {
        services.realRuntimes = &factory;
        services.settingsFactory.files["VeltRTU.ini"]["Common"]["Hostname"] =
            "opc.tcp://127.0.0.1:" + std::to_string(port);
    }
    ~ConnViewerRuntimeTest() override { viewer.reset(); }

    void startRuntime() {
        opcua::test::RuntimeServerOptions options;
        options.runtime = opcua::test::quickRuntime(Stations);
        options.server.port = port;
        options.server.shutdownNotice = 0ms;
        options.clock = clock.function();
        server = opcua::test::startRuntime(std::move(options));
    }

    /// Lets time pass until `done`.
    bool until(const std::function<bool()>& done) {
        const auto end = std::chrono::steady_clock::now() + 15s;
        while (!done()) {
            if (std::chrono::steady_clock::now() > end) return false;
            (void)dispatcher.runUntil(done, std::chrono::steady_clock::now() + 50ms);
            t.fire();
        }
        return true;
    }

    const std::uint16_t port = demo::freePort();
    opcua::test::HandClock clock;
    QueuedDispatcher dispatcher;
    opcua::OpcUaRuntimeClientFactory factory{dispatcher};
    std::unique_ptr<demo::OpcServer> server;
};

TEST_F(ConnViewerRuntimeTest, DialsDownloadsHangsUpAndTellsTheLoss) {
    startRuntime();
    start();
    ASSERT_TRUE(until([this] { return listed() == Stations; }));
    EXPECT_EQ(lblProgetto.Caption(), "Acquedotto dimostrativo");
    lvVRX.select(3);
    const auto shows = [this](const char* text) {
        return until([this, text] { return lblStato.Caption() == text; });
    };
    ASSERT_TRUE(shows("Disconnesso"));
    cmdConnetti.click();
    ASSERT_TRUE(shows("Dialing"));
    clock.pass(1s);
    ASSERT_TRUE(shows("Connesso"));
    cmdDownload.click();
    ASSERT_TRUE(shows("Downloading"));
    clock.pass(1s);
    ASSERT_TRUE(shows("Connesso"));
    cmdDisconnetti.click();
    ASSERT_TRUE(shows("In disconnessione"));
    clock.pass(1s);
    ASSERT_TRUE(shows("Disconnesso"));

    server.reset();
    ASSERT_TRUE(until([this] { return t.Enabled(); }));
    EXPECT_EQ(lblLog.Caption(), "Runtime non attivo!!");
}

}  // namespace
}  // namespace velt
