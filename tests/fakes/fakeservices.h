// SPDX-License-Identifier: MIT
// Services that record what was done to them.
#pragma once

#include "platform/ambient.h"
#include "platform/conversions.h"
#include "platform/propertybag.h"
#include "platform/services.h"
#include "tests/fakes/fakedatabase.h"
#include "tests/fakes/fakeopc.h"
#include "tests/fakes/fakeruntimeclient.h"

#include <map>
#include <set>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace velt::fakes {

struct FakeAmbient final : Ambient {
    bool UserMode() const override { return userMode; }
    std::string DisplayName() const override { return displayName; }
    bool userMode = true;
    std::string displayName = "Instance1";
};

struct FakePropertyBag final : PropertyBag {
    using Key = const std::string&;
    OleColor ReadProperty(Key key, OleColor other) const override { return read(key, other); }
    std::string ReadProperty(Key key, Key other) const override { return read(key, other); }
    void WriteProperty(Key key, OleColor value, OleColor) override { write(key, value); }
    void WriteProperty(Key key, Key value, Key) override { write(key, value); }
    template <typename T>
    T read(Key key, const T& other) const {
        order.push_back(key);
        const auto found = values.find(key);
        const T* held = found == values.end() ? nullptr : std::get_if<T>(&found->second);
        return held ? *held : other;
    }
    void write(Key key, std::variant<OleColor, std::string> value) {
        order.push_back(key);
        values[key] = std::move(value);
    }
    std::map<std::string, std::variant<OleColor, std::string>> values;
    mutable std::vector<std::string> order;  ///< keys in the order of their reading and writing
};

struct FakeClock final : Clock {
    Date now() override { return present; }
    Date present = Date::fromFields({2006, 3, 14, 18, 45, 12, 0});
};

struct FakeMessageBox final : MessageBox {
    struct Message {
        std::string text;
        int style;
        std::string title;
        friend bool operator==(const Message&, const Message&) = default;
    };
    void Show(const std::string& text, int style, const std::string& title) override {
        shown.push_back({text, style, title});
    }
    std::vector<Message> shown;
};

struct FakeFileSystem final : clsFileSystem {
    bool FileExists(const std::string& path) override { return files.contains(path); }
    std::set<std::string> files;
};

/// Files of sections of keys, shared by the settings objects made here.
struct FakeSettingsFactory final : SettingsFactory {
    using Keys = std::map<std::string, std::string>;
    std::unique_ptr<Settings> create() override { return std::make_unique<Object>(*this); }

    std::map<std::string, std::map<std::string, Keys>> files;
    int commits = 0;  ///< settings objects that wrote something
    FakeClock clock;

private:
    struct Object final : Settings {
        explicit Object(FakeSettingsFactory& f) : factory(f) {}
        ~Object() override { factory.commits += wrote ? 1 : 0; }
        std::string NomeFile() const override { return file; }
        void NomeFile(const std::string& path) override { file = path; }
        std::string Sezione() const override { return section; }
        void Sezione(const std::string& name) override { section = name; }
        void ScriviStringa(const std::string& key, const std::string& value) override {
            if (file.empty()) return;
            factory.files[file][section][key] = value;
            wrote = true;
        }
        std::string LeggiStringa(const std::string& key, const std::string& fallback) override {
            if (file.empty()) return fallback;
            const Keys& keys = factory.files[file][section];
            const auto found = keys.find(key);
            return found == keys.end() ? fallback : found->second;
        }
        void ScriviData(const std::string& key, const Date& value) override {
            ScriviStringa(key, conversions::text(value, Locale::italian()));
        }
        Date LeggiData(const std::string& key) override {
            Date date = factory.clock.now();
            ignoreErrors(
                [&] { date = conversions::toDate(LeggiStringa(key, ""), Locale::italian()); });
            return date;
        }
        std::int16_t LeggiIntero(const std::string& key, std::int16_t fallback) override {
            const auto number = conversions::plainInteger(LeggiStringa(key, ""));
            const bool fits = number && std::in_range<std::int16_t>(*number);
            return fits ? static_cast<std::int16_t>(*number) : fallback;
        }
        void ScriviIntero(const std::string& key, std::int16_t value) override {
            ScriviStringa(key, std::to_string(value));
        }

        FakeSettingsFactory& factory;
        std::string file, section;
        bool wrote = false;
    };
};

struct FakeServices : Services {
    SettingsFactory& settings() override { return settingsFactory; }
    clsDatabase& database() override { return fakeDatabase; }
    clsFileSystem& fileSystem() override { return files; }
    clsRecordset& recordsets() override { return recordsetHelper; }
    MessageBox& messageBox() override { return messages; }
    Clock& clock() override { return settingsFactory.clock; }
    Dispatcher& dispatcher() override { return inlineDispatcher; }
    const Locale& locale() override { return italian; }
    OPCServerFactory& opcServers() override { return opcFactory; }
    RuntimeClientFactory& runtimeClients() override {
        if (realRuntimes) return *realRuntimes;
        return runtimes;
    }

    FakeSettingsFactory settingsFactory;
    FakeDatabase fakeDatabase;
    FakeFileSystem files;
    clsRecordset recordsetHelper;
    FakeMessageBox messages;
    InlineDispatcher inlineDispatcher;
    Locale italian;
    FakeRuntimeClientFactory runtimes;
    RuntimeClientFactory* realRuntimes = nullptr;  ///< used instead, when given
    FakeOPCServerFactory opcFactory;
};

}  // namespace velt::fakes
