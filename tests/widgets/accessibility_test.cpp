// SPDX-License-Identifier: MIT
// What holds for every input of every control: a name for a screen reader, a place in the Tab
// order, and a mnemonic of its own.
#include "tests/qtmain.h"
#include "widgets/alarmviewer.h"
#include "widgets/connviewer.h"
#include "widgets/opcviewer.h"
#include "widgets/trendviewer.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QTreeView>

#include <gmock/gmock.h>

#include <map>
#include <memory>
#include <set>

namespace velt::ui {
namespace {

std::vector<std::unique_ptr<ControlWidget>> everyControl() {
    std::vector<std::unique_ptr<ControlWidget>> controls;
    controls.push_back(std::make_unique<OPCViewer>());
    controls.push_back(std::make_unique<AlarmViewer>());
    controls.push_back(std::make_unique<TrendViewer>());
    controls.push_back(std::make_unique<ConnViewer>());
    controls.push_back(std::make_unique<ConnViewer>());
    // Shown empty: what is under test needs no data, and nothing may be read or connected.
    for (const auto& control : controls) control->setDesignMode(true);
    return controls;
}

/// Parts of other inputs, which have no name of their own.
bool isPart(const QWidget* widget) {
    for (const QWidget* parent = widget->parentWidget(); parent; parent = parent->parentWidget())
        if (qobject_cast<const QComboBox*>(parent) ||
            qobject_cast<const QAbstractSpinBox*>(parent) ||
            qobject_cast<const QAbstractItemView*>(parent))
            return true;
    return false;
}

std::vector<QWidget*> inputs(const ControlWidget& control) {
    std::vector<QWidget*> found;
    for (QWidget* widget : control.findChildren<QWidget*>())
        if ((widget->focusPolicy() & Qt::TabFocus) && !isPart(widget)) found.push_back(widget);
    return found;
}

QAccessible::Role expectedRole(const QWidget& widget) {
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
        return button->isCheckable() && button->inherits("QCheckBox") ? QAccessible::CheckBox
                                                                      : QAccessible::Button;
    if (widget.inherits("QComboBox")) return QAccessible::ComboBox;
    if (widget.inherits("QAbstractSpinBox")) return QAccessible::SpinBox;
    if (widget.inherits("QLineEdit")) return QAccessible::EditableText;
    if (widget.inherits("QTableView")) return QAccessible::Table;
    return QAccessible::NoRole;
}

TEST(Accessibility, EveryInputHasANameAndItsRole) {
    for (const auto& control : everyControl()) {
        const auto all = inputs(*control);
        EXPECT_GE(all.size(), 5U) << control->metaObject()->className();
        for (QWidget* input : all) {
            const std::string where = std::string(control->metaObject()->className()) + "." +
                                      input->objectName().toStdString() + " (" +
                                      input->metaObject()->className() + ")";
            QAccessibleInterface* face = QAccessible::queryAccessibleInterface(input);
            ASSERT_NE(face, nullptr) << where;
            EXPECT_FALSE(face->text(QAccessible::Name).trimmed().isEmpty()) << where;
            const QAccessible::Role role = expectedRole(*input);
            EXPECT_TRUE(role == QAccessible::NoRole || face->role() == role)
                << where << ": " << face->role();
        }
    }
}

TEST(Accessibility, TabReachesEveryInputOnce) {
    for (const auto& control : everyControl()) {
        std::multiset<QWidget*> visited;
        for (QWidget* next = control->nextInFocusChain(); next != control.get();
             next = next->nextInFocusChain())
            visited.insert(next);
        for (QWidget* input : inputs(*control))
            EXPECT_EQ(visited.count(input), 1U) << input->objectName().toStdString();
    }
}

TEST(Accessibility, NoTwoInputsOfAControlShareAMnemonic) {
    std::size_t count = 0;
    for (const auto& control : everyControl()) {
        std::map<QString, QString> owners;
        const auto claim = [&](const QString& text, const QString& name) {
            const QKeySequence key = QKeySequence::mnemonic(text);
            if (key.isEmpty()) return;
            const auto [owner, isFree] = owners.emplace(key.toString(), name);
            EXPECT_TRUE(isFree) << control->metaObject()->className() << ": "
                                << owner->second.toStdString() << " and " << name.toStdString();
        };
        for (const auto* button : control->findChildren<QAbstractButton*>())
            claim(button->text(), button->objectName());
        for (const auto* label : control->findChildren<QLabel*>())
            if (label->buddy()) claim(label->text(), label->buddy()->objectName());
        count += owners.size();
    }
    EXPECT_GT(count, 12U);
}

TEST(Accessibility, TheCaptionsAreTheSameInEveryLocale) {
    const auto captions = [](const QLocale& locale) {
        QLocale::setDefault(locale);
        QStringList texts;
        for (const auto& control : everyControl())
            for (const QWidget* widget : control->findChildren<QWidget*>())
                for (const char* property : {"text", "title", "toolTip", "displayFormat"})
                    texts.append(widget->property(property).toString());
        QLocale::setDefault(QLocale(QLocale::Italian, QLocale::Italy));
        texts.removeAll(QString());
        return texts;
    };
    const QStringList italian = captions(QLocale(QLocale::Italian, QLocale::Italy));
    EXPECT_GT(italian.size(), 40);
    EXPECT_EQ(captions(QLocale::c()), italian);
    EXPECT_EQ(captions(QLocale(QLocale::English, QLocale::UnitedStates)), italian);
}

}  // namespace
}  // namespace velt::ui
