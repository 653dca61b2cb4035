// SPDX-License-Identifier: MIT
#include "framework/propertypage.h"

#include <gmock/gmock.h>

#include <utility>
#include <vector>

namespace velt {
namespace {

using testing::ElementsAre;

struct FakeEditBox final : EditBox {
    std::string Text() const override { return text; }
    void Text(const std::string& value) override { text = value; }
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

TEST(PropertyPage, BrowsingReplacesTheTextUnlessCancelled) {
    const std::pair<const char*, const char*> cases[] = {
        {"AlarmViewer", "Seleziona il file Allarmi|File MDB (*.mdb)|*.mdb"},
        {"TrendViewer",
         "Seleziona il file di configurazione|File VeltRTU.ini (VeltRTU.ini)|VeltRTU.ini"},
    };
    for (const auto& [control, sourceDialog] : cases) {
        FakeEditBox source;
        FakeEditBox ini;
        BrowseButton browseSource;
        BrowseButton browseIni;
        FakeFileDialog dialog;
        const PropertyPage page(*propertyPageOf(control),
                                {source, ini, browseSource, browseIni, dialog});
        source.Text("old");
        browseSource.Click.raise();
        EXPECT_EQ(source.Text(), "old") << "cancelled";
        dialog.answer = "chosen";
        browseSource.Click.raise();
        browseIni.Click.raise();
        EXPECT_EQ(source.Text(), "chosen");
        EXPECT_EQ(ini.Text(), "chosen");
        EXPECT_THAT(dialog.asked, ElementsAre(sourceDialog, sourceDialog,
                                              "Seleziona il file INI|File INI (*.ini)|*.ini|"
                                              "Tutti i file (*.*)|*.*"));
    }
    EXPECT_FALSE(propertyPageOf("OPCViewer")->browses());
    EXPECT_EQ(propertyPageOf("QPushButton"), nullptr);
}

}  // namespace
}  // namespace velt
