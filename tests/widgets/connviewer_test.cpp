// SPDX-License-Identifier: MIT
// The connection viewer as an operator uses it, over a fake runtime.
#include "widgets/connviewer.h"

#include "tests/fakes/fakeservices.h"
#include "tests/qtmain.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include <gmock/gmock.h>

#include <set>

namespace velt::ui {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class ConnViewerFaceTest : public testing::Test {
protected:
    ConnViewerFaceTest() {
        services.settingsFactory.files["VeltRTU.ini"]["Common"]["Hostname"] = "plc";
        QObject::connect(&viewer, &ControlWidget::runtimeError,
                         [this](int number, const QString&) { errors.push_back(number); });
    }
    ~ConnViewerFaceTest() override { settle(); }

    void start() {
        viewer.File("VeltRTU.ini");
        viewer.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&viewer));
        viewer.activateWindow();
        settle();
    }
    fakes::FakeRuntimeClient& client() { return *services.runtimes.made.back().lock(); }
    std::vector<std::string> takeLog() { return std::exchange(services.runtimes.log, {}); }
    template <typename T = QWidget>
    T* child(const char* name) {
        T* found = viewer.findChild<T*>(name);
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    std::string text(const char* label) { return child<QLabel>(label)->text().toStdString(); }
    std::vector<std::string> stations() {
        const QAbstractItemModel* model = child<QTableView>("lvVRX")->model();
        std::vector<std::string> names;
        for (int row = 0; row < model->rowCount(); ++row)
            names.push_back(model->index(row, 0).data().toString().toStdString());
        return names;
    }
    void select(int row) {
        auto* list = child<QTableView>("lvVRX");
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualRect(list->model()->index(row, 0)).center());
        settle();
    }
    void click(const char* button) {
        QTest::mouseClick(child<QPushButton>(button), Qt::LeftButton);
        settle();
    }

    fakes::FakeServices services;
    ConnViewer viewer{services};
    std::vector<int> errors;
};

TEST_F(ConnViewerFaceTest, BearsTheCaptionsThatOperatorsKnow) {
    EXPECT_EQ(child<QPushButton>("cmdConnetti")->text(), "Connetti");
    EXPECT_EQ(child<QPushButton>("cmdDisconnetti")->text(), "Disconnetti");
    EXPECT_EQ(child<QPushButton>("cmdDownload")->text(), "Download");
    EXPECT_EQ(child<QPushButton>("cmdDownloadAll")->text(), "Download tutte le stazioni");
    std::set<std::string> captions;
    for (const QLabel* label : viewer.findChildren<QLabel*>())
        captions.insert(label->text().toStdString());
    for (const char* caption :
         {"Nome Progetto:", "Versione:", "Hostname:", "RTU:", "Stato:", "Log:", "Stazioni RTU"})
        EXPECT_THAT(captions, Contains(caption));
}

TEST_F(ConnViewerFaceTest, DialsDownloadsAndHangsUpAsTheRuntimeSays) {
    start();
    EXPECT_EQ(text("lblHostname"), "plc");
    EXPECT_THAT(takeLog(), Contains("ConnettiRuntime VELT Viewer 'plc'"));
    client().link({"RTU01", "", "RTU02"});
    EXPECT_THAT(stations(), ElementsAre("RTU01", "RTU02"));
    EXPECT_EQ(text("lblProgetto"), "Acquedotto");
    EXPECT_EQ(text("lblVersione"), "1.2.3");
    takeLog();
    select(1);
    EXPECT_THAT(takeLog(), ElementsAre("RichiediStatoRTU RTU02"));

    const struct {
        int code;
        const char* caption;
        std::array<bool, 4> enabled;
    } states[] = {{0, "Disconnesso", {true, false, true, true}},
                  {1, "Dialing", {false, true, true, true}},
                  {2, "Connesso", {false, true, true, true}},
                  {3, "Modem occupato", {true, false, true, true}},
                  {4, "In disconnessione", {false, false, false, false}},
                  {5, "Downloading", {false, false, false, false}},
                  {6, "Downloading", {false, false, false, false}}};
    const QModelIndex row = child<QTableView>("lvVRX")->model()->index(1, 0);
    std::set<QByteArray> pictures;
    for (const auto& state : states) {
        client().Stato.raise("RTU02", state.code);
        EXPECT_EQ(text("lblStato"), state.caption);
        const std::array<bool, 4> enabled = {
            child("cmdConnetti")->isEnabled(), child("cmdDisconnetti")->isEnabled(),
            child("cmdDownload")->isEnabled(), child("cmdDownloadAll")->isEnabled()};
        EXPECT_EQ(enabled, state.enabled) << state.code;
        const auto icon = row.data(Qt::DecorationRole).value<QIcon>();
        if (icon.isNull()) continue;
        // Without colours they must still differ.
        const QImage grey = icon.pixmap(32).toImage().convertToFormat(QImage::Format_Alpha8);
        pictures.insert(QByteArray(reinterpret_cast<const char*>(grey.constBits()),
                                   static_cast<int>(grey.sizeInBytes())));
        EXPECT_EQ(row.data(Qt::AccessibleTextRole).toString().toStdString(),
                  std::string("RTU02: ") + state.caption);
    }
    EXPECT_EQ(pictures.size(), 6U);

    client().Stato.raise("RTU02", 0);
    takeLog();
    click("cmdConnetti");
    click("cmdDownload");
    click("cmdDownloadAll");
    EXPECT_THAT(takeLog(), ElementsAre("ConnettiRTU RTU02", "DownloadRTU RTU02", "DownloadTutte"));
    client().Errore.raise("linea occupata", "RTU02");
    EXPECT_EQ(text("lblLog"), "'RTU02': linea occupata");
    client().lose();
    EXPECT_EQ(text("lblLog"), "Runtime non attivo!!");
    EXPECT_FALSE(row.data(Qt::DecorationRole).isValid()) << "an old state must not look live";
    takeLog();
    EXPECT_TRUE(eventually([&] { return !services.runtimes.log.empty(); })) << "it tries again";
    viewer.Terminate();
    EXPECT_THAT(takeLog(), Contains("ChiudiRuntime"));
    EXPECT_THAT(errors, IsEmpty());
}

TEST_F(ConnViewerFaceTest, TheErrorThatLeavesAHandlerReachesTheHost) {
    start();
    client().link({"RTU01", "RTU02", "RTU03"});
    EXPECT_THAT(errors, IsEmpty());
    {
        const ExpectedWarning warning("errore 9");
        client().link({"RTU01", "RTU02", "RTU03"});
    }
    EXPECT_THAT(errors, ElementsAre(9));
    EXPECT_THAT(stations(), IsEmpty());
    const ExpectedWarning warning("errore 5");
    client().Stato.raise("nobody", 2);
    EXPECT_EQ(errors.size(), 2U);
}

TEST_F(ConnViewerFaceTest, FollowsItsSizeAndNeverGetsTooSmall) {
    start();
    const QRect listBefore = child("lvVRX")->geometry();
    viewer.resize(900, 500);
    settle();
    EXPECT_EQ(child("frmSelezioneDati")->size(), QSize(900, 500));
    const QRect log = child("lblLog")->geometry();
    EXPECT_EQ(log.right() + 1, 900 - 12);
    EXPECT_EQ(log.bottom() + 1, 500 - 12);
    EXPECT_EQ(child("lvVRX")->geometry().bottom() + 1, 500);
    EXPECT_EQ(child("lvVRX")->width(), listBefore.width());
    EXPECT_EQ(child<QTableView>("lvVRX")->columnWidth(0), listBefore.width() - 4);
    viewer.resize(8000 / 15, 3000 / 15);
    settle();
    EXPECT_EQ(viewer.size(), QSize(9435 / 15, 4110 / 15));
    EXPECT_EQ(child("lblLog")->geometry().bottom() + 1, 274 - 12);

    QWidget form;
    auto* layout = new QVBoxLayout(&form);
    layout->addWidget(new ConnViewer(services));
    form.resize(10, 10);
    EXPECT_GE(form.minimumSizeHint().height(), 274);
}

TEST_F(ConnViewerFaceTest, TellsTheDownloadFolderAndLinksWhenItIsTold) {
    viewer.setProperty("File", "/plant/VeltRTU.ini");
    EXPECT_EQ(viewer.CartellaDownload(), "/plant\\");
    viewer.show();
    settle();
    EXPECT_THAT(takeLog(), ElementsAre("ConnettiRuntime VELT Viewer ''"))
        << "a File of the form names no host";
    viewer.File("VeltRTU.ini");
    EXPECT_THAT(takeLog(), ElementsAre("ConnettiRuntime VELT Viewer 'plc'"));
}

}  // namespace
}  // namespace velt::ui
