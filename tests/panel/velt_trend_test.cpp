// SPDX-License-Identifier: MIT
#include "tests/panel/veltprogram.h"
#include "tests/widgets/stationfiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velt::cli {
namespace {

using testing::HasSubstr;
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
    StationFiles files;
};

TEST_F(VeltTrendTest, TellsExportsAndDrawsWhatItFound) {
    EXPECT_EQ(trend({"--from", "2006-03-14", "--to=2006-03-15T00:00"}).output,
              "Livello: 20 rows\n"
              "    first 2006-03-14 07:30:00, last 2006-03-14 07:49:00\n"
              "    one every 60 s\n"
              "    without a number: 1 row\n"
              "    minimum 0, maximum 9.5, mean 5.13235294117647, last 9.5\n");
    EXPECT_EQ(trend({"--from=2007-01-01", "--to=2007-01-02"}).output, "Livello: 0 rows\n");
    EXPECT_EQ(trend({"--csv", "--from=2006-03-14 07:31:30", "--to=2006-03-14 07:33"}).output,
              "\xEF\xBB\xBFTrend;Data;Valore;Unità\r\n"
              "Livello;14/03/2006 07:32:00;1;\r\n"
              "Livello;14/03/2006 07:33:00;;\r\n");
    const std::string picture = files.settings() + ".png";
    const Outcome drawn =
        trend({"--png", picture, "--size=640x400", "--from=2006-03-14", "--to=2006-03-15"});
    EXPECT_EQ(drawn.output + drawn.error, "");
    const std::string bytes = test::bytesOf(picture);
    ASSERT_THAT(bytes, StartsWith("\x89PNG\r\n"));
    EXPECT_EQ(bytes.substr(16, 8), std::string("\0\0\x02\x80\0\0\x01\x90", 8)) << "its size";
}

TEST_F(VeltTrendTest, SaysWhatIsWrong) {
    struct Case {
        std::vector<std::string> arguments;
        int exitCode;
        const char* message;
        const char* table = "Livello";
    };
    const Case cases[] = {
        {{}, 2, "--to is needed"},
        {{"--to=ieri"}, 2, "--to needs a date"},
        {{"--to=2006-03-13"}, 2, "--to is before --from"},
        {{"--to=2006-03-15", "--csv", "--png=a.png"}, 2, "exclude"},
        {{"--to=2006-03-15", "--size=1x1", "--png=a.png"}, 2, "--size needs"},
        {{"--to=2006-03-15", "--size=800x600"}, 2, "--size goes with --png"},
        {{"--to=2006-03-15", "--png=" + files.config() + "/x/a.png"}, 1, "Impossibile scrivere"},
        {{"--to=2006-03-15"}, 1, "has no table Livello vasca", "Livello vasca"},
    };
    for (const Case& c : cases) {
        std::vector<std::string> arguments = c.arguments;
        arguments.emplace_back("--from=2006-03-14");
        const Outcome outcome = trend(arguments, c.table);
        EXPECT_EQ(outcome.exitCode, c.exitCode) << c.message;
        EXPECT_THAT(outcome.error, HasSubstr(c.message));
        EXPECT_EQ(outcome.output, "");
    }
    EXPECT_THAT(
        runVelt({"trend", "nessuno.mdb", "T", "--from=2006-03-14", "--to=2006-03-15"}).error,
        HasSubstr("nessuno.mdb"));
}

}  // namespace
}  // namespace velt::cli
