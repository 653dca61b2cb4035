// SPDX-License-Identifier: MIT
// A form that the designer saved, in a host: compiled, and loaded by QUiLoader with the plugin.
#include "tests/designer/formfile.h"
#include "tests/qtmain.h"
#include "ui_form.h"
#include "widgets/controlwidget.h"

#include <QFile>
#include <QUiLoader>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace velt::ui {
namespace {

std::unique_ptr<QWidget> compiled() {
    auto window = std::make_unique<QMainWindow>();
    Ui::PlantWindow form;
    form.setupUi(window.get());
    return window;
}

std::unique_ptr<QWidget> loaded() {
    QUiLoader loader;
    loader.addPluginPath(VELT_PLUGINS "/designer");
    QFile file(VELT_FORM);
    if (!file.open(QIODevice::ReadOnly)) return nullptr;
    return std::unique_ptr<QWidget>(loader.load(&file));
}

TEST(FormLoading, PropertiesOfTheFormHaveNoEffectAndThoseOfTheHostDo) {
    for (const auto& load : {compiled, loaded}) {
        const std::unique_ptr<QWidget> window = load();
        ASSERT_NE(window, nullptr);
        QStringList changed;
        std::vector<ControlWidget*> controls;
        for (const test::FormControl& expected : test::formControls) {
            auto* control = window->findChild<ControlWidget*>(expected.name);
            ASSERT_NE(control, nullptr) << expected.name;
            EXPECT_STREQ(control->metaObject()->className(), expected.className);
            EXPECT_EQ(control->property(expected.sourceProperty).toString(), expected.source);
            EXPECT_FALSE(control->isDesignMode()) << "only the designer itself designs";
            QObject::connect(control, &ControlWidget::propertyChanged, window.get(),
                             [&changed](const QString& name) { changed.append(name); });
            controls.push_back(control);
        }
        settle();
        EXPECT_EQ(changed, QStringList()) << "the form assigned it, not the host";
        for (ControlWidget* control : controls) control->setProperty("FileIni", "host.ini");
        EXPECT_EQ(changed, QStringList(4, "FileIni"));
        EXPECT_EQ(window->findChild<ControlWidget*>("AlarmViewer2")->BackColor(), 0x00F0DCC8U);
    }
}

}  // namespace
}  // namespace velt::ui
