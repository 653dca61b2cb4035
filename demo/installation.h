// SPDX-License-Identifier: MIT
#pragma once

#include "demo/serversecurity.h"
#include "platform/clock.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace velt::demo {

struct InstallationOptions {
    std::filesystem::path folder;  ///< where the data lies; made when missing
    std::uint64_t seed = 1;
    std::chrono::milliseconds alarmInterval{4000};  ///< between the alarms that come in
    int historyDays = 90;
    int historyAlarms = 20000;
    /// Of the OPC UA server; 0: any that is free, nothing: no server. When the port is busy that is
    /// told, and any other one is taken.
    std::optional<std::uint16_t> opcPort;
    std::chrono::milliseconds interval{1000};  ///< between two changes of a live value
    std::optional<ServerSecurity> security;    ///< of the server
    int stationDays = 35;                      ///< of samples in a station's new database
    /// Told, on another thread, what went wrong while running.
    std::function<void(const std::string&)> log;
};

/// The demo installation: a plant in a data folder that lives while this object does. The first
/// start writes an alarm history up to now and the databases of all stations but two, which have
/// none until they are downloaded; a later one brings those that are there up to date. While it
/// runs new alarms are appended, and its OPC UA server serves the live values. One at a time may
/// use a folder. Errors are RuntimeError.
class Installation {
public:
    Installation(InstallationOptions options, Clock& clock);
    ~Installation();

    [[nodiscard]] std::filesystem::path alarmFile() const;
    [[nodiscard]] std::filesystem::path settingsFile() const;
    /// The plant's configuration, "VeltRTU.ini"; the stations' databases lie beside it.
    [[nodiscard]] std::filesystem::path configFile() const;
    /// "opc.tcp://127.0.0.1:PORT"; "" without a server.
    [[nodiscard]] std::string opcEndpoint() const;

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace velt::demo
