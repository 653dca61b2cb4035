// SPDX-License-Identifier: MIT
#include "widgets/internal/alarmviewerui.h"

#include "widgets/internal/facemaking.h"
#include "widgets/internal/pickers.h"

#include <QBoxLayout>
#include <QGridLayout>

namespace velt::ui {
namespace {

constexpr int ListHeight = 100;  // pixels: five stations
constexpr int ListWidth = 180;   // the column's width and a scroll bar
constexpr int ButtonWidth = 130;
constexpr int GridHeight = 110;  // the header and four rows

QPushButton* wideButton(QPushButton* button) {
    button->setMinimumWidth(ButtonWidth);
    return plainButton(button);
}

}  // namespace

AlarmViewerUi::AlarmViewerUi(QWidget* face)
    : control(face),
      frmAllarme(make<QGroupBox>("frmAllarme", QStringLiteral(" Allarme "))),
      chkDataIniziale(make<QCheckBox>("chkDataIniziale", QStringLiteral("Data iniziale"))),
      DataIniziale(makeDatePicker("DataIniziale", "Data iniziale")),
      TimeIniziale(makeTimePicker("TimeIniziale", "Ora iniziale")),
      chkDataFinale(make<QCheckBox>("chkDataFinale", QStringLiteral("Data finale"))),
      DataFinale(makeDatePicker("DataFinale", "Data finale")),
      TimeFinale(makeTimePicker("TimeFinale", "Ora finale")),
      chkAllarme(make<QCheckBox>("chkAllarme", QStringLiteral("Abilita condizione"))),
      cmbAllarme(make<QComboBox>("cmbAllarme")),
      lvVRX(make<QTableView>("lvVRX")),
      cmdSeleziona(
          wideButton(make<QPushButton>("cmdSeleziona", QStringLiteral("&Seleziona Tutti")))),
      cmdDeseleziona(
          wideButton(make<QPushButton>("cmdDeseleziona", QStringLiteral("&Deseleziona Tutti")))),
      cmdAggiornaVRX(wideButton(make<MultiLineButton>(
          "cmdAggiornaVRX", QStringLiteral("      Aggiorna lista     &RTU e Allarmi")))),
      cmdAggiornaDati(
          wideButton(make<QPushButton>("cmdAggiornaDati", QStringLiteral("&Aggiorna Dati")))),
      dg(make<ResultGrid>("dg")),
      Adodc(make<qt::RecordBar>("Adodc")) {
    dg->setAccessibleName(QStringLiteral("Allarmi"));
    dg->setAlternatingRowColors(true);
    dg->setEmptyText(QStringLiteral("Nessun allarme corrisponde alle condizioni."));
    auto* area = new GridArea(
        dg, QStringLiteral("Premere \"Aggiorna Dati\" per leggere gli allarmi."), face);

    area->setMinimumHeight(GridHeight);

    auto* conditions = new QVBoxLayout;
    conditions->addWidget(makePeriod());
    conditions->addWidget(makeAlarm());
    auto* buttons = new QVBoxLayout;
    buttons->addWidget(cmdSeleziona);
    buttons->addWidget(cmdDeseleziona);
    buttons->addWidget(cmdAggiornaVRX);
    buttons->addStretch();
    buttons->addWidget(cmdAggiornaDati);
    auto* filters = new QHBoxLayout;
    filters->addLayout(conditions);
    filters->addWidget(makeStations(), 1);
    filters->addLayout(buttons);

    auto* layout = new QVBoxLayout(face);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->setSizeConstraint(QLayout::SetMinimumSize);  // also on a form without a layout
    layout->addLayout(filters);
    layout->addWidget(area, 1);
    layout->addWidget(Adodc);
    orderTabs({chkDataIniziale, DataIniziale, TimeIniziale, chkDataFinale, DataFinale, TimeFinale,
               chkAllarme, cmbAllarme, lvVRX, cmdSeleziona, cmdDeseleziona, cmdAggiornaVRX,
               cmdAggiornaDati, dg});
}

QWidget* AlarmViewerUi::makePeriod() {
    auto* frame = make<QGroupBox>("frmPeriodo", QStringLiteral(" Periodo "));
    auto* layout = new QGridLayout(frame);
    layout->addWidget(chkDataIniziale, 0, 0);
    layout->addWidget(DataIniziale, 0, 1);
    layout->addWidget(TimeIniziale, 0, 2);
    layout->addWidget(chkDataFinale, 1, 0);
    layout->addWidget(DataFinale, 1, 1);
    layout->addWidget(TimeFinale, 1, 2);
    return frame;
}

QWidget* AlarmViewerUi::makeAlarm() {
    cmbAllarme->setAccessibleName(QStringLiteral("Allarme"));
    // As wide as the frame, however long the names in the file are.
    cmbAllarme->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    cmbAllarme->setMinimumContentsLength(12);
    auto* layout = new QHBoxLayout(frmAllarme);
    layout->addWidget(chkAllarme);
    layout->addWidget(cmbAllarme, 1);
    return frmAllarme;
}

QWidget* AlarmViewerUi::makeStations() {
    lvVRX->setAccessibleName(QStringLiteral("Stazioni RTU"));
    lvVRX->setMinimumSize(ListWidth, ListHeight);
    // As high as the conditions beside it: the rest is for the grid.
    lvVRX->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    auto* frame = make<QGroupBox>("frmStazioni", QStringLiteral(" Stazioni RTU "));
    auto* layout = new QVBoxLayout(frame);
    layout->addWidget(lvVRX);
    return frame;
}

}  // namespace velt::ui
