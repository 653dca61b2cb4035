// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace velt::demo {

/// Fetches the samples of a station while the runtime goes on.
class Downloader {
public:
    virtual ~Downloader() = default;
    virtual void start(const std::string& station) = 0;
    /// Nothing while it still runs, else what went wrong, "" for nothing. Asked until it answers.
    [[nodiscard]] virtual std::optional<std::string> outcome(const std::string& station) = 0;
};

/// Leaves nothing behind.
class NoDownloader final : public Downloader {
public:
    void start(const std::string&) override {}
    std::optional<std::string> outcome(const std::string&) override { return ""; }
};

}  // namespace velt::demo
