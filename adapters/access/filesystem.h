// SPDX-License-Identifier: MIT
#pragma once

#include "platform/dispatcher.h"
#include "platform/filesystem.h"

namespace velt::access {

/// The machine's file system, with paths as resolvePath() finds them. Asks through the dispatcher,
/// for a share whose server is dead can take minutes to say so; a cancelled wait raises
/// RuntimeError 3059.
class LocalFileSystem final : public clsFileSystem {
public:
    /// `dispatcher` must outlive this object.
    explicit LocalFileSystem(Dispatcher& dispatcher) : dispatcher_(dispatcher) {}

    [[nodiscard]] bool FileExists(const std::string& path) override;

private:
    Dispatcher& dispatcher_;
};

}  // namespace velt::access
