// SPDX-License-Identifier: MIT
#include "alarmviewer/alarmviewer.h"

#include "tests/alarmviewer/alarmviewerfixture.h"

#include <gmock/gmock.h>

namespace velt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Message = fakes::FakeMessageBox::Message;

using AlarmViewerTest = AlarmViewerFixture;

const Message FileIsMissing{"Il File Allarmi non esiste!", 48, "Errore"};

TEST_F(AlarmViewerTest, TheFirstShowFillsTheListsAndSetsUpTheGrid) {
    startWith("allarmi.mdb", "");
    EXPECT_THAT(database().log,
                ElementsAre("GetConnection allarmi.mdb '' '' 60 3 3",
                            std::string(StationListQuery) + " | 3 3 1 -1", "Recordset.Close",
                            std::string(AlarmListQuery) + " | 3 3 1 -1", "Recordset.Close"));
    ASSERT_EQ(lvVRX.Count(), 3);
    EXPECT_EQ(lvVRX.Text(1), "RTU01") << "trimmed on the right";
    EXPECT_EQ(cmbAllarme.ListCount(), 2);
    EXPECT_EQ(cmbAllarme.ListIndex(), -1);
    EXPECT_TRUE(dg.locked && !dg.rowSizing && !dg.visible);
    EXPECT_EQ(dg.fontSize, 8);
    EXPECT_EQ(dg.headFont, std::pair(8, true));
    EXPECT_THAT(lvVRX.adjustments, ElementsAre(160));
    EXPECT_TRUE(t.Enabled());
    t.fire();
    EXPECT_FALSE(t.Enabled());
    EXPECT_THAT(lvVRX.adjustments, ElementsAre(160, 150));

    const auto before = database().log.size();
    viewer.Show();
    EXPECT_EQ(database().log.size(), before);
}

TEST_F(AlarmViewerTest, DesignTimeTouchesNothing) {
    ambient.userMode = false;
    startWith("allarmi.mdb", "a.ini");
    viewer.Terminate();
    EXPECT_THAT(database().log, IsEmpty());
    EXPECT_TRUE(services.settingsFactory.files.empty());
    EXPECT_FALSE(t.Enabled());
}

TEST_F(AlarmViewerTest, NamelessRowsAreNotListed) {
    database().answers[StationListQuery] = column("VRX", {Variant(Null{}), "", "   ", "RTU02"});
    startWith("allarmi.mdb", "");
    ASSERT_EQ(lvVRX.Count(), 1);
    EXPECT_EQ(lvVRX.Text(1), "RTU02");
}

TEST_F(AlarmViewerTest, AMissingFileIsToldAndNoFileOnlyClearsTheStations) {
    lvVRX.Add("", "kept");
    cmbAllarme.AddItem("kept");
    services.files.files.clear();
    viewer.File("allarmi.mdb");
    cmdAggiornaVRX.click();
    cmdAggiornaDati.click();
    EXPECT_THAT(messages(), ElementsAre(FileIsMissing, FileIsMissing));
    EXPECT_EQ(lvVRX.Count(), 1);
    EXPECT_FALSE(dg.visible);

    messages().clear();
    viewer.File("");
    cmdAggiornaVRX.click();
    EXPECT_EQ(lvVRX.Count(), 0);
    EXPECT_EQ(cmbAllarme.ListCount(), 1);
    EXPECT_THAT(messages(), IsEmpty());
}

TEST_F(AlarmViewerTest, AnErrorIsToldAndLeavesTheListsAsFarAsTheyWereFilled) {
    database().connectFailure = RuntimeError(3343, "Formato");
    startWith("allarmi.mdb", "");
    EXPECT_EQ(lvVRX.Count(), 0);
    EXPECT_TRUE(t.Enabled()) << "the start goes on";
    database().connectFailure.reset();
    database().failures.emplace(AlarmListQuery, RuntimeError(3061, "Colonna assente"));
    cmdAggiornaVRX.click();
    EXPECT_EQ(lvVRX.Count(), 3);
    EXPECT_EQ(cmbAllarme.ListCount(), 0);
    EXPECT_THAT(messages(),
                ElementsAre(Message{"Error N°: 3343\r\nDesc.: Formato", 48, "Error"},
                            Message{"Error N°: 3061\r\nDesc.: Colonna assente", 48, "Error"}));
}

TEST_F(AlarmViewerTest, AClosedConnectionIsOpenedAndAnOpenOneKept) {
    database().connectionState = ado::StateClosed;
    startWith("allarmi.mdb", "");
    viewer.File("another.mdb");
    cmdAggiornaDati.click();
    EXPECT_EQ(std::ranges::count(database().log, "Connection.Open"), 1);
    EXPECT_EQ(std::ranges::count(database().log, "GetConnection another.mdb '' '' 60 3 3"), 0);
    EXPECT_TRUE(dg.visible);
}

TEST_F(AlarmViewerTest, ShowsTheRowsAndCountsThem) {
    startWith("allarmi.mdb", "");
    database().log.clear();
    cmdAggiornaDati.click();
    EXPECT_THAT(database().log, ElementsAre(AllAlarms + " | 3 3 1 -1"));
    EXPECT_TRUE(dg.visible);
    EXPECT_EQ(Adodc.caption, "Record 1 of 2");
    EXPECT_EQ(dg.ColumnCaption(1), "a b c");
    Adodc.moveTo(2);
    EXPECT_EQ(Adodc.caption, "Record 2 of 2");

    // The second refresh reuses the recordset and starts at the first record again.
    const auto bound = Adodc.Recordset();
    database().log.clear();
    cmdAggiornaDati.click();
    EXPECT_THAT(database().log, ElementsAre("Recordset.Close", AllAlarms + " | 3 3 1 -1"));
    EXPECT_EQ(Adodc.Recordset(), bound);
    EXPECT_EQ(Adodc.caption, "Record 1 of 2");

    database().answers.erase(AllAlarms);
    cmdAggiornaDati.click();
    EXPECT_EQ(Adodc.caption, "No Record ");
}

TEST_F(AlarmViewerTest, AFailedOrCancelledQueryKeepsWhatIsShown) {
    startWith("allarmi.mdb", "");
    cmdAggiornaDati.click();
    database().failures.emplace(AllAlarms, RuntimeError(3075, "Sintassi"));
    cmdAggiornaDati.click();
    EXPECT_THAT(messages(), ElementsAre(Message{"Error N°: 3075\r\nDesc.: Sintassi", 48, "Error"}));
    EXPECT_EQ(Adodc.caption, "Record 1 of 2");
    EXPECT_EQ(dg.ColumnCount(), 2);
    Adodc.moveTo(2);
    EXPECT_EQ(Adodc.caption, "Record 2 of 2");

    messages().clear();
    database().failures.clear();
    database().failures.emplace(AllAlarms, RuntimeError(ErrorNumber::Cancelled));
    cmdAggiornaDati.click();
    EXPECT_THAT(messages(), IsEmpty());

    database().failures.clear();
    cmdAggiornaDati.click();
    EXPECT_EQ(Adodc.caption, "Record 1 of 2");
}

TEST_F(AlarmViewerTest, TheQueryGoesByTheWidgets) {
    startWith("allarmi.mdb", "");
    chkDataFinale.toggle();
    DataFinale.Value(Date::fromFields({2006, 3, 14, 0, 0, 0, 0}));
    chkAllarme.toggle();
    cmbAllarme.ListIndex(1);
    lvVRX.Checked(2, true);
    database().log.clear();
    cmdAggiornaDati.click();
    ASSERT_FALSE(database().log.empty());
    EXPECT_EQ(database().log[0].substr(0, database().log[0].find(" |")),
              "SELECT Data, VRX, Allarme, Descrizione, Evento FROM Allarmi WHERE (" +
                  database().DateCondition("Data", false, {}, true, DataFinale.Value()) +
                  " AND Allarme is <Pompa ferma> AND ((VRX = 'RTU02'))) ORDER BY Data");
}

TEST_F(AlarmViewerTest, AnEditedTimeIsCopiedIntoItsDate) {
    DataIniziale.Value(Date::fromFields({2006, 3, 14, 18, 45, 12, 0}));
    TimeIniziale.edit(Date::fromFields({1999, 1, 1, 7, 30, 59, 500}));
    EXPECT_EQ(DataIniziale.Value(), Date::fromFields({2006, 3, 14, 7, 30, 0, 0}));
    DataFinale.Value(Date::fromFields({2006, 3, 15, 18, 45, 12, 0}));
    TimeFinale.edit(Date::fromFields({1999, 1, 1, 0, 0, 0, 0}));
    EXPECT_EQ(DataFinale.Value(), Date::fromFields({2006, 3, 15, 0, 0, 0, 0}));
}

TEST_F(AlarmViewerTest, MarksByButtonsAndDoubleClick) {
    startWith("allarmi.mdb", "");
    cmdSeleziona.click();
    EXPECT_THAT(checkedTexts(lvVRX), ElementsAre("RTU01", "RTU02", "RTU03"));
    lvVRX.doubleClick(2);
    EXPECT_THAT(checkedTexts(lvVRX), ElementsAre("RTU01", "RTU03"));
    lvVRX.doubleClick(0);  // beside the rows
    EXPECT_THAT(checkedTexts(lvVRX), ElementsAre("RTU01", "RTU03"));
    cmdAggiornaVRX.click();
    EXPECT_THAT(checkedTexts(lvVRX), IsEmpty()) << "a refill starts without marks";
    lvVRX.Checked(1, true);
    cmdDeseleziona.click();
    EXPECT_THAT(checkedTexts(lvVRX), IsEmpty());
}

TEST_F(AlarmViewerTest, ColoursReachTheFrame) {
    viewer.BackColor(0x0000FF);
    viewer.ForeColor(0x00FF00);
    EXPECT_EQ(control.backColor, 0x0000FFu);
    EXPECT_EQ(frmAllarme.backColor, 0x0000FFu);
    EXPECT_EQ(frmAllarme.foreColor, 0x00FF00u);
}

TEST_F(AlarmViewerTest, TerminateReleasesAndMayComeTwice) {
    startWith("allarmi.mdb", "");
    cmdAggiornaDati.click();
    viewer.Terminate();
    viewer.Terminate();
    EXPECT_EQ(lvVRX.Count(), 0);
    EXPECT_EQ(cmbAllarme.ListCount(), 0);
    EXPECT_EQ(Adodc.Recordset(), nullptr);
    EXPECT_FALSE(t.Enabled());

    // An operator who goes on gets a new connection and a grid that is bound again.
    cmdAggiornaDati.click();
    EXPECT_EQ(Adodc.caption, "Record 1 of 2");
}

}  // namespace
}  // namespace velt
