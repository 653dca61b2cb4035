// SPDX-License-Identifier: MIT
#include "widgets/internal/connviewerui.h"

#include "widgets/internal/elidedlabel.h"
#include "widgets/internal/facemaking.h"

#include <iterator>
#include <utility>

namespace velt::ui {
namespace {

QLabel* plainText(QLabel* label) {
    label->setTextFormat(Qt::PlainText);
    return label;
}

QLabel* value(const char* name, QWidget* frame) {
    return plainText(make<ElidedLabel>(name, frame));
}

QLabel* caption(const char* name, const char* text, QWidget* frame) {
    return make<QLabel>(name, QString::fromUtf8(text), frame);
}

QPushButton* button(const char* name, const char* text, QWidget* frame) {
    return plainButton(make<QPushButton>(name, QString::fromUtf8(text), frame));
}

}  // namespace

ConnViewerUi::ConnViewerUi(QWidget* face)
    : control(face),
      frmSelezioneDati(make<QFrame>("frmSelezioneDati", face)),
      captions{caption("lblTitoloProgetto", "Nome Progetto:", frmSelezioneDati),
               caption("lblTitoloVersione", "Versione:", frmSelezioneDati),
               caption("lblTitoloHostname", "Hostname:", frmSelezioneDati),
               caption("lblTitoloVRX", "RTU:", frmSelezioneDati),
               caption("lblTitoloStato", "Stato:", frmSelezioneDati),
               caption("lblTitoloLog", "Log:", frmSelezioneDati),
               caption("lblTitoloStazioni", "Stazioni RTU", frmSelezioneDati)},
      lblProgetto(value("lblProgetto", frmSelezioneDati)),
      lblVersione(value("lblVersione", frmSelezioneDati)),
      lblHostname(value("lblHostname", frmSelezioneDati)),
      lblVRX(value("lblVRX", frmSelezioneDati)),
      lblStato(value("lblStato", frmSelezioneDati)),
      lblLog(plainText(make<QLabel>("lblLog", frmSelezioneDati))),
      cmdConnetti(button("cmdConnetti", "Connetti", frmSelezioneDati)),
      cmdDisconnetti(button("cmdDisconnetti", "Disconnetti", frmSelezioneDati)),
      cmdDownload(button("cmdDownload", "Download", frmSelezioneDati)),
      cmdDownloadAll(button("cmdDownloadAll", "Download tutte le stazioni", frmSelezioneDati)),
      lvVRX(make<ResultGrid>("lvVRX", face)) {
    frmSelezioneDati->setFrameShape(QFrame::StyledPanel);
    lblLog->setWordWrap(true);
    lblLog->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    lblLog->setTextInteractionFlags(Qt::TextSelectableByMouse);
    for (QLabel* shown : {lblVRX, lblStato}) {
        QFont bold = shown->font();
        bold.setBold(true);
        shown->setFont(bold);
    }
    lvVRX->setAccessibleName(QStringLiteral("Stazioni RTU"));
    lvVRX->setEmptyText(QStringLiteral("Nessuna stazione"));
    lvVRX->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);

    // Pixels. The list stands on the control beside the frame's other content.
    const std::pair<QWidget*, QRect> places[] = {
        {frmSelezioneDati, {0, 0, 629, 274}},  {captions[6], {12, 8, 190, 20}},
        {lvVRX, {12, 30, 190, 244}},           {captions[0], {222, 10, 106, 20}},
        {lblProgetto, {332, 10, 285, 20}},     {captions[1], {222, 32, 106, 20}},
        {lblVersione, {332, 32, 285, 20}},     {captions[2], {222, 54, 106, 20}},
        {lblHostname, {332, 54, 285, 20}},     {captions[3], {222, 84, 106, 20}},
        {lblVRX, {332, 84, 285, 20}},          {captions[4], {222, 106, 106, 20}},
        {lblStato, {332, 106, 285, 20}},       {cmdConnetti, {222, 136, 125, 26}},
        {cmdDisconnetti, {353, 136, 125, 26}}, {cmdDownload, {222, 168, 125, 26}},
        {cmdDownloadAll, {353, 168, 264, 26}}, {captions[5], {222, 203, 40, 20}},
        {lblLog, {266, 206, 351, 56}}};
    for (const auto& [widget, place] : places) widget->setGeometry(place);

    QWidget* const order[] = {lvVRX, cmdConnetti, cmdDisconnetti, cmdDownload, cmdDownloadAll};
    for (std::size_t i = 1; i < std::size(order); ++i) QWidget::setTabOrder(order[i - 1], order[i]);
}

}  // namespace velt::ui
