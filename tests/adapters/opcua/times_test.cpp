// SPDX-License-Identifier: MIT
#include "adapters/opcua/times.h"

#include "tests/errorof.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <limits>
#include <string>

namespace velt::opcua {
namespace {

class TimesTest : public testing::Test {
protected:
    TimesTest() { zone("CET-1CEST,M3.5.0,M10.5.0/3"); }
    ~TimesTest() override { zone(old_.c_str()); }
    static void zone(const char* name) {
        setenv("TZ", name, 1);
        tzset();
    }

private:
    std::string old_ = getenv("TZ") ? getenv("TZ") : "";
};

UA_DateTime utc(UA_Int16 year, UA_UInt16 month, UA_UInt16 day, UA_UInt16 hour, UA_UInt16 minute) {
    UA_DateTimeStruct fields{};
    fields.year = year;
    fields.month = month;
    fields.day = day;
    fields.hour = hour;
    fields.min = minute;
    return UA_DateTime_fromStruct(fields);
}

TEST_F(TimesTest, InstantsAreShownInCivilTime) {
    struct Case {
        UA_DateTime instant;
        Date::Fields local;
    };
    for (const Case& c : {
             Case{utc(2026, 1, 15, 11, 0), {2026, 1, 15, 12, 0}},
             {utc(2026, 7, 15, 11, 0), {2026, 7, 15, 13, 0}},
             {utc(2026, 3, 29, 0, 59), {2026, 3, 29, 1, 59}},  // the last minute of winter
             {utc(2026, 3, 29, 1, 0), {2026, 3, 29, 3, 0}},
             {utc(1898, 1, 1, 6, 0), {1898, 1, 1, 7, 0}},
             {utc(1700, 1, 1, 6, 0) - 1, {1700, 1, 1, 6, 59, 59, 999}},
             {utc(9999, 12, 31, 20, 0), {9999, 12, 31, 21, 0}},
         }) {
        EXPECT_EQ(toDate(c.instant).fields(), c.local) << c.local.year;
        EXPECT_EQ(toInstant(toDate(c.instant)) / UA_DATETIME_MSEC,
                  (c.instant - (c.instant % UA_DATETIME_MSEC)) / UA_DATETIME_MSEC);
    }
}

TEST_F(TimesTest, EveryNumberIsADate) {
    for (const UA_DateTime instant : {std::numeric_limits<UA_DateTime>::min(),
                                      std::numeric_limits<UA_DateTime>::max(), UA_DateTime{0}})
        EXPECT_EQ(toDate(instant).isValid(), instant == 0) << instant;
}

TEST_F(TimesTest, DatesThatOpcUaCannotExpressAreRefused) {
    for (const Date& date : {Date(1e7), Date(-1e7), Date::fromFields({1600, 12, 31}),
                             Date(std::numeric_limits<double>::quiet_NaN())})
        EXPECT_EQ(errorOf([&] { (void)toInstant(date); }), ErrorNumber::Overflow) << date.serial();
}

}  // namespace
}  // namespace velt::opcua
