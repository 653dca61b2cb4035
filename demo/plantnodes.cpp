// SPDX-License-Identifier: MIT
#include "demo/plantnodes.h"

#include "adapters/opcua/times.h"
#include "demo/plantcourse.h"
#include "demo/uaerror.h"
#include "demo/uavalue.h"

#include <open62541/server.h>

#include <exception>
#include <type_traits>
#include <utility>

namespace velt::demo {
namespace {

UA_StatusCode statusOf(const PlantQuality& quality) {
    constexpr UA_StatusCode HasInfo = 0x0400;  // without it the limit bits mean nothing
    UA_StatusCode status = UA_STATUSCODE_GOOD;
    switch (quality.fault) {
        case Fault::None: break;
        case Fault::Uncertain: status = UA_STATUSCODE_UNCERTAINSENSORNOTACCURATE; break;
        case Fault::LastUsable: status = UA_STATUSCODE_UNCERTAINLASTUSABLEVALUE; break;
        case Fault::SensorFailure: status = UA_STATUSCODE_BADSENSORFAILURE; break;
        case Fault::NoCommunication: status = UA_STATUSCODE_BADNOCOMMUNICATION; break;
        case Fault::OutOfService: status = UA_STATUSCODE_BADOUTOFSERVICE; break;
    }
    switch (quality.limit) {
        case Limit::None: break;
        case Limit::Low: status |= HasInfo | 0x0100; break;
        case Limit::High: status |= HasInfo | 0x0200; break;
        case Limit::Constant: status |= HasInfo | 0x0300; break;
    }
    return status;
}

bool inRange(const PlantVariable& variable, const PlantValue& value) {
    const auto fits = [&variable](const auto& one) {
        if constexpr (std::is_arithmetic_v<std::decay_t<decltype(one)>>) {
            const auto number = static_cast<double>(one);
            return number >= variable.low && number <= variable.high;  // false for NaN
        } else {
            return true;
        }
    };
    return std::visit(
        [&fits](const auto& held) {
            if constexpr (requires { held.begin(); } &&
                          !std::is_same_v<std::decay_t<decltype(held)>, std::string>) {
                for (const auto& one : held)
                    if (!fits(one)) return false;
                return true;
            } else {
                return fits(held);
            }
        },
        value);
}

}  // namespace

/// What the library calls: no exception may pass through it.
struct PlantNodes::Callbacks {
    static UA_StatusCode read(UA_Server*, const UA_NodeId*, void*, const UA_NodeId*, void* context,
                              UA_Boolean, const UA_NumericRange* range, UA_DataValue* result) {
        const Node& node = *static_cast<const Node*>(context);
        const PlantNodes& plant = *node.owner;
        // This answer alone makes the library refuse a monitored item. It reads also while a node
        // is being added, which only succeeds with a good value.
        if (node.variable->access == Access::Refused && plant.serving_)
            return UA_STATUSCODE_BADNODEIDUNKNOWN;
        try {
            const std::int64_t now = plant.now();
            const PlantValue value =
                node.held ? *node.held : valueAt(*node.variable, now, plant.interval_);
            UA_Variant whole;
            UA_Variant_init(&whole);
            UA_StatusCode status = toUa(value, whole);
            if (status == UA_STATUSCODE_GOOD && range)
                status = UA_Variant_copyRange(&whole, &result->value, *range);
            else
                std::swap(whole, result->value);
            UA_Variant_clear(&whole);
            if (status != UA_STATUSCODE_GOOD) return status;
            result->hasValue = true;
            if (plant.serving_) result->status = statusOf(qualityAt(*node.variable, now));
            result->hasStatus = result->status != UA_STATUSCODE_GOOD;
            result->sourceTimestamp = UA_DateTime_now();
            result->hasSourceTimestamp = true;
            return UA_STATUSCODE_GOOD;
        } catch (const std::exception&) {
            return UA_STATUSCODE_BADINTERNALERROR;
        }
    }

    static UA_StatusCode write(UA_Server*, const UA_NodeId*, void*, const UA_NodeId*, void* context,
                               const UA_NumericRange* range, const UA_DataValue* given) {
        Node& node = *static_cast<Node*>(context);
        if (range) return UA_STATUSCODE_BADWRITENOTSUPPORTED;
        if (!given->hasValue) return UA_STATUSCODE_BADTYPEMISMATCH;
        try {
            std::optional<PlantValue> value = fromUa(given->value);
            if (!value) return UA_STATUSCODE_BADTYPEMISMATCH;
            if (node.variable->access == Access::Ranged && !inRange(*node.variable, *value))
                return UA_STATUSCODE_BADOUTOFRANGE;
            node.held = std::move(value);
            return UA_STATUSCODE_GOOD;
        } catch (const std::exception&) {
            return UA_STATUSCODE_BADINTERNALERROR;
        }
    }
};

PlantNodes::PlantNodes(std::vector<PlantStation> stations, std::chrono::milliseconds interval)
    : stations_(std::move(stations)), interval_(interval.count()) {}

std::int64_t PlantNodes::now() const {
    const std::int64_t at = opcua::toDate(UA_DateTime_now()).milliseconds();
    return at - at % interval_;
}

void PlantNodes::addTo(UA_Server& server, std::uint16_t space) {
    server_ = &server;
    space_ = space;
    for (const PlantStation& station : stations_) {
        addObject("", station.name, station.name, station.place);
        for (const PlantVariable& variable : station.variables) addVariable(station.name, variable);
    }
    serving_ = true;
}

void PlantNodes::addObject(std::string_view parent, const std::string& id, std::string_view name,
                           std::string_view description) {
    UA_ObjectAttributes attributes = UA_ObjectAttributes_default;
    attributes.displayName = uaItalian(name);
    attributes.description = uaItalian(description);
    check(UA_Server_addObjectNode(
              server_, uaId(space_, id),
              parent.empty() ? ns0(UA_NS0ID_OBJECTSFOLDER) : uaId(space_, parent),
              parent.empty() ? ns0(UA_NS0ID_ORGANIZES) : ns0(UA_NS0ID_HASCOMPONENT),
              uaName(space_, name), ns0(UA_NS0ID_BASEOBJECTTYPE), attributes, nullptr, nullptr),
          id);
}

void PlantNodes::addFolders(const std::string& station, std::string_view folder) {
    std::string parent = station;
    while (!folder.empty()) {
        const std::string_view name = folder.substr(0, folder.find('/'));
        folder.remove_prefix(std::min(folder.size(), name.size() + 1));
        const std::string id = parent + "." + std::string(name);
        if (folders_.insert(id).second) addObject(parent, id, name, "");
        parent = id;
    }
}

void PlantNodes::addVariable(const std::string& station, const PlantVariable& variable) {
    addFolders(station, variable.folder);
    std::string parent = station;
    if (!variable.folder.empty()) parent += "." + std::string(variable.folder);
    for (char& c : parent)
        if (c == '/') c = '.';
    const std::string id = parent + "." + variable.name;

    UA_UInt32 dimensions = 0;  // any length
    UA_VariableAttributes attributes = UA_VariableAttributes_default;
    attributes.displayName = uaItalian(variable.name);
    attributes.description = uaItalian(variable.unit);
    attributes.dataType = uaType(variable.type).typeId;
    attributes.valueRank = variable.length > 0 ? 1 : -1;
    attributes.arrayDimensionsSize = variable.length > 0 ? 1 : 0;
    attributes.arrayDimensions = variable.length > 0 ? &dimensions : nullptr;
    attributes.accessLevel = UA_ACCESSLEVELMASK_READ;
    if (variable.access == Access::Writable || variable.access == Access::Ranged)
        attributes.accessLevel |= UA_ACCESSLEVELMASK_WRITE;

    nodes_.push_back({&variable, this, std::nullopt});
    check(UA_Server_addDataSourceVariableNode(
              server_, uaId(space_, id), uaId(space_, parent), ns0(UA_NS0ID_HASCOMPONENT),
              uaName(space_, variable.name), ns0(UA_NS0ID_BASEDATAVARIABLETYPE), attributes,
              {Callbacks::read, Callbacks::write}, &nodes_.back(), nullptr),
          id);
}

}  // namespace velt::demo
