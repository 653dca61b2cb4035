// SPDX-License-Identifier: MIT
#pragma once

#include "connviewer/clsvrx.h"
#include "connviewer/connlayout.h"
#include "connviewer/linestate.h"
#include "framework/collection.h"
#include "framework/control.h"
#include "platform/runtimeclient.h"
#include "platform/widgets.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>

namespace velt {

/// The widgets of a connection viewer.
struct ConnViewerForm {
    Frame& frmSelezioneDati;
    std::array<Frame*, 7> captions;  ///< the labels that name what stands beside them
    Label& lblHostname;
    Label& lblProgetto;
    Label& lblVersione;
    Label& lblVRX;
    Label& lblStato;
    Label& lblLog;
    ListView& lvVRX;
    ListColumns& lvVRXColumns;
    ListIcons& lvVRXIcons;  ///< numbered by the line states
    Button& cmdConnetti;
    Button& cmdDisconnetti;
    Button& cmdDownload;
    Button& cmdDownloadAll;
    Timer& t;
    ConnViewerPlaces places;
};

/// Links to the telecontrol runtime, mirrors the line state of its stations, and lets the operator
/// connect, disconnect and download them. The form must outlive it.
class VELT_API ConnViewer final : public Control {
public:
    ConnViewer(const ConnViewerForm& form, Ambient& ambient, Services& services);
    ~ConnViewer() override;

    /// Path of the configuration file "VeltRTU.ini". Its host is read only when it is assigned at
    /// run time: a path that came with the form leaves the choice of host to the runtime client.
    [[nodiscard]] const std::string& File() const { return source(); }
    void File(const std::string& path) { source(path); }
    /// Folder of the station databases: that of File and one "\" (a relative File should be made
    /// absolute before: without a folder this is the separator alone); "" without a File.
    [[nodiscard]] std::string CartellaDownload() const;

private:
    void applyBackColor(OleColor color) override;
    void applyForeColor(OleColor color) override;
    void start() override;
    void sourceAssigned() override;
    void release() override;

    void creaClient();
    void ConnettiAlRuntime();
    void AggiornaStatoRTU();
    void AggiornaTutteRTU();
    void ricostruisciElenco();
    /// Without a link nobody knows the lines' states: their icons go.
    void dimenticaStati();
    void ScriviLog(const std::string& text) { form_.lblLog.Caption(text); }

    void t_Timer();
    void client_ConnectionError(std::int32_t code);
    void client_Connessione();
    void client_Disconnessione();
    void client_Errore(const std::string& message, const std::string& station);
    void client_Stato(const std::string& station, std::int32_t code);
    void lvVRX_Click();
    void cmdDownloadAll_Click();
    /// Asks the runtime to do something with the selected station, if there is one and a link.
    void richiedi(void (RuntimeClient::*request)(const std::string& station));

    void apply(Button& button, ButtonRule rule);
    /// RuntimeError 91 while there is none.
    [[nodiscard]] RuntimeClient& client() const;

    ConnViewerForm form_;
    std::shared_ptr<RuntimeClient> client_;
    std::string Hostname_;
    Collection<clsVRX> Stazioni_;
};

}  // namespace velt
