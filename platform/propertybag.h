// SPDX-License-Identifier: MIT
#pragma once

#include "platform/export.h"

#include <cstdint>
#include <string>

namespace velt {

/// A colour as hosts persist it: 0x00BBGGRR, or 0x80000000 + index of a system colour.
using OleColor = std::uint32_t;

/// The host's store of persisted properties. Reading never fails: a missing key, or one of
/// another kind, yields the default.
class VELT_API PropertyBag {
public:
    virtual ~PropertyBag() = default;
    [[nodiscard]] virtual OleColor ReadProperty(const std::string& key,
                                                OleColor fallback) const = 0;
    [[nodiscard]] virtual std::string ReadProperty(const std::string& key,
                                                   const std::string& fallback) const = 0;
    /// The default is passed so that a store may leave out what equals it.
    virtual void WriteProperty(const std::string& key, OleColor value, OleColor fallback) = 0;
    virtual void WriteProperty(const std::string& key, const std::string& value,
                               const std::string& fallback) = 0;
};

}  // namespace velt
