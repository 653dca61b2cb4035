// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtimeerror.h"

#include <filesystem>
#include <string>

namespace velt::jet {

/// The error that names the file and the reason (Italian, without a full stop at its end).
[[nodiscard]] inline RuntimeError fileError(ErrorNumber number, const std::filesystem::path& path,
                                            const std::string& reason) {
    return {number, "Il file \"" + path.string() + "\" non può essere usato: " + reason + "."};
}

/// The error of a failed system call on the file.
[[nodiscard]] RuntimeError systemError(int error, const std::filesystem::path& path);

}  // namespace velt::jet
