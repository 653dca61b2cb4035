// SPDX-License-Identifier: MIT
#pragma once

#include "framework/control.h"
#include "platform/chart.h"
#include "platform/widgets.h"
#include "trendviewer/clsgrafico.h"
#include "trendviewer/clsnometrend.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace velt {

/// The widgets of one pen.
struct TrendPenForm {
    ComboBox& cmbTrend;
    Label& lblDesc;
    Label& lblUdm;
    ColorLabel& colore;
    Marker& marker;  ///< there while the pen is to be seen
};

/// The widgets of a trend viewer.
struct TrendViewerForm {
    Frame& control;  ///< the control's own surface
    Frame& frmIntervallo;
    Frame& frmPenne;
    ComboBox& cmbVRX;
    ComboBox& cmbRange;
    DatePicker& DataIniziale;
    DatePicker& TimeIniziale;
    DatePicker& DataFinale;
    DatePicker& TimeFinale;
    Button& cmdIndietro2;
    Button& cmdIndietro;
    Button& cmdAvanti;
    Button& cmdAvanti2;
    Button& cmdAggiornaDati;
    CheckBox& chkAutoUpdate;
    CheckBox& chkNormalizzato;
    ComboBox& cmbScala;  ///< "all pens", then the pens
    std::array<TrendPenForm, ChartSeriesCount> penne;
    ColorDialog& dlgChart;
    Pointer& pointer;
    Chart& chart;
    Timer& t;    ///< applies a pending request
    Timer& tmr;  ///< merges quick choices of trends into one refresh
};

/// Draws up to four trends of a station over a window of time. Stations and trends come from the
/// configuration file, the samples from the station's database in the same folder. The form must
/// outlive it.
class VELT_API TrendViewer final : public Control {
public:
    TrendViewer(const TrendViewerForm& form, Ambient& ambient, Services& services);

    /// Path of the configuration file. Assigned at run time, the stations are read anew.
    [[nodiscard]] const std::string& File() const { return source(); }
    void File(const std::string& path) { source(path); }
    /// Folder of the station databases, with its separator; "" without a File.
    [[nodiscard]] std::string CartellaDownload() const;

    /// Asks for a station, the trends of the pens ("" or unknown: none), the start of the window
    /// and its length as a position in the range list; one beyond the list keeps the range and the
    /// end as they are. Stored only: applied once, shortly after the control is first shown at run
    /// time. A request that comes later stays unapplied.
    void SetTrend(const std::string& vrx, const std::string& trend1, const std::string& trend2,
                  const std::string& trend3, const std::string& trend4, const Date& DataIniziale,
                  std::int16_t Intervallo);

private:
    /// What SetTrend has stored; without a station nothing is pending.
    struct Request {
        std::string vrx;
        std::array<std::string, ChartSeriesCount> trends;
        Date start;
        std::int16_t range = 0;
    };

    void applyBackColor(OleColor color) override;
    void applyForeColor(OleColor color) override;
    void start() override;
    void sourceAssigned() override { CaricaVRX(); }
    void loadSettings() override { CaricaImpostazioni(); }
    void release() override;

    void subscribeWindow();
    void subscribePens();

    // The window.
    [[nodiscard]] std::int32_t secondi() const;  ///< length of the selected range
    void inizio(const Date& start);              ///< of both pickers
    void fine(const Date& end);
    void CalcolaDataIniziale();
    void CalcolaDataFinale();
    void scegliIntervallo();
    void sposta(double seconds);
    void Aggiorna();
    /// Aggiorna, once the quick changes have ended.
    void riavviaTimer();

    // Stations and trends.
    void CaricaVRX();
    void CaricaTrend();
    void leggiNomi();
    void scegliTrend(int pen);
    void applicaRichiesta();

    // Pens and drawing.
    [[nodiscard]] TrendPenForm& penna(int pen) { return form_.penne.at(std::size_t(pen)); }
    void colora(int pen, OleColor color);
    void scegliColore(int pen);
    void mostraNascondi(int pen);
    void AggiornaGrafico();
    void carica(const std::string& path);

    void SalvaImpostazioni();
    /// False without a FileIni.
    bool CaricaImpostazioni();

    TrendViewerForm form_;
    clsGrafico grafico_;
    std::vector<clsNomeTrend> nomi_;  ///< of the selected station: entry n is list position n + 1
    Request request_;
    bool applying_ = false;  ///< a request: what it selects is not the operator's doing
    bool autoUpdate_ = false;
    std::int16_t divisions_ = 4;
    bool settingsLoaded_ = false;  ///< there is something to save
};

}  // namespace velt
