// SPDX-License-Identifier: MIT
#include "designer/controlplugin.h"

#include "designer/icons.h"
#include "widgets/controlwidget.h"

namespace velt::designer {

ControlPlugin::ControlPlugin(const ControlDescription& control, QObject* parent)
    : QObject(parent), control_(control) {}

QIcon ControlPlugin::icon() const { return controlIcon(QLatin1String(control_.name)); }

QWidget* ControlPlugin::createWidget(QWidget* parent) {
    ui::ControlWidget* widget = control_.make(parent);
    widget->setDesignMode(inDesigner_);
    return widget;
}

}  // namespace velt::designer
