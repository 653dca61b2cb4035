// SPDX-License-Identifier: MIT
// A panel with the four controls.
//   plant FOLDER OPC-NODE [--once]
// FOLDER holds Allarmi.mdb, VeltRTU.ini and the station databases; the settings go there, too.
#include "ui_plant.h"

#include <QApplication>
#include <QDateTime>
#include <QLibraryInfo>
#include <QTimer>
#include <QTranslator>

#include <cstdio>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    QTranslator qtTexts;  // of Qt's own dialogs, in the language of the controls
    if (qtTexts.load("qtbase_it", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&qtTexts);
    const QString folder = arguments.value(1, ".");

    QWidget window;
    Ui::Plant form;
    form.setupUi(&window);

    const auto controls = window.findChildren<velt::ui::ControlWidget*>();
    for (velt::ui::ControlWidget* control : controls) {
        QObject::connect(control, &velt::ui::ControlWidget::runtimeError, control,
                         [control](int number, const QString& description) {
                             std::fprintf(stderr, "%s: error %d: %s\n",
                                          qPrintable(control->objectName()), number,
                                          qPrintable(description));
                         });
        // Assigned by the running program, not by the form: see docs/integrating.md.
        control->FileIni(folder + "/panel.ini");
    }
    form.OPCViewer1->Hostname(arguments.value(2));
    form.AlarmViewer1->File(folder + "/Allarmi.mdb");
    form.TrendViewer1->File(folder + "/VeltRTU.ini");
    form.ConnViewer1->File(folder + "/VeltRTU.ini");
    // Two trends of a station over the last day; "" leaves a pen free.
    form.TrendViewer1->SetTrend("RTU01", "Portata_uscita", "Pressione", "", "",
                                QDateTime::currentDateTime().addDays(-1), 6);

    window.show();
    if (arguments.contains("--once")) QTimer::singleShot(1000, &application, &QApplication::quit);
    const int result = QApplication::exec();
    for (velt::ui::ControlWidget* control : controls) control->Terminate();
    return result;
}
