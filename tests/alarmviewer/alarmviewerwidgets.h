// SPDX-License-Identifier: MIT
#pragma once

#include "alarmviewer/alarmviewer.h"
#include "tests/fakes/fakeservices.h"
#include "tests/fakes/fakewidgets.h"

namespace velt {

/// The widgets of an alarm viewer, in memory.
struct AlarmViewerWidgets {
    fakes::FakeAmbient ambient;
    fakes::FakeFrame control, frmAllarme;
    fakes::FakeCheckBox chkDataIniziale, chkDataFinale, chkAllarme;
    fakes::FakeDatePicker DataIniziale, TimeIniziale, DataFinale, TimeFinale;
    fakes::FakeComboBox cmbAllarme;
    fakes::FakeListView lvVRX;
    fakes::FakeButton cmdSeleziona, cmdDeseleziona, cmdAggiornaVRX, cmdAggiornaDati;
    fakes::FakeDataControl Adodc;
    fakes::FakeDataGrid dg{Adodc};
    fakes::FakeTimer t;
    const AlarmViewerForm form{
        control,        frmAllarme,     chkDataIniziale, DataIniziale, TimeIniziale, chkDataFinale,
        DataFinale,     TimeFinale,     chkAllarme,      cmbAllarme,   lvVRX,        cmdSeleziona,
        cmdDeseleziona, cmdAggiornaVRX, cmdAggiornaDati, dg,           Adodc,        t};
};

}  // namespace velt
