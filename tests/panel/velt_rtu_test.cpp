// SPDX-License-Identifier: MIT
#include "tests/adapters/opcua/runtimeserver.h"
#include "tests/panel/veltprogram.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velt::cli {
namespace {

using namespace opcua::test;
using testing::HasSubstr;

class VeltRtuTest : public testing::Test {
protected:
    VeltRtuTest() {
        RuntimeServerOptions options;
        options.runtime = quickRuntime({"A", "B\tb", "Guasta", ""});
        options.server.shutdownNotice = std::chrono::milliseconds(0);
        server_ = startRuntime(std::move(options));
    }
    Outcome rtu(std::vector<std::string> arguments, const std::vector<std::string>& station = {}) {
        arguments.insert(arguments.begin(), "rtu");
        arguments.push_back(server_->endpoint());
        arguments.insert(arguments.end(), station.begin(), station.end());
        return runVelt(std::move(arguments));
    }
    std::unique_ptr<demo::OpcServer> server_;
};

TEST_F(VeltRtuTest, ListsConnectsAndDownloads) {
    const Outcome list = rtu({"list"});
    EXPECT_EQ(list.output,
              "Acquedotto dimostrativo, version 2.4.1\nA\t0\tDisconnesso\n"
              "B\\tb\t0\tDisconnesso\nGuasta\t0\tDisconnesso\n");
    EXPECT_EQ(list.exitCode, 0) << list.error;

    Outcome done = rtu({"connect"}, {"A"});
    EXPECT_EQ(done.output, "A\t1\tDialing\nA\t2\tConnesso\n");
    EXPECT_EQ(done.exitCode, 0) << done.error;
    EXPECT_EQ(rtu({"connect"}, {"A"}).exitCode, 0) << "it is already";
    done = rtu({"connect"}, {"B\tb"});
    EXPECT_EQ(done.exitCode, 1);
    EXPECT_THAT(done.error, HasSubstr("no modem is free"));
    done = rtu({"download"}, {"A"});
    EXPECT_EQ(done.output, "A\t5\tDownloading\nA\t2\tConnesso\n");
    EXPECT_EQ(done.exitCode, 0) << done.error;
    done = rtu({"disconnect"}, {"A"});
    EXPECT_EQ(done.output, "A\t4\tIn disconnessione\nA\t0\tDisconnesso\n");

    done = rtu({"download-all"});
    EXPECT_THAT(done.output, HasSubstr("A\t5\tDownloading\n"));
    EXPECT_THAT(done.output, HasSubstr("B\\tb\t5\tDownloading\n"));
    EXPECT_THAT(done.output, HasSubstr("Guasta\terror\tnessuna risposta\n"));
    EXPECT_EQ(done.exitCode, 1);
}

TEST_F(VeltRtuTest, SaysWhyItCannot) {
    Outcome failed = rtu({"connect"}, {"Z"});
    EXPECT_EQ(failed.exitCode, 1);
    EXPECT_THAT(failed.error, HasSubstr("no such station"));
    EXPECT_EQ(rtu({"disconnect"}, {"A"}).exitCode, 0) << "it is already";
    failed = rtu({"connect", "--seconds", "0.05"}, {"A"});
    EXPECT_EQ(failed.exitCode, 1);
    EXPECT_THAT(failed.error, HasSubstr("not done in time"));
    EXPECT_EQ(rtu({"watch", "--seconds", "0.3"}).exitCode, 0);
    EXPECT_EQ(rtu({"connect"}).exitCode, 2);
    EXPECT_EQ(rtu({"dial"}, {"A"}).exitCode, 2);
    const std::string endpoint = server_->endpoint();
    server_.reset();
    failed = runVelt({"rtu", "list", endpoint});
    EXPECT_EQ(failed.exitCode, 1);
    EXPECT_THAT(failed.error, HasSubstr("rifiuta la connessione"));
}

}  // namespace
}  // namespace velt::cli
