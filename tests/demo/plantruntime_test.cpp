// SPDX-License-Identifier: MIT
#include "demo/plantruntime.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

namespace velt::demo {
namespace {

using namespace std::chrono_literals;
using enum LineCode;
using testing::ElementsAre;

/// Answers when the test says so.
struct FakeDownloader final : Downloader {
    void start(const std::string& station) override { started.push_back(station); }
    std::optional<std::string> outcome(const std::string&) override { return answer; }
    std::vector<std::string> started;
    std::optional<std::string> answer = "";
};

class PlantRuntimeTest : public testing::Test {
protected:
    PlantRuntimeTest() {
        auto made = std::make_unique<FakeDownloader>();
        downloader = made.get();
        PlantRuntimeOptions options;
        options.stations = {"A", "B", "Guasta"};
        options.troubled = "Guasta";
        options.dialing = 3s;
        options.hangingUp = 1s;
        options.downloading = 4s;
        runtime = std::make_unique<PlantRuntime>(options, std::move(made), [this] { return now; });
        runtime->Errore.subscribe([this](const std::string& message, const std::string& station) {
            errors.push_back(station + ": " + message);
        });
    }
    void pass(std::chrono::milliseconds time) {
        now += time;
        runtime->advance();
    }
    LineCode a() const { return runtime->state(0); }
    LineCode b() const { return runtime->state(1); }
    LineCode troubled() const { return runtime->state(2); }

    PlantRuntime::Instant now{};
    FakeDownloader* downloader;
    std::unique_ptr<PlantRuntime> runtime;
    std::vector<std::string> errors;
};

TEST_F(PlantRuntimeTest, DialsAndHangsUpInTheirTime) {
    EXPECT_TRUE(runtime->connect("A"));
    EXPECT_EQ(a(), Dialing);
    pass(2999ms);
    EXPECT_EQ(a(), Dialing);
    pass(1ms);
    EXPECT_EQ(a(), Connected);
    runtime->connect("A");  // already is
    EXPECT_EQ(a(), Connected);
    runtime->disconnect("A");
    EXPECT_EQ(a(), Disconnecting);
    runtime->connect("A");
    pass(1s);
    EXPECT_EQ(a(), Disconnected);
    runtime->disconnect("A");
    EXPECT_THAT(errors, ElementsAre("A: disconnessione in corso", "A: stazione non connessa"));
    EXPECT_FALSE(runtime->connect("a"));
}

TEST_F(PlantRuntimeTest, ASecondStationFindsTheModemBusyUntilTheLineIsFree) {
    runtime->connect("A");
    runtime->connect("B");
    EXPECT_EQ(b(), ModemBusy);
    runtime->download("B");
    EXPECT_EQ(b(), ModemBusy);
    runtime->disconnect("A");  // still while it hangs up
    runtime->connect("B");
    EXPECT_EQ(b(), ModemBusy);
    pass(1s);
    EXPECT_EQ(b(), Disconnected);
    runtime->connect("B");
    EXPECT_EQ(b(), Dialing);
    pass(10s);
    EXPECT_EQ(b(), Connected);  // the download asked for while busy is forgotten
}

TEST_F(PlantRuntimeTest, DownloadsInEveryState) {
    runtime->download("A");  // disconnected: dials first and hangs up afterwards
    EXPECT_EQ(a(), Dialing);
    pass(3s);
    EXPECT_EQ(a(), Downloading);
    runtime->disconnect("A");
    runtime->download("A");
    pass(4s);
    EXPECT_EQ(a(), Disconnecting);
    pass(1s);
    EXPECT_EQ(a(), Disconnected);

    runtime->connect("A");
    runtime->download("A");  // dialing
    pass(3s);
    EXPECT_EQ(a(), Downloading);
    downloader->answer.reset();
    pass(100s);
    EXPECT_EQ(a(), Downloading);  // as long as the samples take
    downloader->answer = "disco pieno";
    pass(0s);
    EXPECT_EQ(a(), Connected);  // back to where it was
    runtime->download("A");     // connected
    EXPECT_EQ(a(), Downloading);
    EXPECT_THAT(downloader->started, ElementsAre("A", "A", "A"));
    EXPECT_THAT(errors, ElementsAre("A: download in corso", "A: disco pieno"));
}

TEST_F(PlantRuntimeTest, DownloadsAllOneAfterTheOther) {
    runtime->connect("B");
    pass(3s);
    runtime->downloadAll();
    runtime->downloadAll();  // changes nothing
    EXPECT_EQ(b(), Downloading);
    EXPECT_EQ(a(), Disconnected);
    pass(4s);
    EXPECT_EQ(b(), Disconnecting);  // the next one needs the line
    pass(1s);
    EXPECT_EQ(a(), Dialing);
    for (int i = 0; i < 20; ++i) pass(1s);
    EXPECT_EQ(a(), Disconnected);
    EXPECT_EQ(troubled(), Disconnected);
    EXPECT_THAT(downloader->started, ElementsAre("B", "A"));
    EXPECT_THAT(errors, ElementsAre("Guasta: nessuna risposta"));
}

TEST_F(PlantRuntimeTest, TheTroubledStationAnswersEveryOtherTime) {
    std::vector<LineCode> ends;
    for (int call = 0; call < 4; ++call) {
        runtime->connect("Guasta");
        pass(3s);
        ends.push_back(troubled());
        if (troubled() == Connected) runtime->disconnect("Guasta");
        pass(1s);
    }
    EXPECT_THAT(ends, ElementsAre(Disconnected, Connected, Disconnected, Connected));
    EXPECT_THAT(errors, ElementsAre("Guasta: nessuna risposta", "Guasta: linea occupata"));
}

}  // namespace
}  // namespace velt::demo
