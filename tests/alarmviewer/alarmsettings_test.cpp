// SPDX-License-Identifier: MIT
#include "tests/alarmviewer/alarmviewerfixture.h"

#include <gmock/gmock.h>

namespace velt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::UnorderedElementsAre;

using AlarmSettingsTest = AlarmViewerFixture;

TEST_F(AlarmSettingsTest, WritesItsKeysOnTerminate) {
    startWith("allarmi.mdb", "a.ini");
    const Date start = Date::fromFields({2006, 3, 14, 7, 30, 0, 0});
    chkDataIniziale.toggle();
    DataIniziale.Value(start);
    DataFinale.Value(start.addSeconds(60));
    chkAllarme.toggle();
    cmbAllarme.ListIndex(1);
    lvVRX.Checked(2, true);
    viewer.Terminate();
    EXPECT_THAT(saved(), UnorderedElementsAre(Pair("isStart", "1"), Pair("isEnd", "0"),
                                              Pair("startDate", "14/03/2006 07.30.00"),
                                              Pair("endDate", "14/03/2006 07.31.00"),
                                              Pair("AlarmCondition", "1"), Pair("AlarmIndex", "1"),
                                              Pair("ListCount", "3"), Pair("List1", "0"),
                                              Pair("List2", "1"), Pair("List3", "0")));
    EXPECT_EQ(services.settingsFactory.commits, 1);
}

TEST_F(AlarmSettingsTest, RestoresWhatWasSaved) {
    saved() = {
        {"isStart", "0"},          {"isEnd", "1"},          {"startDate", "14/03/2006 07:30:00"},
        {"endDate", "18/04/2006"}, {"AlarmCondition", "1"}, {"AlarmIndex", "0"},
        {"ListCount", "9"},        {"List1", "1"},          {"List3", "1"}};
    startWith("allarmi.mdb", "a.ini");
    EXPECT_EQ(chkDataIniziale.Value(), 0);
    EXPECT_EQ(chkDataFinale.Value(), 1);
    EXPECT_EQ(DataIniziale.Value(), Date::fromFields({2006, 3, 14, 7, 30, 0, 0}));
    EXPECT_EQ(TimeIniziale.Value(), DataIniziale.Value());
    EXPECT_EQ(TimeFinale.Value(), Date::fromFields({2006, 4, 18, 0, 0, 0, 0}));
    EXPECT_EQ(chkAllarme.Value(), 1);
    EXPECT_EQ(cmbAllarme.Text(), "Livello alto");
    EXPECT_THAT(checkedTexts(lvVRX), ElementsAre("RTU01", "RTU03"));
}

TEST_F(AlarmSettingsTest, IgnoresWhatItCannotUse) {
    struct Case {
        const char* key;
        const char* value;
    };
    const Case cases[] = {{"AlarmIndex", "2"},    {"AlarmIndex", "-7"},   {"AlarmIndex", "pompa"},
                          {"ListCount", "molti"}, {"ListCount", "-3"},    {"AlarmCondition", "x"},
                          {"isStart", "sì"},      {"AlarmIndex", "1e99"}, {"ListCount", "1.5"}};
    startWith("allarmi.mdb", "");
    for (const Case& c : cases) {
        saved() = {{c.key, c.value}, {"List1", "1"}};
        viewer.FileIni("a.ini");
        EXPECT_EQ(cmbAllarme.ListIndex(), -1) << c.key << "=" << c.value;
        EXPECT_THAT(checkedTexts(lvVRX), IsEmpty()) << c.key << "=" << c.value;
        EXPECT_EQ(chkAllarme.Value() + chkDataIniziale.Value(), 0) << c.key << "=" << c.value;
    }
    cmbAllarme.ListIndex(1);
    cmdSeleziona.click();
    saved() = {{"AlarmIndex", "2"}, {"ListCount", "1"}, {"List1", "0"}};
    viewer.FileIni("a.ini");
    EXPECT_EQ(cmbAllarme.ListIndex(), 1) << "a stale index beyond the list is ignored";
    EXPECT_THAT(checkedTexts(lvVRX), ElementsAre("RTU02", "RTU03")) << "not in the saved count";
    saved() = {};
    viewer.FileIni("a.ini");
    EXPECT_EQ(cmbAllarme.ListIndex(), -1) << "a missing one clears the selection";
}

TEST_F(AlarmSettingsTest, NothingMayWipeTheStoredMarks) {
    const fakes::FakeSettingsFactory::Keys stored = {
        {"AlarmIndex", "1"}, {"ListCount", "3"}, {"List1", "1"}, {"List2", "1"}, {"List3", "1"}};
    const auto marks = [this] {
        auto keys = saved();
        for (const char* other : {"isStart", "isEnd", "startDate", "endDate", "AlarmCondition"})
            keys.erase(other);
        return keys;
    };

    saved() = stored;
    startWith("allarmi.mdb", "a.ini");
    viewer.Terminate();
    viewer.Terminate();
    EXPECT_EQ(marks(), stored) << "a second Terminate()";
    EXPECT_EQ(services.settingsFactory.commits, 1);

    services.files.files.clear();
    cmdAggiornaVRX.click();
    viewer.FileIni("a.ini");
    viewer.Terminate();
    EXPECT_EQ(marks(), stored) << "a share that is down";

    services.files.files.insert("allarmi.mdb");
    database().failures.emplace(AlarmListQuery, RuntimeError(3343, "Rotto"));
    viewer.FileIni("a.ini");
    cmdAggiornaVRX.click();
    viewer.Terminate();
    EXPECT_EQ(marks(), stored) << "lists filled only in part";
}

TEST_F(AlarmSettingsTest, OnlyWhatWasLoadedIsSaved) {
    startWith("allarmi.mdb", "");
    cmdAggiornaDati.click();
    dg.drag(0, 3000);
    viewer.Terminate();
    EXPECT_TRUE(services.settingsFactory.files.empty()) << "no FileIni";

    AlarmViewer other(form, ambient, services);
    fakes::FakePropertyBag bag;
    bag.values = {{"FileIni", "a.ini"}};
    other.ReadProperties(bag);
    other.File("allarmi.mdb");  // run time, but never shown
    other.Terminate();
    EXPECT_TRUE(services.settingsFactory.files.empty());
    other.Show();
    other.Terminate();
    // A FileIni of the form leaves the section without a display name.
    EXPECT_TRUE(services.settingsFactory.files["a.ini"].contains("AlarmViewer_"));
}

TEST_F(AlarmSettingsTest, ColumnWidthsComeBack) {
    saved() = {{"DGColumnWidth0", "2400"}, {"DGColumnWidth1", "largo"}};
    startWith("allarmi.mdb", "a.ini");
    cmdAggiornaDati.click();
    EXPECT_EQ(dg.ColumnWidth(0), 2400);
    EXPECT_EQ(dg.ColumnWidth(1), fakes::FakeDataGrid::DefaultWidth);
    dg.drag(1, 1800);
    EXPECT_EQ(saved()["DGColumnWidth1"], "1800");
    EXPECT_EQ(saved()["DGColumnWidth0"], "2400");
    cmdAggiornaDati.click();
    EXPECT_EQ(dg.ColumnWidth(1), 1800);
}

}  // namespace
}  // namespace velt
