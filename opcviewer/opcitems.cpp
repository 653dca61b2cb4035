// SPDX-License-Identifier: MIT
// The items of an OPC viewer: from the ticked stations to rows, and the data that they show.
#include "opcviewer/opcviewer.h"
#include "opcviewer/quality.h"
#include "opcviewer/steps.h"
#include "opcviewer/valuetext.h"
#include "platform/conversions.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace velt {
namespace {

constexpr const char* AcceptedIcon = "verde";
constexpr const char* RefusedIcon = "errore_gialla";

std::string rowKey(std::int32_t clientHandle) { return "I" + std::to_string(clientHandle); }

/// The announcement of items that are going to be added; in any case it is taken back at the end.
/// Only a hint: without it the items are added one by one.
class Expectation {
public:
    explicit Expectation(OPCItems& items) : items_(items) {}
    /// Raises when it is cancelled; what is known by then is taken back as well.
    void announce(const std::vector<std::string>& itemIDs) {
        skipFailure([&] { items_.ExpectItems(itemIDs); });
    }
    ~Expectation() {
        ignoreErrors([this] { items_.ExpectationsDone(); });
    }
    Expectation(const Expectation&) = delete;
    Expectation& operator=(const Expectation&) = delete;

private:
    OPCItems& items_;
};

}  // namespace

void OPCViewer::AggiornaVariabili() {
    SvuotaVariabili();
    const std::unique_ptr<OPCBrowser> browser = server().CreateBrowser();
    browser->MoveToRoot();
    browser->ShowBranches();
    std::vector<std::string> selected;
    const std::int32_t count = browser->Count();
    for (std::int32_t i = 1; i <= count; ++i) {
        std::string name = browser->Item(i);
        if (RTUSelezionata(name)) selected.push_back(std::move(name));
    }
    skipFailure([&] { server().ExpectBranches(selected); });  // only a hint
    for (const std::string& rtu : selected) AggiungiVariabiliRTU(rtu);
}

std::vector<std::string> OPCViewer::itemIDs(const std::string& rtu) const {
    std::vector<std::string> ids;
    // A station that cannot be entered has no variables, and one that cannot be read is left out.
    skipFailure([&] {
        const std::unique_ptr<OPCBrowser> browser = server().CreateBrowser();
        browser->MoveToRoot();
        browser->MoveDown(rtu);
        browser->ShowLeafs();
        const std::int32_t count = browser->Count();
        for (std::int32_t i = 1; i <= count; ++i)
            skipFailure([&] { ids.push_back(browser->GetItemID(browser->Item(i))); });
    });
    return ids;
}

void OPCViewer::AggiungiVariabiliRTU(const std::string& rtu) {
    const std::vector<std::string> ids = itemIDs(rtu);
    const std::shared_ptr<OPCGroup> group = GruppoOPC_;
    std::optional<Expectation> expectation;
    if (group) expectation.emplace(group->OPCItems()).announce(ids);
    for (const std::string& id : ids) {
        // Never skipped: without a number of its own an item cannot be told from the others.
        const std::int32_t handle = handles_.ProssimoHandle();
        std::shared_ptr<OPCItem> item;
        if (group) skipFailure([&] { item = group->OPCItems().AddItem(id, handle); });
        form_.lvItem.Add(rowKey(handle), id, item ? AcceptedIcon : RefusedIcon);
    }
}

void OPCViewer::SvuotaVariabili() {
    if (!GruppoOPC_) return;
    OPCItems& items = GruppoOPC_->OPCItems();
    const std::int32_t count = items.Count();
    if (count < 1) return;
    std::vector<std::int32_t> handles;
    handles.reserve(static_cast<std::size_t>(count));
    for (std::int32_t i = 1; i <= count; ++i) handles.push_back(items.Item(i)->ServerHandle());
    // The rows go first: whatever becomes of the items, old data must not look live.
    form_.lvItem.Clear();
    items.Remove(handles);
}

void OPCViewer::mostraDati(const DataChangeArgs& args) {
    const Locale& locale = services().locale();
    // An update for which a list is too short is skipped, and so is one whose row is gone.
    const std::size_t count = std::min({args.ClientHandles.size(), args.ItemValues.size(),
                                        args.Qualities.size(), args.TimeStamps.size()});
    for (std::size_t i = 0; i < count; ++i) {
        const int row = form_.lvItem.RowOf(rowKey(args.ClientHandles[i]));
        if (row == 0) continue;
        ignoreErrors([&] {
            form_.lvItem.SubItem(row, cVALORE_OPC, FormattaValore(args.ItemValues[i], locale));
            form_.lvItem.SubItem(row, cQUALITA, DescrizioneQualita(args.Qualities[i]));
            form_.lvItem.SubItem(row, cTIMESTAMP, conversions::text(args.TimeStamps[i], locale));
        });
    }
}

}  // namespace velt
