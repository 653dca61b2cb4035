// SPDX-License-Identifier: MIT
// The station list of a connection viewer, and what it asks the runtime about it.
#include "tests/connviewer/connviewerfixture.h"
#include "tests/errorof.h"

#include <gmock/gmock.h>

namespace velt {
namespace {

using namespace testing;
using StationListTest = ConnViewerFixture;

TEST_F(StationListTest, AConnectionListsTheStationsAndAsksTheirStates) {
    start();
    lblLog.Caption("Runtime non attivo!!");
    t.Enabled(true);
    client().link({"RTU01", "", "Pozzo \"L'Aquila\" à\\"});
    EXPECT_EQ(listed(), Texts({"RTU01", "Pozzo \"L'Aquila\" à\\"}));
    EXPECT_EQ(lvVRX.Key(2), "Pozzo \"L'Aquila\" à\\");
    EXPECT_EQ(log(), Texts({"RichiediStatoRTU RTU01", "RichiediStatoRTU Pozzo \"L'Aquila\" à\\"}));
    EXPECT_EQ(lblProgetto.Caption() + lblVersione.Caption() + lblLog.Caption(), "Acquedotto1.2.3");
    EXPECT_FALSE(t.Enabled());
}

TEST_F(StationListTest, AReconnectionWithSeveralStationsHalvesTheOldRecordsUntilOneIsLeft) {
    const Texts eight = {"1", "2", "3", "4", "5", "6", "7", "8"};
    startWith(eight);
    // Each time the handler ends with the error of a position beyond the shrunk collection, until
    // one record is left. The fourth time fills the list again.
    for (const std::string left : {"2468", "48", "8"}) {
        client().lose();
        EXPECT_EQ(errorOf([&] { client().link(eight); }), ErrorNumber::SubscriptOutOfRange);
        EXPECT_THAT(listed(), IsEmpty());
        EXPECT_EQ(lblLog.Caption(), "Runtime non attivo!!") << "the log is not reached";
        EXPECT_FALSE(t.Enabled());
        std::string known;
        for (const std::string& station : eight)
            if (!errorOf([&] { client().Stato.raise(station, 2); })) known += station;
        EXPECT_EQ(known, left);
    }
    client().lose();
    client().link(eight);
    EXPECT_EQ(listed(), eight);
    EXPECT_EQ(lblLog.Caption(), "");
}

TEST_F(StationListTest, NoStationsOrMoreThanA16BitCount) {
    startWith({"RTU01"});
    client().lose();
    client().link({});
    EXPECT_THAT(listed(), IsEmpty());
    client().lose();
    Texts many(32768);
    for (std::size_t i = 0; i < many.size(); ++i) many[i] = std::to_string(i);
    EXPECT_EQ(errorOf([&] { client().link(many); }), ErrorNumber::Overflow);
    EXPECT_THAT(listed(), SizeIs(32768));
}

TEST_F(StationListTest, StatesGoToTheirRecordsAndErrorsToTheLog) {
    startWith({"RTU01", "RTU02"});
    lvVRX.click(0);
    EXPECT_THAT(log(), IsEmpty());
    EXPECT_EQ(lblVRX.Caption(), "");
    lvVRX.click(1);
    EXPECT_THAT(log(), ElementsAre("RichiediStatoRTU RTU01"));
    EXPECT_EQ(lblVRX.Caption() + lblStato.Caption(), "RTU01Disconnesso") << "until it is reported";
    client().Stato.raise("RTU01", 1);
    client().Stato.raise("RTU02", 5);
    EXPECT_EQ(lblStato.Caption(), "Dialing") << "shows the selected station";
    EXPECT_THAT(icons.icons, ElementsAre(Pair(1, 1), Pair(2, 5)));
    lvVRX.click(2);
    EXPECT_EQ(lblVRX.Caption() + lblStato.Caption(), "RTU02Downloading");
    (void)log();

    client().Errore.raise("nessuna risposta", "RTU02");
    EXPECT_EQ(lblLog.Caption(), "'RTU02': nessuna risposta");
    client().Errore.raise("linea guasta", "");
    EXPECT_EQ(lblLog.Caption(), "linea guasta");
    EXPECT_EQ(log(), Texts({"RichiediStatoRTU RTU02", "RichiediStatoRTU RTU01",
                            "RichiediStatoRTU RTU02"}));
    client().lose();
    EXPECT_THAT(icons.icons, Contains(Pair(2, -1))) << "without a link nobody knows";
}

}  // namespace
}  // namespace velt
