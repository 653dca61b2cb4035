// SPDX-License-Identifier: MIT
#pragma once

#include "tests/alarmviewer/alarmviewerwidgets.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velt {

using testing::ElementsAre;
using testing::IsEmpty;

inline const std::string AllAlarms =
    "SELECT Data, VRX, Allarme, Descrizione, Evento FROM Allarmi ORDER BY Data";

/// An alarm viewer on fakes; the file "allarmi.mdb" exists and lists three stations, two alarms.
class AlarmViewerFixture : public testing::Test, protected AlarmViewerWidgets {
protected:
    using Rows = std::vector<std::vector<Variant>>;

    AlarmViewerFixture() {
        services.files.files.insert("allarmi.mdb");
        answer(StationListQuery, {"VRX"}, {{"RTU01  "}, {"RTU02"}, {Null{}}, {"   "}, {"RTU03"}});
        answer(AlarmListQuery, {"Allarme"}, {{"Livello alto"}, {"Pompa ferma"}});
        answer(AllAlarms, {"Data", "a_b_c"}, {{Date(1.0), "x"}, {Date(2.0), "y"}});
        ambient.displayName = "AlarmViewer1";
    }
    void answer(const std::string& query, std::vector<std::string> columns, Rows rows) {
        database().answers[query] =
            std::make_shared<fakes::FakeRowSet>(std::move(columns), std::move(rows));
    }
    /// As a host does it at run time.
    void startWith(const std::string& file, const std::string& fileIni) {
        viewer.File(file);
        viewer.FileIni(fileIni);
        viewer.Show();
    }
    fakes::FakeDatabase& database() { return services.fakeDatabase; }
    /// What the operator was told since the last call.
    std::vector<fakes::FakeMessageBox::Message> told() {
        return std::exchange(services.messages.shown, {});
    }
    /// The keys that stand in this instance's section of "a.ini".
    fakes::FakeSettingsFactory::Keys& saved() {
        return services.settingsFactory.files["a.ini"]["AlarmViewer_AlarmViewer1"];
    }

    fakes::FakeServices services;
    AlarmViewer viewer{form, ambient, services};
};

}  // namespace velt
