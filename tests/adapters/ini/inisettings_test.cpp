// SPDX-License-Identifier: MIT
#include "adapters/ini/inisettings.h"

#include "adapters/ini/settingsfile.h"
#include "platform/runtimeerror.h"
#include "tests/filebytes.h"
#include "tests/tempfolder.h"

#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace velt::ini {
namespace {

using namespace std::string_literals;
namespace fs = std::filesystem;
using test::bytesOf;
using test::writeBytes;

const Date present = Date::fromFields({2006, 4, 18, 7, 30, 0, 250});

struct FixedClock final : Clock {
    Date now() override { return present; }
};

/// Every wait is cancelled: before the work has begun, or so that the work is left.
struct CancellingDispatcher final : Dispatcher {
    void run(std::function<void(std::stop_token)> work) override {
        if (begins) work({});
        throw RuntimeError(ErrorNumber::Cancelled);
    }
    void post(std::function<void()>) override {}
    void yield() override {}
    bool begins = false;
};

class IniSettingsTest : public testing::Test {
protected:
    std::unique_ptr<Settings> settings(const fs::path& path, const std::string& section = "S") {
        auto object = IniSettingsFactory(clock_, options_).create();
        object->NomeFile(path.string());
        object->Sezione(section);
        return object;
    }
    void save(const std::string& key, const std::string& value) {
        settings(file_)->ScriviStringa(key, value);
    }
    /// Nothing of a save may stay behind.
    [[nodiscard]] std::size_t filesInFolder() const {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder_.path()), {}));
    }

    TempFolder folder_;
    FixedClock clock_;
    std::vector<std::string> log_;
    IniOptions options_{[this](const std::string& line) { log_.push_back(line); },
                        std::chrono::milliseconds(20)};
    fs::path file_ = folder_ / "pannello.ini";
};

TEST_F(IniSettingsTest, SavesAtTheEndAndRestores) {
    const Date morning = Date::fromFields({2006, 3, 14, 7, 30});
    {
        const auto out = settings(file_, "AlarmViewer_AlarmViewer1");
        out->ScriviStringa("AlarmIndex", "-1");
        out->ScriviIntero("List1", true);
        out->ScriviData("startDate", morning);
        out->ScriviData("endDate", Date(1e9));
        EXPECT_EQ(out->LeggiStringa("AlarmIndex", ""), "-1") << "before it is in the file";
        out->Sezione("Altra");
        out->ScriviData("d", present);
        EXPECT_FALSE(fs::exists(file_));
    }
    EXPECT_EQ(bytesOf(file_),
              "[AlarmViewer_AlarmViewer1]\nAlarmIndex=-1\nList1=1\n"
              "startDate=2006-03-14 07:30:00\n\n[Altra]\nd=2006-04-18 07:30:00.250\n");
    EXPECT_EQ(log_.size(), 1u) << "a date outside the calendar";
    const auto in =
        settings(folder_.path().string() + "\\PANNELLO.INI", "AlarmViewer_AlarmViewer1");
    EXPECT_EQ(in->LeggiIntero("List1", 0), 1);
    EXPECT_EQ(in->LeggiData("startDate"), morning);
    EXPECT_EQ(in->LeggiData("endDate"), present);
    EXPECT_EQ(in->LeggiStringa("manca", "difetto"), "difetto");
}

TEST_F(IniSettingsTest, ReadsTheDatesAndNumbersOfAnItalianSystemOrTheDefault) {
    const std::pair<std::string, Date> dates[] = {
        {"14/03/2006 7.30.00", Date::fromFields({2006, 3, 14, 7, 30})},
        {"1899-12-29 06:00:00.001", Date::fromFields({1899, 12, 29, 6, 0, 0, 1})},
        {"ieri", present},
        {std::string(100000, '9'), present},
    };
    for (const auto& [text, date] : dates) {
        writeBytes(file_, "[S]\nd=" + text + "\n");
        EXPECT_EQ(settings(file_)->LeggiData("d"), date) << text.substr(0, 40);
    }
    const std::pair<const char*, int> numbers[] = {{"-1", -1}, {"32768", 99}, {"-32769", 99},
                                                   {"x", 99},  {"Vero", 1},   {"False", 0}};
    for (const auto& [text, number] : numbers) {
        writeBytes(file_, "[S]\nn="s + text + "\n");
        EXPECT_EQ(settings(file_)->LeggiIntero("n", 99), number) << text;
    }
}

TEST_F(IniSettingsTest, KeepsOwnerModeAndAChainOfLinks) {
    writeBytes(file_, "[S]\n");
    chmod(file_.c_str(), 0640);
    EXPECT_EQ(geteuid() == 0 ? chown(file_.c_str(), 65534, 65533) : 0, 0);
    fs::create_directory(folder_ / "altri");
    fs::create_symlink("../pannello.ini", folder_ / "altri" / "due.ini");
    fs::create_symlink(folder_ / "altri" / "due.ini", folder_ / "uno.ini");
    const auto owned = [this] {
        struct stat status {};
        stat(file_.c_str(), &status);
        return std::tuple(status.st_mode, status.st_uid, status.st_gid);
    };
    const auto before = owned();
    settings(folder_ / "uno.ini")->ScriviStringa("k", "v");
    EXPECT_EQ(bytesOf(file_), "[S]\nk=v\n");
    EXPECT_EQ(owned(), before);
    EXPECT_TRUE(fs::is_symlink(folder_ / "uno.ini") && fs::is_symlink(folder_ / "altri/due.ini"));
}

TEST_F(IniSettingsTest, PathsThatAreNoSettingsFileAreLoggedAndLeftAlone) {
    ASSERT_EQ(mkfifo((folder_ / "tubo").c_str(), 0600), 0);
    fs::create_symlink("anello", folder_ / "anello");
    writeBytes(folder_ / "enorme.ini", "");
    fs::resize_file(folder_ / "enorme.ini", largestFile + 1);
    writeBytes(folder_ / "utf16.ini", "\xFF\xFE[\0S\0]\0"s);
    for (const char* name : {"tubo", "anello", "enorme.ini", "utf16.ini"}) {
        SCOPED_TRACE(name);
        log_.clear();
        const auto object = settings(folder_ / name);
        EXPECT_EQ(object->LeggiStringa("k", "difetto"), "difetto");
        object->ScriviStringa("k", "v");
        object->NomeFile("");
        EXPECT_EQ(log_.size(), 2u);
    }
    EXPECT_EQ(bytesOf(folder_ / "utf16.ini"), "\xFF\xFE[\0S\0]\0"s);
    EXPECT_EQ(filesInFolder(), 4u);
}

TEST_F(IniSettingsTest, DefaultsDoNotReplaceWhatCouldNotBeRead) {
    IniSettingsFactory factory(clock_, options_);
    const auto open = [&] {
        auto object = factory.create();
        object->NomeFile(file_.string());
        object->Sezione("S");
        return object;
    };
    writeBytes(file_, "\xFF\xFE[\0S\0]\0"s);
    EXPECT_EQ(open()->LeggiStringa("k", "difetto"), "difetto");
    writeBytes(file_, "[S]\nk=scelta\n");  // it can be read again
    {
        const auto object = open();
        object->ScriviStringa("k", "difetto");
        object->Sezione("T");
        object->ScriviStringa("k", "altra");
    }
    EXPECT_EQ(bytesOf(file_), "[S]\nk=scelta\n\n[T]\nk=altra\n");
    EXPECT_EQ(log_.size(), 2u);
    EXPECT_EQ(open()->LeggiStringa("k", "difetto"), "scelta");
    open()->ScriviStringa("k", "nuova");
    EXPECT_EQ(bytesOf(file_), "[S]\nk=nuova\n\n[T]\nk=altra\n");
}

TEST_F(IniSettingsTest, ASaveThatFailsKeepsTheOldFile) {
    const std::string old = "[S]\nk=" + std::string(3000, 'x') + "\n";
    writeBytes(file_, old);
    const auto saveFails = [&](fs::perms folder, fs::perms file, rlim_t largest) {
        fs::permissions(folder_.path(), folder);
        fs::permissions(file_, file);
        const pid_t child = fork();
        if (child == 0) {
            const rlimit limit{largest, largest};
            signal(SIGXFSZ, SIG_IGN);
            if (setrlimit(RLIMIT_FSIZE, &limit) != 0) _exit(2);
            if (geteuid() == 0 && setuid(65534) != 0) _exit(2);  // a superuser may write anywhere
            save("n", "1");
            _exit(log_.size() == 1 ? 0 : 1);
        }
        int status = 0;
        waitpid(child, &status, 0);
        fs::permissions(folder_.path(), fs::perms(0777));
        return status == 0 && bytesOf(file_) == old && filesInFolder() == 1;
    };
    EXPECT_TRUE(saveFails(fs::perms(0777), fs::perms(0444), 10'000)) << "read-only file";
    EXPECT_TRUE(saveFails(fs::perms(0555), fs::perms(0666), 10'000)) << "read-only folder";
    EXPECT_TRUE(saveFails(fs::perms(0777), fs::perms(0666), 2000)) << "full disk";
}

TEST_F(IniSettingsTest, NeitherALockNorACancelledWaitLosesASaveForEver) {
    const int held = open(companionPath(file_.string(), ".lock").c_str(), O_RDWR | O_CREAT, 0600);
    ASSERT_EQ(flock(held, LOCK_EX), 0);
    save("k", "v");
    EXPECT_EQ(log_.size(), 1u);
    EXPECT_FALSE(fs::exists(file_));
    close(held);  // as when its program dies: the file stays, the lock is free
    CancellingDispatcher dispatcher;
    options_.dispatcher = &dispatcher;
    for (const bool begins : {false, true}) {
        dispatcher.begins = begins;
        save("k", std::to_string(begins));
        EXPECT_EQ(bytesOf(file_), "[S]\nk=" + std::to_string(begins) + "\n");
    }
    EXPECT_EQ(filesInFolder(), 1u);
}

TEST_F(IniSettingsTest, WritersAtOnceLoseNothingAndReadersSeeWholeFiles) {
    constexpr int saves = 40;
    const std::string end = "[Fine]\nk=1\n";
    writeBytes(file_, "[S]\nvecchio=" + std::string(100'000, 'a') + "\n" + end);
    options_ = {{}, std::chrono::seconds(60)};
    const auto writeMany = [this](const std::string& name) {
        for (int i = 0; i < saves; ++i) save(name + std::to_string(i), "1");
    };
    const pid_t child = fork();
    if (child == 0) {
        writeMany("processo");
        _exit(0);
    }
    std::thread first([&] { writeMany("primo"); }), other([&] { writeMany("filo"); });
    int status = 0;
    while (waitpid(child, &status, WNOHANG) == 0) {
        const std::string seen = bytesOf(file_);
        EXPECT_TRUE(seen.size() > 100'000 && seen.ends_with(end)) << seen.size();
    }
    first.join();
    other.join();
    EXPECT_EQ(status, 0);
    const IniDocument document(bytesOf(file_));
    for (const char* name : {"processo", "filo", "primo"})
        for (int i = 0; i < saves; ++i) EXPECT_EQ(document.get("S", name + std::to_string(i)), "1");
    EXPECT_EQ(filesInFolder(), 1u);
}

}  // namespace
}  // namespace velt::ini
