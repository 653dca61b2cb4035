// SPDX-License-Identifier: MIT
#include "panel/velt/command.h"
#include "panel/velt/output.h"
#include "panel/velt/runtimesession.h"
#include "panel/velt/seconds.h"
#include "platform/runtimeerror.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <map>
#include <utility>

namespace velt::cli {

extern const Command rtuCommand;

namespace {

using Clock = RuntimeSession::Clock;

constexpr std::array options = {Option{"--config", true}, Option{"--seconds", true}};

constexpr std::string_view help =
    R"(Usage: velt rtu list [--config FILE] HOST
       velt rtu watch [--config FILE] [--seconds N] HOST
       velt rtu connect | disconnect | download [OPTION]... HOST STATION
       velt rtu download-all [OPTION]... HOST

Talks to a telecontrol runtime as the connection viewer does. HOST is a host,
HOST:PORT or an opc.tcp:// URL.

  list          prints project and version, then the stations: name, code and name
                of the line's state, separated by tabs
  watch         prints states as they change, and errors
  connect       dials a station and waits until it is connected
  disconnect    hangs up, and waits until that is done
  download      fetches the samples of a station and waits for the end
  download-all  the same for all stations, one after the other

Options:
  --config FILE  security, user and password; see docs/opc.md. Without it the
                 connection is neither signed nor encrypted, and anonymous
  --seconds N    ends watching after this time (default: when Ctrl+C is pressed),
                 or gives up waiting for a station (default: 300, 3600 for all)
  --help         show this text

Examples:
  velt rtu list localhost
  velt rtu connect scada1 RTU03
  velt rtu download-all --seconds 900 opc.tcp://scada1:4841
)";

volatile std::sig_atomic_t interrupted = 0;

/// Prints what the runtime tells, as long as it lives.
class Printer {
public:
    /// Of one station only, unless `station` is "".
    Printer(RuntimeSession& session, std::string station) : session_(session) {
        session.onStato = [this, station](const std::string& name, std::int32_t code) {
            if (!station.empty() && name != station) return;
            const auto [known, isNew] = printed_.try_emplace(name, code);
            if (!isNew && std::exchange(known->second, code) == code) return;
            output_.write(stateLine(name, code));
            output_.finish();
        };
        session.onErrore = [this](const std::string& message, const std::string& name) {
            output_.write(errorLine(message, name));
            output_.finish();
        };
    }
    ~Printer() {
        session_.onStato = nullptr;
        session_.onErrore = nullptr;
    }
    Printer(const Printer&) = delete;
    Printer& operator=(const Printer&) = delete;

private:
    RuntimeSession& session_;
    std::map<std::string, std::int32_t> printed_;  ///< last, so that only changes are
    Output output_;
};

void list(RuntimeSession& session) {
    session.waitForStates();
    Output output;
    output.write(session.heading());
    for (const std::string& station : session.stations())
        output.write(stateLine(station, session.state(station)));
    output.finish();
}

void watch(RuntimeSession& session, Clock::time_point end) {
    const Printer printer(session, "");
    session.waitForStates();
    // Ctrl+C is the usual end, not a failure: what was printed is whole.
    std::signal(SIGINT, [](int) { interrupted = 1; });
    session.listen(end, [] { return interrupted != 0; });
}

[[noreturn]] void tooLate() {
    throw RuntimeError(ErrorNumber::Cancelled, "the station is not done in time");
}

/// Does something with a station and waits until `done` says so of its newest state.
template <typename Request, typename Done>
void request(RuntimeSession& session, const std::string& station, Clock::time_point end,
             Request send, Done done) {
    if (std::ranges::count(session.stations(), station) == 0)
        throw RuntimeError(ErrorNumber::InvalidCall, "the runtime has no such station");
    session.waitForStates();
    const Printer printer(session, station);
    session.forget(station);
    send(session.client(), station);
    session.client().RichiediStatoRTU(station);  // a state that does not change is told as well
    const bool ended = session.listen(end, [&] {
        return !session.error().empty() || (session.knows(station) && done(session.state(station)));
    });
    if (!session.error().empty()) throw RuntimeError(ErrorNumber::InvalidCall, session.error());
    if (!ended) tooLate();
}

[[noreturn]] void busy() { throw RuntimeError(ErrorNumber::InvalidCall, "no modem is free"); }

void connect(RuntimeSession& session, const std::string& station, Clock::time_point end) {
    request(session, station, end, std::mem_fn(&RuntimeClient::ConnettiRTU), [](std::int32_t code) {
        if (code == 3) busy();
        return code == 2;
    });
}

void disconnect(RuntimeSession& session, const std::string& station, Clock::time_point end) {
    session.waitForStates();
    if (session.state(station) == 0) return;  // the runtime would call that an error
    request(session, station, end, std::mem_fn(&RuntimeClient::DisconnettiRTU),
            [](std::int32_t code) { return code == 0; });
}

void download(RuntimeSession& session, const std::string& station, Clock::time_point end) {
    request(session, station, end, std::mem_fn(&RuntimeClient::DownloadRTU),
            [started = false](std::int32_t code) mutable {
                if (code == 3) busy();
                started = started || code == 5;
                return started && code != 5;
            });
    session.waitForErrors();
}

void downloadAll(RuntimeSession& session, Clock::time_point end) {
    session.waitForStates();
    const Printer printer(session, "");
    session.client().DownloadTutte();
    std::map<std::string, bool> started;
    const bool ended = session.listen(end, [&] {
        bool all = true;
        for (const std::string& station : session.stations()) {
            const std::int32_t code = session.state(station);
            if (code == 5) started[station] = true;
            const bool atRest = code == 0 || code == 2 || code == 3;
            all = all && atRest && (started[station] || session.failed(station));
        }
        return all;
    });
    if (!ended) tooLate();
    session.waitForErrors();
}

void run(const CommandLine& line) {
    const std::vector<std::string>& operands = line.operands();
    const std::string verb = operands.empty() ? "" : operands.front();
    const bool ofStation = verb == "connect" || verb == "disconnect" || verb == "download";
    const bool ofAll = verb == "list" || verb == "watch" || verb == "download-all";
    if (!ofStation && !ofAll)
        throw UsageError(
            "rtu needs one of list, watch, connect, disconnect, download and download-all");
    if (ofStation && operands.size() != 3) throw UsageError("a HOST and a STATION are needed");
    if (ofAll && operands.size() != 2) throw UsageError("a HOST is needed");
    if (line.has("--seconds") && verb == "list")
        throw UsageError("--seconds does not go with list");
    auto end = Clock::time_point::max();
    if (line.has("--seconds"))
        end = Clock::now() + seconds("--seconds", line.value("--seconds"));
    else if (verb != "watch")
        end = Clock::now() + std::chrono::seconds(ofStation ? 300 : 3600);

    RuntimeSession session(operands[1], line.value("--config"));
    if (verb == "list") list(session);
    if (verb == "watch") watch(session, end);
    if (verb == "connect") connect(session, operands[2], end);
    if (verb == "disconnect") disconnect(session, operands[2], end);
    if (verb == "download") download(session, operands[2], end);
    if (verb == "download-all") downloadAll(session, end);
}

}  // namespace

constexpr Command rtuCommand{"rtu", "watch, connect and download stations", help, options, run};

}  // namespace velt::cli
