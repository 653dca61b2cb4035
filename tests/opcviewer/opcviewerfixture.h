// SPDX-License-Identifier: MIT
#pragma once

#include "opcviewer/opcviewer.h"
#include "tests/errorof.h"
#include "tests/fakes/fakereportlist.h"
#include "tests/fakes/fakeservices.h"
#include "tests/fakes/fakewidgets.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace velt {

using namespace testing;
using Texts = std::vector<std::string>;

/// An OPC viewer on fakes; the server has two stations of three and one variables.
class OPCViewerTest : public Test {
protected:
    OPCViewerTest() {
        plant.branches = {{"RTU01", {{"Livello"}, {"Rotto", vartype::R8, true}, {"Soglia", 2}}},
                          {"PC_Server", {{"Versione"}}},
                          {"RTU02", {{"Pompa", vartype::Bool}}}};
    }

    /// As an operator does it: ticks every station and fills the table.
    void showAll() {
        viewer.Show();
        cmdSeleziona.click();
        cmdAggiornaDati.click();
        (void)log();
    }
    void change(const DataChangeArgs& args) {
        server().groups.groups.at("Group")->DataChange.raise(args);
    }
    fakes::FakeOPCServer& server() { return *services.opcFactory.server; }
    /// What was done at the server since the last time.
    Texts log() { return std::exchange(plant.log, {}); }
    void write(int row, const std::string& text) {
        lvItem.selected = row;
        txtScrittura.text = text;
        cmdScrivi.click();
    }
    void failAt(const std::string& step, const RuntimeError& error = RuntimeError(7, "Guasto")) {
        plant.failures = {{step, error}};
    }
    /// Each row's key, icon and texts; a "*" when data have come since.
    Texts table() const {
        Texts all;
        for (const auto& row : lvItem.rows) {
            all.push_back(row.key + " " + row.icon + (row.changes > 0 ? "* " : " ") + row.texts[0]);
            for (int i = cVALORE_OPC; row.changes > 0 && i <= cTIMESTAMP; ++i)
                all.back() += "|" + row.texts[static_cast<std::size_t>(i)];
        }
        return all;
    }
    /// The stations; a "+" before those that are ticked.
    Texts stations() const {
        Texts all;
        for (const auto& row : lvVRX.rows) all.push_back((row.checked ? "+" : "") + row.text);
        return all;
    }

    fakes::FakeAmbient ambient;
    fakes::FakeServices services;
    fakes::FakePlant& plant = services.opcFactory.plant;
    std::vector<fakes::FakeMessageBox::Message>& messages = services.messages.shown;
    fakes::FakeFrame control, frmVRX, frmItem;
    fakes::FakeListView lvVRX;
    fakes::FakeButton cmdVrxFromOPC, cmdAggiornaDati, cmdSeleziona, cmdDeseleziona, cmdEliminaTutto,
        cmdScrivi;
    fakes::FakeReportList lvItem;
    fakes::FakeTextBox txtScrittura;
    fakes::FakeTimer t;
    OPCViewer viewer{{control, frmVRX, frmItem, lvVRX, cmdVrxFromOPC, cmdAggiornaDati, cmdSeleziona,
                      cmdDeseleziona, cmdEliminaTutto, lvItem, txtScrittura, cmdScrivi, t},
                     ambient,
                     services};

    const Texts All = {"I1 verde RTU01.Livello", "I2 errore_gialla RTU01.Rotto",
                       "I3 verde RTU01.Soglia", "I4 verde RTU02.Pompa"};
    const Texts Connecting = {"Connect Kordal.OPCServerPVRX",
                              "DefaultGroupIsActive 1",
                              "DefaultGroupUpdateRate 1000",
                              "Groups.Add Group",
                              "IsSubscribed 1",
                              "Items.DefaultIsActive 1"};
    const Texts Browsing = {"CreateBrowser", "MoveToRoot", "ShowBranches"};
    const Texts Disconnecting = {"Items.Remove 3", "Groups.Remove Group", "Disconnect"};
};

}  // namespace velt
