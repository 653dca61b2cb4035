// SPDX-License-Identifier: MIT
// The window of time that a trend viewer shows: from its pickers, its range list and its buttons.
#include "trendviewer/intervalli.h"
#include "trendviewer/trendviewer.h"

namespace velt {
namespace {

/// `date` at the hour and minute of `time`.
Date withTimeOf(const Date& date, const Date& time) {
    const Date::Fields clock = time.fields();
    return date.withTime(clock.hour, clock.minute);
}

}  // namespace

void TrendViewer::subscribeWindow() {
    form_.cmbRange.Click.subscribe([this] { scegliIntervallo(); });
    form_.cmdAvanti.Click.subscribe([this] { sposta(secondi() / 4.0); });
    form_.cmdAvanti2.Click.subscribe([this] { sposta(secondi() / 2.0); });
    form_.cmdIndietro.Click.subscribe([this] { sposta(-secondi() / 4.0); });
    form_.cmdIndietro2.Click.subscribe([this] { sposta(-secondi() / 2.0); });

    const auto startEdited = [this](const Date& start) {
        inizio(start);
        CalcolaDataFinale();
        Aggiorna();
    };
    const auto endEdited = [this](const Date& end) {
        fine(end);
        CalcolaDataIniziale();
        Aggiorna();
    };
    form_.DataIniziale.Change.subscribe(
        [this, startEdited] { startEdited(form_.DataIniziale.Value()); });
    form_.DataFinale.Change.subscribe([this, endEdited] { endEdited(form_.DataFinale.Value()); });
    form_.TimeIniziale.Change.subscribe([this, startEdited] {
        startEdited(withTimeOf(form_.DataIniziale.Value(), form_.TimeIniziale.Value()));
    });
    form_.TimeFinale.Change.subscribe([this, endEdited] {
        endEdited(withTimeOf(form_.DataFinale.Value(), form_.TimeFinale.Value()));
    });

    form_.chkAutoUpdate.Click.subscribe([this] { autoUpdate_ = form_.chkAutoUpdate.Value() != 0; });
    form_.cmdAggiornaDati.Click.subscribe([this] { AggiornaGrafico(); });
}

std::int32_t TrendViewer::secondi() const {
    return SecondiIntervallo(static_cast<std::int16_t>(form_.cmbRange.ListIndex()));
}

void TrendViewer::inizio(const Date& start) {
    form_.DataIniziale.Value(start);
    form_.TimeIniziale.Value(start);
}

void TrendViewer::fine(const Date& end) {
    form_.DataFinale.Value(end);
    form_.TimeFinale.Value(end);
}

void TrendViewer::CalcolaDataFinale() { fine(form_.DataIniziale.Value().addSeconds(secondi())); }

void TrendViewer::CalcolaDataIniziale() { inizio(form_.DataFinale.Value().addSeconds(-secondi())); }

void TrendViewer::scegliIntervallo() {
    CalcolaDataFinale();
    divisions_ = DivisioniIntervallo(static_cast<std::int16_t>(form_.cmbRange.ListIndex()));
    Aggiorna();
}

void TrendViewer::sposta(double seconds) {
    inizio(form_.DataIniziale.Value().addSeconds(seconds));
    CalcolaDataFinale();
    Aggiorna();
}

void TrendViewer::Aggiorna() {
    if (autoUpdate_) AggiornaGrafico();
}

void TrendViewer::riavviaTimer() {
    form_.tmr.Enabled(false);
    form_.tmr.Enabled(true);
}

}  // namespace velt
