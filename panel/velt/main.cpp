// SPDX-License-Identifier: MIT
#include "panel/velt/command.h"
#include "panel/velt/output.h"
#include "platform/runtimeerror.h"

#include <algorithm>
#include <csignal>
#include <exception>
#include <fcntl.h>
#include <iostream>
#include <new>
#include <string>

namespace velt::cli {
namespace {

std::string programHelp() {
    std::string text =
        "Usage: velt COMMAND [OPTION]... [ARGUMENT]...\n\n"
        "Tools for those who set up a telecontrol installation.\n\nCommands:\n";
    for (const Command* command : commands())
        text += "  " + std::string(command->name) + std::string(10 - command->name.size(), ' ') +
                std::string(command->summary) + '\n';
    return text +
           "\n'velt COMMAND --help' explains a command, 'velt --version' tells the version.\n"
           "Exit codes: 0 done, 1 failed, 2 wrong usage.\n";
}

int show(std::string_view text) {
    Output output;
    output.write(text);
    output.finish();
    return exitOk;
}

const Command& commandOf(std::string_view name) {
    const auto found =
        std::ranges::find(commands(), name, [](const Command* command) { return command->name; });
    if (found == commands().end()) throw UsageError("unknown command " + std::string(name));
    return **found;
}

int run(std::span<const char* const> arguments) {
    if (arguments.empty()) throw UsageError("a command is needed");
    const std::string_view first = arguments.front();
    if (first == "--help" || first == "-h") return show(programHelp());
    if (first == "--version") return show("velt " VELT_VERSION "\n");
    const Command& command = commandOf(first);
    const CommandLine line(arguments.subspan(1), command.options);
    if (line.has("--help")) return show(command.help);
    command.run(line);
    return exitOk;
}

/// A standard stream that was closed by the caller is taken by a file that cannot be written:
/// else the next file opened would stand there, and an output to it would not fail.
void occupyClosedStreams() {
    for (int stream = 0; stream <= 2; ++stream)
        if (fcntl(stream, F_GETFD) < 0 && open("/dev/null", O_RDONLY) < 0) std::terminate();
}

}  // namespace
}  // namespace velt::cli

int main(int count, char** arguments) {
    using namespace velt::cli;
    occupyClosedStreams();
    std::signal(SIGPIPE, SIG_IGN);  // a reader that has gone is an error of writing
    try {
        const std::span<const char* const> all(arguments, static_cast<std::size_t>(count));
        return run(all.empty() ? all : all.subspan(1));
    } catch (const UsageError& error) {
        std::cerr << "velt: " << error.what() << "\nSee 'velt --help'.\n";
        return exitUsage;
    } catch (const velt::RuntimeError& error) {
        std::cerr << "velt: error " << error.Number() << ": " << error.Description() << '\n';
    } catch (const std::bad_alloc&) {
        std::cerr << "velt: not enough memory\n";
    } catch (const std::exception& error) {
        std::cerr << "velt: " << error.what() << '\n';
    }
    return exitFailure;
}
