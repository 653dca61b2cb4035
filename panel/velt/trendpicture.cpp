// SPDX-License-Identifier: MIT
#include "panel/velt/trendpicture.h"

#include "platform/runtimeerror.h"
#include "widgets/chart/chartfiles.h"

#include <QGuiApplication>

namespace velt::cli {

void saveTrendPicture(const std::shared_ptr<const ChartContents>& contents, PictureSize size,
                      const std::string& path) {
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
