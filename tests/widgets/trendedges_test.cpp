// SPDX-License-Identifier: MIT
// Whatever a station's database and the configuration may hold, on the real parts.
#include "tests/widgets/trendviewerface.h"

#include <cmath>
#include <limits>

namespace velt::ui {
namespace {

using jet::ColumnType;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

constexpr double Infinite = std::numeric_limits<double>::infinity();
using Rows = std::vector<std::vector<Variant>>;

class TrendEdgesTest : public TrendViewerFaceTest {
protected:
    /// Rows of the table Livello, whose values are of `type`, drawn over an hour.
    void draw(const Rows& rows, ColumnType type = ColumnType::Double, const Date& start = Start,
              int range = 0, const std::string& table = "Livello") {
        StationFiles station;
        station.addRows("RTU01", table, rows, type);
        std::filesystem::rename(station.database("RTU01"), files.database("RTU01"));
        files.writeConfig("[Common]\nNumeroVRX=1\nVRX0=RTU01\n[VRX0]\nG0V0=" + table + "\n");
        show(table, start, range);
    }
    void show(const std::string& table, const Date& start = Start, int range = 0) {
        fresh.emplace_back(std::make_unique<TrendViewer>());
        TrendViewer& other = *fresh.back();
        other.SetTrend("RTU01", QString::fromStdString(table), "", "", "", start,
                       static_cast<qint16>(range));
        other.File(QString::fromStdString(files.config()));
        other.show();
        ASSERT_TRUE(eventually([&] { return chosen() == table; }));
        refreshFresh();
    }
    void refreshFresh() {
        const auto before = contents();
        const std::size_t told = messages.size();
        QTest::mouseClick(fresh.back()->findChild<QPushButton*>("cmdAggiornaDati"), Qt::LeftButton);
        ASSERT_TRUE(eventually([&] { return contents() != before || messages.size() > told; }));
        settle();
    }
    std::string chosen() {
        return fresh.back()->findChild<QComboBox*>("cmbTrend0")->currentText().toStdString();
    }
    std::shared_ptr<const ChartContents> contents() {
        return fresh.back()->findChild<TrendChart*>("chart")->drawing().contents;
    }
    const ChartSamples& samples() { return *contents()->series[0].samples; }
    const ChartStatistics& statistics() { return contents()->series[0].curve->statistics; }
    /// What was told, the line breaks as "|".
    std::string told() {
        if (messages.empty()) return "";
        std::string text = messages.back();
        std::ranges::replace(text, '\n', '|');
        return text;
    }
    static Date at(double seconds) { return Start.addSeconds(seconds); }

    std::vector<std::unique_ptr<TrendViewer>> fresh;
};

TEST_F(TrendEdgesTest, ValuesOfEveryKind) {
    struct Case {
        const char* what;
        ColumnType type;
        std::vector<Variant> values;
        std::size_t count;
        double minimum, maximum;
        SampleKind kind;
    };
    const Case cases[] = {
        {"currency", ColumnType::Currency, {12.5, -3.25}, 2, -3.25, 12.5, SampleKind::Number},
        {"integer",
         ColumnType::Integer,
         {std::int16_t{7}, std::int16_t{-7}},
         2,
         -7,
         7,
         SampleKind::Whole},
        {"long", ColumnType::Long, {2147483647, 1}, 2, 1, 2147483647.0, SampleKind::Whole},
        {"byte",
         ColumnType::Byte,
         {std::uint8_t{0}, std::uint8_t{255}},
         2,
         0,
         255,
         SampleKind::Whole},
        {"single", ColumnType::Single, {0.5F, 1.5F}, 2, 0.5, 1.5, SampleKind::Single},
        {"Boolean", ColumnType::Boolean, {true, false}, 2, 0, 1, SampleKind::Boolean},
        {"text", ColumnType::Text, {"12,5", "guasto", "-1"}, 2, -1, 12.5, SampleKind::Number},
        {"decimal",
         ColumnType::Numeric,
         {"12345678901234", "3"},
         2,
         3,
         12345678901234.0,
         SampleKind::Number},
        {"null between", ColumnType::Double, {1.0, Null{}, 2.0}, 2, 1, 2, SampleKind::Number},
        {"NaN and infinite",
         ColumnType::Double,
         {std::nan(""), Infinite, 4.0, -Infinite},
         1,
         4,
         4,
         SampleKind::Number},
        {"a constant", ColumnType::Double, {3.0, 3.0, 3.0}, 3, 3, 3, SampleKind::Number},
        {"a single sample", ColumnType::Double, {3.0}, 1, 3, 3, SampleKind::Number},
        {"the largest numbers",
         ColumnType::Double,
         {-1.7e308, 1.7e308, 5.0},
         1,
         5,
         5,
         SampleKind::Number},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Rows rows;
        for (const Variant& value : c.values)
            rows.push_back({at(60.0 * static_cast<double>(rows.size())), value});
        ASSERT_NO_FATAL_FAILURE(draw(rows, c.type));
        ASSERT_THAT(messages, IsEmpty());
        EXPECT_EQ(samples().times.size(), c.values.size());
        EXPECT_EQ(samples().kind, c.kind);
        EXPECT_EQ(statistics().count, c.count);
        EXPECT_EQ(statistics().minimum, c.minimum);
        EXPECT_EQ(statistics().maximum, c.maximum);
    }
}

TEST_F(TrendEdgesTest, DatesOfEveryKind) {
    const Date old = Date::fromFields({1899, 12, 28, 18, 0, 0, 0});
    const Date leap = Date::fromFields({2008, 2, 28, 0, 0, 0, 0});
    const Date summer = Date::fromFields({2006, 3, 26, 0, 0, 0, 0});
    const auto hourly = [](const Date& start, int count, int without) {
        Rows rows;
        for (int i = 0; i < count; ++i)
            if (i != without) rows.push_back({start.addSeconds(i * 3600.0), 1.0 * i});
        return rows;
    };
    Rows twice = hourly(Date::fromFields({2006, 10, 29, 0, 0, 0, 0}), 25, -1);
    twice.push_back({Date::fromFields({2006, 10, 29, 2, 0, 0, 0}), 99.0});
    Rows unsorted = hourly(Start, 20, -1);
    std::ranges::reverse(unsorted);
    Rows equal;
    for (int i = 0; i < 20; ++i) equal.push_back({Start, 1.0 * i});
    struct Case {
        const char* what;
        Rows rows;
        Date start;
        int range;
        std::size_t count, runs;
    };
    constexpr int Day = 6;
    const Case cases[] = {
        {"before 1899-12-30, where stored numbers run backwards", hourly(old, 25, -1), old, Day, 25,
         1},
        {"a leap day", hourly(leap, 49, -1), leap, 7, 49, 1},
        {"a day of 23 hours", hourly(summer, 25, 2), summer, Day, 24, 1},
        {"a day of 25 hours", twice, Date::fromFields({2006, 10, 29, 0, 0, 0, 0}), Day, 26, 1},
        {"unsorted rows", unsorted, Start, Day, 20, 1},
        {"equal times", equal, Start, Day, 20, 1},
        {"a row without a date", {{Null{}, 1.0}, {Start, 2.0}}, Start, Day, 1, 1},
        {"both ends of the window",
         {{Start, 1.0}, {at(86400), 2.0}, {at(86401), 3.0}},
         Start,
         Day,
         2,
         1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        ASSERT_NO_FATAL_FAILURE(draw(c.rows, ColumnType::Double, c.start, c.range));
        ASSERT_THAT(messages, IsEmpty());
        EXPECT_EQ(statistics().count, c.count);
        EXPECT_EQ(samples().runs.size(), c.runs);
        EXPECT_TRUE(std::ranges::is_sorted(samples().times));
    }
}

TEST_F(TrendEdgesTest, PeriodsBeyond16BitsAndManyPoints) {
    struct Case {
        const char* what;
        double spacing;
        int count, range, period, points;
    };
    const Case cases[] = {
        {"a minute over an hour", 60, 61, 0, 60, 60},
        {"a minute over a day: 1440 is capped", 60, 1441, 6, 60, 1000},
        {"the longest period", 32767, 20, 12, 32767, 243},
        {"a period beyond 16 bits counts as none", 32768, 20, 12, 7948, 1000},
        {"too few samples", 60, 10, 6, 86, 1000},
        {"a second over three months: beyond 16 bits", 1, 100, 12, 1, 1000},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Rows rows;
        for (int i = 0; i < c.count; ++i) rows.push_back({at(i * c.spacing), 1.0 * i});
        ASSERT_NO_FATAL_FAILURE(draw(rows, ColumnType::Double, Start, c.range));
        ASSERT_THAT(messages, IsEmpty());
        EXPECT_EQ(contents()->period, c.period);
        EXPECT_EQ(contents()->points, c.points);
    }
}

TEST_F(TrendEdgesTest, NamesOfTables) {
    const std::string error = "Error: Errore nella Procedura AggiornaGrafico|Errore Numero: 3075|";
    for (const auto& [table, answer] :
         {std::pair{"Cloro Residuo", error}, {"Order", error}, {"Livello_2", std::string()}}) {
        SCOPED_TRACE(table);
        messages.clear();
        ASSERT_NO_FATAL_FAILURE(draw({{Start, 1.0}}, ColumnType::Double, Start, 0, table));
        EXPECT_THAT(told(), StartsWith(answer));
        if (!answer.empty())
            EXPECT_THAT(told(), EndsWith("(tabella \"" + std::string(table) + "\")"));
        else
            EXPECT_EQ(statistics().count, 1U);
    }
}

TEST_F(TrendEdgesTest, ADatabaseThatIsNotAsItShouldBe) {
    ASSERT_NO_FATAL_FAILURE(draw({{Start, 1.0}, {at(60), 2.0}}));
    const std::filesystem::path file = files.database("RTU01");
    const std::string whole = test::bytesOf(file);
    const auto before = contents();

    std::filesystem::remove(file);
    refreshFresh();
    EXPECT_EQ(told(), "Errore: Il File " + files.config().substr(0, files.config().rfind('/')) +
                          "\\RTU01.MDB non esiste!");
    const std::pair<std::string, const char*> damages[] = {
        {"", "3343"},
        {"non è un database", "3343"},
        {whole.substr(0, 5000), "3343"},
        {whole.substr(0, whole.size() / 2), "3343"},
    };
    for (const auto& [bytes, number] : damages) {
        SCOPED_TRACE(bytes.size());
        test::writeBytes(file, bytes);
        refreshFresh();
        EXPECT_THAT(told(), StartsWith("Error: Errore nella Procedura AggiornaGrafico|Errore "
                                       "Numero: " +
                                       std::string(number) + "|Descrizione: "));
        EXPECT_THAT(told(), HasSubstr("RTU01.MDB"));
        EXPECT_EQ(contents(), before) << "the chart stays";
        EXPECT_NE(fresh.back()->cursor().shape(), Qt::WaitCursor);
    }
    test::writeBytes(file, whole);
    const jet::Writer busy = jet::Writer::open(file);
    const std::size_t count = messages.size();
    refreshFresh();
    EXPECT_EQ(messages.size(), count) << "a download in progress is no obstacle";
    EXPECT_EQ(statistics().count, 2U);
}

TEST_F(TrendEdgesTest, AMissingTableIsAnEmptyPen) {
    files.writeConfig("[Common]\nNumeroVRX=1\nVRX0=RTU01\n[VRX0]\nG0V0=Assente\n");
    show("Assente");
    EXPECT_THAT(messages, IsEmpty());
    EXPECT_EQ(contents()->series[0].samples, nullptr);
}

TEST_F(TrendEdgesTest, NumbersOfStationsAndTrends) {
    const auto stations = [&](const std::string& number) {
        files.writeConfig("[Common]\nNumeroVRX=" + number + "\nVRX0=RTU01\nVRX32766=RTU03\n");
        fresh.emplace_back(std::make_unique<TrendViewer>());
        fresh.back()->File(QString::fromStdString(files.config()));
        fresh.back()->show();
        settle();
        return entries(fresh.back()->findChild<QComboBox*>("cmbVRX"));
    };
    EXPECT_THAT(stations("1"), ElementsAre("RTU01"));
    EXPECT_THAT(stations("32767"), ElementsAre("RTU01", "RTU03"));
    for (const char* unusable : {"0", "-1", "32768", "99999999999999", "molte", ""})
        EXPECT_THAT(stations(unusable), IsEmpty()) << unusable;

    std::string config = "[Common]\nNumeroVRX=1\nVRX0=RTU01\n[VRX0]\n";
    for (int g = 3; g >= 0; --g)
        for (int v = 0; v < 20; ++v)
            config += "G" + std::to_string(g) + "V" + std::to_string(v) + "=T" +
                      std::to_string(g * 20 + v) + "\n";
    files.writeConfig(config);
    fresh.emplace_back(std::make_unique<TrendViewer>());
    fresh.back()->File(QString::fromStdString(files.config()));
    fresh.back()->show();
    settle();
    const auto trends = entries(fresh.back()->findChild<QComboBox*>("cmbTrend3"));
    ASSERT_EQ(trends.size(), 81U);
    EXPECT_EQ(trends[0], "Nessuno");
    EXPECT_EQ(trends[80], "T79");
}

TEST_F(TrendEdgesTest, AControlThatGoesDuringARefresh) {
    Rows rows;
    for (int i = 0; i < 50'000; ++i) rows.push_back({at(i * 60.0), 1.0 * i});
    ASSERT_NO_FATAL_FAILURE(draw(rows, ColumnType::Double, Start, 11));
    fresh.back()->findChild<QPushButton*>("cmdAggiornaDati")->click();
    QTimer::singleShot(0, [&] { fresh.pop_back(); });
    ASSERT_TRUE(eventually([&] { return fresh.empty(); }));
    settle();
    EXPECT_THAT(messages, IsEmpty());
}

}  // namespace
}  // namespace velt::ui
