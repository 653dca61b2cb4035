// SPDX-License-Identifier: MIT
#include "adapters/opcua/runtimelink.h"

#include "adapters/opcua/monitoring.h"
#include "adapters/opcua/status.h"

#include <open62541/client_highlevel_async.h>
#include <open62541/client_subscriptions.h>
#include <open62541/nodeids.h>

#include <algorithm>
#include <array>
#include <unordered_set>
#include <utility>

namespace velt::opcua {
namespace {

constexpr double Interval = 100.0;  // ms, from a change of state to its news
constexpr UA_UInt32 KeepAlive = 50;
constexpr UA_UInt32 EventQueue = 100;
constexpr std::int64_t MostLateness = 6;  // s; no answer takes longer

enum ErrorField { Message, Stazione, ErrorFields };

std::string textOf(const UA_Variant& value) {
    if (UA_Variant_hasScalarType(&value, &UA_TYPES[UA_TYPES_STRING]))
        return toText(*static_cast<const UA_String*>(value.data));
    if (UA_Variant_hasScalarType(&value, &UA_TYPES[UA_TYPES_LOCALIZEDTEXT]))
        return toText(static_cast<const UA_LocalizedText*>(value.data)->text);
    return "";
}

}  // namespace

void RuntimeLink::open(UA_Client& client) {
    limits_ = readLimits(client);
    runtime_ = findRuntime(client, limits_);
    for (const RuntimeNodes::Station& station : runtime_.stations) {
        watched_.push_back({this, station.name, station.stato, std::nullopt, 0});
        // Of a name that occurs twice the first one counts.
        byName_.emplace(station.name, &watched_.back());
    }

    readBeginning(client);

    const UA_UInt32 subscription =
        createSubscription(client, {.interval = Interval, .keepAlive = KeepAlive});
    watchErrors(client, subscription);
    watchStations(client, subscription);
}

void RuntimeLink::readBeginning(UA_Client& client) {
    std::vector<UA_ReadValueId> values;
    for (const Watched& station : watched_)
        values.push_back(attributeOf(*station.stato, UA_ATTRIBUTEID_VALUE));
    readAttributes(client, limits_, values, [this](std::size_t number, const UA_DataValue& value) {
        take(watched_[number], value, false);
    });
}

void RuntimeLink::watchErrors(UA_Client& client, UA_UInt32 subscription) {
    std::array<UA_QualifiedName, ErrorFields> names = {
        {{0, borrowed("Message")}, {runtime_.space, borrowed("Stazione")}}};
    std::array<UA_SimpleAttributeOperand, ErrorFields> fields{};
    for (std::size_t i = 0; i < ErrorFields; ++i) {
        fields[i].typeDefinitionId = i == Message
                                         ? UA_NODEID_NUMERIC(0, UA_NS0ID_BASEEVENTTYPE)
                                         : UA_NODEID_NUMERIC(runtime_.space, ErroreEventType);
        fields[i].browsePath = &names[i];
        fields[i].browsePathSize = 1;
        fields[i].attributeId = UA_ATTRIBUTEID_VALUE;
    }
    UA_EventFilter filter{};
    filter.selectClauses = fields.data();
    filter.selectClausesSize = fields.size();
    UA_MonitoredItemCreateRequest item = UA_MonitoredItemCreateRequest_default(*runtime_.object);
    item.itemToMonitor.attributeId = UA_ATTRIBUTEID_EVENTNOTIFIER;
    item.requestedParameters.queueSize = EventQueue;
    UA_ExtensionObject_setValueNoDelete(&item.requestedParameters.filter, &filter,
                                        &UA_TYPES[UA_TYPES_EVENTFILTER]);
    const Owned<UA_MonitoredItemCreateResult, UA_TYPES_MONITOREDITEMCREATERESULT> result(
        UA_Client_MonitoredItems_createEvent(
            &client, subscription, UA_TIMESTAMPSTORETURN_NEITHER, item, this,
            [](UA_Client*, UA_UInt32, void*, UA_UInt32, void* self, std::size_t count,
               UA_Variant* values) {
                // Another kind of event has no such field.
                if (count != ErrorFields ||
                    !UA_Variant_hasScalarType(&values[Stazione], &UA_TYPES[UA_TYPES_STRING]))
                    return;
                static_cast<RuntimeLink*>(self)->news_->errore(textOf(values[Message]),
                                                               textOf(values[Stazione]));
            },
            nullptr));
    // A runtime without events is poor but of use: its states are seen.
}

void RuntimeLink::watchStations(UA_Client& client, UA_UInt32 subscription) {
    std::vector<MonitoredNode> nodes;
    for (Watched& station : watched_) nodes.push_back({station.stato.get(), &station});
    const auto changed = [](UA_Client*, UA_UInt32, void*, UA_UInt32, void* context,
                            UA_DataValue* value) {
        take(*static_cast<Watched*>(context), *value, false);
    };
    monitor(
        client, limits_, {.subscription = subscription, .interval = Interval, .changed = changed},
        nodes, [this](std::size_t number, const UA_MonitoredItemCreateResult& result) {
            // Its state is still told when it is asked for.
            if (UA_StatusCode_isBad(result.statusCode))
                news_->errore("i cambiamenti di stato non arrivano: " + describe(result.statusCode),
                              watched_[number].name);
        });
}

void RuntimeLink::take(Watched& station, const UA_DataValue& value, bool asked) {
    // Without a value the last state known stays.
    if (!value.hasValue || !UA_Variant_hasScalarType(&value.value, &UA_TYPES[UA_TYPES_INT32]))
        return;
    std::int32_t code = *static_cast<const UA_Int32*>(value.value.data);
    if (value.hasServerTimestamp) {
        // What a server does side by side may arrive in another order: the newest counts. What
        // seems much older is not: the server's clock has been set back.
        const auto seconds = [](UA_DateTime time) { return time / UA_DATETIME_SEC; };
        if (value.serverTimestamp < station.time &&
            seconds(station.time) - seconds(value.serverTimestamp) < MostLateness)
            code = station.code.value_or(code);
        else
            station.time = value.serverTimestamp;
    }
    const std::optional<std::int32_t> before = std::exchange(station.code, code);
    // What was not known before is no change.
    if (asked || (before && before != code)) station.link->news_->stato(station.name, code);
}

/// Which stations a read under way is about.
struct RuntimeLink::StateRequest {
    std::vector<Watched*> stations;
};

void RuntimeLink::requestStates(UA_Client& client, const std::vector<std::string>& names) {
    std::vector<Watched*> stations;
    std::unordered_set<Watched*> unique;  // errors in a row each ask for all
    for (const std::string& name : names)
        if (const auto known = byName_.find(name);
            known != byName_.end() && unique.insert(known->second).second)
            stations.push_back(known->second);
    for (std::size_t i = 0; i < sliceCount(stations.size(), limits_.read); ++i) {
        const Slice part = slice(i, stations.size(), limits_.read);
        const auto first = stations.begin() + static_cast<std::ptrdiff_t>(part.first);
        auto request = std::make_unique<StateRequest>(
            StateRequest{{first, first + static_cast<std::ptrdiff_t>(part.size)}});
        std::vector<UA_ReadValueId> values;
        for (const Watched* station : request->stations)
            values.push_back(attributeOf(*station->stato, UA_ATTRIBUTEID_VALUE));
        UA_ReadRequest read{};
        read.nodesToRead = values.data();
        read.nodesToReadSize = values.size();
        read.timestampsToReturn = UA_TIMESTAMPSTORETURN_SERVER;
        const auto answered = [](UA_Client*, void* context, UA_UInt32, void* response) {
            const std::unique_ptr<StateRequest> asked(static_cast<StateRequest*>(context));
            const auto& answer = *static_cast<const UA_ReadResponse*>(response);
            // What failed is told to nobody: it would be asked for again at once.
            for (std::size_t n = 0; n < std::min(asked->stations.size(), answer.resultsSize); ++n)
                take(*asked->stations[n], answer.results[n], true);
        };
        if (__UA_Client_AsyncService(&client, &read, &UA_TYPES[UA_TYPES_READREQUEST], answered,
                                     &UA_TYPES[UA_TYPES_READRESPONSE], request.get(),
                                     nullptr) == UA_STATUSCODE_GOOD)
            (void)request.release();  // answered() gets it in any case
    }
}

/// A call under way.
struct RuntimeLink::Call {
    std::shared_ptr<RuntimeNewsQueue> news;
    std::string station;

    void failed(UA_StatusCode status) const {
        news->errore(status == UA_STATUSCODE_BADNOTFOUND ? "stazione sconosciuta al runtime"
                                                         : describe(status),
                     station);
    }
};

void RuntimeLink::call(UA_Client& client, RuntimeMethod method, const std::string& station) {
    UA_String name = borrowed(station);
    UA_Variant argument;
    UA_Variant_setScalar(&argument, &name, &UA_TYPES[UA_TYPES_STRING]);
    const bool ofStation = method != RuntimeMethod::DownloadTutte;
    const auto answered = [](UA_Client*, void* context, UA_UInt32, UA_CallResponse* response) {
        const std::unique_ptr<Call> call(static_cast<Call*>(context));
        UA_StatusCode status = response->responseHeader.serviceResult;
        if (status == UA_STATUSCODE_GOOD && response->resultsSize > 0)
            status = response->results[0].statusCode;
        // The end of the link is told as such, and not for each call that was under way.
        const bool linkEnded = status == UA_STATUSCODE_BADSHUTDOWN ||
                               status == UA_STATUSCODE_BADCONNECTIONCLOSED ||
                               status == UA_STATUSCODE_BADSECURECHANNELCLOSED;
        if (UA_StatusCode_isBad(status) && !linkEnded) call->failed(status);
    };
    auto sent = std::make_unique<Call>(Call{news_, station});
    const UA_StatusCode status = UA_Client_call_async(
        &client, *runtime_.object, *runtime_.methods[static_cast<std::size_t>(method)],
        ofStation ? 1 : 0, &argument, answered, sent.get(), nullptr);
    if (status == UA_STATUSCODE_GOOD)
        (void)sent.release();  // answered() gets it in any case
    else
        sent->failed(status);
}

}  // namespace velt::opcua
