// SPDX-License-Identifier: MIT
#include "adapters/qt/rowtext.h"

#include "tests/fakes/fakedatabase.h"

#include <gtest/gtest.h>

namespace velt::qt {
namespace {

TEST(RowTextTest, WritesWhatASpreadsheetReadsBack) {
    const std::vector<std::vector<Variant>> rows = {
        {Date::fromFields({2006, 3, 14, 7, 30, 0, 0}), "RTU01", 2.5},
        {Null{}, "tab\there", std::int16_t{-3}},
        {"two\nlines \"quoted\"", "\"begins", true},
        {"plain \"quoted\"", std::vector<double>{1, 2}, ""}};
    const fakes::FakeRowSet set({"a", "b", "c"}, rows);
    const auto text = [&set](const std::vector<RowRange>& ranges) {
        return tabSeparated(set, ranges, Locale::italian(), {});
    };
    EXPECT_EQ(text({{0, 1}}), "14/03/2006 07.30.00\tRTU01\t2,5\n\t\"tab\there\"\t-3");
    EXPECT_EQ(text({{2, 2}}), "\"two\nlines \"\"quoted\"\"\"\t\"\"\"begins\"\tVero");
    EXPECT_EQ(text({{0, 0}, {3, 3}}), "14/03/2006 07.30.00\tRTU01\t2,5\nplain \"quoted\"\t\t");
    EXPECT_EQ(text({}), "");
}

}  // namespace
}  // namespace velt::qt
