// SPDX-License-Identifier: MIT
#include "widgets/propertypagedialog.h"

#include "adapters/qt/text.h"
#include "framework/propertypage.h"
#include "widgets/controlwidget.h"
#include "widgets/internal/filefilter.h"

#include <QBoxLayout>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>

#include <utility>

namespace velt::ui {
namespace {

using qt::fromQt;
using qt::toQt;

QString text(std::string_view view) { return toQt(std::string(view)); }

class QtEditBox final : public EditBox {
public:
    explicit QtEditBox(QLineEdit& edit) : edit_(edit) {
        QObject::connect(&edit, &QLineEdit::textChanged, &edit, [this] { Change.raise(); });
    }
    [[nodiscard]] std::string Text() const override { return fromQt(edit_.text()); }
    void Text(const std::string& text) override { edit_.setText(toQt(text)); }

private:
    QLineEdit& edit_;
};

class QtBrowseButton final : public BrowseButton {
public:
    explicit QtBrowseButton(QPushButton& button) {
        QObject::connect(&button, &QPushButton::clicked, &button, [this] { Click.raise(); });
    }
};

class QtOpenDialog final : public FileDialog {
public:
    explicit QtOpenDialog(QWidget& parent) : parent_(parent) {}
    [[nodiscard]] std::string ShowOpen(const std::string& title,
                                       const std::string& filter) override {
        return fromQt(QFileDialog::getOpenFileName(&parent_, toQt(title), QString(),
                                                   fileFilter(toQt(filter))));
    }

private:
    QWidget& parent_;
};

/// One control of a running host, by the properties of the form.
class RunningControl final : public SelectedControls {
public:
    explicit RunningControl(ControlWidget& control) : control_(control) {}
    [[nodiscard]] int Count() const override { return 1; }
    [[nodiscard]] std::string Property(int, const std::string& name) const override {
        return fromQt(control_.property(name.c_str()).toString());
    }
    void Property(int, const std::string& name, const std::string& value) override {
        control_.setProperty(name.c_str(), toQt(value));
    }

private:
    ControlWidget& control_;
};

}  // namespace

struct PropertyPageDialog::Impl {
    Impl(PropertyPageDialog& dialog, const PropertyPageTraits& traits,
         std::unique_ptr<SelectedControls> selected)
        : controls(std::move(selected)),
          sourceEdit(makeEdit(text(traits.sourceBox))),
          iniEdit(makeEdit(QStringLiteral("txtFileIni"))),
          sourceBrowse(makeBrowse("cmdDirSelect", text(traits.browseTitle))),
          iniBrowse(makeBrowse("cmdIniSelect", QStringLiteral("Seleziona il file INI"))),
          openDialog(dialog),
          txtSource(*sourceEdit),
          txtFileIni(*iniEdit),
          cmdDirSelect(*sourceBrowse),
          cmdIniSelect(*iniBrowse),
          page(traits, {txtSource, txtFileIni, cmdDirSelect, cmdIniSelect, openDialog}) {
        auto* rows = new QFormLayout;
        addRow(*rows, text(traits.sourceProperty) + QLatin1Char(':'), *sourceEdit, *sourceBrowse);
        addRow(*rows, QStringLiteral("File Ini:"), *iniEdit, *iniBrowse);
        sourceBrowse->setVisible(traits.browses());

        auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel |
                                             QDialogButtonBox::Apply);
        buttons->button(QDialogButtonBox::Ok)->setText(QStringLiteral("OK"));
        buttons->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("Annulla"));
        apply = buttons->button(QDialogButtonBox::Apply);
        apply->setText(QStringLiteral("&Applica"));
        connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
        connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
        connect(apply, &QPushButton::clicked, &dialog, [this] { page.ApplyChanges(*controls); });
        page.ChangedChanged.subscribe([this] { apply->setEnabled(page.Changed()); });

        auto* layout = new QVBoxLayout(&dialog);
        layout->addLayout(rows);
        layout->addStretch();
        layout->addWidget(buttons);
        page.SelectionChanged(*controls);
        apply->setEnabled(page.Changed());
    }

    static QLineEdit* makeEdit(const QString& name) {
        auto* edit = new QLineEdit;
        edit->setObjectName(name);
        edit->setMinimumWidth(320);
        return edit;
    }
    static QPushButton* makeBrowse(const char* name, const QString& toolTip) {
        auto* button = new QPushButton(QStringLiteral("Sfoglia..."));
        button->setObjectName(QLatin1String(name));
        button->setToolTip(toolTip);
        button->setAccessibleName(toolTip);
        button->setAutoDefault(false);
        return button;
    }
    static void addRow(QFormLayout& rows, const QString& label, QLineEdit& edit,
                       QPushButton& browse) {
        edit.setAccessibleName(label.chopped(1));
        auto* line = new QHBoxLayout;
        line->addWidget(&edit);
        line->addWidget(&browse);
        rows.addRow(label, line);
    }

    std::unique_ptr<SelectedControls> controls;
    QLineEdit* sourceEdit;
    QLineEdit* iniEdit;
    QPushButton* sourceBrowse;
    QPushButton* iniBrowse;
    QPushButton* apply = nullptr;
    QtOpenDialog openDialog;
    QtEditBox txtSource;
    QtEditBox txtFileIni;
    QtBrowseButton cmdDirSelect;
    QtBrowseButton cmdIniSelect;
    PropertyPage page;
};

PropertyPageDialog::PropertyPageDialog(const PropertyPageTraits& traits,
                                       std::unique_ptr<SelectedControls> controls, QWidget* parent)
    : QDialog(parent) {
    setObjectName(text(traits.name));
    setWindowTitle(QStringLiteral("Sorgente e file di impostazioni"));
    impl_ = std::make_unique<Impl>(*this, traits, std::move(controls));
}

PropertyPageDialog::~PropertyPageDialog() = default;

std::unique_ptr<PropertyPageDialog> PropertyPageDialog::of(ControlWidget& control,
                                                           QWidget* parent) {
    const PropertyPageTraits* traits = pageOf(control);
    if (!traits) return nullptr;
    return std::make_unique<PropertyPageDialog>(*traits, std::make_unique<RunningControl>(control),
                                                parent);
}

const PropertyPageTraits* PropertyPageDialog::pageOf(const QWidget& widget) {
    const std::string_view name = widget.metaObject()->className();
    constexpr std::string_view scope = "velt::ui::";
    return name.starts_with(scope) ? propertyPageOf(name.substr(scope.size())) : nullptr;
}

void PropertyPageDialog::accept() {
    if (impl_->page.Changed()) impl_->page.ApplyChanges(*impl_->controls);
    QDialog::accept();
}

}  // namespace velt::ui
