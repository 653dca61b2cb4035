// SPDX-License-Identifier: MIT
// The panel as a program, without a display.
#include "tests/filebytes.h"
#include "tests/program.h"
#include "tests/tempfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QImage>

#include <fstream>

namespace velt::panel {
namespace {

using test::Outcome;
using testing::HasSubstr;

class PanelTest : public testing::Test {
protected:
    Outcome run(std::vector<std::string> arguments, const char* platform = "offscreen",
                const char* program = VELT_PANEL) const {
        return test::runProgram(program, std::move(arguments), [this, platform] {
            unsetenv("DISPLAY");
            setenv("QT_QPA_PLATFORM", platform, 1);
            setenv("XDG_RUNTIME_DIR", folder.path().c_str(), 1);
        });
    }
    std::string at(const std::string& name) const { return (folder / name).string(); }

    TempFolder folder;
};

TEST_F(PanelTest, AnswersWithoutADisplayAndSaysWhyItCannotStart) {
    std::ofstream(at("broken.ui")) << "<ui version=";
    std::ofstream(at("file")) << "no folder";
    struct Case {
        std::vector<std::string> arguments;
        int exitCode;
        std::string message;
    };
    const Case cases[] = {
        {{"--help"}, 0, "--demo"},
        {{"--version"}, 0, "velt-panel "},
        {{"--nosuch"}, 2, "nosuch"},
        {{"a.ui", "b.ui"}, 2, "more than one form"},
        {{"--data", "x"}, 2, "--data goes with --demo"},
        {{"--after", "3"}, 2, "--after goes with --screenshot"},
        {{"--screenshot", "a.png", "--after", "-1"}, 2, "number of seconds"},
        {{"--seed", "abc"}, 2, "whole number"},
        {{at("none.ui")}, 1, at("none.ui")},
        {{at("broken.ui")}, 1, "broken.ui"},
        {{"--demo", "--data", at("file/demo")}, 1, at("file/demo")},
        {{"--screenshot", at("no/folder.png"), "--after", "0.1"}, 1, "no/folder.png"}};
    for (const Case& c : cases) {
        const Outcome outcome = run(c.arguments, c.exitCode == 1 ? "offscreen" : "none");
        EXPECT_EQ(outcome.exitCode, c.exitCode) << c.message;
        EXPECT_THAT(outcome.output + outcome.error, HasSubstr(c.message));
    }
}

TEST_F(PanelTest, ShowsTheDemoAndRemembersItsState) {
    const Outcome outcome =
        run({"--demo", "--data", at("demo"), "--click", "AlarmViewer1.cmdSeleziona", "--click",
             "AlarmViewer1.cmdAggiornaDati", "--click", "AlarmViewer1.lvVRX:RTU03", "--screenshot",
             at("shot.png"), "--after", "1.5"});
    EXPECT_EQ(outcome.exitCode, 0) << outcome.error;
    EXPECT_GE(QImage(QString::fromStdString(at("shot.png"))).width(), 600);
    const std::string saved = test::bytesOf(folder / "demo/pannello.ini");
    EXPECT_THAT(saved, HasSubstr("[AlarmViewer_AlarmViewer1]"));
    for (const char* key : {"ListCount=8", "List8=1", "List3=0"})  // its mark was taken away
        EXPECT_THAT(saved, HasSubstr(key));
}

TEST_F(PanelTest, LoadsAFormWhoseControlsKeepSeparateSettings) {
    const auto viewer = [](const char* name, const char* source) {
        return std::string("<item><widget class='velt::ui::AlarmViewer' name='") + name +
               "'><property name='FileIni' stdset='0'><string>scelte.ini</string></property>" +
               "<property name='File' stdset='0'><string>" + source +
               "</string></property></widget></item>";
    };
    std::ofstream(at("form.ui"))
        << "<ui version='4.0'><class>Form</class><widget class='QWidget' name='Form'>"
        << "<layout class='QVBoxLayout' name='layout'>" << viewer("Allarmi1", "Allarmi.mdb")
        << viewer("Allarmi2", "") << "</layout></widget></ui>";
    const Outcome outcome = run({at("form.ui"), "--screenshot", at("shot.png"), "--after", "0.5"});
    EXPECT_EQ(outcome.exitCode, 0) << outcome.error;
    const std::string saved = test::bytesOf(folder / "scelte.ini");
    EXPECT_THAT(saved, HasSubstr("[AlarmViewer_Allarmi1]"));
    EXPECT_THAT(saved, HasSubstr("[AlarmViewer_Allarmi2]"));
    EXPECT_THAT(saved, testing::Not(HasSubstr("ListCount"))) << "its lists were never filled";
}

TEST_F(PanelTest, SavesTheChoicesWhenASignalEndsIt) {
    setenv("PANEL", VELT_PANEL, 1);
    const char* script = R"("$PANEL" --demo --data "$1" & panel=$!
                            until [ -s "$1/VeltRTU.ini" ]; do sleep 0.05; done
                            kill -s "$2" $panel; wait $panel)";
    for (const char* signal : {"TERM", "HUP"}) {
        const Outcome outcome =
            run({"-c", script, "sh", at(signal), signal}, "offscreen", "/bin/sh");
        EXPECT_EQ(outcome.exitCode, 0) << outcome.error;
        EXPECT_THAT(test::bytesOf(folder / signal / "pannello.ini"),
                    HasSubstr("[AlarmViewer_AlarmViewer1]"));
    }
}

}  // namespace
}  // namespace velt::panel
