// SPDX-License-Identifier: MIT
#include "panel/velt-panel/clicks.h"

#include "adapters/qt/gate.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QTabWidget>
#include <QTableView>

#include <cstdio>
#include <utility>

namespace velt::panel {
namespace {

constexpr int FirstStep = 500;  // ms after the window
constexpr int Pause = 50;       // ms between the steps
constexpr int MostTries = 100;  // a row may come late: five seconds

/// False when it stood on another page.
bool bringToFront(QWidget* widget) {
    if (widget->isVisible()) return true;
    for (QWidget* page = widget; page->parentWidget(); page = page->parentWidget()) {
        QWidget* stack = page->parentWidget();
        if (auto* tabs = qobject_cast<QTabWidget*>(stack->parentWidget()))
            if (tabs->indexOf(page) >= 0) tabs->setCurrentWidget(page);
    }
    return false;
}

bool clickRow(QTableView& list, const QString& text) {
    QAbstractItemModel& model = *list.model();
    for (int row = 0; row < model.rowCount(); ++row) {
        const QModelIndex place = model.index(row, 0);
        if (place.data().toString() != text) continue;
        list.scrollTo(place);
        list.setCurrentIndex(place);
        const bool isChecked = place.data(Qt::CheckStateRole) == Qt::Checked;
        if (model.flags(place) & Qt::ItemIsUserCheckable)
            model.setData(place, isChecked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
        return true;
    }
    return false;
}

/// Chooses the first entry that begins so, as the operator does from the open list.
bool choose(QComboBox& box, const QString& text) {
    const int entry = box.findText(text, Qt::MatchStartsWith);
    if (entry < 0) return false;
    box.setCurrentIndex(entry);
    emit box.activated(entry);
    return true;
}

}  // namespace

Clicks::Clicks(QWidget& window, QStringList steps)
    : QObject(&window), window_(window), steps_(std::move(steps)) {
    connect(&timer_, &QTimer::timeout, this, [this] { next(); });
    timer_.start(FirstStep);
}

void Clicks::next() {
    timer_.setInterval(Pause);
    if (qt::Gate::ofProcess().busy()) return;
    if (steps_.isEmpty()) {
        timer_.stop();
        return;
    }
    if (!perform(steps_.first()) && ++tries_ < MostTries) return;
    if (tries_ == MostTries)
        std::fprintf(stderr, "velt-panel: there is no %s to click\n", qPrintable(steps_.first()));
    steps_.removeFirst();
    tries_ = 0;
}

bool Clicks::perform(const QString& step) {
    const QString path = step.section(QLatin1Char(':'), 0, 0);
    QWidget* widget = find(path);
    if (!widget || !bringToFront(widget)) return false;
    if (auto* list = qobject_cast<QTableView*>(widget))
        return list->model() && clickRow(*list, step.mid(path.size() + 1));
    if (auto* box = qobject_cast<QComboBox*>(widget))
        return choose(*box, step.mid(path.size() + 1));
    auto* button = qobject_cast<QAbstractButton*>(widget);
    if (button) button->click();
    return button != nullptr;
}

QWidget* Clicks::find(const QString& path) const {
    QWidget* found = &window_;
    const QStringList names = path.split(QLatin1Char('.'));
    for (const QString& name : names) {
        const auto children = found->findChildren<QWidget*>(name);
        if (children.isEmpty()) return nullptr;
        found = children.first();
        // Of several, the one that an operator sees.
        for (QWidget* child : children)
            if (child->isVisible()) {
                found = child;
                break;
            }
    }
    return found;
}

}  // namespace velt::panel
