// SPDX-License-Identifier: MIT
#pragma once

#include "connviewer/connviewer.h"
#include "tests/fakes/fakeservices.h"
#include "tests/fakes/fakewidgets.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace velt {

/// A connection viewer on fakes; "VeltRTU.ini" names the host "plc".
class ConnViewerFixture : public testing::Test {
protected:
    using Texts = std::vector<std::string>;

    ConnViewerFixture() {
        services.settingsFactory.files["VeltRTU.ini"]["Common"]["Hostname"] = "plc";
    }

    /// As a host does it at run time.
    void start() {
        viewer->File("VeltRTU.ini");
        viewer->Show();
        (void)log();
    }
    /// Linked to a runtime with these stations.
    void startWith(const Texts& stations) {
        start();
        client().link(stations);
        (void)log();
    }
    /// What was asked of the runtime since the last time.
    Texts log() { return std::exchange(services.runtimes.log, {}); }
    /// The client that was made last.
    fakes::FakeRuntimeClient& client() { return *services.runtimes.made.back().lock(); }
    Texts listed() const { return lvVRX.texts(); }

    fakes::FakeAmbient ambient;
    fakes::FakeServices services;
    fakes::FakeFrame frmSelezioneDati;
    std::array<fakes::FakeFrame, 7> captions;
    fakes::FakeLabel lblHostname, lblProgetto, lblVersione, lblVRX, lblStato, lblLog;
    fakes::FakeListView lvVRX;
    fakes::FakeListColumns columns;
    fakes::FakeListIcons icons;
    fakes::FakeButton cmdConnetti, cmdDisconnetti, cmdDownload, cmdDownloadAll;
    fakes::FakeTimer t;
    fakes::FakeSurface control;
    fakes::FakePlaced frame{0, 0, 1, 1}, logPlace{100, 100, 1, 1}, list{6000, 300, 3000, 1};
    ConnViewerForm form{frmSelezioneDati,
                        {&captions[0], &captions[1], &captions[2], &captions[3], &captions[4],
                         &captions[5], &captions[6]},
                        lblHostname,
                        lblProgetto,
                        lblVersione,
                        lblVRX,
                        lblStato,
                        lblLog,
                        lvVRX,
                        columns,
                        icons,
                        cmdConnetti,
                        cmdDisconnetti,
                        cmdDownload,
                        cmdDownloadAll,
                        t,
                        {control, frame, logPlace, list}};
    std::unique_ptr<ConnViewer> viewer = std::make_unique<ConnViewer>(form, ambient, services);
};

}  // namespace velt
