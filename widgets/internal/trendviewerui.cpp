// SPDX-License-Identifier: MIT
#include "widgets/internal/trendviewerui.h"

#include "widgets/internal/elidedlabel.h"
#include "widgets/internal/facemaking.h"
#include "widgets/internal/pickers.h"

#include <QBoxLayout>
#include <QGridLayout>

#include <vector>

namespace velt::ui {
namespace {

constexpr int ArrowWidth = 40;    // pixels
constexpr int StationChars = 12;  // shown of a name, at least
constexpr int TrendChars = 16;

QPushButton* arrow(const char* name, const QString& caption, const QString& meaning) {
    QPushButton* button = plainButton(make<QPushButton>(name, caption));
    button->setAccessibleName(meaning);
    button->setToolTip(meaning);
    button->setMaximumWidth(ArrowWidth);
    return button;
}

/// As wide as its place, however long the names in it are.
QComboBox* list(const char* name, const QString& meaning, int characters) {
    auto* box = make<QComboBox>(name);
    box->setAccessibleName(meaning);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(characters);
    return box;
}

TrendPenUi makePen(int pen) {
    const QString number = QString::number(pen + 1);
    const auto named = [](const char* name, int index) {
        return QByteArray(name) + QByteArray::number(index);
    };
    TrendPenUi ui{};
    ui.colore = make<qt::ColorSwatch>(named("colore", pen + 1).constData(), number);
    ui.colore->setAccessibleName(
        QStringLiteral("Penna %1: mostra o nasconde; Invio sceglie il colore").arg(number));
    ui.colore->setToolTip(
        QStringLiteral("Clic: mostra o nasconde la penna. Doppio clic: sceglie il colore."));
    ui.marker = make<QLabel>(named("marker", pen).constData(), QStringLiteral("●"));
    ui.marker->setToolTip(QStringLiteral("La penna è visibile"));
    ui.cmbTrend = list(named("cmbTrend", pen).constData(),
                       QStringLiteral("Trend della penna %1").arg(number), TrendChars);
    ui.lblDesc = make<ElidedLabel>(named("lblDesc", pen).constData());
    ui.lblDesc->setTextFormat(Qt::PlainText);
    ui.lblDesc->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    ui.lblUdm = make<QLabel>(named("lblUdm", pen).constData());
    ui.lblUdm->setTextFormat(Qt::PlainText);
    ui.lblUdm->setMinimumWidth(ui.lblUdm->fontMetrics().horizontalAdvance(QStringLiteral("mmmm")));
    return ui;
}

}  // namespace

TrendViewerUi::TrendViewerUi(QWidget* face)
    : control(face),
      frmIntervallo(make<QGroupBox>("frmIntervallo", QStringLiteral(" Intervallo "))),
      frmPenne(make<QGroupBox>("frmPenne", QStringLiteral(" Penne "))),
      cmbVRX(list("cmbVRX", QStringLiteral("Stazione"), StationChars)),
      cmbRange(list("cmbRange", QStringLiteral("Durata dell'intervallo"), StationChars)),
      DataIniziale(makeDatePicker("DataIniziale", "Data iniziale")),
      TimeIniziale(makeTimePicker("TimeIniziale", "Ora iniziale")),
      DataFinale(makeDatePicker("DataFinale", "Data finale")),
      TimeFinale(makeTimePicker("TimeFinale", "Ora finale")),
      cmdIndietro2(arrow("cmdIndietro2", QStringLiteral("<<"),
                         QStringLiteral("Indietro di mezzo intervallo"))),
      cmdIndietro(arrow("cmdIndietro", QStringLiteral("<"),
                        QStringLiteral("Indietro di un quarto dell'intervallo"))),
      cmdAvanti(arrow("cmdAvanti", QStringLiteral(">"),
                      QStringLiteral("Avanti di un quarto dell'intervallo"))),
      cmdAvanti2(
          arrow("cmdAvanti2", QStringLiteral(">>"), QStringLiteral("Avanti di mezzo intervallo"))),
      cmdAggiornaDati(
          plainButton(make<QPushButton>("cmdAggiornaDati", QStringLiteral("&Aggiorna Dati")))),
      chkAutoUpdate(make<QCheckBox>("chkAutoUpdate", QStringLiteral("Aggiornamento automatico"))),
      chkNormalizzato(make<QCheckBox>("chkNormalizzato", QStringLiteral("Grafico normalizzato"))),
      cmbScala(list("cmbScala", QStringLiteral("Scala"), StationChars)),
      penne{makePen(0), makePen(1), makePen(2), makePen(3)},
      chart(make<TrendChart>("chart")),
      summary(make<SummaryTable>("summary", *chart)) {
    layoutInterval();
    layoutPens();
    auto* settings = new QHBoxLayout;
    settings->addWidget(frmIntervallo);
    settings->addWidget(frmPenne, 1);
    auto* layout = new QVBoxLayout(face);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->setSizeConstraint(QLayout::SetMinimumSize);  // also on a form without a layout
    layout->addLayout(settings);
    layout->addWidget(chart, 1);
    layout->addWidget(summary);
    orderTabs();
}

void TrendViewerUi::layoutInterval() {
    const auto caption = [](const QString& text, QWidget* buddy) {
        auto* label = new QLabel(text);
        label->setBuddy(buddy);
        return label;
    };
    auto* arrows = new QHBoxLayout;
    for (QPushButton* button : {cmdIndietro2, cmdIndietro, cmdAvanti, cmdAvanti2})
        arrows->addWidget(button);
    arrows->addStretch();
    auto* scale = new QHBoxLayout;
    scale->addWidget(caption(QStringLiteral("Sca&la:"), cmbScala));
    scale->addWidget(cmbScala, 1);

    auto* grid = new QGridLayout(frmIntervallo);
    grid->addWidget(caption(QStringLiteral("S&tazione:"), cmbVRX), 0, 0);
    grid->addWidget(cmbVRX, 0, 1, 1, 2);
    grid->addWidget(caption(QStringLiteral("&Durata:"), cmbRange), 0, 3);
    grid->addWidget(cmbRange, 0, 4, 1, 2);
    grid->addWidget(caption(QStringLiteral("&Inizio:"), DataIniziale), 1, 0);
    grid->addWidget(DataIniziale, 1, 1);
    grid->addWidget(TimeIniziale, 1, 2);
    grid->addWidget(caption(QStringLiteral("&Fine:"), DataFinale), 1, 3);
    grid->addWidget(DataFinale, 1, 4);
    grid->addWidget(TimeFinale, 1, 5);
    grid->addLayout(arrows, 2, 0, 1, 3);
    grid->addWidget(cmdAggiornaDati, 2, 3, 1, 3);
    grid->addWidget(chkAutoUpdate, 3, 0, 1, 3);
    grid->addWidget(chkNormalizzato, 4, 0, 1, 3);
    grid->addLayout(scale, 4, 3, 1, 3);
}

void TrendViewerUi::layoutPens() {
    auto* grid = new QGridLayout(frmPenne);
    grid->setColumnStretch(2, 1);
    grid->setColumnStretch(3, 2);
    for (std::size_t pen = 0; pen < penne.size(); ++pen) {
        const TrendPenUi& ui = penne[pen];
        const int row = static_cast<int>(pen);
        grid->addWidget(ui.colore, row, 0);
        grid->addWidget(ui.marker, row, 1);
        grid->addWidget(ui.cmbTrend, row, 2);
        grid->addWidget(ui.lblDesc, row, 3);
        grid->addWidget(ui.lblUdm, row, 4);
    }
}

void TrendViewerUi::orderTabs() {
    std::vector<QWidget*> order = {cmbVRX,          cmbRange,   DataIniziale,    TimeIniziale,
                                   DataFinale,      TimeFinale, cmdIndietro2,    cmdIndietro,
                                   cmdAvanti,       cmdAvanti2, cmdAggiornaDati, chkAutoUpdate,
                                   chkNormalizzato, cmbScala};
    for (const TrendPenUi& pen : penne) order.insert(order.end(), {pen.colore, pen.cmbTrend});
    order.insert(order.end(), {chart, summary});
    for (std::size_t i = 1; i < order.size(); ++i) QWidget::setTabOrder(order[i - 1], order[i]);
}

}  // namespace velt::ui
