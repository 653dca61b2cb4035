// SPDX-License-Identifier: MIT
// How a trend viewer loads its pens and has them drawn.
#include "platform/runtimeerror.h"
#include "trendviewer/loading.h"
#include "trendviewer/trendviewer.h"

namespace velt {
namespace {

/// The hourglass, as long as this lives.
class Waiting {
public:
    explicit Waiting(Pointer& pointer) : pointer_(pointer) {
        pointer_.MousePointer(Pointer::Hourglass);
    }
    ~Waiting() { pointer_.MousePointer(Pointer::Default); }
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;

private:
    Pointer& pointer_;
};

}  // namespace

void TrendViewer::AggiornaGrafico() try {
    if (form_.cmbVRX.ListIndex() < 0 || grafico_.NumeroPenneSelezionate() == 0) return;
    const std::string path = CartellaDownload() + form_.cmbVRX.Text() + ".MDB";
    if (!services().fileSystem().FileExists(path)) {
        services().messageBox().Show("Il File " + path + " non esiste!", MessageBox::Exclamation,
                                     "Errore");
        return;
    }
    carica(path);
} catch (const RuntimeError& error) {
    // Who has cancelled a refresh need not be told that it was cancelled.
    if (error.is(ErrorNumber::Cancelled)) return;
    services().messageBox().Show("Errore nella Procedura AggiornaGrafico\r\nErrore Numero: " +
                                     std::to_string(error.Number()) +
                                     "\r\nDescrizione: " + error.Description(),
                                 MessageBox::Exclamation, "Error");
}

void TrendViewer::carica(const std::string& path) {
    const Waiting waiting(form_.pointer);
    const auto loading = std::make_shared<TrendLoading>();
    loading->grafico = grafico_;
    loading->stazione = form_.cmbVRX.Text();
    loading->start = form_.DataIniziale.Value();
    loading->end = form_.DataFinale.Value();
    loading->divisions = divisions_;
    loading->locale = services().locale();

    const std::shared_ptr<Connection> connection = apriDatabase(services().database(), path);
    for (int k = 0; k < clsGrafico::Penne; ++k) {
        const clsPenna& pen = grafico_.Penna(k);
        if (pen.Selezionata)
            loading->rows[static_cast<std::size_t>(k)] =
                leggiTrend(services().database(), services().recordsets(), connection,
                           pen.NomeTrend, loading->start, loading->end);
    }
    services().dispatcher().run([loading](const std::stop_token& stop) { loading->run(stop); });

    grafico_ = loading->grafico;
    for (int k = 0; k < clsGrafico::Penne; ++k)
        form_.chart.SeriesVisible(k, grafico_.Penna(k).Visibile);
    form_.chart.Plot(loading->contents);
}

}  // namespace velt
