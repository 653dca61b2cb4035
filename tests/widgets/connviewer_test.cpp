// SPDX-License-Identifier: MIT
#include "widgets/connviewer.h"

#include "tests/widgets/facetest.h"

#include <QLabel>

#include <set>

namespace velt::ui {
namespace {

using testing::Contains;
using testing::ElementsAre;

class ConnViewerFaceTest : public FaceTest<ConnViewer> {
protected:
    ConnViewerFaceTest() {
        services.settingsFactory.files["VeltRTU.ini"]["Common"]["Hostname"] = "plc";
        QObject::connect(&viewer, &ControlWidget::runtimeError,
                         [this](int number, const QString&) { errors.push_back(number); });
        viewer.File("VeltRTU.ini");
        show();
    }
    fakes::FakeRuntimeClient& client() { return *services.runtimes.made.back().lock(); }
    std::vector<std::string> takeLog() { return std::exchange(services.runtimes.log, {}); }
    std::string text(const char* label) { return child<QLabel>(label)->text().toStdString(); }

    std::vector<int> errors;
};

TEST_F(ConnViewerFaceTest, DialsDownloadsAndHangsUpAsTheRuntimeSays) {
    EXPECT_EQ(viewer.CartellaDownload(), "\\");
    EXPECT_EQ(text("lblHostname"), "plc");
    EXPECT_THAT(takeLog(), Contains("ConnettiRuntime VELT Viewer 'plc'"));
    client().link({"RTU01", "", "RTU02"});
    EXPECT_THAT(texts("lvVRX"), ElementsAre("RTU01", "RTU02"));
    EXPECT_EQ(text("lblProgetto") + " " + text("lblVersione"), "Acquedotto 1.2.3");
    takeLog();
    clickRow("lvVRX", 1);
    EXPECT_THAT(takeLog(), ElementsAre("RichiediStatoRTU RTU02"));

    const QModelIndex row = model("lvVRX")->index(1, 0);
    std::set<QByteArray> pictures;
    for (const int code : {0, 1, 2, 3, 4, 5}) {
        client().Stato.raise("RTU02", code);
        EXPECT_EQ(row.data(Qt::AccessibleTextRole).toString().toStdString(),
                  "RTU02: " + text("lblStato"));
        // Without colours they must still differ.
        const auto picture = row.data(Qt::DecorationRole).value<QIcon>().pixmap(32).toImage();
        const QImage grey = picture.convertToFormat(QImage::Format_Alpha8);
        pictures.insert(QByteArray(reinterpret_cast<const char*>(grey.constBits()),
                                   static_cast<int>(grey.sizeInBytes())));
    }
    EXPECT_EQ(pictures.size(), 6U);
    EXPECT_EQ(text("lblStato"), "Downloading");
    EXPECT_FALSE(child("cmdDownload")->isEnabled());

    takeLog();
    for (const int code : {1, 0}) {
        client().Stato.raise("RTU02", code);
        click(code == 1 ? "cmdDisconnetti" : "cmdConnetti");
    }
    click("cmdDownload");
    click("cmdDownloadAll");
    EXPECT_THAT(takeLog(), ElementsAre("DisconnettiRTU RTU02", "ConnettiRTU RTU02",
                                       "DownloadRTU RTU02", "DownloadTutte"));
    client().Errore.raise("linea occupata", "RTU02");
    EXPECT_EQ(text("lblLog"), "'RTU02': linea occupata");
    const ExpectedWarning warning("errore 5");
    client().Stato.raise("nobody", 2);
    client().lose();
    EXPECT_EQ(text("lblLog"), "Runtime non attivo!!");
    EXPECT_FALSE(row.data(Qt::DecorationRole).isValid()) << "an old state must not look live";
    takeLog();
    EXPECT_TRUE(eventually([&] { return !services.runtimes.log.empty(); })) << "it tries again";
    viewer.Terminate();
    EXPECT_THAT(takeLog(), Contains("ChiudiRuntime"));
    EXPECT_THAT(errors, ElementsAre(5)) << "of a station that is not there";
}

TEST_F(ConnViewerFaceTest, FollowsItsSize) {
    const QRect listBefore = child("lvVRX")->geometry();
    viewer.resize(900, 500);
    settle();
    EXPECT_EQ(child("frmSelezioneDati")->size(), QSize(900, 500));
    EXPECT_EQ(child("lblLog")->geometry().bottomRight(), QPoint(900 - 13, 500 - 13));
    EXPECT_EQ(child("lvVRX")->geometry().bottomRight(), QPoint(listBefore.right(), 499));
    EXPECT_EQ(child<QTableView>("lvVRX")->columnWidth(0), listBefore.width() - 4);
}

}  // namespace
}  // namespace velt::ui
