// SPDX-License-Identifier: MIT
#include "widgets/controlwidget.h"

#include "adapters/qt/colors.h"
#include "adapters/qt/text.h"
#include "adapters/standard/standardservices.h"
#include "widgets/internal/edges.h"
#include "widgets/internal/livecontrol.h"

#include <QApplication>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QShowEvent>

#include <utility>

namespace velt::ui {
namespace {

QEvent::Type loadDone() {
    static const int type = QEvent::registerEventType();
    return static_cast<QEvent::Type>(type);
}

}  // namespace

/// The properties that came with the form.
class ControlWidget::Bag final : public PropertyBag {
public:
    explicit Bag(std::map<std::string, Value> values) : values_(std::move(values)) {}
    [[nodiscard]] OleColor ReadProperty(const std::string& key, OleColor fallback) const override {
        return read(key, fallback);
    }
    [[nodiscard]] std::string ReadProperty(const std::string& key,
                                           const std::string& fallback) const override {
        return read(key, fallback);
    }
    void WriteProperty(const std::string& key, OleColor value, OleColor) override {
        values_[key] = value;
    }
    void WriteProperty(const std::string& key, const std::string& value,
                       const std::string&) override {
        values_[key] = value;
    }

private:
    template <typename T>
    [[nodiscard]] T read(const std::string& key, const T& fallback) const {
        const auto found = values_.find(key);
        const T* held = found == values_.end() ? nullptr : std::get_if<T>(&found->second);
        return held ? *held : fallback;
    }
    std::map<std::string, Value> values_;
};

ControlWidget::ControlWidget(std::string sourceProperty, Services* services, QWidget* parent)
    : QWidget(parent),
      sourceProperty_(std::move(sourceProperty)),
      services_(services),
      properties_{{"BackColor", ButtonFace},
                  {"ForeColor", ButtonText},
                  {sourceProperty_, std::string()},
                  {"FileIni", std::string()}} {
    QCoreApplication::postEvent(this, new QEvent(loadDone()));
}

ControlWidget::~ControlWidget() {
    if (live_) live_->close();
}

bool ControlWidget::event(QEvent* event) {
    if (event->type() != loadDone()) return QWidget::event(event);
    goLive();
    return true;
}

void ControlWidget::goLive() {
    if (live_) return;
    live_ = makeLogic(services_ ? *services_ : standardServices());
    keepEdgesVisible(*this);
    live_->logic().PropertyChanged.subscribe([this, live = live_.get()](const std::string& name) {
        if (!live->isClosed()) emit propertyChanged(qt::toQt(name));
    });
    live_->hostCall(
        [live = live_.get(), bag = Bag(properties_)] { live->logic().ReadProperties(bag); });
}

void ControlWidget::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    // The window system shows a window again that was minimised or on another desktop.
    if (event->spontaneous()) return;
    goLive();
    if (std::exchange(showPending_, true)) return;
    // The logic may wait when it starts: not before the window stands on the screen.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (std::exchange(showPending_, false))
                live_->hostCall([live = live_.get()] { live->logic().Show(); });
        },
        Qt::QueuedConnection);
}

void ControlWidget::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) keepEdgesVisible(*this);
}

void ControlWidget::keyPressEvent(QKeyEvent* event) {
    // Enter in a filter must not press the default button of a dialog that hosts the control.
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isEnter) QWidget::keyPressEvent(event);
}

void ControlWidget::Terminate() {
    showPending_ = false;
    if (live_) live_->terminate([live = live_.get()] { live->logic().Terminate(); });
}

void ControlWidget::setDesignMode(bool designMode) { designMode_ = designMode; }

void ControlWidget::read(const std::string& name, const Value& value) {
    if (live_ && properties_.at(name) != value)
        assign(name, value);
    else
        properties_[name] = value;
}

void ControlWidget::assign(const std::string& name, const Value& value) {
    goLive();
    properties_[name] = value;
    live_->hostCall([live = live_.get(), name, value] {
        Control& logic = live->logic();
        if (name == "BackColor")
            logic.BackColor(std::get<OleColor>(value));
        else if (name == "ForeColor")
            logic.ForeColor(std::get<OleColor>(value));
        else if (name == "FileIni")
            logic.FileIni(std::get<std::string>(value));
        else
            live->assignSource(std::get<std::string>(value));
    });
}

void ControlWidget::callLogic(std::function<void(LiveControl&)> call) {
    goLive();
    live_->hostCall([live = live_.get(), call = std::move(call)] { call(*live); });
}

QString ControlWidget::text(const std::string& name) const {
    return qt::toQt(std::get<std::string>(properties_.at(name)));
}

void ControlWidget::source(const QString& value) { assign(sourceProperty_, qt::fromQt(value)); }
void ControlWidget::readSource(const QString& value) { read(sourceProperty_, qt::fromQt(value)); }
void ControlWidget::FileIni(const QString& path) { assign("FileIni", qt::fromQt(path)); }
void ControlWidget::readFileIni(const QString& path) { read("FileIni", qt::fromQt(path)); }

OleColor ControlWidget::BackColor() const {
    return std::get<OleColor>(properties_.at("BackColor"));
}
OleColor ControlWidget::ForeColor() const {
    return std::get<OleColor>(properties_.at("ForeColor"));
}
void ControlWidget::BackColor(OleColor color) { assign("BackColor", color); }
void ControlWidget::ForeColor(OleColor color) { assign("ForeColor", color); }
void ControlWidget::BackColor(const QColor& color) { BackColor(qt::toOleColor(color)); }
void ControlWidget::ForeColor(const QColor& color) { ForeColor(qt::toOleColor(color)); }

QColor ControlWidget::backColor() const {
    return qt::toQColor(BackColor(), QApplication::palette());
}
QColor ControlWidget::foreColor() const {
    return qt::toQColor(ForeColor(), QApplication::palette());
}
void ControlWidget::readBackColor(const QColor& color) { read("BackColor", qt::toOleColor(color)); }
void ControlWidget::readForeColor(const QColor& color) { read("ForeColor", qt::toOleColor(color)); }
void ControlWidget::resetBackColor() { read("BackColor", ButtonFace); }
void ControlWidget::resetForeColor() { read("ForeColor", ButtonText); }

}  // namespace velt::ui
