// SPDX-License-Identifier: MIT
#include "adapters/qt/progressdialog.h"

#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace velt::qt {

ProgressDialog::ProgressDialog(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint) {
    setWindowTitle(QStringLiteral("Attendere"));
    // Windows below a modal one cannot be closed: their close events never come. What else is done
    // to them during a wait is discarded anyway.
    setModal(QApplication::activeModalWidget() != nullptr);

    auto* label = new QLabel(QStringLiteral("Operazione in corso..."), this);
    auto* bar = new QProgressBar(this);
    bar->setRange(0, 0);  // how long it takes is not known
    bar->setTextVisible(false);
    bar->setAccessibleName(QStringLiteral("Operazione in corso"));
    auto* cancel = new QPushButton(QStringLiteral("Annulla"), this);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(bar);
    layout->addWidget(cancel, 0, Qt::AlignHCenter);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    bar->setMinimumWidth(260);
}

}  // namespace velt::qt
