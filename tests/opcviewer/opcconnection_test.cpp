// SPDX-License-Identifier: MIT
#include "tests/opcviewer/opcviewerfixture.h"

namespace velt {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::Not;

const std::vector<std::string> ConnectSteps = {"Connect Kordal.OPCServerPVRX",
                                               "DefaultGroupIsActive 1",
                                               "DefaultGroupUpdateRate 1000",
                                               "Groups.Add Group",
                                               "IsSubscribed 1",
                                               "Items.DefaultIsActive 1"};

class OPCConnectionTest : public OPCViewerFixture {
protected:
    std::vector<std::string> connectCalls() {
        std::vector<std::string> calls;
        for (const std::string& call : plant().log)
            if (std::ranges::count(ConnectSteps, call) > 0) calls.push_back(call);
        plant().log.clear();
        return calls;
    }
};

TEST_F(OPCConnectionTest, AFailingStepIsSkippedAndTheNextOnesAreTried) {
    for (const std::string& failing : ConnectSteps) {
        plant().failures = {{failing, RuntimeError(7, "Guasto")}};
        cmdVrxFromOPC.click();
        std::vector<std::string> tried = ConnectSteps;
        // Without a connection there is no group either, and nothing to set on it.
        if (failing == ConnectSteps[0] || failing == "Groups.Add Group") tried.resize(4);
        EXPECT_THAT(connectCalls(), ElementsAreArray(tried)) << failing;
        EXPECT_EQ(stations().empty(), failing == ConnectSteps[0]) << failing;
        cmdEliminaTutto.click();
    }
}

TEST_F(OPCConnectionTest, AServerThatCannotBeMadeOrReachedIsTriedAnew) {
    plant().failures.emplace("create", RuntimeError(429, "Non registrato"));
    viewer.Show();
    cmdVrxFromOPC.click();
    cmdEliminaTutto.click();
    viewer.Terminate();
    EXPECT_THAT(plant().log, ElementsAre("create", "create", "create"));
    EXPECT_THROW(cmdAggiornaDati.click(), RuntimeError) << "nobody to browse";

    plant().failures = {{ConnectSteps[0], RuntimeError(ErrorNumber::Cancelled)}};
    plant().log.clear();
    EXPECT_THROW(cmdAggiornaDati.click(), RuntimeError);
    EXPECT_THAT(plant().log, ElementsAre("create", ConnectSteps[0])) << "ends the operation";
    plant().failures.clear();
    cmdVrxFromOPC.click();
    EXPECT_THAT(stations(), ElementsAre("RTU01", "RTU02"));
}

TEST_F(OPCConnectionTest, WhatIsConnectedIsReused) {
    viewer.Show();
    connectCalls();
    cmdVrxFromOPC.click();
    cmdAggiornaDati.click();
    plant().state = 2;  // any other state but disconnected
    cmdVrxFromOPC.click();
    EXPECT_THAT(connectCalls(), IsEmpty());
    EXPECT_THAT(stations(), ElementsAre("RTU01", "RTU02"));
}

TEST_F(OPCConnectionTest, DisconnectingTriesEveryStep) {
    const std::vector<std::string> steps = {"Items.Remove 3", "Groups.Remove Group", "Disconnect"};
    for (const std::string& failing : steps) {
        for (const bool dead : {false, true}) {
            showAll();
            ASSERT_EQ(lvItem.Count(), 4);
            if (dead) server().die();
            plant().failures = {{failing, RuntimeError(7, "Guasto")}};
            viewer.Terminate();
            EXPECT_THAT(plant().log, ElementsAreArray(steps)) << failing << dead;
            EXPECT_EQ(lvItem.Count(), 0) << failing << dead;

            plant().failures.clear();
            plant().reachable = true;
            plant().state = opc::Disconnected;
            server().groups.groups.clear();
        }
    }
}

TEST_F(OPCConnectionTest, DisconnectingTwiceIsHarmlessAndKeepsTheStations) {
    cmdEliminaTutto.click();
    EXPECT_THAT(plant().log, IsEmpty());
    showAll();
    cmdEliminaTutto.click();
    plant().log.clear();
    cmdEliminaTutto.click();
    viewer.Terminate();
    EXPECT_THAT(plant().log, ElementsAre("Disconnect", "Disconnect"));
    EXPECT_TRUE(lvVRX.Checked(1) && lvVRX.Checked(2));
    EXPECT_EQ(lvItem.Count(), 0);

    cmdAggiornaDati.click();
    EXPECT_EQ(lvItem.Count(), 4);
}

TEST_F(OPCConnectionTest, ADeadServerLeavesNothingThatLooksLive) {
    showAll();
    server().die();
    server().ServerShutDown.raise("spento");
    EXPECT_EQ(lvItem.Count(), 0);
    EXPECT_THAT(plant().log, ElementsAre("Items.Remove 3", "Groups.Remove Group", "Disconnect"));
    EXPECT_THAT(stations(), ElementsAre("RTU01", "RTU02"));
    EXPECT_THAT(messages(), IsEmpty());

    EXPECT_THROW(cmdAggiornaDati.click(), RuntimeError) << "still down";
    plant().reachable = true;
    cmdAggiornaDati.click();
    EXPECT_EQ(lvItem.Count(), 4);
}

TEST_F(OPCConnectionTest, AConnectionLostWithoutNoticeIsClearedBeforeTheNextOne) {
    showAll();
    server().die();
    plant().reachable = true;
    cmdAggiornaDati.click();
    EXPECT_THAT(keys(), ElementsAre("I5", "I6", "I7", "I8"));
    EXPECT_THAT(plant().log, Contains("Groups.Remove Group"));
    EXPECT_THAT(plant().log, Not(Contains("create")));
    change({0, {5}, {1.5}, {192}, {Date(1.0)}});
    EXPECT_EQ(lvItem.rows[0].texts[cVALORE_OPC], "1,5") << "the new group is listened to";
}

}  // namespace
}  // namespace velt
