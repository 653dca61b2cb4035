// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace velt::opcua {

/// The endpoint URL of a node: opc.tcp://NODE:4840. The node is a host or an address, with or
/// without ":port"; none or "" is localhost; an opc.tcp:// URL is taken as it is.
[[nodiscard]] std::string endpointOf(const std::optional<std::string>& node);

/// The host of an endpoint URL, without the brackets of an IPv6 address.
[[nodiscard]] std::string hostOf(const std::string& endpoint);

/// The same endpoint by each address of its host but the first: the library tries only that one,
/// and "localhost" often is ::1 first where a server listens on 127.0.0.1. May block.
[[nodiscard]] std::vector<std::string> otherAddresses(const std::string& endpoint);

}  // namespace velt::opcua
