// SPDX-License-Identifier: MIT
#include "framework/propertypage.h"

#include <gmock/gmock.h>

#include <map>
#include <utility>
#include <vector>

namespace velt {
namespace {

using testing::ElementsAre;

struct FakeEditBox final : EditBox {
    std::string Text() const override { return text; }
    void Text(const std::string& value) override {
        if (std::exchange(text, value) != value) Change.raise();
    }
    std::string text;
};

struct FakeFileDialog final : FileDialog {
    std::string ShowOpen(const std::string& title, const std::string& filter) override {
        asked.push_back(title + "|" + filter);
        return answer;
    }
    std::string answer;
    std::vector<std::string> asked;
};

struct FakeSelection final : SelectedControls {
    int Count() const override { return static_cast<int>(controls.size()); }
    std::string Property(int index, const std::string& name) const override {
        return controls.at(static_cast<std::size_t>(index)).at(name);
    }
    void Property(int index, const std::string& name, const std::string& value) override {
        controls.at(static_cast<std::size_t>(index)).at(name) = value;
    }
    std::vector<std::map<std::string, std::string>> controls;
};

struct Page {
    explicit Page(const char* control)
        : page(*propertyPageOf(control), {source, ini, browseSource, browseIni, dialog}) {}
    FakeEditBox source;
    FakeEditBox ini;
    BrowseButton browseSource;
    BrowseButton browseIni;
    FakeFileDialog dialog;
    PropertyPage page;
};

TEST(PropertyPage, OnlyTheFirstSelectedControlIsReadAndWritten) {
    for (const auto& [control, property] : std::map<const char*, const char*>{
             {"OPCViewer", "Hostname"}, {"AlarmViewer", "File"}, {"ConnViewer", "File"}}) {
        Page p(control);
        FakeSelection selection;
        selection.controls = {{{property, "a"}, {"FileIni", "a.ini"}},
                              {{property, "b"}, {"FileIni", "b.ini"}}};
        p.page.SelectionChanged(selection);
        EXPECT_EQ(p.source.Text(), "a");
        EXPECT_EQ(p.ini.Text(), "a.ini");
        EXPECT_FALSE(p.page.Changed()) << "taking the values changes nothing";

        p.source.Text("una cosa che non esiste");
        EXPECT_TRUE(p.page.Changed());
        p.ini.Text("");
        p.page.ApplyChanges(selection);
        EXPECT_FALSE(p.page.Changed());
        EXPECT_EQ(selection.controls[0].at(property), "una cosa che non esiste");
        EXPECT_EQ(selection.controls[0].at("FileIni"), "");
        EXPECT_EQ(selection.controls[1].at(property), "b");
        EXPECT_EQ(selection.controls[1].at("FileIni"), "b.ini");
    }
}

TEST(PropertyPage, BrowsingReplacesTheTextUnlessCancelled) {
    const std::pair<const char*, const char*> cases[] = {
        {"AlarmViewer", "Seleziona il file Allarmi|File MDB (*.mdb)|*.mdb"},
        {"TrendViewer",
         "Seleziona il file di configurazione|File VeltRTU.ini (VeltRTU.ini)|VeltRTU.ini"},
    };
    for (const auto& [control, sourceDialog] : cases) {
        Page p(control);
        p.source.Text("old");
        p.browseSource.Click.raise();
        EXPECT_EQ(p.source.Text(), "old") << "cancelled";
        FakeSelection none;
        p.page.SelectionChanged(none);
        EXPECT_EQ(p.source.Text(), "old");
        p.page.ApplyChanges(none);
        EXPECT_TRUE(p.page.Changed());
        p.dialog.answer = "chosen";
        p.browseSource.Click.raise();
        p.browseIni.Click.raise();
        EXPECT_EQ(p.source.Text(), "chosen");
        EXPECT_EQ(p.ini.Text(), "chosen");
        EXPECT_THAT(p.dialog.asked, ElementsAre(sourceDialog, sourceDialog,
                                                "Seleziona il file INI|File INI (*.ini)|*.ini|"
                                                "Tutti i file (*.*)|*.*"));
    }
    EXPECT_FALSE(propertyPageOf("OPCViewer")->browses());
    EXPECT_EQ(propertyPageOf("QPushButton"), nullptr);
}

}  // namespace
}  // namespace velt
