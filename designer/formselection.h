// SPDX-License-Identifier: MIT
#pragma once

#include "platform/propertypage.h"

#include <QList>

class QDesignerFormWindowInterface;
class QWidget;

namespace velt::designer {

/// The selected controls on a form in the designer. Changes go through the form's own commands, so
/// that they can be undone. Must not outlive the form.
class FormSelection final : public SelectedControls {
public:
    /// `widget` is the one whose menu was opened: the first, unless another selected control is
    /// the designer's current one.
    FormSelection(QDesignerFormWindowInterface& form, QWidget& widget);

    [[nodiscard]] QWidget& first() const { return *controls_.first(); }

    [[nodiscard]] int Count() const override { return static_cast<int>(controls_.size()); }
    [[nodiscard]] std::string Property(int index, const std::string& name) const override;
    void Property(int index, const std::string& name, const std::string& value) override;
    void Together(const std::function<void()>& changes) override;

private:
    QDesignerFormWindowInterface& form_;
    QList<QWidget*> controls_;
};

}  // namespace velt::designer
