// SPDX-License-Identifier: MIT
#include "tests/opcviewer/opcviewerfixture.h"

namespace velt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using OPCItemsTest = OPCViewerFixture;

TEST_F(OPCItemsTest, ListsTheVariablesOfTheTickedStations) {
    viewer.Show();
    EXPECT_THAT(stations(), ElementsAre("RTU01", "RTU02"));
    lvVRX.Checked(1, true);
    plant().log.clear();
    cmdAggiornaDati.click();
    EXPECT_THAT(
        plant().log,
        ElementsAre("CreateBrowser", "MoveToRoot", "ShowBranches", "ExpectBranches RTU01",
                    "CreateBrowser", "MoveToRoot", "MoveDown RTU01", "ShowLeafs",
                    "GetItemID Livello", "GetItemID Rotto", "GetItemID Soglia",
                    "ExpectItems RTU01.Livello RTU01.Rotto RTU01.Soglia", "AddItem RTU01.Livello 1",
                    "AddItem RTU01.Rotto 2", "AddItem RTU01.Soglia 3", "ExpectationsDone"));
    ASSERT_THAT(keys(), ElementsAre("I1", "I2", "I3"));
    EXPECT_THAT(lvItem.rows[0].texts, ElementsAre("RTU01.Livello", "", "", ""));
    EXPECT_EQ(lvItem.rows[0].icon, "verde");
    EXPECT_EQ(lvItem.rows[1].icon, "errore_gialla");
}

TEST_F(OPCItemsTest, OnlyTheServersOwnBranchIsLeftOut) {
    plant().branches = {{"pc_server", {}}, {"PC_Server", {}}, {"RTU01", {}}, {"RTU01", {}}};
    viewer.Show();
    EXPECT_THAT(stations(), ElementsAre("pc_server", "RTU01"));
}

TEST_F(OPCItemsTest, AStationOrALeafThatFailsIsLeftOut) {
    const auto shown = [this] {
        cmdAggiornaDati.click();
        std::vector<std::string> items;
        for (const auto& row : lvItem.rows) items.push_back(row.texts[0]);
        return items;
    };
    viewer.Show();
    cmdSeleziona.click();
    plant().failures = {{"MoveDown RTU01", RuntimeError(7, "Ramo sparito")}};
    EXPECT_THAT(shown(), ElementsAre("RTU02.Pompa"));
    plant().failures = {{"GetItemID Rotto", RuntimeError(7, "Foglia sparita")},
                        {"ExpectBranches RTU01 RTU02", RuntimeError(7, "Guasto")}};
    EXPECT_THAT(shown(), ElementsAre("RTU01.Livello", "RTU01.Soglia", "RTU02.Pompa"));
    EXPECT_THAT(messages(), IsEmpty());
}

TEST_F(OPCItemsTest, ACancelledStepEndsTheRefresh) {
    const std::string steps[] = {"ExpectBranches RTU01 RTU02", "MoveDown RTU01", "GetItemID Rotto"};
    viewer.Show();
    cmdSeleziona.click();
    for (const std::string& step : steps) {
        plant().failures = {{step, RuntimeError(ErrorNumber::Cancelled)}};
        EXPECT_THROW(cmdAggiornaDati.click(), RuntimeError) << step;
        EXPECT_EQ(plant().log.back(), step);
    }
    plant().failures = {{"AddItem RTU01.Rotto 2", RuntimeError(ErrorNumber::Cancelled)}};
    EXPECT_THROW(cmdAggiornaDati.click(), RuntimeError);
    EXPECT_THAT(keys(), ElementsAre("I1"));
    EXPECT_EQ(plant().log.back(), "ExpectationsDone") << "the hint is taken back";
}

TEST_F(OPCItemsTest, DataTouchOnlyTheRowsThatTheyName) {
    showAll();
    change({0,
            {3, 99, 1},
            {std::vector<std::int32_t>{1, 2}, 5.0, -0.5},
            {193, 192, 192},
            {Date::fromFields({2006, 3, 14, 7, 30, 0, 0}), Date(1.0), Date(3e9)}});
    EXPECT_THAT(lvItem.rows[2].texts,
                ElementsAre("RTU01.Soglia", "(1; 2)", "Quality N° 193", "14/03/2006 07.30.00"));
    EXPECT_THAT(lvItem.rows[0].texts, ElementsAre("RTU01.Livello", "-0,5", "Good", "#3000000000"));
    // Updates for which a list is too short are skipped.
    change({0, {1, 2}, {1.0, 2.0}, {192}, {Date(1.0), Date(1.0)}});
    change({0, {1}, {}, {}, {}});
    EXPECT_EQ(lvItem.rows[0].texts[cVALORE_OPC], "1");
    EXPECT_EQ(lvItem.rows[1].changes, 0);
    EXPECT_EQ(lvItem.rows[3].changes, 0);
}

TEST_F(OPCItemsTest, AnotherColumnKeepsTheOrderAndTheSameOneTurnsIt) {
    lvItem.ColumnClick.raise(2);
    EXPECT_EQ(lvItem.SortOrder(), ReportList::Order::Ascending);
    lvItem.ColumnClick.raise(2);
    lvItem.ColumnClick.raise(0);
    EXPECT_EQ(lvItem.SortKey(), 0);
    EXPECT_EQ(lvItem.SortOrder(), ReportList::Order::Descending);
}

}  // namespace
}  // namespace velt
