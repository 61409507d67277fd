// SPDX-License-Identifier: GPL-3.0-or-later
// The preferences: controls over a copy of the settings.
#include "shell/bench/frmOptions.h"

#include "platform/dialogs/frmCommand.h"
#include "platform/dialogs/frmPlainText.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/files/modPaths.h"
#include "platform/language/modColorNames.h"
#include "shell/bench/frmUser.h"
#include "shell/state/Module1.h"
#include "shell/state/frmColorSample.h"
#include "shell/state/frmTool.h"
#include "shell/state/modContrast.h"
#include "ui_frmOptions.h"

#include <QShortcut>
#include <QTextDocument>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

// A line edit, check box or radio button shows one of these.
void ShowOn(QWidget& control, const QString& text)
{
    if (auto* box = qobject_cast<QLineEdit*>(&control)) {
        box->setText(text);
        box->setCursorPosition(0);
    }
}

void ShowOn(QWidget& control, bool on)
{
    if (auto* button = qobject_cast<QAbstractButton*>(&control))
        button->setChecked(on);
}

void ShowOn(QWidget& control, int number)
{
    if (qobject_cast<QAbstractButton*>(&control) != nullptr)
        ShowOn(control, number > 0);
    else
        ShowOn(control, QString::number(number));
}

void LookReadOnly(QLineEdit& field)
{
    QPalette colors = field.palette();
    colors.setColor(QPalette::Base, Qt::transparent);
    field.setPalette(colors);
    field.setFrame(false);
}

QFont FontOf(const Preferences& values, int largest)
{
    QFont font;
    font.setFamilies({values.fontName});
    font.setPointSize(std::clamp(values.fontSize, 1, largest));
    font.setBold(values.fontBold);
    return font;
}

} // namespace

frmOptions::frmOptions(QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::frmOptions>()), values(LoadPreferences(ProgramFolder()))
{
    ui->setupUi(this);
    // Change sets them; a field that looks like one to type into would mislead.
    for (QLineEdit* shown : {ui->txtFontName, ui->txtFontSize})
        LookReadOnly(*shown);
    ShowFields();
    ui->optColorOff->setChecked(values.syntaxColor == 0);
    ui->txtComments->setPlainText(values.comments);
    ui->tbsOptions->setCurrentIndex(0);
    optColor_Click();
    for (const PreferenceRow& row : PreferenceRows())
        ConnectRow(row);
    ConnectButtons();
    // A stored size out of bounds is shown like a typed one.
    txtTabSize_Change();
}

frmOptions::~frmOptions() = default;

QWidget& frmOptions::Control(const char* name) const
{
    return *findChild<QWidget*>(QString::fromLatin1(name));
}

void frmOptions::ShowFields()
{
    for (const PreferenceRow& row : PreferenceRows())
        ShowField(row);
    ShowSamples();
    ShowSampleFonts();
}

void frmOptions::ShowField(const PreferenceRow& row)
{
    std::visit(
        [&](const auto& field) {
            if constexpr (!std::is_same_v<decltype(field.copy), ColorRef Preferences::*>)
                ShowOn(Control(row.control), values.*field.copy);
        },
        row.field);
}

void frmOptions::ShowSamples()
{
    const ColorRef ground = Editor.EditBackColor;
    for (const PreferenceRow& row : PreferenceRows()) {
        const auto* color = std::get_if<Field<ColorRef>>(&row.field);
        if (color == nullptr)
            continue;
        const ColorRef chosen = values.*color->copy;
        auto& sample = static_cast<frmColorSample&>(Control(row.control));
        SetLabelColors(sample, row.ground == Ground::Text ? ShownText(ground, chosen) : Editor.EditForeColor,
                       row.ground == Ground::Back ? ShownGround(ground, chosen) : ground);
    }
    // Only comments have a background colour of their own.
    const ColorRef back = ShownGround(ground, values.commentBackColor);
    const ColorRef fore = IsDark(ground) ? ReadableOn(back, values.commentColor) : values.commentColor;
    for (frmColorSample* sample : {ui->lblComments, ui->lblCommentback})
        SetLabelColors(*sample, fore, back);
    SetLabelColors(*ui->lblSample, Editor.EditForeColor, ground);
}

void frmOptions::ShowSampleFonts()
{
    constexpr int largestShown = 72; // points; the sample is cut off long before
    constexpr int largestSample = 14;
    ui->lblSample->setFont(FontOf(values, largestShown));
    for (const PreferenceRow& row : PreferenceRows())
        if (std::holds_alternative<Field<ColorRef>>(row.field))
            Control(row.control).setFont(FontOf(values, largestSample));
}

void frmOptions::ConnectRow(const PreferenceRow& row)
{
    QWidget& control = Control(row.control);
    if (auto* sample = qobject_cast<frmColorSample*>(&control))
        On(sample, &frmColorSample::Pressed, this, [this, &row] { ColorSample_Click(row); });
    if (const auto* text = std::get_if<Field<QString>>(&row.field))
        connect(qobject_cast<QLineEdit*>(&control), &QLineEdit::textChanged, this,
                [this, copy = text->copy](const QString& typed) { values.*copy = typed; });
    if (const auto* choice = std::get_if<Field<bool>>(&row.field))
        connect(qobject_cast<QAbstractButton*>(&control), &QAbstractButton::toggled, this,
                [this, copy = choice->copy](bool on) { values.*copy = on; });
    if (row.browse != nullptr)
        OnClick(row.browse, [this, &row] { Browse_Click(row); });
}

void frmOptions::OnClick(const char* button, std::function<void()> handler)
{
    On(qobject_cast<QAbstractButton*>(&Control(button)), this, std::move(handler));
}

void frmOptions::ConnectButtons()
{
    connect(ui->chkBold, &QCheckBox::toggled, this, &frmOptions::ShowSampleFonts);
    connect(ui->txtTabSize, &QLineEdit::textChanged, this, &frmOptions::txtTabSize_Change);
    connect(ui->txtComments, &QPlainTextEdit::textChanged, this,
            [this] { values.comments = PlainTextOf(*ui->txtComments); });
    OnClick("cmdFont", [this] { cmdFont_Click(); });
    OnClick("optColorOn", [this] { optColor_Click(); });
    OnClick("optColorOff", [this] { optColor_Click(); });
    OnClick("chkDefaultColors", [this] { chkDefaultColors_Click(); });
    OnClick("cmdAssoc", [this] { cmdAssoc_Click(); });
    OnClick("cmdUser", [] { ShowUserApplications(); });
    OnClick("cmdApply", [this] { cmdApply_Click(); });
    OnClick("cmdOK", [this] {
        cmdApply_Click();
        accept();
    });
    connect(ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    const auto* next = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Tab), this);
    connect(next, &QShortcut::activated, this, &frmOptions::NextTab);
}

void frmOptions::NextTab()
{
    ui->tbsOptions->setCurrentIndex((ui->tbsOptions->currentIndex() + 1) % ui->tbsOptions->count());
}

void frmOptions::cmdFont_Click()
{
    const auto chosen = FontBox({values.fontName, values.fontSize, values.fontBold, false});
    if (!chosen)
        return;
    values.fontName = chosen->name;
    values.fontBold = chosen->bold;
    // A font measured in pixels has no size in points.
    if (chosen->size > 0)
        values.fontSize = chosen->size;
    ui->txtFontName->setText(values.fontName);
    ui->txtFontSize->setText(QString::number(values.fontSize));
    ui->chkBold->setChecked(values.fontBold);
    ShowSampleFonts();
}

void frmOptions::txtTabSize_Change()
{
    const QString typed = ui->txtTabSize->text();
    values.tabSize = typed.isEmpty() ? 0 : TypedTabSize(typed);
    if (!typed.isEmpty())
        ui->txtTabSize->setText(QString::number(values.tabSize));
}

void frmOptions::Browse_Click(const PreferenceRow& row)
{
    const QString chosen = BrowseFor(row.file);
    // Cancelling must not clear the path.
    if (!chosen.isEmpty())
        ShowOn(Control(row.control), chosen);
}

void frmOptions::optColor_Click()
{
    values.syntaxColor = ui->optColorOn->isChecked() ? 1 : 0;
    ui->stkColors->setCurrentWidget(ui->optColorOn->isChecked() ? ui->pagSamples : ui->pagNoColor);
}

void frmOptions::ColorSample_Click(const PreferenceRow& row)
{
    ColorRef& color = values.*std::get<Field<ColorRef>>(row.field).copy;
    color = ColorBox(u"Color Previewer"_s, color).value_or(color);
    ShowSamples();
}

void frmOptions::chkDefaultColors_Click()
{
    TakeDefaultColors(values);
    ShowSamples();
    ui->chkDefaultColors->setChecked(false);
}

void frmOptions::cmdAssoc_Click()
{
    AssociateFiles(UsersPlaces(u":/icons"_s));
}

void frmOptions::cmdApply_Click()
{
    ApplyPreferences(values, ProgramFolder());
    ShowOn(*ui->txtTabSize, values.tabSize);
}

void mnuShowOptions_Click()
{
    ShowTool<frmOptions>();
}

} // namespace ob
