// SPDX-License-Identifier: MIT
#include "designer/formselection.h"

#include "adapters/qt/text.h"
#include "widgets/propertypagedialog.h"

#include <QVariant>
#include <QWidget>
#include <QtDesigner/QDesignerFormWindowCursorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>

// The one private header: without its type every text would be marked for translation.
#include <private/qdesigner_utils_p.h>

namespace velt::designer {

using ui::PropertyPageDialog;

FormSelection::FormSelection(QDesignerFormWindowInterface& form, QWidget& widget) : form_(form) {
    const QDesignerFormWindowCursorInterface* cursor = form.cursor();
    QWidget* current = cursor->current();
    const bool currentIsOne = current && cursor->isWidgetSelected(current) &&
                              cursor->isWidgetSelected(&widget) &&
                              PropertyPageDialog::pageOf(*current);
    controls_.append(currentIsOne ? current : &widget);
    for (int i = 0; i < cursor->selectedWidgetCount(); ++i) {
        QWidget* selected = cursor->selectedWidget(i);
        if (PropertyPageDialog::pageOf(*selected) && !controls_.contains(selected))
            controls_.append(selected);
    }
}

std::string FormSelection::Property(int index, const std::string& name) const {
    return qt::fromQt(controls_.at(index)->property(name.c_str()).toString());
}

void FormSelection::Property(int index, const std::string& name, const std::string& value) {
    constexpr bool Translatable = false;
    const qdesigner_internal::PropertySheetStringValue text(qt::toQt(value), Translatable);
    form_.cursor()->setWidgetProperty(controls_.at(index), qt::toQt(name),
                                      QVariant::fromValue(text));
}

void FormSelection::Together(const std::function<void()>& changes) {
    form_.beginCommand(
        QStringLiteral("Modifica di sorgente e impostazioni di %1").arg(first().objectName()));
    changes();
    form_.endCommand();
}

}  // namespace velt::designer
