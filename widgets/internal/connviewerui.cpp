// SPDX-License-Identifier: MIT
#include "widgets/internal/connviewerui.h"

#include "widgets/internal/elidedlabel.h"
#include "widgets/internal/facemaking.h"

#include <algorithm>
#include <initializer_list>

namespace velt::ui {
namespace {

constexpr int Margin = 12;   // pixels
constexpr int LogLines = 3;  // that there is room for, at least

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

    orderTabs({lvVRX, cmdConnetti, cmdDisconnetti, cmdDownload, cmdDownloadAll});
    place();
}

QSize ConnViewerUi::place() const {
    // Lengths in pixels; larger fonts stretch them.
    const auto widestOf = [](std::initializer_list<const QWidget*> widgets, int least) {
        for (const QWidget* widget : widgets) least = std::max(least, widget->sizeHint().width());
        return least;
    };
    const int row = std::max(20, captions[6]->sizeHint().height());
    const int listWidth = widestOf({captions[6]}, 190);
    const int left = Margin + listWidth + 20;
    const int captionWidth =
        widestOf({captions[0], captions[1], captions[2], captions[3], captions[4]}, 106);
    const int small = widestOf({cmdConnetti, cmdDisconnetti, cmdDownload}, 125);
    const int second = left + small + 6;
    const int right = second + widestOf({cmdDownloadAll}, 264);

    frmSelezioneDati->move(0, 0);
    captions[6]->setGeometry(Margin, 8, listWidth, row);
    lvVRX->setGeometry(Margin, 8 + row + 2, listWidth, lvVRX->height());
    int y = 10;
    const auto line = [&](QLabel* caption, QLabel* value, int gap) {
        caption->setGeometry(left, y, captionWidth, row);
        const int x = left + captionWidth + 4;
        value->setGeometry(x, y, right - x, row);
        y += row + gap;
    };
    line(captions[0], lblProgetto, 2);
    line(captions[1], lblVersione, 2);
    line(captions[2], lblHostname, 10);
    line(captions[3], lblVRX, 2);
    line(captions[4], lblStato, 10);
    const int buttonHeight = std::max(26, cmdConnetti->fontMetrics().height() + 8);
    cmdConnetti->setGeometry(left, y, small, buttonHeight);
    cmdDisconnetti->setGeometry(second, y, small, buttonHeight);
    y += buttonHeight + 6;
    cmdDownload->setGeometry(left, y, small, buttonHeight);
    cmdDownloadAll->setGeometry(second, y, right - second, buttonHeight);
    y += buttonHeight + 9;
    const int logCaption = widestOf({captions[5]}, 40);
    captions[5]->setGeometry(left, y, logCaption, row);
    lblLog->move(left + logCaption + 4, y + (row - lblLog->fontMetrics().height()) / 2);
    return {right + Margin,
            lblLog->y() + std::max(56, LogLines * lblLog->fontMetrics().lineSpacing()) + Margin};
}

}  // namespace velt::ui
