// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ambient.h"
#include "platform/event.h"
#include "platform/export.h"
#include "platform/propertybag.h"
#include "platform/services.h"
#include "platform/settings.h"

#include <functional>
#include <memory>
#include <string>

namespace velt {

/// Default colours of every control: the system's button face and button text.
inline constexpr OleColor ButtonFace = 0x8000000F;
inline constexpr OleColor ButtonText = 0x80000012;

/// What differs between the controls in the lifecycle that they share.
struct ControlTraits {
    /// When a show starts the control. Design mode never does.
    enum class Start {
        EveryShow,      ///< each show in run mode
        FirstRunShow,   ///< the first show in run mode
        FirstShowOnly,  ///< the very first show, and only if that one is in run mode
    };

    std::string name;            ///< of the control, as it stands in the settings sections
    std::string sourceProperty;  ///< "File" or "Hostname"
    Start start = Start::FirstRunShow;
    /// Whether a FileIni assigned at run time is loaded at once, in the section of the instance.
    bool loadsSettings = false;
};

/// The logic of a control: its persisted properties and its life between a host's first show and
/// Terminate(). Runs on the host's user-interface thread only. Does not own its surroundings.
class VELT_API Control {
public:
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    /// A newly placed control takes the defaults.
    void InitProperties();
    /// Takes the persisted properties, without any effect but the colours.
    void ReadProperties(const PropertyBag& bag);
    void WriteProperties(PropertyBag& bag) const;

    /// The host has shown the control (not: the window system has uncovered it).
    void Show();
    /// To be called by the host before it closes the form: saves and releases what the control
    /// holds. Harmless at design time and when repeated.
    void Terminate();

    [[nodiscard]] OleColor BackColor() const { return backColor_; }
    void BackColor(OleColor color);
    [[nodiscard]] OleColor ForeColor() const { return foreColor_; }
    void ForeColor(OleColor color);
    /// Path of the settings file; "" for none.
    [[nodiscard]] const std::string& FileIni() const { return fileIni_; }
    void FileIni(const std::string& path);

    /// A property was assigned by the host; the argument is its name.
    Event<std::string> PropertyChanged;

protected:
    Control(ControlTraits traits, Ambient& ambient, Services& services);

    /// The property that names the data source.
    [[nodiscard]] const std::string& source() const { return source_; }
    void source(const std::string& value);

    [[nodiscard]] Services& services() const { return services_; }
    /// To run the handlers of a data source's events through, so that the host gets their errors.
    void handle(const std::function<void()>& handler) { ambient_.Handle(handler); }
    /// Whether this was run time when the host was last asked.
    [[nodiscard]] bool runMode() const { return runMode_; }
    /// A settings object on FileIni, in this instance's section; null without a FileIni.
    [[nodiscard]] std::unique_ptr<Settings> openSettings() const;
    /// The control's name, "_", and the display name that the host gives the instance. The display
    /// name is known only once FileIni has been assigned at run time.
    [[nodiscard]] std::string section() const;

private:
    virtual void applyBackColor(OleColor color) = 0;
    virtual void applyForeColor(OleColor color) = 0;
    /// A show in run mode, as often as ControlTraits::start says.
    virtual void start() = 0;
    /// The source was assigned at run time.
    virtual void sourceAssigned() {}
    /// FileIni was assigned at run time (ControlTraits::loadsSettings).
    virtual void loadSettings() {}
    /// Terminate() at run time.
    virtual void release() = 0;

    /// Asks the host anew whether this is run time, and remembers the answer.
    bool readUserMode();

    ControlTraits traits_;
    Ambient& ambient_;
    Services& services_;
    OleColor backColor_ = ButtonFace;
    OleColor foreColor_ = ButtonText;
    std::string source_;
    std::string fileIni_;
    std::string displayName_;
    bool runMode_ = false;
    bool shown_ = false;
};

}  // namespace velt
