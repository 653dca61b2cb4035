// SPDX-License-Identifier: MIT
#pragma once

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

}  // namespace velt::test
