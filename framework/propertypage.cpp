// SPDX-License-Identifier: MIT
#include "framework/propertypage.h"

#include <algorithm>
#include <utility>

namespace velt {
namespace {

constexpr const char* SettingsProperty = "FileIni";

constexpr PropertyPageTraits ppOPC{
    .name = "ppOPC", .sourceProperty = "Hostname", .sourceBox = "txtHostname"};
constexpr PropertyPageTraits ppFile{.name = "ppFile",
                                    .sourceProperty = "File",
                                    .sourceBox = "txtFile",
                                    .browseTitle = "Seleziona il file Allarmi",
                                    .browseFilter = "File MDB (*.mdb)|*.mdb"};
constexpr PropertyPageTraits ppFileConf{
    .name = "ppFileConf",
    .sourceProperty = "File",
    .sourceBox = "txtFile",
    .browseTitle = "Seleziona il file di configurazione",
    .browseFilter = "File VeltRTU.ini (VeltRTU.ini)|VeltRTU.ini"};

constexpr std::pair<std::string_view, const PropertyPageTraits*> pages[] = {
    {"OPCViewer", &ppOPC},
    {"AlarmViewer", &ppFile},
    {"TrendViewer", &ppFileConf},
    {"ConnViewer", &ppFileConf},
};

}  // namespace

const PropertyPageTraits* propertyPageOf(std::string_view control) {
    const auto* const found = std::ranges::find(
        pages, control, &std::pair<std::string_view, const PropertyPageTraits*>::first);
    return found == std::end(pages) ? nullptr : found->second;
}

PropertyPage::PropertyPage(const PropertyPageTraits& traits, const PropertyPageForm& form)
    : traits_(traits), form_(form) {
    form_.txtSource.Change.subscribe([this] { setChanged(true); });
    form_.txtFileIni.Change.subscribe([this] { setChanged(true); });
    form_.cmdDirSelect.Click.subscribe(
        [this] { browse(form_.txtSource, traits_.browseTitle, traits_.browseFilter); });
    form_.cmdIniSelect.Click.subscribe([this] {
        browse(form_.txtFileIni, "Seleziona il file INI",
               "File INI (*.ini)|*.ini|Tutti i file (*.*)|*.*");
    });
}

void PropertyPage::SelectionChanged(const SelectedControls& controls) {
    if (controls.Count() == 0) return;
    form_.txtSource.Text(controls.Property(0, std::string(traits_.sourceProperty)));
    form_.txtFileIni.Text(controls.Property(0, SettingsProperty));
    setChanged(false);
}

void PropertyPage::ApplyChanges(SelectedControls& controls) {
    if (controls.Count() == 0) return;
    controls.Together([&] {
        controls.Property(0, std::string(traits_.sourceProperty), form_.txtSource.Text());
        controls.Property(0, SettingsProperty, form_.txtFileIni.Text());
    });
    setChanged(false);
}

void PropertyPage::setChanged(bool changed) {
    if (std::exchange(changed_, changed) != changed) ChangedChanged.raise();
}

void PropertyPage::browse(EditBox& box, std::string_view title, std::string_view filter) {
    const std::string file = form_.dlg.ShowOpen(std::string(title), std::string(filter));
    if (!file.empty()) box.Text(file);
}

}  // namespace velt
