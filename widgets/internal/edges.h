// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace velt::ui {

/// Styles draw the edge of a check box in a shade of the window's colour: on a black desktop it
/// would be black on black. Gives the check boxes and the lists below `face` a lighter one there.
void keepEdgesVisible(QWidget& face);

}  // namespace velt::ui
