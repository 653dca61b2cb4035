// SPDX-License-Identifier: MIT
// The items of an OPC viewer: listed, shown, written.
#include "tests/opcviewer/opcviewerfixture.h"

#include <limits>

namespace velt {
namespace {

TEST_F(OPCViewerTest, EachRefreshListsTheTickedStationsUnderNewHandles) {
    viewer.Show();
    lvVRX.Checked(1, true);
    (void)log();
    cmdAggiornaDati.click();
    EXPECT_EQ(log(), Texts({"CreateBrowser", "MoveToRoot", "ShowBranches", "ExpectBranches RTU01",
                            "CreateBrowser", "MoveToRoot", "MoveDown RTU01", "ShowLeafs",
                            "GetItemID Livello", "GetItemID Rotto", "GetItemID Soglia",
                            "ExpectItems RTU01.Livello RTU01.Rotto RTU01.Soglia",
                            "AddItem RTU01.Livello 1", "AddItem RTU01.Rotto 2",
                            "AddItem RTU01.Soglia 3", "ExpectationsDone"}));
    EXPECT_EQ(table(), Texts(All.begin(), All.begin() + 3));
    cmdSeleziona.click();
    cmdAggiornaDati.click();
    EXPECT_EQ(log().at(0), "Items.Remove 2");
    EXPECT_EQ(lvItem.rows.front().key + lvItem.rows.back().key, "I4I7");
    cmdDeseleziona.click();
    cmdAggiornaDati.click();
    EXPECT_EQ(table(), Texts());
    // A group without items leaves the table as it is.
    plant.branches = {{"RTU01", {{"Rotto", vartype::R8, true}}}};
    cmdSeleziona.click();
    cmdAggiornaDati.click();
    cmdAggiornaDati.click();
    EXPECT_EQ(table(), Texts({"I8 errore_gialla RTU01.Rotto", "I9 errore_gialla RTU01.Rotto"}));
    EXPECT_THAT(log(), Not(Contains("Items.Remove 0")));
}

TEST_F(OPCViewerTest, WhatFailsIsLeftOutOrRefused) {
    const auto refreshed = [this] {
        cmdAggiornaDati.click();
        std::string items;
        for (const auto& row : lvItem.rows)
            items += row.texts[0] + (row.icon == "verde" ? " " : "? ");
        return items;
    };
    showAll();
    failAt("MoveDown RTU01");
    EXPECT_EQ(refreshed(), "RTU02.Pompa ");
    failAt("GetItemID Rotto");
    EXPECT_EQ(refreshed(), "RTU01.Livello RTU01.Soglia RTU02.Pompa ");
    for (const char* hint :
         {"ExpectBranches RTU01 RTU02", "ExpectItems RTU02.Pompa", "ExpectationsDone"}) {
        failAt(hint);
        EXPECT_EQ(refreshed(), "RTU01.Livello RTU01.Rotto? RTU01.Soglia RTU02.Pompa ") << hint;
    }
    failAt("AddItem RTU01.Livello 21");
    EXPECT_EQ(refreshed(), "RTU01.Livello? RTU01.Rotto? RTU01.Soglia RTU02.Pompa ");
    plant.branches.erase(plant.branches.begin());  // the list still shows it, ticked
    EXPECT_EQ(refreshed(), "RTU02.Pompa ");
    failAt("ShowBranches");
    EXPECT_THROW((void)refreshed(), RuntimeError);
    EXPECT_EQ(lvItem.Count(), 0) << "the old items are gone by then";
    cmdEliminaTutto.click();
    failAt("Groups.Add Group");
    EXPECT_EQ(refreshed(), "RTU02.Pompa? ");
    EXPECT_THAT(messages, IsEmpty());
}

TEST_F(OPCViewerTest, ACancelledStepEndsTheRefresh) {
    viewer.Show();
    cmdSeleziona.click();
    const std::pair<const char*, int> cases[] = {
        {"ExpectBranches RTU01 RTU02", 0},
        {"MoveDown RTU01", 0},
        {"GetItemID Rotto", 0},
        {"ExpectItems RTU01.Livello RTU01.Rotto RTU01.Soglia", 0},
        {"AddItem RTU01.Rotto 2", 1}};
    for (const auto& [step, rows] : cases) {
        failAt(step, RuntimeError(ErrorNumber::Cancelled));
        EXPECT_THROW(cmdAggiornaDati.click(), RuntimeError) << step;
        EXPECT_EQ(lvItem.Count(), rows) << step;
    }
    EXPECT_EQ(plant.log.back(), "ExpectationsDone") << "taken back";
}

TEST_F(OPCViewerTest, DataTouchOnlyTheRowsThatTheyName) {
    showAll();
    const Date time = Date::fromFields({2006, 3, 14, 7, 30, 0, 0});
    change({0,
            {3, 99, 1},
            {std::vector<std::int32_t>{1, 2}, 5.0, -0.5},
            {193, 192, 192},
            {time, time, Date(3e9)}});
    EXPECT_EQ(table(),
              Texts({"I1 verde* RTU01.Livello|-0,5|Good|#3000000000", All[1],
                     "I3 verde* RTU01.Soglia|(1; 2)|Quality N° 193|14/03/2006 07.30.00", All[3]}));
    // Updates for which a list is too short are skipped.
    change({0, {1, 4}, {1.0, 2.0}, {192}, {time, time}});
    EXPECT_EQ(table()[0], "I1 verde* RTU01.Livello|1|Good|14/03/2006 07.30.00");
    EXPECT_EQ(table()[3], All[3]);
}

TEST_F(OPCViewerTest, HandlesGrowUntilTheyOverflow) {
    ItemHandles handles(std::numeric_limits<std::int32_t>::max() - 1);
    EXPECT_EQ(handles.ProssimoHandle(), std::numeric_limits<std::int32_t>::max());
    for (int again = 0; again < 2; ++again)
        EXPECT_EQ(errorOf([&] { (void)handles.ProssimoHandle(); }), ErrorNumber::Overflow);
}

using Message = fakes::FakeMessageBox::Message;

TEST_F(OPCViewerTest, WritesIntoTheSelectedItemIfThereIsOne) {
    const int none = 0, rotto = 2, soglia = 3;  // rows
    write(none, "12");
    showAll();
    write(soglia, "");
    write(none, "12");
    write(rotto, "12");
    EXPECT_THAT(plant.written, IsEmpty());
    cmdAggiornaDati.click();  // handles are no row numbers any more
    write(soglia, "12;13");
    EXPECT_THAT(plant.written,
                ElementsAre(std::pair(std::string("RTU01.Soglia"), Variant(std::int16_t{12}))));
    plant.branches = {{"RTU01", {{"Rotto", vartype::R8, true}}}};
    cmdAggiornaDati.click();
    cmdEliminaTutto.click();
    ASSERT_EQ(lvItem.Count(), 1) << "the row of the refused item outlives its group";
    write(1, "12");
    EXPECT_EQ(plant.written.size(), 1u);
    EXPECT_THAT(messages, IsEmpty());
}

TEST_F(OPCViewerTest, TellsWhyNothingWasWritten) {
    plant.branches = {
        {"RTU01", {{"I2", 2}, {"Variant", 12}, {"Lista", 8195}, {"Letto", 2}, {"Fermo", 2}}}};
    showAll();
    plant.failures.emplace("Write RTU01.Letto", RuntimeError(-1073479672, "Negato"));
    plant.failures.emplace("Write RTU01.Fermo", RuntimeError(ErrorNumber::TypeMismatch));
    const Message format{"Formato non valido", 48, "Errore"};
    const std::tuple<int, const char*, Message> cases[] = {
        {1, "abc", format},
        {1, "40000", {RuntimeError(ErrorNumber::Overflow).Description(), 48, "Error"}},
        {2, "1", {"Tipo dato non gestito!", 48, "Errore"}},
        {3, "1;2;", format},
        {4, "1", {"Negato", 48, "Error"}},
        {5, "1", format},  // also when it is the server that refuses the format
    };
    for (const auto& [row, text, message] : cases) {
        messages.clear();
        write(row, text);
        EXPECT_THAT(messages, ElementsAre(message)) << row << text;
    }
    messages.clear();
    failAt("Write RTU01.I2", RuntimeError(ErrorNumber::Cancelled));
    write(1, "1");
    EXPECT_THAT(messages, IsEmpty()) << "who cancels knows";
    EXPECT_THAT(plant.written, IsEmpty());
}

}  // namespace
}  // namespace velt
