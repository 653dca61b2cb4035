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
    database().answers[StationListQuery] =
        column("VRX", {Variant(Null{}), "", "   ", "RTU01  ", "RTU02"});
    startWith("allarmi.mdb", "");
    viewer.Show();
    EXPECT_THAT(database().log,
                ElementsAre("GetConnection allarmi.mdb '' '' 60 3 3",
                            std::string(StationListQuery) + " | 3 3 1 -1", "Recordset.Close",
                            std::string(AlarmListQuery) + " | 3 3 1 -1", "Recordset.Close"));
    ASSERT_EQ(lvVRX.Count(), 2) << "without the rows that have no name";
    EXPECT_EQ(lvVRX.Text(1), "RTU01") << "trimmed on the right";
    EXPECT_EQ(cmbAllarme.ListCount(), 2);
    EXPECT_TRUE(dg.locked && !dg.rowSizing && !dg.visible);
    t.fire();
    EXPECT_FALSE(t.Enabled());
    EXPECT_THAT(lvVRX.adjustments, ElementsAre(160, 150));
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

    messages().clear();
    viewer.File("");
    cmdAggiornaVRX.click();
    EXPECT_EQ(lvVRX.Count(), 0);
    EXPECT_EQ(cmbAllarme.ListCount(), 1);
    EXPECT_THAT(messages(), IsEmpty());
}

TEST_F(AlarmViewerTest, AnErrorIsToldAndLeavesTheListsAsFarAsTheyWereFilled) {
    startWith("allarmi.mdb", "");
    cmdSeleziona.click();
    database().failures.emplace(AlarmListQuery, RuntimeError(3061, "Colonna assente"));
    cmdAggiornaVRX.click();
    EXPECT_EQ(lvVRX.Count(), 3);
    EXPECT_THAT(checkedTexts(lvVRX), IsEmpty()) << "a refill starts without marks";
    EXPECT_EQ(cmbAllarme.ListCount(), 0);
    EXPECT_THAT(messages(),
                ElementsAre(Message{"Error N°: 3061\r\nDesc.: Colonna assente", 48, "Error"}));
}

TEST_F(AlarmViewerTest, ShowsTheRowsOfItsOneConnectionAndCountsThem) {
    database().connectionState = ado::StateClosed;
    startWith("allarmi.mdb", "");
    viewer.File("another.mdb");
    cmdAggiornaDati.click();
    EXPECT_EQ(std::ranges::count(database().log, "Connection.Open"), 1);
    EXPECT_EQ(std::ranges::count(database().log, "GetConnection another.mdb '' '' 60 3 3"), 0);
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
    database().failures.clear();
    database().failures.emplace(AllAlarms, RuntimeError(ErrorNumber::Cancelled));
    cmdAggiornaDati.click();
    EXPECT_EQ(messages().size(), 1U) << "who cancels is not told so";
    EXPECT_EQ(dg.ColumnCount(), 2);
    Adodc.moveTo(2);
    EXPECT_EQ(Adodc.caption, "Record 2 of 2");
}

TEST_F(AlarmViewerTest, AnEditedTimeIsCopiedIntoItsDate) {
    DataFinale.Value(Date::fromFields({2006, 3, 14, 18, 45, 12, 0}));
    TimeFinale.edit(Date::fromFields({1999, 1, 1, 7, 30, 59, 500}));
    EXPECT_EQ(DataFinale.Value(), Date::fromFields({2006, 3, 14, 7, 30, 0, 0}));
}

TEST_F(AlarmViewerTest, AfterTerminateAnOperatorMayGoOn) {
    startWith("allarmi.mdb", "");
    cmdAggiornaDati.click();
    dg.drag(0, 3000);
    viewer.Terminate();
    EXPECT_TRUE(services.settingsFactory.files.empty()) << "no FileIni";
    EXPECT_EQ(lvVRX.Count(), 0);
    EXPECT_EQ(cmbAllarme.ListCount(), 0);
    EXPECT_EQ(Adodc.Recordset(), nullptr);
    EXPECT_FALSE(t.Enabled());
    cmdAggiornaDati.click();
    EXPECT_EQ(Adodc.caption, "Record 1 of 2");
}

}  // namespace
}  // namespace velt
