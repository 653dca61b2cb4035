// SPDX-License-Identifier: MIT
#include "tests/errorof.h"
#include "tests/opcviewer/opcviewerfixture.h"

#include <limits>

namespace velt {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

using OPCItemsTest = OPCViewerFixture;

TEST_F(OPCItemsTest, ListsTheVariablesOfTheTickedStations) {
    viewer.Show();
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
    const auto& rows = lvItem.rows;
    EXPECT_THAT(rows[0].texts, ElementsAre("RTU01.Livello", "", "", ""));
    EXPECT_EQ(rows[0].icon, "verde");
    EXPECT_THAT(rows[1].texts, ElementsAre("RTU01.Rotto", "", "", ""));
    EXPECT_EQ(rows[1].icon, "errore_gialla");
}

TEST_F(OPCItemsTest, EachRefreshGivesNewHandles) {
    showAll();
    EXPECT_THAT(keys(), ElementsAre("I1", "I2", "I3", "I4"));
    cmdAggiornaDati.click();
    EXPECT_EQ(plant().log.at(0), "Items.Remove 3");
    EXPECT_THAT(keys(), ElementsAre("I5", "I6", "I7", "I8"));
    cmdEliminaTutto.click();
    cmdAggiornaDati.click();
    EXPECT_THAT(keys(), ElementsAre("I9", "I10", "I11", "I12"));
    cmdDeseleziona.click();
    cmdAggiornaDati.click();
    EXPECT_EQ(lvItem.Count(), 0);
}

TEST_F(OPCItemsTest, AGroupWithoutItemsLeavesTheTableAsItIs) {
    plant().branches = {{"RTU01", {{"Rotto", vartype::R8, true}}}};
    showAll();
    cmdAggiornaDati.click();
    EXPECT_THAT(keys(), ElementsAre("I1", "I2"));
    EXPECT_THAT(plant().log, Not(Contains("Items.Remove 0")));
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
    plant().failures = {{"GetItemID Rotto", RuntimeError(7, "Foglia sparita")}};
    EXPECT_THAT(shown(), ElementsAre("RTU01.Livello", "RTU01.Soglia", "RTU02.Pompa"));
    plant().failures = {{"ExpectBranches RTU01 RTU02", RuntimeError(7, "Guasto")},
                        {"ExpectItems RTU02.Pompa", RuntimeError(7, "Guasto")},
                        {"ExpectationsDone", RuntimeError(7, "Guasto")}};
    EXPECT_EQ(shown().size(), 4u) << "hints may fail";
    plant().failures.clear();
    plant().branches.erase(plant().branches.begin());  // the list still shows it, ticked
    EXPECT_THAT(shown(), ElementsAre("RTU02.Pompa"));
    EXPECT_THAT(messages(), IsEmpty());
}

TEST_F(OPCItemsTest, ABrowserThatFailsEndsTheRefreshWithTheOldItemsGone) {
    showAll();
    plant().failures.emplace("ShowBranches", RuntimeError(7, "Guasto"));
    EXPECT_THROW(cmdAggiornaDati.click(), RuntimeError);
    EXPECT_EQ(lvItem.Count(), 0);
}

TEST_F(OPCItemsTest, AnItemThatCannotBeAddedIsRefused) {
    viewer.Show();
    cmdSeleziona.click();
    plant().failures = {{"AddItem RTU01.Livello 1", RuntimeError(-1073479673, "Sconosciuto")}};
    cmdAggiornaDati.click();
    EXPECT_THAT(keys(), ElementsAre("I1", "I2", "I3", "I4"));
    EXPECT_EQ(lvItem.rows[0].icon, "errore_gialla");
    EXPECT_EQ(lvItem.rows[2].icon, "verde");

    cmdEliminaTutto.click();
    plant().failures = {{"Groups.Add Group", RuntimeError(7, "Guasto")}};
    cmdAggiornaDati.click();
    ASSERT_EQ(lvItem.Count(), 4);
    for (const auto& row : lvItem.rows) EXPECT_EQ(row.icon, "errore_gialla");
}

TEST_F(OPCItemsTest, ACancelledStepEndsTheRefresh) {
    const std::string steps[] = {"ExpectBranches RTU01 RTU02", "MoveDown RTU01", "GetItemID Rotto",
                                 "ExpectItems RTU01.Livello RTU01.Rotto RTU01.Soglia"};
    viewer.Show();
    cmdSeleziona.click();
    for (const std::string& step : steps) {
        plant().failures = {{step, RuntimeError(ErrorNumber::Cancelled)}};
        EXPECT_THROW(cmdAggiornaDati.click(), RuntimeError) << step;
        const bool isHint = step.starts_with("ExpectItems");  // taken back, or it would be answered
        EXPECT_EQ(plant().log.back(), isHint ? "ExpectationsDone" : step);
        EXPECT_EQ(lvItem.Count(), 0) << step;
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
    EXPECT_EQ(lvItem.rows[1].changes, 0);
    EXPECT_EQ(lvItem.rows[3].changes, 0);

    // Updates for which a list is too short are skipped.
    change({0, {1, 2}, {1.0, 2.0}, {192}, {Date(1.0), Date(1.0)}});
    change({0, {1}, {}, {}, {}});
    EXPECT_EQ(lvItem.rows[0].texts[cVALORE_OPC], "1");
    EXPECT_EQ(lvItem.rows[1].changes, 0);
}

TEST_F(OPCItemsTest, LateDataOfRemovedItemsFindNoRow) {
    showAll();
    const auto oldGroup = server().groups.groups.at("Group");
    cmdEliminaTutto.click();
    cmdAggiornaDati.click();
    oldGroup->DataChange.raise(
        {0, {1, 2, 3, 4}, {1.0, 1.0, 1.0, 1.0}, {0, 0, 0, 0}, {{}, {}, {}, {}}});
    for (const auto& row : lvItem.rows) EXPECT_EQ(row.changes, 0);
}

TEST_F(OPCItemsTest, HandlesGrowUntilTheyOverflow) {
    ItemHandles handles(std::numeric_limits<std::int32_t>::max() - 1);
    EXPECT_EQ(handles.ProssimoHandle(), std::numeric_limits<std::int32_t>::max());
    for (int again = 0; again < 2; ++again)
        EXPECT_EQ(errorOf([&] { (void)handles.ProssimoHandle(); }), ErrorNumber::Overflow);
}

}  // namespace
}  // namespace velt
