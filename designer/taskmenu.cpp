// SPDX-License-Identifier: MIT
#include "designer/taskmenu.h"

#include "designer/formselection.h"
#include "framework/propertypage.h"
#include "widgets/propertypagedialog.h"

#include <QAction>
#include <QWidget>
#include <QtDesigner/QDesignerFormWindowInterface>

#include <memory>

namespace velt::designer {

using ui::PropertyPageDialog;

TaskMenu::TaskMenu(QWidget& widget, QObject* parent)
    : QObject(parent),
      widget_(widget),
      action_(new QAction(QStringLiteral("Sorgente e file di impostazioni..."), this)) {
    connect(action_, &QAction::triggered, this, &TaskMenu::edit);
}

void TaskMenu::edit() {
    QDesignerFormWindowInterface* form = QDesignerFormWindowInterface::findFormWindow(&widget_);
    if (!form) return;  // in a preview there is nothing to edit
    auto selection = std::make_unique<FormSelection>(*form, widget_);
    const PropertyPageTraits& page = *PropertyPageDialog::pageOf(selection->first());
    PropertyPageDialog(page, std::move(selection), form->window()).exec();
}

QObject* TaskMenuFactory::createExtension(QObject* object, const QString& iid,
                                          QObject* parent) const {
    auto* widget = qobject_cast<QWidget*>(object);
    const bool isOurs = widget && iid == Q_TYPEID(QDesignerTaskMenuExtension) &&
                        PropertyPageDialog::pageOf(*widget);
    return isOurs ? new TaskMenu(*widget, parent) : nullptr;
}

}  // namespace velt::designer
