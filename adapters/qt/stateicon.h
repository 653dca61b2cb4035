// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QPainter>

#include <functional>

namespace velt::qt {

/// A picture in a square of side 16, painted sharp at every size and scale.
using StatePainter = std::function<void(QPainter& painter)>;

[[nodiscard]] QIcon makeStateIcon(StatePainter paint);

/// The pictures of the item table's image list by their names: "verde" a disc with a tick,
/// "gialla" a diamond, "rossa" a square with a bar, "errore_verde" a disc with a cross,
/// "errore_gialla" a triangle with an exclamation mark. A null icon for any other name.
[[nodiscard]] QIcon stateIcon(const QString& name);

}  // namespace velt::qt
