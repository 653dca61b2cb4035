// SPDX-License-Identifier: MIT
// The plugins in the real form designer, without its windows.
#include "tests/designer/formfile.h"
#include "tests/qtmain.h"
#include "widgets/controlwidget.h"

#include <QAction>
#include <QApplication>
#include <QDialogButtonBox>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QUndoStack>
#include <QtDesigner/QDesignerComponents>
#include <QtDesigner/QtDesigner>

#include <gmock/gmock.h>

#include <filesystem>
#include <set>

namespace velt::ui {
namespace {

class DesignerTest : public testing::Test {
protected:
    static void SetUpTestSuite() {
        // The designer tries one widget of each class it knows.
        const ExpectedWarning warning("QOpenGLWidget is not supported on this platform");
        QCoreApplication::addLibraryPath(VELT_PLUGINS);
        QDesignerComponents::initializeResources();
        core = QDesignerComponents::createFormEditor(qApp);
        core->setTopLevel(&window());
        core->setPropertyEditor(QDesignerComponents::createPropertyEditor(core, nullptr));
        core->setIntegration(new QDesignerIntegration(core, core));
        QDesignerComponents::createTaskMenu(core, core);
        QDesignerComponents::initializePlugins(core);
        // The designer's main window does this.
        for (QObject* plugin : core->pluginInstances())
            if (auto* extension = qobject_cast<QDesignerFormEditorPluginInterface*>(plugin))
                extension->initialize(core);
    }
    DesignerTest() : form(core->formWindowManager()->createFormWindow(&window())) {
        core->formWindowManager()->setActiveFormWindow(form);
        QFile file(VELT_FORM);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        saved = QString::fromUtf8(file.readAll());
        form->setContents(saved);
    }
    ~DesignerTest() override { delete form; }

    static QWidget& window() {
        static auto* top = new QWidget;  // outlives every test, and may outlive the application
        return *top;
    }
    ControlWidget& control(const char* name) const {
        return *form->findChild<ControlWidget*>(name);
    }
    QDesignerTaskMenuExtension* menu(QWidget& widget) const {
        return qt_extension<QDesignerTaskMenuExtension*>(core->extensionManager(), &widget);
    }
    /// Opens the page of a control, types, and presses a button of the dialog.
    void edit(QWidget& widget, QDialogButtonBox::StandardButton button) const {
        QTimer::singleShot(0, &widget, [=] {
            QWidget* dialog = QApplication::activeModalWidget();
            ASSERT_NE(dialog, nullptr);
            const auto edits = dialog->findChildren<QLineEdit*>();
            edits[0]->setText("altra sorgente");
            edits[1]->setText("altro.ini");
            dialog->findChild<QDialogButtonBox*>()->button(button)->click();
        });
        menu(widget)->preferredEditAction()->trigger();
    }

    static QDesignerFormEditorInterface* core;
    QDesignerFormWindowInterface* form;
    QString saved;  ///< the form, as the designer writes it
};

QDesignerFormEditorInterface* DesignerTest::core = nullptr;

TEST_F(DesignerTest, TheBoxKnowsTheControlsAndTheirPageWritesInOneStepThatCanBeUndone) {
    const auto unchanged = [this] { EXPECT_EQ(form->contents(), saved); };
    unchanged();
    for (const test::FormControl& expected : test::formControls) {
        const auto* item = core->widgetDataBase()->item(
            core->widgetDataBase()->indexOfClassName(expected.className));
        ASSERT_NE(item, nullptr) << expected.className;
        EXPECT_EQ(item->group(), "VELT Viewers");
        EXPECT_FALSE(item->toolTip().isEmpty());
        EXPECT_FALSE(item->icon().pixmap(24).isNull());

        ControlWidget& widget = control(expected.name);
        form->clearSelection();
        form->selectWidget(&control("AlarmViewer2"));
        form->selectWidget(&widget);
        edit(widget, QDialogButtonBox::Ok);
        EXPECT_EQ(widget.property(expected.sourceProperty), "altra sorgente");
        EXPECT_EQ(widget.property("FileIni"), "altro.ini");
        EXPECT_NE(control("AlarmViewer2").property("FileIni"), "altro.ini");
        const QString edited = form->contents().simplified();
        EXPECT_TRUE(edited.contains(QLatin1String("<property name=\"") + expected.sourceProperty +
                                    "\" stdset=\"0\"> <string notr=\"true\">altra sorgente<"))
            << edited.toStdString();
        form->commandHistory()->undo();
        unchanged();
        edit(widget, QDialogButtonBox::Cancel);
        unchanged();
    }
    EXPECT_EQ(menu(*form->findChild<QPushButton*>()), nullptr) << "of no concern to us";
}

/// Open files and sockets of this process.
std::set<std::string> descriptors() {
    std::set<std::string> open;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code gone;  // the descriptor of this very listing
        open.insert(std::filesystem::read_symlink(entry.path(), gone).string());
    }
    return open;
}

TEST_F(DesignerTest, ControlsOnAFormTouchNothing) {
    window().show();
    form->show();
    settle();
    const auto before = descriptors();
    for (const test::FormControl& expected : test::formControls) {
        ControlWidget& widget = control(expected.name);
        EXPECT_TRUE(widget.isDesignMode());
        widget.setProperty(expected.sourceProperty, "/dev/null/missing.mdb");
        widget.setProperty("FileIni", VELT_PLUGINS "/never-written.ini");
        widget.hide();
        widget.show();
    }
    QTest::qWait(100);  // longer than the timers of a first show
    EXPECT_EQ(descriptors(), before);
    EXPECT_FALSE(std::filesystem::exists(VELT_PLUGINS "/never-written.ini"));
}

}  // namespace
}  // namespace velt::ui
