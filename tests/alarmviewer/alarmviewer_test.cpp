// SPDX-License-Identifier: MIT
#include "tests/alarmviewer/alarmviewerfixture.h"

namespace velt {
namespace {

using Message = fakes::FakeMessageBox::Message;
using AlarmViewerTest = AlarmViewerFixture;

Message error(const char* text) { return {text, 48, "Error"}; }
const Message FileIsMissing{"Il File Allarmi non esiste!", 48, "Errore"};

TEST_F(AlarmViewerTest, TheFirstShowFillsTheListsAndSetsUpTheGrid) {
    database().connectionState = ado::StateClosed;
    startWith("allarmi.mdb", "");
    viewer.Show();
    EXPECT_THAT(database().log,
                ElementsAre("GetConnection allarmi.mdb '' '' 60 3 3", "Connection.Open",
                            std::string(StationListQuery) + " | 3 3 1 -1", "Recordset.Close",
                            std::string(AlarmListQuery) + " | 3 3 1 -1", "Recordset.Close"));
    EXPECT_THAT(lvVRX.texts(), ElementsAre("RTU01", "RTU02", "RTU03"))
        << "trimmed on the right, without the rows that have no name";
    EXPECT_EQ(cmbAllarme.ListCount(), 2);
    EXPECT_THAT(dg.looks, ElementsAre(0, 1, 8, 8, 1));
    EXPECT_FALSE(dg.visible);
    t.fire();
    EXPECT_FALSE(t.Enabled());
    EXPECT_THAT(lvVRX.adjustments, ElementsAre(160, 150));
    lvVRX.doubleClick(2);
    EXPECT_THAT(checkedTexts(lvVRX), ElementsAre("RTU02"));
    lvVRX.doubleClick(0);  // beside the rows

    database().failures.emplace(AlarmListQuery, RuntimeError(3061, "Colonna assente"));
    cmdAggiornaVRX.click();
    EXPECT_THAT(told(), ElementsAre(error("Error N°: 3061\r\nDesc.: Colonna assente")));
    EXPECT_EQ(lvVRX.Count(), 3);
    EXPECT_THAT(checkedTexts(lvVRX), IsEmpty()) << "a refill starts without marks";
    EXPECT_EQ(cmbAllarme.ListCount(), 0) << "the lists stay as far as they were filled";
}

TEST_F(AlarmViewerTest, AMissingFileIsToldAndNoFileOnlyClearsTheStations) {
    lvVRX.Add("", "kept");
    cmbAllarme.AddItem("kept");
    services.files.files.clear();
    viewer.File("allarmi.mdb");
    cmdAggiornaVRX.click();
    cmdAggiornaDati.click();
    EXPECT_THAT(told(), ElementsAre(FileIsMissing, FileIsMissing));
    EXPECT_EQ(lvVRX.Count(), 1);

    viewer.File("");
    cmdAggiornaVRX.click();
    EXPECT_EQ(lvVRX.Count(), 0);
    EXPECT_EQ(cmbAllarme.ListCount(), 1);
    EXPECT_THAT(told(), IsEmpty());
}

TEST_F(AlarmViewerTest, ShowsTheRowsOfItsOneConnectionAndCountsThem) {
    startWith("allarmi.mdb", "");
    viewer.File("another.mdb");
    cmdAggiornaDati.click();
    EXPECT_TRUE(dg.visible);
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

    database().failures.emplace(AllAlarms, RuntimeError(3075, "Sintassi"));
    cmdAggiornaDati.click();
    EXPECT_THAT(told(), ElementsAre(error("Error N°: 3075\r\nDesc.: Sintassi")));
    database().failures.insert_or_assign(AllAlarms, RuntimeError(ErrorNumber::Cancelled));
    cmdAggiornaDati.click();
    EXPECT_THAT(told(), IsEmpty()) << "who cancels is not told so";
    Adodc.moveTo(2);
    EXPECT_EQ(Adodc.caption, "Record 2 of 2") << "what was shown is kept";

    database().failures.clear();
    database().answers.erase(AllAlarms);
    cmdAggiornaDati.click();
    EXPECT_EQ(Adodc.caption, "No Record ");
    viewer.Terminate();
    EXPECT_TRUE(services.settingsFactory.files.empty()) << "no FileIni";
    EXPECT_EQ(lvVRX.Count() + cmbAllarme.ListCount(), 0);
    EXPECT_EQ(Adodc.Recordset(), nullptr);
    EXPECT_FALSE(t.Enabled());
    cmdAggiornaDati.click();
    EXPECT_THAT(told(), ElementsAre(FileIsMissing)) << "an operator may go on, with the new file";
}

TEST_F(AlarmViewerTest, AnEditedTimeIsCopiedIntoItsDate) {
    DataFinale.Value(Date::fromFields({2006, 3, 14, 18, 45, 12}));
    TimeFinale.edit(Date::fromFields({1999, 1, 1, 7, 30, 59, 500}));
    EXPECT_EQ(DataFinale.Value(), Date::fromFields({2006, 3, 14, 7, 30}));
    EXPECT_NE(DataIniziale.Value(), DataFinale.Value());
}

}  // namespace
}  // namespace velt
