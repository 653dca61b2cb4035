// SPDX-License-Identifier: MIT
#include "framework/control.h"

#include "tests/fakes/fakeservices.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A control that notes the steps of its life.
class NotingControl final : public Control {
public:
    NotingControl(ControlTraits traits, Ambient& ambient, Services& services)
        : Control(std::move(traits), ambient, services) {
        PropertyChanged.subscribe([this](const std::string& name) { steps.push_back(name); });
    }
    using Control::openSettings;
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
    NotingControl make(ControlTraits::Start start, bool loadsSettings = false) {
        return {{"Viewer", "File", start, loadsSettings}, ambient, services};
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
        {Start::FirstRunShow, {false, false}, 0},
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
    NotingControl control = make(Start::FirstRunShow, true);
    control.ReadProperties(bag);
    EXPECT_THAT(bag.order, keys);
    EXPECT_THAT(control.steps, ElementsAre("back 255", "fore " + std::to_string(ButtonText)))
        << "a value of the wrong kind reads as the default";
    EXPECT_EQ(control.source(), "a.mdb");

    fakes::FakePropertyBag written;
    control.WriteProperties(written);
    EXPECT_THAT(written.order, keys);
    bag.values["ForeColor"] = ButtonText;
    bag.values["FileIni"] = "";
    EXPECT_EQ(written.values, bag.values);
}

TEST_F(ControlTest, AssignmentsNotifyAndActOnlyAtRunTime) {
    NotingControl control = make(Start::FirstRunShow, true);
    ambient.userMode = false;
    control.source("a.mdb");
    control.FileIni("a.ini");
    EXPECT_THAT(control.steps, ElementsAre("File", "FileIni"));
    EXPECT_EQ(control.section(), "Viewer_");

    control.steps.clear();
    ambient.userMode = true;
    control.source("b.mdb");
    control.FileIni("b.ini");
    EXPECT_THAT(control.steps,
                ElementsAre("File", "sourceAssigned", "FileIni", "load Viewer_Instance1"));
    const auto settings = control.openSettings();
    ASSERT_NE(settings, nullptr);
    EXPECT_EQ(settings->NomeFile(), "b.ini");
    EXPECT_EQ(settings->Sezione(), "Viewer_Instance1");
    control.FileIni("");
    EXPECT_EQ(control.openSettings(), nullptr);
}

TEST_F(ControlTest, AControlWithoutSettingsOnlyStoresFileIni) {
    NotingControl control = make(Start::EveryShow, false);
    control.FileIni("a.ini");
    EXPECT_THAT(control.steps, ElementsAre("FileIni"));
    EXPECT_EQ(control.section(), "Viewer_");
    // The assignment has not even asked for the mode: nothing is there to release.
    control.Terminate();
    EXPECT_THAT(control.steps, ElementsAre("FileIni"));
}

TEST_F(ControlTest, TerminateGoesByTheModeLastRead) {
    NotingControl control = make(Start::FirstRunShow);
    control.Terminate();
    EXPECT_THAT(control.steps, IsEmpty());
    ambient.userMode = false;
    control.Show();
    ambient.userMode = true;
    control.Terminate();
    EXPECT_THAT(control.steps, IsEmpty()) << "the mode was not read again";
    control.Show();
    control.Terminate();
    EXPECT_THAT(control.steps, ElementsAre("start", "release"));
}

}  // namespace
}  // namespace velt
