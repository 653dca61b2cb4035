// SPDX-License-Identifier: MIT
#include "designer/controlplugin.h"

#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

namespace velt::designer {

/// The controls as a plugin. Knows nothing of the designer's own library, so that a program that
/// loads forms may load it too.
class Collection final : public QObject, public QDesignerCustomWidgetCollectionInterface {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QDesignerCustomWidgetCollectionInterface")
    Q_INTERFACES(QDesignerCustomWidgetCollectionInterface)

public:
    Collection() {
        for (const ControlDescription& control : controls())
            plugins_.append(new ControlPlugin(control, this));
    }
    [[nodiscard]] QList<QDesignerCustomWidgetInterface*> customWidgets() const override {
        return plugins_;
    }

private:
    QList<QDesignerCustomWidgetInterface*> plugins_;
};

}  // namespace velt::designer

#include "collection.moc"
