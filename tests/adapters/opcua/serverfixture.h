// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/opcua/opcuaserverfactory.h"
#include "adapters/opcua/session.h"
#include "platform/queueddispatcher.h"
#include "platform/runtimeerror.h"
#include "tests/adapters/opcua/testserver.h"

#include <gtest/gtest.h>

#include <chrono>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace velt::opcua::test {

using namespace std::chrono_literals;

/// The adapter as a control uses it, on the test's thread.
class ServerFixture : public testing::Test {
protected:
    struct Shown {
        Variant value;
        std::int32_t quality = 0;
        Date time;
    };

    ServerFixture() : server_(factory_.create()) {
        server_->ServerShutDown.subscribe(
            [this](const std::string& reason) { shutDowns_.push_back(reason); });
    }
    ~ServerFixture() override {
        group_.reset();
        server_.reset();
        EXPECT_TRUE(Session::waitForAll(10s)) << "threads are left";
    }

    /// As the control does it, but with a fast group.
    void connect(const std::string& node) {
        server_->Connect("x", node);
        server_->OPCGroups().DefaultGroupUpdateRate(10);
        group_ = server_->OPCGroups().Add("Group");
        group_->DataChange.subscribe([this](const DataChangeArgs& args) {
            ++events_;
            for (std::size_t i = 0; i < args.ClientHandles.size(); ++i)
                shown_[args.ClientHandles[i]] = {args.ItemValues[i], args.Qualities[i],
                                                 args.TimeStamps[i]};
        });
        group_->IsSubscribed(true);
    }

    std::vector<std::string> branches() {
        const auto browser = server_->CreateBrowser();
        browser->MoveToRoot();
        browser->ShowBranches();
        return namesOf(*browser);
    }

    std::vector<std::string> itemIDs(const std::string& branch) {
        const auto browser = server_->CreateBrowser();
        browser->MoveToRoot();
        browser->MoveDown(branch);
        browser->ShowLeafs();
        std::vector<std::string> ids = namesOf(*browser);
        for (std::string& id : ids) id = browser->GetItemID(id);
        return ids;
    }

    /// Adds items under growing handles; gives what was accepted.
    std::vector<std::shared_ptr<OPCItem>> add(const std::vector<std::string>& ids) {
        std::vector<std::shared_ptr<OPCItem>> items;
        group_->OPCItems().ExpectItems(ids);
        for (const std::string& id : ids) {
            ++lastHandle_;
            ignoreErrors([&] { items.push_back(group_->OPCItems().AddItem(id, lastHandle_)); });
        }
        group_->OPCItems().ExpectationsDone();
        return items;
    }

    /// Takes events until the condition holds.
    template <typename Condition>
    [[nodiscard]] bool until(Condition condition, std::chrono::milliseconds time = 15s) {
        // A call now and then has the condition looked at when nothing comes in.
        const auto end = std::chrono::steady_clock::now() + time;
        while (!condition()) {
            if (std::chrono::steady_clock::now() > end) return false;
            (void)dispatcher_.runUntil(condition, std::chrono::steady_clock::now() + 20ms);
        }
        return true;
    }

    static std::vector<std::string> namesOf(const OPCBrowser& browser) {
        std::vector<std::string> names;
        for (std::int32_t i = 1; i <= browser.Count(); ++i) names.push_back(browser.Item(i));
        return names;
    }

    QueuedDispatcher dispatcher_;
    OpcUaServerFactory factory_{dispatcher_};
    std::shared_ptr<OPCServer> server_;
    std::shared_ptr<OPCGroup> group_;
    std::map<std::int32_t, Shown> shown_;  ///< by client handle
    std::vector<std::string> shutDowns_;
    std::int32_t lastHandle_ = 0;
    int events_ = 0;
};

}  // namespace velt::opcua::test
