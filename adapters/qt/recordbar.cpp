// SPDX-License-Identifier: MIT
#include "adapters/qt/recordbar.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QPainterPath>

namespace velt::qt {
namespace {

using Move = MoveButton::Move;

/// The sign of `move` in a square of side 1 around the origin.
QPainterPath sign(Move move) {
    QPainterPath path;
    path.addPolygon(QPolygonF({{-0.25, -0.5}, {0.25, 0.0}, {-0.25, 0.5}, {-0.25, -0.5}}));
    if (move == Move::First || move == Move::Last) path.addRect(0.25, -0.5, 0.15, 1.0);
    const bool forward = move == Move::Next || move == Move::Last;
    return forward ? path : QTransform::fromScale(-1, 1).map(path);
}

}  // namespace

MoveButton::MoveButton(Move move, const QString& name, QWidget* parent)
    : QToolButton(parent), move_(move) {
    setAccessibleName(name);
    setToolTip(name);
    setFocusPolicy(Qt::StrongFocus);
    setAutoRepeat(move == Move::Previous || move == Move::Next);
}

void MoveButton::paintEvent(QPaintEvent* event) {
    QToolButton::paintEvent(event);  // the button without a text or an icon
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(QRectF(rect()).center());
    const double side = 0.45 * std::min(width(), height());
    painter.scale(side, side);
    painter.fillPath(
        sign(move_),
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText));
}

RecordBar::RecordBar(QWidget* parent) : QFrame(parent), caption_(new QLabel(this)) {
    setFrameShape(QFrame::StyledPanel);
    caption_->setTextFormat(Qt::PlainText);
    caption_->setAlignment(Qt::AlignCenter);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->setSpacing(2);
    layout->addWidget(add(Move::First, QStringLiteral("Primo record")));
    layout->addWidget(add(Move::Previous, QStringLiteral("Record precedente")));
    layout->addWidget(caption_, 1);
    layout->addWidget(add(Move::Next, QStringLiteral("Record successivo")));
    layout->addWidget(add(Move::Last, QStringLiteral("Ultimo record")));
    setUsable(false);
}

MoveButton* RecordBar::add(Move move, const QString& name) {
    auto* button = new MoveButton(move, name, this);
    connect(button, &QToolButton::clicked, this, [this, move] { emit moveRequested(move); });
    return button;
}

void RecordBar::setCaption(const QString& caption) { caption_->setText(caption); }

void RecordBar::setUsable(bool usable) {
    for (MoveButton* button : findChildren<MoveButton*>()) button->setEnabled(usable);
}

}  // namespace velt::qt
