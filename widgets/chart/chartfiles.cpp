// SPDX-License-Identifier: MIT
#include "widgets/chart/chartfiles.h"

#include "trendviewer/samplecsv.h"
#include "widgets/chart/chartsheet.h"

#include <QPageLayout>
#include <QPageSize>
#include <QPdfWriter>
#include <QSaveFile>

namespace velt::ui {
namespace {

constexpr int PdfDpi = 300;
constexpr double PageMargin = 10;  // mm

QString failure(const QSaveFile& file) {
    return QStringLiteral("Impossibile scrivere il file %1: %2")
        .arg(file.fileName(), file.errorString());
}

/// Lets `write` fill the file; it is there afterwards only when all went well.
QString save(const QString& path, const std::function<bool(QSaveFile&)>& write) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || !write(file) || !file.commit()) return failure(file);
    return {};
}

}  // namespace

QString saveSheetPng(const ChartDrawing& drawing, const QSize& size, double scale,
                     const QString& path) {
    return save(
        path, [&](QSaveFile& file) { return sheetImage(drawing, size, scale).save(&file, "PNG"); });
}

QString saveSheetPdf(const ChartDrawing& drawing, const QString& path) {
    return save(path, [&](QSaveFile& file) {
        QPdfWriter writer(&file);
        writer.setResolution(PdfDpi);
        writer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Landscape,
                                         QMarginsF(PageMargin, PageMargin, PageMargin, PageMargin),
                                         QPageLayout::Millimeter));
        writer.setTitle(QStringLiteral("Grafico"));
        return printSheet(writer, drawing);
    });
}

QString saveSampleCsv(const ChartDrawing& drawing, const QString& path,
                      const std::function<bool()>& goesOn) {
    if (!drawing.contents) return {};
    bool stopped = false;
    const QString error = save(path, [&](QSaveFile& file) {
        bool written = true;
        writeSampleCsv(*drawing.contents, drawing.choice.visible, [&](std::string_view piece) {
            stopped = !goesOn();
            written = file.write(piece.data(), static_cast<qint64>(piece.size())) ==
                      static_cast<qint64>(piece.size());
            return written && !stopped;
        });
        return written && !stopped;
    });
    return stopped ? QString() : error;
}

}  // namespace velt::ui
