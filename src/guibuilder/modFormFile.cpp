// SPDX-License-Identifier: GPL-3.0-or-later
// The form file.
#include "guibuilder/modFormFile.h"

#include "platform/files/modFiles.h"
#include "platform/language/cLines.h"
#include "platform/language/cRuntimeError.h"
#include "platform/language/modAnsi.h"
#include "platform/language/modColorNames.h"
#include "platform/language/modRuntime.h"

#include <QHash>

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

// One line's fields, looked up from left to right; fields that are not requested are not even counted.
class Fields {
public:
    explicit Fields(QByteArrayView record) : line(record) {}

    bool Has(std::size_t number)
    {
        while (found.size() <= number && !atEnd) {
            const qsizetype bar = line.indexOf('|', next);
            atEnd = bar < 0;
            found.push_back(line.sliced(next, (atEnd ? line.size() : bar) - next));
            next = bar + 1;
        }
        return number < found.size();
    }

    QByteArrayView Bytes(std::size_t number)
    {
        if (!Has(number))
            throw RuntimeErrorOf(ErrorNumber::SubscriptOutOfRange, {}, u"field %1 is missing"_s.arg(number + 1));
        return found[number];
    }

    QString String(std::size_t number) { return TextFromAnsi(Bytes(number)); }

    double Number(std::size_t number)
    {
        const auto value = ParseNumber(String(number));
        if (!value)
            throw RuntimeErrorOf(ErrorNumber::TypeMismatch, {}, ReasonFor(number, u"is not a number"));
        return *value;
    }

    float Single(std::size_t number)
    {
        const double value = Number(number);
        if (std::abs(value) > static_cast<double>(std::numeric_limits<float>::max()))
            throw RuntimeErrorOf(ErrorNumber::Overflow, {}, ReasonFor(number, u"is too large"));
        return static_cast<float>(value);
    }

    bool Switch(std::size_t number)
    {
        const auto value = BooleanOf(String(number));
        if (!value)
            throw RuntimeErrorOf(ErrorNumber::TypeMismatch, {}, ReasonFor(number, u"is neither True nor False"));
        return *value;
    }

    ColorRef Color(std::size_t number) { return static_cast<ColorRef>(ToInt32(Val(Bytes(number)))); }

private:
    QString ReasonFor(std::size_t number, QStringView complaint)
    {
        return u"field %1, \"%2\", %3"_s.arg(number + 1).arg(String(number).left(ShownCharacters), complaint);
    }

    static constexpr qsizetype ShownCharacters = 60; // of a field, in a reason
    QByteArrayView line;
    std::vector<QByteArrayView> found;
    qsizetype next = 0;
    bool atEnd = false;
};

enum class InFile { No, Yes };
enum class NumberForm { LeadingSpace, Plain };

struct FileRow {
    ControlKind kind;
    InFile caption;
    NumberForm numbers;
};

// The kinds in the order of their lines.
constexpr std::array<FileRow, KindCount> FileTable = {{
    {ControlKind::Bmpbutton, InFile::Yes, NumberForm::LeadingSpace},
    {ControlKind::Button, InFile::Yes, NumberForm::LeadingSpace},
    {ControlKind::Statictext, InFile::Yes, NumberForm::LeadingSpace},
    {ControlKind::Groupbox, InFile::Yes, NumberForm::LeadingSpace},
    {ControlKind::Listbox, InFile::No, NumberForm::LeadingSpace},
    {ControlKind::Combobox, InFile::No, NumberForm::LeadingSpace},
    {ControlKind::Textbox, InFile::No, NumberForm::LeadingSpace},
    {ControlKind::Texteditor, InFile::No, NumberForm::Plain},
    {ControlKind::Graphicbox, InFile::No, NumberForm::LeadingSpace},
    {ControlKind::Radiobutton, InFile::Yes, NumberForm::LeadingSpace},
    {ControlKind::Checkbox, InFile::Yes, NumberForm::LeadingSpace},
}};

bool Is(QByteArrayView field, std::string_view word)
{
    return field == QByteArrayView(word.data(), static_cast<qsizetype>(word.size()));
}

QString ReasonOf(const RuntimeError& error)
{
    return error.reason.isEmpty() ? error.description : error.reason;
}

// ---- reading ----

class FormReader {
public:
    FormReader(GuiForm& target, const BitmapLoader& loader) : form(target), loadBitmap(loader) { ClearForm(form); }

    // False for a line of no known kind.
    bool Take(QByteArrayView line)
    {
        Fields fields(line);
        const QByteArrayView word = fields.Bytes(0);
        if (Is(word, "defaults"))
            TakeDefaults(fields);
        else if (std::ranges::any_of(WindowTypes, [&](std::string_view type) { return Is(word, type); }))
            TakeWindow(fields);
        else if (Is(word, "menu"))
            TakeMenu(fields);
        else if (const FileRow* row = RowOf(word))
            TakeControl(*row, fields);
        else if (Is(word, "statusbar"))
            TakePanels(fields);
        else
            return false;
        return true;
    }

private:
    static const FileRow* RowOf(QByteArrayView word)
    {
        const auto row =
            std::ranges::find_if(FileTable, [&](const FileRow& each) { return Is(word, TraitsOf(each.kind).keyword); });
        return row == FileTable.end() ? nullptr : &*row;
    }

    void TakeDefaults(Fields& fields)
    {
        std::size_t field = 0;
        for (QString* color : {&form.GuiForegroundColor, &form.GuiBackgroundColor, &form.GuiListboxColor,
                               &form.GuiComboboxColor, &form.GuiTextboxColor, &form.GuiTexteditorColor})
            *color = fields.String(++field);
        form.GuiTooltipsOn = fields.Switch(7);
        form.GuiStatusbarOn = fields.Switch(8);
        // Files of earlier versions end here, or after one of the next two.
        form.GuiTimerOn = fields.Has(9) && fields.Switch(9);
        form.GuiDefaultsState = fields.Has(10) ? ToInt16(Val(fields.Bytes(10))) : std::int16_t{1};
        menuFlag = !fields.Has(11) || fields.Switch(11);
    }

    void TakeWindow(Fields& fields)
    {
        form.GuiWindowType = form.windowTag = fields.String(0);
        form.caption = fields.String(1);
        std::size_t field = 1;
        for (float* side : {&form.left, &form.top, &form.width, &form.height})
            *side = fields.Single(++field);
        form.GuiHandleName = fields.String(6);
        if (IsGraphicsType(form.GuiWindowType))
            form.backColor = fields.Color(7);
        else
            SetColorByName(form.backColor, form.GuiBackgroundColor);
        form.GuiMenuOn = !IsDialogType(form.GuiWindowType) && menuFlag;
        TakeFont(fields.String(8));
    }

    void TakeFont(const QString& field)
    {
        form.GuiFontName = field;
        const qsizetype star = field.lastIndexOf(u'*');
        form.GuiFontSize = star < 0 ? QString() : field.mid(star + 1);
        if (form.GuiFontSize.isEmpty() || Val(form.GuiFontSize) == 0)
            form.GuiFontSize = u"10"_s;
        const qsizetype mark = field.indexOf(QLatin1String(" *"));
        if (mark >= 0)
            form.GuiFontName.truncate(mark);
    }

    void TakeMenu(Fields& fields)
    {
        const auto slot = std::ranges::find_if(form.GuiMenuNames, &QString::isEmpty);
        if (slot == form.GuiMenuNames.end())
            return;
        *slot = fields.String(1);
        auto& items = form.GuiMenuItems[static_cast<std::size_t>(slot - form.GuiMenuNames.begin())];
        QByteArrayView rest = fields.Bytes(2);
        for (std::size_t item = 0;; ++item) {
            if (item == MenuSlots)
                throw RuntimeErrorOf(ErrorNumber::SubscriptOutOfRange, {},
                                     u"the menu has more than %1 items"_s.arg(MenuSlots));
            const qsizetype star = rest.indexOf('*');
            items[item] = TextFromAnsi(TrimSpaces(star < 0 ? rest : rest.first(star)));
            if (star < 0)
                return;
            rest = rest.sliced(star + 1);
        }
    }

    void TakeControl(const FileRow& row, Fields& fields)
    {
        const ControlRef ref = AddControl(form, row.kind);
        ControlRecord& control = form.At(ref);
        if (row.caption == InFile::Yes)
            control.caption = fields.String(1);
        std::size_t field = 1;
        for (float* side : {&control.left, &control.top, &control.width, &control.height})
            *side = fields.Single(++field);
        control.tag = fields.String(6);
        if (TraitsOf(row.kind).branch != BranchUse::None)
            control.branch = fields.String(7);
        if (row.kind == ControlKind::Graphicbox)
            control.backColor = fields.Color(8);
        if (row.kind == ControlKind::Bmpbutton && !control.caption.isEmpty() && control.caption != NoBitmap)
            control.picture = Bitmap(control.caption);
        control.visible = true;
    }

    // Buttons of one look share their picture.
    cButtonPicture Bitmap(const QString& path)
    {
        cButtonPicture& bitmap = bitmaps[path];
        if (!bitmap.IsNull())
            return bitmap;
        try {
            bitmap = loadBitmap(path);
        } catch (RuntimeError& error) {
            error.reason = u"the bitmap %1 cannot be loaded: %2"_s.arg(path, ReasonOf(error));
            throw;
        }
        return bitmap;
    }

    void TakePanels(Fields& fields)
    {
        const int count = ToInt16(fields.Number(1));
        form.panels.resize(static_cast<std::size_t>(std::max(count, 1)));
        for (int panel = 0; panel < count; ++panel)
            form.panels[static_cast<std::size_t>(panel)] = fields.String(static_cast<std::size_t>(panel) + 2);
    }

    GuiForm& form;
    const BitmapLoader& loadBitmap;
    QHash<QString, cButtonPicture> bitmaps;
    bool menuFlag = true;
};

// ---- writing ----

constexpr std::size_t FieldCount = 12;
constexpr std::size_t FirstSpareField = 9;
constexpr std::size_t PanelFields = FieldCount - 2;

// Refills the array of fields for each line without clearing it: what a line does not set keeps the previous line's
// value.
class FormWriter {
public:
    explicit FormWriter(const GuiForm& source) : form(source) {}

    QString Write()
    {
        Set({u"defaults"_s, form.GuiForegroundColor, form.GuiBackgroundColor, form.GuiListboxColor,
             form.GuiComboboxColor, form.GuiTextboxColor, form.GuiTexteditorColor, BooleanText(form.GuiTooltipsOn),
             BooleanText(form.GuiStatusbarOn), BooleanText(form.GuiTimerOn), NumberText(form.GuiDefaultsState),
             BooleanText(form.GuiMenuOn)});
        Set({form.windowTag.isEmpty() ? u"Window"_s : form.windowTag, form.caption, Str(form.left), Str(form.top),
             Str(form.width), Str(form.height), form.GuiHandleName,
             NumberText(static_cast<std::int32_t>(form.backColor)), form.GuiFontName + u" *"_s + form.GuiFontSize});
        WriteMenus();
        for (const FileRow& row : FileTable)
            WriteKind(row);
        if (form.GuiStatusbarOn)
            WritePanels();
        // The text is written by one print, which adds another line end.
        text += u"\r\n"_s;
        return std::move(text);
    }

private:
    void Set(std::initializer_list<QString> values)
    {
        std::ranges::copy(values, fields.begin());
        for (std::size_t field = 0; field < FieldCount; ++field) {
            text += fields[field];
            text += field + 1 < FieldCount ? u"|"_s : u"\r\n"_s;
        }
    }

    void WriteMenus()
    {
        for (std::size_t menu = 0; menu < MenuSlots && !form.GuiMenuNames[menu].isEmpty(); ++menu) {
            QString items;
            for (const QString& item : form.GuiMenuItems[menu]) {
                if (item.isEmpty())
                    break;
                items += item + u" * "_s;
            }
            Set({u"menu"_s, form.GuiMenuNames[menu], items, none, none, none, none, none, none});
        }
    }

    void WriteKind(const FileRow& row)
    {
        const KindTraits& traits = TraitsOf(row.kind);
        const QString keyword = LatinText(traits.keyword);
        const auto number = row.numbers == NumberForm::Plain ? [](float side) { return NumberText(side); }
                                                             : [](float side) { return Str(side); };
        const std::vector<ControlRecord>& list = form.List(row.kind);
        for (std::size_t index = 1; index < list.size(); ++index) {
            const ControlRecord& control = list[index];
            if (!control.visible)
                continue;
            Set({keyword, row.caption == InFile::Yes ? control.caption : none, number(control.left),
                 number(control.top), number(control.width), number(control.height), control.tag,
                 traits.branch == BranchUse::None ? none : control.branch,
                 row.kind == ControlKind::Graphicbox ? NumberText(static_cast<std::int32_t>(control.backColor))
                                                     : none});
        }
    }

    void WritePanels()
    {
        if (form.panels.size() > PanelFields)
            throw RuntimeErrorOf(ErrorNumber::SubscriptOutOfRange);
        for (std::size_t panel = form.panels.size() + 2; panel < FirstSpareField; ++panel)
            fields[panel].clear();
        std::ranges::copy(form.panels, fields.begin() + 2);
        Set({u"statusbar"_s, QString::number(form.panels.size())});
    }

    const GuiForm& form;
    std::array<QString, FieldCount> fields;
    QString text;
    const QString none = u"none"_s;
};

// Why a line with that first field is none of a form.
QString UnknownLine(QByteArrayView line)
{
    constexpr qsizetype shown = 40;
    const QByteArrayView word = Fields(line).Bytes(0);
    if (Is(word, "open") || Is(word, "closed"))
        return u"the form was saved before its window properties were confirmed with OK"_s;
    return u"no line of a form begins with \"%1\""_s.arg(TextFromAnsi(word.first(std::min(shown, word.size()))));
}

} // namespace

QString TroubleText(const QString& path, const FormTrouble& trouble)
{
    const QString line = trouble.line == 0 ? QString() : u", line %1"_s.arg(trouble.line);
    return NameOf(path) + line + u": "_s + trouble.reason;
}

FormLoad ReadForm(QByteArrayView bytes, GuiForm& form, const BitmapLoader& loadBitmap, FormTrouble* trouble)
{
    int number = 0;
    const auto report = [&](const QString& reason) {
        if (trouble != nullptr)
            *trouble = {number, reason};
    };
    try {
        FormReader reader(form, loadBitmap);
        cLines lines(bytes);
        while (lines.Next()) {
            ++number;
            if (lines.Line().isEmpty() || reader.Take(lines.Line()))
                continue;
            report(UnknownLine(lines.Line()));
            return FormLoad::Corrupt;
        }
        form.menuLabel = MenuLabel(form, NoMenusLabel);
        return FormLoad::Loaded;
    } catch (const RuntimeError& error) {
        report(ReasonOf(error));
        return FormLoad::Failed;
    }
}

QString WriteForm(const GuiForm& completed)
{
    return FormWriter(completed).Write();
}

std::optional<FormTrouble> TroubleIn(QByteArrayView written, const BitmapLoader& loadBitmap)
{
    FormTrouble trouble;
    cLines lines(written);
    while (lines.Next()) {
        ++trouble.line;
        if (lines.Line().isEmpty() || lines.Line().count('|') == FieldCount - 1)
            continue;
        trouble.reason = u"a text in it has a | or a line break, which ends a field of the file"_s;
        return trouble;
    }
    GuiForm again;
    if (ReadForm(written, again, loadBitmap, &trouble) == FormLoad::Loaded)
        return std::nullopt;
    return trouble;
}

} // namespace ob
