// SPDX-License-Identifier: MIT
// How values are copied, sorted and coloured.
#include "adapters/qt/colors.h"
#include "adapters/qt/rowtext.h"
#include "adapters/qt/sorttext.h"
#include "tests/fakes/fakedatabase.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace velt::qt {
namespace {

TEST(RowTextTest, WritesWhatASpreadsheetReadsBack) {
    const fakes::FakeRowSet set({"a", "b", "c"},
                                {{Date::fromFields({2006, 3, 14, 7, 30, 0, 0}), "RTU01", 2.5},
                                 {Null{}, "tab\there", std::int16_t{-3}},
                                 {"two\nlines \"quoted\"", "\"begins", true},
                                 {"plain \"quoted\"", std::vector<double>{1, 2}, ""}});
    const std::pair<std::vector<RowRange>, const char*> cases[] = {
        {{{0, 1}}, "14/03/2006 07.30.00\tRTU01\t2,5\n\t\"tab\there\"\t-3"},
        {{{2, 2}}, "\"two\nlines \"\"quoted\"\"\"\t\"\"\"begins\"\tVero"},
        {{{0, 0}, {3, 3}}, "14/03/2006 07.30.00\tRTU01\t2,5\nplain \"quoted\"\t\t"},
        {{}, ""}};
    for (const auto& [ranges, expected] : cases)
        EXPECT_EQ(tabSeparated(set, ranges, Locale::italian(), {}), expected);
}

TEST(SortTextTest, SortsAsAnOperatorExpects) {
    const SortText::Rules rules(Locale::italian());
    const std::vector<std::string> cases[] = {
        {"", "-3", "0", "9", "9,5", "10", "1.000", "1,5E+20", "Vero"},
        {"RTU1.Livello", "rtu2.livello", "RTU10.Livello", "Ümlaut", "zeta"},
        {"28/02/2006 23.59.59", "14/03/2006 07.00.00", "14/03/2006 18.00.00", "01/01/2007"},
        {"10", "12.5"}};  // the second is a text, for the point is no decimal sign here
    for (const auto& expected : cases) {
        std::vector<std::string> texts(expected.rbegin(), expected.rend());
        std::ranges::stable_sort(texts, {},
                                 [&](const std::string& text) { return SortText(text, rules); });
        EXPECT_EQ(texts, expected);
    }
}

TEST(ColorsTest, ReadsOleColours) {
    QPalette palette;
    palette.setColor(QPalette::Button, QColor(1, 2, 3));
    palette.setColor(QPalette::Window, QColor(7, 8, 9));
    const std::pair<OleColor, QColor> cases[] = {{0x000000FF, QColor(255, 0, 0)},
                                                 {0x00112233, QColor(0x33, 0x22, 0x11)},
                                                 {0x8000000F, QColor(1, 2, 3)},
                                                 {0x800000FF, QColor(7, 8, 9)}};
    for (const auto& [color, expected] : cases) EXPECT_EQ(toQColor(color, palette), expected);
    EXPECT_EQ(toOleColor(QColor(0x33, 0x22, 0x11)), 0x00112233U);
}

}  // namespace
}  // namespace velt::qt
