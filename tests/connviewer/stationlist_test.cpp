// SPDX-License-Identifier: MIT
// The station list of a connection viewer, and what it asks the runtime about it.
#include "tests/connviewer/connviewerfixture.h"
#include "tests/errorof.h"

#include <gmock/gmock.h>

namespace velt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::SizeIs;

using StationListTest = ConnViewerFixture;

const std::vector<std::string> Eight = {"RTU01", "RTU02", "RTU03", "RTU04",
                                        "RTU05", "RTU06", "RTU07", "RTU08"};

TEST_F(StationListTest, AConnectionListsTheStationsAndAsksTheirStates) {
    start();
    lblLog.Caption("Runtime non attivo!!");
    t.Enabled(true);
    client().link({"RTU01", "", "Pozzo \"L'Aquila\" à\\"});
    EXPECT_THAT(listed(), ElementsAre("RTU01", "Pozzo \"L'Aquila\" à\\"));
    EXPECT_EQ(lvVRX.Key(2), "Pozzo \"L'Aquila\" à\\");
    EXPECT_THAT(log(),
                ElementsAre("RichiediStatoRTU RTU01", "RichiediStatoRTU Pozzo \"L'Aquila\" à\\"));
    EXPECT_EQ(lblProgetto.Caption(), "Acquedotto");
    EXPECT_EQ(lblVersione.Caption(), "1.2.3");
    EXPECT_EQ(lblLog.Caption(), "");
    EXPECT_FALSE(t.Enabled());
}

TEST_F(StationListTest, AReconnectionWithSeveralStationsHalvesTheOldRecordsUntilOneIsLeft) {
    startWith(Eight);
    ASSERT_THAT(listed(), SizeIs(8));
    // Of eight records four are left, of these two, of these one; each time the handler ends with
    // the error of a position beyond the shrunk collection. The fourth time fills the list again.
    const std::vector<std::vector<std::string>> left = {
        {"RTU02", "RTU04", "RTU06", "RTU08"}, {"RTU04", "RTU08"}, {"RTU08"}};
    for (const std::vector<std::string>& records : left) {
        client().lose();
        EXPECT_EQ(errorOf([this] { client().link(Eight); }), ErrorNumber::SubscriptOutOfRange);
        EXPECT_THAT(listed(), IsEmpty());
        EXPECT_EQ(lblLog.Caption(), "Runtime non attivo!!") << "the log is not reached";
        EXPECT_FALSE(t.Enabled());
        for (const std::string& station : Eight) {
            const bool known = std::ranges::count(records, station) > 0;
            const auto error = errorOf([&] { client().Stato.raise(station, 2); });
            EXPECT_EQ(error.has_value(), !known) << station;
        }
    }
    client().lose();
    client().link(Eight);
    EXPECT_EQ(listed(), Eight);
    EXPECT_EQ(lblLog.Caption(), "");
}

TEST_F(StationListTest, ASingleStationMayComeAndGo) {
    startWith({"RTU01"});
    client().lose();
    client().link({});
    EXPECT_THAT(listed(), IsEmpty());
    client().lose();
    client().link({"RTU07", "RTU08"});
    EXPECT_THAT(listed(), ElementsAre("RTU07", "RTU08"));
}

TEST_F(StationListTest, ADuplicateNameEndsTheRebuildThere) {
    start();
    const std::vector<std::string> names = {"RTU01", "RTU02", "RTU01", "RTU03"};
    EXPECT_EQ(errorOf([&] { client().link(names); }), ErrorNumber::KeyInUse);
    EXPECT_THAT(listed(), ElementsAre("RTU01", "RTU02"));
    EXPECT_THAT(log(), IsEmpty());
}

TEST_F(StationListTest, AStateGoesToItsRecordAndAClickAsksForIt) {
    startWith({"RTU01", "RTU02"});
    lvVRX.click(0);
    EXPECT_THAT(log(), IsEmpty());
    EXPECT_EQ(lblVRX.Caption(), "");
    lvVRX.click(1);
    EXPECT_THAT(log(), ElementsAre("RichiediStatoRTU RTU01"));
    EXPECT_EQ(lblVRX.Caption(), "RTU01");
    EXPECT_EQ(lblStato.Caption(), "Disconnesso") << "until it is reported";
    client().Stato.raise("RTU01", 1);
    client().Stato.raise("RTU02", 5);
    EXPECT_EQ(lblStato.Caption(), "Dialing") << "shows the selected station";
    EXPECT_THAT(icons.icons, ElementsAre(Pair(1, 1), Pair(2, 5)));
    lvVRX.click(2);
    EXPECT_EQ(lblStato.Caption(), "Downloading");
    EXPECT_EQ(lblVRX.Caption(), "RTU02");
}

TEST_F(StationListTest, ErrorsOfTheRuntimeGoToTheLog) {
    startWith({"RTU01", "RTU02"});
    client().Errore.raise("nessuna risposta", "RTU02");
    EXPECT_EQ(lblLog.Caption(), "'RTU02': nessuna risposta");
    EXPECT_THAT(log(), ElementsAre("RichiediStatoRTU RTU02"));
    log().clear();
    client().Errore.raise("linea guasta", "");
    EXPECT_EQ(lblLog.Caption(), "linea guasta");
    EXPECT_THAT(log(), ElementsAre("RichiediStatoRTU RTU01", "RichiediStatoRTU RTU02"));
}

TEST_F(StationListTest, MoreStationsThanA16BitCountAreAnOverflow) {
    start();
    std::vector<std::string> many(32768);
    for (std::size_t i = 0; i < many.size(); ++i) many[i] = std::to_string(i);
    EXPECT_EQ(errorOf([&] { client().link(many); }), ErrorNumber::Overflow);
    EXPECT_THAT(listed(), SizeIs(32768));
}

}  // namespace
}  // namespace velt
