// SPDX-License-Identifier: MIT
#include "adapters/ini/inisettings.h"

#include "adapters/ini/settingsfile.h"
#include "tests/filebytes.h"
#include "tests/tempfolder.h"

#include <csignal>
#include <fcntl.h>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace velt::ini {
namespace {

using namespace std::string_literals;
namespace fs = std::filesystem;
using test::bytesOf;
using test::writeBytes;

const Date present = Date::fromFields({2006, 4, 18, 7, 30, 0, 250});

class FixedClock final : public Clock {
public:
    [[nodiscard]] Date now() override { return present; }
};

class IniSettingsTest : public testing::Test {
protected:
    std::unique_ptr<Settings> settings(const fs::path& path, const std::string& section = "S") {
        auto object = factory_.create();
        object->NomeFile(path.string());
        object->Sezione(section);
        return object;
    }
    void save(const fs::path& path, const std::string& key, const std::string& value) {
        settings(path)->ScriviStringa(key, value);
    }
    /// The names in the folder: nothing of a save may stay behind.
    [[nodiscard]] std::size_t filesInFolder() const {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder_.path()), {}));
    }
    /// Runs `step` in a process without a superuser's rights; true when it said so.
    static bool asOrdinaryUser(const std::function<bool()>& step) {
        const pid_t child = fork();
        if (child == 0) {
            const uid_t nobody = 65534;
            if (geteuid() == 0 && (setgid(nobody) != 0 || setuid(nobody) != 0)) _exit(2);
            _exit(step() ? 0 : 1);
        }
        int status = 0;
        waitpid(child, &status, 0);
        return WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }

    TempFolder folder_;
    FixedClock clock_;
    std::vector<std::string> log_;
    IniSettingsFactory factory_{
        clock_,
        {[this](const std::string& line) { log_.push_back(line); }, std::chrono::milliseconds(20)}};
    fs::path file_ = folder_ / "pannello.ini";
};

TEST_F(IniSettingsTest, SavesAtTheEndAndRestores) {
    {
        const auto out = settings(file_, "AlarmViewer_AlarmViewer1");
        out->ScriviStringa("AlarmIndex", "-1");
        out->ScriviIntero("List1", true);
        out->ScriviIntero("Numero", static_cast<std::int16_t>(-7));
        out->ScriviData("startDate", Date::fromFields({2006, 3, 14, 7, 30, 0, 0}));
        EXPECT_EQ(out->LeggiStringa("AlarmIndex", ""), "-1") << "before it is in the file";
        out->Sezione("Altra");
        out->ScriviData("d", present);
        EXPECT_FALSE(fs::exists(file_));
    }
    EXPECT_EQ(bytesOf(file_),
              "[AlarmViewer_AlarmViewer1]\nAlarmIndex=-1\nList1=1\nNumero=-7\n"
              "startDate=2006-03-14 07:30:00\n\n[Altra]\nd=2006-04-18 07:30:00.250\n");
    EXPECT_EQ(filesInFolder(), 1u);
    const auto in = settings(file_, "AlarmViewer_AlarmViewer1");
    EXPECT_EQ(in->LeggiIntero("List1", 0), 1);
    EXPECT_EQ(in->LeggiData("startDate"), Date::fromFields({2006, 3, 14, 7, 30, 0, 0}));
    EXPECT_EQ(in->LeggiStringa("manca", "difetto"), "difetto");
    EXPECT_TRUE(log_.empty());
}

TEST_F(IniSettingsTest, WithoutAFileNothingIsReadOrWritten) {
    const auto object = factory_.create();
    object->Sezione("S");
    object->ScriviStringa("k", "v");
    object->NomeFile(file_.string());
    EXPECT_EQ(object->LeggiStringa("k", "difetto"), "difetto");
    object->ScriviStringa("k", "prima");
    object->NomeFile((folder_ / "altro.ini").string());
    EXPECT_EQ(bytesOf(file_), "[S]\nk=prima\n");
    EXPECT_EQ(object->LeggiStringa("k", ""), "");
    EXPECT_TRUE(log_.empty());
}

TEST_F(IniSettingsTest, ReadsTheDatesOfAnItalianSystem) {
    const Date morning = Date::fromFields({2006, 3, 14, 7, 30, 0, 0});
    const std::vector<std::pair<std::string, Date>> texts = {
        {"2006-03-14 07:30:00", morning},
        {"14/03/2006 7.30.00", morning},
        {"14/03/2006 7.30", morning},
        {"14/03/2006", Date::fromFields({2006, 3, 14})},
        {"1899-12-29 06:00:00.001", Date::fromFields({1899, 12, 29, 6, 0, 0, 1})},
        {"", present},
        {"ieri", present},
        {"31/02/2006", present},
        {"2006-03-14 25:00:00", present},
        {"14/03/2006 7.30.00 x", present},
        {std::string(100000, '9'), present},
    };
    for (const auto& [text, date] : texts) {
        writeBytes(file_, "[S]\nd=" + text + "\n");
        EXPECT_EQ(settings(file_)->LeggiData("d"), date) << text.substr(0, 40);
    }
}

TEST_F(IniSettingsTest, DatesReadBackToTheMillisecond) {
    for (const double serial :
         {0.0, -0.25, -36522.5, 38790.3125, 2958465.999988, 1e-9, -657434.0}) {
        const Date date(serial);
        settings(file_)->ScriviData("d", date);
        EXPECT_EQ(settings(file_)->LeggiData("d").milliseconds(), date.milliseconds()) << serial;
    }
    settings(file_)->ScriviData("k", Date(1e18));
    EXPECT_EQ(settings(file_)->LeggiData("k"), present);
    EXPECT_EQ(log_.size(), 1u);
}

TEST_F(IniSettingsTest, ReadsNumbersOrTheDefault) {
    const std::vector<std::pair<std::string, int>> texts = {
        {"0", 0},         {"-1", -1},    {" 12 ", 12},       {"+5", 5},
        {"32767", 32767}, {"32768", 99}, {"-32768", -32768}, {"-32769", 99},
        {"", 99},         {"x", 99},     {"3,5", 99},        {"3.0", 3},
        {"12abc", 99},    {"True", 1},   {"Falso", 0},       {"Vero", 1},
        {"False", 0},     {"1e400", 99}, {"0x10", 99},       {"99999999999999999999", 99},
    };
    for (const auto& [text, number] : texts) {
        writeBytes(file_, "[S]\nn=" + text + "\n");
        EXPECT_EQ(settings(file_)->LeggiIntero("n", 99), number) << text;
    }
}

TEST_F(IniSettingsTest, PathsComeFromAWindowsWorld) {
    fs::create_directory(folder_ / "dati");
    save(folder_.path().string() + "\\DATI\\p.ini", "k", "v");
    EXPECT_EQ(bytesOf(folder_ / "dati" / "p.ini"), "[S]\nk=v\n");
    fs::current_path(folder_.path());
    save("qui.ini", "k", "v");
    fs::current_path("/");
    EXPECT_EQ(bytesOf(folder_ / "qui.ini"), "[S]\nk=v\n");
    EXPECT_TRUE(log_.empty());
}

TEST_F(IniSettingsTest, KeepsModeOwnerAndLinks) {
    writeBytes(file_, "[S]\n");
    chmod(file_.c_str(), 0640);
    if (geteuid() == 0) {
        ASSERT_EQ(chown(file_.c_str(), 1234, 2345), 0);
    }
    fs::create_symlink("pannello.ini", folder_ / "uno.ini");
    fs::create_symlink(folder_ / "uno.ini", folder_ / "due.ini");
    save(folder_ / "due.ini", "k", "v");

    struct stat status {};
    ASSERT_EQ(lstat(file_.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777u, 0640u);
    if (geteuid() == 0) {
        EXPECT_EQ(status.st_uid, 1234u);
        EXPECT_EQ(status.st_gid, 2345u);
    }
    EXPECT_EQ(bytesOf(file_), "[S]\nk=v\n");
    EXPECT_TRUE(fs::is_symlink(folder_ / "uno.ini"));
    EXPECT_TRUE(fs::is_symlink(folder_ / "due.ini"));
}

TEST_F(IniSettingsTest, WhatIsNotChangedIsNotWritten) {
    const auto save = [this] {
        this->save(file_, "k", "v");
        struct stat status {};
        stat(file_.c_str(), &status);
        return status.st_ino;
    };
    const auto before = save();
    EXPECT_EQ(save(), before);
}

TEST_F(IniSettingsTest, PathsThatAreNoSettingsFileAreLoggedAndLeftAlone) {
    const fs::path pipe = folder_ / "tubo";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    fs::create_symlink("anello", folder_ / "anello");
    writeBytes(folder_ / "file", "x");
    writeBytes(folder_ / "enorme.ini", "");
    fs::resize_file(folder_ / "enorme.ini", largestFile + 1);
    writeBytes(folder_ / "utf16.ini", "\xFF\xFE[\0S\0]\0"s);
    const std::string names[] = {"",           "tubo",      "anello",  "file/p.ini",
                                 "enorme.ini", "utf16.ini", "p\0.ini"s};
    for (const std::string& name : names) {
        SCOPED_TRACE(name);
        log_.clear();
        const auto object = settings(folder_ / name);
        EXPECT_EQ(object->LeggiStringa("k", "difetto"), "difetto");
        EXPECT_EQ(log_.size(), 1u);
        object->ScriviStringa("k", "v");
        object->NomeFile("");
        EXPECT_EQ(log_.size(), 2u);
    }
    EXPECT_EQ(bytesOf(folder_ / "utf16.ini"), "\xFF\xFE[\0S\0]\0"s);
    EXPECT_EQ(filesInFolder(), 5u);

    log_.clear();
    save(folder_ / "manca" / "p.ini", "k", "v");
    EXPECT_EQ(log_.size(), 1u);
    EXPECT_FALSE(fs::exists(folder_ / "manca"));
}

TEST_F(IniSettingsTest, ProtectedFilesAndFoldersStayAsTheyAre) {
    chmod(folder_.path().c_str(), 0777);
    writeBytes(file_, "[S]\nk=1\n");
    const auto saveFails = [&](const std::string& expected) {
        return asOrdinaryUser([&] {
            const std::string read = settings(file_)->LeggiStringa("k", "difetto");
            log_.clear();
            save(file_, "k", "2");
            return read == expected && log_.size() == 1;
        });
    };
    chmod(file_.c_str(), 0444);
    EXPECT_TRUE(saveFails("1")) << "read-only file";
    chmod(file_.c_str(), 0222);
    if (geteuid() != 0) chmod(file_.c_str(), 0);
    EXPECT_TRUE(saveFails("difetto")) << "unreadable file";
    chmod(file_.c_str(), 0666);
    chmod(folder_.path().c_str(), 0555);
    EXPECT_TRUE(saveFails("1")) << "read-only folder";
    chmod(folder_.path().c_str(), 0777);
    EXPECT_EQ(bytesOf(file_), "[S]\nk=1\n");
    EXPECT_EQ(filesInFolder(), 1u);
}

TEST_F(IniSettingsTest, AFullDiskKeepsTheOldFile) {
    const std::string old = "[S]\nk=" + std::string(3000, 'x') + "\n";
    writeBytes(file_, old);
    chmod(folder_.path().c_str(), 0777);
    chmod(file_.c_str(), 0666);
    const bool kept = asOrdinaryUser([&] {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{2000, 2000};
        if (setrlimit(RLIMIT_FSIZE, &limit) != 0) return false;
        save(file_, "n", "1");
        return log_.size() == 1;
    });
    EXPECT_TRUE(kept);
    EXPECT_EQ(bytesOf(file_), old);
    EXPECT_EQ(filesInFolder(), 1u);
}

TEST_F(IniSettingsTest, ALockThatIsNotReleasedIsNotAwaitedForEver) {
    const std::string lock = companionPath(file_.string(), ".lock");
    const int held = open(lock.c_str(), O_RDWR | O_CREAT, 0600);
    ASSERT_EQ(flock(held, LOCK_EX), 0);
    save(file_, "k", "v");
    EXPECT_EQ(log_.size(), 1u);
    EXPECT_FALSE(fs::exists(file_));
    close(held);  // as when its program dies: the file stays, the lock is free
    save(file_, "k", "v");
    EXPECT_EQ(bytesOf(file_), "[S]\nk=v\n");
    EXPECT_EQ(filesInFolder(), 1u);
}

TEST_F(IniSettingsTest, WhoReadsDuringASaveSeesTheOldOrTheNewFile) {
    const std::string a = "[S]\nk=" + std::string(100'000, 'a') + "\n";
    const std::string b = "[S]\nk=" + std::string(50'000, 'b') + "\n";
    writeBytes(file_, a);
    const pid_t child = fork();
    if (child == 0) {
        for (int i = 0; i < 30; ++i) {
            save(file_, "k", std::string(50'000, 'b'));
            save(file_, "k", std::string(100'000, 'a'));
        }
        _exit(log_.empty() ? 0 : 1);
    }
    int status = 0;
    while (waitpid(child, &status, WNOHANG) == 0) {
        const std::string seen = bytesOf(file_);
        ASSERT_TRUE(seen == a || seen == b) << seen.size();
    }
    EXPECT_EQ(status, 0);
}

TEST_F(IniSettingsTest, WritersAtOnceLoseNothing) {
    constexpr int saves = 40;
    writeBytes(file_, "; mio\n[S0]\nvecchio=1\n");
    const auto writeMany = [this](const std::string& name) {
        for (int i = 0; i < saves; ++i) {
            IniSettings object(clock_, {{}, std::chrono::seconds(60)});
            object.NomeFile(file_.string());
            object.Sezione("S" + std::to_string(i % 5));
            object.ScriviStringa(name + std::to_string(i), "1");
        }
    };
    const pid_t child = fork();
    if (child == 0) {
        writeMany("processo");
        _exit(0);
    }
    std::thread other([&] { writeMany("filo"); });
    writeMany("primo");
    other.join();
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);

    const IniDocument document(bytesOf(file_));
    EXPECT_EQ(document.get("S0", "vecchio"), "1");
    for (const char* name : {"processo", "filo", "primo"})
        for (int i = 0; i < saves; ++i)
            EXPECT_EQ(document.get("S" + std::to_string(i % 5), name + std::to_string(i)), "1");
    EXPECT_EQ(filesInFolder(), 1u);
}

}  // namespace
}  // namespace velt::ini
