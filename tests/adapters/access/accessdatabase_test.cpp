// SPDX-License-Identifier: MIT
// Connections and recordsets over files that come, go and change, and waits that are cancelled.
#include "adapters/access/accessdatabase.h"

#include "adapters/access/accessconnection.h"
#include "tests/adapters/access/accessfile.h"
#include "tests/filebytes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velt::access {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Cancels every wait while `cancelling`; the work is left, to be done later.
struct CancellingDispatcher final : Dispatcher {
    void run(std::function<void(std::stop_token)> work) override {
        if (!cancelling) return work({});
        left.push_back(std::move(work));
        throw RuntimeError(ErrorNumber::Cancelled);
    }
    void post(std::function<void()>) override {}
    void yield() override {}
    bool cancelling = false;
    std::vector<std::function<void(std::stop_token)>> left;
};

template <typename Step>
int numberOf(Step&& step) {
    return raisedBy(step).Number();
}

class Database : public ::testing::Test {
protected:
    Database() {
        file_.addAlarms();
        connection_ = database_.GetConnection(file_.path().string(), "", "", 60, 3, 3);
        recordset_->MoveComplete.subscribe([this] {
            EXPECT_EQ(recordset_->State(), ado::StateOpen) << "the event comes when all is done";
            moves_.push_back(recordset_->AbsolutePosition());
        });
    }
    void open(const std::string& statement) {
        recordset_->Open(statement, connection_, ado::OpenStatic, ado::LockReadOnly,
                         ado::OptionsUnspecified);
    }
    std::int32_t count() {
        if (recordset_->State() == ado::StateOpen) recordset_->Close();
        open("SELECT Data FROM Allarmi");
        return recordset_->RecordCount();
    }

    AccessFile file_;
    CancellingDispatcher dispatcher_;
    std::vector<std::string> reports_;
    AccessDatabase database_{dispatcher_, [this](const std::string& path, std::uint64_t rows) {
                                 reports_.push_back(path + " " + std::to_string(rows));
                             }};
    std::shared_ptr<Connection> connection_;
    std::shared_ptr<Recordset> recordset_ = database_.CreateRecordset();
    std::vector<int> moves_;  ///< positions
};

TEST_F(Database, ConnectionOpensAndCloses) {
    EXPECT_TRUE(database_.TableExists(connection_, "allarmi"));
    EXPECT_FALSE(database_.TableExists(connection_, "MSysObjects"));
    EXPECT_EQ(numberOf([&] { connection_->Open(); }), 3705);
    connection_->Close();
    EXPECT_EQ(numberOf([&] { count(); }), 3709);
    EXPECT_EQ(numberOf([&] { connection_->Close(); }), 3704);
    connection_->Open();
    EXPECT_EQ(count(), 12);
}

TEST_F(Database, FileThatGrowsIsReplacedDamagedAndVanishes) {
    EXPECT_EQ(count(), 12);
    file_.append("Allarmi", {{date("2006-05-01 00:00:00"), "RTU01", "x", "y", "z"}});
    EXPECT_EQ(count(), 13);
    EXPECT_THAT(reports_, IsEmpty());
    std::string bytes = test::bytesOf(file_.path());
    const std::size_t page = bytes.find("primo") / 4096 * 4096;  // of the table's rows
    bytes.replace(page + 14, 2, {3, 0});  // the first row begins within the page's head
    test::writeBytes(file_.path(), bytes);
    const auto lost = static_cast<std::uint64_t>(13 - count());
    EXPECT_GT(lost, 0U);
    EXPECT_EQ(AccessConnection::of(connection_).unreadableRows(), lost);
    EXPECT_THAT(reports_, ElementsAre(file_.path().string() + " " + std::to_string(lost)));

    AccessFile other("altro.mdb");
    other.addTable("Allarmi", {{"Data", jet::ColumnType::Date}}, {{Date(1.0)}});
    std::filesystem::rename(other.path(), file_.path());
    EXPECT_EQ(count(), 1);
    std::filesystem::remove(file_.path());
    EXPECT_EQ(numberOf([&] { count(); }), 53);
    EXPECT_EQ(recordset_->State(), ado::StateClosed);
}

TEST_F(Database, CancelledWaitLeavesTheConnectionUsable) {
    dispatcher_.cancelling = true;
    EXPECT_EQ(numberOf([&] { count(); }), 3059);
    EXPECT_EQ(recordset_->State(), ado::StateClosed);
    EXPECT_THAT(moves_, IsEmpty());
    dispatcher_.cancelling = false;
    EXPECT_EQ(count(), 12);
    dispatcher_.left.front()({});
    EXPECT_EQ(recordset_->RecordCount(), 12);
    EXPECT_THAT(moves_, ElementsAre(1));
}

TEST_F(Database, RecordsetMovesAndTellsWhereItIs) {
    open("SELECT Descrizione FROM Allarmi WHERE VRX = 'RTU01' ORDER BY Data");
    const auto rows = recordset_->rows();
    EXPECT_EQ(recordset_->Field(0), Variant("secondo"));
    EXPECT_EQ(recordset_->FieldName(0), "Descrizione");
    recordset_->MoveNext();
    EXPECT_EQ(recordset_->Field(0), Variant("primo"));
    recordset_->MoveNext();
    EXPECT_EQ(numberOf([&] { (void)recordset_->Field(0); }), 3021);
    EXPECT_EQ(numberOf([&] { recordset_->MoveNext(); }), 3021);
    for (const auto move : {&Recordset::MoveLast, &Recordset::MovePrevious,
                            &Recordset::MovePrevious, &Recordset::MoveFirst})
        ((*recordset_).*move)();
    recordset_->AbsolutePosition(2);
    for (const std::int32_t position : {0, 3, -1})
        EXPECT_EQ(numberOf([&] { recordset_->AbsolutePosition(position); }), 5);
    EXPECT_THAT(moves_, ElementsAre(1, 2, -3, 2, 1, -2, 1, 2));
    EXPECT_EQ(numberOf([&] { (void)recordset_->Field(1); }), 3265);
    EXPECT_EQ(numberOf([&] { open("SELECT 1"); }), 3705);
    recordset_->Close();
    EXPECT_EQ(numberOf([&] { recordset_->MoveNext(); }), 3704);
    EXPECT_EQ(rows->value(1, 0), Variant("primo")) << "rows outlive their recordset";

    open("SELECT Data FROM Allarmi WHERE VRX = 'x'");
    EXPECT_EQ(moves_.back(), -1) << "the counter has to say that there is none";
    EXPECT_EQ(numberOf([&] { recordset_->MoveFirst(); }), 3021);
}

}  // namespace
}  // namespace velt::access
