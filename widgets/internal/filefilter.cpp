// SPDX-License-Identifier: MIT
#include "widgets/internal/filefilter.h"

#include <QStringList>

namespace velt::ui {

QString fileFilter(const QString& pairs) {
    const QStringList parts = pairs.split(QLatin1Char('|'));
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        // "*.*" means every file; here it would leave out those without an extension.
        const QString pattern = parts[i + 1] == QLatin1String("*.*") ? "*" : parts[i + 1];
        filters += parts[i].section(QStringLiteral(" ("), 0, 0) + " (" + pattern + ')';
    }
    return filters.join(QStringLiteral(";;"));
}

}  // namespace velt::ui
