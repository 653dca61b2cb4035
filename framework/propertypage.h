// SPDX-License-Identifier: MIT
#pragma once

#include "platform/export.h"
#include "platform/propertypage.h"

#include <string>
#include <string_view>

namespace velt {

/// What tells the property page of one control from that of another.
struct PropertyPageTraits {
    std::string_view name;
    std::string_view sourceProperty;  ///< "Hostname" or "File"
    std::string_view sourceBox;       ///< name of the box for it
    std::string_view browseTitle;     ///< "": a source that is typed and not browsed for
    std::string_view browseFilter;

    [[nodiscard]] bool browses() const { return !browseTitle.empty(); }
};

/// The page of a control by its class name ("OPCViewer", ...); null for any other name.
[[nodiscard]] VELT_API const PropertyPageTraits* propertyPageOf(std::string_view control);

/// The widgets of a property page.
struct PropertyPageForm {
    EditBox& txtSource;
    EditBox& txtFileIni;
    BrowseButton& cmdDirSelect;  ///< never pressed on a page that does not browse for its source
    BrowseButton& cmdIniSelect;
    FileDialog& dlg;
};

/// Lets an integrator set a control's source and its settings file. Shows the values of the first
/// selected control and writes to that one alone; what was typed is written as it stands. The form
/// and the traits must outlive it.
class VELT_API PropertyPage {
public:
    PropertyPage(const PropertyPageTraits& traits, const PropertyPageForm& form);
    PropertyPage(const PropertyPage&) = delete;
    PropertyPage& operator=(const PropertyPage&) = delete;

    /// Takes the values of the first selected control, when there is one.
    void SelectionChanged(const SelectedControls& controls);
    /// Writes source and settings file, in this order, to the first selected control.
    void ApplyChanges(SelectedControls& controls);

    /// A box was changed since the values were taken or written.
    [[nodiscard]] bool Changed() const { return changed_; }
    /// Changed() has another value.
    Event<> ChangedChanged;

private:
    void setChanged(bool changed);
    void browse(EditBox& box, std::string_view title, std::string_view filter);

    const PropertyPageTraits& traits_;
    PropertyPageForm form_;
    bool changed_ = false;
};

}  // namespace velt
