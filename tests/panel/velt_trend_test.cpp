// SPDX-License-Identifier: MIT
#include "tests/panel/veltprogram.h"
#include "tests/widgets/stationfiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velt::cli {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class VeltTrendTest : public testing::Test {
protected:
    VeltTrendTest() {
        const Date start = Date::fromFields({2006, 3, 14, 7, 30, 0, 0});
        std::vector<std::pair<double, Variant>> samples;
        for (int i = 0; i < 20; ++i) samples.emplace_back(i * 60, i / 2.0);
        samples[3].second = Null{};
        files.addTrend("RTU01", "Livello", start, samples);
    }
    Outcome trend(std::vector<std::string> more, const std::string& table = "Livello") {
        more.insert(more.begin(), {"trend", files.database("RTU01").string(), table});
        return runVelt(more);
    }
    /// Over the whole day.
    Outcome day(std::vector<std::string> more, const std::string& table = "Livello") {
        more.insert(more.end(), {"--from", "2006-03-14", "--to=2006-03-15T00:00"});
        return trend(more, table);
    }
    StationFiles files;
};

TEST_F(VeltTrendTest, TellsWhatItFound) {
    const Outcome outcome = day({});
    EXPECT_EQ(outcome.output,
              "Livello: 20 rows\n"
              "    first 2006-03-14 07:30:00, last 2006-03-14 07:49:00\n"
              "    one every 60 s\n"
              "    without a number: 1 row\n"
              "    minimum 0, maximum 9.5, mean 5.13235294117647, last 9.5\n");
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(trend({"--from=2006-03-14 07:30:30", "--to=2006-03-14 07:31"}).output,
              "Livello: 1 row\n"
              "    first 2006-03-14 07:31:00, last 2006-03-14 07:31:00\n"
              "    minimum 0.5, maximum 0.5, mean 0.5, last 0.5\n");
    EXPECT_EQ(trend({"--from=2007-01-01", "--to=2007-01-02"}).output, "Livello: 0 rows\n");
}

TEST_F(VeltTrendTest, WritesItsSamplesAndItsPicture) {
    const Outcome outcome = trend({"--csv", "--from=2006-03-14 07:32", "--to=2006-03-14 07:33"});
    EXPECT_EQ(outcome.output,
              "\xEF\xBB\xBFTrend;Data;Valore;Unità\r\n"
              "Livello;14/03/2006 07:32:00;1;\r\n"
              "Livello;14/03/2006 07:33:00;;\r\n");
    const std::string picture = files.settings() + ".png";
    const Outcome drawn = day({"--png", picture, "--size", "640x400"});
    EXPECT_EQ(drawn.exitCode, 0) << drawn.error;
    EXPECT_THAT(drawn.output + drawn.error, IsEmpty());
    const std::string bytes = test::bytesOf(picture);
    ASSERT_THAT(bytes, StartsWith("\x89PNG\r\n"));
    EXPECT_EQ(bytes.substr(16, 8), std::string("\0\0\x02\x80\0\0\x01\x90", 8)) << "its size";
}

TEST_F(VeltTrendTest, SaysWhatIsWrong) {
    const std::pair<std::vector<std::string>, const char*> usage[] = {
        {{"--from=2006-03-14"}, "--to is needed"},
        {{"--from=ieri", "--to=2006-03-14"}, "--from needs a date"},
        {{"--from=2006-03-15", "--to=2006-03-14"}, "--to is before --from"},
        {{"--from=2006-03-14", "--to=2006-03-15", "--csv", "--png=a.png"}, "exclude"},
        {{"--from=2006-03-14", "--to=2006-03-15", "--size=1x1", "--png=a.png"}, "--size needs"},
        {{"--from=2006-03-14", "--to=2006-03-15", "--size=800x600"}, "--size goes with --png"},
    };
    for (const auto& [arguments, message] : usage) {
        const Outcome outcome = trend(arguments);
        EXPECT_EQ(outcome.exitCode, 2) << message;
        EXPECT_THAT(outcome.error, HasSubstr(message));
    }
    const std::pair<Outcome, const char*> failures[] = {
        {day({}, "Assente"), "has no table Assente"},
        {day({}, "Livello vasca"), "has no table Livello vasca"},
        {day({"--png", files.config() + "/x/a.png"}), "Impossibile scrivere"},
        {runVelt({"trend", "nessuno.mdb", "T", "--from=2006-03-14", "--to=2006-03-15"}),
         "nessuno.mdb"},
    };
    for (const auto& [outcome, message] : failures) {
        EXPECT_EQ(outcome.exitCode, 1) << message;
        EXPECT_THAT(outcome.error, HasSubstr(message));
        EXPECT_THAT(outcome.output, IsEmpty());
    }
}

}  // namespace
}  // namespace velt::cli
