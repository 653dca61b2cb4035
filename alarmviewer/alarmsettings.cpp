// SPDX-License-Identifier: MIT
// What an alarm viewer keeps in its settings file.
#include "alarmviewer/alarmviewer.h"
#include "alarmviewer/intervallo.h"
#include "framework/readnumber.h"
#include "platform/conversions.h"

#include <algorithm>

namespace velt {
namespace {

std::string listKey(int row) { return "List" + std::to_string(row); }
std::string widthKey(int column) { return "DGColumnWidth" + std::to_string(column); }

}  // namespace

void AlarmViewer::SalvaImpostazioni() {
    // Without a restore before, the widgets hold no choice of the operator's that could be saved
    // over the stored one; and one save is enough.
    if (!settingsLoaded_) return;
    settingsLoaded_ = false;
    const std::unique_ptr<Settings> settings = openSettings();
    if (!settings) return;
    SalvaIntervallo(settings.get(), section(), form_.chkDataIniziale.Value() == 1,
                    form_.DataIniziale.Value(), form_.chkDataFinale.Value() == 1,
                    form_.DataFinale.Value());
    settings->ScriviStringa("AlarmCondition", std::to_string(form_.chkAllarme.Value()));
    // Lists that could not be filled say nothing about what the operator has chosen in them.
    if (!listsFilled_) return;
    settings->ScriviStringa("AlarmIndex", std::to_string(form_.cmbAllarme.ListIndex()));
    settings->ScriviStringa("ListCount", std::to_string(form_.lvVRX.Count()));
    for (int row = 1; row <= form_.lvVRX.Count(); ++row)
        settings->ScriviIntero(listKey(row), form_.lvVRX.Checked(row));
}

void AlarmViewer::CaricaImpostazioni() {
    const std::unique_ptr<Settings> settings = openSettings();
    if (!settings) return;
    settingsLoaded_ = true;

    bool isStart = false;
    bool isEnd = false;
    Date start;
    Date end;
    LeggiIntervallo(settings.get(), section(), isStart, start, isEnd, end);
    form_.chkDataIniziale.Value(isStart ? 1 : 0);
    form_.chkDataFinale.Value(isEnd ? 1 : 0);
    form_.DataIniziale.Value(start);
    form_.TimeIniziale.Value(start);
    form_.DataFinale.Value(end);
    form_.TimeFinale.Value(end);

    form_.chkAllarme.Value(readNumber(*settings, "AlarmCondition", 0) != 0 ? 1 : 0);

    const int alarm = readNumber(*settings, "AlarmIndex", -1);
    if (alarm >= -1 && alarm < form_.cmbAllarme.ListCount()) form_.cmbAllarme.ListIndex(alarm);

    const int marks = std::min(readNumber(*settings, "ListCount", 0), form_.lvVRX.Count());
    for (int row = 1; row <= marks; ++row)
        form_.lvVRX.Checked(row, settings->LeggiIntero(listKey(row), 0) != 0);
}

void AlarmViewer::CaricaLarghezze() {
    const std::unique_ptr<Settings> settings = openSettings();
    if (!settings) return;
    for (int column = 0; column < form_.dg.ColumnCount(); ++column) {
        const auto width = conversions::plainNumber(settings->LeggiStringa(widthKey(column), ""));
        if (width && *width >= 0) form_.dg.ColumnWidth(column, *width);
    }
}

void AlarmViewer::salvaLarghezza(int column) {
    const std::unique_ptr<Settings> settings = openSettings();
    if (!settings) return;
    const int twips = conversions::roundToInt32(form_.dg.ColumnWidth(column));
    settings->ScriviStringa(widthKey(column), std::to_string(twips));
}

}  // namespace velt
