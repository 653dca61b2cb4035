// SPDX-License-Identifier: MIT
#include "connviewer/connviewer.h"

#include "tests/connviewer/connviewerfixture.h"
#include "tests/errorof.h"

#include <gmock/gmock.h>

namespace velt {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

using ConnViewerTest = ConnViewerFixture;

TEST_F(ConnViewerTest, TheTimerRetriesWhileTheLinkIsDown) {
    const std::string ask = "ConnettiRuntime VELT Viewer 'plc'";
    start();
    t.fire();
    EXPECT_THAT(log(), IsEmpty()) << "off until it is needed";
    client().ConnectionError.raise(0);
    EXPECT_EQ(lblLog.Caption(), "Runtime non attivo!!");
    client().refusesToConnect = true;
    t.fire();
    t.fire();
    EXPECT_THAT(log(), ElementsAre(ask, ask)) << "errors are skipped";

    client().ConnectionError.raise(1);
    client().ConnectionError.raise(2);
    EXPECT_EQ(lblLog.Caption(), "Runtime senza progetto o con nessuna RTU configurata!!");
    log().clear();
    client().active = true;
    t.fire();
    EXPECT_THAT(log(), IsEmpty()) << "linked by now";
}

TEST_F(ConnViewerTest, ShowsTheStatesWithoutALink) {
    startWith({"RTU01"});
    lvVRX.select(1);
    client().active = false;
    const std::array<bool, 4> none = {false, false, false, false};
    const std::array<bool, 4> expected[] = {
        none, {false, true, false, false}, none, {true, false, false, false}, none, none};
    for (int code = 0; code < 6; ++code) {
        client().Stato.raise("RTU01", code);
        EXPECT_EQ(enabled(), expected[code]) << code;
    }
    // A code that it does not know shows the name and leaves the rest.
    client().Stato.raise("RTU01", 3);
    lblVRX.Caption("");
    client().Stato.raise("RTU01", -1);
    EXPECT_EQ(lblVRX.Caption(), "RTU01");
    EXPECT_EQ(lblStato.Caption(), "Modem occupato");
    client().active = true;
    client().Stato.raise("RTU01", 2);
    client().lose();
    EXPECT_THAT(enabled(), Each(false)) << "a loss of the link is shown";
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

TEST_F(ConnViewerTest, ButtonsNeedALinkAndASelectionButForDownloadAll) {
    startWith({"RTU01"});
    for (const int selected : {0, 1}) {
        client().active = selected == 0;
        lvVRX.select(selected);
        for (fakes::FakeButton* button : {&cmdConnetti, &cmdDisconnetti, &cmdDownload})
            button->click();
        EXPECT_THAT(log(), IsEmpty());
    }
    EXPECT_EQ(errorOf([this] { cmdDownloadAll.click(); }), ErrorNumber::ObjectNotSet);
    EXPECT_THAT(log(), ElementsAre("DownloadTutte"));
}

TEST_F(ConnViewerTest, TerminateClosesTheLinkOnce) {
    startWith({"RTU01"});
    t.Enabled(true);
    viewer->Terminate();
    viewer->Terminate();
    EXPECT_THAT(log(), ElementsAre("ChiudiRuntime"));
    EXPECT_FALSE(t.Enabled());
    EXPECT_EQ(errorOf([this] { cmdDownload.click(); }), ErrorNumber::ObjectNotSet);

    viewer->Show();
    log().clear();
    viewer.reset();
    EXPECT_THAT(log(), ElementsAre("ChiudiRuntime")) << "a host that only destroys it";
}

}  // namespace
}  // namespace velt
