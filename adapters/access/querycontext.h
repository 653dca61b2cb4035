// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/jet/database.h"
#include "adapters/access/querycontrol.h"
#include "adapters/access/tablereader.h"

#include <cstdint>
#include <deque>
#include <exception>
#include <memory>
#include <string_view>
#include <utility>

namespace velt::access {

/// What the callbacks of one running query share. No exception may cross the engine, which is
/// written in C: guarded() keeps the first one here, for the query to throw it again.
struct QueryContext {
    QueryContext(std::shared_ptr<const jet::Database> file, std::stop_token stop,
                 const QueryLimits& limits)
        : database(std::move(file)), control(std::move(stop), limits) {}

    /// Runs a step of a callback; false when it threw.
    template <typename Step>
    bool guarded(Step&& step) noexcept {
        try {
            step();
            return true;
        } catch (...) {
            if (!failure) failure = std::current_exception();
            return false;
        }
    }

    /// A table of the file, for the time of the query.
    TableReader& open(std::string_view name) {
        return tables.emplace_back(database->table(name), control);
    }

    std::shared_ptr<const jet::Database> database;
    QueryControl control;
    std::exception_ptr failure;
    std::deque<TableReader> tables;  ///< that the statement names
    bool declaring = false;  ///< a table tells the engine its columns, by a statement of its own
    std::uint64_t comparisons = 0;  ///< of texts, for checking the control now and then
};

}  // namespace velt::access
