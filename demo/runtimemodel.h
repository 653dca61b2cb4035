// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

struct UA_Server;

/// The information model of a telecontrol runtime, as docs/runtime-model.md tells it.
namespace velt::demo::runtimemodel {

inline constexpr const char* Space = "urn:velt:runtime";

// Nodes of its name space.
inline constexpr std::uint32_t RuntimeType = 1001;
inline constexpr std::uint32_t StazioneType = 1002;
inline constexpr std::uint32_t ErroreEventType = 1003;
inline constexpr std::uint32_t ConnettiRTU = 1021;
inline constexpr std::uint32_t DisconnettiRTU = 1022;
inline constexpr std::uint32_t DownloadRTU = 1023;
inline constexpr std::uint32_t DownloadTutte = 1024;

/// Adds the types to a server; the index of their name space there. RuntimeError.
std::uint16_t addTypes(UA_Server& server);

}  // namespace velt::demo::runtimemodel
