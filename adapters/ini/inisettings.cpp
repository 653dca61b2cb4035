// SPDX-License-Identifier: MIT
#include "adapters/ini/inisettings.h"

#include "adapters/ini/filelock.h"
#include "adapters/ini/settingsfile.h"
#include "platform/conversions.h"
#include "platform/isodate.h"
#include "platform/runtimeerror.h"

#include <atomic>
#include <exception>
#include <iostream>
#include <limits>
#include <string_view>
#include <utility>

namespace velt::ini {
namespace {

/// The document of the file's bytes. UTF-16, in which some Windows programs save, has a mark of
/// its own; lines of ours would spoil such a file.
IniDocument documentOf(std::string_view bytes, const std::string& path) {
    if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF"))
        throw RuntimeError(ErrorNumber::PathAccess,
                           "«" + path + "»: la codifica UTF-16 non è ammessa");
    return IniDocument(bytes);
}

void report(const IniOptions& options, const std::string& what, const std::string& why) {
    try {
        const std::string message = what + ": " + why;
        if (options.log)
            options.log(message);
        else
            std::cerr << message << '\n';
    } catch (...) {
        // A log that fails has nobody left to tell.
    }
}

}  // namespace

/// A save on its way; it may outlive the settings.
struct IniSettings::Save {
    Save(const IniOptions& o, std::string f, std::vector<Change> c)
        : options(o), file(std::move(f)), changes(std::move(c)) {}

    /// Whoever comes first saves.
    void run() {
        if (begun.exchange(true)) return;
        try {
            const std::string path = settingsPath(file);
            const FileLock lock(companionPath(path, ".lock"), options.lockWait);
            const auto before = readFile(path);
            IniDocument document = documentOf(before.value_or(""), path);
            for (const Change& change : changes)
                document.set(change.section, change.key, change.value);
            const std::string after = document.bytes();
            if (after != before) replaceFile(path, after);
        } catch (const std::exception& error) {
            report(options, "Impostazioni non salvate", error.what());  // the file is as it was
        }
    }

    const IniOptions options;
    const std::string file;
    const std::vector<Change> changes;
    std::atomic<bool> begun = false;
};

IniSettings::IniSettings(Clock& clock, IniOptions options, std::shared_ptr<Unread> unread)
    : clock_(clock), options_(std::move(options)), unread_(std::move(unread)) {}

IniSettings::~IniSettings() { commit(); }

void IniSettings::NomeFile(const std::string& path) {
    commit();
    document_.reset();
    file_ = path;
}

void IniSettings::ScriviStringa(const std::string& key, const std::string& value) {
    if (file_.empty()) return;
    if (document_) document_->set(section_, key, value);
    changes_.push_back({section_, key, value});
}

std::string IniSettings::LeggiStringa(const std::string& key, const std::string& fallback) {
    return find(key).value_or(fallback);
}

void IniSettings::ScriviData(const std::string& key, const Date& value) {
    if (value.isValid())
        ScriviStringa(key, isoText(value));
    else
        report(options_, "Data non scritta", "«" + key + "»: fuori dal calendario");
}

Date IniSettings::LeggiData(const std::string& key) {
    if (const auto text = find(key)) {
        if (const auto date = fromIsoText(*text)) return *date;
        try {
            return conversions::toDate(*text, Locale::italian());
        } catch (const RuntimeError&) {
            // Unreadable: the present moment, as for a missing date.
        }
    }
    return clock_.now();
}

std::int16_t IniSettings::LeggiIntero(const std::string& key, std::int16_t fallback) {
    const auto text = find(key);
    if (!text) return fallback;
    for (const auto& [word, number] :
         {std::pair{"True", 1}, {"Vero", 1}, {"False", 0}, {"Falso", 0}})
        if (*text == word) return static_cast<std::int16_t>(number);
    const auto number = conversions::plainInteger(*text);
    using Range = std::numeric_limits<std::int16_t>;
    if (!number || *number < Range::min() || *number > Range::max()) return fallback;
    return static_cast<std::int16_t>(*number);
}

void IniSettings::ScriviIntero(const std::string& key, std::int16_t value) {
    ScriviStringa(key, std::to_string(value));
}

std::optional<std::string> IniSettings::find(const std::string& key) {
    if (file_.empty()) return std::nullopt;
    if (!document_) load();
    if (readable_)
        unread_->erase({file_, section_});
    else
        unread_->insert({file_, section_});
    return document_->get(section_, key);
}

void IniSettings::load() {
    document_.emplace("");
    readable_ = true;
    try {
        const std::string path = settingsPath(file_);
        if (const auto bytes = readFile(path)) document_ = documentOf(*bytes, path);
    } catch (const std::exception& error) {
        readable_ = false;  // the defaults hold
        report(options_, "Impostazioni non lette", error.what());
    }
    for (const Change& change : changes_) document_->set(change.section, change.key, change.value);
}

void IniSettings::commit() {
    const auto dropped = std::erase_if(changes_, [this](const Change& c) {
        return unread_->contains({file_, c.section});
    });
    if (dropped > 0) report(options_, "Impostazioni non salvate", file_ + " non si era letto");
    if (changes_.empty()) return;
    const auto save = std::make_shared<Save>(options_, file_, std::exchange(changes_, {}));
    try {
        if (options_.dispatcher)
            options_.dispatcher->run([save](const std::stop_token&) { save->run(); });
    } catch (const std::exception&) {
        // Cancelled: nobody waits for it any more, but the operator's choices are saved all the
        // same, by the work that was left or below.
    }
    save->run();
}

IniSettingsFactory::IniSettingsFactory(Clock& clock, IniOptions options)
    : clock_(clock), options_(std::move(options)) {}

std::unique_ptr<Settings> IniSettingsFactory::create() {
    return std::make_unique<IniSettings>(clock_, options_, unread_);
}

}  // namespace velt::ini
