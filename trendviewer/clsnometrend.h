// SPDX-License-Identifier: MIT
#pragma once

#include "connviewer/rtuconfig.h"

namespace velt {

/// A trend that the selected station offers: `Nome`, `Descrizione`, `UdM`.
using clsNomeTrend = ConfiguredTrend;

}  // namespace velt
