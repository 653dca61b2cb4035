// SPDX-License-Identifier: MIT
#include "connviewer/connviewer.h"

#include "tests/connviewer/connviewerfixture.h"
#include "tests/errorof.h"

#include <gmock/gmock.h>

namespace velt {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;
using testing::Pair;

using ConnViewerTest = ConnViewerFixture;

const std::string AskForPlc = "ConnettiRuntime VELT Viewer 'plc'";
const std::string AskForAnyHost = "ConnettiRuntime VELT Viewer ''";

TEST_F(ConnViewerTest, EveryShowConnectsThroughOneClient) {
    viewer->File("VeltRTU.ini");
    EXPECT_EQ(lblHostname.Caption(), "plc");
    EXPECT_EQ(viewer->CartellaDownload(), "\\");
    EXPECT_THAT(log(), IsEmpty()) << "no client before the first show";
    viewer->Show();
    viewer->Show();
    EXPECT_THAT(log(), ElementsAre(AskForPlc, AskForPlc));
    EXPECT_EQ(services.runtimes.made.size(), 1u);
    EXPECT_THAT(columns.widths, Each(Pair(0, 3000 - 60)));
    EXPECT_EQ(t.Interval(), 1000);
}

TEST_F(ConnViewerTest, AFileOfTheFormLeavesTheHostOpen) {
    fakes::FakePropertyBag bag;
    bag.values = {{"File", "VeltRTU.ini"}};
    viewer->ReadProperties(bag);
    lblHostname.Caption("before");
    viewer->Show();
    EXPECT_EQ(lblHostname.Caption(), "");
    EXPECT_THAT(log(), ElementsAre(AskForAnyHost));
    EXPECT_TRUE(services.settingsFactory.files.size() == 1) << "no file is looked at";
}

TEST_F(ConnViewerTest, WithoutAFileOnlyARunningTimerConnects) {
    lblHostname.Caption("before");
    viewer->Show();
    EXPECT_THAT(log(), IsEmpty());
    EXPECT_EQ(lblHostname.Caption(), "before");
    client().ConnectionError.raise(0);
    t.fire();
    EXPECT_THAT(log(), ElementsAre(AskForAnyHost));
}

TEST_F(ConnViewerTest, AnotherFileConnectsToItsHostAtOnce) {
    startWith({"RTU01"});
    services.settingsFactory.files["altro.ini"]["Common"]["Hostname"] = "altro";
    viewer->File("altro.ini");
    viewer->File("senza host.ini");
    viewer->File("");
    EXPECT_THAT(log(), ElementsAre("ConnettiRuntime VELT Viewer 'altro'", AskForAnyHost));
    EXPECT_EQ(lblHostname.Caption(), "");
}

TEST_F(ConnViewerTest, TheTimerRetriesWhileTheLinkIsDown) {
    start();
    t.fire();
    EXPECT_THAT(log(), IsEmpty()) << "off until it is needed";
    client().ConnectionError.raise(0);
    EXPECT_EQ(lblLog.Caption(), "Runtime non attivo!!");
    client().refusesToConnect = true;
    t.fire();
    t.fire();
    EXPECT_THAT(log(), ElementsAre(AskForPlc, AskForPlc)) << "errors are skipped";

    client().ConnectionError.raise(1);
    EXPECT_EQ(lblLog.Caption(), "Runtime senza progetto o con nessuna RTU configurata!!");
    client().ConnectionError.raise(2);
    EXPECT_EQ(lblLog.Caption(), "Runtime senza progetto o con nessuna RTU configurata!!");
    EXPECT_TRUE(t.Enabled());

    log().clear();
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
        std::array<bool, 4> linked, unlinked;
    };
    const Case cases[] = {
        {0, "Disconnesso", {true, false, true, true}, {false, false, false, false}},
        {1, "Dialing", {false, true, true, true}, {false, true, false, false}},
        {2, "Connesso", {false, true, true, true}, {false, false, false, false}},
        {3, "Modem occupato", {true, false, true, true}, {true, false, false, false}},
        {4, "In disconnessione", {false, false, false, false}, {false, false, false, false}},
        {5, "Downloading", {false, false, false, false}, {false, false, false, false}},
    };
    for (const Case& c : cases) {
        for (const bool active : {true, false}) {
            client().active = active;
            client().Stato.raise("RTU01", c.code);
            EXPECT_EQ(lblStato.Caption(), c.caption);
            EXPECT_EQ(enabled(), active ? c.linked : c.unlinked) << c.code << " " << active;
        }
    }
    // A code that it does not know shows the name and leaves the rest.
    client().active = true;
    for (const int code : {6, -1}) {
        lblVRX.Caption("");
        client().Stato.raise("RTU01", code);
        EXPECT_EQ(lblVRX.Caption(), "RTU01");
        EXPECT_EQ(lblStato.Caption(), "Downloading");
        EXPECT_THAT(enabled(), Each(false));
    }

    client().Stato.raise("RTU01", 2);
    client().lose();
    EXPECT_EQ(lblLog.Caption(), "Runtime non attivo!!");
    EXPECT_THAT(enabled(), Each(false)) << "a loss of the link is shown";
    EXPECT_EQ(lblStato.Caption(), "Connesso");
    EXPECT_TRUE(t.Enabled());
}

TEST_F(ConnViewerTest, EachButtonAsksForTheLinkAnewInItsOrder) {
    startWith({"RTU01"});
    lvVRX.select(1);
    client().flickers = true;  // true to the first who asks, then false, then true again
    struct Case {
        int code;
        int reads;
        std::array<bool, 4> shown;
    };
    const Case cases[] = {{0, 2, {true, false, false, false}},
                          {1, 1, {false, true, true, true}},
                          {2, 2, {false, true, false, false}},
                          {3, 1, {true, false, true, true}},
                          {4, 0, {false, false, false, false}}};
    for (const Case& c : cases) {
        client().reads = 0;
        client().Stato.raise("RTU01", c.code);
        EXPECT_EQ(client().reads, c.reads) << c.code;
        EXPECT_EQ(enabled(), c.shown) << c.code;
    }
}

TEST_F(ConnViewerTest, ButtonsAskTheRuntimeAboutTheSelectedStation) {
    startWith({"RTU01", "RTU02"});
    lvVRX.select(2);
    for (fakes::FakeButton* button : {&cmdConnetti, &cmdDisconnetti, &cmdDownload}) {
        lblLog.Caption("old");
        button->click();
        EXPECT_EQ(lblLog.Caption(), "");
    }
    cmdDownloadAll.click();
    EXPECT_THAT(log(), ElementsAre("ConnettiRTU RTU02", "DisconnettiRTU RTU02", "DownloadRTU RTU02",
                                   "DownloadTutte"));
}

TEST_F(ConnViewerTest, ButtonsNeedAListALinkAndASelectionButForDownloadAll) {
    startWith({"RTU01"});
    const auto clickAll = [this] {
        log().clear();
        client().reads = 0;
        lblLog.Caption("old");
        for (fakes::FakeButton* button : {&cmdConnetti, &cmdDisconnetti, &cmdDownload})
            button->click();
        EXPECT_THAT(log(), IsEmpty());
        EXPECT_EQ(lblLog.Caption(), "old");
        EXPECT_EQ(client().reads, 3) << "the link is looked at in any case";
    };
    clickAll();  // nothing selected
    lvVRX.select(1);
    client().active = false;
    clickAll();
    EXPECT_EQ(errorOf([this] { cmdDownloadAll.click(); }), ErrorNumber::ObjectNotSet);
    EXPECT_THAT(log(), ElementsAre("DownloadTutte"));
    EXPECT_EQ(lblLog.Caption(), "");
    client().active = true;
    lvVRX.Clear();
    clickAll();
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
    ConnViewer other(form, host, services);
    other.Show();
    client().link({"RTU01", "RTU01"});
    client().Stato.raise("RTU02", 1);
    client().active = false;
    client().Errore.raise("x", "RTU01");
    EXPECT_THAT(host.reported, ElementsAre(ErrorNumber::KeyInUse, ErrorNumber::InvalidCall,
                                           ErrorNumber::ObjectNotSet));
    EXPECT_EQ(lblLog.Caption(), "'RTU01': x");
    EXPECT_EQ(errorOf([this] { lvVRX.click(1); }), ErrorNumber::ObjectNotSet);
}

TEST_F(ConnViewerTest, TerminateClosesTheLinkOnce) {
    startWith({"RTU01"});
    t.Enabled(true);
    viewer->Terminate();
    viewer->Terminate();
    EXPECT_THAT(log(), ElementsAre("ChiudiRuntime"));
    EXPECT_TRUE(services.runtimes.made.back().expired());
    EXPECT_FALSE(t.Enabled());
    EXPECT_EQ(errorOf([this] { cmdDownload.click(); }), ErrorNumber::ObjectNotSet);

    viewer->Show();
    EXPECT_EQ(services.runtimes.made.size(), 2u);
    log().clear();
    viewer.reset();
    EXPECT_THAT(log(), ElementsAre("ChiudiRuntime")) << "a host that only destroys it";
}

TEST_F(ConnViewerTest, DesignTimeTouchesNothing) {
    ambient.userMode = false;
    viewer->File("VeltRTU.ini");
    viewer->Show();
    t.Enabled(true);
    t.fire();
    viewer->Terminate();
    viewer.reset();
    EXPECT_THAT(services.runtimes.made, IsEmpty());
    EXPECT_EQ(lblHostname.Caption(), "");
    EXPECT_TRUE(t.Enabled());
}

TEST_F(ConnViewerTest, ColoursReachTheFrameAndTheCaptions) {
    viewer->BackColor(0x0000FF);
    viewer->ForeColor(0x00FF00);
    EXPECT_EQ(frmSelezioneDati.backColor, 0x0000FFu);
    EXPECT_EQ(frmSelezioneDati.foreColor, 0x00FF00u);
    EXPECT_THAT(captions, Each(Field(&fakes::FakeFrame::foreColor, 0x00FF00u)));
    EXPECT_THAT(captions, Each(Field(&fakes::FakeFrame::backColor, 0u)));
}

}  // namespace
}  // namespace velt
