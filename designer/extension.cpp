// SPDX-License-Identifier: MIT
#include "designer/taskmenu.h"

#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormEditorPluginInterface>
#include <QtDesigner/QExtensionManager>

namespace velt::designer {

/// Gives the designer the context menu of the controls. A plugin of its own, because it needs the
/// designer's library, which no program at run time should have to load.
class Extension final : public QObject, public QDesignerFormEditorPluginInterface {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.qt-project.Qt.Designer.QDesignerFormEditorPluginInterface")
    Q_INTERFACES(QDesignerFormEditorPluginInterface)

public:
    [[nodiscard]] bool isInitialized() const override { return core_ != nullptr; }
    void initialize(QDesignerFormEditorInterface* core) override {
        if (core_) return;
        core_ = core;
        QExtensionManager* manager = core->extensionManager();
        manager->registerExtensions(new TaskMenuFactory(manager),
                                    Q_TYPEID(QDesignerTaskMenuExtension));
    }
    [[nodiscard]] QAction* action() const override { return nullptr; }
    [[nodiscard]] QDesignerFormEditorInterface* core() const override { return core_; }

private:
    QDesignerFormEditorInterface* core_ = nullptr;
};

}  // namespace velt::designer

#include "extension.moc"
