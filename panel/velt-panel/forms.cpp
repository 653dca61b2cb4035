// SPDX-License-Identifier: MIT
#include "panel/velt-panel/forms.h"

#include "widgets/alarmviewer.h"
#include "widgets/connviewer.h"
#include "widgets/opcviewer.h"
#include "widgets/trendviewer.h"

#include <QFile>
#include <QTabWidget>
#include <QUiLoader>

namespace velt::panel {
namespace {

/// Makes our controls itself, so that forms load where no plugin is installed.
class FormLoader final : public QUiLoader {
public:
    QWidget* createWidget(const QString& className, QWidget* parent, const QString& name) override {
        QWidget* widget = nullptr;
        if (className == "velt::ui::AlarmViewer")
            widget = new ui::AlarmViewer(parent);
        else if (className == "velt::ui::ConnViewer")
            widget = new ui::ConnViewer(parent);
        else if (className == "velt::ui::OPCViewer")
            widget = new ui::OPCViewer(parent);
        else if (className == "velt::ui::TrendViewer")
            widget = new ui::TrendViewer(parent);
        else
            return QUiLoader::createWidget(className, parent, name);
        widget->setObjectName(name);
        return widget;
    }
};

}  // namespace

QWidget* makeBuiltInForm() {
    auto* tabs = new QTabWidget;
    tabs->setDocumentMode(true);
    const auto add = [tabs](QWidget* control, const char* name, const QString& caption) {
        control->setObjectName(QLatin1String(name));
        tabs->addTab(control, caption);
    };
    // The letters are free in every control: none means two things at once.
    add(new ui::OPCViewer, "OPCViewer1", QStringLiteral("Stazioni dal &vivo"));
    add(new ui::AlarmViewer, "AlarmViewer1", QStringLiteral("Storico allar&mi"));
    add(new ui::TrendViewer, "TrendViewer1", QStringLiteral("Tre&nd"));
    add(new ui::ConnViewer, "ConnViewer1", QStringLiteral("C&onnessioni"));
    return tabs;
}

QWidget* loadForm(const QString& file, QString& error) {
    QFile device(file);
    if (!device.open(QIODevice::ReadOnly)) {
        error = QStringLiteral("Impossibile aprire %1: %2").arg(file, device.errorString());
        return nullptr;
    }
    FormLoader loader;
    QWidget* form = loader.load(&device);
    if (!form)
        error = QStringLiteral("%1 non è un modulo valido: %2").arg(file, loader.errorString());
    return form;
}

}  // namespace velt::panel
