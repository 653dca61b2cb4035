// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/internal/resultgrid.h"

#include <QFrame>
#include <QLabel>
#include <QPushButton>

#include <array>

namespace velt::ui {

/// The widgets of a connection viewer on `face`, which owns them.
struct ConnViewerUi {
    explicit ConnViewerUi(QWidget* face);

    /// Puts everything at its place, with room for its text in the present fonts. What follows the
    /// face's size is laid out by the logic's rules after that. Returns the least size of the face.
    QSize place() const;

    static constexpr int CaptionCount = 7;

    QWidget* control;
    QFrame* frmSelezioneDati;
    std::array<QLabel*, CaptionCount> captions;
    QLabel* lblProgetto;
    QLabel* lblVersione;
    QLabel* lblHostname;
    QLabel* lblVRX;
    QLabel* lblStato;
    QLabel* lblLog;
    QPushButton* cmdConnetti;
    QPushButton* cmdDisconnetti;
    QPushButton* cmdDownload;
    QPushButton* cmdDownloadAll;
    ResultGrid* lvVRX;
};

}  // namespace velt::ui
