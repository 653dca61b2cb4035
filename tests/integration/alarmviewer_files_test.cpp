// SPDX-License-Identifier: MIT
// The alarm viewer's logic on real Access and settings files.
#include "adapters/access/accessdatabase.h"
#include "adapters/access/filesystem.h"
#include "adapters/access/jet/writer.h"
#include "adapters/ini/inisettings.h"
#include "tests/alarmviewer/alarmviewerwidgets.h"
#include "tests/filebytes.h"
#include "tests/tempfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velt {
namespace {

namespace fs = std::filesystem;
using test::bytesOf;
using test::writeBytes;
using testing::AllOf;
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
}

Row alarm(const Date& time, const char* station, const char* name) {
    return {time, station, name, "descrizione", "Attivo"};
}

/// Real settings, files and databases; the rest is played.
class FileServices final : public fakes::FakeServices {
public:
    SettingsFactory& settings() override { return settings_; }
    clsDatabase& database() override { return database_; }
    clsFileSystem& fileSystem() override { return files_; }

private:
    ini::IniSettingsFactory settings_{clock()};
    access::AccessDatabase database_{dispatcher()};
    access::LocalFileSystem files_{dispatcher()};
};

/// An alarm viewer with widgets of its own, as a panel makes it anew at each start.
struct Panel : AlarmViewerWidgets {
    Panel(const fs::path& file, const fs::path& ini) {
        viewer.File(file.string());
        viewer.FileIni(ini.string());
        viewer.Show();
    }
    /// What was told since the last call.
    std::vector<std::string> messages() {
        std::vector<std::string> texts;
        for (const auto& message : services.messages.shown) texts.push_back(message.text);
        services.messages.shown.clear();
        return texts;
    }

    FileServices services;
    AlarmViewer viewer{form, ambient, services};
};

class AlarmViewerFiles : public testing::Test {
protected:
    TempFolder folder;
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
        Panel panel(file, ini);
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
    Panel panel(file, ini);
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
    Panel panel(file, ini);
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
    const std::vector<Row> rows = {alarm(morning, "RTU01", "A")};
    auto otherColumns = AlarmColumns;
    otherColumns[3].name = "Testo";
    fs::create_directory(folder / "cartella.mdb");
    writeBytes(folder / "testo.mdb", std::string(9000, 'x'));
    writeTable(folder / "senza tabella.mdb", "Altro", AlarmColumns, rows);
    writeTable(folder / "senza colonna.mdb", "Allarmi", otherColumns, rows);
    struct Case {
        const char* file = "";
        const char* onRefresh = "";
        std::size_t onStart = 1;  ///< messages already at the first show
    };
    const Case cases[] = {
        {"cartella.mdb", "Il File Allarmi non esiste!"},
        {"testo.mdb", "Error N°: 3343\r\nDesc.: "},
        {"senza tabella.mdb", "Error N°: 3078\r\nDesc.: "},
        {"senza colonna.mdb", "Error N°: 3061\r\nDesc.: ", 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.file);
        Panel panel(folder / c.file, ini);
        EXPECT_EQ(panel.messages().size(), c.onStart);
        panel.cmdAggiornaDati.click();
        EXPECT_THAT(panel.messages(), ElementsAre(StartsWith(c.onRefresh)));
        EXPECT_FALSE(panel.dg.visible);
    }
}

TEST_F(AlarmViewerFiles, AnApostropheInAStationsNameIsASyntaxError) {
    writeTable(file, "Allarmi", AlarmColumns, {alarm(morning, "L'Aquila", "A")});
    Panel panel(file, ini);
    panel.cmdAggiornaDati.click();
    EXPECT_EQ(panel.Adodc.caption, "Record 1 of 1");
    panel.cmdSeleziona.click();
    panel.cmdAggiornaDati.click();
    EXPECT_THAT(panel.messages(), ElementsAre(HasSubstr("\r\nDesc.: ")));
    EXPECT_EQ(panel.Adodc.caption, "Record 1 of 1") << "what was shown stays";
}

TEST_F(AlarmViewerFiles, UnusableSettingsStopNothing) {
    writeTable(file, "Allarmi", AlarmColumns, {alarm(morning, "RTU01", "A")});
    writeBytes(ini,
               "\x7F_ELF\n[AlarmViewer_Instance1]\nisStart=forse\nstartDate=ieri\nListCount=-1\n");
    for (const fs::path& path : {ini, folder.path(), folder / "no" / "such" / "folder.ini"}) {
        Panel panel(file, path);
        EXPECT_EQ(panel.chkDataIniziale.Value(), 0);
        EXPECT_EQ(panel.DataIniziale.Value(), fakes::FakeClock().present);
        panel.cmdAggiornaDati.click();
        EXPECT_EQ(panel.Adodc.caption, "Record 1 of 1");
        panel.viewer.Terminate();
        EXPECT_THAT(panel.messages(), IsEmpty());
    }
    EXPECT_THAT(bytesOf(ini), AllOf(StartsWith("\x7F_ELF\n"), HasSubstr("isStart=0")));
}

}  // namespace
}  // namespace velt
