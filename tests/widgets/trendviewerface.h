// SPDX-License-Identifier: MIT
#pragma once

#include "tests/qtmain.h"
#include "tests/widgets/stationfiles.h"
#include "widgets/chart/chartdrawing.h"
#include "widgets/chart/trendchart.h"
#include "widgets/trendviewer.h"

#include <QApplication>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

namespace velt::ui {

inline const Date Start = Date::fromFields({2006, 3, 14, 10, 0, 0, 0});

/// `count` samples a minute apart, rising by one.
inline std::vector<std::pair<double, Variant>> ramp(int count) {
    std::vector<std::pair<double, Variant>> samples;
    for (int i = 0; i < count; ++i) samples.emplace_back(i * 60.0, static_cast<double>(i));
    return samples;
}

/// A trend viewer as it is installed: real widgets, real services, real files.
class TrendViewerFaceTest : public testing::Test {
protected:
    TrendViewerFaceTest() {
        files.writeConfig(
            "[Common]\r\nNumeroVRX=3\r\nVRX0=RTU01\r\nVRX1=RTU02\r\nVRX2=RTU03\r\n"
            "[VRX0]\r\nG0V0=Livello\r\nG0V0_Desc=Livello vasca\r\nG0V0_UdM=m\r\n"
            "G1V5=Pompa\r\nG1V5_Desc=Marcia\r\nG3V19=Assente\r\n"
            "[VRX1]\r\nG0V0=Portata\r\nG0V0_UdM=l/s\r\n");
        files.addTrend("RTU01", "Livello", Start, ramp(61));
        files.addTrend("RTU01", "Pompa", Start, {{0, true}, {1800, false}, {3600, true}},
                       jet::ColumnType::Boolean);
        files.addTrend("RTU03", "Portata", Start, ramp(10));
        // Whoever is to be told something reads it and confirms.
        QObject::connect(&reader, &QTimer::timeout, [this] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box) return;
            messages.push_back(box->windowTitle().toStdString() + ": " + box->text().toStdString());
            box->buttons().first()->click();
        });
        reader.start(5);
        viewer.setObjectName("TrendViewer1");
    }
    ~TrendViewerFaceTest() override { settle(); }

    void start(bool withSettings = false) {
        viewer.File(QString::fromStdString(files.config()));
        if (withSettings) viewer.FileIni(QString::fromStdString(files.settings()));
        viewer.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&viewer));
        viewer.activateWindow();
        settle();
    }
    /// With the level on the first pen, over one hour.
    void startWithLevel() {
        viewer.SetTrend("RTU01", "Livello", "", "", "", Start, 0);
        start();
        ASSERT_TRUE(eventually([&] { return combo("cmbTrend0")->currentText() == "Livello"; }));
        refresh();
        ASSERT_TRUE(eventually([&] { return shown() != nullptr; }));
    }
    template <typename T>
    T* child(const QString& name) {
        T* found = viewer.findChild<T*>(name);
        EXPECT_NE(found, nullptr) << name.toStdString();
        return found;
    }
    QComboBox* combo(const char* name) { return child<QComboBox>(name); }
    void choose(const char* list, int index) {
        QComboBox* box = combo(list);
        box->setCurrentIndex(index);
        emit box->activated(index);
        settle();
    }
    void click(const char* button) {
        QTest::mouseClick(child<QPushButton>(button), Qt::LeftButton);
        settle();
    }
    void refresh() { click("cmdAggiornaDati"); }
    std::shared_ptr<const ChartContents> shown() {
        return child<TrendChart>("chart")->drawing().contents;
    }
    std::size_t samplesShown(std::size_t pen) {
        const auto contents = shown();
        if (!contents || !contents->series[pen].curve) return 0;
        return contents->series[pen].curve->statistics.count;
    }
    std::string startShown() {
        return child<QDateTimeEdit>("DataIniziale")
            ->dateTime()
            .toString("yyyy-MM-dd HH:mm:ss")
            .toStdString();
    }
    static std::vector<std::string> entries(const QComboBox* box) {
        std::vector<std::string> texts;
        for (int i = 0; i < box->count(); ++i) texts.push_back(box->itemText(i).toStdString());
        return texts;
    }

    StationFiles files;
    TrendViewer viewer;
    QTimer reader;
    std::vector<std::string> messages;
};

}  // namespace velt::ui
