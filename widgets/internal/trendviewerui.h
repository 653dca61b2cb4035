// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/qt/colorswatch.h"
#include "widgets/chart/summarytable.h"
#include "widgets/chart/trendchart.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

#include <array>

namespace velt::ui {

/// The widgets of one pen.
struct TrendPenUi {
    qt::ColorSwatch* colore;
    QLabel* marker;
    QComboBox* cmbTrend;
    QLabel* lblDesc;
    QLabel* lblUdm;
};

/// The widgets of a trend viewer, laid out on `face`, which owns them.
struct TrendViewerUi {
    explicit TrendViewerUi(QWidget* face);

    QWidget* control;
    QGroupBox* frmIntervallo;
    QGroupBox* frmPenne;
    QComboBox* cmbVRX;
    QComboBox* cmbRange;
    QDateTimeEdit* DataIniziale;
    QDateTimeEdit* TimeIniziale;
    QDateTimeEdit* DataFinale;
    QDateTimeEdit* TimeFinale;
    QPushButton* cmdIndietro2;
    QPushButton* cmdIndietro;
    QPushButton* cmdAvanti;
    QPushButton* cmdAvanti2;
    QPushButton* cmdAggiornaDati;
    QCheckBox* chkAutoUpdate;
    QCheckBox* chkNormalizzato;
    QComboBox* cmbScala;
    std::array<TrendPenUi, 4> penne;
    TrendChart* chart;
    SummaryTable* summary;

private:
    void layoutInterval();
    void layoutPens();
    void orderTabs();
};

}  // namespace velt::ui
