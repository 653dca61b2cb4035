// SPDX-License-Identifier: MIT
#include "panel/velt/command.h"

#include <array>

namespace velt::cli {

extern const Command tablesCommand;
extern const Command sqlCommand;
extern const Command opcCommand;
extern const Command rtuCommand;
extern const Command trendCommand;

std::span<const Command* const> commands() {
    static constexpr std::array all = {&tablesCommand, &sqlCommand, &trendCommand, &opcCommand,
                                       &rtuCommand};
    return all;
}

}  // namespace velt::cli
