// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace velt::cli {

/// A wrong command line; what() says why.
class UsageError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct Option {
    std::string_view name;  ///< with its dashes, "--csv"
    bool takesValue = false;
};

/// What stands behind the name of a command. Options may stand anywhere before "--", their values
/// behind "=" or as the next argument; "--help" and "-h" are always known.
class CommandLine {
public:
    /// UsageError for an option that is not in `known`, given twice, or without its value.
    CommandLine(std::span<const char* const> arguments, std::span<const Option> known);

    [[nodiscard]] bool has(std::string_view option) const;
    /// The option's value, "" when it was not given.
    [[nodiscard]] std::string value(std::string_view option) const;
    [[nodiscard]] const std::vector<std::string>& operands() const { return operands_; }

private:
    std::map<std::string, std::string, std::less<>> options_;
    std::vector<std::string> operands_;
};

}  // namespace velt::cli
