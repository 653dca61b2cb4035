// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/qt/captionedmodel.h"
#include "adapters/qt/sorttext.h"

#include <QIcon>

#include <map>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace velt::qt {

/// A picture of the image list.
struct ReportPicture {
    QIcon icon;
    QString meaning;        ///< in words, for tool tips and for who cannot see it
    bool abnormal = false;  ///< a row with this picture is not as it should be
    /// What to show in the row's empty state cell; display only.
    QString emptyState;
};

/// What a report list shows.
struct ReportLayout {
    QStringList captions;
    int stateColumn = -1;     ///< the column whose text tells the state of a row; -1 for none
    std::string normalState;  ///< its text when all is well
    std::map<std::string, ReportPicture> pictures;
};

/// Rows of texts, found by their key in constant time, sorted and filtered through a permutation.
/// Assignments only take note; flush() brings them into view. A *row* here counts from 0 in the
/// order of adding, a *position* is a row of the model.
class ReportListModel : public CaptionedModel {
public:
    enum Role {
        AbnormalRole = Qt::UserRole,  ///< bool: the row's state is not the normal one
        EmptyTextRole,                ///< what to show in an empty cell
    };
    struct Row {
        std::string key;
        std::vector<std::string> texts;
        const ReportPicture* picture;
    };

    ReportListModel(ReportLayout layout, const Locale& locale);

    [[nodiscard]] const std::vector<Row>& rows() const { return rows_; }
    /// -1 when there is none.
    [[nodiscard]] int rowOf(const std::string& key) const;
    /// Takes effect at once: what has gone must not look live.
    void clear();
    /// False when the key is in use.
    bool add(const std::string& key, const std::string& text, const std::string& picture);
    void setText(int row, int column, const std::string& text);

    void sortBy(int column, Qt::SortOrder order);
    [[nodiscard]] int sortColumn() const { return sortColumn_; }
    [[nodiscard]] Qt::SortOrder sortOrder() const { return sortOrder_; }

    /// Shows the rows whose first text contains `text`, case-blind, and of these, with
    /// `onlyAbnormal`, those whose state is not the normal one.
    void filter(const QString& text, bool onlyAbnormal);
    /// Whether the filter lets a row through.
    [[nodiscard]] bool passes(int row) const;

    /// Something waits to be brought into view.
    [[nodiscard]] bool isDirty() const { return orderStale_ || !touched_.empty(); }
    void flush();
    [[nodiscard]] int rowAt(int position) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    [[nodiscard]] bool isAbnormal(const Row& row) const;
    [[nodiscard]] QVariant toolTip(const Row& row, int column) const;
    [[nodiscard]] std::vector<int> wantedOrder();
    void rearrange(const std::vector<int>& wanted);
    void permute(std::vector<int> order);
    void takePositions();
    void announceTouched();

    ReportLayout layout_;
    SortText::Rules rules_;
    std::vector<Row> rows_;
    std::unordered_map<std::string, int> rowOf_;
    std::vector<int> order_;      ///< rows by position
    std::vector<int> positions_;  ///< positions by row, -1 for one that is not shown
    /// By row, of the sort column; none where the text has changed.
    std::vector<std::optional<SortText>> sortTexts_;
    int sortColumn_ = 0;
    Qt::SortOrder sortOrder_ = Qt::AscendingOrder;
    QString filterText_;
    bool onlyAbnormal_ = false;
    bool orderStale_ = false;
    std::vector<int> touched_;     ///< rows with new texts
    std::vector<char> isTouched_;  ///< by row
};

}  // namespace velt::qt
