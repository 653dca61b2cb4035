// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <QString>

#include <stdexcept>

namespace velt::test {

struct FormControl {
    const char* name;
    const char* className;
    const char* sourceProperty;
    const char* source;  ///< as it stands in the form
};

/// The controls of form.ui.
inline constexpr FormControl formControls[] = {
    {"OPCViewer1", "velt::ui::OPCViewer", "Hostname", "opc.tcp://127.0.0.1:4840"},
    {"AlarmViewer1", "velt::ui::AlarmViewer", "File", "dati/Allarmi.mdb"},
    {"TrendViewer1", "velt::ui::TrendViewer", "File", "dati/VeltRTU.ini"},
    {"ConnViewer1", "velt::ui::ConnViewer", "File", "dati/VeltRTU.ini"},
};

/// A form as the designer saves it, with all controls in tabs, splitters and a main window.
inline QString formFile() {
    QFile file(VELT_FORM);
    if (!file.open(QIODevice::ReadOnly)) throw std::runtime_error("form.ui is missing");
    return QString::fromUtf8(file.readAll());
}

}  // namespace velt::test
