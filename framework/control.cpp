// SPDX-License-Identifier: MIT
#include "framework/control.h"

#include <utility>

namespace velt {

Control::Control(ControlTraits traits, Ambient& ambient, Services& services)
    : traits_(std::move(traits)), ambient_(ambient), services_(services) {}

bool Control::readUserMode() {
    runMode_ = ambient_.UserMode();
    return runMode_;
}

void Control::InitProperties() {
    backColor_ = ButtonFace;
    applyBackColor(backColor_);
    foreColor_ = ButtonText;
    applyForeColor(foreColor_);
    source_.clear();
    fileIni_.clear();
}

void Control::ReadProperties(const PropertyBag& bag) {
    backColor_ = bag.ReadProperty("BackColor", ButtonFace);
    applyBackColor(backColor_);
    foreColor_ = bag.ReadProperty("ForeColor", ButtonText);
    applyForeColor(foreColor_);
    source_ = bag.ReadProperty(traits_.sourceProperty, std::string());
    fileIni_ = bag.ReadProperty("FileIni", std::string());
}

void Control::WriteProperties(PropertyBag& bag) const {
    bag.WriteProperty("BackColor", backColor_, ButtonFace);
    bag.WriteProperty("ForeColor", foreColor_, ButtonText);
    bag.WriteProperty(traits_.sourceProperty, source_, std::string());
    bag.WriteProperty("FileIni", fileIni_, std::string());
}

void Control::Show() {
    const bool runMode = readUserMode();
    const bool shownBefore = shown_;
    using Start = ControlTraits::Start;
    if (runMode || traits_.start == Start::FirstShowOnly) shown_ = true;
    if (runMode && (traits_.start == Start::EveryShow || !shownBefore)) start();
}

void Control::Terminate() {
    if (runMode_) release();
}

void Control::BackColor(OleColor color) {
    backColor_ = color;
    applyBackColor(color);
    PropertyChanged.raise("BackColor");
}

void Control::ForeColor(OleColor color) {
    foreColor_ = color;
    applyForeColor(color);
    PropertyChanged.raise("ForeColor");
}

void Control::source(const std::string& value) {
    source_ = value;
    PropertyChanged.raise(traits_.sourceProperty);
    if (readUserMode()) sourceAssigned();
}

void Control::FileIni(const std::string& path) {
    fileIni_ = path;
    PropertyChanged.raise("FileIni");
    if (!traits_.loadsSettings || !readUserMode()) return;
    displayName_ = ambient_.DisplayName();
    loadSettings();
}

std::string Control::section() const { return traits_.name + "_" + displayName_; }

std::unique_ptr<Settings> Control::openSettings() const {
    if (fileIni_.empty()) return nullptr;
    std::unique_ptr<Settings> settings = services_.settings().create();
    settings->NomeFile(fileIni_);
    settings->Sezione(section());
    return settings;
}

}  // namespace velt
