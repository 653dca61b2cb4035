// SPDX-License-Identifier: MIT
#include "panel/velt/commandline.h"

#include <algorithm>

namespace velt::cli {
namespace {

constexpr Option help{"--help"};

const Option& find(std::string_view name, std::span<const Option> known) {
    if (name == help.name || name == "-h") return help;
    const auto option = std::ranges::find(known, name, &Option::name);
    if (option == known.end()) throw UsageError("unknown option " + std::string(name));
    return *option;
}

}  // namespace

CommandLine::CommandLine(std::span<const char* const> arguments, std::span<const Option> known) {
    bool optionsEnded = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string_view argument = arguments[i];
        if (optionsEnded || argument.size() < 2 || argument.front() != '-') {
            operands_.emplace_back(argument);
            continue;
        }
        if (argument == "--") {
            optionsEnded = true;
            continue;
        }
        const std::size_t equals = argument.find('=');
        const Option& option = find(argument.substr(0, equals), known);
        const std::string name(option.name);
        std::string value;
        if (equals != std::string_view::npos) {
            if (!option.takesValue) throw UsageError("option " + name + " takes no value");
            value = argument.substr(equals + 1);
        } else if (option.takesValue) {
            if (++i == arguments.size()) throw UsageError("option " + name + " needs a value");
            value = arguments[i];
        }
        if (!options_.emplace(name, value).second && option.takesValue)
            throw UsageError("option " + name + " is given twice");
    }
}

bool CommandLine::has(std::string_view option) const { return options_.contains(option); }

std::string CommandLine::value(std::string_view option) const {
    const auto found = options_.find(option);
    return found == options_.end() ? std::string() : found->second;
}

}  // namespace velt::cli
