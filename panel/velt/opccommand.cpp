// SPDX-License-Identifier: MIT
#include "adapters/opcua/opcuaserverfactory.h"
#include "opcviewer/quality.h"
#include "opcviewer/valuetext.h"
#include "opcviewer/writevalue.h"
#include "panel/velt/command.h"
#include "panel/velt/output.h"
#include "panel/velt/seconds.h"
#include "panel/velt/texttable.h"
#include "platform/conversions.h"
#include "platform/queueddispatcher.h"
#include "platform/runtimeerror.h"

#include <array>
#include <chrono>
#include <csignal>
#include <functional>
#include <iostream>
#include <map>
#include <memory>

namespace velt::cli {

extern const Command opcCommand;

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::array options = {Option{"--config", true}, Option{"--seconds", true}};

constexpr std::string_view help =
    R"(Usage: velt opc browse [--config FILE] ENDPOINT [BRANCH]
       velt opc watch [--config FILE] [--seconds N] ENDPOINT BRANCH...
       velt opc write [--config FILE] ENDPOINT ITEM TEXT

Looks into an OPC UA server as the OPC viewer does. ENDPOINT is a host, HOST:PORT
or an opc.tcp:// URL; ITEM is a branch and a variable joined by ".", or the text
of a node ID.

  browse  lists the branches, or the variables of one with their type codes
  watch   prints the values of the variables of branches as they change, one line
          each: item, value, quality and time stamp, separated by tabs
  write   writes a value, as an operator would type it: the comma is the decimal
          sign, ";" stands between the elements of an array

Options:
  --config FILE  security, user and password; see docs/opc.md. Without it the
                 connection is neither signed nor encrypted, and anonymous
  --seconds N    ends watching after this time; default: when Ctrl+C is pressed
  --help         show this text

Examples:
  velt opc browse localhost
  velt opc watch --seconds 10 opc.tcp://scada1:4840 RTU01 RTU02
  velt opc write localhost RTU01.Livello.Soglia 12,5
)";

void tell(const std::string& problem) { std::cerr << "velt: " << printable(problem) << '\n'; }

/// A connection for one command; the command's thread is the one that takes the events.
class Client {
public:
    Client(const std::string& endpoint, const std::string& configFile)
        : factory_(dispatcher_, {configFile, {}, tell}), server_(factory_.create()) {
        server_->ServerShutDown.subscribe([this](const std::string& reason) { lost_ = reason; });
        server_->Connect("velt", endpoint);
        server_->OPCGroups().DefaultGroupIsActive(true);
        group_ = server_->OPCGroups().Add("Group");
        group_->OPCItems().DefaultIsActive(true);
    }

    [[nodiscard]] OPCServer& server() { return *server_; }
    [[nodiscard]] OPCGroup& group() { return *group_; }
    [[nodiscard]] const std::string& lost() const { return lost_; }

    /// Takes events until the time is over, the server is lost or `done`.
    void listen(Clock::time_point end, const std::function<bool()>& done) {
        const auto over = [&] { return !lost_.empty() || done(); };
        while (!over() && Clock::now() < end)
            (void)dispatcher_.runUntil(over,
                                       std::min(end, Clock::now() + std::chrono::milliseconds(50)));
    }

    [[nodiscard]] std::vector<std::string> itemIDs(const std::string& branch) {
        const auto browser = server_->CreateBrowser();
        browser->MoveToRoot();
        try {
            browser->MoveDown(branch);
        } catch (const RuntimeError& error) {
            if (!error.is(ErrorNumber::InvalidCall)) throw;
            throw RuntimeError(error.Number(), "the server has no branch " + printable(branch));
        }
        browser->ShowLeafs();
        std::vector<std::string> ids;
        ids.reserve(static_cast<std::size_t>(browser->Count()));
        for (std::int32_t i = 1; i <= browser->Count(); ++i)
            ids.push_back(browser->GetItemID(browser->Item(i)));
        return ids;
    }

private:
    QueuedDispatcher dispatcher_;
    opcua::OpcUaServerFactory factory_;
    std::shared_ptr<OPCServer> server_;
    std::shared_ptr<OPCGroup> group_;
    std::string lost_;
};

volatile std::sig_atomic_t interrupted = 0;

/// Adds all of them; what the server refuses is told on standard error. Gives how many it took.
std::size_t add(OPCItems& items, const std::vector<std::string>& ids, std::int32_t& lastHandle,
                const std::function<void(OPCItem&)>& taken) {
    std::size_t count = 0;
    items.ExpectItems(ids);
    for (const std::string& id : ids) {
        try {
            taken(*items.AddItem(id, ++lastHandle));
            ++count;
        } catch (const RuntimeError& error) {
            tell(id + ": " + error.Description());
        }
    }
    items.ExpectationsDone();
    return count;
}

void browse(Client& client, const std::vector<std::string>& operands) {
    Output output;
    if (operands.size() == 3) {
        std::int32_t handle = 0;
        (void)add(client.group().OPCItems(), client.itemIDs(operands[2]), handle,
                  [&output](OPCItem& item) {
                      output.write(printable(item.ItemID()) + '\t' +
                                   std::to_string(item.CanonicalDataType()) + '\n');
                  });
    } else {
        const auto browser = client.server().CreateBrowser();
        browser->ShowBranches();
        for (std::int32_t i = 1; i <= browser->Count(); ++i)
            output.write(printable(browser->Item(i)) + '\n');
    }
    output.finish();
}

void watch(Client& client, const std::vector<std::string>& operands, Clock::time_point end) {
    const Locale locale;
    std::map<std::int32_t, std::string> names;
    Output output;
    client.group().DataChange.subscribe([&](const DataChangeArgs& args) {
        for (std::size_t i = 0; i < args.ClientHandles.size(); ++i)
            output.write(printable(names[args.ClientHandles[i]]) + '\t' +
                         printable(FormattaValore(args.ItemValues[i], locale)) + '\t' +
                         DescrizioneQualita(args.Qualities[i]) + '\t' +
                         conversions::text(args.TimeStamps[i], locale) + '\n');
        output.finish();
    });
    client.group().IsSubscribed(true);
    std::int32_t handle = 0;
    const std::vector<std::string> branches(operands.begin() + 2, operands.end());
    client.server().ExpectBranches(branches);
    for (const std::string& branch : branches)
        (void)add(client.group().OPCItems(), client.itemIDs(branch), handle,
                  [&](OPCItem& item) { names[item.ClientHandle()] = item.ItemID(); });
    // Ctrl+C is the usual end, not a failure: what was printed is whole.
    std::signal(SIGINT, [](int) { interrupted = 1; });
    client.listen(end, [] { return interrupted != 0; });
    output.finish();
    if (!client.lost().empty()) throw RuntimeError(ErrorNumber::ObjectClosed, client.lost());
}

void write(Client& client, const std::string& itemID, const std::string& text) {
    const auto item = client.group().OPCItems().AddItem(itemID, 1);
    const auto value = ConvertiParti(item->CanonicalDataType(), SeparaParti(text), Locale());
    if (!value)
        throw RuntimeError(ErrorNumber::TypeMismatch,
                           "items of type " + std::to_string(item->CanonicalDataType()) +
                               " cannot be written from text");
    item->Write(*value);
}

void run(const CommandLine& line) {
    const std::vector<std::string>& operands = line.operands();
    const std::string verb = operands.empty() ? "" : operands.front();
    const std::size_t count = operands.size();
    const bool isWatch = verb == "watch";
    if (!isWatch && verb != "browse" && verb != "write")
        throw UsageError("opc needs one of browse, watch and write");
    if (verb == "browse" && (count < 2 || count > 3))
        throw UsageError("an ENDPOINT and at most one BRANCH are needed");
    if (isWatch && count < 3) throw UsageError("an ENDPOINT and a BRANCH are needed");
    if (verb == "write" && count != 4)
        throw UsageError("an ENDPOINT, an ITEM and a TEXT are needed");
    if (line.has("--seconds") && !isWatch) throw UsageError("--seconds goes with watch");
    auto end = Clock::time_point::max();
    if (line.has("--seconds")) end = Clock::now() + seconds("--seconds", line.value("--seconds"));

    Client client(operands[1], line.value("--config"));
    if (verb == "browse") browse(client, operands);
    if (isWatch) watch(client, operands, end);
    if (verb == "write") write(client, operands[2], operands[3]);
}

}  // namespace

constexpr Command opcCommand{"opc", "look into an OPC UA server, write values", help, options, run};

}  // namespace velt::cli
