// SPDX-License-Identifier: MIT
#include "connviewer/connviewer.h"

#include "connviewer/rtuconfig.h"
#include "platform/conversions.h"
#include "platform/runtimeerror.h"

#include <utility>

namespace velt {
namespace {

constexpr const char* Application = "VELT Viewer";
constexpr const char* RuntimeIsDown = "Runtime non attivo!!";
constexpr int NoIcon = -1;
constexpr int RetryInterval = 1000;  // ms

}  // namespace

ConnViewer::ConnViewer(const ConnViewerForm& form, Ambient& ambient, Services& services)
    : Control({.name = "ConnViewer",
               .sourceProperty = "File",
               .start = ControlTraits::Start::EveryShow},
              ambient, services),
      form_(form) {
    form_.t.Interval(RetryInterval);
    form_.t.Tick.subscribe([this] { t_Timer(); });
    form_.lvVRX.Click.subscribe([this] { lvVRX_Click(); });
    form_.cmdConnetti.Click.subscribe([this] { richiedi(&RuntimeClient::ConnettiRTU); });
    form_.cmdDisconnetti.Click.subscribe([this] { richiedi(&RuntimeClient::DisconnettiRTU); });
    form_.cmdDownload.Click.subscribe([this] { richiedi(&RuntimeClient::DownloadRTU); });
    form_.cmdDownloadAll.Click.subscribe([this] { cmdDownloadAll_Click(); });
}

ConnViewer::~ConnViewer() {
    // A host need not have called Terminate(). There is nobody left to be told of an error.
    if (client_) ignoreErrors([this] { client_->ChiudiRuntime(); });
}

std::string ConnViewer::CartellaDownload() const { return velt::CartellaDownload(File()); }

void ConnViewer::applyBackColor(OleColor color) { form_.frmSelezioneDati.BackColor(color); }

void ConnViewer::applyForeColor(OleColor color) {
    form_.frmSelezioneDati.ForeColor(color);
    for (Frame* caption : form_.captions) caption->ForeColor(color);
}

void ConnViewer::start() {
    if (!client_) creaClient();
    ConnettiAlRuntime();
    form_.lvVRXColumns.ColumnWidth(0, form_.places.lvVRX.Width() - connlayout::ColumnMargin);
}

void ConnViewer::sourceAssigned() {
    Hostname_ = RtuConfig(services().settings(), File()).Hostname();
    ConnettiAlRuntime();
}

void ConnViewer::release() {
    form_.t.Enabled(false);
    if (const auto client = std::exchange(client_, nullptr)) client->ChiudiRuntime();
}

void ConnViewer::creaClient() {
    client_ = services().runtimeClients().create();
    client_->ConnectionError.subscribe(
        [this](std::int32_t code) { handle([&] { client_ConnectionError(code); }); });
    client_->Connessione.subscribe([this] { handle([this] { client_Connessione(); }); });
    client_->Disconnessione.subscribe([this] { handle([this] { client_Disconnessione(); }); });
    client_->Errore.subscribe([this](const std::string& message, const std::string& station) {
        handle([&] { client_Errore(message, station); });
    });
    client_->Stato.subscribe([this](const std::string& station, std::int32_t code) {
        handle([&] { client_Stato(station, code); });
    });
}

RuntimeClient& ConnViewer::client() const {
    if (!client_) throw RuntimeError(ErrorNumber::ObjectNotSet);
    return *client_;
}

void ConnViewer::ConnettiAlRuntime() {
    if (File().empty()) return;
    form_.lblHostname.Caption(Hostname_);
    // Skipped, also while there is no client yet: the client's events tell how it went.
    ignoreErrors([this] { client().ConnettiRuntime(Application, Hostname_); });
}

void ConnViewer::t_Timer() {
    if (!client_) return;
    // Skipped: the next tick tries again.
    ignoreErrors([this] {
        if (!client_->RuntimeAttivo()) client_->ConnettiRuntime(Application, Hostname_);
    });
}

void ConnViewer::client_ConnectionError(std::int32_t code) {
    if (code == 0) ScriviLog(RuntimeIsDown);
    if (code == 1) ScriviLog("Runtime senza progetto o con nessuna RTU configurata!!");
    dimenticaStati();
    form_.t.Enabled(true);
}

void ConnViewer::client_Connessione() {
    form_.t.Enabled(false);
    form_.lblProgetto.Caption(client().NomeProgetto());
    form_.lblVersione.Caption(client().Versione());
    ricostruisciElenco();
    AggiornaTutteRTU();
    ScriviLog("");
}

void ConnViewer::ricostruisciElenco() {
    form_.lvVRX.Clear();
    // By the running position and not always the first one: from two members on this runs past the
    // shrinking collection, and the handler ends with that error. It is meant to.
    const int old = Stazioni_.Count();
    for (int i = 1; i <= old; ++i) Stazioni_.Remove(i);

    for (const std::string& name : client().ElencoRTU()) {
        if (name.empty()) continue;
        Stazioni_.Add({.Nome = name}, name);
        form_.lvVRX.Add(name, name);
    }
}

void ConnViewer::client_Disconnessione() {
    ScriviLog(RuntimeIsDown);
    dimenticaStati();
    AggiornaStatoRTU();
    form_.t.Enabled(true);
}

void ConnViewer::dimenticaStati() {
    for (int row = 1; row <= form_.lvVRX.Count(); ++row) form_.lvVRXIcons.Icon(row, NoIcon);
}

void ConnViewer::client_Errore(const std::string& message, const std::string& station) {
    if (station.empty()) {
        ScriviLog(message);
        AggiornaTutteRTU();
    } else {
        ScriviLog("'" + station + "': " + message);
        client().RichiediStatoRTU(station);
    }
}

void ConnViewer::client_Stato(const std::string& station, std::int32_t code) {
    Stazioni_.Item(station).StatoLinea = code;
    if (const int row = form_.lvVRX.RowOf(station)) form_.lvVRXIcons.Icon(row, code);
    AggiornaStatoRTU();
}

void ConnViewer::AggiornaTutteRTU() {
    const std::int16_t count = conversions::roundToInt16(form_.lvVRX.Count());
    for (int row = 1; row <= count; ++row) client().RichiediStatoRTU(form_.lvVRX.Text(row));
}

void ConnViewer::AggiornaStatoRTU() {
    const int selected = form_.lvVRX.SelectedItem();
    if (form_.lvVRX.Count() == 0 || selected == 0) return;
    const clsVRX& station = Stazioni_.Item(form_.lvVRX.Key(selected));
    form_.lblVRX.Caption(station.Nome);
    const LineState* state = lineState(station.StatoLinea);
    if (!state) return;
    form_.lblStato.Caption(state->caption);
    apply(form_.cmdConnetti, state->cmdConnetti);
    apply(form_.cmdDisconnetti, state->cmdDisconnetti);
    apply(form_.cmdDownload, state->cmdDownload);
    form_.cmdDownloadAll.Enabled(form_.cmdDownload.Enabled());
}

void ConnViewer::apply(Button& button, ButtonRule rule) {
    // The link is asked anew for each button: it may go down in between.
    button.Enabled(rule == ButtonRule::AsRuntime ? client().RuntimeAttivo()
                                                 : rule == ButtonRule::Enabled);
}

void ConnViewer::lvVRX_Click() {
    const int selected = form_.lvVRX.SelectedItem();
    if (selected == 0) return;
    client().RichiediStatoRTU(form_.lvVRX.Text(selected));
    AggiornaStatoRTU();
}

void ConnViewer::richiedi(void (RuntimeClient::*request)(const std::string& station)) {
    const bool listed = form_.lvVRX.Count() > 0;
    const bool linked = client().RuntimeAttivo();
    const int selected = form_.lvVRX.SelectedItem();
    if (!listed || !linked || selected == 0) return;
    ScriviLog("");
    (client().*request)(form_.lvVRX.Key(selected));
}

void ConnViewer::cmdDownloadAll_Click() {
    // Unlike its neighbours it asks neither for a list nor for a link.
    ScriviLog("");
    client().DownloadTutte();
}

}  // namespace velt
