// SPDX-License-Identifier: MIT
// Servers that die, hang, lie or are not there.
#include "adapters/opcua/addressspace.h"
#include "adapters/opcua/connection.h"
#include "adapters/opcua/opcuaitem.h"
#include "tests/adapters/opcua/serverfixture.h"
#include "tests/adapters/opcua/serverprocess.h"
#include "tests/errorof.h"

#include <open62541/nodeids.h>

#include <gmock/gmock.h>

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cmath>
#include <csignal>
#include <filesystem>
#include <future>
#include <optional>
#include <thread>
#include <utility>

namespace velt::opcua::test {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

class FaultsTest : public ServerFixture {
protected:
    /// What the control does when the server has gone: all of it must work without the server.
    void emptyGroup() {
        auto& items = group_->OPCItems();
        std::vector<std::int32_t> handles;
        for (std::int32_t i = 1; i <= items.Count(); ++i)
            handles.push_back(items.Item(i)->ServerHandle());
        EXPECT_THAT(items.Remove(handles), Each(0));
        EXPECT_EQ(items.Count(), 0);
        group_.reset();
        server_->OPCGroups().Remove("Group");
        server_->Disconnect();
        EXPECT_EQ(server_->ServerState(), opc::Disconnected);
    }

    void expectLoss(const std::string& reason) {
        ASSERT_TRUE(until([&] { return !shutDowns_.empty(); }));
        EXPECT_THAT(shutDowns_, ElementsAre(HasSubstr(reason)));
        EXPECT_EQ(server_->ServerState(), opc::Disconnected);
        EXPECT_ANY_THROW((void)branches());
        emptyGroup();
        EXPECT_FALSE(until([&] { return shutDowns_.size() > 1; }, 100ms)) << "told twice";
    }
};

TEST_F(FaultsTest, AServerKilledInMidPublish) {
    ServerProcess process;
    connect(process.endpoint());
    ASSERT_THAT(add(itemIDs("RTU01")), SizeIs(ServerProcess::Variables));
    ASSERT_TRUE(until([&] { return events_ > 3; }));
    process.signal(SIGKILL);
    expectLoss("connessione");
}

TEST_F(FaultsTest, AServerThatIsFrozenAndWokenAgain) {
    ServerProcess process;
    connect(process.endpoint());
    const auto items = add(itemIDs("RTU01"));
    ASSERT_TRUE(until([&] { return events_ > 3; }));
    process.signal(SIGSTOP);
    EXPECT_THAT(raisedBy([&] { items.front()->Write(1); }).Description(),
                HasSubstr("esito della scrittura è sconosciuto"))
        << "it may happen when the server wakes";
    expectLoss("non risponde");
    process.signal(SIGCONT);
    connect(process.endpoint());
    shown_.clear();
    ASSERT_THAT(add(itemIDs("RTU01")), SizeIs(ServerProcess::Variables));
    EXPECT_TRUE(until([&] { return shown_.size() == ServerProcess::Variables; }));
}

void oneStation(Builder& build) {
    const NodeId rtu = build.folder("RTU01");
    build.variable("A", rtu, 1);
    build.variable("B", rtu, 2);
}

TEST_F(FaultsTest, AServerThatAnnouncesItsEnd) {
    TestServer server(oneStation);
    connect(server.endpoint());
    ASSERT_THAT(add(itemIDs("RTU01")), SizeIs(2));
    server.run([](Builder& build) {
        OwnedVariant seconds;
        const UA_UInt32 number = 5;
        UA_Variant_setScalarCopy(seconds.get(), &number, &UA_TYPES[UA_TYPES_UINT32]);
        UA_Server_writeValue(build.server(),
                             UA_NODEID_NUMERIC(0, UA_NS0ID_SERVER_SERVERSTATUS_SECONDSTILLSHUTDOWN),
                             *seconds);
    });
    expectLoss("arresto");
}

TEST_F(FaultsTest, ARestartBetweenBrowsingAndAdding) {
    const std::uint16_t port = freePort();
    auto server = std::make_unique<TestServer>(oneStation, TestServer::Configure{}, port);
    connect(server->endpoint());
    const auto ids = itemIDs("RTU01");
    server = std::make_unique<TestServer>(oneStation, TestServer::Configure{}, port);
    EXPECT_ANY_THROW(group_->OPCItems().ExpectItems(ids));
    EXPECT_ANY_THROW((void)group_->OPCItems().AddItem(ids.front(), 1));
    group_->OPCItems().ExpectationsDone();
    expectLoss("connessione");
    connect(server->endpoint());
    EXPECT_THAT(add(itemIDs("RTU01")), SizeIs(2));
}

TEST_F(FaultsTest, BranchesAndItemsThatVanish) {
    TestServer server([](Builder& build) {
        oneStation(build);
        build.variable("C", build.folder("RTU02"), 3);
    });
    connect(server.endpoint());
    const auto ids = itemIDs("RTU01");
    (void)branches();
    server.run([](Builder& build) {
        build.remove(Builder::named("B"));
        build.remove(NodeId(UA_NODEID_NUMERIC(1, 100'002)));  // RTU02
    });
    const auto items = add(ids);
    ASSERT_THAT(items, SizeIs(1));
    EXPECT_EQ(items.front()->ItemID(), "RTU01.A");
    server_->ExpectBranches({"RTU01", "RTU02"});
    EXPECT_THAT(itemIDs("RTU01"), ElementsAre("RTU01.A"));
    EXPECT_ANY_THROW((void)itemIDs("RTU02"));
    EXPECT_THAT(branches(), ElementsAre("RTU01"));
    EXPECT_TRUE(shutDowns_.empty());
}

TEST_F(FaultsTest, FoldersInACircleAndWithoutEnd) {
    constexpr int Depth = 10'000;
    TestServer server([](Builder& build) {
        const NodeId circle = build.folder("Cerchio");
        const NodeId inner = build.folder("Dentro", circle);
        build.reference(inner, circle);
        build.reference(inner, inner);
        build.reference(circle, build.variable("V", inner, 1));
        NodeId deep = build.folder("Fondo");
        for (int i = 1; i <= Depth; ++i) {
            if (i == 31 || i == 40) build.variable("V" + std::to_string(i), deep, i);
            deep = build.folder("x", deep);
        }
    });
    connect(server.endpoint());
    EXPECT_THAT(branches(), ElementsAre("Cerchio", "Fondo"));
    EXPECT_THAT(itemIDs("Cerchio"), ElementsAre("Cerchio.V"));
    const auto deep = itemIDs("Fondo");
    ASSERT_THAT(deep, SizeIs(1));
    EXPECT_THAT(deep.front(), testing::EndsWith(".V31"));
    EXPECT_THAT(add(deep), SizeIs(1));
}

TEST_F(FaultsTest, OddValuesComeThrough) {
    const std::string huge(8'000'000, 'x');
    TestServer server([&huge](Builder& build) {
        const NodeId rtu = build.folder("RTU01");
        build.variable("NaN", rtu, std::nan(""));
        build.variable("Enorme", rtu, huge);
        build.variable("Vuoto", rtu, std::vector<double>{});
        build.variable("Nulla", rtu, OwnedVariant());
        OwnedVariant matrix = toUa(std::vector<std::int32_t>{1, 2, 3, 4}, {});
        matrix->arrayDimensions =
            static_cast<UA_UInt32*>(UA_Array_new(2, &UA_TYPES[UA_TYPES_UINT32]));
        matrix->arrayDimensionsSize = 2;
        matrix->arrayDimensions[0] = matrix->arrayDimensions[1] = 2;
        build.variable("Matrice", rtu, matrix, true);
        for (const UA_DateTime date : {UA_DateTime{1}, INT64_MAX}) {
            OwnedVariant value;
            UA_Variant_setScalarCopy(value.get(), &date, &UA_TYPES[UA_TYPES_DATETIME]);
            build.variable(date == 1 ? "Prima" : "Dopo", rtu, value);
        }
    });
    connect(server.endpoint());
    std::map<std::string, std::shared_ptr<OPCItem>> items;
    for (const auto& item : add(itemIDs("RTU01"))) items[item->ItemID().substr(6)] = item;
    ASSERT_THAT(items, SizeIs(7));
    ASSERT_TRUE(until([&] { return shown_.size() == 7; }));
    const auto value = [&](const char* name) { return shown_[items[name]->ClientHandle()].value; };
    EXPECT_TRUE(std::isnan(value("NaN").get<double>()));
    EXPECT_LT(value("Enorme").get<std::string>().size(), 70'000U);
    EXPECT_EQ(value("Vuoto"), Variant(std::vector<double>{}));
    EXPECT_TRUE(value("Nulla").isEmpty());
    EXPECT_EQ(items["Nulla"]->CanonicalDataType(), 12);
    EXPECT_EQ(value("Matrice"), Variant(std::vector<std::int32_t>{1, 2, 3, 4}));
    EXPECT_ANY_THROW(items["Matrice"]->Write(std::vector<std::int32_t>{1, 2, 3, 4}));
    EXPECT_EQ(value("Prima").get<Date>().fields().year, 1601);
    EXPECT_FALSE(value("Dopo").get<Date>().isValid());
}

TEST_F(FaultsTest, ConnectingToWhatIsNoServerEnds) {
    const int mute = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(freePort());
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    ASSERT_EQ(bind(mute, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    ASSERT_EQ(listen(mute, 5), 0);
    for (const std::string& node :
         {"127.0.0.1:" + std::to_string(ntohs(address.sin_port)),
          "127.0.0.1:" + std::to_string(freePort()), std::string("nessuno.invalid"),
          std::string("opc.tcp://"), std::string("opc.tcp://127.0.0.1:99999"),
          std::string(100'000, 'x'), std::string("\x01 \xFF")}) {
        EXPECT_ANY_THROW(server_->Connect("x", node)) << node.substr(0, 50);
        EXPECT_EQ(server_->ServerState(), opc::Disconnected);
        EXPECT_ANY_THROW((void)server_->OPCGroups().Add("Group"));
        EXPECT_ANY_THROW((void)server_->CreateBrowser());
    }
    close(mute);
    EXPECT_TRUE(shutDowns_.empty());
}

/// As a window whose operator presses "Annulla" at once.
class CancellingDispatcher final : public Dispatcher {
public:
    ~CancellingDispatcher() override { join(); }
    /// Waits until what was cancelled has ended.
    void join() {
        for (std::thread& work : std::exchange(works_, {})) work.join();
    }
    void run(std::function<void(std::stop_token)> work) override {
        works_.emplace_back([work = std::move(work), stop = stop_.get_token()] {
            ignoreErrors([&] { work(stop); });
        });
        stop_.request_stop();
        throw RuntimeError(ErrorNumber::Cancelled);
    }
    void post(std::function<void()>) override {}
    void yield() override {}

private:
    std::stop_source stop_;
    std::vector<std::thread> works_;
};

TEST_F(FaultsTest, CancelledWaitsLeaveNothingBehind) {
    TestServer server(oneStation);
    {
        CancellingDispatcher window;
        OpcUaServerFactory factory(window);
        for (const std::string& node : {server.endpoint(), std::string("nessuno.invalid")}) {
            const auto object = factory.create();
            EXPECT_EQ(errorOf([&] { object->Connect("x", node); }), ErrorNumber::Cancelled);
            EXPECT_EQ(object->ServerState(), opc::Disconnected);
        }
    }
    EXPECT_TRUE(Session::waitForAll(10s));

    // Works that were cancelled at the server: the next ones find the connection as it was.
    connect(server.endpoint());
    const auto ids = itemIDs("RTU01");
    CancellingDispatcher window;
    const auto side = std::make_shared<ThreadSide>();
    const auto session = Session::open(server.endpoint(), clientSetup({}, "").configure, {});
    session->waitUntilActive();
    Connection connection(window, session, side);
    EXPECT_EQ(errorOf([&] {
                  (void)connection.wait(
                      [](UA_Client& client, ThreadSide& mine, const std::stop_token& stop) {
                          return readBranches(client, mine.limits, Builder::objects(), stop).size();
                      });
              }),
              ErrorNumber::Cancelled);
    EXPECT_EQ(session->call([side](UA_Client& client) {
        return readBranches(client, side->limits, Builder::objects(), {}).size();
    }),
              1U);
    EXPECT_THAT(add(ids), SizeIs(2));
}

TEST_F(FaultsTest, AWriteCancelledBeforeItsTurnNeverHappens) {
    TestServer server(
        [](Builder& build) { build.variable("Soglia", Builder::objects(), 1.0, true); });
    CancellingDispatcher window;
    const auto session = Session::open(server.endpoint(), clientSetup({}, "").configure, {});
    session->waitUntilActive();
    const auto connection =
        std::make_shared<Connection>(window, session, std::make_shared<ThreadSide>());
    OpcUaItem item({"Soglia", Builder::named("Soglia"), {}, 1, 1}, connection);

    std::promise<void> answer;  // the session is busy with a server that takes its time
    session->post([waiting = answer.get_future().share()](UA_Client&) { waiting.wait(); });
    EXPECT_EQ(errorOf([&] { item.Write(2.0); }), ErrorNumber::Cancelled);
    answer.set_value();
    window.join();
    server.run(
        [](Builder& build) { EXPECT_EQ(build.read(Builder::named("Soglia")), Variant(1.0)); });
}

TEST_F(FaultsTest, ManyDeathsLeaveNothingBehind) {
    const auto descriptors = [] {
        return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
    };
    const std::uint16_t port = freePort();
    std::optional<std::ptrdiff_t> first;
    for (int i = 0; i < 10; ++i) {
        TestServer server(oneStation, {}, port);
        connect(server.endpoint());
        EXPECT_THAT(add(itemIDs("RTU01")), SizeIs(2));
        server.stop();
        ASSERT_TRUE(until([&] { return !shutDowns_.empty(); }));
        shutDowns_.clear();
        emptyGroup();
        ASSERT_TRUE(Session::waitForAll(10s));
        if (!first) first = descriptors();
        EXPECT_EQ(descriptors(), *first);
    }
}

}  // namespace
}  // namespace velt::opcua::test
