// SPDX-License-Identifier: MIT
#include "tests/alarmviewer/alarmviewerfixture.h"

namespace velt {
namespace {

using AlarmSettingsTest = AlarmViewerFixture;

TEST_F(AlarmSettingsTest, RestoresItsKeysAndLetsNothingWipeThem) {
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

TEST_F(AlarmSettingsTest, IgnoresWhatItCannotUse) {
    const std::pair<const char*, const char*> cases[] = {
        {"AlarmIndex", "2"},     {"AlarmIndex", "-7"}, {"AlarmIndex", "pompa"},
        {"AlarmIndex", "1e99"},  {"ListCount", "-3"},  {"ListCount", "1.5"},
        {"AlarmCondition", "x"}, {"isStart", "sì"},    {"ListCount", "molti"},
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

TEST_F(AlarmSettingsTest, ColumnWidthsComeBack) {
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

}  // namespace
}  // namespace velt
