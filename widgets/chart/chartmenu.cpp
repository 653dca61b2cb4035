// SPDX-License-Identifier: MIT
#include "widgets/chart/chartmenu.h"

#include "widgets/chart/chartdrawing.h"
#include "widgets/chart/chartfiles.h"
#include "widgets/chart/chartsheet.h"
#include "widgets/chart/chartview.h"
#include "widgets/chart/trendchart.h"

#include <QClipboard>
#include <QFileDialog>
#include <QGuiApplication>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>

#include <utility>

namespace velt::ui {
namespace {

using Save = void (*)(TrendChart& chart, const QString& path);

/// Says what went wrong; does not wait for the answer.
void tell(TrendChart& chart, const QString& error) {
    if (error.isEmpty()) return;
    auto* box = new QMessageBox(QMessageBox::Warning, QStringLiteral("Errore"), error,
                                QMessageBox::Ok, &chart);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

void savePicture(TrendChart& chart, const QString& path) {
    // Packing the picture takes longer than a window may stand still.
    const auto error = std::make_shared<QString>();
    chart.inBackground(
        [drawing = chart.drawing(), size = chart.size(), ratio = chart.devicePixelRatioF(), path,
         error](const auto&) { *error = saveSheetPng(drawing, size, ratio, path); },
        [&chart, error] { tell(chart, *error); });
}

void savePdf(TrendChart& chart, const QString& path) {
    tell(chart, saveSheetPdf(chart.drawing(), path));
}

void saveSamples(TrendChart& chart, const QString& path) {
    const auto error = std::make_shared<QString>();
    const ChartDrawing drawing = chart.drawing();
    chart.inBackground([drawing, path, error](
                           const auto& goesOn) { *error = saveSampleCsv(drawing, path, goesOn); },
                       [&chart, error] { tell(chart, *error); });
}

/// Asks for a file and saves into it, without waiting here.
void askAndSave(TrendChart& chart, const QString& title, const QString& filter,
                const QString& suffix, Save save) {
    auto* dialog = new QFileDialog(&chart, title, QString(), filter);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(suffix);
    QObject::connect(dialog, &QFileDialog::fileSelected, &chart,
                     [&chart, save](const QString& path) { save(chart, path); });
    dialog->open();
}

void print(TrendChart& chart) {
    const auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    printer->setPageOrientation(QPageLayout::Landscape);
    auto* dialog = new QPrintDialog(printer.get(), &chart);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(dialog, &QPrintDialog::finished, &chart, [&chart, printer](int result) {
        if (result == QDialog::Accepted && !printSheet(*printer, chart.drawing()))
            tell(chart, QStringLiteral("Impossibile stampare il grafico."));
    });
    dialog->open();
}

}  // namespace

void copyPicture(const TrendChart& chart) {
    QGuiApplication::clipboard()->setImage(
        sheetImage(chart.drawing(), chart.size(), chart.devicePixelRatioF()));
}

QMenu* makeChartMenu(TrendChart& chart) {
    auto* menu = new QMenu(&chart);
    const bool hasContents = chart.drawing().contents != nullptr;
    const auto add = [&](const QString& text, const QString& key, bool enabled, auto action) {
        QAction* entry = menu->addAction(key.isEmpty() ? text : text + QLatin1Char('\t') + key);
        entry->setEnabled(enabled);
        QObject::connect(entry, &QAction::triggered, &chart, action);
    };
    const ChartView& view = chart.view();
    const bool hasCursor = view.cursor().has_value();
    const bool hasMarkers = view.markers()[0] || view.markers()[1];
    TrendChart* const c = &chart;

    add(QStringLiteral("&Copia immagine"), QStringLiteral("Ctrl+C"), hasContents,
        [c] { copyPicture(*c); });
    add(QStringLiteral("Salva imma&gine..."), {}, hasContents, [c] {
        askAndSave(*c, QStringLiteral("Salva immagine"), QStringLiteral("Immagini PNG (*.png)"),
                   QStringLiteral("png"), savePicture);
    });
    add(QStringLiteral("Salva &PDF..."), {}, hasContents, [c] {
        askAndSave(*c, QStringLiteral("Salva PDF"), QStringLiteral("Documenti PDF (*.pdf)"),
                   QStringLiteral("pdf"), savePdf);
    });
    add(QStringLiteral("&Stampa..."), {}, hasContents, [c] { print(*c); });
    add(QStringLiteral("Salva &dati (CSV)..."), {}, hasContents, [c] {
        askAndSave(*c, QStringLiteral("Salva dati"), QStringLiteral("File CSV (*.csv)"),
                   QStringLiteral("csv"), saveSamples);
    });
    menu->addSeparator();
    add(QStringLiteral("&Ingrandisci"), QStringLiteral("+"), hasContents, [c] { c->zoomIn(); });
    add(QStringLiteral("Ingrandisci fra i &marcatori"), QStringLiteral("Z"),
        view.markers()[0] && view.markers()[1], [c] { c->zoomToMarkers(); });
    add(QStringLiteral("&Vista precedente"), QStringLiteral("-"), view.zoomed(),
        [c] { c->zoomBack(); });
    menu->addSeparator();
    add(QStringLiteral("Marcatore &A qui"), QStringLiteral("A"), hasCursor,
        [c] { c->setMarker(0); });
    add(QStringLiteral("Marcatore &B qui"), QStringLiteral("B"), hasCursor,
        [c] { c->setMarker(1); });
    add(QStringLiteral("&Togli marcatori"), QStringLiteral("Canc"), hasMarkers,
        [c] { c->clearMarkers(); });
    return menu;
}

}  // namespace velt::ui
