// SPDX-License-Identifier: MIT
#pragma once

#include "platform/date.h"
#include "platform/export.h"

#include <cstdint>
#include <memory>
#include <string>

namespace velt {

/// Named values in the sections of a settings file. One object serves one save or one restore;
/// what it wrote is committed at once when it is destroyed. Keys and sections are case-sensitive.
/// A file that cannot be read behaves as an empty one, a file that cannot be written is reported
/// by the implementation's log and by nothing else: settings never stop a control.
class VELT_API Settings {
public:
    virtual ~Settings() = default;

    /// Path of the file; "" means none: then nothing is read or written.
    [[nodiscard]] virtual std::string NomeFile() const = 0;
    virtual void NomeFile(const std::string& path) = 0;
    [[nodiscard]] virtual std::string Sezione() const = 0;
    virtual void Sezione(const std::string& section) = 0;

    virtual void ScriviStringa(const std::string& key, const std::string& value) = 0;
    [[nodiscard]] virtual std::string LeggiStringa(const std::string& key,
                                                   const std::string& fallback) = 0;
    virtual void ScriviData(const std::string& key, const Date& value) = 0;
    /// A missing or unreadable date reads as the present moment.
    [[nodiscard]] virtual Date LeggiData(const std::string& key) = 0;
    /// A missing or unreadable number, or one beyond 16 bits, reads as `fallback`.
    [[nodiscard]] virtual std::int16_t LeggiIntero(const std::string& key,
                                                   std::int16_t fallback) = 0;
    /// A Boolean is passed as -1 or 0 and written as the text of its absolute value.
    virtual void ScriviIntero(const std::string& key, std::int16_t value) = 0;
    void ScriviIntero(const std::string& key, bool value) {
        ScriviIntero(key, static_cast<std::int16_t>(value ? 1 : 0));
    }
};

class VELT_API SettingsFactory {
public:
    virtual ~SettingsFactory() = default;
    [[nodiscard]] virtual std::unique_ptr<Settings> create() = 0;
};

}  // namespace velt
