// SPDX-License-Identifier: MIT
#pragma once

#include "platform/export.h"
#include "platform/propertybag.h"

#include <QColor>
#include <QString>
#include <QWidget>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <variant>

namespace velt {
class Services;
}

namespace velt::ui {

class LiveControl;

/// What the four controls share as Qt widgets.
///
/// A property that comes with the form (Q_PROPERTY: setProperty(), uic, QUiLoader) is stored
/// without any effect; one that host code assigns by the public method of the property's own name
/// takes effect. The form counts as loading until the first turn of the event loop, the first
/// show, or the first assignment by the host; from then on setProperty() with another value counts
/// as an assignment, too.
///
/// An error that a control could not handle is announced by runtimeError(); no exception leaves a
/// control. User-interface thread only. May be destroyed at any time.
class VELT_API ControlWidget : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QColor BackColor READ backColor WRITE readBackColor RESET resetBackColor)
    Q_PROPERTY(QColor ForeColor READ foreColor WRITE readForeColor RESET resetForeColor)
    Q_PROPERTY(QString FileIni READ FileIni WRITE readFileIni)

public:
    ~ControlWidget() override;

    /// Colour of the control's surface and its frames; the system's button face by default.
    [[nodiscard]] OleColor BackColor() const;
    void BackColor(OleColor color);
    void BackColor(const QColor& color);
    /// Colour of the texts on it; the system's button text by default.
    [[nodiscard]] OleColor ForeColor() const;
    void ForeColor(OleColor color);
    void ForeColor(const QColor& color);
    /// Path of the settings file; empty: nothing is kept.
    [[nodiscard]] QString FileIni() const { return text("FileIni"); }
    void FileIni(const QString& path);

    /// To be called before the host closes the form: saves the operator's choices and releases
    /// what the control holds. Harmless when repeated. While an operation is on it is cancelled,
    /// and this happens right after it, even when the control has been destroyed meanwhile.
    void Terminate();

    /// In a form designer a control neither connects nor reads anything. Run time by default.
    void setDesignMode(bool designMode);
    [[nodiscard]] bool isDesignMode() const { return designMode_; }

signals:
    /// The host has assigned the property `name`.
    void propertyChanged(const QString& name);
    /// An error has left the control: its number, and a description for the operator.
    void runtimeError(int number, const QString& description);

protected:
    /// `sourceProperty` is "File" or "Hostname". Without `services` the control takes the
    /// process's standard ones when it goes live.
    ControlWidget(std::string sourceProperty, Services* services, QWidget* parent);

    [[nodiscard]] QString source() const { return text(sourceProperty_); }
    void source(const QString& value);
    void readSource(const QString& value);
    /// A call of the control's own by the running host.
    void callLogic(std::function<void(LiveControl&)> call);

    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;

private:
    friend class LiveControl;
    using Value = std::variant<OleColor, std::string>;
    class Bag;

    /// Makes the logic and binds it to the widgets; once.
    virtual std::shared_ptr<LiveControl> makeLogic(Services& services) = 0;

    /// Ends the loading of the form.
    void goLive();
    /// From the form, or from host code by setProperty().
    void read(const std::string& name, const Value& value);
    /// By the running host.
    void assign(const std::string& name, const Value& value);
    [[nodiscard]] QString text(const std::string& name) const;

    // The properties as a form sees them.
    [[nodiscard]] QColor backColor() const;
    [[nodiscard]] QColor foreColor() const;
    void readBackColor(const QColor& color);
    void readForeColor(const QColor& color);
    void resetBackColor();
    void resetForeColor();
    void readFileIni(const QString& path);

    std::string sourceProperty_;
    Services* services_;
    std::map<std::string, Value> properties_;
    bool designMode_ = false;
    bool showPending_ = false;
    std::shared_ptr<LiveControl> live_;  ///< null while the form is loading
};

}  // namespace velt::ui
