// SPDX-License-Identifier: MIT
#include "adapters/qt/qtcolordialog.h"

#include "adapters/qt/colors.h"

#include <QApplication>
#include <QColorDialog>
#include <QPointer>

namespace velt::qt {

std::optional<OleColor> QtColorDialog::ShowColor(OleColor preset) {
    // The window over which it stands may be destroyed while it is open, and takes it along.
    QPointer<QColorDialog> dialog;
    Gate::Wait wait(gate_, [&dialog] {
        if (dialog) dialog->reject();
    });
    dialog = new QColorDialog(toQColor(preset, QApplication::palette()), gate_.window());
    dialog->setWindowTitle(QStringLiteral("Colore della penna"));
    std::optional<OleColor> chosen;
    if (dialog->exec() == QDialog::Accepted && dialog) chosen = toOleColor(dialog->selectedColor());
    delete dialog;
    return chosen;
}

}  // namespace velt::qt
