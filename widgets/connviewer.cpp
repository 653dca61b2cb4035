// SPDX-License-Identifier: MIT
#include "widgets/connviewer.h"

#include "adapters/qt/qtbutton.h"
#include "adapters/qt/qtframe.h"
#include "adapters/qt/qtlabel.h"
#include "adapters/qt/qtlistview.h"
#include "adapters/qt/qtplaced.h"
#include "adapters/qt/qttimer.h"
#include "adapters/qt/text.h"
#include "connviewer/connviewer.h"
#include "connviewer/rtuconfig.h"
#include "widgets/internal/connviewerui.h"
#include "widgets/internal/lineicons.h"
#include "widgets/internal/livecontrol.h"

#include <QEvent>

namespace velt::ui {
namespace {

/// The adapters of the widgets that follow the control's size.
struct Places {
    explicit Places(const ConnViewerUi& ui)
        : control(ui.control), frame(ui.frmSelezioneDati), log(ui.lblLog), list(ui.lvVRX) {}
    ConnViewerPlaces form() { return {control, frame, log, list}; }

    qt::QtSurface control;
    qt::QtPlaced frame;
    qt::QtPlaced log;
    qt::QtPlaced list;
};

/// The logic with its widgets' adapters.
class LiveConnViewer final : public LiveControl {
public:
    LiveConnViewer(ControlWidget& widget, const ConnViewerUi& ui, Services& services)
        : LiveControl(widget),
          frmSelezioneDati_(ui.frmSelezioneDati),
          captions_{qt::QtFrame(ui.captions[0]), qt::QtFrame(ui.captions[1]),
                    qt::QtFrame(ui.captions[2]), qt::QtFrame(ui.captions[3]),
                    qt::QtFrame(ui.captions[4]), qt::QtFrame(ui.captions[5]),
                    qt::QtFrame(ui.captions[6])},
          lblHostname_(ui.lblHostname),
          lblProgetto_(ui.lblProgetto),
          lblVersione_(ui.lblVersione),
          lblVRX_(ui.lblVRX),
          lblStato_(ui.lblStato),
          lblLog_(ui.lblLog),
          lvVRX_(*this, ui.lvVRX, lineStatePictures()),
          cmdConnetti_(*this, ui.cmdConnetti),
          cmdDisconnetti_(*this, ui.cmdDisconnetti),
          cmdDownload_(*this, ui.cmdDownload),
          cmdDownloadAll_(*this, ui.cmdDownloadAll),
          t_(*this),
          places_(ui),
          logic_(ConnViewerForm{frmSelezioneDati_,
                                {&captions_[0], &captions_[1], &captions_[2], &captions_[3],
                                 &captions_[4], &captions_[5], &captions_[6]},
                                lblHostname_,
                                lblProgetto_,
                                lblVersione_,
                                lblVRX_,
                                lblStato_,
                                lblLog_,
                                lvVRX_,
                                lvVRX_,
                                lvVRX_,
                                cmdConnetti_,
                                cmdDisconnetti_,
                                cmdDownload_,
                                cmdDownloadAll_,
                                t_,
                                places_.form()},
                 *this, services) {}

    Control& logic() override { return logic_; }
    void assignSource(const std::string& value) override { logic_.File(value); }

private:
    qt::QtFrame frmSelezioneDati_;
    qt::QtFrame captions_[ConnViewerUi::CaptionCount];
    qt::QtLabel lblHostname_;
    qt::QtLabel lblProgetto_;
    qt::QtLabel lblVersione_;
    qt::QtLabel lblVRX_;
    qt::QtLabel lblStato_;
    qt::QtLabel lblLog_;
    qt::QtListView lvVRX_;
    qt::QtButton cmdConnetti_;
    qt::QtButton cmdDisconnetti_;
    qt::QtButton cmdDownload_;
    qt::QtButton cmdDownloadAll_;
    qt::QtTimer t_;
    Places places_;
    velt::ConnViewer logic_;
};

}  // namespace

ConnViewer::ConnViewer(QWidget* parent) : ConnViewer(nullptr, parent) {}

ConnViewer::ConnViewer(Services& services, QWidget* parent) : ConnViewer(&services, parent) {}

ConnViewer::ConnViewer(Services* services, QWidget* parent)
    : ControlWidget("File", services, parent), ui_(std::make_unique<ConnViewerUi>(this)) {
    arrange();
}

ConnViewer::~ConnViewer() = default;

QString ConnViewer::CartellaDownload() const {
    return qt::toQt(velt::CartellaDownload(qt::fromQt(File())));
}

void ConnViewer::arrange() {
    const QSize least(connlayout::MinimumWidth / TwipsPerPixel,
                      connlayout::MinimumHeight / TwipsPerPixel);
    // A layout of the host would not let the control grow back by itself.
    setMinimumSize(ui_->place().expandedTo(least));
    // At any time, also while a handler waits or in a form designer: it touches sizes only.
    layOut(Places(*ui_).form());
}

void ConnViewer::resizeEvent(QResizeEvent* event) {
    ControlWidget::resizeEvent(event);
    arrange();
}

void ConnViewer::changeEvent(QEvent* event) {
    ControlWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) arrange();
}

std::shared_ptr<LiveControl> ConnViewer::makeLogic(Services& services) {
    return std::make_shared<LiveConnViewer>(*this, *ui_, services);
}

}  // namespace velt::ui
