// SPDX-License-Identifier: MIT
#pragma once

#include "alarmviewer/alarmviewer.h"
#include "tests/fakes/fakeservices.h"
#include "tests/fakes/fakewidgets.h"

#include <gtest/gtest.h>

#include <memory>
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
class AlarmViewerFixture : public testing::Test {
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

    fakes::FakeAmbient ambient;
    fakes::FakeServices services;
    fakes::FakeFrame control, frmAllarme;
    fakes::FakeCheckBox chkDataIniziale, chkDataFinale, chkAllarme;
    fakes::FakeDatePicker DataIniziale, TimeIniziale, DataFinale, TimeFinale;
    fakes::FakeComboBox cmbAllarme;
    fakes::FakeListView lvVRX;
    fakes::FakeButton cmdSeleziona, cmdDeseleziona, cmdAggiornaVRX, cmdAggiornaDati;
    fakes::FakeDataControl Adodc;
    fakes::FakeDataGrid dg{Adodc};
    fakes::FakeTimer t;
    AlarmViewer viewer{AlarmViewerForm{control, frmAllarme, chkDataIniziale, DataIniziale,
                                       TimeIniziale, chkDataFinale, DataFinale, TimeFinale,
                                       chkAllarme, cmbAllarme, lvVRX, cmdSeleziona, cmdDeseleziona,
                                       cmdAggiornaVRX, cmdAggiornaDati, dg, Adodc, t},
                       ambient, services};
};

}  // namespace velt
