// SPDX-License-Identifier: MIT
#include "widgets/opcviewer.h"

#include "tests/widgets/facetest.h"

#include <QHeaderView>
#include <QLabel>

namespace velt::ui {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class OPCViewerFaceTest : public FaceTest<OPCViewer> {
protected:
    OPCViewerFaceTest() {
        plant().branches = {
            {"RTU01", {{"Livello"}, {"Rotto", vartype::R8, true}, {"Soglia", vartype::I2}}},
            {"PC_Server", {{"Versione"}}},
            {"RTU02", {{"Pompa", vartype::Bool}}}};
    }
    /// With all variables in the table.
    void startWithItems() {
        show();
        click("cmdSeleziona");
        click("cmdAggiornaDati");
        EXPECT_TRUE(eventually([&] { return model("lvItem")->rowCount() == 4; }));
    }
    void change(std::vector<std::int32_t> handles, const Variant& value, std::int32_t quality) {
        const std::size_t count = handles.size();
        services.opcFactory.server->groups.groups.at("Group")->DataChange.raise(
            {.ClientHandles = std::move(handles),
             .ItemValues = std::vector(count, value),
             .Qualities = std::vector(count, quality),
             .TimeStamps = std::vector(count, Date(38790.5))});
    }
    std::string text(const char* label) { return child<QLabel>(label)->text().toStdString(); }
    fakes::FakePlant& plant() { return services.opcFactory.plant; }
};

TEST_F(OPCViewerFaceTest, ShowsWhatTheServerSendsUntilItIsLost) {
    viewer.setProperty("Hostname", "server1");
    EXPECT_THAT(plant().log, IsEmpty());
    startWithItems();
    EXPECT_THAT(plant().log[1], testing::HasSubstr("on 'server1'"));
    EXPECT_THAT(texts("lvVRX"), ElementsAre("RTU01", "RTU02"));
    clickRow("lvVRX", 0);
    QTest::keyClick(child("lvVRX"), Qt::Key_Return);
    settle();
    EXPECT_THAT(checked(), ElementsAre("RTU02"));
    const char* heads[] = {"Item", "Valore OPC", "Qualità", "Time Stamp Server"};
    for (int column = 0; column < 4; ++column)
        EXPECT_EQ(model("lvItem")->headerData(column, Qt::Horizontal), heads[column]);
    EXPECT_THAT(texts("lvItem", 1), ElementsAre("", "", "", ""));
    change({1, 3, 77}, 12.5, 192);
    change({4}, true, 24);
    EXPECT_TRUE(eventually([&] { return texts("lvItem", 1)[0] == "12,5"; }));
    EXPECT_THAT(texts("lvItem", 1), ElementsAre("12,5", "", "12,5", "Vero"));
    EXPECT_THAT(texts("lvItem", 2), ElementsAre("Good", "", "Good", "Comm Failure"));
    EXPECT_EQ(texts("lvItem", 3)[0], "14/03/2006 12.00.00");
    EXPECT_EQ(model("lvItem")->index(1, 0).data(Qt::AccessibleTextRole),
              "RTU01.Rotto, Item rifiutato dal server");

    QTest::mouseClick(child("chkNonGood"), Qt::LeftButton, {}, QPoint(8, 8));
    EXPECT_THAT(texts("lvItem"), ElementsAre("RTU01.Rotto", "RTU02.Pompa"));
    EXPECT_EQ(text("lblConteggio"), "2 di 4 Item");
    QTest::keyClicks(child("txtFiltro"), "rtu02");
    EXPECT_THAT(texts("lvItem"), ElementsAre("RTU02.Pompa"));

    const auto picture = [this] { return child("lvItem")->grab().toImage(); };
    services.opcFactory.server->die();
    services.opcFactory.server->ServerShutDown.raise("spento");
    EXPECT_THAT(texts("lvItem"), IsEmpty()) << "nothing old may look live";
    const QImage lost = picture();
    plant().reachable = true;
    click("cmdAggiornaDati");
    EXPECT_TRUE(eventually([&] { return texts("lvItem").size() == 1; }));
    click("cmdEliminaTutto");
    EXPECT_NE(picture(), lost) << "it said that it was lost";
}

TEST_F(OPCViewerFaceTest, WritesByKeyboardIntoTheItemThatIsNamed) {
    startWithItems();
    auto* table = child<QTableView>("lvItem");
    QWidget* input = child("txtScrittura");
    QTest::keyClicks(input, "40");
    QTest::keyClick(input, Qt::Key_Return);
    settle();
    EXPECT_THAT(plant().written, IsEmpty()) << "nothing is selected";
    table->setFocus();
    for (const Qt::Key key : {Qt::Key_PageDown, Qt::Key_Up}) QTest::keyClick(table, key);
    EXPECT_EQ(text("lblItem"), "Item: RTU01.Soglia");
    // After the rows have changed places it is the same item still.
    QTest::mouseClick(table->horizontalHeader()->viewport(), Qt::LeftButton, {}, QPoint(20, 5));
    settle();
    EXPECT_EQ(texts("lvItem").front(), "RTU02.Pompa");
    QTest::keyClick(input, Qt::Key_Enter);
    settle();
    ASSERT_THAT(plant().written, SizeIs(1));
    EXPECT_EQ(plant().written[0].first, "RTU01.Soglia");
    EXPECT_EQ(plant().written[0].second, Variant(std::int16_t{40}));

    // A row that is not in sight is not written to.
    QTest::keyClicks(child("txtFiltro"), "Pompa");
    click("cmdScrivi");
    EXPECT_THAT(plant().written, SizeIs(1));
    EXPECT_EQ(text("lblItem"), "Nessun Item selezionato");
    EXPECT_THAT(services.messages.shown, IsEmpty());
}

}  // namespace
}  // namespace velt::ui
