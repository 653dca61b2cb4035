// SPDX-License-Identifier: MIT
#pragma once

#include "demo/downloader.h"
#include "platform/event.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace velt::demo {

/// The states of a station's line.
enum class LineCode : std::int32_t {
    Disconnected = 0,
    Dialing = 1,
    Connected = 2,
    ModemBusy = 3,
    Disconnecting = 4,
    Downloading = 5,
};

struct PlantRuntimeOptions {
    std::string version = "2.4.1";
    std::string project = "Acquedotto dimostrativo";
    std::vector<std::string> stations;
    /// Modem lines that are not in use by others: of two lines one is always taken.
    int freeLines = 1;
    std::string troubled = "RTU06";  ///< the station that cannot be reached every other time
    std::chrono::milliseconds dialing{3000};
    std::chrono::milliseconds hangingUp{1500};
    std::chrono::milliseconds downloading{4000};  ///< at least
};

/// The telecontrol runtime of the demo: dials the stations, hangs up, downloads. A request starts
/// something or is refused by an Errore; time does the rest. Used by one thread.
class PlantRuntime {
public:
    using Instant = std::chrono::steady_clock::time_point;

    /// `clock` gives the present moment.
    PlantRuntime(PlantRuntimeOptions options, std::unique_ptr<Downloader> downloader,
                 std::function<Instant()> clock);

    [[nodiscard]] const PlantRuntimeOptions& options() const { return options_; }
    /// By the station's position in the options.
    [[nodiscard]] LineCode state(std::size_t station) const { return stations_[station].state; }

    // False for a station that is not known; of a name that occurs twice the first one is meant.
    bool connect(const std::string& station);
    bool disconnect(const std::string& station);
    /// Connects first when need be, and then hangs up afterwards.
    bool download(const std::string& station);
    /// One after the other; each is hung up afterwards, since the next one needs the line.
    void downloadAll();

    /// Lets everything happen that is due by now.
    void advance();

    /// Message, and the station that it is about.
    Event<const std::string&, const std::string&> Errore;

private:
    struct Station {
        std::string name;
        LineCode state = LineCode::Disconnected;
        Instant until{};           ///< of Dialing, Disconnecting, Downloading
        bool download = false;     ///< once it is connected
        bool hangUpAfter = false;  ///< once it is downloaded
        int calls = 0;
    };

    [[nodiscard]] Station* find(const std::string& name);
    [[nodiscard]] bool lineIsFree() const;
    void dial(Station& station);
    void hangUp(Station& station);
    void startDownload(Station& station);
    void callDone(Station& station);
    void downloadDone(Station& station);
    void useFreeLine();

    PlantRuntimeOptions options_;
    std::unique_ptr<Downloader> downloader_;
    std::function<Instant()> clock_;
    std::vector<Station> stations_;
    std::deque<std::size_t> queue_;  ///< still to be downloaded
};

}  // namespace velt::demo
