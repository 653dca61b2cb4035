// SPDX-License-Identifier: MIT
#include "demo/plantserver.h"

#include "demo/plantvalue.h"
#include "tests/adapters/opcua/serverfixture.h"
#include "tests/errorof.h"

#include <cmath>
#include <set>

namespace velt::demo {
namespace {

using namespace testing;

class PlantServerTest : public opcua::test::ServerFixture {
protected:
    std::unique_ptr<OpcServer> start(PlantServerOptions options = {}) {
        options.interval = std::chrono::milliseconds(20);
        options.server.shutdownNotice = std::chrono::milliseconds(0);
        auto server = startPlantServer(std::move(options), clock_);
        connect(server->endpoint());
        return server;
    }
    SystemClock clock_;
};

TEST_F(PlantServerTest, OffersStationsWithVariablesOfEveryTypeThatMove) {
    const auto server = start();
    std::vector<std::string> stations = branches();
    EXPECT_THAT(stations, UnorderedElementsAre("RTU01", "RTU02", "RTU03", "RTU04", "RTU05", "RTU06",
                                               "RTU07", "RTU08", "PC_Server"));
    for (const std::string& station : stations)
        EXPECT_THAT(itemIDs(station), SizeIs(AllOf(Ge(40u), Le(60u)))) << station;
    const auto items = add(itemIDs("RTU01"));
    EXPECT_FALSE(items.contains("RTU01.Riserva.Canale 15")) << "refused";
    std::set<int> types;
    for (const auto& [id, item] : items) types.insert(item->CanonicalDataType());
    EXPECT_EQ(types.size(), std::variant_size_v<PlantValue>);
    ASSERT_TRUE(until([&] { return shown_.size() == items.size(); }));
    const auto shown = [&](const char* id) { return shown_[items.at(id)->ClientHandle()]; };
    EXPECT_EQ(shown("RTU01.Quadro.Fondo scala livello").quality, 195) << "good, constant";
    const Variant level = shown("RTU01.Livello vasca").value;
    EXPECT_TRUE(until([&] { return shown("RTU01.Livello vasca").value != level; }));
}

TEST_F(PlantServerTest, HoldsWhatIsWrittenUnlessItIsWrong) {
    const auto server = start();
    const auto items = add(itemIDs("RTU01"));
    ASSERT_TRUE(until([&] { return shown_.size() == items.size(); }));
    const struct {
        const char* item;
        Variant value;
        const char* problem = "";
    } cases[] = {
        {"Livello di avvio", 3.25},
        {"Livello di avvio", 5.01, "fuori dai limiti"},
        {"Livello di avvio", std::nan(""), "fuori dai limiti"},
        {"Curva di pressione", std::vector{1.0F, 2.0F}},
        {"Curva di pressione", std::vector{1.0F, 10.5F}, "fuori dai limiti"},
        {"Fasce orarie", std::vector<std::int32_t>{1, 2, 3, 4, 5}},
        {"Fasce orarie", std::vector<std::int32_t>{}},
        {"Prossima manutenzione", Date::fromFields({2027, 7, 1, 8, 30, 0, 0})},
    };
    for (const auto& c : cases) {
        const auto& item = items.at(std::string("RTU01.Comandi.") + c.item);
        const Variant before = shown_[item->ClientHandle()].value;
        const RuntimeError error = raisedBy([&] { item->Write(c.value); });
        EXPECT_THAT(error.Description(), HasSubstr(*c.problem ? c.problem : "none")) << c.item;
        const Variant& expected = *c.problem ? before : c.value;
        EXPECT_TRUE(until([&] { return shown_[item->ClientHandle()].value == expected; }))
            << c.item;
    }
    EXPECT_THAT(raisedBy([&] { items.at("RTU01.Livello vasca")->Write(3.0); }).Description(),
                HasSubstr("sola lettura"));
}

TEST_F(PlantServerTest, MakesAPlantOfAnySizeOnAPortOfItsOwn) {
    PlantServerOptions load;
    load.loadStations = 3;
    load.loadVariables = 17;
    auto server = start(load);
    EXPECT_THAT(branches(), SizeIs(4));
    EXPECT_THAT(add(itemIDs("RTU03")), SizeIs(17));
    EXPECT_TRUE(until([&] { return events_ > 3; }));

    PlantServerOptions second;
    second.server.port = server->port();
    server.reset();
    EXPECT_NO_THROW((void)startPlantServer(second, clock_)) << "its connections linger";
}

}  // namespace
}  // namespace velt::demo
