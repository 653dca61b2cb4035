// SPDX-License-Identifier: MIT
// The alarm viewer's logic on real Access and settings files.
#include "adapters/access/accessdatabase.h"
#include "adapters/access/filesystem.h"
#include "adapters/access/jet/writer.h"
#include "adapters/ini/inisettings.h"
#include "tests/alarmviewer/alarmviewerwidgets.h"
#include "tests/tempfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velt {
namespace {

using testing::ElementsAre;
using Path = std::filesystem::path;

const Date morning = Date::fromFields({2026, 3, 14, 7, 30, 0, 0});

void writeAlarms(const Path& file) {
    const std::tuple<double, const char*, const char*> alarms[] = {{3600, "RTU02", "Pompa ferma"},
                                                                   {0, "RTU01", "Livello alto"},
                                                                   {60, "RTU02", "Livello alto"},
                                                                   {86400, "RTU01", "Pompa ferma"}};
    std::vector<jet::ColumnDefinition> columns{{"Data", jet::ColumnType::Date}};
    for (const char* name : {"VRX", "Allarme", "Descrizione", "Evento"})
        columns.push_back({name, jet::ColumnType::Text});
    jet::Writer writer = jet::Writer::create(file);
    writer.createTable("Allarmi", columns);
    for (const auto& [seconds, station, name] : alarms)
        writer.append("Allarmi", std::vector<Variant>{morning.addSeconds(seconds), station, name,
                                                      "descrizione", "Attivo"});
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
    explicit Panel(const Path& folder) {
        viewer.File((folder / "Allarmi.mdb").string());
        viewer.FileIni((folder / "panel.ini").string());
        viewer.Show();
    }
    FileServices services;
    AlarmViewer viewer{form, ambient, services};
};

TEST(AlarmViewerFiles, FiltersShowsAndRemembers) {
    const TempFolder folder;
    writeAlarms(folder / "Allarmi.mdb");
    {
        Panel panel(folder.path());
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
        EXPECT_TRUE(panel.services.messages.shown.empty());
        panel.viewer.Terminate();
    }
    Panel panel(folder.path());
    EXPECT_EQ(panel.DataIniziale.Value(), morning.addSeconds(60));
    EXPECT_EQ(panel.cmbAllarme.Text(), "Pompa ferma");
    EXPECT_THAT(checkedTexts(panel.lvVRX), ElementsAre("RTU02"));
    panel.cmdAggiornaDati.click();
    EXPECT_EQ(panel.Adodc.caption, "Record 1 of 1");
}

}  // namespace
}  // namespace velt
