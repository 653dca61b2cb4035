// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QtDesigner/QDesignerTaskMenuExtension>
#include <QtDesigner/QExtensionFactory>

class QAction;

namespace velt::designer {

/// The context menu of a control on a form: opens its property page, also by a double click.
class TaskMenu final : public QObject, public QDesignerTaskMenuExtension {
    Q_OBJECT
    Q_INTERFACES(QDesignerTaskMenuExtension)

public:
    TaskMenu(QWidget& widget, QObject* parent);
    [[nodiscard]] QAction* preferredEditAction() const override { return action_; }
    [[nodiscard]] QList<QAction*> taskActions() const override { return {action_}; }

private:
    void edit();

    QWidget& widget_;
    QAction* action_;
};

class TaskMenuFactory final : public QExtensionFactory {
    Q_OBJECT

public:
    using QExtensionFactory::QExtensionFactory;

protected:
    QObject* createExtension(QObject* object, const QString& iid, QObject* parent) const override;
};

}  // namespace velt::designer
