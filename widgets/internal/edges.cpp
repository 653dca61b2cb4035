// SPDX-License-Identifier: MIT
#include "widgets/internal/edges.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QTableView>

namespace velt::ui {
namespace {

constexpr int Dark = 128;  ///< lightness (of 255) below which a darker shade is hard to see

/// A list with check marks, not a grid.
bool isList(const QWidget* widget) {
    const auto* table = qobject_cast<const QTableView*>(widget);
    return table && table->horizontalHeader()->isHidden();
}

}  // namespace

void keepEdgesVisible(QWidget& face) {
    const bool isDark = face.palette().color(QPalette::Window).lightness() < Dark;
    for (QWidget* child : face.findChildren<QWidget*>()) {
        if (!qobject_cast<QCheckBox*>(child) && !isList(child)) continue;
        QPalette palette;
        if (isDark) palette.setColor(QPalette::Window, QColor(Qt::lightGray));
        child->setPalette(palette);
    }
}

}  // namespace velt::ui
