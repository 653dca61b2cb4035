// SPDX-License-Identifier: MIT
#include "widgets/internal/multilinebutton.h"

#include <QRegularExpression>
#include <QStyleOptionButton>
#include <QStylePainter>

namespace velt::ui {

MultiLineButton::MultiLineButton(const QString& caption, QWidget* parent)
    : QPushButton(caption, parent) {
    // Read aloud without the blanks and without the sign of the mnemonic.
    setAccessibleName(caption.simplified().remove(QLatin1Char('&')));
}

QString MultiLineButton::lines() const {
    static const QRegularExpression gap(QStringLiteral("\\s{2,}"));
    return text().trimmed().replace(gap, QStringLiteral("\n"));
}

QSize MultiLineButton::sizeHint() const {
    QStyleOptionButton option;
    initStyleOption(&option);
    const QSize content = fontMetrics().size(Qt::TextShowMnemonic, lines());
    return style()->sizeFromContents(QStyle::CT_PushButton, &option, content, this);
}

void MultiLineButton::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text.clear();
    painter.drawControl(QStyle::CE_PushButton, option);

    const bool underline = style()->styleHint(QStyle::SH_UnderlineShortcut, &option, this) != 0;
    const int flags = Qt::AlignCenter | (underline ? Qt::TextShowMnemonic : Qt::TextHideMnemonic);
    const QRect place = style()->subElementRect(QStyle::SE_PushButtonContents, &option, this);
    painter.drawItemText(place, flags, palette(), isEnabled(), lines(), QPalette::ButtonText);
}

}  // namespace velt::ui
