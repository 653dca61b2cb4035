// SPDX-License-Identifier: MIT
#pragma once

#include "demo/installation.h"
#include "demo/plantserver.h"
#include "panel/velt/commandline.h"

#include <span>

namespace velt::demo {

/// What the program can do, for --help.
extern const char* const serverHelp;

/// The options that it knows.
[[nodiscard]] std::span<const cli::Option> serverOptions();

/// What the command line asks for. UsageError when it cannot be understood, RuntimeError when the
/// password file cannot be read.
[[nodiscard]] PlantServerOptions plantServerOptions(const cli::CommandLine& line);
/// The same for --data.
[[nodiscard]] InstallationOptions installationOptions(const cli::CommandLine& line,
                                                      const PlantServerOptions& server);

}  // namespace velt::demo
