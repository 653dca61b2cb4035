// SPDX-License-Identifier: MIT
#pragma once

#include "platform/export.h"

#include <QFrame>
#include <QLabel>
#include <QToolButton>

namespace velt::qt {

/// A button with the sign of one move: a triangle, with a bar at the end of the records.
class MoveButton : public QToolButton {
    Q_OBJECT

public:
    enum class Move { First, Previous, Next, Last };

    MoveButton(Move move, const QString& name, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Move move_;
};

/// A caption between buttons for the first, previous, next and last record.
class VELT_API RecordBar : public QFrame {
    Q_OBJECT

public:
    explicit RecordBar(QWidget* parent = nullptr);

    void setCaption(const QString& caption);
    [[nodiscard]] QString caption() const { return caption_->text(); }
    /// Without records there is nowhere to go.
    void setUsable(bool usable);

signals:
    void moveRequested(velt::qt::MoveButton::Move move);

private:
    MoveButton* add(MoveButton::Move move, const QString& name);

    QLabel* caption_;
};

}  // namespace velt::qt
