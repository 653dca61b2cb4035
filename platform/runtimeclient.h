// SPDX-License-Identifier: MIT
#pragma once

#include "platform/event.h"
#include "platform/export.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace velt {

/// The link to the telecontrol runtime. Methods other than ConnettiRuntime and ChiudiRuntime raise
/// RuntimeError without a link. Events arrive on the user-interface thread, never inside a handler.
class VELT_API RuntimeClient {
public:
    virtual ~RuntimeClient() = default;

    /// Returns quickly; Connessione or ConnectionError answers. Does nothing, and raises nothing,
    /// when linked or being linked to that host already.
    virtual void ConnettiRuntime(const std::string& application, const std::string& hostname) = 0;
    virtual void ChiudiRuntime() = 0;
    /// The answer arrives as Stato.
    virtual void RichiediStatoRTU(const std::string& station) = 0;
    virtual void ConnettiRTU(const std::string& station) = 0;
    virtual void DisconnettiRTU(const std::string& station) = 0;
    virtual void DownloadRTU(const std::string& station) = 0;
    virtual void DownloadTutte() = 0;

    /// Names of the stations of the runtime's project.
    [[nodiscard]] virtual std::vector<std::string> ElencoRTU() const = 0;
    /// The link is up.
    [[nodiscard]] virtual bool RuntimeAttivo() const = 0;
    [[nodiscard]] virtual std::string Versione() const = 0;
    [[nodiscard]] virtual std::string NomeProgetto() const = 0;

    /// Opening the link failed: 0 the runtime is not running, 1 it has no project or no station.
    Event<std::int32_t> ConnectionError;
    Event<> Connessione;
    Event<> Disconnessione;
    /// Message, and the station that it is about ("" for none).
    Event<const std::string&, const std::string&> Errore;
    /// Station and its line state.
    Event<const std::string&, std::int32_t> Stato;
};

class VELT_API RuntimeClientFactory {
public:
    virtual ~RuntimeClientFactory() = default;
    [[nodiscard]] virtual std::shared_ptr<RuntimeClient> create() = 0;
};

}  // namespace velt
