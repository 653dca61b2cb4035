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

using ConnViewerTest = ConnViewerFixture;

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
    // Connetti, Disconnetti, Download, Download tutte: a letter, or "-" when it is disabled.
    const auto enabled = [this] {
        return std::string{cmdConnetti.Enabled() ? 'C' : '-', cmdDisconnetti.Enabled() ? 'D' : '-',
                           cmdDownload.Enabled() ? 'L' : '-', cmdDownloadAll.Enabled() ? 'T' : '-'};
    };
    struct Case {
        int code;
        const char* caption;
        const char* linked;
        const char* unlinked;
    };
    for (const Case& c : {
             Case{0, "Disconnesso", "C-LT", "----"},
             {1, "Dialing", "-DLT", "-D--"},
             {2, "Connesso", "-DLT", "----"},
             {3, "Modem occupato", "C-LT", "C---"},
             {4, "In disconnessione", "----", "----"},
             {5, "Downloading", "----", "----"},
         }) {
        for (const bool active : {true, false}) {
            client().active = active;
            client().Stato.raise("RTU01", c.code);
            EXPECT_EQ(lblStato.Caption(), c.caption);
            EXPECT_EQ(enabled(), active ? c.linked : c.unlinked) << c.code << " " << active;
        }
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
    client().flickers = true;
    client().reads = 0;
    client().Stato.raise("RTU01", 2);
    EXPECT_EQ(enabled(), "-D--") << "each button asks anew";
}

TEST_F(ConnViewerTest, ButtonsAskAboutTheSelectedStation) {
    startWith({"RTU01", "RTU02"});
    const auto clicked = [this](int row, bool linked) {
        lvVRX.select(row);
        client().active = linked;
        client().reads = 0;
        lblLog.Caption("old");
        for (fakes::FakeButton* button : {&cmdConnetti, &cmdDisconnetti, &cmdDownload})
            button->click();
        EXPECT_EQ(client().reads, 3) << "the link is looked at in any case";
        Texts asked = log();
        asked.push_back(lblLog.Caption());
        return asked;
    };
    EXPECT_EQ(clicked(2, true),
              Texts({"ConnettiRTU RTU02", "DisconnettiRTU RTU02", "DownloadRTU RTU02", ""}));
    // They need a selection, a link and a list, the download of all none of them.
    EXPECT_EQ(clicked(0, true), Texts({"old"}));
    EXPECT_EQ(clicked(1, false), Texts({"old"}));
    lvVRX.Clear();
    EXPECT_EQ(clicked(1, true), Texts({"old"}));
    client().active = false;
    EXPECT_EQ(errorOf([this] { cmdDownloadAll.click(); }), ErrorNumber::ObjectNotSet);
    EXPECT_THAT(log(), ElementsAre("DownloadTutte"));
    EXPECT_EQ(lblLog.Caption(), "");
}

TEST_F(ConnViewerTest, ErrorsOfEventsGoToTheHost) {
    struct ReportingAmbient final : Ambient {
        bool UserMode() const override { return true; }
        std::string DisplayName() const override { return {}; }
        void Handle(const std::function<void()>& handler) override {
            reported.push_back(errorOf(handler));
        }
        std::vector<std::optional<ErrorNumber>> reported;
    } host;
    ConnViewer other(form, host, services);
    other.Show();
    client().link({"RTU01", "RTU01"});
    client().active = false;
    client().Errore.raise("x", "RTU01");
    EXPECT_THAT(host.reported, ElementsAre(ErrorNumber::KeyInUse, ErrorNumber::ObjectNotSet));
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

TEST_F(ConnViewerTest, TheSizeKeepsItsMinimumAndARefusedOneIsSkipped) {
    fakes::FakePlaced place{0, 45, 1, 1};
    fakes::FakePlaced line{20000, 3000, 77, 1};
    control.border = 60;
    control.width = control.height = 3000;
    layOut({control, place, line, list});
    EXPECT_THAT((std::vector{control.width, control.height, place.Width(), place.Height(),
                             line.Width(), line.Height(), list.Width(), list.Height()}),
                ElementsAre(9435, 4110, 9375, 4005, 77, 825, 3000, 3750));
}

TEST_F(ConnViewerTest, AReconnectionWithSeveralStationsHalvesTheOldRecordsUntilOneIsLeft) {
    const Texts eight = {"1", "2", "3", "4", "5", "6", "7", "8"};
    startWith(eight);
    // Each time the handler ends with the error of a position beyond the shrunk collection, until
    // one record is left. The fourth time fills the list again, up to a name that is there twice.
    for (const std::string left : {"2468", "48", "8"}) {
        client().lose();
        EXPECT_EQ(errorOf([&] { client().link(eight); }), ErrorNumber::SubscriptOutOfRange);
        EXPECT_THAT(listed(), IsEmpty());
        EXPECT_EQ(lblLog.Caption(), "Runtime non attivo!!") << "the log is not reached";
        std::string known;
        for (const std::string& station : eight)
            if (!errorOf([&] { client().Stato.raise(station, 2); })) known += station;
        EXPECT_EQ(known, left);
    }
    client().lose();
    EXPECT_EQ(errorOf([this] { client().link({"8", "2", "8", "3"}); }), ErrorNumber::KeyInUse);
    EXPECT_EQ(listed(), Texts({"8", "2"}));
    EXPECT_THAT(log(), IsEmpty());
}

TEST_F(ConnViewerTest, NoStationsOrMoreThanA16BitCount) {
    startWith({"RTU01"});
    client().link({});
    EXPECT_THAT(listed(), IsEmpty());
    Texts many(32768);
    for (std::size_t i = 0; i < many.size(); ++i) many[i] = std::to_string(i);
    EXPECT_EQ(errorOf([&] { client().link(many); }), ErrorNumber::Overflow);
    EXPECT_THAT(listed(), SizeIs(32768));
}

TEST_F(ConnViewerTest, AConnectionAsksTheStatesWhichGoToTheirRecords) {
    start();
    lblLog.Caption("Runtime non attivo!!");
    t.Enabled(true);
    client().link({"RTU01", "", "RTU02"});
    EXPECT_EQ(log(), Texts({"RichiediStatoRTU RTU01", "RichiediStatoRTU RTU02"}));
    EXPECT_EQ(lblProgetto.Caption() + lblVersione.Caption() + lblLog.Caption(), "Acquedotto1.2.3");
    EXPECT_FALSE(t.Enabled());
    lvVRX.click(0);
    EXPECT_THAT(log(), IsEmpty());
    lvVRX.click(1);
    EXPECT_EQ(log(), Texts({"RichiediStatoRTU RTU01"}));
    EXPECT_EQ(lblVRX.Caption() + lblStato.Caption(), "RTU01Disconnesso") << "until it is reported";
    client().Stato.raise("RTU01", 1);
    client().Stato.raise("RTU02", 5);
    EXPECT_EQ(lblStato.Caption(), "Dialing") << "shows the selected station";
    EXPECT_THAT(icons.icons, ElementsAre(Pair(1, 1), Pair(2, 5)));
    lvVRX.click(2);
    EXPECT_EQ(lblVRX.Caption() + lblStato.Caption(), "RTU02Downloading");
    client().Errore.raise("nessuna risposta", "RTU02");
    EXPECT_EQ(lblLog.Caption(), "'RTU02': nessuna risposta");
    client().Errore.raise("linea guasta", "");
    EXPECT_EQ(lblLog.Caption(), "linea guasta");
    EXPECT_EQ(log(), Texts({"RichiediStatoRTU RTU02", "RichiediStatoRTU RTU02",
                            "RichiediStatoRTU RTU01", "RichiediStatoRTU RTU02"}));
    client().lose();
    EXPECT_THAT(icons.icons, Contains(Pair(2, -1))) << "without a link nobody knows";
}

}  // namespace
}  // namespace velt
