// SPDX-License-Identifier: MIT
// What a trend viewer keeps in its settings file.
#include "alarmviewer/intervallo.h"
#include "framework/readnumber.h"
#include "trendviewer/intervalli.h"
#include "trendviewer/modcolor.h"
#include "trendviewer/trendviewer.h"

namespace velt {
namespace {

std::string colorKey(int pen) { return "colore" + std::to_string(pen + 1); }
std::string trendKey(int pen) { return "cmbTrend" + std::to_string(pen); }

/// False for a position that the list does not have; -1 clears the selection.
bool select(ComboBox& list, int position) {
    if (position < -1 || position >= list.ListCount()) return false;
    list.ListIndex(position);
    return true;
}

/// Where the restored window begins: at its saved start, else so that it ends now. `seconds` is
/// its length.
Date savedStart(Settings& settings, const std::string& section, std::int32_t seconds,
                Clock& clock) {
    bool isStart = false;
    bool isEnd = false;
    Date start;
    Date end;
    const Date before = clock.now();
    LeggiIntervallo(&settings, section, isStart, start, isEnd, end);
    // A date that is missing or cannot be read reads as the present moment.
    const bool found = start < before || start > clock.now();
    return found ? start : before.addSeconds(-seconds);
}

}  // namespace

void TrendViewer::SalvaImpostazioni() {
    // Without a restore before, the widgets hold no choice of the operator's that could be saved
    // over the stored one; and one save is enough.
    if (!settingsLoaded_) return;
    settingsLoaded_ = false;
    const std::unique_ptr<Settings> settings = openSettings();
    if (!settings) return;
    SalvaIntervallo(settings.get(), section(), true, form_.DataIniziale.Value(), true,
                    form_.DataFinale.Value());
    for (int pen = 0; pen < clsGrafico::Penne; ++pen)
        settings->ScriviStringa(colorKey(pen), modColor::text(penna(pen).colore.BackColor()));
    settings->ScriviStringa("cmbRange", std::to_string(form_.cmbRange.ListIndex()));
    settings->ScriviIntero("Norm", form_.chkNormalizzato.Value() != 0);
    settings->ScriviStringa("IndexScala", std::to_string(form_.cmbScala.ListIndex() - 1));
    settings->ScriviIntero("AutoUpdate", autoUpdate_);
    settings->ScriviIntero("NumeroPenneSelezionate",
                           static_cast<std::int16_t>(grafico_.NumeroPenneSelezionate()));
    settings->ScriviIntero("PeriodoCampionamento", grafico_.PeriodoCampionamento());
    // An empty list (a folder that is not there) says nothing about what was chosen in it.
    if (form_.cmbVRX.ListCount() == 0) return;
    settings->ScriviStringa("cmbVRX", std::to_string(form_.cmbVRX.ListIndex()));
    for (int pen = 0; pen < clsGrafico::Penne; ++pen)
        settings->ScriviStringa(trendKey(pen), std::to_string(penna(pen).cmbTrend.ListIndex()));
}

bool TrendViewer::CaricaImpostazioni() {
    const std::unique_ptr<Settings> settings = openSettings();
    if (!settings) return false;
    settingsLoaded_ = true;
    autoUpdate_ = false;  // until everything is restored: what is drawn then is drawn once

    for (int pen = 0; pen < clsGrafico::Penne; ++pen)
        if (const auto color = modColor::fromText(settings->LeggiStringa(colorKey(pen), "")))
            colora(pen, *color);

    const int saved = readNumber(*settings, "cmbRange", 0);
    const int range = saved == -1 ? 0 : saved;
    const bool known = range >= 0 && range < form_.cmbRange.ListCount();
    const std::int32_t seconds =
        known ? SecondiIntervallo(static_cast<std::int16_t>(range)) : secondi();
    const Date start = savedStart(*settings, section(), seconds, services().clock());
    inizio(start);
    fine(start);
    if (known)
        form_.cmbRange.ListIndex(range);  // computes the end
    else
        CalcolaDataFinale();

    select(form_.cmbVRX, readNumber(*settings, "cmbVRX", -1));
    for (int pen = 0; pen < clsGrafico::Penne; ++pen)
        select(penna(pen).cmbTrend, readNumber(*settings, trendKey(pen), -1));

    form_.chkNormalizzato.Value(settings->LeggiIntero("Norm", 0) != 0 ? 1 : 0);
    const int scale = readNumber(*settings, "IndexScala", -1);
    if (scale >= 0 && scale < clsGrafico::Penne) form_.cmbScala.ListIndex(scale + 1);
    autoUpdate_ = settings->LeggiIntero("AutoUpdate", 0) != 0;
    form_.chkAutoUpdate.Value(autoUpdate_ ? 1 : 0);
    riavviaTimer();
    return true;
}

}  // namespace velt
