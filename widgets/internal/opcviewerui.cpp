// SPDX-License-Identifier: MIT
#include "widgets/internal/opcviewerui.h"

#include "widgets/internal/columnfitter.h"
#include "widgets/internal/elidedlabel.h"
#include "widgets/internal/facemaking.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLocale>
#include <QSplitter>

#include <utility>

namespace velt::ui {
namespace {

constexpr int ListWidth = 226;  // pixels: the column's 200 and a scroll bar
constexpr int ListHeight = 90;  // four stations
constexpr int TableWidth = 380;
constexpr int TableHeight = 110;  // the header and four rows
constexpr int NameWidth = 180;    // at least
constexpr int ColumnWidths[] = {NameWidth, 145, 120, 150};

constexpr QLatin1String NoItems(
    "Spuntare le stazioni e premere \"Aggiorna Variabili\" per vederne le variabili.");
constexpr QLatin1String NothingPasses("Nessun Item corrisponde al filtro.");
constexpr QLatin1String NoStations(
    "Nessuna stazione. Premere \"Aggiorna Elenco RTU\" per leggerle dal server.");

}  // namespace

OPCViewerUi::OPCViewerUi(QWidget* face)
    : control(face),
      frmVRX(make<QGroupBox>("frmVRX", QStringLiteral("Elenco RTU"))),
      lvVRX(make<ResultGrid>("lvVRX")),
      cmdVrxFromOPC(
          plainButton(make<QPushButton>("cmdVrxFromOPC", QStringLiteral("Aggiorna Elenco &RTU")))),
      cmdSeleziona(
          plainButton(make<QPushButton>("cmdSeleziona", QStringLiteral("&Seleziona Tutti")))),
      cmdDeseleziona(
          plainButton(make<QPushButton>("cmdDeseleziona", QStringLiteral("&Deseleziona Tutti")))),
      cmdAggiornaDati(
          plainButton(make<QPushButton>("cmdAggiornaDati", QStringLiteral("&Aggiorna Variabili")))),
      cmdEliminaTutto(
          plainButton(make<QPushButton>("cmdEliminaTutto", QStringLiteral("&Elimina Tutto")))),
      frmItem(make<QGroupBox>("frmItem", QStringLiteral("Elenco Item"))),
      txtFiltro(make<QLineEdit>("txtFiltro")),
      chkNonGood(make<QCheckBox>("chkNonGood", QStringLiteral("Solo &qualità non Good"))),
      lblConteggio(make<QLabel>("lblConteggio")),
      lvItem(make<ResultGrid>("lvItem")),
      frmScrivi(make<QGroupBox>("frmScrivi", QStringLiteral("Scrittura"))),
      lblItem(make<ElidedLabel>("lblItem")),
      txtScrittura(make<QLineEdit>("txtScrittura")),
      cmdScrivi(plainButton(make<QPushButton>("cmdScrivi", QStringLiteral("S&crivi")))) {
    auto* halves = new QSplitter;
    halves->setChildrenCollapsible(false);
    halves->addWidget(makeStations());
    halves->addWidget(makeItems());
    halves->setStretchFactor(1, 1);

    auto* layout = new QVBoxLayout(face);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->setSizeConstraint(QLayout::SetMinimumSize);  // also on a form without a layout
    layout->addWidget(halves);
    orderTabs({lvVRX, cmdVrxFromOPC, cmdSeleziona, cmdDeseleziona, cmdAggiornaDati, cmdEliminaTutto,
               txtFiltro, chkNonGood, lvItem, txtScrittura, cmdScrivi});
    QObject::connect(txtScrittura, &QLineEdit::returnPressed, cmdScrivi, &QPushButton::click);
    showItems(0, 0);
}

QWidget* OPCViewerUi::makeStations() const {
    lvVRX->setAccessibleName(QStringLiteral("Stazioni RTU"));
    lvVRX->setEmptyText(NoStations);
    lvVRX->setMinimumSize(ListWidth, ListHeight);
    auto* layout = new QVBoxLayout(frmVRX);
    layout->addWidget(lvVRX, 1);
    for (QPushButton* button :
         {cmdVrxFromOPC, cmdSeleziona, cmdDeseleziona, cmdAggiornaDati, cmdEliminaTutto})
        layout->addWidget(button);
    return frmVRX;
}

QWidget* OPCViewerUi::makeItems() const {
    auto* caption = new QLabel(QStringLiteral("&Filtro:"));
    caption->setBuddy(txtFiltro);
    txtFiltro->setAccessibleName(QStringLiteral("Filtro per nome"));
    txtFiltro->setPlaceholderText(QStringLiteral("parte del nome"));
    txtFiltro->setToolTip(QStringLiteral("Mostra solo gli Item il cui nome contiene questo testo"));
    txtFiltro->setClearButtonEnabled(true);
    chkNonGood->setToolTip(QStringLiteral("Nasconde gli Item con qualità \"Good\""));
    auto* filters = new QHBoxLayout;
    filters->addWidget(caption);
    filters->addWidget(txtFiltro, 1);
    filters->addWidget(chkNonGood);
    filters->addWidget(lblConteggio);

    lvItem->setAccessibleName(QStringLiteral("Variabili"));
    lvItem->setAlternatingRowColors(true);
    lvItem->setMinimumSize(TableWidth, TableHeight);
    auto* layout = new QVBoxLayout(frmItem);
    layout->addLayout(filters);
    layout->addWidget(lvItem, 1);
    layout->addWidget(makeWriting());
    return frmItem;
}

QWidget* OPCViewerUi::makeWriting() const {
    txtScrittura->setAccessibleName(QStringLiteral("Valore da scrivere"));
    txtScrittura->setToolTip(
        QStringLiteral("Immettere il valore da scrivere (\";\" separatore per array)"));
    cmdScrivi->setToolTip(QStringLiteral("Esegue la scrittura dell'Item selezionato"));
    lblItem->setTextFormat(Qt::PlainText);
    auto* layout = new QGridLayout(frmScrivi);
    layout->addWidget(lblItem, 0, 0, 1, 2);
    layout->addWidget(txtScrittura, 1, 0);
    layout->addWidget(cmdScrivi, 1, 1);
    layout->setColumnStretch(0, 1);
    return frmScrivi;
}

void OPCViewerUi::onFilter(QObject* receiver,
                           std::function<void(const QString&, bool)> filter) const {
    const auto tell = [this, filter = std::move(filter)] {
        filter(txtFiltro->text(), chkNonGood->isChecked());
    };
    QObject::connect(txtFiltro, &QLineEdit::textChanged, receiver, tell);
    QObject::connect(chkNonGood, &QCheckBox::toggled, receiver, tell);
}

void OPCViewerUi::showItems(int count, int shown) const {
    const QLocale italian(QLocale::Italian, QLocale::Italy);
    const bool isFiltered = !txtFiltro->text().isEmpty() || chkNonGood->isChecked();
    lblConteggio->setText(
        isFiltered
            ? QStringLiteral("%1 di %2 Item").arg(italian.toString(shown), italian.toString(count))
            : QStringLiteral("%1 Item").arg(italian.toString(count)));
    if (count > 0)
        lvItem->setEmptyText(NothingPasses);
    else if (lvItem->emptyText().isEmpty() || lvItem->emptyText() == NothingPasses)
        lvItem->setEmptyText(NoItems);

    const QModelIndexList rows =
        lvItem->selectionModel() ? lvItem->selectionModel()->selectedRows() : QModelIndexList();
    lblItem->setText(rows.isEmpty() ? QStringLiteral("Nessun Item selezionato")
                                    : QStringLiteral("Item: ") + rows.first().data().toString());
}

void OPCViewerUi::showLoss(const QString& time, const QString& reason) const {
    QString text = QStringLiteral("Connessione al server OPC persa: %1").arg(time);
    if (!reason.isEmpty()) text += QStringLiteral("\n") + reason;
    lvItem->setEmptyText(text + QStringLiteral("\nPremere \"Aggiorna Variabili\" per riprovare."));
}

void OPCViewerUi::fitColumns() const {
    for (int column = 0; column < static_cast<int>(std::size(ColumnWidths)); ++column)
        lvItem->setColumnWidth(column, ColumnWidths[column]);
    new ColumnFitter(lvItem, NameWidth);
}

}  // namespace velt::ui
