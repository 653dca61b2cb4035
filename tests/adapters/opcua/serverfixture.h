// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/opcua/opcuaserverfactory.h"
#include "tests/adapters/opcua/adapterfixture.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace velt::opcua::test {

using Texts = std::vector<std::string>;

/// The adapter as a control uses it, on the test's thread.
class ServerFixture : public AdapterFixture {
protected:
    struct Shown {
        Variant value;
        std::int32_t quality = 0;
    };

    ServerFixture() { makeServer({}); }

    /// A server object that connects by that configuration file.
    void makeServer(const std::string& configFile) {
        factory_.options({configFile, {}, log_});
        server_ = factory_.create();
        server_->ServerShutDown.subscribe(
            [this](const std::string& reason) { shutDowns_.push_back(reason); });
    }

    /// As the control does it, but with a fast group.
    void connect(const std::string& node) {
        server_->Connect("x", node);
        server_->OPCGroups().DefaultGroupUpdateRate(10);
        group_ = server_->OPCGroups().Add("Group");
        group_->DataChange.subscribe([this](const DataChangeArgs& args) {
            ++events_;
            EXPECT_LE(args.ClientHandles.size(), 1'000u) << "a window would stand still";
            for (std::size_t i = 0; i < args.ClientHandles.size(); ++i)
                shown_[args.ClientHandles[i]] = {args.ItemValues[i], args.Qualities[i]};
        });
        group_->IsSubscribed(true);
    }

    Texts branches() {
        const auto browser = server_->CreateBrowser();
        browser->MoveToRoot();
        browser->ShowBranches();
        return namesOf(*browser);
    }

    Texts itemIDs(const std::string& branch) {
        const auto browser = server_->CreateBrowser();
        browser->MoveToRoot();
        browser->MoveDown(branch);
        browser->ShowLeafs();
        Texts ids = namesOf(*browser);
        for (std::string& id : ids) id = browser->GetItemID(id);
        return ids;
    }

    /// Adds items under growing handles; gives what was accepted, by the item ID.
    std::map<std::string, std::shared_ptr<OPCItem>> add(const Texts& ids) {
        std::map<std::string, std::shared_ptr<OPCItem>> items;
        group_->OPCItems().ExpectItems(ids);
        for (const std::string& id : ids) {
            ++lastHandle_;
            ignoreErrors([&] { items[id] = group_->OPCItems().AddItem(id, lastHandle_); });
        }
        group_->OPCItems().ExpectationsDone();
        return items;
    }

    static Texts namesOf(const OPCBrowser& browser) {
        Texts names;
        for (std::int32_t i = 1; i <= browser.Count(); ++i) names.push_back(browser.Item(i));
        return names;
    }

    OpcUaServerFactory factory_{dispatcher_};
    std::shared_ptr<OPCServer> server_;
    std::shared_ptr<OPCGroup> group_;
    std::map<std::int32_t, Shown> shown_;  ///< by client handle
    Texts shutDowns_;
    std::int32_t lastHandle_ = 0;
    int events_ = 0;
};

}  // namespace velt::opcua::test
