// SPDX-License-Identifier: MIT
#include "trendviewer/loading.h"

#include "platform/conversions.h"
#include "platform/runtimeerror.h"
#include "trendviewer/samples.h"
#include "trendviewer/vista.h"

namespace velt {
namespace {

RuntimeError naming(const std::string& table, const RuntimeError& error) {
    return {error.Number(), error.Description() + " (tabella \"" + table + "\")"};
}

ChartSeries seriesOf(const clsPenna& pen) {
    if (!pen.Selezionata) return {};
    return {.name = pen.NomeTrend,
            .description = pen.Descrizione,
            .unit = pen.UdM,
            .samples = pen.Campioni};
}

}  // namespace

std::string CreaQuery(clsDatabase& database, const std::string& table, const Date& start,
                      const Date& end) {
    return "SELECT Data, Valore FROM " + table + " WHERE " +
           database.DateCondition("Data", true, start, true, end) + " ORDER BY Data";
}

std::shared_ptr<Connection> apriDatabase(clsDatabase& database, const std::string& path) {
    std::shared_ptr<Connection> connection = database.GetConnection(path, "", "", 60, 3, 3);
    if (connection->State() == ado::StateClosed) connection->Open();
    return connection;
}

std::shared_ptr<const RowSet> leggiTrend(clsDatabase& database, clsRecordset& recordsets,
                                         const std::shared_ptr<Connection>& connection,
                                         const std::string& table, const Date& start,
                                         const Date& end) try {
    if (!database.TableExists(connection, table)) return nullptr;
    if (table.find_first_of(" \t\r\n") != std::string::npos)
        throw RuntimeError(ErrorNumber::SyntaxError,
                           "Il nome di una tabella di trend non può contenere spazi");
    const std::shared_ptr<Recordset> recordset = database.CreateRecordset();
    recordset->CursorLocation(ado::UseClient);
    recordset->Open(CreaQuery(database, table, start, end), connection, ado::OpenStatic,
                    ado::LockReadOnly, ado::OptionsUnspecified);
    std::shared_ptr<const RowSet> rows = recordset->rows();
    recordsets.Close(recordset);
    return rows;
} catch (const RuntimeError& error) {
    if (error.is(ErrorNumber::Cancelled)) throw;
    throw naming(table, error);
}

void TrendLoading::run(const std::stop_token& stop) {
    for (int k = 0; k < clsGrafico::Penne; ++k) {
        clsPenna& pen = grafico.Penna(k);
        std::shared_ptr<const RowSet>& read = rows[static_cast<std::size_t>(k)];
        pen.Campioni = nullptr;
        pen.PeriodoCampionamento = 0;
        if (!read) continue;
        if (stop.stop_requested()) return;
        pen.Campioni = std::make_shared<const ChartSamples>(leggiCampioni(*read, locale));
        read = nullptr;
        pen.PeriodoCampionamento = CalcolaPeriodoCamp(pen.Campioni->times);
    }
    grafico.Lunghezza(conversions::roundToInt32(static_cast<double>(secondsBetween(start, end))));

    ChartContents whole;
    whole.title = stazione;
    whole.start = start.milliseconds();
    whole.end = end.milliseconds();
    whole.divisions = divisions;
    whole.period = grafico.PeriodoCampionamento();
    for (int k = 0; k < clsGrafico::Penne; ++k)
        whole.series[static_cast<std::size_t>(k)] = seriesOf(grafico.Penna(k));
    if (stop.stop_requested()) return;
    contents = vista(whole, whole.start, whole.end);
}

}  // namespace velt
