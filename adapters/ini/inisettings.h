// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/ini/inidocument.h"
#include "platform/clock.h"
#include "platform/dispatcher.h"
#include "platform/export.h"
#include "platform/settings.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace velt::ini {

struct IniOptions {
    /// Told, in Italian, why a file could not be read or written; from any thread. Standard error
    /// by default.
    std::function<void(const std::string&)> log{};
    /// How long a save waits for another program that is saving to the same file.
    std::chrono::milliseconds lockWait{2000};
    /// Files are saved through it, which must outlive the settings; null: on the caller's thread.
    Dispatcher* dispatcher = nullptr;
};

/// Settings in an INI file (UTF-8 or Windows-1252; how texts stand in it: textform.h). The file is
/// read once, by the first value that is asked for. What was written goes to the file when the
/// object is destroyed or gets another file: the file is then read again under a lock and only the
/// keys that were written are changed, so that programs that save at once lose nothing. A save
/// whose wait is cancelled goes on by itself. A section that could not be read is not saved until
/// it has been: its reader has defaults, which must not replace what it has not seen. No member
/// throws. Used by one thread at a time.
class VELT_API IniSettings final : public Settings {
public:
    /// File and section of each that the settings of a process have tried in vain to read.
    using Unread = std::set<std::pair<std::string, std::string>>;

    /// `clock` must outlive the object.
    IniSettings(Clock& clock, IniOptions options, std::shared_ptr<Unread> unread);
    ~IniSettings() override;
    IniSettings(const IniSettings&) = delete;
    IniSettings& operator=(const IniSettings&) = delete;

    [[nodiscard]] std::string NomeFile() const override { return file_; }
    void NomeFile(const std::string& path) override;
    [[nodiscard]] std::string Sezione() const override { return section_; }
    void Sezione(const std::string& section) override { section_ = section; }

    void ScriviStringa(const std::string& key, const std::string& value) override;
    [[nodiscard]] std::string LeggiStringa(const std::string& key,
                                           const std::string& fallback) override;
    /// Written as isoText; a date outside the years 100..9999 is not written, and logged.
    void ScriviData(const std::string& key, const Date& value) override;
    /// Reads also the forms that an Italian system writes: day/month/year, with or without a time
    /// whose parts are separated by "." or ":".
    [[nodiscard]] Date LeggiData(const std::string& key) override;
    /// The words of a Boolean (True, Vero, False, Falso) read as 1 and 0.
    [[nodiscard]] std::int16_t LeggiIntero(const std::string& key, std::int16_t fallback) override;
    using Settings::ScriviIntero;
    void ScriviIntero(const std::string& key, std::int16_t value) override;

private:
    struct Change {
        std::string section;
        std::string key;
        std::string value;
    };
    struct Save;

    [[nodiscard]] std::optional<std::string> find(const std::string& key);
    void load();
    void commit();

    Clock& clock_;
    IniOptions options_;
    std::shared_ptr<Unread> unread_;
    std::string file_;
    std::string section_;
    std::vector<Change> changes_;  ///< not yet in the file, in the order of writing
    std::optional<IniDocument> document_;
    bool readable_ = true;  ///< the file, when `document_` was read from it
};

class VELT_API IniSettingsFactory final : public SettingsFactory {
public:
    /// `clock` must outlive the factory and its objects.
    explicit IniSettingsFactory(Clock& clock, IniOptions options = {});
    [[nodiscard]] std::unique_ptr<Settings> create() override;

private:
    Clock& clock_;
    IniOptions options_;
    std::shared_ptr<IniSettings::Unread> unread_ = std::make_shared<IniSettings::Unread>();
};

}  // namespace velt::ini
