// SPDX-License-Identifier: MIT
// Connections and recordsets over files that come, go and change, and waits that are cancelled.
#include "adapters/access/accessdatabase.h"

#include "adapters/access/accessrecordset.h"
#include "adapters/access/filesystem.h"
#include "tests/adapters/access/accessfile.h"
#include "tests/filebytes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <thread>

namespace velt::access {
namespace {

using test::bytesOf;
using test::writeBytes;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

/// Cancels every wait while `cancelling`; the work goes on by itself, as the contract has it.
class CancellingDispatcher final : public Dispatcher {
public:
    ~CancellingDispatcher() override { join(); }
    void run(std::function<void(std::stop_token)> work) override {
        if (!cancelling) return work({});
        std::stop_source stop;
        left_.emplace_back([work = std::move(work), token = stop.get_token()] {
            ignoreErrors([&] { work(token); });
        });
        stop.request_stop();
        throw RuntimeError(ErrorNumber::Cancelled);
    }
    void post(std::function<void()> call) override { call(); }
    void yield() override {}
    void join() {
        for (std::thread& thread : left_) thread.join();
        left_.clear();
    }

    bool cancelling = false;

private:
    std::vector<std::thread> left_;
};

class Database : public ::testing::Test {
protected:
    Database() { file_.addAlarms(); }

    std::shared_ptr<Connection> connect() {
        return database_.GetConnection(file_.path().string(), "", "", 60, 3, 3);
    }
    std::int32_t count(const std::shared_ptr<Connection>& connection) {
        return opened("SELECT Data FROM Allarmi", connection)->RecordCount();
    }
    std::shared_ptr<Recordset> opened(const std::string& statement,
                                      const std::shared_ptr<Connection>& connection) {
        auto recordset = database_.CreateRecordset();
        open(*recordset, statement, connection);
        return recordset;
    }
    static void open(Recordset& recordset, const std::string& statement,
                     const std::shared_ptr<Connection>& connection) {
        recordset.Open(statement, connection, ado::OpenStatic, ado::LockReadOnly,
                       ado::OptionsUnspecified);
    }

    CancellingDispatcher dispatcher_;
    std::vector<std::string> reports_;
    AccessDatabase database_{dispatcher_, [this](const std::string& path, std::uint64_t rows) {
                                 reports_.push_back(path + " " + std::to_string(rows));
                             }};
    AccessFile file_;
};

template <typename Step>
int numberOf(Step&& step) {
    return raisedBy(step).Number();
}

TEST_F(Database, ConnectionOpensAndCloses) {
    const auto connection = connect();
    EXPECT_TRUE(database_.TableExists(connection, "allarmi"));
    EXPECT_FALSE(database_.TableExists(connection, "MSysObjects"));
    EXPECT_EQ(numberOf([&] { connection->Open(); }), 3705);
    connection->Close();
    EXPECT_EQ(connection->State(), ado::StateClosed);
    EXPECT_EQ(numberOf([&] { count(connection); }), 3709);
    connection->Open();
    EXPECT_EQ(count(connection), 12);
}

TEST_F(Database, FileThatGrowsIsReplacedAndVanishes) {
    const auto connection = connect();
    EXPECT_EQ(count(connection), 12);
    file_.append("Allarmi", {{date("2006-05-01 00:00:00"), "RTU01", "x", "y", "z"}});
    EXPECT_EQ(count(connection), 13);

    AccessFile other("altro.mdb");
    other.addTable("Allarmi", {{"Data", jet::ColumnType::Date}}, {{Date(1.0)}});
    std::filesystem::rename(other.path(), file_.path());
    EXPECT_EQ(count(connection), 1);

    std::filesystem::remove(file_.path());
    const auto recordset = database_.CreateRecordset();
    EXPECT_EQ(numberOf([&] { open(*recordset, "SELECT Data FROM Allarmi", connection); }), 53);
    EXPECT_EQ(recordset->State(), ado::StateClosed);
}

TEST_F(Database, CancelledWaitLeavesTheConnectionUsable) {
    const auto connection = connect();
    const auto recordset = database_.CreateRecordset();
    int moves = 0;
    recordset->MoveComplete.subscribe([&moves] { ++moves; });
    dispatcher_.cancelling = true;
    EXPECT_EQ(numberOf([&] { open(*recordset, "SELECT * FROM Allarmi", connection); }), 3059);
    EXPECT_EQ(recordset->State(), ado::StateClosed);
    EXPECT_EQ(moves, 0);

    dispatcher_.cancelling = false;  // while the work that was left may still be running
    open(*recordset, "SELECT * FROM Allarmi", connection);
    EXPECT_EQ(recordset->RecordCount(), 12);
    EXPECT_EQ(moves, 1);
}

TEST_F(Database, RowsThatCannotBeReadAreReported) {
    const auto connection = connect();
    EXPECT_EQ(count(connection), 12);
    EXPECT_TRUE(reports_.empty());

    // The data page of the table: the end of its last row lies at the page's beginning now.
    std::string bytes = bytesOf(file_.path());
    const std::size_t text = bytes.find("primo");
    ASSERT_NE(text, std::string::npos);
    const std::size_t page = text / 4096 * 4096;
    bytes[page + 14] = 3;  // offset of the first row: behind nothing, within the page's head
    bytes[page + 15] = 0;
    writeBytes(file_.path(), bytes);
    const std::int32_t left = count(connection);
    EXPECT_LT(left, 12);
    const auto lost = static_cast<std::uint64_t>(12 - left);
    EXPECT_EQ(dynamic_cast<AccessConnection&>(*connection).unreadableRows(), lost);
    EXPECT_THAT(reports_, ElementsAre(file_.path().string() + " " + std::to_string(lost)));
}

TEST_F(Database, RecordsetMovesAndTellsWhereItIs) {
    const auto connection = connect();
    const auto recordset = database_.CreateRecordset();
    int moves = 0;
    recordset->MoveComplete.subscribe([&] {
        ++moves;
        EXPECT_EQ(recordset->State(), ado::StateOpen) << "the event comes when all is done";
    });
    open(*recordset, "SELECT Descrizione FROM Allarmi WHERE VRX = 'RTU01' ORDER BY Data",
         connection);
    const auto at = [&](std::int32_t position, const char* text) {
        EXPECT_EQ(recordset->AbsolutePosition(), position);
        EXPECT_EQ(recordset->Field(0), Variant(text));
    };
    at(1, "secondo");
    recordset->MoveNext();
    at(2, "primo");
    recordset->MoveNext();
    EXPECT_TRUE(recordset->EOF_());
    EXPECT_EQ(recordset->AbsolutePosition(), -3);
    EXPECT_EQ(numberOf([&] { static_cast<void>(recordset->Field(0)); }), 3021);
    recordset->MoveLast();
    at(2, "primo");
    recordset->MovePrevious();
    recordset->MovePrevious();
    EXPECT_TRUE(recordset->BOF());
    EXPECT_EQ(recordset->AbsolutePosition(), -2);
    recordset->MoveFirst();
    at(1, "secondo");
    recordset->AbsolutePosition(2);
    EXPECT_EQ(moves, 8);
    for (const std::int32_t position : {0, 3, -1})
        EXPECT_EQ(numberOf([&] { recordset->AbsolutePosition(position); }), 5);
    at(2, "primo");
    EXPECT_EQ(numberOf([&] { static_cast<void>(recordset->Field(1)); }), 3265);
    EXPECT_EQ(numberOf([&] { open(*recordset, "SELECT 1", connection); }), 3705);
    recordset->Close();
    EXPECT_EQ(numberOf([&] { recordset->MoveNext(); }), 3704);
}

TEST_F(Database, RecordsetWithoutRows) {
    const auto recordset = database_.CreateRecordset();
    int moves = 0;
    recordset->MoveComplete.subscribe([&moves] { ++moves; });
    open(*recordset, "SELECT Data FROM Allarmi WHERE VRX = 'x'", connect());
    EXPECT_EQ(moves, 1) << "the counter has to say that there is none";
    EXPECT_EQ(recordset->AbsolutePosition(), -1);
    EXPECT_EQ(numberOf([&] { recordset->MoveFirst(); }), 3021);
}

TEST_F(Database, RowsOutliveTheirRecordset) {
    const auto rows = opened("SELECT VRX FROM Allarmi ORDER BY Data DESC", connect())->rows();
    EXPECT_EQ(rows->value(0, 0), Variant("RTU10"));
}

}  // namespace
}  // namespace velt::access
