// SPDX-License-Identifier: MIT
#include "adapters/qt/qtmessagebox.h"

#include "adapters/qt/text.h"

#include <QMessageBox>
#include <QPointer>

namespace velt::qt {

void QtMessageBox::Show(const std::string& text, int style, const std::string& title) {
    // The window over which it stands may be destroyed while it is open, and takes it along.
    QPointer<QMessageBox> box;
    Gate::Wait wait(gate_, [&box] {
        if (box) box->reject();
    });
    box = new QMessageBox(gate_.window());
    box->setWindowTitle(toQt(title));
    box->setTextFormat(Qt::PlainText);
    box->setText(toQt(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
    box->setIcon(style == Exclamation ? QMessageBox::Warning : QMessageBox::NoIcon);
    box->addButton(QStringLiteral("OK"), QMessageBox::AcceptRole);
    box->exec();
    delete box;
}

}  // namespace velt::qt
