// SPDX-License-Identifier: MIT
#pragma once

#include "opcviewer/opcviewer.h"
#include "tests/fakes/fakereportlist.h"
#include "tests/fakes/fakeservices.h"
#include "tests/fakes/fakewidgets.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velt {

/// An OPC viewer on fakes; the server has two stations of three and one variables.
class OPCViewerFixture : public testing::Test {
protected:
    OPCViewerFixture() {
        plant().branches = {
            {"RTU01", {{"Livello"}, {"Rotto", vartype::R8, true}, {"Soglia", vartype::I2}}},
            {"PC_Server", {{"Versione"}}},
            {"RTU02", {{"Pompa", vartype::Bool}}}};
    }

    /// As an operator does it: ticks every station and fills the table.
    void showAll() {
        viewer.Show();
        cmdSeleziona.click();
        cmdAggiornaDati.click();
        plant().log.clear();
    }
    void change(const DataChangeArgs& args) {
        services.opcFactory.server->groups.groups.at("Group")->DataChange.raise(args);
    }
    fakes::FakePlant& plant() { return services.opcFactory.plant; }
    fakes::FakeOPCServer& server() { return *services.opcFactory.server; }
    std::vector<fakes::FakeMessageBox::Message>& messages() { return services.messages.shown; }
    std::vector<std::string> keys() const {
        std::vector<std::string> keys;
        for (const auto& row : lvItem.rows) keys.push_back(row.key);
        return keys;
    }
    std::vector<std::string> stations() const { return lvVRX.texts(); }

    fakes::FakeAmbient ambient;
    fakes::FakeServices services;
    fakes::FakeFrame control, frmVRX, frmItem;
    fakes::FakeListView lvVRX;
    fakes::FakeButton cmdVrxFromOPC, cmdAggiornaDati, cmdSeleziona, cmdDeseleziona, cmdEliminaTutto,
        cmdScrivi;
    fakes::FakeReportList lvItem;
    fakes::FakeTextBox txtScrittura;
    fakes::FakeTimer t;
    const OPCViewerForm form{control,
                             frmVRX,
                             frmItem,
                             lvVRX,
                             cmdVrxFromOPC,
                             cmdAggiornaDati,
                             cmdSeleziona,
                             cmdDeseleziona,
                             cmdEliminaTutto,
                             lvItem,
                             txtScrittura,
                             cmdScrivi,
                             t};
    OPCViewer viewer{form, ambient, services};
};

}  // namespace velt
