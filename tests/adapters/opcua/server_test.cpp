// SPDX-License-Identifier: MIT
// Browsing, adding, watching and writing, on a server that behaves.
#include "opcviewer/valuetext.h"
#include "tests/adapters/opcua/serverfixture.h"
#include "tests/errorof.h"

namespace velt::opcua::test {
namespace {

using OpcUaServerTest = ServerFixture;

void populate(Builder& build) {
    const NodeId rtu = build.folder("RTU01");
    const NodeId pumps = build.folder("Pompe", rtu);
    build.variable("Livello", rtu, 1.5, true);
    const NodeId state = build.variable("Stato", pumps, std::int16_t{2}, true);
    build.variable("Dettaglio", state, "parte");
    build.variable("EURange", state, OwnedVariant(), false, UA_NS0ID_HASPROPERTY);
    build.variable("Allarmi", pumps, std::vector<std::int32_t>{1, 2, 3}, true);
    build.folder("PC_Server");
}

TEST_F(OpcUaServerTest, ListsBranchesFlattensFoldersAndNamesItsGroups) {
    EXPECT_ANY_THROW((void)server_->OPCGroups().Add("Group"));  // not connected
    TestServer server(populate);
    connect(server.endpoint());
    EXPECT_EQ(server_->ServerState(), opc::Running);
    EXPECT_THAT(branches(), ElementsAre("RTU01", "PC_Server"));
    EXPECT_THAT(itemIDs("RTU01"),
                UnorderedElementsAre("RTU01.Livello", "RTU01.Pompe.Stato", "RTU01.Pompe.Allarmi",
                                     "RTU01.Pompe.Stato.Dettaglio"));
    EXPECT_THAT(itemIDs("PC_Server"), IsEmpty());
    EXPECT_EQ(errorOf([&] { (void)itemIDs("RTU09"); }), ErrorNumber::InvalidCall);
    EXPECT_EQ(errorOf([&] { (void)server_->OPCGroups().Add("Group"); }), ErrorNumber::KeyInUse);
    EXPECT_EQ(errorOf([&] { server_->Connect("x", server.endpoint()); }), ErrorNumber::InvalidCall);
    ASSERT_THAT(add(itemIDs("RTU01")), SizeIs(4));
    server_->OPCGroups().Remove("Group");
    EXPECT_TRUE(until([&] { return server.monitored() == 0; }));
    EXPECT_EQ(errorOf([&] { server_->OPCGroups().Remove("Group"); }), ErrorNumber::InvalidCall);
    EXPECT_THAT(shutDowns_, IsEmpty());
}

TEST_F(OpcUaServerTest, ShowsValuesOfTheItemsThatWereAdded) {
    TestServer server(populate);
    connect(server.endpoint());
    group_->OPCItems().ExpectItems(itemIDs("RTU01"));
    ASSERT_TRUE(until([&] { return server.monitored() == 4; }));
    // A constant is sent once: it must wait for its item. What nobody asks for goes.
    EXPECT_FALSE(until([&] { return events_ > 0; }, 200ms));
    const auto item = group_->OPCItems().AddItem("RTU01.Livello", 7);
    group_->OPCItems().ExpectationsDone();
    EXPECT_EQ(item->CanonicalDataType(), vartype::R8);
    ASSERT_TRUE(until([&] { return shown_.contains(7) && server.monitored() == 1; }));
    EXPECT_EQ(shown_[7].value, Variant(1.5));
    EXPECT_EQ(shown_[7].quality, 192);
    server.run([](Builder& build) {
        build.write(Builder::named("Livello"), 2.5, UA_STATUSCODE_UNCERTAINSUBNORMAL | 0x500);
    });
    ASSERT_TRUE(until([&] { return shown_[7].value == Variant(2.5); }));
    EXPECT_EQ(shown_[7].quality, 89);

    // Neither listed nor announced.
    EXPECT_EQ(group_->OPCItems().AddItem("RTU01.Pompe.Allarmi", 1)->CanonicalDataType(), 8195);
    EXPECT_EQ(group_->OPCItems().AddItem("ns=1;s=Stato", 2)->CanonicalDataType(), vartype::I2);
    for (const char* id : {"RTU01.Manca", "Manca", "ns=1;s=Manca", "ns=0;i=85", ""})
        EXPECT_ANY_THROW((void)group_->OPCItems().AddItem(id, 3)) << id;
    ASSERT_TRUE(until([&] { return shown_.size() == 3; }));
    EXPECT_EQ(FormattaValore(shown_[1].value, {}), "(1; 2; 3)");

    EXPECT_THAT(group_->OPCItems().Remove({item->ServerHandle(), 4711}), ElementsAre(0, Lt(0)));
    EXPECT_EQ(group_->OPCItems().Count(), 2);
    EXPECT_TRUE(until([&] { return server.monitored() == 2; }));
}

TEST_F(OpcUaServerTest, SplitsRequestsForServersWithLimits) {
    TestServer server([](Builder& build) {
        const NodeId rtu = build.folder("RTU01");
        for (std::size_t f = 0; f < 11; ++f) {
            const NodeId folder = build.folder("F" + std::to_string(f), rtu);
            for (std::size_t v = 0; v < 100; ++v) {
                const std::string name = std::to_string(1000 * f + v);
                build.variable(name, folder, name);
            }
        }
    });
    server.run([](Builder& build) {  // earlier it would keep the server from coming up
        UA_ServerConfig& config = *UA_Server_getConfig(build.server());
        config.maxNodesPerRead = 7;
        config.maxNodesPerBrowse = 3;
        config.maxMonitoredItemsPerCall = 5;
        config.maxReferencesPerNode = 4;
    });
    connect(server.endpoint());
    (void)branches();
    server_->ExpectBranches({"RTU01"});
    const auto items = add(itemIDs("RTU01"));
    ASSERT_THAT(items, SizeIs(1'100));
    ASSERT_TRUE(until([&] { return shown_.size() == items.size(); }));
    for (const auto& [id, item] : items) {
        EXPECT_EQ(item->CanonicalDataType(), vartype::BStr);
        EXPECT_EQ(shown_[item->ClientHandle()].value, Variant(id.substr(id.rfind('.') + 1)));
    }
}

}  // namespace
}  // namespace velt::opcua::test
