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
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <QTimer>

#include <gmock/gmock.h>

namespace velt::ui {
namespace {

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
        std::filesystem::remove(file);
        jet::Writer writer = jet::Writer::create(file);
        std::vector<jet::ColumnDefinition> columns = {{"Data", jet::ColumnType::Date}};
        for (const char* name : {"VRX", "Allarme", "Descrizione", "Evento"})
            columns.push_back({name, jet::ColumnType::Text});
        writer.createTable("Allarmi", columns);
        for (int i = 0; i < rows; ++i) {
            const std::vector<Variant> row = {Date(38790 + i / 24.0),
                                              "RTU0" + std::to_string(i % 3 + 1), "Livello alto",
                                              "perché no", "Attivo"};
            writer.append("Allarmi", row);
        }
        writer.flush();
    }
    void show() {
        viewer = std::make_unique<AlarmViewer>();
        viewer->setObjectName("AlarmViewer1");
        viewer->File(QString::fromStdString(file.string()));
        viewer->FileIni(QString::fromStdString((folder / "panel.ini").string()));
        viewer->show();
    }
    void close() {
        viewer->Terminate();
        viewer.reset();
    }
    QAbstractItemModel* model(const char* view) const {
        return viewer->findChild<QTableView*>(view)->model();
    }
    void click(const char* button) const {
        QTest::mouseClick(viewer->findChild<QPushButton*>(button), Qt::LeftButton);
    }

    TempFolder folder;
    std::filesystem::path file = folder / "Allarmi.mdb";
    std::unique_ptr<AlarmViewer> viewer;
    QTimer reader;
    std::vector<std::string> messages;
};

TEST_F(RealFilesTest, TellsWhatIsWrongAndGoesOnWhenItIsMended) {
    show();
    ASSERT_TRUE(eventually([&] { return messages.size() == 1; }));
    test::writeBytes(file, "not a database");
    click("cmdAggiornaVRX");
    ASSERT_TRUE(eventually([&] { return messages.size() == 2; }));
    EXPECT_EQ(messages[0], "Errore: Il File Allarmi non esiste!");
    EXPECT_THAT(messages[1], HasSubstr("Error: Error N°: 3343\nDesc.: "));
    writeAlarms(100);
    settle();
    click("cmdAggiornaVRX");
    EXPECT_TRUE(eventually([&] { return model("lvVRX")->rowCount() == 3; }));
    click("cmdAggiornaDati");
    ASSERT_TRUE(eventually([&] { return model("dg")->rowCount() == 100; }));
    EXPECT_EQ(model("dg")->index(1, 0).data(), "14/03/2006 01.00.00");
    EXPECT_EQ(model("dg")->index(1, 3).data(), "perché no");
    click("cmdSeleziona");
    settle();

    // What the operator chose is saved even when the control goes during a message.
    test::writeBytes(file, "not a database any more");
    reader.disconnect();
    QObject::connect(&reader, &QTimer::timeout, [this] {
        if (viewer && QApplication::activeModalWidget()) close();
    });
    click("cmdAggiornaDati");
    ASSERT_TRUE(eventually([&] { return !viewer; }));
    settle();
    const std::string saved = test::bytesOf(folder / "panel.ini");
    EXPECT_THAT(saved, HasSubstr("[AlarmViewer_AlarmViewer1]"));
    EXPECT_THAT(saved, HasSubstr("List3=1"));
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(RealFilesTest, MayBeClosedAtAnyMoment) {
    writeAlarms(20000);
    for (int turns = 0; turns < 12; ++turns) {
        show();
        for (int i = 0; i < turns; ++i) QCoreApplication::processEvents();
        click("cmdAggiornaDati");
        for (int i = 0; i < turns / 2; ++i) QCoreApplication::processEvents();
        QTimer::singleShot(turns / 3, qApp, [this] { close(); });
        ASSERT_TRUE(eventually([&] { return !viewer; }));
        settle();
    }
    EXPECT_THAT(messages, IsEmpty());
}

TEST_F(RealFilesTest, AHostMayGiveOtherServicesBeforeAControlGoesLive) {
    fakes::FakeServices services;
    setStandardServices(&services);
    show();
    settle();
    close();
    setStandardServices(nullptr);
    EXPECT_EQ(services.messages.shown.size(), 1U);
    EXPECT_THAT(messages, IsEmpty());
}

}  // namespace
}  // namespace velt::ui
