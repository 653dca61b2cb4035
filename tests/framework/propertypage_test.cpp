// SPDX-License-Identifier: MIT
#include "framework/propertypage.h"

#include <gtest/gtest.h>

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

struct FakeControl final : SelectedControls {
    int Count() const override { return 1; }
    std::string Property(int /*i*/, const std::string& name) const override { return name; }
    void Property(int, const std::string&, const std::string&) override {}
};

TEST(PropertyPage, ShowsWhatTheControlHasAndBrowses) {
    FakeEditBox source, ini;
    BrowseButton browseSource, browseIni;
    FakeFileDialog dialog;
    PropertyPage page(*propertyPageOf("AlarmViewer"),
                      {source, ini, browseSource, browseIni, dialog});
    page.SelectionChanged(FakeControl());
    browseSource.Click.raise();
    EXPECT_EQ(dialog.asked, "Seleziona il file Allarmi|File MDB (*.mdb)|*.mdb");
    EXPECT_EQ(source.text, "File") << "cancelled";
    dialog.answer = "chosen";
    browseIni.Click.raise();
    EXPECT_EQ(dialog.asked, "Seleziona il file INI|File INI (*.ini)|*.ini|Tutti i file (*.*)|*.*");
    EXPECT_EQ(source.text + ini.text, "Filechosen");
    EXPECT_EQ(propertyPageOf("TrendViewer")->browseFilter,
              "File VeltRTU.ini (VeltRTU.ini)|VeltRTU.ini");
}

}  // namespace
}  // namespace velt
