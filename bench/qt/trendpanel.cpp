// SPDX-License-Identifier: MIT
// How long an operator waits for a trend: from the click on "Aggiorna Dati" to the painted chart,
// and what painting alone costs. The station's database is made in a temporary folder.
#include "adapters/access/jet/writer.h"
#include "bench/qt/heart.h"
#include "tests/tempfolder.h"
#include "widgets/chart/chartdrawing.h"
#include "widgets/chart/trendchart.h"
#include "widgets/trendviewer.h"

#include <QApplication>
#include <QComboBox>
#include <QDateTime>
#include <QKeyEvent>
#include <QPushButton>

#include <cmath>
#include <fstream>
#include <memory>
#include <string>

namespace velt {
namespace {

using namespace bench;

constexpr int Repeats = 9;
constexpr int Pens = 4;
constexpr int Minutes92Days = 92 * 24 * 60;
constexpr int Million = 1'000'000;
constexpr double Spacing = 7.0;  // seconds: a million samples in 81 days

const QDateTime Start(QDate(2006, 3, 1), QTime(0, 0), Qt::UTC);

/// Levels, flows: a daily wave and some noise.
double valueAt(int table, double seconds) {
    const double day = seconds / 86400;
    const auto noise = std::fmod(seconds * 7919 + table, 1000);
    return 10.0 * table + std::sin(day * 6.2832 + table) + noise / 2000;
}

void writeStation(const std::filesystem::path& folder, const std::string& station, int rows,
                  double spacing) {
    jet::Writer writer = jet::Writer::create(folder / (station + ".MDB"));
    const std::vector<jet::ColumnDefinition> columns = {{"Data", jet::ColumnType::Date},
                                                        {"Valore", jet::ColumnType::Double}};
    const Date start = Date::fromFields({2006, 3, 1, 0, 0, 0, 0});
    for (int table = 1; table <= Pens; ++table) {
        const std::string name = "Trend" + std::to_string(table);
        writer.createTable(name, columns);
        for (int i = 0; i < rows; ++i) {
            const std::vector<Variant> row = {start.addSeconds(i * spacing),
                                              valueAt(table, i * spacing)};
            writer.append(name, row);
        }
    }
    writer.flush();
}

void writeConfig(const std::filesystem::path& file) {
    std::ofstream config(file);
    config << "[Common]\nNumeroVRX=2\nVRX0=MINUTI\nVRX1=MILIONE\n";
    for (int station = 0; station < 2; ++station) {
        config << "[VRX" << station << "]\n";
        for (int pen = 0; pen < Pens; ++pen) config << "G0V" << pen << "=Trend" << pen + 1 << '\n';
    }
}

/// A viewer with some pens on a station.
class Viewer {
public:
    Viewer(const std::filesystem::path& config, const char* station, int pens, int range) {
        const auto trend = [pens](int pen) {
            return pen <= pens ? QStringLiteral("Trend%1").arg(pen) : QString();
        };
        widget_.resize(1240, 1000);
        widget_.SetTrend(station, trend(1), trend(2), trend(3), trend(4), Start, qint16(range));
        widget_.File(QString::fromStdString(config.string()));
        widget_.show();
        chart_ = widget_.findChild<ui::TrendChart*>();
        auto* last = widget_.findChild<QComboBox*>(QStringLiteral("cmbTrend%1").arg(pens - 1));
        waitFor([&] { return last->currentIndex() > 0; });
        chart_->setFixedSize(1200, 700);
    }
    /// From the click to the end of the painting of the new contents.
    double refresh() {
        const auto before = chart_->drawing().contents;
        const auto start = SteadyClock::now();
        widget_.findChild<QPushButton*>("cmdAggiornaDati")->click();
        waitFor([&] { return chart_->drawing().contents != before; });
        chart_->repaint();
        return since(start);
    }
    ui::TrendChart& chart() { return *chart_; }

private:
    ui::TrendViewer widget_;
    ui::TrendChart* chart_;
};

void measure(Heart& heart, const char* what, Viewer& viewer) {
    viewer.refresh();
    std::vector<double> times;
    std::vector<double> processor;
    heart.measure(what, [&] {
        for (int i = 0; i < Repeats; ++i) {
            const double before = processorTime();
            times.push_back(viewer.refresh());
            processor.push_back(processorTime() - before);
        }
    });
    figure(what, times);
    figure("    processor time of it", processor);
}

void measurePainting(Viewer& viewer) {
    ui::TrendChart& chart = viewer.chart();
    std::vector<double> cursor;
    std::vector<double> toggle;
    const auto contents = chart.drawing().contents;
    for (int i = 0; i < 50; ++i) {
        QKeyEvent key(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier);
        auto start = SteadyClock::now();
        QCoreApplication::sendEvent(&chart, &key);
        chart.repaint();
        cursor.push_back(since(start));
        start = SteadyClock::now();
        chart.setSeriesVisible(1, i % 2 == 0);
        chart.plot(contents);
        chart.repaint();
        toggle.push_back(since(start));
    }
    figure("painting after a cursor move", cursor);
    figure("painting after hide/show of a pen", toggle);
}

int run() {
    const TempFolder folder;
    const auto config = folder / "VeltRTU.ini";
    writeConfig(config);
    writeStation(folder.path(), "MINUTI", Minutes92Days, 60);
    writeStation(folder.path(), "MILIONE", Million, Spacing);
    Heart heart;
    {
        Viewer viewer(config, "MINUTI", Pens, 12);
        measure(heart, "92 days of minutes, 4 pens", viewer);
        measurePainting(viewer);
    }
    {
        Viewer viewer(config, "MILIONE", Pens, 12);
        measure(heart, "4 pens of a million samples", viewer);
        measurePainting(viewer);
    }
    {
        Viewer viewer(config, "MILIONE", 1, 0);
        measure(heart, "one hour of a million samples", viewer);
    }
    return 0;
}

}  // namespace
}  // namespace velt

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    return velt::run();
}
