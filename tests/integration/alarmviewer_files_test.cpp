// SPDX-License-Identifier: MIT
// The alarm viewer's logic on real Access and settings files.
#include "adapters/access/accessdatabase.h"
#include "adapters/access/filesystem.h"
#include "adapters/access/jet/writer.h"
#include "adapters/ini/inisettings.h"
#include "tests/alarmviewer/alarmviewerwidgets.h"
#include "tests/tempfolder.h"

#include <gtest/gtest.h>

namespace velt {
namespace {

const Date morning = Date::fromFields({2026, 3, 14, 7, 30});

void writeAlarms(const std::filesystem::path& file) {
    std::vector<jet::ColumnDefinition> columns{{"Data", jet::ColumnType::Date}};
    for (const char* name : {"VRX", "Allarme", "Descrizione", "Evento"}) columns.push_back({name});
    jet::Writer writer = jet::Writer::create(file);
    writer.createTable("Allarmi", columns);
    const std::tuple<double, const char*, const char*> alarms[] = {{3600, "RTU02", "Pompa ferma"},
                                                                   {0, "RTU01", "Livello alto"},
                                                                   {60, "RTU02", "Livello alto"},
                                                                   {86400, "RTU01", "Pompa ferma"}};
    for (const auto& [seconds, station, name] : alarms)
        writer.append("Allarmi",
                      std::vector<Variant>{morning.addSeconds(seconds), station, name, "", ""});
}

/// Real settings, files and databases; the rest is played.
struct FileServices final : fakes::FakeServices {
    SettingsFactory& settings() override { return settings_; }
    clsDatabase& database() override { return database_; }
    clsFileSystem& fileSystem() override { return files_; }
    ini::IniSettingsFactory settings_{clock()};
    access::AccessDatabase database_{dispatcher()};
    access::LocalFileSystem files_{dispatcher()};
};

/// An alarm viewer with widgets of its own, as a panel makes it anew at each start.
struct Panel : AlarmViewerWidgets {
    explicit Panel(const TempFolder& folder) {
        viewer.File((folder / "Allarmi.mdb").string());
        viewer.FileIni((folder / "panel.ini").string());
        viewer.Show();
    }
    std::string refreshed() {
        cmdAggiornaDati.click();
        return Adodc.caption;
    }
    FileServices services;
    AlarmViewer viewer{form, ambient, services};
};

TEST(AlarmViewerFiles, FiltersShowsAndRemembers) {
    const TempFolder folder;
    writeAlarms(folder / "Allarmi.mdb");
    Panel first(folder);
    EXPECT_EQ(first.refreshed(), "Record 1 of 4");
    EXPECT_EQ(first.Adodc.rows()->value(0, 0), Variant(morning)) << "sorted by date";
    first.chkDataIniziale.toggle();
    first.DataIniziale.Value(morning.addSeconds(60));
    first.chkDataFinale.toggle();
    first.DataFinale.Value(morning.addSeconds(3600));
    first.lvVRX.Checked(2, true);
    EXPECT_EQ(first.refreshed(), "Record 1 of 2") << "both bounds belong to the range";
    first.chkAllarme.toggle();
    first.cmbAllarme.ListIndex(1);
    EXPECT_EQ(first.refreshed(), "Record 1 of 1");
    EXPECT_TRUE(first.services.messages.shown.empty());
    first.viewer.Terminate();

    Panel second(folder);
    EXPECT_EQ(second.DataIniziale.Value(), morning.addSeconds(60));
    EXPECT_EQ(second.cmbAllarme.Text(), "Pompa ferma");
    EXPECT_EQ(second.refreshed(), "Record 1 of 1");
}

}  // namespace
}  // namespace velt
