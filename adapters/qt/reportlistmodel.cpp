// SPDX-License-Identifier: MIT
#include "adapters/qt/reportlistmodel.h"

#include "adapters/qt/text.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace velt::qt {
namespace {

std::size_t at(int index) { return static_cast<std::size_t>(index); }

}  // namespace

ReportListModel::ReportListModel(ReportLayout layout, const Locale& locale)
    : CaptionedModel(layout.captions), layout_(std::move(layout)), rules_(locale) {}

int ReportListModel::rowOf(const std::string& key) const {
    const auto found = rowOf_.find(key);
    return found == rowOf_.end() ? -1 : found->second;
}

void ReportListModel::clear() {
    beginResetModel();
    rows_.clear();
    rowOf_.clear();
    order_.clear();
    positions_.clear();
    sortTexts_.clear();
    touched_.clear();
    isTouched_.clear();
    orderStale_ = false;
    endResetModel();
}

bool ReportListModel::add(const std::string& key, const std::string& text,
                          const std::string& picture) {
    const int row = static_cast<int>(rows_.size());
    if (!key.empty() && !rowOf_.emplace(key, row).second) return false;
    const auto known = layout_.pictures.find(picture);
    rows_.push_back({key, std::vector<std::string>(at(columnCount())),
                     known == layout_.pictures.end() ? nullptr : &known->second});
    rows_.back().texts.front() = text;
    positions_.push_back(-1);
    sortTexts_.emplace_back();
    isTouched_.push_back(0);
    orderStale_ = true;
    return true;
}

void ReportListModel::setText(int row, int column, const std::string& text) {
    std::string& held = rows_[at(row)].texts[at(column)];
    if (held == text) return;
    held = text;
    if (!std::exchange(isTouched_[at(row)], 1)) touched_.push_back(row);
    if (column == sortColumn_) {
        sortTexts_[at(row)].reset();
        orderStale_ = true;
    }
    const bool isFiltered = column == 0                     ? !filterText_.isEmpty()
                            : column == layout_.stateColumn ? onlyAbnormal_
                                                            : false;
    if (isFiltered) orderStale_ = true;
}

void ReportListModel::sortBy(int column, Qt::SortOrder order) {
    if (column != sortColumn_) std::ranges::fill(sortTexts_, std::nullopt);
    sortColumn_ = column;
    sortOrder_ = order;
    orderStale_ = true;
}

void ReportListModel::filter(const QString& text, bool onlyAbnormal) {
    filterText_ = text;
    onlyAbnormal_ = onlyAbnormal;
    orderStale_ = true;
}

bool ReportListModel::isAbnormal(const Row& row) const {
    if (row.picture && row.picture->abnormal) return true;
    return layout_.stateColumn >= 0 && row.texts[at(layout_.stateColumn)] != layout_.normalState;
}

bool ReportListModel::passes(int row) const {
    const Row& held = rows_[at(row)];
    if (onlyAbnormal_ && !isAbnormal(held)) return false;
    return filterText_.isEmpty() ||
           toQt(held.texts.front()).contains(filterText_, Qt::CaseInsensitive);
}

int ReportListModel::rowAt(int position) const { return order_[at(position)]; }

void ReportListModel::flush() {
    if (std::exchange(orderStale_, false)) rearrange(wantedOrder());
    announceTouched();
}

std::vector<int> ReportListModel::wantedOrder() {
    std::vector<int> order;
    order.reserve(rows_.size());
    for (int row = 0; row < static_cast<int>(rows_.size()); ++row) {
        if (!passes(row)) continue;
        order.push_back(row);
        std::optional<SortText>& text = sortTexts_[at(row)];
        if (!text) text.emplace(rows_[at(row)].texts[at(sortColumn_)], rules_);
    }
    const auto less = [this](int left, int right) {
        return *sortTexts_[at(left)] < *sortTexts_[at(right)];
    };
    if (sortOrder_ == Qt::AscendingOrder)
        std::ranges::stable_sort(order, less);
    else
        std::ranges::stable_sort(order, [&](int left, int right) { return less(right, left); });
    return order;
}

/// Step by step, and never by a reset: selection and place in the list stay with their rows.
void ReportListModel::rearrange(const std::vector<int>& wanted) {
    std::vector<char> stays(rows_.size(), 0);
    for (const int row : wanted) stays[at(row)] = 1;
    std::vector<int> order = order_;
    const auto gone = std::ranges::stable_partition(order, [&](int row) { return stays[at(row)]; });
    const int kept = static_cast<int>(order.size() - gone.size());
    if (kept < rowCount()) {
        permute(std::move(order));
        beginRemoveRows({}, kept, rowCount() - 1);
        order_.resize(at(kept));
        takePositions();
        endRemoveRows();
    }
    if (kept < static_cast<int>(wanted.size())) {
        beginInsertRows({}, kept, static_cast<int>(wanted.size()) - 1);
        for (const int row : wanted)
            if (positions_[at(row)] < 0) order_.push_back(row);
        takePositions();
        endInsertRows();
    }
    permute(wanted);
}

void ReportListModel::permute(std::vector<int> order) {
    if (order == order_) return;
    emit layoutAboutToBeChanged({}, VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    std::vector<int> rows;
    for (const QModelIndex& place : before) rows.push_back(order_[at(place.row())]);
    order_ = std::move(order);
    takePositions();
    QModelIndexList after;
    for (int i = 0; i < before.size(); ++i)
        after.append(index(positions_[at(rows[at(i)])], before[i].column()));
    changePersistentIndexList(before, after);
    emit layoutChanged({}, VerticalSortHint);
}

void ReportListModel::takePositions() {
    std::ranges::fill(positions_, -1);
    for (int position = 0; position < rowCount(); ++position)
        positions_[at(order_[at(position)])] = position;
}

void ReportListModel::announceTouched() {
    std::vector<int> positions;
    for (const int row : std::exchange(touched_, {})) {
        isTouched_[at(row)] = 0;
        if (positions_[at(row)] >= 0) positions.push_back(positions_[at(row)]);
    }
    std::ranges::sort(positions);
    // One signal for each run of neighbours.
    for (std::size_t first = 0, next = 0; first < positions.size(); first = next) {
        next = first + 1;
        while (next < positions.size() && positions[next] == positions[next - 1] + 1) ++next;
        emit dataChanged(index(positions[first], 0), index(positions[next - 1], columnCount() - 1));
    }
}

int ReportListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(order_.size());
}

QVariant ReportListModel::toolTip(const Row& row, int column) const {
    QString text = toQt(row.texts[at(column)]);
    if (column == 0 && row.picture && !row.picture->meaning.isEmpty())
        text += QLatin1Char('\n') + row.picture->meaning;
    // Escaped: a text of the server's must not be taken for markup.
    return QStringLiteral("<p style='white-space:pre-wrap'>%1</p>").arg(text.toHtmlEscaped());
}

QVariant ReportListModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const Row& row = rows_[at(order_[at(index.row())])];
    const int column = index.column();
    switch (role) {
        case Qt::DisplayRole: return toQt(row.texts[at(column)]);
        case Qt::ToolTipRole: return toolTip(row, column);
        case Qt::DecorationRole:
            return column == 0 && row.picture ? QVariant(row.picture->icon) : QVariant();
        case Qt::AccessibleTextRole:
            if (column == 0 && row.picture && row.picture->abnormal)
                return toQt(row.texts.front()) + QStringLiteral(", ") + row.picture->meaning;
            return toQt(row.texts[at(column)]);
        case AbnormalRole: return isAbnormal(row);
        case EmptyTextRole:
            return column == layout_.stateColumn && row.picture ? QVariant(row.picture->emptyState)
                                                                : QVariant();
        default: return {};
    }
}

}  // namespace velt::qt
