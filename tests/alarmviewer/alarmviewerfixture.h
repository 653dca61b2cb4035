// SPDX-License-Identifier: MIT
#pragma once

#include "tests/alarmviewer/alarmviewerwidgets.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velt {

inline const std::string AllAlarms =
    "SELECT Data, VRX, Allarme, Descrizione, Evento FROM Allarmi ORDER BY Data";

inline std::shared_ptr<const RowSet> column(const std::string& name,
                                            const std::vector<Variant>& values) {
    std::vector<std::vector<Variant>> rows;
    for (const Variant& value : values) rows.push_back({value});
    return std::make_shared<fakes::FakeRowSet>(std::vector{name}, std::move(rows));
}

/// An alarm viewer on fakes; the file "allarmi.mdb" exists and lists three stations, two alarms.
class AlarmViewerFixture : public testing::Test, protected AlarmViewerWidgets {
protected:
    AlarmViewerFixture() {
        services.files.files.insert("allarmi.mdb");
        database().answers[StationListQuery] = column("VRX", {"RTU01  ", "RTU02", "RTU03"});
        database().answers[AlarmListQuery] = column("Allarme", {"Livello alto", "Pompa ferma"});
        database().answers[AllAlarms] = std::make_shared<fakes::FakeRowSet>(
            std::vector<std::string>{"Data", "a_b_c"},
            std::vector<std::vector<Variant>>{{Date(1.0), "x"}, {Date(2.0), "y"}});
        ambient.displayName = "AlarmViewer1";
    }

    /// As a host does it at run time.
    void startWith(const std::string& file, const std::string& fileIni) {
        viewer.File(file);
        viewer.FileIni(fileIni);
        viewer.Show();
    }
    fakes::FakeDatabase& database() { return services.fakeDatabase; }
    std::vector<fakes::FakeMessageBox::Message>& messages() { return services.messages.shown; }
    /// The keys that stand in this instance's section of "a.ini".
    fakes::FakeSettingsFactory::Keys& saved() {
        return services.settingsFactory.files["a.ini"]["AlarmViewer_AlarmViewer1"];
    }

    fakes::FakeServices services;
    AlarmViewer viewer{form, ambient, services};
};

}  // namespace velt
