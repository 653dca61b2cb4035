// SPDX-License-Identifier: MIT
#include "demo/plantruntime.h"

#include <algorithm>
#include <utility>

namespace velt::demo {

using enum LineCode;

PlantRuntime::PlantRuntime(PlantRuntimeOptions options, std::unique_ptr<Downloader> downloader,
                           std::function<Instant()> clock)
    : options_(std::move(options)), downloader_(std::move(downloader)), clock_(std::move(clock)) {
    for (const std::string& name : options_.stations) stations_.push_back({name});
}

PlantRuntime::Station* PlantRuntime::find(const std::string& name) {
    const auto found = std::ranges::find(stations_, name, &Station::name);
    return found == stations_.end() ? nullptr : &*found;
}

bool PlantRuntime::lineIsFree() const {
    return std::ranges::count_if(stations_, [](const Station& station) {
               return station.state != Disconnected && station.state != ModemBusy;
           }) < options_.freeLines;
}

bool PlantRuntime::connect(const std::string& name) {
    Station* station = find(name);
    if (!station) return false;
    switch (station->state) {
        case Disconnected:
        case ModemBusy: dial(*station); break;
        case Disconnecting: Errore.raise("disconnessione in corso", name); break;
        case Dialing:
        case Connected:
        case Downloading: break;  // it is what was asked for
    }
    return true;
}

bool PlantRuntime::disconnect(const std::string& name) {
    Station* station = find(name);
    if (!station) return false;
    switch (station->state) {
        case Dialing:
        case Connected: hangUp(*station); break;
        case Downloading: Errore.raise("download in corso", name); break;
        case Disconnected:
        case ModemBusy: Errore.raise("stazione non connessa", name); break;
        case Disconnecting: break;
    }
    return true;
}

bool PlantRuntime::download(const std::string& name) {
    Station* station = find(name);
    if (!station) return false;
    switch (station->state) {
        case Disconnected:
        case ModemBusy:
            dial(*station);
            station->download = station->hangUpAfter = station->state == Dialing;
            break;
        case Dialing: station->download = true; break;
        case Connected: startDownload(*station); break;
        case Disconnecting: Errore.raise("disconnessione in corso", name); break;
        case Downloading: break;
    }
    return true;
}

void PlantRuntime::downloadAll() {
    for (std::size_t i = 0; i < stations_.size(); ++i) {
        Station& station = stations_[i];
        const bool onLine =
            station.state == Dialing || station.state == Connected || station.state == Downloading;
        if (onLine) {
            station.hangUpAfter = true;
            download(station.name);
        } else if (std::ranges::find(queue_, i) == queue_.end()) {
            queue_.push_back(i);
        }
    }
    useFreeLine();
}

void PlantRuntime::dial(Station& station) {
    if (!lineIsFree()) {
        station.state = ModemBusy;
        return;
    }
    station.state = Dialing;
    station.until = clock_() + options_.dialing;
}

void PlantRuntime::hangUp(Station& station) {
    station.download = station.hangUpAfter = false;
    station.state = Disconnecting;
    station.until = clock_() + options_.hangingUp;
}

void PlantRuntime::startDownload(Station& station) {
    station.download = false;
    station.state = Downloading;
    station.until = clock_() + options_.downloading;
    downloader_->start(station.name);
}

void PlantRuntime::callDone(Station& station) {
    const int call = station.calls++;
    if (station.name == options_.troubled && call % 2 == 0) {
        station.download = station.hangUpAfter = false;
        station.state = Disconnected;
        Errore.raise(call % 4 == 0 ? "nessuna risposta" : "linea occupata", station.name);
    } else {
        station.state = Connected;
        if (station.download) startDownload(station);
    }
}

void PlantRuntime::downloadDone(Station& station) {
    const std::optional<std::string> failure = downloader_->outcome(station.name);
    if (!failure) return;  // the next time
    if (station.hangUpAfter)
        hangUp(station);
    else
        station.state = Connected;
    if (!failure->empty()) Errore.raise(*failure, station.name);
}

void PlantRuntime::useFreeLine() {
    if (!lineIsFree()) return;
    for (Station& station : stations_)
        if (station.state == ModemBusy) station.state = Disconnected;
    while (lineIsFree() && !queue_.empty()) {
        Station& next = stations_[queue_.front()];
        queue_.pop_front();
        if (next.state != Disconnected) continue;  // somebody else has dialed it
        dial(next);
        next.download = next.hangUpAfter = true;
    }
}

void PlantRuntime::advance() {
    const Instant now = clock_();
    for (Station& station : stations_) {
        const bool timed = station.state == Dialing || station.state == Disconnecting ||
                           station.state == Downloading;
        if (!timed || now < station.until) continue;
        if (station.state == Dialing)
            callDone(station);
        else if (station.state == Downloading)
            downloadDone(station);
        else
            station.state = Disconnected;
    }
    useFreeLine();
}

}  // namespace velt::demo
