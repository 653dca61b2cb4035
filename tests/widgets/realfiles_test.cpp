// SPDX-License-Identifier: MIT
// The alarm viewer as it is installed: real widgets, real services, real files.
#include "adapters/access/jet/writer.h"
#include "adapters/standard/standardservices.h"
#include "tests/fakes/fakeservices.h"
#include "tests/filebytes.h"
#include "tests/qtmain.h"
#include "tests/tempfolder.h"
#include "widgets/alarmviewer.h"

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <QTimer>

#include <gmock/gmock.h>

namespace velt::ui {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class RealFilesTest : public testing::Test {
protected:
    RealFilesTest() {
        // Whoever is to be told something reads it and confirms.
        QObject::connect(&reader, &QTimer::timeout, [this] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box) return;
            messages.push_back(box->windowTitle().toStdString() + ": " + box->text().toStdString());
            box->buttons().first()->click();
        });
        reader.start(5);
    }
    ~RealFilesTest() override { settle(); }

    void writeAlarms(int rows) const {
        jet::Writer writer = jet::Writer::create(file);
        const std::vector<jet::ColumnDefinition> columns = {{"Data", jet::ColumnType::Date},
                                                            {"VRX", jet::ColumnType::Text},
                                                            {"Allarme", jet::ColumnType::Text},
                                                            {"Descrizione", jet::ColumnType::Text},
                                                            {"Evento", jet::ColumnType::Text}};
        writer.createTable("Allarmi", columns);
        for (int i = 0; i < rows; ++i) {
            const std::vector<Variant> row = {
                Date(38790 + i / 24.0), "RTU0" + std::to_string(i % 3 + 1),
                i % 2 == 0 ? "Livello alto" : "Pompa ferma", "perché no", "Attivo"};
            writer.append("Allarmi", row);
        }
        writer.flush();
    }
    std::unique_ptr<AlarmViewer> shown() const {
        auto viewer = std::make_unique<AlarmViewer>();
        viewer->setObjectName("AlarmViewer1");
        viewer->File(QString::fromStdString(file.string()));
        viewer->FileIni(QString::fromStdString((folder / "panel.ini").string()));
        viewer->show();
        return viewer;
    }
    static QAbstractItemModel* model(const AlarmViewer& viewer, const char* view) {
        return viewer.findChild<QTableView*>(view)->model();
    }
    static void click(const AlarmViewer& viewer, const char* button) {
        QTest::mouseClick(viewer.findChild<QPushButton*>(button), Qt::LeftButton);
    }

    TempFolder folder;
    std::filesystem::path file = folder / "Allarmi.mdb";
    QTimer reader;
    std::vector<std::string> messages;
};

TEST_F(RealFilesTest, FromTheFileToTheGridAndBackToTheSettings) {
    writeAlarms(100);
    const auto viewer = shown();
    ASSERT_TRUE(eventually([&] { return model(*viewer, "lvVRX")->rowCount() == 3; }));
    click(*viewer, "cmdSeleziona");
    settle();
    click(*viewer, "cmdAggiornaDati");
    auto* grid = viewer->findChild<QTableView*>("dg");
    ASSERT_TRUE(eventually([&] { return grid->isVisible(); }));
    EXPECT_EQ(grid->model()->rowCount(), 100);
    EXPECT_EQ(grid->model()->index(1, 0).data(), "14/03/2006 01.00.00");
    EXPECT_EQ(grid->model()->index(1, 3).data(), "perché no");
    viewer->Terminate();
    EXPECT_THAT(test::bytesOf(folder / "panel.ini"), HasSubstr("[AlarmViewer_AlarmViewer1]"));
    EXPECT_THAT(test::bytesOf(folder / "panel.ini"), HasSubstr("List3=1"));
    EXPECT_THAT(messages, IsEmpty());
}

TEST_F(RealFilesTest, TellsWhatIsWrongAndGoesOnWhenItIsMended) {
    const auto viewer = shown();
    ASSERT_TRUE(eventually([&] { return messages.size() == 1; }));
    test::writeBytes(file, "not a database");
    click(*viewer, "cmdAggiornaVRX");
    ASSERT_TRUE(eventually([&] { return messages.size() == 2; }));
    EXPECT_EQ(messages[0], "Errore: Il File Allarmi non esiste!");
    EXPECT_THAT(messages[1], HasSubstr("Error: Error N°: 3343\nDesc.: "));
    std::filesystem::remove(file);
    writeAlarms(5);
    settle();
    click(*viewer, "cmdAggiornaVRX");
    EXPECT_TRUE(eventually([&] { return model(*viewer, "lvVRX")->rowCount() == 3; }));
    viewer->Terminate();
}

TEST_F(RealFilesTest, WhatTheOperatorChoseIsSavedEvenWhenTheControlGoesDuringAMessage) {
    writeAlarms(10);
    auto viewer = shown();
    ASSERT_TRUE(eventually([&] { return model(*viewer, "lvVRX")->rowCount() == 3; }));
    click(*viewer, "cmdSeleziona");
    settle();
    test::writeBytes(file, "not a database any more");
    reader.disconnect();
    QObject::connect(&reader, &QTimer::timeout, [&viewer] {
        if (!viewer || !QApplication::activeModalWidget()) return;
        viewer->Terminate();
        viewer.reset();
    });
    click(*viewer, "cmdAggiornaDati");
    ASSERT_TRUE(eventually([&] { return !viewer; }));
    settle();
    EXPECT_THAT(test::bytesOf(folder / "panel.ini"), HasSubstr("ListCount=3"));
    EXPECT_THAT(test::bytesOf(folder / "panel.ini"), HasSubstr("List3=1"));
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(RealFilesTest, MayBeClosedAtAnyMoment) {
    writeAlarms(20000);
    for (int turns = 0; turns < 12; ++turns) {
        auto viewer = shown();
        for (int i = 0; i < turns; ++i) QCoreApplication::processEvents();
        click(*viewer, "cmdAggiornaDati");
        for (int i = 0; i < turns / 2; ++i) QCoreApplication::processEvents();
        QTimer::singleShot(turns / 3, qApp, [&viewer] {
            viewer->Terminate();
            viewer.reset();
        });
        ASSERT_TRUE(eventually([&] { return !viewer; }));
        settle();
    }
    EXPECT_THAT(messages, IsEmpty());
}

TEST_F(RealFilesTest, AHostMayGiveOtherServicesBeforeAControlGoesLive) {
    fakes::FakeServices services;
    {
        AlarmViewer viewer;
        setStandardServices(&services);
        viewer.File("missing.mdb");
        viewer.show();
        settle();
        viewer.Terminate();
    }
    setStandardServices(nullptr);
    EXPECT_EQ(services.messages.shown.size(), 1U);
    EXPECT_THAT(messages, IsEmpty());
}

}  // namespace
}  // namespace velt::ui
