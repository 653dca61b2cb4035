// SPDX-License-Identifier: MIT
#include "framework/control.h"

#include "tests/fakes/fakeservices.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velt {
namespace {

using testing::ElementsAre;

/// A control that notes the steps of its life.
class NotingControl final : public Control {
public:
    NotingControl(ControlTraits traits, Ambient& ambient, Services& services)
        : Control(std::move(traits), ambient, services) {
        PropertyChanged.subscribe([this](const std::string& name) { steps.push_back(name); });
    }
    using Control::section;
    using Control::source;

    std::vector<std::string> steps;

private:
    void applyBackColor(OleColor color) override { note("back", color); }
    void applyForeColor(OleColor color) override { note("fore", color); }
    void start() override { steps.emplace_back("start"); }
    void sourceAssigned() override { steps.emplace_back("sourceAssigned"); }
    void loadSettings() override { steps.push_back("load " + section()); }
    void release() override { steps.emplace_back("release"); }
    void note(const std::string& what, OleColor color) {
        steps.push_back(what + " " + std::to_string(color));
    }
};

class ControlTest : public testing::Test {
protected:
    NotingControl make(ControlTraits::Start start) {
        return {{"Viewer", "File", start, true}, ambient, services};
    }
    fakes::FakeAmbient ambient;
    fakes::FakeServices services;
};

using Start = ControlTraits::Start;

TEST_F(ControlTest, StartsAsOftenAsItsTraitsSay) {
    const std::tuple<Start, std::vector<bool>, int> cases[] = {
        // UserMode at each show
        {Start::EveryShow, {false, true, true}, 2},
        {Start::FirstRunShow, {false, true, true}, 1},
        {Start::FirstShowOnly, {false, true, true}, 0},
        {Start::FirstShowOnly, {true, true}, 1},
    };
    for (const auto& [start, shows, starts] : cases) {
        NotingControl control = make(start);
        for (const bool userMode : shows) {
            ambient.userMode = userMode;
            control.Show();
        }
        EXPECT_EQ(std::ranges::count(control.steps, "start"), starts) << static_cast<int>(start);
    }
}

TEST_F(ControlTest, PropertiesOfTheFormHaveNoEffectButTheColours) {
    const auto keys = ElementsAre("BackColor", "ForeColor", "File", "FileIni");
    fakes::FakePropertyBag bag;
    bag.values = {{"BackColor", OleColor{255}}, {"ForeColor", "red"}, {"File", "a.mdb"}};
    NotingControl control = make(Start::FirstRunShow);
    control.ReadProperties(bag);
    EXPECT_THAT(bag.order, keys);
    EXPECT_THAT(control.steps, ElementsAre("back 255", "fore " + std::to_string(ButtonText)))
        << "a value of the wrong kind reads as the default";
    EXPECT_EQ(control.source(), "a.mdb");

    fakes::FakePropertyBag written;
    control.WriteProperties(written);
    EXPECT_THAT(written.order, keys);
}

TEST_F(ControlTest, AssignmentsActOnlyAtRunTimeAndTerminateGoesByTheModeLastRead) {
    NotingControl control = make(Start::FirstRunShow);
    ambient.userMode = false;
    control.source("a.mdb");
    control.FileIni("a.ini");
    EXPECT_THAT(control.steps, ElementsAre("File", "FileIni"));

    control.steps.clear();
    ambient.userMode = true;
    control.Terminate();
    EXPECT_TRUE(control.steps.empty()) << "the mode was not read again";
    control.source("b.mdb");
    control.FileIni("b.ini");
    control.Terminate();
    EXPECT_THAT(control.steps, ElementsAre("File", "sourceAssigned", "FileIni",
                                           "load Viewer_Instance1", "release"));
}

}  // namespace
}  // namespace velt
