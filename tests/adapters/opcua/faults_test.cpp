// SPDX-License-Identifier: MIT
// Servers that die, hang, lie or are not there.
#include "adapters/opcua/addressspace.h"
#include "adapters/opcua/connection.h"
#include "adapters/opcua/feed.h"
#include "adapters/opcua/opcuaitem.h"
#include "tests/adapters/opcua/serverfixture.h"
#include "tests/adapters/opcua/serverprocess.h"
#include "tests/errorof.h"

#include <csignal>
#include <future>
#include <thread>
#include <utility>

namespace velt::opcua::test {
namespace {

class FaultsTest : public ServerFixture {
protected:
    /// What the control does when the server has gone: all of it must work without the server.
    void expectLoss(const std::string& reason) {
        ASSERT_TRUE(until([&] { return !shutDowns_.empty(); }));
        EXPECT_THAT(std::exchange(shutDowns_, {}), ElementsAre(HasSubstr(reason)));
        EXPECT_EQ(server_->ServerState(), opc::Disconnected);
        EXPECT_ANY_THROW((void)branches());
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
        EXPECT_FALSE(until([&] { return !shutDowns_.empty(); }, 50ms)) << "told twice";
    }
};

TEST_F(FaultsTest, AServerThatIsFrozenWokenAndKilled) {
    ServerProcess process;
    connect(process.endpoint());
    const auto items = add(itemIDs("RTU01"));
    ASSERT_TRUE(until([&] { return events_ > 3; }));
    process.signal(SIGSTOP);
    EXPECT_THAT(raisedBy([&] { items.begin()->second->Write(1); }).Description(),
                HasSubstr("esito della scrittura è sconosciuto"))
        << "it may happen when the server wakes";
    expectLoss("non risponde");
    process.signal(SIGCONT);
    connect(process.endpoint());
    shown_.clear();
    ASSERT_THAT(add(itemIDs("RTU01")), SizeIs(ServerProcess::Variables));
    EXPECT_TRUE(until([&] { return shown_.size() == ServerProcess::Variables; }));
    process.signal(SIGKILL);
    expectLoss("connessione");
}

void oneStation(Builder& build) {
    const NodeId rtu = build.folder("RTU01");
    build.variable("A", rtu, 1);
    build.variable("B", rtu, 2);
}

TEST_F(FaultsTest, ARestartBetweenBrowsingAndAdding) {
    const std::uint16_t port = freePort();
    auto server = std::make_unique<TestServer>(oneStation, port);
    connect(server->endpoint());
    const auto ids = itemIDs("RTU01");
    server.reset();
    server = std::make_unique<TestServer>(oneStation, port);
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
    const Texts ids = itemIDs("RTU01");
    (void)branches();
    server.run([](Builder& build) {
        build.remove(Builder::named("B"));
        build.remove(NodeId(UA_NODEID_NUMERIC(1, 100'002)));  // RTU02
    });
    EXPECT_THAT(add(ids), ElementsAre(Key("RTU01.A")));
    server_->ExpectBranches({"RTU01", "RTU02"});
    EXPECT_THAT(itemIDs("RTU01"), ElementsAre("RTU01.A"));
    EXPECT_ANY_THROW((void)itemIDs("RTU02"));
    EXPECT_THAT(branches(), ElementsAre("RTU01"));
    EXPECT_TRUE(shutDowns_.empty());
}

TEST_F(FaultsTest, ServersWithoutEndAreLookedAtWithinBoundsThatAreTold) {
    TestServer server([](Builder& build) {
        const NodeId circle = build.folder("Cerchio");
        const NodeId inner = build.folder("Dentro", circle);
        build.reference(inner, circle);
        build.reference(inner, inner);
        build.reference(circle, build.variable("V", inner, 1));
        const NodeId wide = build.folder("Largo");
        for (int i = 0; i < 50; ++i) build.variable("L" + std::to_string(i), wide, i);
    });
    connect(server.endpoint());
    EXPECT_THAT(branches(), ElementsAre("Cerchio", "Largo"));
    EXPECT_THAT(itemIDs("Cerchio"), ElementsAre("Cerchio.V"));

    // So many nodes as to be cut off in the middle, of a server that gives them in small parts.
    server.run(
        [](Builder& build) { UA_Server_getConfig(build.server())->maxReferencesPerNode = 4; });
    const auto session = Session::open(server.endpoint(), clientSetup({}, "").configure, {});
    session->waitUntilActive();
    const auto cut = session->call([](UA_Client& client) {
        const auto roots = readBranches(client, {}, Builder::objects(), {});
        return readLeaves(client, {}, {roots.at(1)}, true, {}, {.levels = 32, .nodes = 30}).front();
    });
    EXPECT_THAT(cut.leaves, SizeIs(30));
    EXPECT_EQ(cut.leftOut, "Largo: elenco incompleto, dopo i primi 30 nodi non si cerca");
}

TEST_F(FaultsTest, ConnectingToWhatIsNoServerEnds) {
    const ServerProcess mute;
    mute.signal(SIGSTOP);
    for (const std::string& node :
         {mute.endpoint(), "127.0.0.1:" + std::to_string(freePort()),
          std::string("nessuno.invalid"), std::string("opc.tcp://127.0.0.1:99999"),
          std::string(100'000, 'x')}) {
        EXPECT_ANY_THROW(server_->Connect("x", node)) << node.substr(0, 50);
        EXPECT_EQ(server_->ServerState(), opc::Disconnected);
    }
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

TEST_F(FaultsTest, CancelledWaitsLeaveNothingBehindAndNothingUndone) {
    TestServer server([](Builder& build) {
        oneStation(build);
        build.variable("Soglia", Builder::objects(), 1.0, true);
    });
    CancellingDispatcher window;
    OpcUaServerFactory factory(window);
    const auto object = factory.create();
    EXPECT_EQ(errorOf([&] { object->Connect("x", server.endpoint()); }), ErrorNumber::Cancelled);
    EXPECT_EQ(object->ServerState(), opc::Disconnected);
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

TEST(FeedTest, GivesTheNewestOfEachItemInPortions) {
    int announced = 0;
    Feed feed([&announced] { ++announced; });
    for (const Feed::Key key : {1, 2, 3, 4}) {
        feed.expect(key);
        feed.put(key, {key, 192, {}});
        feed.claim(key, 10 * key);
    }
    feed.put(6, {6, 192, {}});  // nobody knows it
    feed.put(1, {100, 0, {}});
    EXPECT_EQ(announced, 1) << "not again before it is taken";
    const DataChangeArgs first = feed.take(2);
    feed.flush();
    EXPECT_EQ(first.ItemValues, std::vector<Variant>({100, 2}));
    EXPECT_EQ(announced, 2) << "there is more";
    feed.forget({3});
    feed.put(2, {7, 192, {}});
    feed.flush();
    EXPECT_THAT(feed.take(3).ClientHandles, ElementsAre(40, 20));
    feed.flush();
    EXPECT_EQ(announced, 2) << "there is nothing more";
}

}  // namespace
}  // namespace velt::opcua::test
