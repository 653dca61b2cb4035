// SPDX-License-Identifier: MIT
#include "trendviewer/samplecsv.h"

#include "platform/date.h"
#include "tests/trendviewer/samplesof.h"

#include <gtest/gtest.h>

namespace velt {
namespace {

/// The lines behind the heads.
std::string csv(const ChartContents& view, const std::array<bool, 4>& wanted) {
    std::string text;
    writeSampleCsv(view, wanted, [&](std::string_view piece) {
        text += piece;
        return true;
    });
    const std::string heads = "\xEF\xBB\xBFTrend;Data;Valore;Unità\r\n";
    EXPECT_TRUE(text.starts_with(heads));
    return text.substr(heads.size());
}

TEST(SampleCsvTest, ExactlyTheSamplesInView) {
    const ChartTime start = Date::fromFields({2006, 3, 14, 10, 0, 0, 0}).milliseconds();
    const auto samples = samplesOf({{0, 9}, {1, 0.1}, {1.5, Missing}, {3, -1234.5}, {4, 9}},
                                   SampleKind::Number, start);
    const auto singles = samplesOf({{2, double{0.1F}}}, SampleKind::Single, start);
    ChartContents view;
    view.start = start + 1000;
    view.end = start + 3000;
    view.series[0] = {.name = "Livello; \"Vasca\"", .unit = "m", .samples = samples};
    view.series[1] = {.name = "Nascosta", .samples = samples};
    view.series[3] = {.name = "Portata", .unit = "m³/h", .samples = singles};
    EXPECT_EQ(csv(view, {true, false, true, true}),
              "\"Livello; \"\"Vasca\"\"\";14/03/2006 10:00:01;0,1;m\r\n"
              "\"Livello; \"\"Vasca\"\"\";14/03/2006 10:00:01,500;;m\r\n"
              "\"Livello; \"\"Vasca\"\"\";14/03/2006 10:00:03;-1234,5;m\r\n"
              "Portata;14/03/2006 10:00:02;0,1;m³/h\r\n");
}

TEST(SampleCsvTest, GoesOutInPiecesAndEndsWhenToldSo) {
    ChartContents view;
    view.end = 20'000'000;
    view.series[0] = {.name = "a",
                      .samples = samplesOf(std::vector<std::pair<double, double>>(20'000))};
    int pieces = 0;
    writeSampleCsv(view, {true}, [&](std::string_view) { return ++pieces > 0; });
    EXPECT_GT(pieces, 5);
    EXPECT_EQ(csv(view, {true}).size(), 20'000 * std::size("a;30/12/1899 00:00:00;0;\r"));
    pieces = 0;
    writeSampleCsv(view, {true}, [&](std::string_view) { return ++pieces < 2; });
    EXPECT_EQ(pieces, 2);
}

}  // namespace
}  // namespace velt
