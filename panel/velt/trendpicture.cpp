// SPDX-License-Identifier: MIT
#include "panel/velt/trendpicture.h"

#include "platform/runtimeerror.h"
#include "widgets/chart/chartfiles.h"

#include <QGuiApplication>

#include <iostream>

namespace velt::cli {

namespace {

/// Drawing needs no desktop: hints that there is none are not for the user of a command line.
void keepErrorsOnly(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtCriticalMsg || type == QtFatalMsg)
        std::cerr << "velt: " << text.toStdString() << '\n';
}

}  // namespace

void saveTrendPicture(const std::shared_ptr<const ChartContents>& contents, PictureSize size,
                      const std::string& path) {
    qInstallMessageHandler(keepErrorsOnly);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    char name[] = "velt";
    char* arguments[] = {name, nullptr};
    int count = 1;
    const QGuiApplication application(count, arguments);  // fonts need it
    ui::ChartDrawing drawing;
    drawing.contents = contents;
    const QString error = ui::saveSheetPng(drawing, QSize(size.width, size.height), 1.0,
                                           QString::fromStdString(path));
    if (!error.isEmpty()) throw RuntimeError(ErrorNumber::PathAccess, error.toStdString());
}

}  // namespace velt::cli
