// SPDX-License-Identifier: MIT
#include "tests/opcviewer/opcviewerfixture.h"

namespace velt {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::Not;

const std::vector<std::string> ConnectSteps = {"Connect Kordal.OPCServerPVRX",
                                               "DefaultGroupIsActive 1",
                                               "DefaultGroupUpdateRate 1000",
                                               "Groups.Add Group",
                                               "IsSubscribed 1",
                                               "Items.DefaultIsActive 1"};

using OPCConnectionTest = OPCViewerFixture;

TEST_F(OPCConnectionTest, AFailingStepIsSkippedAndTheNextOnesAreTried) {
    for (const std::string& failing : ConnectSteps) {
        plant().log.clear();
        plant().failures = {{failing, RuntimeError(7, "Guasto")}};
        cmdVrxFromOPC.click();
        std::vector<std::string> tried;
        for (const std::string& call : plant().log)
            if (std::ranges::count(ConnectSteps, call) > 0) tried.push_back(call);
        std::vector<std::string> expected = ConnectSteps;
        // Without a connection there is no group either, and nothing to set on it.
        if (failing == ConnectSteps[0] || failing == "Groups.Add Group") expected.resize(4);
        EXPECT_EQ(tried, expected) << failing;
        EXPECT_EQ(stations().empty(), failing == ConnectSteps[0]) << failing;
        cmdEliminaTutto.click();
    }
}

TEST_F(OPCConnectionTest, AServerThatCannotBeMadeOrReachedIsTriedAnew) {
    plant().failures.emplace("create", RuntimeError(429, "Non registrato"));
    viewer.Show();
    EXPECT_THROW(cmdAggiornaDati.click(), RuntimeError) << "nobody to browse";
    plant().failures = {{ConnectSteps[0], RuntimeError(ErrorNumber::Cancelled)}};
    plant().log.clear();
    EXPECT_THROW(cmdAggiornaDati.click(), RuntimeError);
    EXPECT_THAT(plant().log, ElementsAre("create", ConnectSteps[0])) << "ends the operation";
    plant().failures.clear();
    cmdVrxFromOPC.click();
    EXPECT_THAT(stations(), ElementsAre("RTU01", "RTU02"));
}

TEST_F(OPCConnectionTest, DisconnectingTriesEveryStep) {
    const std::vector<std::string> steps = {"Items.Remove 3", "Groups.Remove Group", "Disconnect"};
    for (const std::string& failing : steps) {
        showAll();
        ASSERT_EQ(lvItem.Count(), 4);
        server().die();
        plant().failures = {{failing, RuntimeError(7, "Guasto")}};
        viewer.Terminate();
        EXPECT_THAT(plant().log, ElementsAreArray(steps)) << failing;
        EXPECT_EQ(lvItem.Count(), 0) << failing;

        plant().failures.clear();
        plant().reachable = true;
        plant().state = opc::Disconnected;
        server().groups.groups.clear();
    }
}

TEST_F(OPCConnectionTest, AConnectionLostWithoutNoticeIsClearedBeforeTheNextOne) {
    showAll();
    const auto oldGroup = server().groups.groups.at("Group");
    server().die();
    plant().reachable = true;
    cmdAggiornaDati.click();
    EXPECT_THAT(keys(), ElementsAre("I5", "I6", "I7", "I8"));
    EXPECT_THAT(plant().log, Contains("Groups.Remove Group"));
    EXPECT_THAT(plant().log, Not(Contains("create")));
    // Late data of the removed items find no row.
    oldGroup->DataChange.raise({0, {1, 2}, {1.0, 1.0}, {0, 0}, {{}, {}}});
    for (const auto& row : lvItem.rows) EXPECT_EQ(row.changes, 0);
    change({0, {5}, {1.5}, {192}, {Date(1.0)}});
    EXPECT_EQ(lvItem.rows[0].texts[cVALORE_OPC], "1,5") << "the new group is listened to";
}

}  // namespace
}  // namespace velt
