// SPDX-License-Identifier: MIT
#include "trendviewer/trendviewer.h"

#include "trendviewer/intervalli.h"
#include "trendviewer/modcolor.h"

namespace velt {
namespace {

constexpr int RequestDelay = 50;   // ms; long enough for the form to have been laid out
constexpr int RefreshDelay = 300;  // ms; between quick choices of trends

// Told apart also by who cannot tell red from green.
constexpr std::array<OleColor, ChartSeriesCount> PenColors = {
    modColor::Componi(0x00, 0x72, 0xB2), modColor::Componi(0xD5, 0x5E, 0x00),
    modColor::Componi(0x00, 0x9E, 0x73), modColor::Componi(0xB0, 0x4A, 0x9A)};

}  // namespace

TrendViewer::TrendViewer(const TrendViewerForm& form, Ambient& ambient, Services& services)
    : Control({.name = "TrendViewer",
               .sourceProperty = "File",
               .start = ControlTraits::Start::FirstRunShow,
               .loadsSettings = true},
              ambient, services),
      form_(form) {
    form_.t.Interval(RequestDelay);
    form_.tmr.Interval(RefreshDelay);
    subscribeWindow();
    subscribePens();

    form_.cmbRange.Clear();
    for (const char* text : testiIntervallo()) form_.cmbRange.AddItem(text);
    form_.cmbRange.ListIndex(0);
    form_.cmbScala.Clear();
    form_.cmbScala.AddItem("Tutte le penne");
    for (int pen = 0; pen < clsGrafico::Penne; ++pen) {
        form_.cmbScala.AddItem("Penna " + std::to_string(pen + 1));
        colora(pen, PenColors[static_cast<std::size_t>(pen)]);
        penna(pen).marker.Visible(true);
    }
    form_.cmbScala.ListIndex(0);
}

void TrendViewer::subscribePens() {
    for (int pen = 0; pen < clsGrafico::Penne; ++pen) {
        penna(pen).cmbTrend.Click.subscribe([this, pen] { scegliTrend(pen); });
        penna(pen).colore.Click.subscribe([this, pen] { mostraNascondi(pen); });
        penna(pen).colore.DblClick.subscribe([this, pen] { scegliColore(pen); });
    }
    form_.cmbVRX.Click.subscribe([this] {
        if (!applying_) CaricaTrend();
    });
    form_.chkNormalizzato.Click.subscribe(
        [this] { form_.chart.Normalised(form_.chkNormalizzato.Value() != 0); });
    form_.cmbScala.Click.subscribe([this] { form_.chart.Scale(form_.cmbScala.ListIndex() - 1); });
    form_.t.Tick.subscribe([this] { applicaRichiesta(); });
    form_.tmr.Tick.subscribe([this] {
        form_.tmr.Enabled(false);
        Aggiorna();
    });
}

void TrendViewer::applyBackColor(OleColor color) {
    form_.control.BackColor(color);
    form_.frmIntervallo.BackColor(color);
    form_.frmPenne.BackColor(color);
}

void TrendViewer::applyForeColor(OleColor color) {
    form_.control.ForeColor(color);
    form_.frmIntervallo.ForeColor(color);
    form_.frmPenne.ForeColor(color);
}

void TrendViewer::start() {
    CaricaVRX();
    if (!CaricaImpostazioni()) {
        inizio(services().clock().now().addSeconds(-secondi()));
        CalcolaDataFinale();
    }
    form_.t.Enabled(true);
}

void TrendViewer::release() {
    SalvaImpostazioni();
    form_.t.Enabled(false);
    form_.tmr.Enabled(false);
    for (int pen = 0; pen < clsGrafico::Penne; ++pen) grafico_.Penna(pen).Campioni = nullptr;
}

void TrendViewer::colora(int pen, OleColor color) {
    penna(pen).colore.BackColor(color);
    form_.chart.SeriesColor(pen, modColor::Rosso(color), modColor::Verde(color),
                            modColor::Blu(color));
}

void TrendViewer::scegliColore(int pen) {
    // An error leaves swatch and series as they were, like a cancelled dialog: skipped.
    ignoreErrors([this, pen] {
        if (const auto color = form_.dlgChart.ShowColor(penna(pen).colore.BackColor()))
            colora(pen, *color);
    });
}

void TrendViewer::mostraNascondi(int pen) {
    clsPenna& model = grafico_.Penna(pen);
    if (!model.Selezionata || !runMode()) return;
    penna(pen).marker.Visible(!penna(pen).marker.Visible());
    model.Visibile = penna(pen).marker.Visible();
    Aggiorna();
}

}  // namespace velt
