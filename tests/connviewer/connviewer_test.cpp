// SPDX-License-Identifier: MIT
#include "connviewer/connviewer.h"
#include "tests/connviewer/connviewerfixture.h"
#include "tests/errorof.h"

#include <gmock/gmock.h>

namespace velt {
namespace {

using namespace testing;

const std::string AskForPlc = "ConnettiRuntime VELT Viewer 'plc'";
const std::string AskForAnyHost = "ConnettiRuntime VELT Viewer ''";

class ConnViewerTest : public ConnViewerFixture {
protected:
    /// Of Connetti, Disconnetti, Download, Download tutte: a letter, or "-" when it is disabled.
    std::string enabled() const {
        return std::string{cmdConnetti.Enabled() ? 'C' : '-', cmdDisconnetti.Enabled() ? 'D' : '-',
                           cmdDownload.Enabled() ? 'L' : '-', cmdDownloadAll.Enabled() ? 'T' : '-'};
    }
    void clickOfStation() {
        lblLog.Caption("old");
        for (fakes::FakeButton* button : {&cmdConnetti, &cmdDisconnetti, &cmdDownload})
            button->click();
    }
};

TEST_F(ConnViewerTest, EveryShowConnectsThroughOneClientToTheHostOfTheFile) {
    lblHostname.Caption("before");
    viewer->Show();
    EXPECT_THAT(log(), IsEmpty()) << "without a file";
    EXPECT_EQ(lblHostname.Caption(), "before");
    client().ConnectionError.raise(0);
    t.fire();
    EXPECT_THAT(log(), ElementsAre(AskForAnyHost)) << "only the running timer asks";

    fakes::FakePropertyBag bag;
    bag.values = {{"File", "VeltRTU.ini"}};
    viewer->ReadProperties(bag);
    viewer->Show();
    EXPECT_THAT(log(), ElementsAre(AskForAnyHost)) << "a file of the form leaves the host open";
    EXPECT_EQ(lblHostname.Caption(), "");

    viewer->File("VeltRTU.ini");
    EXPECT_EQ(lblHostname.Caption(), "plc");
    EXPECT_EQ(viewer->CartellaDownload(), "\\");
    viewer->Show();
    viewer->File("senza host.ini");
    viewer->File("");
    EXPECT_THAT(log(), ElementsAre(AskForPlc, AskForPlc, AskForAnyHost));
    EXPECT_EQ(services.runtimes.made.size(), 1u);
    EXPECT_THAT(columns.widths, Each(Pair(0, 3000 - 60)));
}

TEST_F(ConnViewerTest, TheTimerRetriesWhileTheLinkIsDown) {
    start();
    t.fire();
    EXPECT_THAT(log(), IsEmpty()) << "off until it is needed";
    EXPECT_EQ(t.Interval(), 1000);
    const std::string nothing = "Runtime senza progetto o con nessuna RTU configurata!!";
    const std::pair<int, std::string> errors[] = {
        {0, "Runtime non attivo!!"}, {1, nothing}, {2, nothing}};
    client().refusesToConnect = true;
    for (const auto& [code, text] : errors) {
        t.Enabled(false);
        client().ConnectionError.raise(code);
        EXPECT_EQ(lblLog.Caption(), text);
        t.fire();
        EXPECT_THAT(log(), ElementsAre(AskForPlc)) << "its errors are skipped";
    }
    client().active = true;
    t.fire();
    EXPECT_THAT(log(), IsEmpty()) << "linked by now";
}

TEST_F(ConnViewerTest, ShowsTheStateTable) {
    startWith({"RTU01"});
    lvVRX.select(1);
    struct Case {
        int code;
        const char* caption;
        const char* linked;
        const char* unlinked;
        const char* flickering;  ///< true to the first who asks, then false, then true again
        int reads;
    };
    for (const Case& c : {
             Case{0, "Disconnesso", "C-LT", "----", "C---", 2},
             {1, "Dialing", "-DLT", "-D--", "-DLT", 1},
             {2, "Connesso", "-DLT", "----", "-D--", 2},
             {3, "Modem occupato", "C-LT", "C---", "C-LT", 1},
             {4, "In disconnessione", "----", "----", "----", 0},
             {5, "Downloading", "----", "----", "----", 0},
         }) {
        for (const bool active : {true, false}) {
            client().active = active;
            client().Stato.raise("RTU01", c.code);
            EXPECT_EQ(lblStato.Caption(), c.caption);
            EXPECT_EQ(enabled(), active ? c.linked : c.unlinked) << c.code << " " << active;
        }
        client().flickers = true;
        client().reads = 0;
        client().Stato.raise("RTU01", c.code);
        EXPECT_EQ(enabled(), c.flickering) << c.code;
        EXPECT_EQ(client().reads, c.reads) << "each button asks anew";
        client().flickers = false;
    }
    client().active = true;
    for (const int code : {6, -1}) {
        lblVRX.Caption("");
        client().Stato.raise("RTU01", code);
        EXPECT_EQ(lblVRX.Caption() + lblStato.Caption() + enabled(), "RTU01Downloading----")
            << "a code that is not known shows the name and leaves the rest";
    }
    client().Stato.raise("RTU01", 2);
    client().lose();
    EXPECT_EQ(lblLog.Caption() + lblStato.Caption() + enabled(),
              "Runtime non attivo!!Connesso----");
    EXPECT_TRUE(t.Enabled());
}

TEST_F(ConnViewerTest, ButtonsAskAboutTheSelectedStation) {
    startWith({"RTU01", "RTU02"});
    lvVRX.select(2);
    clickOfStation();
    EXPECT_EQ(lblLog.Caption(), "");
    cmdDownloadAll.click();
    EXPECT_EQ(log(), Texts({"ConnettiRTU RTU02", "DisconnettiRTU RTU02", "DownloadRTU RTU02",
                            "DownloadTutte"}));
    // All but the last need a list, a link and a selection.
    const auto expectNothing = [this] {
        client().reads = 0;
        clickOfStation();
        EXPECT_THAT(log(), IsEmpty());
        EXPECT_EQ(lblLog.Caption(), "old");
        EXPECT_EQ(client().reads, 3) << "the link is looked at in any case";
    };
    lvVRX.select(0);
    expectNothing();
    lvVRX.select(1);
    client().active = false;
    expectNothing();
    EXPECT_EQ(errorOf([this] { cmdDownloadAll.click(); }), ErrorNumber::ObjectNotSet);
    EXPECT_THAT(log(), ElementsAre("DownloadTutte"));
    EXPECT_EQ(lblLog.Caption(), "");
    client().active = true;
    lvVRX.Clear();
    expectNothing();
}

TEST_F(ConnViewerTest, ErrorsLeaveTheHandlersAndThoseOfEventsGoToTheHost) {
    struct ReportingAmbient final : Ambient {
        bool UserMode() const override { return true; }
        std::string DisplayName() const override { return {}; }
        void Handle(const std::function<void()>& handler) override {
            if (const auto error = errorOf(handler)) reported.push_back(*error);
        }
        std::vector<ErrorNumber> reported;
    } host;
    ConnViewer other(form(), host, services);
    other.Show();
    (void)log();
    client().link({"RTU01", "RTU02", "RTU01", "RTU03"});
    EXPECT_EQ(listed(), Texts({"RTU01", "RTU02"})) << "a duplicate name ends the rebuild";
    EXPECT_THAT(log(), IsEmpty());
    client().Stato.raise("RTU03", 1);
    client().active = false;
    client().Errore.raise("x", "RTU01");
    EXPECT_THAT(host.reported, ElementsAre(ErrorNumber::KeyInUse, ErrorNumber::InvalidCall,
                                           ErrorNumber::ObjectNotSet));
    EXPECT_EQ(lblLog.Caption(), "'RTU01': x");
    EXPECT_EQ(errorOf([this] { lvVRX.click(1); }), ErrorNumber::ObjectNotSet);
}

TEST_F(ConnViewerTest, TerminateClosesTheLinkOnceAndDesignTimeTouchesNothing) {
    ambient.userMode = false;
    start();
    t.Enabled(true);
    t.fire();
    viewer->Terminate();
    EXPECT_THAT(services.runtimes.made, IsEmpty());
    EXPECT_EQ(lblHostname.Caption(), "");
    EXPECT_TRUE(t.Enabled());

    ambient.userMode = true;
    startWith({"RTU01"});
    viewer->Terminate();
    viewer->Terminate();
    EXPECT_THAT(log(), ElementsAre("ChiudiRuntime"));
    EXPECT_TRUE(services.runtimes.made.back().expired());
    EXPECT_FALSE(t.Enabled());
    EXPECT_EQ(errorOf([this] { cmdDownload.click(); }), ErrorNumber::ObjectNotSet);
    start();
    EXPECT_EQ(services.runtimes.made.size(), 2u);
    viewer.reset();
    EXPECT_THAT(log(), ElementsAre("ChiudiRuntime")) << "a host that only destroys it";
}

TEST_F(ConnViewerTest, ColoursReachTheFrameAndTheCaptions) {
    viewer->BackColor(0x0000FF);
    viewer->ForeColor(0x00FF00);
    EXPECT_EQ(frmSelezioneDati.backColor, 0x0000FFu);
    EXPECT_EQ(frmSelezioneDati.foreColor, 0x00FF00u);
    EXPECT_THAT(captions, Each(AllOf(Field(&fakes::FakeFrame::foreColor, 0x00FF00u),
                                     Field(&fakes::FakeFrame::backColor, 0u))));
}

TEST_F(ConnViewerTest, FrameLogAndListFollowTheSizeFromTheMinimumOn) {
    fakes::FakePlaced place{0, 45, 1, 1};
    fakes::FakePlaced line{600, 3000, 1, 1};
    control.border = 60;
    control.width = 12000;
    control.height = 6000;
    const auto sizes = [&] {
        layOut({control, place, line, list});
        return std::vector{control.width, control.height, place.Width(), place.Height(),
                           line.Width(),  line.Height(),  list.Width(),  list.Height()};
    };
    EXPECT_THAT(sizes(), ElementsAre(12000, 6000, 11940, 5895, 11160, 2715, 3000, 5640));
    control.width = control.height = 3000;
    EXPECT_THAT(sizes(), ElementsAre(9435, 4110, 9375, 4005, 8595, 825, 3000, 3750));
    line = fakes::FakePlaced{20000, 9000, 77, 88};  // a size that is refused is skipped
    list.Height(1);
    EXPECT_THAT(sizes(), ElementsAre(9435, 4110, 9375, 4005, 77, 88, 3000, 3750));
}

TEST_F(ConnViewerTest, AConnectionListsTheStationsAndAsksTheirStates) {
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

TEST_F(ConnViewerTest, AReconnectionWithSeveralStationsHalvesTheOldRecordsUntilOneIsLeft) {
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

TEST_F(ConnViewerTest, NoStationsOrMoreThanA16BitCount) {
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

TEST_F(ConnViewerTest, StatesGoToTheirRecordsAndErrorsToTheLog) {
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
