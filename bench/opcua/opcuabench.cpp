// SPDX-License-Identifier: MIT
// The OPC adapter alone, its servers in processes of their own: opcua_bench [list|rush|connect|
// cycles]... (default: all).
#include "adapters/opcua/opcuaserverfactory.h"
#include "adapters/opcua/session.h"
#include "bench/measure.h"
#include "bench/opcua/delayingproxy.h"
#include "bench/opcua/serverchild.h"
#include "platform/queueddispatcher.h"
#include "platform/runtimeerror.h"
#include "tests/adapters/opcua/testserver.h"

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <condition_variable>
#include <cstdio>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <thread>

namespace velt::opcua::bench {
namespace {

using namespace std::chrono;
using namespace velt::bench;
using Clock = SteadyClock;

constexpr int Stations = 8;
constexpr int PerStation = 1250;

/// As a window has it: works run on threads of their own while this thread goes on taking calls and
/// beats every 10 ms; tells by how much a beat was late.
class WindowDispatcher final : public Dispatcher {
public:
    void run(std::function<void(std::stop_token)> work) override {
        std::atomic<bool> done = false;
        std::exception_ptr error;
        std::thread thread([&] {
            try {
                work({});
            } catch (...) {
                error = std::current_exception();
            }
            done = true;
        });
        // Data events wait until the handler is through: only the beat goes on.
        while (!done) beatAndSleep();
        thread.join();
        if (error) std::rethrow_exception(error);
    }
    void post(std::function<void()> call) override {
        const std::lock_guard lock(mutex_);
        calls_.push_back(std::move(call));
    }
    void yield() override {}

    void turnUntil(const std::function<bool()>& done, seconds time) {
        const auto end = Clock::now() + time;
        while (!done() && Clock::now() < end) {
            std::vector<std::function<void()>> calls;
            {
                const std::lock_guard lock(mutex_);
                calls.swap(calls_);
            }
            for (const auto& call : calls) call();
            beatAndSleep();
        }
    }
    /// Milliseconds by which the latest beat was late, since the last question.
    double lateness() {
        last_ = Clock::now();
        return std::exchange(late_, 0.0);
    }

private:
    void beatAndSleep() {
        const auto now = Clock::now();
        late_ = std::max(late_, duration<double, std::milli>(now - last_).count() - 10.0);
        if (now - last_ >= 10ms) last_ = now;
        std::this_thread::sleep_for(1ms);
    }

    std::mutex mutex_;
    std::vector<std::function<void()>> calls_;
    Clock::time_point last_ = Clock::now();
    double late_ = 0.0;
};

/// What a control does, with counting instead of rows.
class Panel {
public:
    explicit Panel(WindowDispatcher& window) : window_(window), server_(factory_.create()) {
        server_->ServerShutDown.subscribe([this](const std::string&) { lost = true; });
    }

    void connect(const std::string& node, int rate) {
        server_->Connect("x", node);
        server_->OPCGroups().DefaultGroupUpdateRate(rate);
        group_ = server_->OPCGroups().Add("Group");
        group_->DataChange.subscribe([this](const DataChangeArgs& args) {
            for (std::size_t i = 0; i < args.ClientHandles.size(); ++i) {
                ++changes;
                std::int32_t& newest = values[args.ClientHandles[i]];
                const std::int32_t value = args.ItemValues[i].get<std::int32_t>();
                if (value < newest) ++backwards;
                newest = value;
            }
        });
        group_->IsSubscribed(true);
    }

    std::vector<std::string> branches() {
        const auto browser = server_->CreateBrowser();
        browser->MoveToRoot();
        browser->ShowBranches();
        std::vector<std::string> names;
        for (std::int32_t i = 1; i <= browser->Count(); ++i) names.push_back(browser->Item(i));
        return names;
    }

    /// All variables of all stations; gives their number.
    int refresh() {
        auto& items = group_->OPCItems();
        std::vector<std::int32_t> handles;
        for (std::int32_t i = 1; i <= items.Count(); ++i)
            handles.push_back(items.Item(i)->ServerHandle());
        if (!handles.empty()) items.Remove(handles);
        values.clear();
        const auto stations = branches();
        server_->ExpectBranches(stations);
        for (const std::string& station : stations) {
            const auto browser = server_->CreateBrowser();
            browser->MoveToRoot();
            browser->MoveDown(station);
            browser->ShowLeafs();
            std::vector<std::string> ids;
            for (std::int32_t i = 1; i <= browser->Count(); ++i)
                ids.push_back(browser->GetItemID(browser->Item(i)));
            items.ExpectItems(ids);
            for (const std::string& id : ids) (void)items.AddItem(id, ++handle_);
            items.ExpectationsDone();
        }
        return items.Count();
    }

    void disconnect() {
        group_.reset();
        server_->Disconnect();
        lost = false;
    }

    bool lost = false;
    std::uint64_t changes = 0;
    std::uint64_t backwards = 0;
    std::map<std::int32_t, std::int32_t> values;

private:
    WindowDispatcher& window_;
    OpcUaServerFactory factory_{window_};
    std::shared_ptr<OPCServer> server_;
    std::shared_ptr<OPCGroup> group_;
    std::int32_t handle_ = 0;
};

std::string node(std::uint16_t port) { return "127.0.0.1:" + std::to_string(port); }

void list(const char* name, std::optional<milliseconds> delay) {
    const std::uint16_t port = test::freePort();
    const ServerChild server(Stations, PerStation, 1000, port);
    std::optional<DelayingProxy> proxy;
    std::uint16_t way = port;
    if (delay) proxy.emplace(way = test::freePort(), port, *delay);
    WindowDispatcher window;
    Panel panel(window);
    panel.connect(node(way), 1000);
    std::vector<double> listed;
    std::vector<double> shown;
    (void)window.lateness();
    for (int i = 0; i < 5; ++i) {
        const auto start = Clock::now();
        const int count = panel.refresh();
        listed.push_back(since(start) / 1000);
        window.turnUntil([&] { return panel.values.size() == static_cast<std::size_t>(count); },
                         20s);
        shown.push_back(since(start) / 1000);
        if (count != Stations * PerStation) std::printf("WRONG: %d items\n", count);
    }
    std::printf("%s: listed %.3f s, all values %.3f s, beat late %.1f ms at most\n", name,
                median(listed), median(shown), window.lateness());
    const double before = processorTime();
    const auto start = Clock::now();
    window.turnUntil([] { return false; }, 10s);
    std::printf("%s: %.1f %% of a core afterwards, the window's turns included\n", name,
                (processorTime() - before) / since(start) * 100);
    panel.disconnect();
}

void rush() {
    const std::uint16_t port = test::freePort();
    const ServerChild server(Stations, PerStation, 50, port);
    WindowDispatcher window;
    Panel panel(window);
    panel.connect(node(port), 50);
    (void)panel.refresh();
    window.turnUntil([] { return false; }, 5s);
    const long memory = residentKiB();
    const std::uint64_t changes = panel.changes;
    const double before = processorTime();
    const auto start = Clock::now();
    (void)window.lateness();
    window.turnUntil([] { return false; }, 30s);
    const double time = since(start) / 1000;
    const double rate = static_cast<double>(panel.changes - changes) / time;
    const double late = window.lateness();
    // How old the oldest value is that is shown at this moment.
    const auto now = duration_cast<milliseconds>(Clock::now().time_since_epoch()).count() / 50;
    std::int64_t oldest = 0;
    for (const auto& [handle, value] : panel.values) oldest = std::max(oldest, now - value);
    std::printf(
        "rush: %.0f changes/s shown, %.0f %% of a core, memory %+ld KiB in 30 s, beat late "
        "%.1f ms at most, %llu values went backwards, oldest value %lld ms\n",
        rate, (processorTime() - before) / time / 10, residentKiB() - memory, late,
        static_cast<unsigned long long>(panel.backwards), static_cast<long long>(oldest * 50));
    panel.disconnect();
}

void connecting() {
    const int mute = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    const std::uint16_t mutePort = test::freePort();
    address.sin_port = htons(mutePort);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (bind(mute, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
        listen(mute, 5) != 0)
        std::abort();
    // A full queue of connections: what comes next is dropped without a word, as by a dead host.
    const int full = socket(AF_INET, SOCK_STREAM, 0);
    const std::uint16_t fullPort = test::freePort();
    address.sin_port = htons(fullPort);
    if (bind(full, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
        listen(full, 0) != 0)
        std::abort();
    std::vector<int> queue;
    for (int i = 0; i < 8; ++i) {
        queue.push_back(socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0));
        // That it is not finished at once is what it is for.
        (void)::connect(queue.back(), reinterpret_cast<sockaddr*>(&address), sizeof address);
    }
    WindowDispatcher window;
    Panel panel(window);
    struct Case {
        const char* name;
        std::string node;
    };
    // 192.0.2.0/24 is kept for documentation: nobody answers.
    for (const Case& c : {Case{"address without a host", "192.0.2.1:4840"},
                          {"host that drops everything", node(fullPort)},
                          {"mute port", node(mutePort)},
                          {"closed port", node(test::freePort())},
                          {"name that does not resolve", "nessuno.invalid"}}) {
        (void)window.lateness();
        const auto start = Clock::now();
        std::string reason = "connected?";
        try {
            panel.connect(c.node, 1000);
        } catch (const RuntimeError& error) {
            reason = error.Description();
        }
        std::printf("connect, %s: %.2f s (%s), beat late %.1f ms at most\n", c.name,
                    since(start) / 1000, reason.c_str(), window.lateness());
    }
    for (const int descriptor : queue) close(descriptor);
    close(full);
    close(mute);
}

void cycles() {
    constexpr int Cycles = 100;
    const std::uint16_t port = test::freePort();
    WindowDispatcher window;
    Panel panel(window);
    std::optional<Footprint> tenth;
    std::set<int> counts;
    for (int i = 1; i <= Cycles; ++i) {
        std::optional<ServerChild> server(std::in_place, Stations, 125, 100, port);
        panel.connect(node(port), 100);
        counts.insert(panel.refresh());
        window.turnUntil([&] { return panel.values.size() >= 1000; }, 20s);
        server.reset();
        window.turnUntil([&] { return panel.lost; }, 20s);
        panel.disconnect();
        if (!Session::waitForAll(10s)) std::printf("WRONG: a thread stays\n");
        if (i == 10) tenth.emplace();
    }
    std::printf("cycles: %d deaths and returns, %zu different numbers of rows; since the tenth: ",
                Cycles, counts.size());
    tenth->printGrowth();
}

}  // namespace
}  // namespace velt::opcua::bench

int main(int count, char** arguments) {
    using namespace velt::opcua::bench;
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    const std::set<std::string> wanted(arguments + 1, arguments + count);
    const auto isWanted = [&](const char* name) { return wanted.empty() || wanted.contains(name); };
    if (isWanted("list")) list("loopback", std::nullopt);
    if (isWanted("list")) list("50 ms line", std::chrono::milliseconds(25));
    if (isWanted("rush")) rush();
    if (isWanted("connect")) connecting();
    if (isWanted("cycles")) cycles();
}
