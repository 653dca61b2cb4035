// SPDX-License-Identifier: MIT
// Browsing, adding, watching and writing, on a server that behaves.
#include "opcviewer/valuetext.h"
#include "tests/adapters/opcua/serverfixture.h"
#include "tests/errorof.h"

#include <open62541/nodeids.h>

#include <gmock/gmock.h>

#include <limits>

namespace velt::opcua::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class OpcUaServerTest : public ServerFixture {};

void populate(Builder& build) {
    const NodeId rtu = build.folder("RTU01");
    const NodeId pumps = build.folder("Pompe", rtu);
    build.variable("Livello", rtu, 1.5, true);
    const NodeId state = build.variable("Stato", pumps, std::int16_t{2}, true);
    build.variable("Dettaglio", state, "parte");
    build.property("EURange", state);
    build.variable("Allarmi", pumps, std::vector<std::int32_t>{1, 2, 3}, true);
    build.folder("PC_Server");
}

TEST_F(OpcUaServerTest, ListsBranchesAndFlattensFolders) {
    TestServer server(populate);
    connect(server.endpoint());
    EXPECT_EQ(server_->ServerState(), opc::Running);
    EXPECT_THAT(branches(), ElementsAre("RTU01", "PC_Server"));
    EXPECT_THAT(itemIDs("RTU01"),
                UnorderedElementsAre("RTU01.Livello", "RTU01.Pompe.Stato", "RTU01.Pompe.Allarmi",
                                     "RTU01.Pompe.Stato.Dettaglio"));
    EXPECT_THAT(itemIDs("PC_Server"), IsEmpty());
    EXPECT_EQ(errorOf([&] { (void)itemIDs("RTU09"); }), ErrorNumber::InvalidCall);
    // Walking by hand leads to the same names.
    const auto browser = server_->CreateBrowser();
    browser->MoveDown("RTU01");
    browser->ShowBranches();
    EXPECT_THAT(namesOf(*browser), ElementsAre("Pompe"));
    browser->MoveDown("Pompe");
    browser->ShowLeafs();
    EXPECT_EQ(browser->GetItemID("Stato"), "RTU01.Pompe.Stato");
}

TEST_F(OpcUaServerTest, ShowsValuesOfAnnouncedItemsAndOnlyOfThem) {
    TestServer server(populate);
    connect(server.endpoint());
    const auto ids = itemIDs("RTU01");
    group_->OPCItems().ExpectItems(ids);
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
    EXPECT_EQ(shown_.size(), 1U);

    const std::vector<std::int32_t> handles = {item->ServerHandle(), 4711};
    EXPECT_THAT(group_->OPCItems().Remove(handles), ElementsAre(0, testing::Lt(0)));
    EXPECT_EQ(group_->OPCItems().Count(), 0);
    EXPECT_TRUE(until([&] { return server.monitored() == 0; }));
}

TEST_F(OpcUaServerTest, AddsItemsThatWereNeitherListedNorAnnounced) {
    TestServer server(populate);
    connect(server.endpoint());
    EXPECT_EQ(group_->OPCItems().AddItem("RTU01.Pompe.Allarmi", 1)->CanonicalDataType(), 8195);
    EXPECT_EQ(group_->OPCItems().AddItem("ns=1;s=Stato", 2)->CanonicalDataType(), vartype::I2);
    for (const char* id : {"RTU01.Manca", "Manca", "ns=1;s=Manca", "ns=0;i=85", ""})
        EXPECT_ANY_THROW((void)group_->OPCItems().AddItem(id, 3)) << id;
    EXPECT_EQ(group_->OPCItems().Count(), 2);
    ASSERT_TRUE(until([&] { return shown_.size() == 2; }));
    EXPECT_EQ(FormattaValore(shown_[1].value, {}), "(1; 2; 3)");
}

TEST_F(OpcUaServerTest, SplitsRequestsForServersWithLimits) {
    constexpr int Folders = 11;
    constexpr int PerFolder = 23;
    TestServer server(
        [](Builder& build) {
            const NodeId rtu = build.folder("RTU01");
            for (int f = 0; f < Folders; ++f) {
                const NodeId folder = build.folder("F" + std::to_string(f), rtu);
                for (int v = 0; v < PerFolder; ++v)
                    build.variable("V" + std::to_string(f) + "_" + std::to_string(v), folder,
                                   f * 1000 + v);
            }
        },
        [](UA_ServerConfig& config, std::uint16_t port) {
            TestServer::plain(config, port);
            config.maxNodesPerRead = 7;
            config.maxNodesPerBrowse = 3;
            config.maxMonitoredItemsPerCall = 5;
        });
    server.run([](Builder& build) {  // earlier it would keep the server from coming up
        UA_Server_getConfig(build.server())->maxReferencesPerNode = 4;
    });
    connect(server.endpoint());
    (void)branches();
    server_->ExpectBranches({"RTU01"});
    const auto ids = itemIDs("RTU01");
    ASSERT_EQ(ids.size(), static_cast<std::size_t>(Folders * PerFolder));
    const auto items = add(ids);
    ASSERT_EQ(items.size(), ids.size());
    for (const auto& item : items) EXPECT_EQ(item->CanonicalDataType(), vartype::I4);
    ASSERT_TRUE(until([&] { return shown_.size() == ids.size(); }));
    for (const auto& item : items) {
        const auto mark = item->ItemID().find("V") + 1;
        const int folder = std::stoi(item->ItemID().substr(mark));
        const int number = std::stoi(item->ItemID().substr(item->ItemID().find('_') + 1));
        EXPECT_EQ(shown_[item->ClientHandle()].value, Variant(folder * 1000 + number));
    }
}

TEST_F(OpcUaServerTest, WritesWhatTheServerTakesAndTellsWhyItDoesNot) {
    TestServer server([](Builder& build) {
        const NodeId rtu = build.folder("RTU01");
        OwnedVariant word;
        const UA_UInt16 number = 7;
        UA_Variant_setScalarCopy(word.get(), &number, &UA_TYPES[UA_TYPES_UINT16]);
        build.variable("Parola", rtu, word, true);
        build.variable("Testo", rtu, "prima", true);
        build.variable("Lista", rtu, std::vector<std::int32_t>{1}, true);
        build.variable("Fisso", rtu, 1.0, false);
    });
    connect(server.endpoint());
    struct Case {
        const char* name;
        Variant value;
        const char* problem;  ///< in the error; "" when it is written
    };
    std::map<std::string, std::shared_ptr<OPCItem>> items;
    for (const auto& item : add(itemIDs("RTU01"))) items[item->ItemID()] = item;
    for (const Case& c : {
             Case{"Parola", 65535, ""},
             {"Parola", 65536, "tra 0 e 65535"},
             {"Parola", "12", "un numero"},
             {"Testo", "sì", ""},
             {"Lista", std::vector<std::int32_t>{4, 5}, ""},
             {"Lista", 4, "un array"},
             {"Fisso", 2.0, "sola lettura"},
         }) {
        Variant before;
        server.run([&](Builder& build) { before = build.read(Builder::named(c.name)); });
        std::string problem;
        try {
            items.at(std::string("RTU01.") + c.name)->Write(c.value);
        } catch (const RuntimeError& error) {
            problem = error.Description();
            EXPECT_FALSE(error.is(ErrorNumber::TypeMismatch)) << "would pass for bad text";
        }
        EXPECT_EQ(problem.empty(), *c.problem == '\0') << problem;
        EXPECT_THAT(problem, HasSubstr(c.problem));
        Variant after;
        server.run([&](Builder& build) { after = build.read(Builder::named(c.name)); });
        EXPECT_EQ(after, *c.problem ? before : c.value) << c.name;
    }
}

TEST_F(OpcUaServerTest, GroupsHaveNamesAndGoWithTheConnection) {
    EXPECT_ANY_THROW((void)server_->OPCGroups().Add("Group"));  // not connected
    TestServer server(populate);
    connect(server.endpoint());
    EXPECT_EQ(errorOf([&] { (void)server_->OPCGroups().Add("Group"); }), ErrorNumber::KeyInUse);
    EXPECT_EQ(errorOf([&] { server_->Connect("x", server.endpoint()); }), ErrorNumber::InvalidCall);
    ASSERT_EQ(add(itemIDs("RTU01")).size(), 4U);
    server_->OPCGroups().Remove("Group");
    EXPECT_TRUE(until([&] { return server.monitored() == 0; }));
    EXPECT_EQ(errorOf([&] { server_->OPCGroups().Remove("Group"); }), ErrorNumber::InvalidCall);
    server_->Disconnect();
    EXPECT_EQ(server_->ServerState(), opc::Disconnected);
    connect(server.endpoint());
    EXPECT_EQ(add(itemIDs("RTU01")).size(), 4U);
    EXPECT_THAT(shutDowns_, IsEmpty());
}

}  // namespace
}  // namespace velt::opcua::test
