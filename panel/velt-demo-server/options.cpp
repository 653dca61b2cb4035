// SPDX-License-Identifier: MIT
#include "panel/velt-demo-server/options.h"

#include "platform/runtimeerror.h"

#include <array>
#include <charconv>
#include <fstream>
#include <string>

namespace velt::demo {
namespace {

constexpr std::array Known = {
    cli::Option{"--port", true},          cli::Option{"--stations", true},
    cli::Option{"--variables", true},     cli::Option{"--interval", true},
    cli::Option{"--seed", true},          cli::Option{"--data", true},
    cli::Option{"--pki", true},           cli::Option{"--user", true},
    cli::Option{"--password-file", true}, cli::Option{"--version"},
};

template <typename Number>
Number number(const cli::CommandLine& line, std::string_view option, Number fallback, Number low,
              Number high) {
    if (!line.has(option)) return fallback;
    const std::string text = line.value(option);
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || value < low || value > high)
        throw cli::UsageError(std::string(option) + " needs a whole number from " +
                              std::to_string(low) + " to " + std::to_string(high));
    return value;
}

std::string firstLine(const std::string& path) {
    std::ifstream in(path);
    std::string line;
    if (!std::getline(in, line))
        throw RuntimeError(ErrorNumber::FileNotFound, "Impossibile leggere " + path);
    return line;
}

}  // namespace

const char* const serverHelp =
    "Usage: velt-demo-server [OPTION]...\n\n"
    "The OPC UA server of the demo plant, for this machine only. Prints its endpoint when it is\n"
    "ready and runs until it is interrupted; its clients are then told that it ends.\n\n"
    "  --port N              TCP port (default 4840; 0: any that is free)\n"
    "  --interval MS         between two changes of a value (default 1000)\n"
    "  --seed N              of what the plant makes up (default 1)\n"
    "  --data DIR            run the whole demo installation in this folder: the plant's\n"
    "                        configuration VeltRTU.ini, the stations' databases (downloads go\n"
    "                        there) and the alarm history\n"
    "  --stations N          for measuring: N stations of numbers that all change at each\n"
    "  --variables M         interval, M in each (default 1250), instead of the plant\n"
    "  --pki DIR             serve encrypted connections only: DIR/own holds the server's\n"
    "                        certificate (made when missing), DIR/trusted those of its clients\n"
    "  --user NAME           with --pki: who may connect ...\n"
    "  --password-file FILE  ... and the file whose first line is the password\n"
    "  --help                this text\n"
    "  --version             the version\n\n"
    "Exit codes: 0 ended on request, 1 failed, 2 wrong usage.\n";

std::span<const cli::Option> serverOptions() { return Known; }

PlantServerOptions plantServerOptions(const cli::CommandLine& line) {
    if (!line.operands().empty()) throw cli::UsageError("unexpected " + line.operands().front());
    PlantServerOptions options;
    options.server.port = number<std::uint16_t>(line, "--port", 4840, 0, 65535);
    options.interval = std::chrono::milliseconds(number(line, "--interval", 1000, 1, 3'600'000));
    options.seed = number<std::uint64_t>(line, "--seed", 1, 0, UINT64_MAX);
    options.loadStations = number<std::size_t>(line, "--stations", 0, 1, 999);
    options.loadVariables = number<std::size_t>(line, "--variables", 1250, 1, 100'000);
    if (line.has("--variables") && !line.has("--stations"))
        throw cli::UsageError("--variables goes with --stations");
    if (line.has("--data") && line.has("--stations"))
        throw cli::UsageError("--data does not go with --stations");
    if (line.has("--pki") != line.has("--user") || line.has("--pki") != line.has("--password-file"))
        throw cli::UsageError("--pki, --user and --password-file go together");
    if (line.has("--pki"))
        options.server.security = ServerSecurity{line.value("--pki"), line.value("--user"),
                                                 firstLine(line.value("--password-file"))};
    return options;
}

InstallationOptions installationOptions(const cli::CommandLine& line,
                                        const PlantServerOptions& server) {
    InstallationOptions options;
    options.folder = line.value("--data");
    options.seed = server.seed;
    options.opcPort = server.server.port;
    options.interval = server.interval;
    options.security = server.server.security;
    options.log = server.server.log;
    return options;
}

}  // namespace velt::demo
