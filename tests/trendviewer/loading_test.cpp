// SPDX-License-Identifier: MIT
#include "trendviewer/loading.h"

#include "tests/errorof.h"
#include "tests/trendviewer/trendviewerfixture.h"

namespace velt {
namespace {

TEST(LoadingTest, ANameOfTwoWordsIsRefused) {
    fakes::FakeServices services;
    fakes::FakeDatabase& database = services.fakeDatabase;
    const Date start = Date::fromFields({2006, 3, 14, 10, 0, 0, 0});
    const Date end = start.addSeconds(60);
    const auto read = [&] {
        return leggiTrend(database, services.recordsets(), apriDatabase(database, "a.mdb"),
                          "Due Parole", start, end);
    };
    const RuntimeError error = raisedBy(read);
    EXPECT_TRUE(error.is(ErrorNumber::SyntaxError)) << "a blank would make two names of it";
    EXPECT_EQ(error.Description(),
              "Il nome di una tabella di trend non può contenere spazi (tabella \"Due Parole\")");
    database.missingTables = {"Due Parole"};
    EXPECT_EQ(read(), nullptr) << "a table that does not exist is no error";
}

TEST(LoadingTest, AWindowTooLongAndOneThatIsStoppedDrawNothing) {
    TrendLoading loading;
    loading.start = Date::fromFields({1900, 1, 1});
    loading.end = Date::fromFields({2000, 1, 1});
    EXPECT_EQ(errorOf([&] { loading.run(); }), ErrorNumber::Overflow) << "beyond 32 bits";
    loading.end = loading.start.addSeconds(60);
    loading.rows[0] = trendRows(loading.start, {{0, 1.0}});
    std::stop_source source;
    source.request_stop();
    loading.run(source.get_token());
    EXPECT_EQ(loading.contents, nullptr);
    loading.run();
    EXPECT_NE(loading.contents, nullptr);
}

}  // namespace
}  // namespace velt
