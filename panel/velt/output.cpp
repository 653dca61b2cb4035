// SPDX-License-Identifier: MIT
#include "panel/velt/output.h"

#include "platform/runtimeerror.h"

#include <cerrno>
#include <system_error>
#include <unistd.h>

namespace velt::cli {
namespace {

constexpr std::size_t blockSize = 65536;

void writeAll(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(STDOUT_FILENO, bytes.data(), bytes.size());
        if (written >= 0)
            bytes.remove_prefix(static_cast<std::size_t>(written));
        else if (errno != EINTR)
            throw RuntimeError(ErrorNumber::PathAccess,
                               "standard output: " + std::generic_category().message(errno));
    }
}

}  // namespace

void Output::write(std::string_view text) {
    buffer_ += text;
    if (buffer_.size() < blockSize) return;
    writeAll(buffer_);
    buffer_.clear();
}

void Output::finish() {
    writeAll(buffer_);
    buffer_.clear();
}

bool Output::isTerminal() { return isatty(STDOUT_FILENO) == 1; }

}  // namespace velt::cli
