// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

namespace velt::qt {

/// A small modal window that says that something is going on, with a button to end it.
class ProgressDialog : public QDialog {
    Q_OBJECT

public:
    explicit ProgressDialog(QWidget* parent);
};

}  // namespace velt::qt
