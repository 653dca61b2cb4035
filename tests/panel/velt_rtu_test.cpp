// SPDX-License-Identifier: MIT
#include "tests/adapters/opcua/runtimeserver.h"
#include "tests/panel/veltprogram.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velt::cli {
namespace {

using namespace opcua::test;
using testing::HasSubstr;

TEST(VeltRtuTest, ListsConnectsDownloadsAndSaysWhyItCannot) {
    RuntimeServerOptions options;
    options.runtime = quickRuntime({"A", "B\tb", "Guasta", ""});
    options.server.shutdownNotice = std::chrono::milliseconds(0);
    auto server = startRuntime(std::move(options));
    const std::string endpoint = server->endpoint();
    const std::vector<std::string> none, a = {"A"};
    struct Case {
        std::vector<std::string> verb, station;
        int exitCode;
        const char* output;
        const char* error;
    };
    for (const Case& c : std::vector<Case>{
             {{"list"},
              none,
              0,
              "Acquedotto dimostrativo, version 2.4.1\nA\t0\tDisconnesso\n"
              "B\\tb\t0\tDisconnesso\nGuasta\t0\tDisconnesso\n",
              ""},
             {{"connect", "--seconds", "0.05"}, a, 1, "", "not done in time"},
             {{"connect"}, a, 0, "A\t2\tConnesso\n", ""},
             {{"connect"}, {"B\tb"}, 1, "", "no modem is free"},
             {{"download"}, a, 0, "A\t5\tDownloading\nA\t2\tConnesso\n", ""},
             {{"disconnect"}, a, 0, "A\t4\tIn disconnessione\nA\t0\tDisconnesso\n", ""},
             {{"download-all"}, none, 1, "Guasta\terror\tnessuna risposta\n", ""},
             {{"download-all"}, none, 0, "B\\tb\t5\tDownloading\n", ""},
             {{"watch", "--seconds", "0.3"}, none, 0, "A\t0\tDisconnesso\n", ""},
             {{"connect"}, {"Z"}, 1, "", "no such station"},
         }) {
        std::vector<std::string> arguments = c.verb;
        arguments.insert(arguments.begin(), "rtu");
        arguments.push_back(endpoint);
        arguments.insert(arguments.end(), c.station.begin(), c.station.end());
        const Outcome done = runVelt(arguments);
        EXPECT_EQ(done.exitCode, c.exitCode) << c.verb.front() << done.error;
        EXPECT_THAT(done.output, HasSubstr(c.output)) << c.verb.front();
        EXPECT_THAT(done.error, HasSubstr(c.error)) << c.verb.front();
    }
    server.reset();
    const Outcome failed = runVelt({"rtu", "list", endpoint});
    EXPECT_EQ(failed.exitCode, 1);
    EXPECT_THAT(failed.error, HasSubstr("rifiuta la connessione"));
}

}  // namespace
}  // namespace velt::cli
