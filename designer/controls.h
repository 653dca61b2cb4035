// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>
#include <QString>

#include <span>

class QWidget;

namespace velt::ui {
class ControlWidget;
}

namespace velt::designer {

/// What the form designer is told of a control.
struct ControlDescription {
    const char* name;  ///< of the class in velt::ui, and of the first one on a form
    const char* header;
    const char* sourceProperty;
    const char* toolTip;
    const char* whatsThis;
    QSize size;  ///< pixels, when it is dropped on a form
    ui::ControlWidget* (*make)(QWidget* parent);

    [[nodiscard]] QString className() const;
    /// The widget as the designer writes it into a form. Its texts are paths and host names:
    /// nothing to be translated.
    [[nodiscard]] QString domXml() const;
};

[[nodiscard]] std::span<const ControlDescription> controls();

}  // namespace velt::designer
