// SPDX-License-Identifier: MIT
// The alarm viewer's logic on real Access and settings files.
#include "adapters/access/accessdatabase.h"
#include "adapters/access/filesystem.h"
#include "adapters/access/jet/writer.h"
#include "adapters/ini/inisettings.h"
#include "alarmviewer/alarmviewer.h"
#include "tests/fakes/fakeservices.h"
#include "tests/fakes/fakewidgets.h"
#include "tests/tempfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>
#include <limits>
#include <sstream>

namespace velt {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;
using Row = std::vector<Variant>;

const std::vector<jet::ColumnDefinition> AlarmColumns = {{"Data", jet::ColumnType::Date},
                                                         {"VRX", jet::ColumnType::Text},
                                                         {"Allarme", jet::ColumnType::Text},
                                                         {"Descrizione", jet::ColumnType::Text},
                                                         {"Evento", jet::ColumnType::Text}};

void writeTable(const fs::path& file, const std::string& table,
                const std::vector<jet::ColumnDefinition>& columns, const std::vector<Row>& rows) {
    jet::Writer writer = jet::Writer::create(file);
    writer.createTable(table, columns);
    for (const Row& row : rows) writer.append(table, row);
    writer.flush();
}

Row alarm(const Date& time, const char* station, const char* name) {
    return {time, station, name, "descrizione", "Attivo"};
}

std::string contentOf(const fs::path& file) {
    std::ostringstream text;
    text << std::ifstream(file, std::ios::binary).rdbuf();
    return text.str();
}

class FileServices final : public Services {
public:
    SettingsFactory& settings() override { return settings_; }
    clsDatabase& database() override { return database_; }
    clsFileSystem& fileSystem() override { return files_; }
    clsRecordset& recordsets() override { return recordsets_; }
    MessageBox& messageBox() override { return messages; }
    Clock& clock() override { return clock_; }
    Dispatcher& dispatcher() override { return dispatcher_; }
    const Locale& locale() override { return italian_; }

    fakes::FakeMessageBox messages;

private:
    fakes::FakeClock clock_;
    InlineDispatcher dispatcher_;
    ini::IniSettingsFactory settings_{clock_};
    access::AccessDatabase database_{dispatcher_};
    access::LocalFileSystem files_{dispatcher_};
    clsRecordset recordsets_;
    Locale italian_;
};

/// An alarm viewer with widgets of its own, as a panel makes it anew at each start.
struct Panel {
    explicit Panel(fakes::FakeAmbient& ambient) : viewer(form(), ambient, services) {}

    AlarmViewerForm form() {
        return {control,         frmAllarme,
                chkDataIniziale, DataIniziale,
                TimeIniziale,    chkDataFinale,
                DataFinale,      TimeFinale,
                chkAllarme,      cmbAllarme,
                lvVRX,           cmdSeleziona,
                cmdDeseleziona,  cmdAggiornaVRX,
                cmdAggiornaDati, dg,
                Adodc,           t};
    }
    void start(const fs::path& file, const fs::path& ini) {
        viewer.File(file.string());
        viewer.FileIni(ini.string());
        viewer.Show();
    }
    std::vector<std::string> messages() {
        std::vector<std::string> texts;
        for (const auto& message : services.messages.shown) texts.push_back(message.text);
        services.messages.shown.clear();
        return texts;
    }

    FileServices services;
    fakes::FakeFrame control, frmAllarme;
    fakes::FakeCheckBox chkDataIniziale, chkDataFinale, chkAllarme;
    fakes::FakeDatePicker DataIniziale, TimeIniziale, DataFinale, TimeFinale;
    fakes::FakeComboBox cmbAllarme;
    fakes::FakeListView lvVRX;
    fakes::FakeButton cmdSeleziona, cmdDeseleziona, cmdAggiornaVRX, cmdAggiornaDati;
    fakes::FakeDataControl Adodc;
    fakes::FakeDataGrid dg{Adodc};
    fakes::FakeTimer t;
    AlarmViewer viewer;
};

class AlarmViewerFiles : public testing::Test {
protected:
    TempFolder folder;
    fakes::FakeAmbient ambient;
    const fs::path file = folder / "Allarmi.mdb";
    const fs::path ini = folder / "panel.ini";
    const Date morning = Date::fromFields({2026, 3, 14, 7, 30, 0, 0});
};

TEST_F(AlarmViewerFiles, FiltersShowsAndRemembers) {
    writeTable(file, "Allarmi", AlarmColumns,
               {alarm(morning.addSeconds(3600), "RTU02", "Pompa ferma"),
                alarm(morning, "RTU01", "Livello alto"),
                alarm(morning.addSeconds(60), "RTU02", "Livello alto"),
                alarm(morning.addSeconds(86400), "RTU01", "Pompa ferma")});
    {
        Panel panel(ambient);
        panel.start(file, ini);
        ASSERT_EQ(panel.lvVRX.Count(), 2);
        panel.cmdAggiornaDati.click();
        EXPECT_EQ(panel.Adodc.caption, "Record 1 of 4");
        EXPECT_EQ(panel.Adodc.rows()->value(0, 0), Variant(morning)) << "sorted by date";

        panel.chkDataIniziale.toggle();
        panel.DataIniziale.Value(morning.addSeconds(60));
        panel.chkDataFinale.toggle();
        panel.DataFinale.Value(morning.addSeconds(3600));
        panel.lvVRX.Checked(2, true);
        panel.cmdAggiornaDati.click();
        EXPECT_EQ(panel.Adodc.caption, "Record 1 of 2") << "both bounds belong to the range";
        panel.chkAllarme.toggle();
        panel.cmbAllarme.ListIndex(1);
        panel.cmdAggiornaDati.click();
        EXPECT_EQ(panel.Adodc.caption, "Record 1 of 1");
        panel.dg.drag(2, 2400);
        EXPECT_THAT(panel.messages(), IsEmpty());
        panel.viewer.Terminate();
    }
    Panel panel(ambient);
    panel.start(file, ini);
    EXPECT_EQ(panel.DataIniziale.Value(), morning.addSeconds(60));
    EXPECT_EQ(panel.cmbAllarme.Text(), "Pompa ferma");
    EXPECT_THAT(checkedTexts(panel.lvVRX), ElementsAre("RTU02"));
    panel.cmdAggiornaDati.click();
    EXPECT_EQ(panel.Adodc.caption, "Record 1 of 1");
    EXPECT_EQ(panel.dg.ColumnWidth(2), 2400);
}

TEST_F(AlarmViewerFiles, NullsAndDatesFarOutAreShownAsTheyAre) {
    const Row nothing(5, Variant(Null{}));
    writeTable(file, "Allarmi", AlarmColumns,
               {alarm(Date(3e9), "RTU01", "A"), nothing, alarm(Date(-1.25), "RTU01", "A"),
                alarm(Date(-1.5), "RTU01", "A"), alarm(morning, "RTU01", "A")});
    Panel panel(ambient);
    panel.start(file, ini);
    EXPECT_EQ(panel.lvVRX.Count(), 1);
    panel.cmdAggiornaDati.click();
    EXPECT_EQ(panel.Adodc.caption, "Record 1 of 5");
    const auto rows = panel.Adodc.rows();
    EXPECT_EQ(rows->value(0, 0), Variant(Null{}));
    EXPECT_EQ(rows->value(1, 0), Variant(Date(-1.25))) << "06:00 before 12:00, before 1899-12-30";
    EXPECT_EQ(rows->value(4, 0), Variant(Date(3e9)));
    EXPECT_THAT(panel.messages(), IsEmpty());
}

TEST_F(AlarmViewerFiles, TellsWhatIsWrongWithTheFile) {
    const auto columnsBut = [](std::size_t left, const char* name, jet::ColumnType type) {
        auto columns = AlarmColumns;
        columns[left] = {name, type};
        return columns;
    };
    struct Case {
        const char* what;
        std::function<void(const fs::path&)> make;
        std::vector<std::string> onStart;
        std::string onRefresh;
    };
    const std::string error = "Error N°: ";
    const Case cases[] = {
        {"missing",
         [](const fs::path&) {},
         {"Il File Allarmi non esiste!"},
         "Il File Allarmi non esiste!"},
        {"a folder",
         [](const fs::path& path) { fs::create_directory(path); },
         {"Il File Allarmi non esiste!"},
         "Il File Allarmi non esiste!"},
        {"empty",
         [](const fs::path& path) { std::ofstream(path).flush(); },
         {error + "3343"},
         error + "3343"},
        {"text",
         [](const fs::path& path) { std::ofstream(path) << std::string(9000, 'x'); },
         {error + "3343"},
         error + "3343"},
        {"no table",
         [&](const fs::path& path) {
             writeTable(path, "Altro", AlarmColumns, {alarm(morning, "RTU01", "A")});
         },
         {error + "3078"},
         error + "3078"},
        {"no column",
         [&](const fs::path& path) {
             writeTable(path, "Allarmi", columnsBut(3, "Testo", jet::ColumnType::Text),
                        {alarm(morning, "RTU01", "A")});
         },
         {},
         error + "3061"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const fs::path path = folder / (std::string(c.what) + ".mdb");
        c.make(path);
        Panel panel(ambient);
        panel.start(path, ini);
        const auto onStart = panel.messages();
        ASSERT_EQ(onStart.size(), c.onStart.size());
        for (std::size_t i = 0; i < onStart.size(); ++i)
            EXPECT_THAT(onStart[i], StartsWith(c.onStart[i]));
        panel.cmdAggiornaDati.click();
        EXPECT_THAT(panel.messages(), ElementsAre(StartsWith(c.onRefresh)));
        EXPECT_FALSE(panel.dg.visible);
        panel.viewer.Terminate();
    }
}

TEST_F(AlarmViewerFiles, AnApostropheInAStationsNameIsASyntaxError) {
    writeTable(file, "Allarmi", AlarmColumns, {alarm(morning, "L'Aquila", "A")});
    Panel panel(ambient);
    panel.start(file, ini);
    panel.cmdAggiornaDati.click();
    EXPECT_EQ(panel.Adodc.caption, "Record 1 of 1");
    panel.cmdSeleziona.click();
    panel.cmdAggiornaDati.click();
    EXPECT_THAT(panel.messages(), ElementsAre(HasSubstr("\r\nDesc.: ")));
    EXPECT_EQ(panel.Adodc.caption, "Record 1 of 1") << "what was shown stays";
}

TEST_F(AlarmViewerFiles, AReplacedFileIsReadAnew) {
    writeTable(file, "Allarmi", AlarmColumns, {alarm(morning, "RTU01", "A")});
    Panel panel(ambient);
    panel.start(file, ini);
    panel.cmdAggiornaDati.click();
    const fs::path other = folder / "new.mdb";
    writeTable(other, "Allarmi", AlarmColumns,
               {alarm(morning, "RTU07", "A"), alarm(morning, "RTU08", "A")});
    fs::rename(other, file);
    panel.cmdAggiornaDati.click();
    EXPECT_EQ(panel.Adodc.caption, "Record 1 of 2");
    panel.cmdAggiornaVRX.click();
    EXPECT_EQ(panel.lvVRX.Text(1), "RTU07");

    fs::remove(file);
    panel.cmdAggiornaDati.click();
    EXPECT_THAT(panel.messages(), ElementsAre(HasSubstr("Allarmi.mdb")));
    EXPECT_EQ(panel.Adodc.caption, "Record 1 of 2");
}

TEST_F(AlarmViewerFiles, UnusableSettingsStopNothing) {
    writeTable(file, "Allarmi", AlarmColumns, {alarm(morning, "RTU01", "A")});
    std::string garbage;
    for (int i = 0; i < 4000; ++i) garbage += static_cast<char>(i * 37 % 256);
    std::ofstream(ini, std::ios::binary)
        << garbage << "\n[AlarmViewer_Instance1]\nisStart=forse\nstartDate=ieri\nListCount=-1\n";
    const std::string before = contentOf(ini);
    {
        Panel panel(ambient);
        panel.start(file, ini);
        EXPECT_EQ(panel.chkDataIniziale.Value(), 0);
        EXPECT_EQ(panel.DataIniziale.Value(), fakes::FakeClock().present);
        panel.cmdAggiornaDati.click();
        EXPECT_EQ(panel.Adodc.caption, "Record 1 of 1");
        panel.viewer.Terminate();
        EXPECT_THAT(contentOf(ini), StartsWith(garbage)) << "foreign lines stay";
        EXPECT_THAT(contentOf(ini), HasSubstr("isStart=0"));
    }
    for (const fs::path& path : {folder.path(), folder / "no" / "such" / "folder.ini"}) {
        Panel panel(ambient);
        panel.start(file, path);
        panel.cmdAggiornaDati.click();
        EXPECT_EQ(panel.Adodc.caption, "Record 1 of 1");
        panel.viewer.Terminate();
        EXPECT_THAT(panel.messages(), IsEmpty());
    }
}

}  // namespace
}  // namespace velt
