// SPDX-License-Identifier: MIT
// An OPC viewer, its server and its station list.
#include "opcviewer/opcviewer.h"
#include "tests/opcviewer/opcviewerfixture.h"

namespace velt {
namespace {

TEST_F(OPCViewerTest, OneStartInSilenceAtRunTime) {
    plant.reachable = false;
    viewer.Show();
    EXPECT_THAT(stations(), IsEmpty());
    EXPECT_THAT(messages, IsEmpty());
    EXPECT_EQ(t.Interval(), 20);
    t.fire();
    t.fire();
    EXPECT_THAT(lvVRX.adjustments, ElementsAre(200));
    (void)log();
    viewer.Show();
    EXPECT_THAT(log(), IsEmpty());
    EXPECT_FALSE(t.Enabled());
}

TEST_F(OPCViewerTest, TheStationListAndItsMarks) {
    plant.branches.push_back({"pc_server", {}});
    plant.branches.push_back({"RTU01", {}});
    viewer.Show();
    EXPECT_EQ(stations(), Texts({"RTU01", "RTU02", "pc_server"})) << "each once, its own one not";
    cmdSeleziona.click();
    for (const int row : {2, 1, 1}) lvVRX.activate(row);
    const Texts marked = {"+RTU01", "RTU02", "+pc_server"};
    EXPECT_EQ(stations(), marked);
    failAt("ShowBranches");
    EXPECT_THROW(cmdVrxFromOPC.click(), RuntimeError);
    server().die();
    cmdVrxFromOPC.click();
    EXPECT_EQ(stations(), marked) << "a failure keeps the rows";
    plant.failures.clear();
    plant.reachable = true;
    plant.branches = {{"PC_Server", {}}, {"RTU01", {}}};
    cmdVrxFromOPC.click();
    EXPECT_EQ(stations(), Texts({"RTU01"})) << "without its mark";
}

TEST_F(OPCViewerTest, ANewHostnameCountsFromTheNextConnectionOn) {
    viewer.Hostname("nodo1");  // at run time: connects at once
    EXPECT_EQ(log().at(1), "Connect Kordal.OPCServerPVRX on 'nodo1'");
    plant.branches.pop_back();
    viewer.Hostname("nodo2");
    EXPECT_EQ(log(), Browsing);
    EXPECT_EQ(stations(), Texts({"RTU01"}));
    cmdEliminaTutto.click();
    (void)log();
    viewer.Hostname("nodo3");
    EXPECT_THAT(log(), IsEmpty()) << "a server object that is not connected lists nothing";
    cmdVrxFromOPC.click();
    EXPECT_EQ(log().at(0), "Connect Kordal.OPCServerPVRX on 'nodo3'");
}

TEST_F(OPCViewerTest, SortingAndColours) {
    std::string orders;
    for (const int column : {2, 2, 0, 0}) {
        lvItem.ColumnClick.raise(column);
        orders += std::to_string(lvItem.SortKey());
        orders += lvItem.SortOrder() == ReportList::Order::Ascending ? "+" : "-";
    }
    EXPECT_EQ(orders, "2+2-0-0+");
    viewer.BackColor(0x0000FF);
    viewer.ForeColor(0x00FF00);
    for (const fakes::FakeFrame* frame : {&control, &frmVRX, &frmItem}) {
        EXPECT_EQ(frame->backColor, 0x0000FFu);
        EXPECT_EQ(frame->foreColor, 0x00FF00u);
    }
}

Texts operator+(Texts first, const Texts& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

TEST_F(OPCViewerTest, TheFirstShowConnectsAndAFailingStepIsSkipped) {
    viewer.Show();
    EXPECT_EQ(log(), Texts{"create"} + Connecting + Browsing);
    EXPECT_EQ(stations(), Texts({"RTU01", "RTU02"}));
    for (const std::string& failing : Connecting) {
        cmdEliminaTutto.click();
        (void)log();
        failAt(failing);
        cmdVrxFromOPC.click();
        Texts tried = Connecting;
        // Without a connection there is no group either, and nothing to set on it.
        const bool connects = failing != Connecting[0];
        if (!connects || failing == "Groups.Add Group") tried.resize(4);
        EXPECT_EQ(log(), connects ? tried + Browsing : tried) << failing;
        plant.failures.clear();
    }
    cmdVrxFromOPC.click();
    plant.state = 2;  // any other state but disconnected: what there is is used
    cmdVrxFromOPC.click();
    EXPECT_EQ(log(), Browsing);
    EXPECT_THAT(messages, IsEmpty());
}

TEST_F(OPCViewerTest, AServerThatCannotBeMadeOrReachedIsTriedAnew) {
    failAt("create");
    viewer.Show();
    cmdVrxFromOPC.click();
    cmdEliminaTutto.click();
    viewer.Terminate();
    EXPECT_THROW(cmdAggiornaDati.click(), RuntimeError) << "nobody to browse";
    EXPECT_EQ(log(), Texts(4, "create"));

    failAt(Connecting[0], RuntimeError(ErrorNumber::Cancelled));
    EXPECT_THROW(cmdAggiornaDati.click(), RuntimeError);
    EXPECT_THAT(log(), ElementsAre("create", Connecting[0])) << "ends the operation";
    plant.failures.clear();
    cmdVrxFromOPC.click();
    EXPECT_EQ(stations(), Texts({"RTU01", "RTU02"}));
}

TEST_F(OPCViewerTest, DisconnectingTriesEveryStepAlsoWhenTheServerTellsThatItIsGone) {
    std::string lost;
    viewer.ConnectionLost.subscribe([&](const std::string& reason) { lost += reason + " "; });
    for (const std::string& failing : Disconnecting) {
        for (const bool dead : {false, true}) {
            showAll();
            ASSERT_EQ(lvItem.Count(), 4);
            failAt(failing);
            if (dead) server().die();
            dead ? server().ServerShutDown.raise("spento") : viewer.Terminate();
            EXPECT_EQ(log(), Disconnecting) << failing << dead;
            EXPECT_EQ(lvItem.Count(), 0) << failing << dead;
            plant.failures.clear();
            plant.reachable = true;
            plant.state = opc::Disconnected;
            server().groups.groups.clear();
        }
    }
    cmdEliminaTutto.click();
    viewer.Terminate();
    EXPECT_THAT(log(), ElementsAre("Disconnect", "Disconnect")) << "twice is harmless";
    EXPECT_EQ(stations(), Texts({"+RTU01", "+RTU02"}));
    EXPECT_EQ(lost, "spento spento spento ");
    EXPECT_THAT(messages, IsEmpty());
}

TEST_F(OPCViewerTest, AServerThatDiedWithoutANoticeIsConnectedAnew) {
    showAll();
    server().die();
    EXPECT_THROW(cmdAggiornaDati.click(), RuntimeError) << "still down";
    EXPECT_EQ(table(), Texts()) << "nothing looks live";
    plant.reachable = true;
    (void)log();
    cmdAggiornaDati.click();
    EXPECT_THAT(log(), Not(Contains("create")));
    ASSERT_EQ(lvItem.Count(), 4);
    change({0, {5}, {1.5}, {192}, {Date(0.5)}});
    EXPECT_EQ(table()[0], "I5 verde* RTU01.Livello|1,5|Good|12.00.00") << "listens to its group";
}

}  // namespace
}  // namespace velt
