// SPDX-License-Identifier: MIT
#include "framework/propertypage.h"

#include <gtest/gtest.h>

#include <map>

namespace velt {
namespace {

struct FakeEditBox final : EditBox {
    std::string Text() const override { return text; }
    void Text(const std::string& value) override { text = value; }
    std::string text;
};

struct FakeFileDialog final : FileDialog {
    std::string ShowOpen(const std::string& title, const std::string& filter) override {
        asked = title + "|" + filter;
        return answer;
    }
    std::string answer, asked;
};

struct FakeControls final : SelectedControls {
    int Count() const override { return 2; }
    std::string Property(int i, const std::string& name) const override { return all[i].at(name); }
    void Property(int i, const std::string& name, const std::string& value) override {
        all[i][name] = value;
    }
    std::map<std::string, std::string> all[2] = {{{"File", "1"}, {"FileIni", "2"}}, {}};
};

TEST(PropertyPage, BrowsesAndWritesToTheFirstControlAlone) {
    FakeEditBox source, ini;
    BrowseButton browseSource, browseIni;
    FakeFileDialog dialog;
    FakeControls controls;
    PropertyPage page(*propertyPageOf("AlarmViewer"),
                      {source, ini, browseSource, browseIni, dialog});
    page.SelectionChanged(controls);
    browseSource.Click.raise();
    EXPECT_EQ(dialog.asked, "Seleziona il file Allarmi|File MDB (*.mdb)|*.mdb");
    EXPECT_EQ(source.text, "1") << "cancelled";
    dialog.answer = "chosen";
    browseIni.Click.raise();
    EXPECT_EQ(dialog.asked, "Seleziona il file INI|File INI (*.ini)|*.ini|Tutti i file (*.*)|*.*");
    page.ApplyChanges(controls);
    EXPECT_EQ(controls.all[0],
              (std::map<std::string, std::string>{{"File", "1"}, {"FileIni", "chosen"}}));
    EXPECT_TRUE(controls.all[1].empty());
    EXPECT_EQ(propertyPageOf("TrendViewer")->browseFilter,
              "File VeltRTU.ini (VeltRTU.ini)|VeltRTU.ini");
    EXPECT_EQ(propertyPageOf("QPushButton"), nullptr);
}

}  // namespace
}  // namespace velt
