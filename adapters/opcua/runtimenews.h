// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <list>
#include <map>
#include <mutex>
#include <optional>
#include <string>

namespace velt::opcua {

/// What a runtime tells about a station.
struct RuntimeNews {
    enum class Kind { Stato, Errore };
    Kind kind;
    std::string station;
    std::int32_t code = 0;  ///< of Stato
    std::string message;    ///< of Errore
};

/// Where news wait for the user-interface thread, in the order of their arrival. Of the states of
/// a station only the newest is kept, of errors not more than a reader could want, so that a slow
/// reader keeps memory bounded. Any thread.
class RuntimeNewsQueue {
public:
    /// `announce` is called when there is something to take, not again before all was taken.
    explicit RuntimeNewsQueue(std::function<void()> announce) : announce_(std::move(announce)) {}

    void stato(const std::string& station, std::int32_t code);
    void errore(const std::string& message, const std::string& station);
    /// The next one; nothing when all have been taken.
    [[nodiscard]] std::optional<RuntimeNews> take();

private:
    static constexpr std::size_t MaxErrors = 1000;

    void put(RuntimeNews news);

    std::mutex mutex_;
    std::list<RuntimeNews> waiting_;
    std::map<std::string, std::list<RuntimeNews>::iterator> states_;
    std::size_t errors_ = 0;
    bool announced_ = false;
    std::function<void()> announce_;
};

}  // namespace velt::opcua
