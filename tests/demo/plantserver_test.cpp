// SPDX-License-Identifier: MIT
#include "demo/plantserver.h"

#include "demo/serverport.h"
#include "platform/runtimeerror.h"
#include "tests/demo/uaclient.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <set>
#include <thread>

namespace velt::demo {
namespace {

PlantServerOptions quick() {
    PlantServerOptions options;
    options.interval = std::chrono::milliseconds(20);
    options.server.shutdownNotice = std::chrono::milliseconds(300);
    return options;
}

class PlantServerTest : public testing::Test {
protected:
    void start(PlantServerOptions options = quick()) {
        server = startPlantServer(std::move(options), clock);
        ASSERT_EQ(client.connect(server->endpoint()), UA_STATUSCODE_GOOD);
        for (const UaNode& node : client.browse(ns0(UA_NS0ID_OBJECTSFOLDER))) {
            stations.push_back(node.name);
            space = node.space;
        }
    }
    UA_NodeId id(std::string_view text) const { return uaId(space, text); }

    UA_StatusCode write(std::string_view item, const PlantValue& value) {
        UA_Variant variant;
        UA_Variant_init(&variant);
        EXPECT_EQ(toUa(value, variant), UA_STATUSCODE_GOOD);
        const UA_StatusCode status =
            UA_Client_writeValueAttribute(client.get(), id(item), &variant);
        UA_Variant_clear(&variant);
        return status;
    }
    std::optional<PlantValue> read(std::string_view item) {
        UA_Variant variant;
        UA_Variant_init(&variant);
        std::optional<PlantValue> value;
        if (UA_Client_readValueAttribute(client.get(), id(item), &variant) == UA_STATUSCODE_GOOD)
            value = fromUa(variant);
        UA_Variant_clear(&variant);
        return value;
    }

    SystemClock clock;
    std::unique_ptr<OpcServer> server;
    UaClient client;
    std::vector<std::string> stations;
    std::uint16_t space = 0;
};

TEST_F(PlantServerTest, OffersStationsWithVariablesOfEveryType) {
    start();
    EXPECT_THAT(stations, testing::UnorderedElementsAre("RTU01", "RTU02", "RTU03", "RTU04", "RTU05",
                                                        "RTU06", "RTU07", "RTU08", "PC_Server"));
    EXPECT_GE(space, 2);  // not that of the standard nor that of the server as a program
    for (const std::string& station : stations) {
        const auto variables = client.variablesBelow(id(station));
        EXPECT_GE(variables.size(), 40u) << station;
        EXPECT_LE(variables.size(), 60u) << station;
    }
    std::set<std::size_t> types;
    for (const UaNode& variable : client.variablesBelow(id("RTU01")))
        if (const auto value = read(variable.id)) types.insert(value->index());
    EXPECT_EQ(types.size(), std::variant_size_v<PlantValue>);
}

TEST_F(PlantServerTest, HoldsWhatIsWrittenUnlessItIsWrong) {
    start();
    using Numbers = std::vector<std::int32_t>;
    const struct {
        const char* item;
        PlantValue value;
        UA_StatusCode answer;
    } Cases[] = {
        {"RTU01.Comandi.Livello di avvio", 3.25, UA_STATUSCODE_GOOD},
        {"RTU01.Comandi.Livello di avvio", 5.01, UA_STATUSCODE_BADOUTOFRANGE},
        {"RTU01.Comandi.Livello di avvio", std::nan(""), UA_STATUSCODE_BADOUTOFRANGE},
        {"RTU01.Comandi.Livello di avvio", 3.0F, UA_STATUSCODE_BADTYPEMISMATCH},
        {"RTU01.Comandi.Livello di avvio", std::vector{3.0}, UA_STATUSCODE_BADTYPEMISMATCH},
        {"RTU01.Comandi.Curva di pressione", std::vector{1.0F, 2.0F}, UA_STATUSCODE_GOOD},
        {"RTU01.Comandi.Curva di pressione", std::vector{1.0F, 10.5F}, UA_STATUSCODE_BADOUTOFRANGE},
        {"RTU01.Comandi.Fasce orarie", Numbers{1, 2, 3, 4, 5}, UA_STATUSCODE_GOOD},
        {"RTU01.Comandi.Fasce orarie", Numbers{}, UA_STATUSCODE_GOOD},
        {"RTU01.Comandi.Consenso marcia", false, UA_STATUSCODE_GOOD},
        {"RTU01.Comandi.Nota operatore", std::string("così è"), UA_STATUSCODE_GOOD},
        {"RTU01.Comandi.Prossima manutenzione", Date::fromFields({2027, 7, 1, 8, 30, 0, 0}),
         UA_STATUSCODE_GOOD},
        {"RTU01.Livello vasca", 3.0, UA_STATUSCODE_BADNOTWRITABLE},
    };
    for (const auto& c : Cases) {
        const auto before = read(c.item);
        const UA_StatusCode answer = write(c.item, c.value);
        EXPECT_EQ(answer, c.answer) << c.item << ' ' << UA_StatusCode_name(answer);
        if (c.answer == UA_STATUSCODE_GOOD) {
            EXPECT_EQ(read(c.item), c.value) << c.item;
        } else if (c.answer == UA_STATUSCODE_BADOUTOFRANGE) {
            EXPECT_EQ(read(c.item), before) << c.item;
        }
    }
}

struct Seen {
    int notifications = 0;
    UA_StatusCode lastStatus = 0;
};

TEST_F(PlantServerTest, ServesChangesQualitiesAndRefusals) {
    start();
    UA_CreateSubscriptionRequest request = UA_CreateSubscriptionRequest_default();
    request.requestedPublishingInterval = 20;
    const auto subscription =
        UA_Client_Subscriptions_create(client.get(), request, nullptr, nullptr, nullptr);
    std::map<std::string, Seen> seen;
    const auto watch = [&](const std::string& item) {
        UA_MonitoredItemCreateRequest one = UA_MonitoredItemCreateRequest_default(id(item));
        one.requestedParameters.samplingInterval = 20;
        return UA_Client_MonitoredItems_createDataChange(
                   client.get(), subscription.subscriptionId, UA_TIMESTAMPSTORETURN_BOTH, one,
                   &seen[item],
                   [](UA_Client*, UA_UInt32, void*, UA_UInt32, void* context, UA_DataValue* value) {
                       auto& s = *static_cast<Seen*>(context);
                       ++s.notifications;
                       s.lastStatus = value->status;
                   },
                   nullptr)
            .statusCode;
    };
    const std::string changing = "RTU01.Livello vasca";
    const std::string constant = "RTU01.Quadro.Fondo scala livello";
    EXPECT_EQ(watch("RTU01.Riserva.Canale 15"), UA_STATUSCODE_BADNODEIDUNKNOWN);
    EXPECT_EQ(watch(changing), UA_STATUSCODE_GOOD);
    EXPECT_EQ(watch(constant), UA_STATUSCODE_GOOD);
    ASSERT_TRUE(client.until([&] { return seen[changing].notifications >= 5; }));
    EXPECT_EQ(seen[constant].notifications, 1);
    EXPECT_EQ(seen[constant].lastStatus, 0x700u);  // good, limit bits "constant"
}

TEST_F(PlantServerTest, TellsItsEndBeforehand) {
    start();
    UA_CreateSubscriptionRequest request = UA_CreateSubscriptionRequest_default();
    request.requestedPublishingInterval = 50;
    const auto subscription =
        UA_Client_Subscriptions_create(client.get(), request, nullptr, nullptr, nullptr);
    UA_Int32 state = -1;
    UA_MonitoredItemCreateRequest item =
        UA_MonitoredItemCreateRequest_default(ns0(UA_NS0ID_SERVER_SERVERSTATUS_STATE));
    item.requestedParameters.samplingInterval = 50;
    UA_Client_MonitoredItems_createDataChange(
        client.get(), subscription.subscriptionId, UA_TIMESTAMPSTORETURN_BOTH, item, &state,
        [](UA_Client*, UA_UInt32, void*, UA_UInt32, void* context, UA_DataValue* value) {
            if (value->hasValue && UA_Variant_isScalar(&value->value))
                *static_cast<UA_Int32*>(context) = *static_cast<UA_Int32*>(value->value.data);
        },
        nullptr);
    ASSERT_TRUE(client.until([&] { return state == UA_SERVERSTATE_RUNNING; }));
    std::thread end([this] { server.reset(); });
    EXPECT_TRUE(client.until([&] { return state == UA_SERVERSTATE_SHUTDOWN; }));
    end.join();
}

TEST_F(PlantServerTest, RefusesAPortThatIsTaken) {
    start();
    PlantServerOptions second = quick();
    second.server.port = server->port();
    EXPECT_THROW(startPlantServer(second, clock), RuntimeError);
    EXPECT_TRUE(read("RTU01.Orologio"));
    server.reset();
    EXPECT_NO_THROW(startPlantServer(second, clock));  // its connections linger, it does not
}

TEST_F(PlantServerTest, MakesAPlantOfAnySize) {
    PlantServerOptions load = quick();
    load.loadStations = 3;
    load.loadVariables = 17;
    start(load);
    EXPECT_EQ(stations.size(), 4u);
    EXPECT_EQ(client.variablesBelow(id("RTU03")).size(), 17u);
    const auto before = read("RTU03.Misura 0017");
    EXPECT_TRUE(client.until([&] { return read("RTU03.Misura 0017") != before; }));
}

}  // namespace
}  // namespace velt::demo
