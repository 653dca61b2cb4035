// SPDX-License-Identifier: MIT
// A database whose answers a test gives beforehand, statement by statement, and that remembers
// what it was asked.
#pragma once

#include "platform/database.h"
#include "platform/runtimeerror.h"

#include <limits>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace velt::fakes {

class FakeRowSet final : public RowSet {
public:
    FakeRowSet() = default;
    FakeRowSet(std::vector<std::string> names, std::vector<std::vector<Variant>> rows)
        : names_(std::move(names)), rows_(std::move(rows)), numbers_(names_.size()) {
        for (std::size_t column = 0; column < names_.size(); ++column) fillNumbers(column);
    }
    std::size_t rowCount() const override { return rows_.size(); }
    std::size_t columnCount() const override { return names_.size(); }
    const std::string& columnName(std::size_t column) const override { return names_[column]; }
    Variant value(std::size_t row, std::size_t column) const override { return rows_[row][column]; }
    std::span<const double> doubles(std::size_t column) const override { return numbers_[column]; }

private:
    void fillNumbers(std::size_t column) {
        for (const std::vector<Variant>& row : rows_) {
            const std::optional<double> number = std::visit(numberOf, row[column].storage());
            if (!number) return numbers_[column].clear();
            numbers_[column].push_back(*number);
        }
    }
    static constexpr auto numberOf = [](const auto& held) -> std::optional<double> {
        using T = std::decay_t<decltype(held)>;
        if constexpr (std::is_same_v<T, Null>)
            return std::numeric_limits<double>::quiet_NaN();
        else if constexpr (std::is_same_v<T, bool>)
            return held ? -1.0 : 0.0;
        else if constexpr (std::is_same_v<T, Date>)
            return held.serial();
        else if constexpr (std::is_arithmetic_v<T>)
            return static_cast<double>(held);
        else
            return std::nullopt;
    };

    std::vector<std::string> names_;
    std::vector<std::vector<Variant>> rows_;
    std::vector<std::vector<double>> numbers_;
};

/// What the answers to statements are, and what was asked so far.
struct FakeDatabaseState {
    /// Answer to a statement; any other gives no rows.
    std::map<std::string, std::shared_ptr<const RowSet>> answers;
    std::map<std::string, RuntimeError> failures;
    std::optional<RuntimeError> connectFailure;
    std::set<std::string> missingTables;
    int connectionState = ado::StateOpen;  ///< of the connections that GetConnection gives
    std::vector<std::string> log;
};

class FakeConnection final : public Connection {
public:
    explicit FakeConnection(FakeDatabaseState& state)
        : log_(state), state_(state.connectionState) {}
    int State() const override { return state_; }
    void Open() override {
        log_.log.emplace_back("Connection.Open");
        state_ = ado::StateOpen;
    }
    void Close() override { state_ = ado::StateClosed; }

private:
    FakeDatabaseState& log_;
    int state_;
};

class FakeRecordset final : public Recordset {
public:
    explicit FakeRecordset(FakeDatabaseState& state) : database_(state) {}
    int CursorLocation() const override { return location_; }
    void CursorLocation(int location) override { location_ = location; }
    int State() const override { return rows_ ? ado::StateOpen : ado::StateClosed; }
    void Open(const std::string& source, const std::shared_ptr<Connection>& connection,
              int cursorType, int lockType, int options) override {
        if (rows_) throw RuntimeError(3705, "Recordset aperto");
        if (!connection || connection->State() == ado::StateClosed)
            throw RuntimeError(ErrorNumber::ObjectClosed);
        database_.log.push_back(source + " | " + std::to_string(location_) + " " +
                                std::to_string(cursorType) + " " + std::to_string(lockType) + " " +
                                std::to_string(options));
        if (const auto failure = database_.failures.find(source);
            failure != database_.failures.end())
            throw failure->second;
        const auto answer = database_.answers.find(source);
        rows_ = answer == database_.answers.end() ? std::make_shared<const FakeRowSet>()
                                                  : answer->second;
        position_ = RecordCount() == 0 ? 0 : 1;
        MoveComplete.raise();
    }
    void Close() override {
        rows();
        rows_ = nullptr;
        database_.log.emplace_back("Recordset.Close");
    }
    std::int32_t RecordCount() const override {
        return static_cast<std::int32_t>(rows()->rowCount());
    }
    std::int32_t AbsolutePosition() const override {
        if (RecordCount() == 0) return -1;
        return BOF() ? -2 : EOF_() ? -3 : position_;
    }
    void AbsolutePosition(std::int32_t position) override {
        if (position < 1 || position > RecordCount()) throw RuntimeError(ErrorNumber::InvalidCall);
        moveTo(position);
    }
    bool BOF() const override { return RecordCount() == 0 || position_ < 1; }
    bool EOF_() const override { return RecordCount() == 0 || position_ > RecordCount(); }
    void MoveFirst() override { moveTo(1); }
    void MoveLast() override { moveTo(RecordCount()); }
    void MoveNext() override { moveTo(position_ + 1); }
    void MovePrevious() override { moveTo(position_ - 1); }
    std::int32_t FieldCount() const override {
        return static_cast<std::int32_t>(rows()->columnCount());
    }
    std::string FieldName(std::int32_t index) const override {
        return rows()->columnName(static_cast<std::size_t>(index));
    }
    Variant Field(std::int32_t index) const override {
        if (BOF() || EOF_()) throw RuntimeError(3021, "Nessun record corrente");
        return rows()->value(static_cast<std::size_t>(position_ - 1),
                             static_cast<std::size_t>(index));
    }
    std::shared_ptr<const RowSet> rows() const override {
        if (!rows_) throw RuntimeError(ErrorNumber::ObjectClosed);
        return rows_;
    }

private:
    void moveTo(std::int32_t position) {
        position_ = position;
        MoveComplete.raise();
    }
    FakeDatabaseState& database_;
    std::shared_ptr<const RowSet> rows_;
    std::int32_t position_ = 0;
    int location_ = 0;
};

class FakeDatabase final : public clsDatabase, public FakeDatabaseState {
public:
    std::shared_ptr<Connection> GetConnection(const std::string& path, const std::string& user,
                                              const std::string& password, int timeout,
                                              int location, int mode) override {
        log.push_back("GetConnection " + path + " '" + user + "' '" + password + "' " +
                      std::to_string(timeout) + " " + std::to_string(location) + " " +
                      std::to_string(mode));
        if (connectFailure) throw RuntimeError(*connectFailure);
        return std::make_shared<FakeConnection>(*this);
    }
    std::shared_ptr<Recordset> CreateRecordset() override {
        return std::make_shared<FakeRecordset>(*this);
    }
    std::string DateCondition(const std::string& field, bool startEnabled, const Date& start,
                              bool endEnabled, const Date& end) override {
        if (!startEnabled && !endEnabled) return "";
        const auto bound = [](bool enabled, const Date& date) {
            return enabled ? std::to_string(date.milliseconds() / 1000) : std::string("-");
        };
        return field + " in " + bound(startEnabled, start) + ".." + bound(endEnabled, end);
    }
    std::string FieldCondition(const std::string& field, const std::string& value) override {
        return field + " is <" + value + ">";
    }
    bool TableExists(const std::shared_ptr<Connection>&, const std::string& table) override {
        return !missingTables.contains(table);
    }
};

}  // namespace velt::fakes
