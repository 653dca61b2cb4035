// SPDX-License-Identifier: MIT
#pragma once

#include <QTableView>

namespace velt::qt {

/// Rows of one low height, whole rows selected, nothing to edit, Tab leaves the view. Rows are
/// never measured one by one: that takes seconds for a million.
void setUpRows(QTableView& view);
/// The row height follows the view's font.
void fitRowHeight(QTableView& view);

}  // namespace velt::qt
