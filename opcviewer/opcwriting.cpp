// SPDX-License-Identifier: MIT
// How an OPC viewer writes a value into the selected item.
#include "opcviewer/opcviewer.h"
#include "opcviewer/writevalue.h"
#include "platform/conversions.h"

#include <optional>

namespace velt {

void OPCViewer::ScriviValore(const std::string& text) {
    if (text.empty()) return;
    const int row = form_.lvItem.SelectedItem();
    if (row == 0) return;
    const auto handle = conversions::plainInteger(form_.lvItem.Key(row).substr(1));
    // The row of an item that was refused has none in the group: nothing to write to.
    if (!GruppoOPC_ || !handle) return;
    const std::shared_ptr<OPCItem> item = GruppoOPC_->OPCItems().ItemOfClient(*handle);
    if (item) ScriviItem(*item, SeparaParti(text));
}

void OPCViewer::ScriviItem(OPCItem& item, const std::vector<std::string>& parts) {
    const auto tell = [this](const std::string& text, const char* title) {
        services().messageBox().Show(text, MessageBox::Exclamation, title);
    };
    try {
        const auto value = ConvertiParti(item.CanonicalDataType(), parts, services().locale());
        if (value)
            item.Write(*value);
        else
            tell("Tipo dato non gestito!", "Errore");
    } catch (const RuntimeError& error) {
        // Who has cancelled a write need not be told that it was cancelled.
        if (error.is(ErrorNumber::Cancelled)) return;
        if (error.is(ErrorNumber::TypeMismatch))
            tell("Formato non valido", "Errore");
        else
            tell(error.Description(), "Error");
    }
}

}  // namespace velt
