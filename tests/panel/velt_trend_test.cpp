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
    const std::string from = "--from=2006-03-14", to = "--to=2006-03-15";
    EXPECT_EQ(trend({from, to, "--size=800x600"}).exitCode, 2) << "goes with --png";
    EXPECT_EQ(trend({from, to, "--size=1x1", "--png=a.png"}).exitCode, 2);
    const Outcome unwritable = trend({from, to, "--png=" + files.config() + "/x/a.png"});
    EXPECT_EQ(unwritable.exitCode, 1);
    EXPECT_THAT(unwritable.error, HasSubstr("Impossibile scrivere"));
    const Outcome missing = trend({from, to}, "Livello vasca");
    EXPECT_EQ(missing.exitCode, 1);
    EXPECT_THAT(missing.error, HasSubstr("has no table Livello vasca"));
}

}  // namespace
}  // namespace velt::cli
