// SPDX-License-Identifier: MIT
#pragma once

#include "platform/date.h"
#include "platform/event.h"
#include "platform/export.h"
#include "platform/variant.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

/// The shape of the OPC Data Access automation objects that the OPC viewer uses. Collections count
/// from 1. Errors are RuntimeError. Events arrive on the user-interface thread.
namespace velt {

/// Values of OPCServer::ServerState.
namespace opc {
inline constexpr int Running = 1;
inline constexpr int Disconnected = 6;
}  // namespace opc

class VELT_API OPCItem {
public:
    virtual ~OPCItem() = default;
    [[nodiscard]] virtual std::int32_t ClientHandle() const = 0;
    /// Known also when the connection is dead.
    [[nodiscard]] virtual std::int32_t ServerHandle() const = 0;
    [[nodiscard]] virtual std::string ItemID() const = 0;
    /// A type code of vartype, or any other code of the VARTYPE enumeration.
    [[nodiscard]] virtual int CanonicalDataType() const = 0;
    virtual void Write(const Variant& value) = 0;
};

class VELT_API OPCItems {
public:
    virtual ~OPCItems() = default;
    virtual void DefaultIsActive(bool active) = 0;

    /// A hint: AddItem calls for these item IDs follow. An implementation may create them all in
    /// one go and answer the calls from that.
    virtual void ExpectItems(const std::vector<std::string>& itemIDs) { (void)itemIDs; }
    /// The calls that ExpectItems announced are over.
    virtual void ExpectationsDone() {}
    /// Null, or a RuntimeError, when the server refuses the item.
    virtual std::shared_ptr<OPCItem> AddItem(const std::string& itemID,
                                             std::int32_t clientHandle) = 0;

    /// Count, Item and Remove work on the local state, so also when the connection is dead.
    [[nodiscard]] virtual std::int32_t Count() const = 0;
    [[nodiscard]] virtual std::shared_ptr<OPCItem> Item(std::int32_t index) const = 0;
    /// The item with that client handle; null when there is none.
    [[nodiscard]] virtual std::shared_ptr<OPCItem> ItemOfClient(
        std::int32_t clientHandle) const = 0;
    /// Removes items by their server handles; an error code for each, 0 for success.
    virtual std::vector<std::int32_t> Remove(const std::vector<std::int32_t>& serverHandles) = 0;
};

/// What one data event brings: parallel lists.
struct DataChangeArgs {
    std::int32_t TransactionID = 0;
    std::vector<std::int32_t> ClientHandles;
    std::vector<Variant> ItemValues;
    std::vector<std::int32_t> Qualities;  ///< 16-bit quality words of OPC Data Access
    std::vector<Date> TimeStamps;         ///< civil local time
};

class VELT_API OPCGroup {
public:
    virtual ~OPCGroup() = default;
    virtual void IsSubscribed(bool subscribed) = 0;
    [[nodiscard]] virtual velt::OPCItems& OPCItems() = 0;

    Event<const DataChangeArgs&> DataChange;
};

class VELT_API OPCGroups {
public:
    virtual ~OPCGroups() = default;
    virtual void DefaultGroupIsActive(bool active) = 0;
    /// Milliseconds.
    virtual void DefaultGroupUpdateRate(int rate) = 0;
    /// RuntimeError when the name is in use or there is no connection.
    [[nodiscard]] virtual std::shared_ptr<OPCGroup> Add(const std::string& name) = 0;
    virtual void Remove(const std::string& name) = 0;
};

/// Walks the server's address space.
class VELT_API OPCBrowser {
public:
    virtual ~OPCBrowser() = default;
    virtual void MoveToRoot() = 0;
    virtual void MoveDown(const std::string& branch) = 0;
    /// Count and Item then speak of the branches, or the leaves, of the current position.
    virtual void ShowBranches() = 0;
    virtual void ShowLeafs() = 0;
    [[nodiscard]] virtual std::int32_t Count() const = 0;
    [[nodiscard]] virtual std::string Item(std::int32_t index) const = 0;
    [[nodiscard]] virtual std::string GetItemID(const std::string& leaf) = 0;
};

class VELT_API OPCServer {
public:
    virtual ~OPCServer() = default;
    [[nodiscard]] virtual int ServerState() const = 0;
    /// Without a node: the local machine.
    virtual void Connect(const std::string& progID, const std::optional<std::string>& node) = 0;
    virtual void Disconnect() = 0;
    [[nodiscard]] virtual velt::OPCGroups& OPCGroups() = 0;
    [[nodiscard]] virtual std::unique_ptr<OPCBrowser> CreateBrowser() = 0;
    /// A hint: the leaves of these branches of the root will be browsed next. An implementation
    /// may fetch them all in one go.
    virtual void ExpectBranches(const std::vector<std::string>& branches) { (void)branches; }

    /// The server shuts down, or the connection is lost; the argument is the reason.
    Event<const std::string&> ServerShutDown;
};

class VELT_API OPCServerFactory {
public:
    virtual ~OPCServerFactory() = default;
    [[nodiscard]] virtual std::shared_ptr<OPCServer> create() = 0;
};

}  // namespace velt
