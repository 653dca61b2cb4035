// SPDX-License-Identifier: MIT
#pragma once

#include "designer/controls.h"

#include <QObject>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

namespace velt::designer {

/// One control for the form designer and for loaders of forms.
class ControlPlugin final : public QObject, public QDesignerCustomWidgetInterface {
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    ControlPlugin(const ControlDescription& control, QObject* parent);

    [[nodiscard]] QString name() const override { return control_.className(); }
    [[nodiscard]] QString group() const override { return QStringLiteral("VELT Viewers"); }
    [[nodiscard]] QString toolTip() const override { return QString::fromUtf8(control_.toolTip); }
    [[nodiscard]] QString whatsThis() const override {
        return QString::fromUtf8(control_.whatsThis);
    }
    [[nodiscard]] QString includeFile() const override { return QLatin1String(control_.header); }
    [[nodiscard]] QIcon icon() const override;
    [[nodiscard]] bool isContainer() const override { return false; }
    [[nodiscard]] QString domXml() const override { return control_.domXml(); }
    /// Only the designer calls this; who loads a form at run time does not.
    void initialize(QDesignerFormEditorInterface* core) override { inDesigner_ = core != nullptr; }
    [[nodiscard]] bool isInitialized() const override { return inDesigner_; }
    [[nodiscard]] QWidget* createWidget(QWidget* parent) override;

private:
    const ControlDescription& control_;
    bool inDesigner_ = false;
};

}  // namespace velt::designer
