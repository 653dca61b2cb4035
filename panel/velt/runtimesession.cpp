// SPDX-License-Identifier: MIT
#include "panel/velt/runtimesession.h"

#include "connviewer/linestate.h"
#include "panel/velt/texttable.h"
#include "platform/runtimeerror.h"

#include <algorithm>

namespace velt::cli {
namespace {

using namespace std::chrono_literals;

constexpr auto LinkPatience = 30s;
constexpr auto StatesPatience = 5s;
constexpr auto ErrorsPatience = 500ms;

}  // namespace

RuntimeSession::RuntimeSession(const std::string& host, const std::string& configFile)
    : factory_(dispatcher_, {configFile, [this](const std::string& reason) { reason_ = reason; }}),
      client_(factory_.create()) {
    client_->ConnectionError.subscribe([this](std::int32_t code) { refused_ = code; });
    client_->Disconnessione.subscribe([this] { lost_ = true; });
    client_->Stato.subscribe([this](const std::string& station, std::int32_t code) {
        states_[station] = code;
        if (onStato) onStato(station, code);
    });
    client_->Errore.subscribe([this](const std::string& message, const std::string& station) {
        error_ = station.empty() ? message : station + ": " + message;
        failed_.insert(station);
        if (onErrore) onErrore(message, station);
    });
    client_->ConnettiRuntime("velt", host);
    const bool decided = dispatcher_.runUntil(
        [this] { return client_->RuntimeAttivo() || refused_; }, Clock::now() + LinkPatience);
    if (refused_ == 1)
        throw RuntimeError(ErrorNumber::ObjectNotSet, "the runtime has no project or no station");
    if (!decided || refused_) throw RuntimeError(ErrorNumber::ObjectNotSet, reason_);
    for (const std::string& name : client_->ElencoRTU())
        if (!name.empty()) stations_.push_back(name);
}

std::string RuntimeSession::heading() const {
    return printable(client_->NomeProgetto()) + ", version " + printable(client_->Versione()) +
           '\n';
}

std::int32_t RuntimeSession::state(const std::string& station) const {
    const auto known = states_.find(station);
    return known == states_.end() ? -1 : known->second;
}

void RuntimeSession::forget(const std::string& station) {
    states_.erase(station);
    failed_.clear();
    error_.clear();
}

bool RuntimeSession::listen(Clock::time_point end, const std::function<bool()>& done) {
    bool ended = false;
    // A look now and then, for a Ctrl+C.
    while (!ended && !lost_ && Clock::now() < end)
        ended = dispatcher_.runUntil([&] { return lost_ || done(); },
                                     std::min(end, Clock::now() + 50ms));
    if (lost_) throw RuntimeError(ErrorNumber::ObjectClosed, reason_);
    return ended;
}

void RuntimeSession::waitForStates() {
    states_.clear();
    for (const std::string& station : stations_) client_->RichiediStatoRTU(station);
    (void)listen(Clock::now() + StatesPatience, [this] {
        return std::ranges::all_of(stations_, [this](const auto& name) { return knows(name); });
    });
}

void RuntimeSession::waitForErrors() {
    (void)listen(Clock::now() + ErrorsPatience, [this] { return !error_.empty(); });
    if (!error_.empty()) throw RuntimeError(ErrorNumber::InvalidCall, error_);
}

std::string stateLine(const std::string& station, std::int32_t code) {
    const LineState* const known = lineState(code);
    return printable(station) + '\t' + std::to_string(code) + '\t' + (known ? known->caption : "") +
           '\n';
}

std::string errorLine(const std::string& message, const std::string& station) {
    return printable(station) + "\terror\t" + printable(message) + '\n';
}

}  // namespace velt::cli
