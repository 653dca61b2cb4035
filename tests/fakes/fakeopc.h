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
        if (const auto failure = failures.find(call); failure != failures.end())
            throw RuntimeError(failure->second);
    }
    void connectedStep(const std::string& call) {
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

class FakeOPCItem final : public OPCItem {
public:
    FakeOPCItem(FakePlant& plant, std::string itemID, std::int32_t clientHandle, int type)
        : plant_(plant), itemID_(std::move(itemID)), clientHandle_(clientHandle), type_(type) {}
    std::int32_t ClientHandle() const override { return clientHandle_; }
    std::int32_t ServerHandle() const override { return 1000 + clientHandle_; }
    std::string ItemID() const override { return itemID_; }
    int CanonicalDataType() const override { return type_; }
    void Write(const Variant& value) override {
        plant_.connectedStep("Write " + itemID_);
        plant_.written.emplace_back(itemID_, value);
    }

private:
    FakePlant& plant_;
    std::string itemID_;
    std::int32_t clientHandle_;
    int type_;
};

class FakeOPCItems final : public OPCItems {
public:
    explicit FakeOPCItems(FakePlant& plant) : plant_(plant) {}
    void DefaultIsActive(bool active) override {
        plant_.connectedStep("Items.DefaultIsActive " + std::to_string(active));
    }
    void ExpectItems(const std::vector<std::string>& itemIDs) override {
        std::string call = "ExpectItems";
        for (const std::string& id : itemIDs) call += " " + id;
        plant_.connectedStep(call);
    }
    void ExpectationsDone() override { plant_.step("ExpectationsDone"); }
    std::shared_ptr<OPCItem> AddItem(const std::string& itemID,
                                     std::int32_t clientHandle) override {
        plant_.connectedStep("AddItem " + itemID + " " + std::to_string(clientHandle));
        const FakePlant::Leaf* leaf = plant_.leaf(itemID);
        if (!leaf || leaf->refused) return nullptr;
        items_.push_back(std::make_shared<FakeOPCItem>(plant_, itemID, clientHandle, leaf->type));
        return items_.back();
    }
    std::int32_t Count() const override { return static_cast<std::int32_t>(items_.size()); }
    std::shared_ptr<OPCItem> Item(std::int32_t index) const override {
        return items_.at(static_cast<std::size_t>(index - 1));
    }
    std::shared_ptr<OPCItem> ItemOfClient(std::int32_t clientHandle) const override {
        const auto found = std::ranges::find(items_, clientHandle, &OPCItem::ClientHandle);
        return found == items_.end() ? nullptr : *found;
    }
    std::vector<std::int32_t> Remove(const std::vector<std::int32_t>& serverHandles) override {
        plant_.step("Items.Remove " + std::to_string(serverHandles.size()));
        std::erase_if(items_, [&](const auto& item) {
            return std::ranges::count(serverHandles, item->ServerHandle()) > 0;
        });
        return std::vector<std::int32_t>(serverHandles.size(), 0);
    }

private:
    FakePlant& plant_;
    std::vector<std::shared_ptr<OPCItem>> items_;
};

class FakeOPCGroup final : public OPCGroup {
public:
    explicit FakeOPCGroup(FakePlant& plant) : plant_(plant), items_(plant) {}
    void IsSubscribed(bool subscribed) override {
        plant_.connectedStep("IsSubscribed " + std::to_string(subscribed));
    }
    velt::OPCItems& OPCItems() override { return items_; }

private:
    FakePlant& plant_;
    FakeOPCItems items_;
};

class FakeOPCGroups final : public OPCGroups {
public:
    explicit FakeOPCGroups(FakePlant& plant) : plant_(plant) {}
    void DefaultGroupIsActive(bool active) override {
        plant_.connectedStep("DefaultGroupIsActive " + std::to_string(active));
    }
    void DefaultGroupUpdateRate(int rate) override {
        plant_.connectedStep("DefaultGroupUpdateRate " + std::to_string(rate));
    }
    std::shared_ptr<OPCGroup> Add(const std::string& name) override {
        plant_.connectedStep("Groups.Add " + name);
        if (groups.contains(name)) throw RuntimeError(ErrorNumber::KeyInUse);
        return groups[name] = std::make_shared<FakeOPCGroup>(plant_);
    }
    void Remove(const std::string& name) override {
        plant_.step("Groups.Remove " + name);
        groups.erase(name);
    }
    std::map<std::string, std::shared_ptr<FakeOPCGroup>> groups;

private:
    FakePlant& plant_;
};

class FakeOPCBrowser final : public OPCBrowser {
public:
    explicit FakeOPCBrowser(FakePlant& plant) : plant_(plant) {}
    void MoveToRoot() override { plant_.connectedStep("MoveToRoot"); }
    void MoveDown(const std::string& branch) override {
        plant_.connectedStep("MoveDown " + branch);
        branch_ = branch;
    }
    void ShowBranches() override {
        plant_.connectedStep("ShowBranches");
        names_.clear();
        for (const auto& [name, leaves] : plant_.branches) names_.push_back(name);
    }
    void ShowLeafs() override {
        plant_.connectedStep("ShowLeafs");
        names_.clear();
        for (const auto& [name, leaves] : plant_.branches)
            if (name == branch_)
                for (const FakePlant::Leaf& leaf : leaves) names_.push_back(leaf.name);
    }
    std::int32_t Count() const override { return static_cast<std::int32_t>(names_.size()); }
    std::string Item(std::int32_t index) const override {
        return names_.at(static_cast<std::size_t>(index - 1));
    }
    std::string GetItemID(const std::string& leaf) override {
        plant_.connectedStep("GetItemID " + leaf);
        return branch_ + "." + leaf;
    }

private:
    FakePlant& plant_;
    std::string branch_;
    std::vector<std::string> names_;
};

class FakeOPCServer final : public OPCServer {
public:
    explicit FakeOPCServer(FakePlant& plant) : plant_(plant), groups(plant) {}
    int ServerState() const override { return plant_.state; }
    void Connect(const std::string& progID, const std::optional<std::string>& node) override {
        plant_.step("Connect " + progID + (node ? " on '" + *node + "'" : ""));
        if (!plant_.reachable) throw RuntimeError(-2147023174, "Server non disponibile");
        plant_.state = opc::Running;
    }
    void Disconnect() override {
        plant_.step("Disconnect");
        plant_.state = opc::Disconnected;
    }
    velt::OPCGroups& OPCGroups() override { return groups; }
    std::unique_ptr<OPCBrowser> CreateBrowser() override {
        plant_.connectedStep("CreateBrowser");
        return std::make_unique<FakeOPCBrowser>(plant_);
    }
    void ExpectBranches(const std::vector<std::string>& branches) override {
        std::string call = "ExpectBranches";
        for (const std::string& branch : branches) call += " " + branch;
        plant_.connectedStep(call);
    }
    /// Without a notice: that comes, if at all, by ServerShutDown.
    void die() {
        plant_.reachable = false;
        plant_.state = opc::Disconnected;
    }

private:
    FakePlant& plant_;

public:
    FakeOPCGroups groups;
};

class FakeOPCServerFactory final : public OPCServerFactory {
public:
    std::shared_ptr<OPCServer> create() override {
        plant.step("create");
        return server = std::make_shared<FakeOPCServer>(plant);
    }
    FakePlant plant;
    std::shared_ptr<FakeOPCServer> server;  ///< the newest
};

}  // namespace velt::fakes
