// SPDX-License-Identifier: MIT
#include "adapters/qt/colors.h"

namespace velt::qt {
namespace {

constexpr OleColor SystemColor = 0x80000000;

/// By the indices of the system colours (winuser.h, COLOR_SCROLLBAR = 0 and following).
QPalette::ColorRole roleOf(OleColor index) {
    switch (index) {
        case 5: return QPalette::Base;              // window
        case 8: return QPalette::Text;              // window text
        case 7:                                     // menu text
        case 9: return QPalette::WindowText;        // caption text
        case 13: return QPalette::Highlight;        // selected item
        case 14: return QPalette::HighlightedText;  // text of the selected item
        case 0:                                     // scroll bar
        case 16: return QPalette::Dark;             // button shadow
        case 17: return QPalette::PlaceholderText;  // grey text
        case 15: return QPalette::Button;           // button face
        case 18: return QPalette::ButtonText;       // button text
        case 20: return QPalette::Light;            // button highlight
        case 21: return QPalette::Shadow;           // dark shadow
        case 22: return QPalette::Midlight;         // light edge
        case 23: return QPalette::ToolTipText;      // tip text
        case 24: return QPalette::ToolTipBase;      // tip background
        default: return QPalette::Window;
    }
}

}  // namespace

QColor toQColor(OleColor color, const QPalette& palette) {
    if (color & SystemColor) return palette.color(QPalette::Active, roleOf(color & 0xFF));
    return QColor::fromRgb(static_cast<int>(color & 0xFF), static_cast<int>(color >> 8 & 0xFF),
                           static_cast<int>(color >> 16 & 0xFF));
}

OleColor toOleColor(const QColor& color) {
    return static_cast<OleColor>(color.red() | color.green() << 8 | color.blue() << 16);
}

}  // namespace velt::qt
