// SPDX-License-Identifier: MIT
// The panel as a program, without a display.
#include "adapters/ini/inisettings.h"
#include "tests/filebytes.h"
#include "tests/program.h"
#include "tests/tempfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QImage>

#include <cstdlib>
#include <fstream>

namespace velt::panel {
namespace {

using test::Outcome;
using testing::HasSubstr;

constexpr const char* Form = R"(<?xml version="1.0" encoding="UTF-8"?>
<ui version="4.0">
 <class>Form</class>
 <widget class="QWidget" name="Form">
  <property name="windowTitle"><string>Impianto</string></property>
  <layout class="QVBoxLayout" name="layout">
   <item><widget class="velt::ui::AlarmViewer" name="Allarmi1">
     <property name="File" stdset="0"><string notr="true">Allarmi.mdb</string></property>
     <property name="FileIni" stdset="0"><string notr="true">scelte.ini</string></property>
   </widget></item>
   <item><widget class="velt::ui::AlarmViewer" name="Allarmi2">
     <property name="FileIni" stdset="0"><string notr="true">scelte.ini</string></property>
   </widget></item>
  </layout>
 </widget>
</ui>)";

class PanelTest : public testing::Test {
protected:
    Outcome run(std::vector<std::string> arguments) {
        return test::runProgram(VELT_PANEL, std::move(arguments), [this] { prepare(); });
    }
    void prepare() {
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
        setenv("XDG_RUNTIME_DIR", folder.path().c_str(), 1);
    }
    std::string at(const std::string& name) { return (folder / name).string(); }

    TempFolder folder;
};

TEST_F(PanelTest, AnswersWithoutADisplay) {
    const auto bare = [](std::vector<std::string> arguments) {
        return test::runProgram(VELT_PANEL, std::move(arguments), [] {
            unsetenv("DISPLAY");
            unsetenv("QT_QPA_PLATFORM");
        });
    };
    EXPECT_THAT(bare({"--help"}).output, HasSubstr("--demo"));
    EXPECT_THAT(bare({"--version"}).output, testing::StartsWith("velt-panel "));
    struct Case {
        std::vector<std::string> arguments;
        const char* message;
    };
    const Case cases[] = {{{"--nosuch"}, "nosuch"},
                          {{"a.ui", "b.ui"}, "more than one form"},
                          {{"--data", "x"}, "--data goes with --demo"},
                          {{"--after", "3"}, "--after goes with --screenshot"},
                          {{"--screenshot", "a.png", "--after", "-1"}, "number of seconds"},
                          {{"--seed", "abc"}, "whole number"}};
    for (const Case& c : cases) {
        const Outcome outcome = bare(c.arguments);
        EXPECT_EQ(outcome.exitCode, 2) << c.message;
        EXPECT_THAT(outcome.error, HasSubstr(c.message));
    }
}

TEST_F(PanelTest, ShowsTheDemoAndRemembersItsState) {
    const Outcome outcome =
        run({"--demo", "--data", at("demo"), "--click", "AlarmViewer1.cmdSeleziona", "--click",
             "AlarmViewer1.cmdAggiornaDati", "--click", "AlarmViewer1.lvVRX:RTU03", "--screenshot",
             at("shot.png"), "--after", "1.5"});
    EXPECT_EQ(outcome.exitCode, 0) << outcome.error;
    const QImage picture(QString::fromStdString(at("shot.png")));
    EXPECT_GE(picture.width(), 600);

    SystemClock clock;
    ini::IniSettings settings(clock, {});
    settings.NomeFile(at("demo/pannello.ini"));
    settings.Sezione("AlarmViewer_AlarmViewer1");
    EXPECT_EQ(settings.LeggiStringa("ListCount", ""), "8");
    EXPECT_EQ(settings.LeggiStringa("List8", ""), "1");
    EXPECT_EQ(settings.LeggiStringa("List3", ""), "0") << "its mark was taken away";
}

TEST_F(PanelTest, LoadsAFormWhoseControlsKeepSeparateSettings) {
    std::ofstream(at("form.ui")) << Form;
    const Outcome outcome = run({at("form.ui"), "--screenshot", at("shot.png"), "--after", "0.5"});
    EXPECT_EQ(outcome.exitCode, 0) << outcome.error;
    const std::string saved = test::bytesOf(folder / "scelte.ini");
    EXPECT_THAT(saved, HasSubstr("[AlarmViewer_Allarmi1]"));
    EXPECT_THAT(saved, HasSubstr("[AlarmViewer_Allarmi2]"));
    EXPECT_THAT(saved, testing::Not(HasSubstr("ListCount"))) << "its lists were never filled";
}

TEST_F(PanelTest, SavesTheChoicesWhenASignalEndsIt) {
    setenv("PANEL", VELT_PANEL, 1);
    for (const std::string signal : {"TERM", "HUP"}) {
        const std::string data = at(signal);
        const Outcome outcome = test::runProgram("/bin/sh",
                                                 {"-c", R"("$PANEL" --demo --data "$1" & panel=$!
                      until [ -s "$1/VeltRTU.ini" ]; do sleep 0.05; done
                      kill -s "$2" $panel; wait $panel)",
                                                  "sh", data, signal},
                                                 [this] { prepare(); });
        EXPECT_EQ(outcome.exitCode, 0) << outcome.error;
        EXPECT_THAT(test::bytesOf(data + "/pannello.ini"), HasSubstr("[AlarmViewer_AlarmViewer1]"));
    }
}

TEST_F(PanelTest, SaysWhyItCannotStart) {
    std::ofstream(at("broken.ui")) << "<ui version=";
    std::ofstream(at("file")) << "no folder";
    struct Case {
        std::vector<std::string> arguments;
        std::string message;
    };
    const Case cases[] = {{{at("none.ui")}, at("none.ui")},
                          {{at("broken.ui")}, "broken.ui"},
                          {{"--demo", "--data", at("file/demo")}, at("file/demo")}};
    for (const Case& c : cases) {
        const Outcome outcome = run(c.arguments);
        EXPECT_EQ(outcome.exitCode, 1);
        EXPECT_THAT(outcome.error, HasSubstr(c.message));
    }
    EXPECT_EQ(run({"--screenshot", at("no/such/folder.png"), "--after", "0.1"}).exitCode, 1);
}

}  // namespace
}  // namespace velt::panel
