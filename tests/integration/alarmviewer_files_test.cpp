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
    using Row = std::vector<Variant>;
    for (const Row& row : {Row{morning.addSeconds(60), "RTU02", "Pompa ferma", "", ""},
                           Row{morning, "RTU02", "Livello alto", "", ""},
                           Row{morning.addSeconds(61), "RTU01", "Pompa ferma", "", ""}})
        writer.append("Allarmi", row);
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
        cmdAggiornaDati.click();
    }
    FileServices services;
    AlarmViewer viewer{form, ambient, services};
};

TEST(AlarmViewerFiles, FiltersShowsAndRemembers) {
    const TempFolder folder;
    writeAlarms(folder / "Allarmi.mdb");
    Panel first(folder);
    EXPECT_EQ(first.Adodc.caption, "Record 1 of 3");
    EXPECT_EQ(first.Adodc.rows()->value(0, 0), Variant(morning)) << "sorted by date";
    first.chkDataIniziale.toggle();
    first.DataIniziale.Value(morning);
    first.chkDataFinale.toggle();
    first.DataFinale.Value(morning.addSeconds(60));
    first.cmdAggiornaDati.click();
    EXPECT_EQ(first.Adodc.caption, "Record 1 of 2") << "both bounds belong to the range";
    first.lvVRX.Checked(2, true);
    first.chkAllarme.toggle();
    first.cmbAllarme.ListIndex(1);
    first.viewer.Terminate();
    EXPECT_EQ(Panel(folder).Adodc.caption, "Record 1 of 1") << "all the choices came back";
}

}  // namespace
}  // namespace velt
