// SPDX-License-Identifier: MIT
#include "tests/adapters/opcua/testserver.h"
#include "tests/filebytes.h"
#include "tests/panel/veltprogram.h"
#include "tests/tempfolder.h"

#include <gmock/gmock.h>

namespace velt::cli {
namespace {

using opcua::NodeId;
using opcua::test::Builder;
using opcua::test::TestServer;
using testing::AllOf;
using testing::HasSubstr;

class VeltOpcTest : public testing::Test {
protected:
    Outcome opc(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), "opc");
        return runVelt(std::move(arguments));
    }

    TestServer server_{[](Builder& build) {
        const NodeId rtu = build.folder("RTU01");
        build.variable("Livello", rtu, 1.5, true);
        build.variable("Testo", build.folder("Sotto", rtu), "a\tb\x1B", true);
        build.folder("RTU02");
        NodeId deep = rtu;
        for (int i = 0; i < 33; ++i) deep = build.folder("x", deep);
    }};
    std::string endpoint_ = server_.endpoint();
};

TEST_F(VeltOpcTest, BrowsesWatchesAndWrites) {
    EXPECT_EQ(opc({"browse", endpoint_}).output, "RTU01\nRTU02\n");
    const Outcome browsed = opc({"browse", endpoint_, "RTU01"});
    EXPECT_EQ(browsed.output, "RTU01.Livello\t5\nRTU01.Sotto.Testo\t8\n");
    EXPECT_EQ(browsed.error, "velt: RTU01: elenco incompleto, oltre 32 livelli non si cerca\n");
    const Outcome outcome = opc({"watch", "--seconds", "2.5", endpoint_, "RTU01", "RTU02"});
    EXPECT_EQ(outcome.exitCode, 0) << outcome.error;
    EXPECT_THAT(outcome.output, AllOf(HasSubstr("RTU01.Livello\t1,5\tGood\t"),
                                      HasSubstr("RTU01.Sotto.Testo\ta\\tb\\x1B\tGood\t")));
    EXPECT_EQ(opc({"write", endpoint_, "RTU01.Livello", "2,75"}).exitCode, 0);
    server_.run(
        [](Builder& build) { EXPECT_EQ(build.read(Builder::named("Livello")), Variant(2.75)); });
}

TEST_F(VeltOpcTest, FailuresAreTold) {
    const TempFolder folder;
    const std::string config = (folder / "opc.ini").string();
    test::writeBytes(config, "[OPC]\nSecurity=Segn\n");
    const std::pair<std::vector<std::string>, const char*> cases[] = {
        {{"write", endpoint_, "RTU01.Livello", "2.75"}, "Tipo non corrispondente"},
        {{"write", endpoint_, "RTU01.Manca", "1"}, "non esiste"},
        {{"browse", endpoint_, "RTU09"}, "no branch RTU09"},
        {{"browse", "127.0.0.1:" + std::to_string(opcua::test::freePort())}, "velt: error"},
        {{"browse", "--config", config, endpoint_}, "riga 2"},
    };
    for (const auto& [line, problem] : cases) {
        const Outcome outcome = opc(line);
        EXPECT_EQ(outcome.exitCode, 1) << testing::PrintToString(line);
        EXPECT_THAT(outcome.error, HasSubstr(problem)) << testing::PrintToString(line);
    }
}

}  // namespace
}  // namespace velt::cli
