// SPDX-License-Identifier: MIT
// The trend viewer as an operator uses it: real widgets, real services, real files.
#include "adapters/qt/colorswatch.h"
#include "tests/widgets/trendviewerface.h"
#include "widgets/chart/summarytable.h"

#include <QBuffer>
#include <QCheckBox>
#include <QColorDialog>
#include <QGroupBox>
#include <QUiLoader>

#include <set>

namespace velt::ui {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(TrendViewerFaceTest, BearsTheCaptionsThatOperatorsKnow) {
    start();
    EXPECT_EQ(child<QCheckBox>("chkAutoUpdate")->text(), "Aggiornamento automatico");
    EXPECT_EQ(child<QCheckBox>("chkNormalizzato")->text(), "Grafico normalizzato");
    EXPECT_EQ(child<QPushButton>("cmdAggiornaDati")->text(), "&Aggiorna Dati");
    EXPECT_EQ(child<QDateTimeEdit>("TimeIniziale")->displayFormat(), "HH.mm");
    EXPECT_EQ(entries(combo("cmbRange")).front(), "1 Ora");
    EXPECT_EQ(entries(combo("cmbRange")).back(), "3 Mesi");
    EXPECT_THAT(entries(combo("cmbVRX")), ElementsAre("RTU01", "RTU03"));
    EXPECT_THAT(entries(combo("cmbTrend3")), ElementsAre("Nessuno", "Livello", "Pompa", "Assente"));
}

TEST_F(TrendViewerFaceTest, EveryInputHasANameAndIsReachedByTab) {
    startWithLevel();
    int inputs = 0;
    for (const QWidget* input : viewer.findChildren<QWidget*>()) {
        const bool isPartOfAnother = input->parentWidget()->inherits("QAbstractSpinBox") ||
                                     input->parentWidget()->inherits("QAbstractScrollArea") ||
                                     input->inherits("QScrollBar") || !input->isVisible();
        if (isPartOfAnother || !(input->focusPolicy() & Qt::TabFocus)) continue;
        ++inputs;
        const auto* asButton = qobject_cast<const QAbstractButton*>(input);
        EXPECT_FALSE(input->accessibleName().isEmpty() && (!asButton || asButton->text().isEmpty()))
            << input->metaObject()->className() << " " << input->objectName().toStdString();
    }
    std::set<QWidget*> reached;
    child<QComboBox>("cmbVRX")->setFocus();
    for (int i = 0; i < 2 * inputs; ++i) {
        reached.insert(QApplication::focusWidget());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_GE(static_cast<int>(reached.size()), inputs);
}

TEST_F(TrendViewerFaceTest, SetTrendIsAppliedAfterTheFirstShow) {
    viewer.SetTrend("RTU01", "Livello", "Pompa", "sconosciuto", "",
                    QDateTime(QDate(2006, 3, 14), QTime(10, 0)), 6);
    start();
    ASSERT_TRUE(eventually([&] { return combo("cmbTrend1")->currentText() == "Pompa"; }));
    EXPECT_EQ(combo("cmbTrend0")->currentText(), "Livello");
    EXPECT_EQ(child<QLabel>("lblDesc0")->text(), "Livello vasca");
    EXPECT_EQ(child<QLabel>("lblUdm0")->text(), "m");
    EXPECT_EQ(combo("cmbTrend2")->currentText(), "Nessuno");
    EXPECT_EQ(combo("cmbRange")->currentText(), "1 Giorno");
    EXPECT_EQ(startShown(), "2006-03-14 10:00:00");
    EXPECT_EQ(shown(), nullptr) << "automatic update is off";
    refresh();
    ASSERT_TRUE(eventually([&] { return shown() != nullptr; }));
    EXPECT_EQ(samplesShown(0), 61U);
    EXPECT_EQ(shown()->series[1].samples->kind, SampleKind::Boolean);
    EXPECT_EQ(shown()->divisions, 6);
    EXPECT_EQ(shown()->title, "RTU01");
    EXPECT_THAT(messages, IsEmpty());
}

TEST_F(TrendViewerFaceTest, NavigatesByQuartersAndHalves) {
    startWithLevel();
    click("cmdAvanti");
    EXPECT_EQ(startShown(), "2006-03-14 10:15:00");
    click("cmdIndietro2");
    EXPECT_EQ(startShown(), "2006-03-14 09:45:00");
    EXPECT_EQ(samplesShown(0), 61U) << "the chart waits for the button";
    QTest::mouseClick(child<QCheckBox>("chkAutoUpdate"), Qt::LeftButton, {}, {8, 8});
    settle();
    click("cmdAvanti2");
    EXPECT_EQ(startShown(), "2006-03-14 10:15:00");
    EXPECT_TRUE(eventually([&] { return samplesShown(0) == 46; }));
}

TEST_F(TrendViewerFaceTest, SwatchesHideByClickAndColourByDoubleClickAlsoByKeyboard) {
    startWithLevel();
    auto* swatch = child<qt::ColorSwatch>("colore1");
    auto* marker = child<QLabel>("marker0");
    auto* chart = child<TrendChart>("chart");
    QTest::mouseClick(swatch, Qt::LeftButton);
    ASSERT_TRUE(eventually([&] { return !marker->isVisible(); }));
    QTest::keyClick(swatch, Qt::Key_Space);
    ASSERT_TRUE(eventually([&] { return marker->isVisible(); }));
    QTest::keyClick(child<qt::ColorSwatch>("colore2"), Qt::Key_Space);
    settle();
    EXPECT_TRUE(child<QLabel>("marker1")->isVisible()) << "a pen that is not in use";

    QTimer answer;
    QObject::connect(&answer, &QTimer::timeout, [] {
        auto* dialog = qobject_cast<QColorDialog*>(QApplication::activeModalWidget());
        if (!dialog) return;
        dialog->setCurrentColor(QColor(0xFF, 0x80, 0x40));
        dialog->accept();
    });
    answer.start(5);
    QTest::mouseClick(swatch, Qt::LeftButton);
    QTest::mouseDClick(swatch, Qt::LeftButton);
    ASSERT_TRUE(
        eventually([&] { return chart->drawing().penColors[0] == QColor(0xFF, 0x80, 0x40); }));
    QTest::qWait(QApplication::doubleClickInterval() + 50);
    EXPECT_TRUE(marker->isVisible()) << "a double click does not hide the pen";
}

TEST_F(TrendViewerFaceTest, HiddenPensScaleAndNormalisationReachTheDrawing) {
    startWithLevel();
    choose("cmbTrend1", 2);
    refresh();
    ASSERT_TRUE(eventually([&] { return samplesShown(1) == 3; }));
    EXPECT_EQ(child<SummaryTable>("summary")->rowCount(), 2);
    QTest::keyClick(child<qt::ColorSwatch>("colore2"), Qt::Key_Space);
    settle();
    refresh();
    EXPECT_TRUE(eventually([&] { return child<SummaryTable>("summary")->rowCount() == 1; }));
    choose("cmbScala", 1);
    QTest::mouseClick(child<QCheckBox>("chkNormalizzato"), Qt::LeftButton, {}, {8, 8});
    settle();
    const ScaleChoice& choice = child<TrendChart>("chart")->drawing().choice;
    EXPECT_TRUE(choice.normalised);
    EXPECT_EQ(choice.series, 0);
}

TEST_F(TrendViewerFaceTest, WhatTheOperatorChoseComesBack) {
    start(true);
    choose("cmbVRX", 1);
    choose("cmbVRX", 0);
    choose("cmbTrend2", 1);
    choose("cmbRange", 9);
    choose("cmbScala", 3);
    QTest::mouseClick(child<QCheckBox>("chkAutoUpdate"), Qt::LeftButton, {}, {8, 8});
    settle();
    const std::string startBefore = startShown();
    viewer.Terminate();
    settle();

    TrendViewer again;
    again.setObjectName("TrendViewer1");
    again.File(QString::fromStdString(files.config()));
    again.FileIni(QString::fromStdString(files.settings()));
    again.show();
    ASSERT_TRUE(eventually(
        [&] { return again.findChild<QComboBox*>("cmbTrend2")->currentText() == "Livello"; }));
    EXPECT_EQ(again.findChild<QComboBox*>("cmbRange")->currentText(), "1 Settimana");
    EXPECT_EQ(again.findChild<QComboBox*>("cmbScala")->currentIndex(), 3);
    EXPECT_TRUE(again.findChild<QCheckBox*>("chkAutoUpdate")->isChecked());
    EXPECT_EQ(again.findChild<QDateTimeEdit*>("DataIniziale")
                  ->dateTime()
                  .toString("yyyy-MM-dd HH:mm:ss")
                  .toStdString(),
              startBefore);
    again.Terminate();
}

TEST_F(TrendViewerFaceTest, ATypedDateCountsOnceItIsComplete) {
    startWithLevel();
    auto* date = child<QDateTimeEdit>("DataIniziale");
    auto* end = child<QDateTimeEdit>("DataFinale");
    date->setFocus();
    date->setSelectedSection(QDateTimeEdit::DaySection);
    QTest::keyClicks(date, "2");
    QTest::qWait(0);
    EXPECT_EQ(end->date(), QDate(2006, 3, 14)) << "half a day of the month";
    QTest::keyClicks(date, "5");
    QTest::keyClick(date, Qt::Key_A, Qt::AltModifier);
    EXPECT_TRUE(eventually([&] { return samplesShown(0) == 0; }))
        << "Aggiorna Dati by its shortcut";
    EXPECT_EQ(end->date(), QDate(2006, 3, 25));
}

TEST_F(TrendViewerFaceTest, ADownloadShowsWithTheNextRefresh) {
    startWithLevel();
    EXPECT_EQ(samplesShown(0), 61U);
    {
        // As a download does it: a new file in place of the old one.
        StationFiles other;
        other.addTrend("RTU01", "Livello", Start, ramp(31));
        std::filesystem::rename(other.database("RTU01"), files.database("RTU01"));
    }
    refresh();
    EXPECT_TRUE(eventually([&] { return samplesShown(0) == 31; }));
    jet::Writer writer = jet::Writer::open(files.database("RTU01"));
    const std::vector<Variant> row = {Start.addSeconds(1900), 5.0};
    writer.append("Livello", row);
    writer.flush();
    refresh();
    EXPECT_TRUE(eventually([&] { return samplesShown(0) == 32; }));
    EXPECT_THAT(messages, IsEmpty());
}

TEST_F(TrendViewerFaceTest, LoadsFromAForm) {
    class Loader : public QUiLoader {
    public:
        QWidget* createWidget(const QString& name, QWidget* parent,
                              const QString& object) override {
            if (name != "velt::ui::TrendViewer")
                return QUiLoader::createWidget(name, parent, object);
            auto* widget = new TrendViewer(parent);
            widget->setObjectName(object);
            return widget;
        }
    } loader;
    QByteArray form = R"(<ui version="4.0"><widget class="velt::ui::TrendViewer" name="T">
        <property name="File" stdset="0"><string notr="true">%1</string></property>
        </widget></ui>)";
    form.replace("%1", files.config().c_str());
    QBuffer buffer(&form);
    ASSERT_TRUE(buffer.open(QIODevice::ReadOnly));
    const std::unique_ptr<QWidget> widget(loader.load(&buffer));
    ASSERT_NE(widget, nullptr);
    EXPECT_EQ(widget->findChild<QComboBox*>("cmbVRX")->count(), 0);
    EXPECT_EQ(static_cast<TrendViewer&>(*widget).CartellaDownload().toStdString() + "RTU01.MDB",
              std::filesystem::path(files.config()).parent_path().string() + "\\RTU01.MDB");
    widget->show();
    EXPECT_TRUE(eventually([&] { return widget->findChild<QComboBox*>("cmbVRX")->count() == 2; }));
}

}  // namespace
}  // namespace velt::ui
