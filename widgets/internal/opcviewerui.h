// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/internal/resultgrid.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QString>

#include <functional>

namespace velt::ui {

/// The widgets of an OPC viewer, laid out on `face`, which owns them.
struct OPCViewerUi {
    explicit OPCViewerUi(QWidget* face);

    /// Calls `filter` for each change of the filter, as long as `receiver` lives.
    void onFilter(QObject* receiver,
                  std::function<void(const QString& text, bool onlyAbnormal)> filter) const;
    /// Says how many of the items are shown, and which one a value would be written to.
    void showItems(int count, int shown) const;
    /// Says, in the empty table, that the server was lost.
    void showLoss(const QString& time, const QString& reason) const;
    /// Default widths; once the table has columns.
    void fitColumns() const;

    QWidget* control;
    QGroupBox* frmVRX;
    ResultGrid* lvVRX;
    QPushButton* cmdVrxFromOPC;
    QPushButton* cmdSeleziona;
    QPushButton* cmdDeseleziona;
    QPushButton* cmdAggiornaDati;
    QPushButton* cmdEliminaTutto;
    QGroupBox* frmItem;
    QLineEdit* txtFiltro;
    QCheckBox* chkNonGood;
    QLabel* lblConteggio;
    ResultGrid* lvItem;
    QGroupBox* frmScrivi;
    QLabel* lblItem;
    QLineEdit* txtScrittura;
    QPushButton* cmdScrivi;

private:
    QWidget* makeStations() const;
    QWidget* makeItems() const;
    QWidget* makeWriting() const;
};

}  // namespace velt::ui
