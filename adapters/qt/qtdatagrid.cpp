// SPDX-License-Identifier: MIT
#include "adapters/qt/qtdatagrid.h"

#include "adapters/qt/gridstyle.h"
#include "adapters/qt/indices.h"
#include "adapters/qt/rowtext.h"
#include "adapters/qt/text.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QMouseEvent>
#include <QScopedValueRollback>

#include <algorithm>
#include <cmath>

namespace velt::qt {
namespace {

constexpr std::size_t WidthSample = 50;  ///< rows that are measured for the default widths
constexpr int NarrowestColumn = 40;      ///< pixels
constexpr int WidestColumn = 400;
constexpr int CellMargin = 16;

std::vector<RowRange> selectedRanges(const QTableView& view) {
    std::vector<RowRange> ranges;
    for (const QItemSelectionRange& range : view.selectionModel()->selection())
        ranges.push_back(
            {static_cast<std::size_t>(range.top()), static_cast<std::size_t>(range.bottom())});
    std::ranges::sort(ranges, {}, &RowRange::first);
    return ranges;
}

}  // namespace

QtDataGrid::QtDataGrid(GatedControl& control, QTableView* view, QtDataControl& data,
                       Dispatcher& dispatcher, const Locale& locale)
    : control_(control),
      view_(view),
      data_(data),
      dispatcher_(dispatcher),
      locale_(locale),
      model_(locale) {
    view->setModel(&model_);
    setUpRows(*view);
    view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    QHeaderView* header = view->horizontalHeader();
    header->setMinimumSectionSize(0);
    // A selection of its own, always empty: a header looks through all selected rows to paint.
    header->setSelectionModel(new QItemSelectionModel(&model_, header));
    header->viewport()->installEventFilter(this);
    connect(header, &QHeaderView::sectionResized, this,
            [this](int column, int, int width) { sectionResized(column, width); });
    connect(view->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this] { currentRowChanged(); });

    auto* copy = new QAction(QStringLiteral("&Copia"), this);
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    connect(copy, &QAction::triggered, this,
            [this] { control_.operatorInput([this] { copySelection(); }); });
    view->addAction(copy);
    view->setContextMenuPolicy(Qt::ActionsContextMenu);

    data_.Shown.subscribe([this] { showData(); });
}

QtDataGrid::~QtDataGrid() {
    if (view_) view_->setModel(nullptr);
}

void QtDataGrid::Visible(bool visible) {
    if (view_) view_->setVisible(visible);
}

void QtDataGrid::AllowRowSizing(bool allow) {
    if (!view_) return;
    view_->verticalHeader()->setSectionResizeMode(allow ? QHeaderView::Interactive
                                                        : QHeaderView::Fixed);
}

void QtDataGrid::FontSize(int points) {
    if (!view_) return;
    QFont font = view_->font();
    font.setPointSize(points);
    view_->setFont(font);
    fitRowHeight(*view_);
}

void QtDataGrid::HeadFont(int points, bool bold) {
    if (!view_) return;
    QFont font = view_->horizontalHeader()->font();
    font.setPointSize(points);
    font.setBold(bold);
    view_->horizontalHeader()->setFont(font);
}

void QtDataGrid::ReBind() {
    const auto& rows = data_.rows();
    QStringList captions;
    for (std::size_t column = 0; rows && column < rows->columnCount(); ++column)
        captions.append(toQt(rows->columnName(column)));
    {
        const QScopedValueRollback showing(showing_, true);
        model_.setCaptions(captions);
    }
    widths_.clear();
    for (int column = 0; column < ColumnCount(); ++column)
        widths_.push_back(defaultWidth(column) * TwipsPerPixel);
    showWidths();
    showData();
}

std::string QtDataGrid::ColumnCaption(int column) const {
    return fromQt(elementAt(model_.captions(), column));
}

void QtDataGrid::ColumnCaption(int column, const std::string& caption) {
    elementAt(widths_, column);
    model_.setCaption(column, toQt(caption));
}

double QtDataGrid::ColumnWidth(int column) const { return elementAt(widths_, column); }

void QtDataGrid::ColumnWidth(int column, double twips) {
    elementAt(widths_, column) = twips;
    showWidths();
}

void QtDataGrid::showData() {
    const QScopedValueRollback showing(showing_, true);
    if (model_.rows() != data_.rows()) {
        model_.setRows(data_.rows());
        showWidths();  // the header forgets them when the rows are others
    }
    const int row = data_.AbsolutePosition() - 1;
    if (!view_ || row < 0 || view_->currentIndex().row() == row) return;
    const int column = std::max(0, view_->currentIndex().column());
    view_->setCurrentIndex(model_.index(row, column));
}

void QtDataGrid::showWidths() {
    if (!view_) return;
    constexpr double Widest = 10000;  // pixels; a header cannot do much more
    const QScopedValueRollback showing(showing_, true);
    for (int column = 0; column < ColumnCount(); ++column) {
        const double pixels = widths_[static_cast<std::size_t>(column)] / TwipsPerPixel;
        view_->setColumnWidth(column,
                              static_cast<int>(std::lround(std::clamp(pixels, 0.0, Widest))));
    }
}

int QtDataGrid::defaultWidth(int column) const {
    const auto& rows = data_.rows();
    if (!view_ || !rows) return NarrowestColumn;
    const QFontMetrics head = view_->horizontalHeader()->fontMetrics();
    const QFontMetrics body = view_->fontMetrics();
    int width = head.horizontalAdvance(model_.captions()[column]);
    const std::size_t step = std::max<std::size_t>(1, rows->rowCount() / WidthSample);
    for (std::size_t row = 0; row < rows->rowCount(); row += step) {
        const Variant value = rows->value(row, static_cast<std::size_t>(column));
        width = std::max(width, body.horizontalAdvance(toQt(cellText(value, locale_))));
    }
    return std::clamp(width + CellMargin, NarrowestColumn, WidestColumn);
}

void QtDataGrid::currentRowChanged() {
    if (showing_) return;
    // To where the view stands by then: the operator may have gone on meanwhile.
    const bool entered = control_.operatorInput([this] {
        if (view_) data_.moveTo(view_->currentIndex().row() + 1);
    });
    if (!entered) showData();
}

void QtDataGrid::sectionResized(int column, int width) {
    if (showing_ || column >= static_cast<int>(widths_.size())) return;
    widths_[static_cast<std::size_t>(column)] = width * TwipsPerPixel;
    if (mouseDown_) resized_ = column;
}

bool QtDataGrid::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick: mouseDown_ = true; break;
        case QEvent::MouseButtonRelease:
            mouseDown_ = false;
            if (const int column = std::exchange(resized_, -1); column >= 0)
                control_.operatorInput([this, column] { ColResize.raise(column); });
            break;
        default: break;
    }
    return QObject::eventFilter(watched, event);
}

void QtDataGrid::copySelection() {
    if (!view_ || !model_.rows()) return;
    const auto text = std::make_shared<QString>();
    dispatcher_.run([text, rows = model_.rows(), ranges = selectedRanges(*view_),
                     locale = locale_](const std::stop_token& stop) {
        *text = toQt(tabSeparated(*rows, ranges, locale, stop));
    });
    if (!text->isEmpty()) QGuiApplication::clipboard()->setText(*text);
}

}  // namespace velt::qt
