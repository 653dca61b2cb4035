// SPDX-License-Identifier: MIT
// The smallest host: one alarm viewer on a window.
//   alarms FILE.mdb SETTINGS.ini [--once]
#include <widgets/alarmviewer.h>

#include <QApplication>
#include <QTimer>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();

    velt::ui::AlarmViewer viewer;
    viewer.setObjectName("AlarmViewer1");  // names the section in the settings file
    if (arguments.size() > 1) viewer.File(arguments[1]);
    if (arguments.size() > 2) viewer.FileIni(arguments[2]);
    viewer.show();

    if (arguments.contains("--once")) QTimer::singleShot(0, &application, &QApplication::quit);
    const int result = QApplication::exec();
    viewer.Terminate();
    return result;
}
