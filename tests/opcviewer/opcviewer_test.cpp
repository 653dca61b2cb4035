// SPDX-License-Identifier: MIT
#include "opcviewer/opcviewer.h"

#include "tests/opcviewer/opcviewerfixture.h"

namespace velt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using OPCViewerTest = OPCViewerFixture;

TEST_F(OPCViewerTest, TheFirstShowConnectsAndListsTheStations) {
    viewer.Show();
    EXPECT_THAT(
        plant().log,
        ElementsAre("create", "Connect Kordal.OPCServerPVRX", "DefaultGroupIsActive 1",
                    "DefaultGroupUpdateRate 1000", "Groups.Add Group", "IsSubscribed 1",
                    "Items.DefaultIsActive 1", "CreateBrowser", "MoveToRoot", "ShowBranches"));
    EXPECT_THAT(stations(), ElementsAre("RTU01", "RTU02"));
    EXPECT_EQ(lvVRX.Key(2), "RTU02");
    EXPECT_FALSE(lvVRX.Checked(1) || lvVRX.Checked(2));
    EXPECT_EQ(t.Interval(), 20);
    t.fire();
    t.fire();
    EXPECT_THAT(lvVRX.adjustments, ElementsAre(200));

    plant().log.clear();
    viewer.Show();
    EXPECT_THAT(plant().log, IsEmpty());
    EXPECT_FALSE(t.Enabled());
}

TEST_F(OPCViewerTest, NothingAtDesignTimeAndSilenceWithoutAServer) {
    ambient.userMode = false;
    viewer.Hostname("srv");
    viewer.Show();
    viewer.Terminate();
    EXPECT_THAT(plant().log, IsEmpty());
    EXPECT_FALSE(t.Enabled());

    ambient.userMode = true;
    plant().reachable = false;
    OPCViewer other(form, ambient, services);
    other.Show();
    EXPECT_THAT(stations(), IsEmpty());
    EXPECT_TRUE(t.Enabled());
    EXPECT_THAT(messages(), IsEmpty());
}

TEST_F(OPCViewerTest, OnlyTheServersOwnBranchIsLeftOut) {
    plant().branches = {{"PC_Server", {}}};
    viewer.Show();
    EXPECT_THAT(stations(), IsEmpty());
    plant().branches = {{"pc_server", {}}, {"PC_Server", {}}, {"RTU01", {}}, {"RTU01", {}}};
    cmdVrxFromOPC.click();
    EXPECT_THAT(stations(), ElementsAre("pc_server", "RTU01"));
}

TEST_F(OPCViewerTest, ARefillStartsWithoutMarksAndAFailureKeepsTheRows) {
    viewer.Show();
    cmdSeleziona.click();
    cmdVrxFromOPC.click();
    EXPECT_FALSE(lvVRX.Checked(1) || lvVRX.Checked(2));

    cmdSeleziona.click();
    plant().failures.emplace("ShowBranches", RuntimeError(7, "Guasto"));
    EXPECT_THROW(cmdVrxFromOPC.click(), RuntimeError);
    server().die();
    cmdVrxFromOPC.click();
    EXPECT_THAT(stations(), ElementsAre("RTU01", "RTU02"));
    EXPECT_TRUE(lvVRX.Checked(1) && lvVRX.Checked(2));
}

TEST_F(OPCViewerTest, ANewHostnameCountsFromTheNextConnectionOn) {
    viewer.Hostname("nodo1");  // at run time: connects at once
    EXPECT_EQ(plant().log.at(1), "Connect Kordal.OPCServerPVRX on 'nodo1'");
    EXPECT_THAT(stations(), ElementsAre("RTU01", "RTU02"));

    plant().log.clear();
    plant().branches.pop_back();
    viewer.Hostname("nodo2");
    EXPECT_THAT(plant().log, ElementsAre("CreateBrowser", "MoveToRoot", "ShowBranches"));
    EXPECT_THAT(stations(), ElementsAre("RTU01"));

    cmdEliminaTutto.click();
    plant().log.clear();
    viewer.Hostname("nodo3");
    EXPECT_THAT(plant().log, IsEmpty()) << "a server object that is not connected lists nothing";
    cmdVrxFromOPC.click();
    EXPECT_EQ(plant().log.at(0), "Connect Kordal.OPCServerPVRX on 'nodo3'");
}

TEST_F(OPCViewerTest, MarksByButtonsAndActivation) {
    viewer.Show();
    cmdSeleziona.click();
    EXPECT_TRUE(lvVRX.Checked(1) && lvVRX.Checked(2));
    lvVRX.activate(2);
    EXPECT_TRUE(lvVRX.Checked(1) && !lvVRX.Checked(2));
    lvVRX.activate(2);
    EXPECT_TRUE(lvVRX.Checked(2));
    cmdDeseleziona.click();
    EXPECT_FALSE(lvVRX.Checked(1) || lvVRX.Checked(2));
}

TEST_F(OPCViewerTest, AClickOnAColumnSortsByItOrTurnsTheOrder) {
    struct Click {
        int column;
        ReportList::Order order;
    };
    for (const Click& click : {Click{2, ReportList::Order::Ascending},
                               {2, ReportList::Order::Descending},
                               {0, ReportList::Order::Descending},
                               {0, ReportList::Order::Ascending}}) {
        lvItem.ColumnClick.raise(click.column);
        EXPECT_EQ(lvItem.SortKey(), click.column);
        EXPECT_EQ(lvItem.SortOrder(), click.order);
    }
}

TEST_F(OPCViewerTest, ColoursReachTheTwoFrames) {
    viewer.BackColor(0x0000FF);
    viewer.ForeColor(0x00FF00);
    for (const fakes::FakeFrame* frame : {&control, &frmVRX, &frmItem}) {
        EXPECT_EQ(frame->backColor, 0x0000FFu);
        EXPECT_EQ(frame->foreColor, 0x00FF00u);
    }
}

}  // namespace
}  // namespace velt
