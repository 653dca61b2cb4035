// SPDX-License-Identifier: MIT
#pragma once

#include "platform/export.h"

#include <QDialog>

#include <memory>

namespace velt {
class SelectedControls;
struct PropertyPageTraits;
}  // namespace velt

namespace velt::ui {

class ControlWidget;

/// The property page of a control as a dialog: its source, its settings file, with "Applica" for
/// what is to be tried before the dialog closes.
class VELT_API PropertyPageDialog final : public QDialog {
    Q_OBJECT

public:
    PropertyPageDialog(const PropertyPageTraits& traits, std::unique_ptr<SelectedControls> controls,
                       QWidget* parent = nullptr);
    ~PropertyPageDialog() override;

    /// For a control on the window of a running host, whose properties it assigns. Null for a
    /// widget that has no page. The dialog must not outlive the control.
    [[nodiscard]] static std::unique_ptr<PropertyPageDialog> of(ControlWidget& control,
                                                                QWidget* parent = nullptr);

    /// The page of a widget by its class; null when it has none.
    [[nodiscard]] static const PropertyPageTraits* pageOf(const QWidget& widget);

    void accept() override;

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace velt::ui
