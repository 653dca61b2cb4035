// SPDX-License-Identifier: MIT
#include "alarmviewer/querybuilder.h"
#include "tests/alarmviewer/alarmviewerwidgets.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Message = fakes::FakeMessageBox::Message;

Message error(const char* text) { return {text, 48, "Error"}; }
const Message FileIsMissing{"Il File Allarmi non esiste!", 48, "Errore"};

const std::string AllAlarms =
    "SELECT Data, VRX, Allarme, Descrizione, Evento FROM Allarmi ORDER BY Data";

/// An alarm viewer on fakes; the file "allarmi.mdb" exists and lists three stations, two alarms.
class AlarmViewerTest : public testing::Test, protected AlarmViewerWidgets {
protected:
    using Rows = std::vector<std::vector<Variant>>;

    AlarmViewerTest() {
        services.files.files.insert("allarmi.mdb");
        answer(StationListQuery, {"VRX"}, {{"RTU01  "}, {"RTU02"}, {Null{}}, {"   "}, {"RTU03"}});
        answer(AlarmListQuery, {"Allarme"}, {{"Livello alto"}, {"Pompa ferma"}});
        answer(AllAlarms, {"Data", "a_b_c"}, {{Date(1.0), "x"}, {Date(2.0), "y"}});
        ambient.displayName = "AlarmViewer1";
    }
    void answer(const std::string& query, std::vector<std::string> columns, Rows rows) {
        database().answers[query] =
            std::make_shared<fakes::FakeRowSet>(std::move(columns), std::move(rows));
    }
    /// As a host does it at run time.
    void startWith(const std::string& file, const std::string& fileIni) {
        viewer.File(file);
        viewer.FileIni(fileIni);
        viewer.Show();
    }
    fakes::FakeDatabase& database() { return services.fakeDatabase; }
    /// What the operator was told since the last call.
    std::vector<fakes::FakeMessageBox::Message> told() {
        return std::exchange(services.messages.shown, {});
    }
    /// The keys that stand in this instance's section of "a.ini".
    fakes::FakeSettingsFactory::Keys& saved() {
        return services.settingsFactory.files["a.ini"]["AlarmViewer_AlarmViewer1"];
    }

    fakes::FakeServices services;
    AlarmViewer viewer{form, ambient, services};
};

TEST_F(AlarmViewerTest, RestoresItsKeysAndLetsNothingWipeThem) {
    saved() = {{"isStart", "0"},
               {"isEnd", "1"},
               {"startDate", "14/03/2006 07:30:00"},
               {"endDate", "18/04/2006 07.31.00"},
               {"AlarmCondition", "1"},
               {"AlarmIndex", "0"},
               {"ListCount", "9"},
               {"List1", "1"},
               {"List3", "1"}};
    startWith("allarmi.mdb", "a.ini");
    EXPECT_EQ(DataIniziale.Value(), Date::fromFields({2006, 3, 14, 7, 30}));
    EXPECT_EQ(TimeIniziale.Value(), DataIniziale.Value());
    EXPECT_EQ(cmbAllarme.Text(), "Livello alto");
    EXPECT_THAT(checkedTexts(lvVRX), ElementsAre("RTU01", "RTU03"));

    auto expected = saved();
    expected["startDate"] = "14/03/2006 07.30.00";
    expected["ListCount"] = "3";
    expected["List2"] = "0";
    viewer.Terminate();
    EXPECT_EQ(saved(), expected);
    viewer.Terminate();
    EXPECT_EQ(saved(), expected) << "a second Terminate()";
    EXPECT_EQ(services.settingsFactory.commits, 1);

    services.files.files.clear();
    cmdAggiornaVRX.click();
    viewer.FileIni("a.ini");
    viewer.Terminate();
    EXPECT_EQ(saved(), expected) << "a share that is down";

    services.files.files.insert("allarmi.mdb");
    database().failures.emplace(AlarmListQuery, RuntimeError(3343, "Rotto"));
    viewer.FileIni("a.ini");
    cmdAggiornaVRX.click();
    viewer.Terminate();
    EXPECT_EQ(saved(), expected) << "lists filled only in part";
}

TEST_F(AlarmViewerTest, IgnoresWhatItCannotUse) {
    const std::pair<const char*, const char*> cases[] = {
        {"AlarmIndex", "2"},  {"AlarmIndex", "-7"},    {"AlarmIndex", "1e99"}, {"ListCount", "-3"},
        {"ListCount", "1.5"}, {"AlarmCondition", "x"}, {"isStart", "sì"},
    };
    startWith("allarmi.mdb", "");
    for (const auto& [key, value] : cases) {
        saved() = {{key, value}, {"List1", "1"}};
        viewer.FileIni("a.ini");
        EXPECT_EQ(cmbAllarme.ListIndex(), -1) << key << "=" << value;
        EXPECT_THAT(checkedTexts(lvVRX), IsEmpty()) << key << "=" << value;
        EXPECT_EQ(chkAllarme.Value() + chkDataIniziale.Value(), 0) << key << "=" << value;
    }
    cmbAllarme.ListIndex(1);
    cmdSeleziona.click();
    saved() = {{"AlarmIndex", "2"}, {"ListCount", "1"}, {"List1", "0"}};
    viewer.FileIni("a.ini");
    EXPECT_EQ(cmbAllarme.ListIndex(), 1) << "a stale index beyond the list is ignored";
    EXPECT_THAT(checkedTexts(lvVRX), ElementsAre("RTU02", "RTU03")) << "not in the saved count";
    cmdDeseleziona.click();
    saved() = {};
    viewer.FileIni("a.ini");
    EXPECT_EQ(cmbAllarme.ListIndex(), -1) << "a missing one clears the selection";
    EXPECT_THAT(checkedTexts(lvVRX), IsEmpty());
}

TEST_F(AlarmViewerTest, ColumnWidthsComeBack) {
    saved() = {{"DGColumnWidth0", "2400"}, {"DGColumnWidth1", "largo"}};
    startWith("allarmi.mdb", "a.ini");
    cmdAggiornaDati.click();
    EXPECT_EQ(dg.ColumnWidth(0), 2400);
    EXPECT_EQ(dg.ColumnWidth(1), fakes::FakeDataGrid::DefaultWidth);
    dg.drag(1, 1800);
    EXPECT_EQ(saved()["DGColumnWidth1"], "1800");
    cmdAggiornaDati.click();
    EXPECT_EQ(dg.ColumnWidth(1), 1800);
}

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

TEST_F(AlarmViewerTest, ComposesTheDataQuery) {
    const std::pair<AlarmFilter, std::string> cases[] = {
        {{}, ""},
        {{.alarmEnabled = true, .alarm = "Pompa ferma", .stations = {"RTU01", "RTU07"}},
         " WHERE (Allarme is <Pompa ferma> AND ((VRX = 'RTU01') OR (VRX = 'RTU07')))"},
        {{.alarmEnabled = true, .alarm = ""}, ""},
        {{.startEnabled = true, .start = Date(2), .stations = {"X"}},
         " WHERE (Data in 172800..- AND ((VRX = 'X')))"},
        // Quotes of a station name stay as they are.
        {{.stations = {"L'Aquila"}}, " WHERE (((VRX = 'L'Aquila')))"},
    };
    for (const auto& [filter, where] : cases)
        EXPECT_EQ(ComponiSQL(filter, database()),
                  "SELECT Data, VRX, Allarme, Descrizione, Evento FROM Allarmi" + where +
                      " ORDER BY Data");
}

}  // namespace
}  // namespace velt
