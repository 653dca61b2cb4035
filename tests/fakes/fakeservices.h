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
#include <variant>
#include <vector>

namespace velt::fakes {

struct FakeAmbient final : Ambient {
    bool UserMode() const override { return userMode; }
    std::string DisplayName() const override { return displayName; }
    bool userMode = true;
    std::string displayName = "Instance1";
};

class FakePropertyBag final : public PropertyBag {
public:
    using Value = std::variant<OleColor, std::string>;
    OleColor ReadProperty(const std::string& key, OleColor fallback) const override {
        return read(key, fallback);
    }
    std::string ReadProperty(const std::string& key, const std::string& fallback) const override {
        return read(key, fallback);
    }
    void WriteProperty(const std::string& key, OleColor value, OleColor) override {
        values[key] = value;
        order.push_back(key);
    }
    void WriteProperty(const std::string& key, const std::string& value,
                       const std::string&) override {
        values[key] = value;
        order.push_back(key);
    }
    std::map<std::string, Value> values;
    mutable std::vector<std::string> order;  ///< keys in the order of their reading and writing

private:
    template <typename T>
    T read(const std::string& key, const T& fallback) const {
        order.push_back(key);
        const auto found = values.find(key);
        const T* held = found == values.end() ? nullptr : std::get_if<T>(&found->second);
        return held ? *held : fallback;
    }
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
class FakeSettingsFactory final : public SettingsFactory {
public:
    using Keys = std::map<std::string, std::string>;
    std::map<std::string, std::map<std::string, Keys>> files;
    int commits = 0;  ///< settings objects that wrote something
    FakeClock clock;

    std::unique_ptr<Settings> create() override { return std::make_unique<Object>(*this); }

private:
    class Object final : public Settings {
    public:
        explicit Object(FakeSettingsFactory& factory) : factory_(factory) {}
        ~Object() override { factory_.commits += wrote_ ? 1 : 0; }
        std::string NomeFile() const override { return file_; }
        void NomeFile(const std::string& path) override { file_ = path; }
        std::string Sezione() const override { return section_; }
        void Sezione(const std::string& section) override { section_ = section; }
        void ScriviStringa(const std::string& key, const std::string& value) override {
            if (file_.empty()) return;
            factory_.files[file_][section_][key] = value;
            wrote_ = true;
        }
        std::string LeggiStringa(const std::string& key, const std::string& fallback) override {
            if (file_.empty()) return fallback;
            const Keys& keys = factory_.files[file_][section_];
            const auto found = keys.find(key);
            return found == keys.end() ? fallback : found->second;
        }
        void ScriviData(const std::string& key, const Date& value) override {
            ScriviStringa(key, conversions::text(value, Locale::italian()));
        }
        Date LeggiData(const std::string& key) override {
            Date date = factory_.clock.now();
            ignoreErrors(
                [&] { date = conversions::toDate(LeggiStringa(key, ""), Locale::italian()); });
            return date;
        }
        std::int16_t LeggiIntero(const std::string& key, std::int16_t fallback) override {
            const auto number = conversions::plainInteger(LeggiStringa(key, ""));
            return number && *number == static_cast<std::int16_t>(*number)
                       ? static_cast<std::int16_t>(*number)
                       : fallback;
        }
        void ScriviIntero(const std::string& key, std::int16_t value) override {
            ScriviStringa(key, std::to_string(value));
        }

    private:
        FakeSettingsFactory& factory_;
        std::string file_;
        std::string section_;
        bool wrote_ = false;
    };
};

class FakeServices : public Services {
public:
    SettingsFactory& settings() override { return settingsFactory; }
    clsDatabase& database() override { return fakeDatabase; }
    clsFileSystem& fileSystem() override { return files; }
    clsRecordset& recordsets() override { return recordsetHelper; }
    MessageBox& messageBox() override { return messages; }
    Clock& clock() override { return settingsFactory.clock; }
    Dispatcher& dispatcher() override { return inlineDispatcher; }
    const Locale& locale() override { return italian; }
    RuntimeClientFactory& runtimeClients() override {
        if (realRuntimes) return *realRuntimes;
        return runtimes;
    }
    OPCServerFactory& opcServers() override { return opcFactory; }

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
