// SPDX-License-Identifier: MIT
#include "framework/control.h"

#include "tests/fakes/fakeservices.h"

#include <gtest/gtest.h>

namespace velt {
namespace {

using Start = ControlTraits::Start;

/// A control that notes the steps of its life.
struct NotingControl final : Control {
    NotingControl(Start start, Ambient& ambient, Services& services)
        : Control({"Viewer", "File", start, true}, ambient, services) {
        PropertyChanged.subscribe([this](const std::string& name) { note(name); });
    }
    using Control::source;
    void applyBackColor(OleColor color) override { note("back " + std::to_string(color)); }
    void applyForeColor(OleColor color) override { note("fore " + std::to_string(color)); }
    void start() override { note("start"); }
    void sourceAssigned() override { note("sourceAssigned"); }
    void loadSettings() override { note("load " + section()); }
    void release() override { note("release"); }
    void note(const std::string& step) { steps += step + "; "; }
    std::string steps;
};

class ControlTest : public testing::Test {
protected:
    fakes::FakeAmbient ambient;
    fakes::FakeServices services;
    NotingControl control{Start::FirstRunShow, ambient, services};
};

TEST_F(ControlTest, StartsAsOftenAsItsTraitsSay) {
    const std::tuple<Start, std::vector<bool>, const char*> cases[] = {
        // UserMode at each show
        {Start::EveryShow, {false, true, true}, "start; start; "},
        {Start::FirstRunShow, {false, true, true}, "start; "},
        {Start::FirstShowOnly, {false, true, true}, ""},
        {Start::FirstShowOnly, {true, true}, "start; "},
    };
    for (const auto& [start, shows, steps] : cases) {
        NotingControl shown(start, ambient, services);
        for (const bool userMode : shows) {
            ambient.userMode = userMode;
            shown.Show();
        }
        EXPECT_EQ(shown.steps, steps) << static_cast<int>(start);
    }
}

TEST_F(ControlTest, PropertiesOfTheFormHaveNoEffectButTheColours) {
    const std::vector<std::string> keys = {"BackColor", "ForeColor", "File", "FileIni"};
    fakes::FakePropertyBag bag;
    bag.values = {{"BackColor", OleColor{255}}, {"ForeColor", "red"}, {"File", "a.mdb"}};
    control.ReadProperties(bag);
    EXPECT_EQ(bag.order, keys);
    EXPECT_EQ(control.steps, "back 255; fore 2147483666; ") << "a wrong kind reads as the default";

    fakes::FakePropertyBag written;
    control.WriteProperties(written);
    EXPECT_EQ(written.order, keys);
    bag.values["ForeColor"] = ButtonText;
    bag.values["FileIni"] = "";
    EXPECT_EQ(written.values, bag.values);
}

TEST_F(ControlTest, AssignmentsActOnlyAtRunTimeAndTerminateGoesByTheModeLastRead) {
    ambient.userMode = false;
    control.source("a.mdb");
    control.FileIni("a.ini");
    ambient.userMode = true;
    control.Terminate();
    EXPECT_EQ(control.steps, "File; FileIni; ") << "the mode was not read again";

    control.steps.clear();
    control.source("b.mdb");
    control.FileIni("b.ini");
    control.Terminate();
    EXPECT_EQ(control.steps, "File; sourceAssigned; FileIni; load Viewer_Instance1; release; ");
}

}  // namespace
}  // namespace velt
