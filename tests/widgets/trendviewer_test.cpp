// SPDX-License-Identifier: MIT
// The trend viewer as an operator uses it: real widgets, real services, real files.
#include "widgets/trendviewer.h"

#include "adapters/qt/colorswatch.h"
#include "tests/qtmain.h"
#include "tests/widgets/stationfiles.h"
#include "widgets/chart/chartdrawing.h"
#include "widgets/chart/summarytable.h"
#include "widgets/chart/trendchart.h"

#include <QAbstractButton>
#include <QApplication>
#include <QColorDialog>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QLabel>
#include <QMessageBox>
#include <QTimer>

#include <gmock/gmock.h>

namespace velt::ui {
namespace {

using testing::IsEmpty;

const Date Start = Date::fromFields({2006, 3, 14, 10, 0, 0, 0});

/// `count` samples a minute apart, rising by one.
std::vector<std::pair<double, Variant>> ramp(int count) {
    std::vector<std::pair<double, Variant>> samples;
    for (int i = 0; i < count; ++i) samples.emplace_back(i * 60.0, static_cast<double>(i));
    return samples;
}

class TrendViewerFaceTest : public testing::Test {
protected:
    TrendViewerFaceTest() {
        files.writeConfig(
            "[Common]\r\nNumeroVRX=1\r\nVRX0=RTU01\r\n"
            "[VRX0]\r\nG0V0=Livello\r\nG0V0_Desc=Livello vasca\r\nG0V0_UdM=m\r\n"
            "G1V5=Pompa\r\nG1V5_Desc=Marcia\r\n");
        files.addTrend("RTU01", "Livello", Start, ramp(61));
        files.addTrend("RTU01", "Pompa", Start, {{0, true}, {1800, false}, {3600, true}},
                       jet::ColumnType::Boolean);
        // Whoever is to be told something reads it and confirms; whoever is asked, chooses.
        QObject::connect(&reader, &QTimer::timeout, [this] {
            QWidget* modal = QApplication::activeModalWidget();
            if (auto* dialog = qobject_cast<QColorDialog*>(modal)) {
                dialog->setCurrentColor(QColor(0xFF, 0x80, 0x40));
                dialog->accept();
            } else if (auto* box = qobject_cast<QMessageBox*>(modal)) {
                messages.push_back((box->windowTitle() + ": " + box->text()).toStdString());
                box->buttons().first()->click();
            }
        });
        reader.start(5);
        viewer.setProperty("File", QString::fromStdString(files.config()));
    }
    ~TrendViewerFaceTest() override { settle(); }

    void show() {
        viewer.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&viewer));
        viewer.activateWindow();
        settle();
    }
    /// With trends of the first station, over one hour.
    void showTrends(const QString& first, const QString& second = {}) {
        viewer.SetTrend("RTU01", first, second, "", "", Start, 0);
        show();
        ASSERT_TRUE(eventually([&] { return combo("cmbTrend0")->currentText() == first; }));
        refresh();
    }
    template <typename T>
    T* child(const QString& name) {
        T* found = viewer.findChild<T*>(name);
        EXPECT_NE(found, nullptr) << name.toStdString();
        return found;
    }
    QComboBox* combo(const char* name) { return child<QComboBox>(name); }
    void choose(const char* list, int index) {
        combo(list)->setCurrentIndex(index);
        emit combo(list)->activated(index);
        settle();
    }
    void click(const char* button) {
        QTest::mouseClick(child<QAbstractButton>(button), Qt::LeftButton, {}, {8, 8});
        settle();
    }
    /// Until something is drawn, or told.
    void refresh() {
        const auto before = drawing().contents;
        const std::size_t told = messages.size();
        click("cmdAggiornaDati");
        ASSERT_TRUE(
            eventually([&] { return drawing().contents != before || messages.size() > told; }));
        settle();
    }
    const ChartDrawing& drawing() { return child<TrendChart>("chart")->drawing(); }
    std::size_t samplesShown() { return drawing().contents->series[0].curve->statistics.count; }
    /// What the lists and the pickers show.
    std::string state() {
        QStringList texts;
        for (const char* list :
             {"cmbVRX", "cmbRange", "cmbTrend0", "cmbTrend1", "cmbTrend2", "cmbScala"})
            texts << combo(list)->currentText();
        texts << child<QDateTimeEdit>("DataIniziale")->dateTime().toString("dd/MM/yyyy HH:mm:ss")
              << child<QDateTimeEdit>("TimeFinale")->text();
        return texts.join('|').toStdString();
    }

    StationFiles files;
    TrendViewer viewer;
    QTimer reader;
    std::vector<std::string> messages;
};

TEST_F(TrendViewerFaceTest, AHostsRequestAndTheOperatorsWayOn) {
    viewer.SetTrend("RTU01", "Livello", "Pompa", "sconosciuto", "",
                    QDateTime(QDate(2006, 3, 14), QTime(10, 0), Qt::OffsetFromUTC, 3600), 6);
    EXPECT_EQ(
        viewer.CartellaDownload().toStdString() + "VeltRTU.ini",
        QString::fromStdString(files.config()).replace("/VeltRTU", "\\VeltRTU").toStdString());
    show();
    ASSERT_TRUE(eventually([&] { return combo("cmbTrend1")->currentText() == "Pompa"; }));
    EXPECT_EQ(state(),
              "RTU01|1 Giorno|Livello|Pompa|Nessuno|Tutte le penne|14/03/2006 10:00:00|10.00");
    EXPECT_EQ(child<QLabel>("lblDesc0")->text() + child<QLabel>("lblUdm0")->text(),
              "Livello vascam");
    EXPECT_EQ(drawing().contents, nullptr) << "automatic update is off";
    refresh();
    EXPECT_EQ(drawing().contents->series[1].samples->kind, SampleKind::Boolean);
    EXPECT_EQ(child<SummaryTable>("summary")->rowCount(), 2);

    choose("cmbRange", 0);
    click("cmdAvanti");
    EXPECT_EQ(samplesShown(), 61U) << "the chart waits for the button";
    click("chkAutoUpdate");
    click("cmdAvanti2");
    EXPECT_EQ(state(),
              "RTU01|1 Ora|Livello|Pompa|Nessuno|Tutte le penne|14/03/2006 10:45:00|11.45");
    EXPECT_TRUE(eventually([&] { return samplesShown() == 16; }));
    choose("cmbScala", 1);
    click("chkNormalizzato");
    EXPECT_TRUE(drawing().choice.normalised);
    EXPECT_EQ(drawing().choice.series, 0);
    EXPECT_THAT(messages, IsEmpty());
}

TEST_F(TrendViewerFaceTest, SwatchesHideByClickAndColourByDoubleClickAlsoByKeyboard) {
    showTrends("Livello", "Pompa");
    auto* swatch = child<qt::ColorSwatch>("colore1");
    auto* marker = child<QLabel>("marker0");
    QTest::mouseClick(swatch, Qt::LeftButton);
    ASSERT_TRUE(eventually([&] { return !marker->isVisible(); }));
    refresh();
    EXPECT_TRUE(eventually([&] { return child<SummaryTable>("summary")->rowCount() == 1; }));
    QTest::keyClick(swatch, Qt::Key_Space);
    ASSERT_TRUE(eventually([&] { return marker->isVisible(); }));

    QTest::mouseClick(swatch, Qt::LeftButton);
    QTest::mouseDClick(swatch, Qt::LeftButton);
    ASSERT_TRUE(eventually([&] { return drawing().penColors[0] == QColor(0xFF, 0x80, 0x40); }));
    QTest::qWait(QApplication::doubleClickInterval() + 50);
    EXPECT_TRUE(marker->isVisible()) << "a double click does not hide the pen";
}

TEST_F(TrendViewerFaceTest, ADownloadShowsWithTheNextRefresh) {
    showTrends("Livello");
    EXPECT_EQ(samplesShown(), 61U);
    {
        // As a download does it: a new file in place of the old one.
        StationFiles other;
        other.addTrend("RTU01", "Livello", Start, ramp(31));
        std::filesystem::rename(other.database("RTU01"), files.database("RTU01"));
    }
    refresh();
    EXPECT_EQ(samplesShown(), 31U);
    EXPECT_THAT(messages, IsEmpty());

    const auto before = drawing().contents;
    test::writeBytes(files.database("RTU01"), "non è un database");
    refresh();
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_THAT(messages[0], testing::HasSubstr("Errore Numero: 3343\nDescrizione: "));
    EXPECT_EQ(drawing().contents, before) << "the chart stays";
    EXPECT_NE(viewer.cursor().shape(), Qt::WaitCursor);
}

}  // namespace
}  // namespace velt::ui
