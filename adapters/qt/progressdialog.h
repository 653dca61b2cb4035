// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

namespace velt::qt {

/// A small window that says that something is going on, with a button to end it. The windows below
/// can still be closed, unless one of them is modal.
class ProgressDialog : public QDialog {
    Q_OBJECT

public:
    explicit ProgressDialog(QWidget* parent);
};

}  // namespace velt::qt
