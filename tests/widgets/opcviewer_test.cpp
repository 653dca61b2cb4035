// SPDX-License-Identifier: MIT
// The OPC viewer as an operator uses it, over a fake server.
#include "widgets/opcviewer.h"

#include "tests/fakes/fakeservices.h"
#include "tests/qtmain.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>

#include <gmock/gmock.h>

#include <set>

namespace velt::ui {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class OPCViewerFaceTest : public testing::Test {
protected:
    OPCViewerFaceTest() {
        plant().branches = {
            {"RTU01", {{"Livello"}, {"Rotto", vartype::R8, true}, {"Soglia", vartype::I2}}},
            {"PC_Server", {{"Versione"}}},
            {"RTU02", {{"Pompa", vartype::Bool}}}};
    }
    ~OPCViewerFaceTest() override { settle(); }

    void start() {
        viewer.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&viewer));
        viewer.activateWindow();
        settle();
    }
    /// With all variables in the table.
    void startWithItems() {
        start();
        click("cmdSeleziona");
        click("cmdAggiornaDati");
        const int count = plant().branches.size() == 3 ? 4 : 0;
        EXPECT_TRUE(eventually([&] { return model("lvItem")->rowCount() >= count; }));
    }
    template <typename T = QWidget>
    T* child(const char* name) {
        T* found = viewer.findChild<T*>(name);
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    QAbstractItemModel* model(const char* view) { return child<QTableView>(view)->model(); }
    void click(const char* button) {
        QTest::mouseClick(child<QPushButton>(button), Qt::LeftButton);
        settle();
    }
    std::vector<std::string> texts(const char* view, int column = 0) {
        std::vector<std::string> result;
        for (int row = 0; row < model(view)->rowCount(); ++row)
            result.push_back(model(view)->index(row, column).data().toString().toStdString());
        return result;
    }
    std::vector<std::string> checked() {
        std::vector<std::string> result;
        for (int row = 0; row < model("lvVRX")->rowCount(); ++row)
            if (model("lvVRX")->index(row, 0).data(Qt::CheckStateRole) == Qt::Checked)
                result.push_back(model("lvVRX")->index(row, 0).data().toString().toStdString());
        return result;
    }
    void change(std::vector<std::int32_t> handles, Variant value, std::int32_t quality) {
        DataChangeArgs args;
        args.ClientHandles = std::move(handles);
        args.ItemValues.assign(args.ClientHandles.size(), value);
        args.Qualities.assign(args.ClientHandles.size(), quality);
        args.TimeStamps.assign(args.ClientHandles.size(), Date(38790.5));
        services.opcFactory.server->groups.groups.at("Group")->DataChange.raise(args);
    }
    fakes::FakePlant& plant() { return services.opcFactory.plant; }

    fakes::FakeServices services;
    OPCViewer viewer{services};
};

TEST_F(OPCViewerFaceTest, BearsTheCaptionsThatOperatorsKnowAndTheirMnemonicsDiffer) {
    const std::pair<const char*, const char*> captions[] = {
        {"cmdVrxFromOPC", "Aggiorna Elenco &RTU"}, {"cmdAggiornaDati", "&Aggiorna Variabili"},
        {"cmdSeleziona", "&Seleziona Tutti"},      {"cmdDeseleziona", "&Deseleziona Tutti"},
        {"cmdEliminaTutto", "&Elimina Tutto"},     {"cmdScrivi", "S&crivi"}};
    for (const auto& [name, caption] : captions)
        EXPECT_EQ(child<QPushButton>(name)->text(), caption);
    EXPECT_EQ(child<QGroupBox>("frmVRX")->title(), "Elenco RTU");
    EXPECT_NE(child<QGroupBox>("frmScrivi"), nullptr);
    EXPECT_EQ(child<QLineEdit>("txtScrittura")->toolTip(),
              "Immettere il valore da scrivere (\";\" separatore per array)");
    EXPECT_EQ(child("cmdScrivi")->toolTip(), "Esegue la scrittura dell'Item selezionato");
    start();
    std::vector<QString> heads;
    for (int column = 0; column < 4; ++column)
        heads.push_back(model("lvItem")->headerData(column, Qt::Horizontal).toString());
    EXPECT_THAT(heads, ElementsAre("Item", "Valore OPC", "Qualità", "Time Stamp Server"));

    std::set<QString> mnemonics;
    int count = 0;
    const auto take = [&](const QString& text) {
        const QKeySequence key = QKeySequence::mnemonic(text);
        if (key.isEmpty()) return;
        mnemonics.insert(key.toString());
        ++count;
    };
    for (const auto* button : viewer.findChildren<QAbstractButton*>()) take(button->text());
    for (const auto* label : viewer.findChildren<QLabel*>()) take(label->text());
    EXPECT_EQ(count, 8);
    EXPECT_EQ(mnemonics.size(), 8U);
}

TEST_F(OPCViewerFaceTest, TabGoesFromTheStationsToTheWriting) {
    startWithItems();
    const char* order[] = {"lvVRX",           "cmdVrxFromOPC",   "cmdSeleziona", "cmdDeseleziona",
                           "cmdAggiornaDati", "cmdEliminaTutto", "txtFiltro",    "chkNonGood",
                           "lvItem",          "txtScrittura",    "cmdScrivi",    "lvVRX"};
    child(order[0])->setFocus();
    for (const char* name : order) {
        ASSERT_EQ(QApplication::focusWidget()->objectName().toStdString(), name);
        const auto* button = qobject_cast<QAbstractButton*>(QApplication::focusWidget());
        EXPECT_TRUE(button || !QApplication::focusWidget()->accessibleName().isEmpty()) << name;
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
}

TEST_F(OPCViewerFaceTest, StationsAreTickedByClickSpaceAndActivation) {
    start();
    EXPECT_THAT(texts("lvVRX"), ElementsAre("RTU01", "RTU02"));
    auto* list = child<QTableView>("lvVRX");
    const auto at = [&](int row) { return list->visualRect(list->model()->index(row, 0)); };
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, at(0).topLeft() + QPoint(10, 10));
    settle();
    EXPECT_THAT(checked(), ElementsAre("RTU01"));
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Space);
    EXPECT_THAT(checked(), ElementsAre("RTU01", "RTU02"));
    QTest::keyClick(list, Qt::Key_Return);
    settle();
    EXPECT_THAT(checked(), ElementsAre("RTU01"));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, at(1).center());
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, at(1).center());
    settle();
    EXPECT_THAT(checked(), ElementsAre("RTU01", "RTU02"));
}

TEST_F(OPCViewerFaceTest, ShowsWhatTheServerSendsAndMarksWhatIsNotGood) {
    startWithItems();
    EXPECT_THAT(texts("lvItem"),
                ElementsAre("RTU01.Livello", "RTU01.Rotto", "RTU01.Soglia", "RTU02.Pompa"));
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
    EXPECT_EQ(child<QLabel>("lblConteggio")->text(), "2 di 4 Item");
    QTest::keyClicks(child("txtFiltro"), "rtu02");
    EXPECT_THAT(texts("lvItem"), ElementsAre("RTU02.Pompa"));
}

TEST_F(OPCViewerFaceTest, WritesByKeyboardIntoTheSelectedItem) {
    startWithItems();
    auto* table = child<QTableView>("lvItem");
    auto* text = child<QLineEdit>("txtScrittura");
    QTest::keyClicks(text, "40");
    QTest::keyClick(text, Qt::Key_Return);
    settle();
    EXPECT_THAT(plant().written, IsEmpty()) << "nothing is selected";
    table->setFocus();
    for (int i = 0; i < 2; ++i) QTest::keyClick(table, Qt::Key_Down);
    EXPECT_EQ(child<QLabel>("lblItem")->text(), "Item: RTU01.Soglia");
    QTest::keyClick(text, Qt::Key_Return);
    settle();
    ASSERT_EQ(plant().written.size(), 1U);
    EXPECT_EQ(plant().written[0].first, "RTU01.Soglia");
    EXPECT_EQ(plant().written[0].second, Variant(std::int16_t{40}));

    // After the rows have changed places it is the same item still.
    QHeaderView* header = table->horizontalHeader();
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, QPoint(20, 5));
    settle();
    EXPECT_EQ(texts("lvItem").front(), "RTU02.Pompa");
    QTest::keyClick(text, Qt::Key_Enter);
    settle();
    ASSERT_EQ(plant().written.size(), 2U);
    EXPECT_EQ(plant().written[1].first, "RTU01.Soglia");

    // A row that is not in sight is not written to.
    QTest::keyClicks(child("txtFiltro"), "Pompa");
    click("cmdScrivi");
    EXPECT_EQ(plant().written.size(), 2U);
    EXPECT_EQ(child<QLabel>("lblItem")->text(), "Nessun Item selezionato");
    EXPECT_THAT(services.messages.shown, IsEmpty());
}

TEST_F(OPCViewerFaceTest, NothingOldLooksLiveWhenTheServerIsLost) {
    startWithItems();
    change({1}, 12.5, 192);
    services.opcFactory.server->die();
    services.opcFactory.server->ServerShutDown.raise("spento");
    EXPECT_THAT(texts("lvItem"), IsEmpty());
    const QImage empty = child<QTableView>("lvItem")->grab().toImage();
    EXPECT_THAT(texts("lvVRX"), ElementsAre("RTU01", "RTU02"));

    plant().reachable = true;
    click("cmdAggiornaDati");
    EXPECT_TRUE(eventually([&] { return texts("lvItem").size() == 4; }));
    change({5}, 1.0, 192);
    EXPECT_TRUE(eventually([&] { return texts("lvItem", 1)[0] == "1"; }));
    click("cmdEliminaTutto");
    EXPECT_THAT(texts("lvItem"), IsEmpty());
    EXPECT_NE(child<QTableView>("lvItem")->grab().toImage(), empty) << "it said that it was lost";
}

TEST_F(OPCViewerFaceTest, TenThousandVariablesArePaintedTogether) {
    plant().branches = {{"RTU01", {}}};
    for (int i = 1; i <= 10000; ++i)
        plant().branches[0].second.push_back({"V" + std::to_string(i)});
    startWithItems();
    EXPECT_TRUE(eventually([&] { return model("lvItem")->rowCount() == 10000; }));
    QSignalSpy changed(model("lvItem"), &QAbstractItemModel::dataChanged);
    std::vector<std::int32_t> handles;
    for (int i = 1; i <= 10000; ++i) handles.push_back(i);
    for (const double value : {1.0, 2.0, 3.0}) change(handles, value, 192);
    EXPECT_TRUE(eventually([&] { return changed.size() > 0; }));
    EXPECT_EQ(texts("lvItem", 1)[9999], "3");
    EXPECT_EQ(changed.size(), 1);
}

TEST_F(OPCViewerFaceTest, ItsHostnameCountsWhenTheFormLoadsAndWhenTheHostAssignsIt) {
    viewer.setProperty("Hostname", "server1");
    EXPECT_THAT(plant().log, IsEmpty());
    start();
    EXPECT_THAT(plant().log[1], HasSubstr("on 'server1'"));
    plant().branches.push_back({"RTU03", {}});
    viewer.Hostname("server2");
    EXPECT_THAT(texts("lvVRX"), ElementsAre("RTU01", "RTU02", "RTU03"));
    viewer.Terminate();
    EXPECT_EQ(plant().state, opc::Disconnected);
}

TEST_F(OPCViewerFaceTest, HasAMinimumSizeOnAnyForm) {
    QWidget form;
    auto* inner = new OPCViewer(services, &form);
    inner->resize(10, 10);
    form.show();
    settle();
    EXPECT_GE(inner->width(), 600);
    EXPECT_GE(inner->height(), 280);
    EXPECT_LE(inner->width(), 800);
    EXPECT_LE(inner->height(), 420);
}

}  // namespace
}  // namespace velt::ui
