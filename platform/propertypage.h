// SPDX-License-Identifier: MIT
#pragma once

#include "platform/event.h"
#include "platform/export.h"

#include <functional>
#include <string>

/// What a property page needs of the form designer, or of the host, that opens it.
namespace velt {

/// The controls that are selected while a property page is open, with their properties by name.
class VELT_API SelectedControls {
public:
    virtual ~SelectedControls() = default;
    [[nodiscard]] virtual int Count() const = 0;
    /// `index` counts from 0.
    [[nodiscard]] virtual std::string Property(int index, const std::string& name) const = 0;
    virtual void Property(int index, const std::string& name, const std::string& value) = 0;
    /// Makes `changes` one step for the integrator who takes it back, where there is such a thing.
    virtual void Together(const std::function<void()>& changes) { changes(); }
};

/// A line of text that the integrator edits.
class VELT_API EditBox {
public:
    virtual ~EditBox() = default;
    [[nodiscard]] virtual std::string Text() const = 0;
    /// Raises Change when the text is another one.
    virtual void Text(const std::string& text) = 0;

    Event<> Change;
};

/// The button beside an edit box.
class VELT_API BrowseButton {
public:
    virtual ~BrowseButton() = default;

    Event<> Click;
};

class VELT_API FileDialog {
public:
    virtual ~FileDialog() = default;
    /// Lets the integrator choose a file to open; "" when the dialog was cancelled. `filter` is a
    /// list of "description|pattern" pairs, all separated by "|".
    [[nodiscard]] virtual std::string ShowOpen(const std::string& title,
                                               const std::string& filter) = 0;
};

}  // namespace velt
