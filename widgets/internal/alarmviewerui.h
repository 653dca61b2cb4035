// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/qt/recordbar.h"
#include "widgets/internal/multilinebutton.h"
#include "widgets/internal/resultgrid.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QGroupBox>
#include <QTableView>

namespace velt::ui {

/// The widgets of an alarm viewer, laid out on `face`, which owns them.
struct AlarmViewerUi {
    explicit AlarmViewerUi(QWidget* face);

    QWidget* control;
    QGroupBox* frmAllarme;
    QCheckBox* chkDataIniziale;
    QDateTimeEdit* DataIniziale;
    QDateTimeEdit* TimeIniziale;
    QCheckBox* chkDataFinale;
    QDateTimeEdit* DataFinale;
    QDateTimeEdit* TimeFinale;
    QCheckBox* chkAllarme;
    QComboBox* cmbAllarme;
    QTableView* lvVRX;
    QPushButton* cmdSeleziona;
    QPushButton* cmdDeseleziona;
    QPushButton* cmdAggiornaVRX;
    QPushButton* cmdAggiornaDati;
    ResultGrid* dg;
    qt::RecordBar* Adodc;

private:
    QWidget* makePeriod();
    QWidget* makeAlarm();
    QWidget* makeStations();
};

}  // namespace velt::ui
