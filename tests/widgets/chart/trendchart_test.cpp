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

#include <set>

namespace velt::ui {
namespace {

class TrendChartTest : public testing::Test {
protected:
    TrendChartTest() {
        std::vector<std::pair<double, double>> ramp;
        for (int i = 0; i <= 60; ++i) ramp.emplace_back(i * 60, i / 2.0);
        contents = contentsOf(3600, {trend(ramp), trend({{0, 1}, {1800, 0}}, SampleKind::Boolean)});
        chart.resize(800, 300);
        chart.plot(contents);
        chart.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&chart));
        chart.activateWindow();
        chart.setFocus();
        settle();
    }
    ~TrendChartTest() override { settle(); }

    QPoint at(double minute) {
        const ChartGeometry geometry(chart.drawing(), QRectF(chart.rect()));
        const auto time = testStart() + static_cast<ChartTime>(minute * Minute);
        return QPointF(geometry.xOf(time), geometry.plot().center().y()).toPoint();
    }
    void keys(const std::vector<QKeyCombination>& pressed) {
        for (const QKeyCombination& key : pressed)
            QTest::keyClick(&chart, key.key(), key.keyboardModifiers());
    }
    void zoomTo(int minute) {
        chart.zoomTo(testStart(), testStart() + minute * Minute);
        ASSERT_TRUE(eventually([&] { return chart.drawing().contents->end < contents->end; }));
    }
    QAction* action(QMenu& menu, const QString& text) {
        for (QAction* found : menu.actions())
            if (QString(found->text()).remove('&').startsWith(text)) return found;
        ADD_FAILURE() << "no entry " << text.toStdString();
        return nullptr;
    }
    /// Chooses an entry of the menu, and waits for the dialog that it opens.
    template <typename Dialog>
    Dialog* dialogOf(const QString& entry) {
        const std::unique_ptr<QMenu> menu(makeChartMenu(chart));
        action(*menu, entry)->trigger();
        EXPECT_TRUE(eventually([&] { return chart.findChild<Dialog*>() != nullptr; }));
        return chart.findChild<Dialog*>();
    }
    /// Saves into a file of a folder; its bytes.
    std::string saved(const QString& entry, const char* name) {
        const auto file = folder / name;
        auto* line = dialogOf<QFileDialog>(entry)->findChild<QLineEdit*>();
        line->setText(QString::fromStdString(file.string()));
        QTest::keyClick(line, Qt::Key_Return);
        settle();
        EXPECT_TRUE(eventually([&] { return std::filesystem::exists(file); }));
        return test::bytesOf(file);
    }

    const TempFolder folder;
    std::shared_ptr<const ChartContents> contents;
    TrendChart chart;
};

TEST_F(TrendChartTest, TheCursorSaysWhatEachPenIsWorth) {
    QTest::mouseMove(&chart, at(20.4));
    ASSERT_TRUE(eventually([&] { return chart.view().cursor().has_value(); }));
    const auto lines = cursorReadout(chart.drawing(), *chart.view().cursor());
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].text, "Trend1: 10 m  (14/03/2006 00.20.00)") << "the nearest sample's time";
    EXPECT_EQ(lines[1].text, "Trend2: Vero m  (14/03/2006 00.00.00)") << "the step's beginning";
    keys({Qt::Key_End, Qt::CTRL | Qt::Key_Left});
    EXPECT_EQ(chart.accessibleDescription(),
              "14/03/2006 00.50.00; Trend1: 25 m  (14/03/2006 00.50.00); Trend2: -");
    keys({Qt::Key_Escape});
    EXPECT_EQ(chart.accessibleDescription(), "");
}

TEST_F(TrendChartTest, DragsIntoAPartAndComesBack) {
    QTest::mousePress(&chart, Qt::LeftButton, {}, at(10));
    QTest::mouseMove(&chart, at(40));
    QTest::mouseRelease(&chart, Qt::LeftButton, {}, at(40));
    const auto& shown = chart.drawing().contents;
    ASSERT_TRUE(eventually([&] { return shown->start != contents->start; }));
    EXPECT_NEAR(double(shown->start), double(testStart() + 10 * Minute), 10'000.0);
    EXPECT_NEAR(double(shown->end), double(testStart() + 40 * Minute), 10'000.0);
    QTest::mouseDClick(&chart, Qt::LeftButton, {}, at(20));
    EXPECT_EQ(shown, contents);
    QTest::mouseClick(&chart, Qt::LeftButton, {}, at(20));
    settle();
    EXPECT_FALSE(chart.view().zoomed()) << "a click is no drag";
}

TEST_F(TrendChartTest, ZoomMarkersAndCopyByKeyboard) {
    keys({Qt::Key_Home, Qt::Key_A, Qt::CTRL | Qt::Key_Right, Qt::CTRL | Qt::Key_Right, Qt::Key_B});
    const auto& markers = chart.view().markers();
    ASSERT_TRUE(markers[0] && markers[1]);
    EXPECT_EQ(*markers[1] - *markers[0], 20 * Minute);
    EXPECT_EQ(markerReadout(chart.drawing(), *markers[0], *markers[1])[0].text, "Trend1: 10 m");
    keys({Qt::Key_Z});
    ASSERT_TRUE(eventually([&] { return chart.drawing().contents->end == *markers[1]; }));
    keys({Qt::Key_Minus, Qt::Key_Delete, Qt::CTRL | Qt::Key_C});
    EXPECT_EQ(chart.drawing().contents, contents);
    EXPECT_FALSE(markers[0].has_value());
    EXPECT_EQ(QGuiApplication::clipboard()->image().size(), chart.size());
}

TEST_F(TrendChartTest, TheTableTellsOfWhatIsInViewAlsoAfterARefresh) {
    SummaryTable table(chart);
    const auto row = [&] {
        QStringList texts;
        for (int c = 1; c < table.columnCount(); ++c) texts << table.item(0, c)->text();
        return texts.join('|').toStdString();
    };
    zoomTo(20);
    EXPECT_EQ(table.rowCount(), 2);
    EXPECT_EQ(row(), "Trend1|0|10|5|10|m");
    chart.setSeriesVisible(1, false);
    EXPECT_EQ(table.rowCount(), 2) << "shows with the next plot";
    chart.plot(contentsOf(3600, {trend({{0, 7}, {600, 8}, {1800, 9}})}));
    ASSERT_TRUE(eventually([&] { return table.rowCount() == 1; }));
    EXPECT_EQ(row(), "Trend1|7|8|7,875|8|m");
    EXPECT_EQ(chart.drawing().contents->end, testStart() + 20 * Minute);
}

TEST_F(TrendChartTest, SavesWhatIsInView) {
    zoomTo(1);
    EXPECT_EQ(saved("Salva dati", "dati.csv"),
              "\xEF\xBB\xBFTrend;Data;Valore;Unità\r\n"
              "Trend1;14/03/2006 00:00:00;0;m\r\n"
              "Trend1;14/03/2006 00:01:00;0,5;m\r\n"
              "Trend2;14/03/2006 00:00:00;1;m\r\n");
    EXPECT_EQ(QImage::fromData(QByteArray::fromStdString(saved("Salva immagine", "a.png"))).size(),
              chart.size() * chart.devicePixelRatioF());
    EXPECT_TRUE(saved("Salva PDF", "a.pdf").starts_with("%PDF-"));

    const QString nowhere = QString::fromStdString((folder / "x" / "a").string());
    for (const QString& error : {saveSheetPng(chart.drawing(), chart.size(), 1, nowhere),
                                 saveSheetPdf(chart.drawing(), nowhere),
                                 saveSampleCsv(chart.drawing(), nowhere, [] { return true; })})
        EXPECT_TRUE(error.startsWith("Impossibile scrivere il file")) << error.toStdString();
    const auto stopped = folder / "b.csv";
    EXPECT_EQ(saveSampleCsv(chart.drawing(), QString::fromStdString(stopped.string()),
                            [] { return false; }),
              "");
    EXPECT_FALSE(std::filesystem::exists(stopped));
}

TEST_F(TrendChartTest, TheMenuOffersOnlyWhatIsPossible) {
    const auto enabled = [&](const char* text) {
        const std::unique_ptr<QMenu> menu(makeChartMenu(chart));
        return action(*menu, text)->isEnabled();
    };
    EXPECT_FALSE(enabled("Vista precedente"));
    EXPECT_FALSE(enabled("Ingrandisci fra i marcatori"));
    EXPECT_FALSE(enabled("Marcatore A qui")) << "no cursor";
    keys({Qt::Key_Home, Qt::Key_Plus});
    EXPECT_TRUE(enabled("Marcatore A qui"));
    EXPECT_TRUE(enabled("Vista precedente"));
    TrendChart empty;
    const std::unique_ptr<QMenu> menu(makeChartMenu(empty));
    std::set<QKeySequence> letters;
    for (QAction* entry : menu->actions()) {
        if (entry->isSeparator()) continue;
        EXPECT_FALSE(entry->isEnabled());
        EXPECT_TRUE(letters.insert(QKeySequence::mnemonic(entry->text())).second);
    }
    dialogOf<QPrintDialog>("Stampa")->reject();
    EXPECT_TRUE(eventually([&] {
        settle();
        return chart.findChild<QPrintDialog*>() == nullptr;
    }));
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
