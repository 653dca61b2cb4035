// SPDX-License-Identifier: MIT
#include "trendviewer/samplecsv.h"

#include "platform/date.h"
#include "tests/trendviewer/samplesof.h"

#include <gtest/gtest.h>

namespace velt {
namespace {

const ChartTime Start = Date::fromFields({2006, 3, 14, 10, 0, 0, 0}).milliseconds();

std::string csv(const ChartContents& view, const std::array<bool, 4>& wanted) {
    std::string text;
    writeSampleCsv(view, wanted, [&](std::string_view piece) {
        text += piece;
        return true;
    });
    return text;
}

TEST(SampleCsvTest, ExactlyTheSamplesInView) {
    ChartContents view;
    view.start = Start + 1000;
    view.end = Start + 3000;
    view.series[0] = {.name = "Livello; \"Vasca\"",
                      .unit = "m",
                      .samples = samplesOf({{0, 9}, {1, 0.1}, {1.5, Missing}, {3, -1234.5}, {4, 9}},
                                           SampleKind::Number, Start)};
    view.series[1] = {.name = "Nascosta", .samples = samplesOf({{2, 5}}, SampleKind::Whole, Start)};
    view.series[3] = {
        .name = "Portata",
        .unit = "m³/h",
        .samples = samplesOf({{2, static_cast<double>(0.1F)}}, SampleKind::Single, Start)};
    EXPECT_EQ(csv(view, {true, false, true, true}),
              "\xEF\xBB\xBFTrend;Data;Valore;Unità\r\n"
              "\"Livello; \"\"Vasca\"\"\";14/03/2006 10:00:01;0,1;m\r\n"
              "\"Livello; \"\"Vasca\"\"\";14/03/2006 10:00:01,500;;m\r\n"
              "\"Livello; \"\"Vasca\"\"\";14/03/2006 10:00:03;-1234,5;m\r\n"
              "Portata;14/03/2006 10:00:02;0,1;m³/h\r\n");
    EXPECT_EQ(csv(ChartContents{}, {true, true, true, true}),
              "\xEF\xBB\xBFTrend;Data;Valore;Unità\r\n");
}

TEST(SampleCsvTest, GoesOutInPiecesAndEndsWhenToldSo) {
    std::vector<std::pair<double, double>> values;
    for (int i = 0; i < 20'000; ++i) values.emplace_back(i, i);
    ChartContents view;
    view.end = 20'000'000;
    view.series[0] = {.name = "a", .samples = samplesOf(values)};
    int pieces = 0;
    std::size_t length = 0;
    writeSampleCsv(view, {true, true, true, true}, [&](std::string_view piece) {
        ++pieces;
        length += piece.size();
        return true;
    });
    EXPECT_GT(pieces, 5);
    EXPECT_EQ(length, csv(view, {true, true, true, true}).size());

    pieces = 0;
    writeSampleCsv(view, {true, true, true, true}, [&](std::string_view) { return ++pieces < 2; });
    EXPECT_EQ(pieces, 2);
}

}  // namespace
}  // namespace velt
