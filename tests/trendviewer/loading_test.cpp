// SPDX-License-Identifier: MIT
#include "trendviewer/loading.h"

#include "tests/trendviewer/trendviewerfixture.h"
#include "trendviewer/vista.h"

#include <gmock/gmock.h>

namespace velt {
namespace {

using testing::HasSubstr;

class LoadingTest : public testing::Test {
protected:
    std::shared_ptr<const RowSet> read(const std::string& table) {
        return leggiTrend(services.fakeDatabase, services.recordsets(),
                          services.fakeDatabase.GetConnection("a.mdb", "", "", 60, 3, 3), table,
                          start, start.addSeconds(60));
    }
    /// Number and description of the error that reading `table` ends in.
    std::pair<int, std::string> errorOf(const std::string& table) {
        try {
            static_cast<void>(read(table));
        } catch (const RuntimeError& error) {
            return {error.Number(), error.Description()};
        }
        return {};
    }
    const Date start = Date::fromFields({2006, 3, 14, 10, 0, 0, 0});
    fakes::FakeServices services;
};

TEST_F(LoadingTest, TheNameStandsInTheQueryAsItIs) {
    EXPECT_EQ(
        CreaQuery(services.fakeDatabase, "ORDER", start, start.addSeconds(60)),
        "SELECT Data, Valore FROM ORDER WHERE " +
            services.fakeDatabase.DateCondition("Data", true, start, true, start.addSeconds(60)) +
            " ORDER BY Data");
}

TEST_F(LoadingTest, AnErrorNamesTheTable) {
    services.fakeDatabase.failures.emplace(
        CreaQuery(services.fakeDatabase, "ORDER", start, start.addSeconds(60)),
        RuntimeError(ErrorNumber::SyntaxError, "Errore di sintassi"));
    EXPECT_EQ(errorOf("ORDER"),
              std::pair(3075, std::string("Errore di sintassi (tabella \"ORDER\")")));
    const auto [number, description] = errorOf("Due Parole");
    EXPECT_EQ(number, 3075);
    EXPECT_THAT(description, HasSubstr("\"Due Parole\""));
    services.fakeDatabase.missingTables = {"Due Parole"};
    EXPECT_EQ(read("Due Parole"), nullptr) << "a table that does not exist is no error";
}

TEST_F(LoadingTest, AWindowBeyond32BitsOfSecondsIsAnError) {
    TrendLoading loading;
    loading.start = Date::fromFields({1900, 1, 1});
    loading.end = Date::fromFields({2000, 1, 1});
    EXPECT_THROW(loading.run(), RuntimeError);
}

TEST_F(LoadingTest, AStoppedOneHasNothingToDraw) {
    TrendLoading loading;
    loading.start = start;
    loading.end = start.addSeconds(60);
    loading.rows[0] = trendRows(start, {{0, 1.0}});
    std::stop_source source;
    source.request_stop();
    loading.run(source.get_token());
    EXPECT_EQ(loading.contents, nullptr);
    loading.run();
    EXPECT_TRUE(loading.contents);
}

TEST_F(LoadingTest, DaysOfOtherLengthsThanTwentyFourHours) {
    // On the day that the clocks go back, the hour from 2 to 3 is written twice; on the day that
    // they go forward it is missing. The window is a day of civil time both times.
    std::vector<std::pair<double, Variant>> back;
    std::vector<std::pair<double, Variant>> forward;
    for (int minute = 0; minute < 24 * 60; ++minute) {
        const bool twice = minute >= 120 && minute < 180;
        back.emplace_back(minute * 60, 1.0);
        if (twice)
            back.emplace_back(minute * 60, 2.0);
        else
            forward.emplace_back(minute * 60, 1.0);
    }
    TrendLoading loading;
    loading.start = Date::fromFields({2006, 10, 29});
    loading.end = loading.start.addSeconds(86400);
    loading.grafico.Penna(0).Selezionata = true;
    loading.grafico.Penna(1).Selezionata = true;
    loading.rows[0] = trendRows(loading.start, back);
    loading.rows[1] = trendRows(loading.start, forward);
    loading.run();
    const auto& series = loading.contents->series;
    EXPECT_EQ(series[0].curve->statistics.count, 25u * 60);
    EXPECT_EQ(series[0].samples->runs.size(), 1u);
    EXPECT_EQ(series[0].curve->statistics.maximum, 2);
    EXPECT_EQ(series[1].curve->statistics.count, 23u * 60);
    EXPECT_EQ(series[1].samples->runs.size(), 2u) << "the missing hour breaks the line";
    EXPECT_EQ(loading.grafico.PeriodoCampionamento(), 60);
    EXPECT_EQ(loading.grafico.PuntiGrafico(), 1000);
    EXPECT_DOUBLE_EQ(loading.grafico.SecondiPerPunto(), 86.4);
}

}  // namespace
}  // namespace velt
