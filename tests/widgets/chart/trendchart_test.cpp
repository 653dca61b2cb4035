// SPDX-License-Identifier: MIT
// The chart as an operator uses it.
#include "widgets/chart/trendchart.h"

#include "tests/filebytes.h"
#include "tests/qtmain.h"
#include "tests/tempfolder.h"
#include "tests/widgets/chart/contentsof.h"
#include "widgets/chart/chartfiles.h"
#include "widgets/chart/chartmenu.h"
#include "widgets/chart/chartview.h"
#include "widgets/chart/cursorpainter.h"
#include "widgets/chart/summarytable.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QImage>
#include <QLineEdit>
#include <QMenu>
#include <QPrintDialog>

#include <gtest/gtest.h>

namespace velt::ui {
namespace {

constexpr ChartTime Minute = 60'000;

class TrendChartTest : public testing::Test {
protected:
    TrendChartTest() {
        std::vector<std::pair<double, double>> ramp;
        for (int i = 0; i <= 60; ++i) ramp.emplace_back(i * 60, i / 2.0);
        contents =
            contentsOf(3600, {samplesOf(ramp, SampleKind::Number, testStart()),
                              samplesOf({{0, 1}, {1800, 0}}, SampleKind::Boolean, testStart())});
        chart.resize(800, 300);
        chart.plot(contents);
        chart.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&chart));
        chart.activateWindow();
        chart.setFocus();
        settle();
    }
    ~TrendChartTest() override { settle(); }

    ChartGeometry geometry() { return {chart.drawing(), QRectF(chart.rect())}; }
    QPoint at(double minute) {
        const auto time = testStart() + static_cast<ChartTime>(minute * Minute);
        return QPointF(geometry().xOf(time), geometry().plot().center().y()).toPoint();
    }
    ChartTime shownFrom() { return chart.drawing().contents->start; }
    void drag(double fromMinute, double toMinute) {
        const QPoint to = at(toMinute);
        QTest::mousePress(&chart, Qt::LeftButton, {}, at(fromMinute));
        QTest::mouseMove(&chart, to);
        QTest::mouseRelease(&chart, Qt::LeftButton, {}, to);
    }
    QAction* action(QMenu& menu, const QString& text) {
        for (QAction* found : menu.actions())
            if (QString(found->text()).remove('&').startsWith(text)) return found;
        ADD_FAILURE() << "no entry " << text.toStdString();
        return nullptr;
    }
    /// Chooses an entry that asks for a file, and answers.
    void saveWith(const QString& entry, const QString& path) {
        const std::unique_ptr<QMenu> menu(makeChartMenu(chart));
        action(*menu, entry)->trigger();
        ASSERT_TRUE(eventually([&] { return chart.findChild<QFileDialog*>() != nullptr; }));
        auto* dialog = chart.findChild<QFileDialog*>();
        dialog->findChild<QLineEdit*>()->setText(path);
        QTest::keyClick(dialog->findChild<QLineEdit*>(), Qt::Key_Return);
        settle();
    }

    std::shared_ptr<const ChartContents> contents;
    TrendChart chart;
};

TEST_F(TrendChartTest, TheCursorSaysWhatEachPenIsWorth) {
    QTest::mouseMove(&chart, at(20.4));
    settle();
    ASSERT_TRUE(eventually([&] { return chart.view().cursor().has_value(); }));
    const auto lines = cursorReadout(chart.drawing(), *chart.view().cursor());
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].text, "Trend1: 10 m  (14/03/2006 00.20.00)") << "the nearest sample's time";
    EXPECT_EQ(lines[1].text, "Trend2: Vero m  (14/03/2006 00.00.00)") << "the step's beginning";
    QTest::keyClick(&chart, Qt::Key_End);
    QTest::keyClick(&chart, Qt::Key_Left, Qt::ControlModifier);
    EXPECT_EQ(chart.view().cursor(), testStart() + 50 * Minute);
    EXPECT_TRUE(chart.accessibleDescription().contains("Trend1: 25 m"));
    EXPECT_TRUE(chart.accessibleDescription().contains("Trend2: -")) << "no samples there";
}

TEST_F(TrendChartTest, DragsIntoAPartAndComesBack) {
    drag(10, 40);
    ASSERT_TRUE(eventually([&] { return shownFrom() != contents->start; }));
    EXPECT_NEAR(double(shownFrom()), double(testStart() + 10 * Minute), 10'000.0);
    EXPECT_NEAR(double(chart.drawing().contents->end), double(testStart() + 40 * Minute), 10'000.0);
    EXPECT_EQ(chart.view().whole(), contents) << "the window stays";
    QTest::mouseDClick(&chart, Qt::LeftButton, {}, at(20));
    EXPECT_EQ(shownFrom(), contents->start);
    QTest::mouseClick(&chart, Qt::LeftButton, {}, at(20));
    settle();
    EXPECT_FALSE(chart.view().zoomed()) << "a click is no drag";
}

TEST_F(TrendChartTest, ZoomAndMarkersByKeyboard) {
    QTest::keyClick(&chart, Qt::Key_Home);
    QTest::keyClick(&chart, Qt::Key_A);
    for (int i = 0; i < 2; ++i) QTest::keyClick(&chart, Qt::Key_Right, Qt::ControlModifier);
    QTest::keyClick(&chart, Qt::Key_B);
    const auto& markers = chart.view().markers();
    ASSERT_TRUE(markers[0] && markers[1]);
    EXPECT_EQ(*markers[1] - *markers[0], 20 * Minute);
    EXPECT_EQ(markerReadout(chart.drawing(), *markers[0], *markers[1])[0].text, "Trend1: 10 m");

    QTest::keyClick(&chart, Qt::Key_Z);
    ASSERT_TRUE(eventually([&] { return chart.drawing().contents->end == *markers[1]; }));
    QTest::keyClick(&chart, Qt::Key_Minus);
    EXPECT_EQ(chart.drawing().contents, contents);
    QTest::keyClick(&chart, Qt::Key_Delete);
    EXPECT_FALSE(markers[0].has_value());
}

TEST_F(TrendChartTest, ARefreshWhileZoomedShowsTheNewSamplesOfTheSamePart) {
    chart.zoomTo(testStart(), testStart() + 10 * Minute);
    ASSERT_TRUE(eventually([&] { return chart.drawing().contents->end < contents->end; }));
    chart.plot(contentsOf(3600, {samplesOf({{0, 7}, {300, 8}}, SampleKind::Number, testStart())}));
    ASSERT_TRUE(eventually(
        [&] { return chart.drawing().contents->series[0].curve->statistics.count == 2; }));
    EXPECT_EQ(chart.drawing().contents->end, testStart() + 10 * Minute);
}

TEST_F(TrendChartTest, TheTableTellsOfWhatIsInView) {
    SummaryTable table(chart);
    chart.zoomTo(testStart(), testStart() + 20 * Minute);
    ASSERT_TRUE(eventually([&] { return table.rowCount() == 2; }));
    QStringList texts;
    for (int c = 1; c < table.columnCount(); ++c) texts << table.item(0, c)->text();
    EXPECT_EQ(texts.join('|').toStdString(), "Trend1|0|10|5|10|m");
    chart.setSeriesVisible(0, false);
    EXPECT_EQ(table.rowCount(), 2) << "shows with the next plot";
    chart.plot(contents);
    EXPECT_TRUE(eventually([&] { return table.rowCount() == 1; }));
}

TEST_F(TrendChartTest, SavesExactlyTheSamplesInView) {
    const TempFolder folder;
    const auto file = folder / "dati.csv";
    chart.zoomTo(testStart(), testStart() + 2 * Minute);
    ASSERT_TRUE(eventually([&] { return chart.drawing().contents->end < contents->end; }));
    saveWith("Salva dati", QString::fromStdString(file.string()));
    ASSERT_TRUE(eventually([&] { return std::filesystem::exists(file); }));
    EXPECT_EQ(test::bytesOf(file),
              "\xEF\xBB\xBFTrend;Data;Valore;Unità\r\n"
              "Trend1;14/03/2006 00:00:00;0;m\r\n"
              "Trend1;14/03/2006 00:01:00;0,5;m\r\n"
              "Trend1;14/03/2006 00:02:00;1;m\r\n"
              "Trend2;14/03/2006 00:00:00;1;m\r\n");
}

TEST_F(TrendChartTest, SavesPicturesAndSaysWhenItCannot) {
    const TempFolder folder;
    const auto path = [&](const char* name) {
        return QString::fromStdString((folder / name).string());
    };
    saveWith("Salva immagine", path("grafico.png"));
    EXPECT_TRUE(eventually([&] { return QFile::exists(path("grafico.png")); }));
    EXPECT_EQ(QImage(path("grafico.png")).size(), chart.size() * chart.devicePixelRatioF());
    saveWith("Salva PDF", path("grafico.pdf"));
    EXPECT_TRUE(test::bytesOf(folder / "grafico.pdf").starts_with("%PDF-"));

    for (const QString& error :
         {saveSheetPng(chart.drawing(), chart.size(), 1, path("x/a.png")),
          saveSheetPdf(chart.drawing(), path("x/a.pdf")),
          saveSampleCsv(chart.drawing(), path("x/a.csv"), [] { return true; })})
        EXPECT_TRUE(error.startsWith("Impossibile scrivere il file")) << error.toStdString();
    EXPECT_EQ(saveSampleCsv(chart.drawing(), path("b.csv"), [] { return false; }), "");
    EXPECT_FALSE(QFile::exists(path("b.csv"))) << "stopped";
}

TEST_F(TrendChartTest, AsksWhereToPrintWithoutWaiting) {
    const std::unique_ptr<QMenu> menu(makeChartMenu(chart));
    action(*menu, "Stampa")->trigger();
    ASSERT_TRUE(eventually([&] { return chart.findChild<QPrintDialog*>() != nullptr; }));
    chart.findChild<QPrintDialog*>()->reject();
    EXPECT_TRUE(eventually([&] {
        settle();
        return chart.findChild<QPrintDialog*>() == nullptr;
    }));
}

TEST_F(TrendChartTest, TheMenuOffersOnlyWhatIsPossible) {
    const auto enabled = [&](const char* text) {
        const std::unique_ptr<QMenu> menu(makeChartMenu(chart));
        return action(*menu, text)->isEnabled();
    };
    EXPECT_FALSE(enabled("Vista precedente"));
    EXPECT_FALSE(enabled("Ingrandisci fra i marcatori"));
    EXPECT_FALSE(enabled("Marcatore A qui")) << "no cursor";
    QTest::keyClick(&chart, Qt::Key_Home);
    EXPECT_TRUE(enabled("Marcatore A qui"));
    chart.zoomIn();
    EXPECT_TRUE(enabled("Vista precedente"));
    TrendChart empty;
    const std::unique_ptr<QMenu> menu(makeChartMenu(empty));
    for (QAction* entry : menu->actions())
        EXPECT_FALSE(entry->isEnabled() && !entry->isSeparator());
}

TEST_F(TrendChartTest, CopiesItsPicture) {
    QTest::keyClick(&chart, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->image().size(), chart.size());
}

TEST_F(TrendChartTest, MayGoWhileItWorks) {
    auto other = std::make_unique<TrendChart>();
    other->plot(contents);
    other->zoomTo(testStart(), testStart() + 10 * Minute);
    other.reset();
    settle();
}

}  // namespace
}  // namespace velt::ui
