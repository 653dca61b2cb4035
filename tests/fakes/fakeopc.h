// SPDX-License-Identifier: MIT
// An OPC server in memory. It notes every call that changes something, may fail at any of them,
// and dies when told to: everything but what the contract promises of a dead connection fails then.
#pragma once

#include "platform/opc.h"
#include "platform/runtimeerror.h"

#include <algorithm>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace velt::fakes {

/// What stands behind the fakes; a test scripts it and reads the log.
struct FakePlant {
    struct Leaf {
        std::string name;
        int type = vartype::R8;
        bool refused = false;
    };
    std::vector<std::pair<std::string, std::vector<Leaf>>> branches;
    bool reachable = true;  ///< a connection can be made
    int state = opc::Disconnected;
    std::vector<std::string> log;
    std::map<std::string, RuntimeError> failures;  ///< by the line of the log
    std::vector<std::pair<std::string, Variant>> written;

    void step(const std::string& call) {
        log.push_back(call);
        const auto failure = failures.find(call);
        if (failure != failures.end()) throw RuntimeError(failure->second);
    }
    void connectedStep(std::string call, const std::vector<std::string>& names = {}) {
        for (const std::string& name : names) call += " " + name;
        step(call);
        if (state != opc::Running) throw RuntimeError(-2147467259, "Non connesso");
    }
    [[nodiscard]] const Leaf* leaf(const std::string& itemID) const {
        for (const auto& [branch, leaves] : branches)
            for (const Leaf& leaf : leaves)
                if (branch + "." + leaf.name == itemID) return &leaf;
        return nullptr;
    }
};

struct FakeOPCItem final : OPCItem {
    FakeOPCItem(FakePlant& p, std::string id, std::int32_t handle, int type)
        : plant(p), itemID(std::move(id)), clientHandle(handle), canonicalType(type) {}
    std::int32_t ClientHandle() const override { return clientHandle; }
    std::int32_t ServerHandle() const override { return 1000 + clientHandle; }
    std::string ItemID() const override { return itemID; }
    int CanonicalDataType() const override { return canonicalType; }
    void Write(const Variant& value) override {
        plant.connectedStep("Write " + itemID);
        plant.written.emplace_back(itemID, value);
    }

    FakePlant& plant;
    std::string itemID;
    std::int32_t clientHandle;
    int canonicalType;
};

/// A group and its items.
struct FakeOPCGroup final : OPCGroup, OPCItems {
    explicit FakeOPCGroup(FakePlant& p) : plant(p) {}
    velt::OPCItems& OPCItems() override { return *this; }
    void IsSubscribed(bool subscribed) override {
        plant.connectedStep("IsSubscribed " + std::to_string(subscribed));
    }
    void DefaultIsActive(bool active) override {
        plant.connectedStep("Items.DefaultIsActive " + std::to_string(active));
    }
    void ExpectItems(const std::vector<std::string>& itemIDs) override {
        plant.connectedStep("ExpectItems", itemIDs);
    }
    void ExpectationsDone() override { plant.step("ExpectationsDone"); }
    std::shared_ptr<OPCItem> AddItem(const std::string& id, std::int32_t clientHandle) override {
        plant.connectedStep("AddItem " + id + " " + std::to_string(clientHandle));
        const FakePlant::Leaf* leaf = plant.leaf(id);
        if (!leaf || leaf->refused) return nullptr;
        items.push_back(std::make_shared<FakeOPCItem>(plant, id, clientHandle, leaf->type));
        return items.back();
    }
    std::int32_t Count() const override { return static_cast<std::int32_t>(items.size()); }
    std::shared_ptr<OPCItem> Item(std::int32_t index) const override {
        return items.at(static_cast<std::size_t>(index - 1));
    }
    std::shared_ptr<OPCItem> ItemOfClient(std::int32_t clientHandle) const override {
        const auto found = std::ranges::find(items, clientHandle, &OPCItem::ClientHandle);
        return found == items.end() ? nullptr : *found;
    }
    std::vector<std::int32_t> Remove(const std::vector<std::int32_t>& serverHandles) override {
        plant.step("Items.Remove " + std::to_string(serverHandles.size()));
        std::erase_if(items, [&](const auto& item) {
            return std::ranges::count(serverHandles, item->ServerHandle()) > 0;
        });
        return std::vector<std::int32_t>(serverHandles.size(), 0);
    }

    FakePlant& plant;
    std::vector<std::shared_ptr<OPCItem>> items;
};

struct FakeOPCGroups final : OPCGroups {
    explicit FakeOPCGroups(FakePlant& p) : plant(p) {}
    void DefaultGroupIsActive(bool active) override {
        plant.connectedStep("DefaultGroupIsActive " + std::to_string(active));
    }
    void DefaultGroupUpdateRate(int rate) override {
        plant.connectedStep("DefaultGroupUpdateRate " + std::to_string(rate));
    }
    std::shared_ptr<OPCGroup> Add(const std::string& name) override {
        plant.connectedStep("Groups.Add " + name);
        if (groups.contains(name)) throw RuntimeError(ErrorNumber::KeyInUse);
        return groups[name] = std::make_shared<FakeOPCGroup>(plant);
    }
    void Remove(const std::string& name) override {
        plant.step("Groups.Remove " + name);
        groups.erase(name);
    }

    FakePlant& plant;
    std::map<std::string, std::shared_ptr<FakeOPCGroup>> groups;
};

struct FakeOPCBrowser final : OPCBrowser {
    explicit FakeOPCBrowser(FakePlant& p) : plant(p) {}
    void MoveToRoot() override { plant.connectedStep("MoveToRoot"); }
    void MoveDown(const std::string& name) override {
        plant.connectedStep("MoveDown " + name);
        branch = name;
    }
    void ShowBranches() override {
        plant.connectedStep("ShowBranches");
        names.clear();
        for (const auto& [name, leaves] : plant.branches) names.push_back(name);
    }
    void ShowLeafs() override {
        plant.connectedStep("ShowLeafs");
        names.clear();
        for (const auto& [name, leaves] : plant.branches)
            for (const FakePlant::Leaf& leaf : leaves)
                if (name == branch) names.push_back(leaf.name);
    }
    std::int32_t Count() const override { return static_cast<std::int32_t>(names.size()); }
    std::string Item(std::int32_t index) const override {
        return names.at(static_cast<std::size_t>(index - 1));
    }
    std::string GetItemID(const std::string& leaf) override {
        plant.connectedStep("GetItemID " + leaf);
        return branch + "." + leaf;
    }

    FakePlant& plant;
    std::string branch;
    std::vector<std::string> names;
};

struct FakeOPCServer final : OPCServer {
    explicit FakeOPCServer(FakePlant& p) : plant(p), groups(p) {}
    int ServerState() const override { return plant.state; }
    void Connect(const std::string& progID, const std::optional<std::string>& node) override {
        plant.step("Connect " + progID + (node ? " on '" + *node + "'" : ""));
        if (!plant.reachable) throw RuntimeError(-2147023174, "Server non disponibile");
        plant.state = opc::Running;
    }
    void Disconnect() override {
        plant.step("Disconnect");
        plant.state = opc::Disconnected;
    }
    velt::OPCGroups& OPCGroups() override { return groups; }
    std::unique_ptr<OPCBrowser> CreateBrowser() override {
        plant.connectedStep("CreateBrowser");
        return std::make_unique<FakeOPCBrowser>(plant);
    }
    void ExpectBranches(const std::vector<std::string>& branches) override {
        plant.connectedStep("ExpectBranches", branches);
    }
    /// Without a notice: that comes, if at all, by ServerShutDown.
    void die() {
        plant.reachable = false;
        plant.state = opc::Disconnected;
    }

    FakePlant& plant;
    FakeOPCGroups groups;
};

struct FakeOPCServerFactory final : OPCServerFactory {
    std::shared_ptr<OPCServer> create() override {
        plant.step("create");
        return server = std::make_shared<FakeOPCServer>(plant);
    }
    FakePlant plant;
    std::shared_ptr<FakeOPCServer> server;  ///< the newest
};

}  // namespace velt::fakes
