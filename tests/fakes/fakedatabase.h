// SPDX-License-Identifier: MIT
// A database whose answers a test gives beforehand, statement by statement, and that remembers
// what it was asked.
#pragma once

#include "platform/database.h"
#include "platform/runtimeerror.h"
#include "platform/snapshotrecordset.h"

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
        for (const std::vector<Variant>& row : rows_)
            for (std::size_t column = 0; column < names_.size(); ++column)
                if (const auto number = std::visit(numberOf, row[column].storage()))
                    numbers_[column].push_back(*number);
    }
    std::size_t rowCount() const override { return rows_.size(); }
    std::size_t columnCount() const override { return names_.size(); }
    const std::string& columnName(std::size_t column) const override { return names_[column]; }
    Variant value(std::size_t row, std::size_t column) const override { return rows_[row][column]; }
    std::span<const double> doubles(std::size_t column) const override {
        const bool all = numbers_[column].size() == rows_.size();
        return all ? numbers_[column] : std::span<const double>();
    }

private:
    static constexpr auto numberOf = [](const auto& held) -> std::optional<double> {
        using T = std::decay_t<decltype(held)>;
        if constexpr (std::is_same_v<T, Null>) return std::numeric_limits<double>::quiet_NaN();
        if constexpr (std::is_same_v<T, bool>) return held ? -1.0 : 0.0;
        if constexpr (std::is_same_v<T, Date>) return held.serial();
        if constexpr (std::is_arithmetic_v<T>) return static_cast<double>(held);
        return std::nullopt;
    };

    std::vector<std::string> names_;
    std::vector<std::vector<Variant>> rows_;
    std::vector<std::vector<double>> numbers_;  ///< by column
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

inline std::string withNumbers(std::string call, const std::vector<int>& numbers) {
    for (const int number : numbers) call += " " + std::to_string(number);
    return call;
}

struct FakeConnection final : Connection {
    explicit FakeConnection(FakeDatabaseState& d) : database(d), state(d.connectionState) {}
    int State() const override { return state; }
    void Open() override {
        database.log.emplace_back("Connection.Open");
        state = ado::StateOpen;
    }
    void Close() override { state = ado::StateClosed; }

    FakeDatabaseState& database;
    int state;
};

struct FakeRecordset final : SnapshotRecordset {
    explicit FakeRecordset(FakeDatabaseState& d) : database(d) {}
    void Open(const std::string& source, const std::shared_ptr<Connection>& connection,
              int cursorType, int lockType, int options) override {
        arguments = {CursorLocation(), cursorType, lockType, options};
        SnapshotRecordset::Open(source, connection, cursorType, lockType, options);
    }
    void Close() override {
        SnapshotRecordset::Close();
        database.log.emplace_back("Recordset.Close");
    }
    std::shared_ptr<const RowSet> query(const std::string& source,
                                        const std::shared_ptr<Connection>& connection) override {
        if (!connection || connection->State() == ado::StateClosed)
            throw RuntimeError(ErrorNumber::InvalidConnection);
        database.log.push_back(withNumbers(source + " |", arguments));
        const auto failure = database.failures.find(source);
        if (failure != database.failures.end()) throw RuntimeError(failure->second);
        const auto answer = database.answers.find(source);
        if (answer != database.answers.end()) return answer->second;
        return std::make_shared<const FakeRowSet>();
    }

    FakeDatabaseState& database;
    std::vector<int> arguments;
};

struct FakeDatabase final : clsDatabase, FakeDatabaseState {
    std::shared_ptr<Connection> GetConnection(const std::string& path, const std::string& user,
                                              const std::string& password, int timeout,
                                              int location, int mode) override {
        log.push_back(withNumbers("GetConnection " + path + " '" + user + "' '" + password + "'",
                                  {timeout, location, mode}));
        if (connectFailure) throw RuntimeError(*connectFailure);
        return std::make_shared<FakeConnection>(*this);
    }
    std::shared_ptr<Recordset> CreateRecordset() override {
        return std::make_shared<FakeRecordset>(*this);
    }
    std::string DateCondition(const std::string& field, bool startEnabled, const Date& start,
                              bool endEnabled, const Date& end) override {
        const auto bound = [](bool enabled, const Date& date) {
            return enabled ? std::to_string(date.milliseconds() / 1000) : std::string("-");
        };
        if (!startEnabled && !endEnabled) return "";
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
