// SPDX-License-Identifier: MIT
// The trend viewer as an operator uses it: real widgets, real services, real files.
#include "widgets/trendviewer.h"

#include "adapters/qt/colorswatch.h"
#include "tests/qtmain.h"
#include "tests/widgets/stationfiles.h"
#include "widgets/chart/chartdrawing.h"
#include "widgets/chart/summarytable.h"
#include "widgets/chart/trendchart.h"

#include <QApplication>
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <gmock/gmock.h>

#include <cmath>

namespace velt::ui {
namespace {

using jet::ColumnType;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

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
            "[Common]\r\nNumeroVRX=3\r\nVRX0=RTU01\r\nVRX1=RTU02\r\nVRX2=RTU03\r\n"
            "[VRX0]\r\nG0V0=Livello\r\nG0V0_Desc=Livello vasca\r\nG0V0_UdM=m\r\n"
            "G1V5=Pompa\r\nG1V5_Desc=Marcia\r\nG3V19=Assente\r\n");
        files.addTrend("RTU01", "Livello", Start, ramp(61));
        files.addTrend("RTU01", "Pompa", Start, {{0, true}, {1800, false}, {3600, true}},
                       ColumnType::Boolean);
        files.addTrend("RTU03", "Portata", Start, ramp(10));
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
        open();
    }
    ~TrendViewerFaceTest() override { settle(); }

    /// A new control on the files, as a form of the host has it.
    void open() {
        viewer = std::make_unique<TrendViewer>();
        viewer->setObjectName("TrendViewer1");
        viewer->setProperty("File", QString::fromStdString(files.config()));
    }
    void show() {
        viewer->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(viewer.get()));
        viewer->activateWindow();
        settle();
    }
    /// With trends of the first station, over one hour.
    void showTrends(const QString& first, const QString& second = {}) {
        viewer->SetTrend("RTU01", first, second, "", "", Start, 0);
        show();
        ASSERT_TRUE(eventually([&] { return combo("cmbTrend0")->currentText() == first; }));
        refresh();
    }
    template <typename T>
    T* child(const QString& name) {
        T* found = viewer->findChild<T*>(name);
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
    static std::vector<std::string> entries(const QComboBox* box) {
        std::vector<std::string> texts;
        for (int i = 0; i < box->count(); ++i) texts.push_back(box->itemText(i).toStdString());
        return texts;
    }

    StationFiles files;
    std::unique_ptr<TrendViewer> viewer;
    QTimer reader;
    std::vector<std::string> messages;
};

TEST_F(TrendViewerFaceTest, AHostsRequestAndTheOperatorsWayOn) {
    viewer->SetTrend("RTU01", "Livello", "Pompa", "sconosciuto", "",
                     QDateTime(QDate(2006, 3, 14), QTime(10, 0), Qt::OffsetFromUTC, 3600), 6);
    EXPECT_EQ(
        viewer->CartellaDownload().toStdString() + "VeltRTU.ini",
        QString::fromStdString(files.config()).replace("/VeltRTU", "\\VeltRTU").toStdString());
    show();
    ASSERT_TRUE(eventually([&] { return combo("cmbTrend1")->currentText() == "Pompa"; }));
    EXPECT_EQ(state(),
              "RTU01|1 Giorno|Livello|Pompa|Nessuno|Tutte le penne|14/03/2006 10:00:00|10.00");
    EXPECT_EQ(child<QLabel>("lblDesc0")->text() + child<QLabel>("lblUdm0")->text(),
              "Livello vascam");
    EXPECT_EQ(child<QCheckBox>("chkAutoUpdate")->text(), "Aggiornamento automatico");
    EXPECT_EQ(child<QCheckBox>("chkNormalizzato")->text(), "Grafico normalizzato");
    EXPECT_EQ(child<QPushButton>("cmdAggiornaDati")->text(), "&Aggiorna Dati");
    EXPECT_THAT(entries(combo("cmbVRX")), ElementsAre("RTU01", "RTU03"));
    EXPECT_THAT(entries(combo("cmbTrend3")), ElementsAre("Nessuno", "Livello", "Pompa", "Assente"));
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
    QTest::keyClick(child<qt::ColorSwatch>("colore3"), Qt::Key_Space);
    settle();
    EXPECT_TRUE(child<QLabel>("marker2")->isVisible()) << "a pen that is not in use";

    QTest::mouseClick(swatch, Qt::LeftButton);
    QTest::mouseDClick(swatch, Qt::LeftButton);
    ASSERT_TRUE(eventually([&] { return drawing().penColors[0] == QColor(0xFF, 0x80, 0x40); }));
    QTest::qWait(QApplication::doubleClickInterval() + 50);
    EXPECT_TRUE(marker->isVisible()) << "a double click does not hide the pen";
}

TEST_F(TrendViewerFaceTest, WhatTheOperatorChoseComesBack) {
    viewer->FileIni(QString::fromStdString(files.settings()));
    show();
    choose("cmbVRX", 0);
    choose("cmbTrend2", 1);
    choose("cmbRange", 9);
    choose("cmbScala", 3);
    click("chkAutoUpdate");
    const std::string before = state();
    viewer->Terminate();
    settle();
    open();
    viewer->FileIni(QString::fromStdString(files.settings()));
    show();
    EXPECT_EQ(state(), before);
    EXPECT_THAT(before, StartsWith("RTU01|1 Settimana|Nessuno|Nessuno|Livello|Penna 3|"));
    EXPECT_TRUE(child<QCheckBox>("chkAutoUpdate")->isChecked());
    EXPECT_TRUE(eventually([&] { return drawing().contents != nullptr; }));
    viewer->Terminate();
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
    jet::Writer writer = jet::Writer::open(files.database("RTU01"));
    const std::vector<Variant> row = {Start.addSeconds(1900), 5.0};
    writer.append("Livello", row);
    writer.flush();
    refresh();
    EXPECT_EQ(samplesShown(), 32U) << "while it is being written";
    EXPECT_THAT(messages, IsEmpty());

    const auto before = drawing().contents;
    test::writeBytes(files.database("RTU01"), "non è un database");
    refresh();
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_THAT(messages[0], testing::HasSubstr("Errore Numero: 3343\nDescrizione: "));
    EXPECT_EQ(drawing().contents, before) << "the chart stays";
    EXPECT_NE(viewer->cursor().shape(), Qt::WaitCursor);
}

TEST_F(TrendViewerFaceTest, ValuesAndNamesOfEveryKind) {
    struct Case {
        const char* table;
        ColumnType type;
        std::vector<Variant> values;
        std::size_t count;
        double minimum, maximum;
        SampleKind kind;
    };
    using enum SampleKind;
    const Case cases[] = {
        {"T", ColumnType::Currency, {12.5, -3.25}, 2, -3.25, 12.5, Number},
        {"T", ColumnType::Integer, {std::int16_t{7}, std::int16_t{-7}}, 2, -7, 7, Whole},
        {"T", ColumnType::Long, {2147483647, 1}, 2, 1, 2147483647.0, Whole},
        {"T", ColumnType::Byte, {std::uint8_t{0}, std::uint8_t{255}}, 2, 0, 255, Whole},
        {"T", ColumnType::Single, {0.5F, 1.5F}, 2, 0.5, 1.5, Single},
        {"T", ColumnType::Boolean, {true, false}, 2, 0, 1, Boolean},
        {"T", ColumnType::Text, {"12,5", "guasto", "-1"}, 2, -1, 12.5, Number},
        {"T", ColumnType::Numeric, {"12345678901234", "3"}, 2, 3, 12345678901234.0, Number},
        {"T", ColumnType::Double, {std::nan(""), INFINITY, Null{}, 4.0}, 1, 4, 4, Number},
        {"Livello_2", ColumnType::Double, {1.0}, 1, 1, 1, Number},
        {"Order", ColumnType::Double, {1.0}, 1, 1, 1, Number},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.table + std::to_string(int(c.type)));
        StationFiles station;
        std::vector<std::pair<double, Variant>> samples;
        for (const Variant& value : c.values) samples.emplace_back(double(samples.size()), value);
        station.addTrend("RTU01", c.table, Start, samples, c.type);
        std::filesystem::rename(station.database("RTU01"), files.database("RTU01"));
        files.writeConfig(
            "[Common]\nNumeroVRX=1\nVRX0=RTU01\n[VRX0]\nG0V0=" + std::string(c.table) + "\n");
        open();
        ASSERT_NO_FATAL_FAILURE(showTrends(c.table));
        ASSERT_THAT(messages, IsEmpty());
        const ChartSeries& series = drawing().contents->series[0];
        EXPECT_EQ(series.samples->kind, c.kind);
        EXPECT_EQ(series.samples->times.size(), c.values.size());
        EXPECT_EQ(series.curve->statistics.count, c.count);
        EXPECT_EQ(series.curve->statistics.minimum, c.minimum);
        EXPECT_EQ(series.curve->statistics.maximum, c.maximum);
    }
}

TEST_F(TrendViewerFaceTest, MayGoDuringARefresh) {
    files.addTrend("RTU03", "Livello", Start, ramp(50'000));
    std::filesystem::rename(files.database("RTU03"), files.database("RTU01"));
    showTrends("Livello");
    child<QPushButton>("cmdAggiornaDati")->click();
    QTimer::singleShot(0, [&] { viewer.reset(); });
    ASSERT_TRUE(eventually([&] { return !viewer; }));
    settle();
    EXPECT_THAT(messages, IsEmpty());
}

}  // namespace
}  // namespace velt::ui
