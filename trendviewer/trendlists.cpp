// SPDX-License-Identifier: MIT
// The stations and trends that a trend viewer offers, and the request for some of them.
#include "connviewer/rtuconfig.h"
#include "trendviewer/trendviewer.h"

#include <utility>

namespace velt {
namespace {

constexpr const char* NoTrend = "Nessuno";

/// Selects every entry that equals `text`, so that the last one wins. False when none does.
bool selectText(ComboBox& list, const std::string& text) {
    bool found = false;
    for (int i = 0; i < list.ListCount(); ++i) {
        if (list.List(i) != text) continue;
        list.ListIndex(i);
        found = true;
    }
    return found;
}

}  // namespace

std::string TrendViewer::CartellaDownload() const { return velt::CartellaDownload(File()); }

void TrendViewer::SetTrend(const std::string& vrx, const std::string& trend1,
                           const std::string& trend2, const std::string& trend3,
                           const std::string& trend4, const Date& DataIniziale,
                           std::int16_t Intervallo) {
    request_ = {vrx, {trend1, trend2, trend3, trend4}, DataIniziale, Intervallo};
}

void TrendViewer::applicaRichiesta() {
    form_.t.Enabled(false);
    if (request_.vrx.empty()) return;
    applying_ = true;
    const std::unique_ptr<bool, void (*)(bool*)> whenDone(&applying_, [](bool* f) { *f = false; });

    selectText(form_.cmbVRX, request_.vrx);
    CaricaTrend();
    for (int pen = 0; pen < clsGrafico::Penne; ++pen) {
        ComboBox& list = penna(pen).cmbTrend;
        const std::string& trend = request_.trends[static_cast<std::size_t>(pen)];
        if (!selectText(list, trend) && list.ListCount() > 0) list.ListIndex(0);
    }
    inizio(request_.start);
    if (request_.range >= 0 && request_.range < form_.cmbRange.ListCount())
        form_.cmbRange.ListIndex(request_.range);
}

void TrendViewer::CaricaVRX() {
    form_.cmbVRX.Clear();
    const std::string folder = CartellaDownload();
    for (const std::string& station : RtuConfig(services().settings(), File()).stations())
        if (services().fileSystem().FileExists(folder + station + ".MDB"))
            form_.cmbVRX.AddItem(station);
    if (form_.cmbVRX.ListCount() > 0)
        form_.cmbVRX.ListIndex(0);  // fills the trend lists
    else
        CaricaTrend();
}

void TrendViewer::leggiNomi() {
    // The section goes by the position in the list, whatever number the station has in the file.
    nomi_ = RtuConfig(services().settings(), File()).trends(form_.cmbVRX.ListIndex());
    ComboBox& first = penna(0).cmbTrend;
    first.AddItem(NoTrend);
    for (const clsNomeTrend& trend : nomi_) first.AddItem(trend.Nome);
}

void TrendViewer::CaricaTrend() {
    nomi_.clear();
    for (int pen = 0; pen < clsGrafico::Penne; ++pen) {
        ComboBox& list = penna(pen).cmbTrend;
        const int position = list.ListIndex() < 0 ? 0 : list.ListIndex();
        list.Clear();
        if (form_.cmbVRX.ListIndex() < 0) {
            scegliTrend(pen);  // an empty list raises no Click
            continue;
        }
        if (pen == 0) {
            leggiNomi();
        } else {
            const ComboBox& first = penna(0).cmbTrend;
            for (int i = 0; i < first.ListCount(); ++i) list.AddItem(first.List(i));
        }
        list.ListIndex(position < list.ListCount() ? position : 0);
    }
}

void TrendViewer::scegliTrend(int pen) {
    const int position = penna(pen).cmbTrend.ListIndex();
    const bool chosen = position > 0 && position <= static_cast<int>(nomi_.size());
    const clsNomeTrend trend =
        chosen ? nomi_[static_cast<std::size_t>(position - 1)] : clsNomeTrend{};
    clsPenna& model = grafico_.Penna(pen);
    model.Selezionata = chosen;
    model.NomeTrend = trend.Nome;
    model.Descrizione = trend.Descrizione;
    model.UdM = trend.UdM;
    penna(pen).lblDesc.Caption(trend.Descrizione);
    penna(pen).lblUdm.Caption(trend.UdM);
    riavviaTimer();
}

}  // namespace velt
