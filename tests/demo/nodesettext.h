// SPDX-License-Identifier: MIT
// The nodes of a name space of a running server, written as a NodeSet2 document.
#pragma once

#include "tests/demo/uaclient.h"

#include <string>
#include <vector>

namespace velt::demo {

/// All nodes of the name space `space` that hang below `roots`, each with its references.
[[nodiscard]] std::string nodeSetText(UaClient& client, std::uint16_t space, const std::string& uri,
                                      const std::vector<std::uint32_t>& roots);

}  // namespace velt::demo
