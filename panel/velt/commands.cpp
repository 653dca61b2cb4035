// SPDX-License-Identifier: MIT
#include "panel/velt/command.h"

#include <array>

namespace velt::cli {

extern const Command tablesCommand;

std::span<const Command* const> commands() {
    static constexpr std::array all = {&tablesCommand};
    return all;
}

}  // namespace velt::cli
