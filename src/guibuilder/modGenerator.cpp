// SPDX-License-Identifier: GPL-3.0-or-later
// From a form to a BASIC program.
#include "guibuilder/modGenerator.h"

#include "guibuilder/modSupport.h"
#include "platform/files/modFiles.h"
#include "platform/language/modColorNames.h"
#include "platform/language/modRuntime.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

// Statements are patterns with placeholders of "%" and a character: H the window's handle, N the control's name, i its
// index,
// x y w h its rectangle in pixels (each number with its leading space or sign), B its branch, C its caption, K its
// fill's colour name, F the font.
struct KindStatements {
    ControlKind kind;
    QStringView create;
    QStringView createSimple; // empty: same as create
    QStringView listStem;     // of the array of its items; empty for a kind without a list
    QStringView fontFirst;    // after the open statement, in a graphics window only, before afterOpen
    QStringView afterOpen;    // after the open statement
    QStringView fontLast;     // like fontFirst, after afterOpen
    QStringView stub;         // of its branch; none when the branch is the closing one
    QStringView stubOfItsOwn; // whatever the branch is
};

constexpr QStringView PlainStub = u"%B\r\n    'place code here\r\n    wait\r\n\r\n";
constexpr QStringView ValueStub = u"%B\r\n    #%H.%N \"value? result$\"\r\n    wait\r\n\r\n";
constexpr QStringView SelectionStub = u"%B\r\n    #%H.%N \"selection? selected$\"\r\n    wait\r\n\r\n";
constexpr QStringView ResetStub = u"[checkbox%i.reset]\r\n    'place code here\r\n    wait\r\n\r\n";
constexpr QStringView MouseStub = u"[MouseChange%i]\r\n    'MouseX and MouseY contain mouse coordinates\r\n"
                                  u"    wait\r\n\r\n";
constexpr QStringView Font = u"    #%H.%N \"font %F\"\r\n";
constexpr QStringView TextFont = u"    #%H.%N \"!font %F\"\r\n";
constexpr QStringView SelectFirst = u"    #%H.%N \"selectindex 1\"\r\n";
constexpr QStringView FillBox = u"    #%H.%N \"down; fill %K; flush\"\r\n"
                                u"    #%H.%N \"setfocus; when mouseMove [MouseChange%i]\"\r\n";

// The kinds in the order of their statements.
constexpr std::array<KindStatements, KindCount> StatementTable = {{
    {ControlKind::Graphicbox, u"graphicbox  #%H.%N,%x,%y,%w,%h\r\n", {}, {}, Font, FillBox, {}, {}, MouseStub},
    {ControlKind::Groupbox, u"groupbox    #%H.%N, \"%C\",%x,%y,%w,%h\r\n", {}, {}, {}, {}, {}, {}, {}},
    {ControlKind::Statictext, u"statictext  #%H.%N, \"%C\",%x,%y,%w,%h\r\n", {}, {}, TextFont, {}, {}, {}, {}},
    {ControlKind::Button,
     u"button      #%H.%N, \"%C\", %B, UL,%x,%y,%w,%h\r\n",
     u"button      #%H.%N, \"%C\",%B,UL,%x,%y,%w,%h\r\n",
     {},
     TextFont,
     {},
     {},
     PlainStub,
     {}},
    {ControlKind::Bmpbutton, u"bmpbutton   #%H.%N, \"%C\",%B,UL,%x,%y\r\n", {}, {}, {}, {}, {}, PlainStub, {}},
    {ControlKind::Textbox, u"textbox     #%H.%N,%x,%y,%w,%h\r\n", {}, {}, TextFont, {}, {}, {}, {}},
    {ControlKind::Texteditor, u"texteditor  #%H.%N,%x,%y,%w,%h\r\n", {}, {}, TextFont, {}, {}, {}, {}},
    {ControlKind::Radiobutton,
     u"radiobutton #%H.%N, \"%C\",%B,[loop],%x,%y,%w,%h\r\n",
     {},
     {},
     Font,
     {},
     {},
     ValueStub,
     {}},
    {ControlKind::Checkbox,
     u"checkbox    #%H.%N, \"%C\",%B,[checkbox%i.reset],%x,%y,%w,%h\r\n",
     {},
     {},
     Font,
     {},
     {},
     ValueStub,
     ResetStub},
    {ControlKind::Listbox,
     u"listbox     #%H.%N, List%i$(),%B,%x,%y,%w,%h\r\n",
     {},
     u"List",
     {},
     SelectFirst,
     Font,
     SelectionStub,
     {}},
    {ControlKind::Combobox,
     u"combobox    #%H.%N,Combo%i$(),%B,%x,%y,%w, 300\r\n",
     {},
     u"Combo",
     {},
     SelectFirst,
     Font,
     SelectionStub,
     {}},
}};

constexpr QStringView GroupboxInGraphics = u"'***You have attempted to add a groupbox to a graphics window.\r\n"
                                           u"'***Graphics windows may not contain groupboxes.\r\n";
const QString QuitBranch = u"[quit]"_s;
constexpr QStringView TimerStub = u"[activateTimer]\r\n    'place code here\r\n    wait\r\n\r\n";

// Int of the twips' pixels; a single, as all coordinates are, so seven digits at most.
double ProgramPixels(float twips)
{
    return std::floor(static_cast<double>(twips) / ProgramTwipsPerPixel);
}

QString ProgramNumber(float twips)
{
    constexpr double sevenDigits = 9'999'999;
    const double pixels = ProgramPixels(twips);
    return std::abs(pixels) <= sevenDigits ? Str(static_cast<int>(pixels)) : Str(static_cast<float>(pixels));
}

QString FontSpec(const GuiForm& form)
{
    QString name = form.GuiFontName.toLower();
    name.replace(u' ', u'_');
    return TrimSpaces(name) + u' ' + NumberText(Val(form.GuiFontSize));
}

class Generator {
public:
    Generator(const GuiForm& source, ProgramKind programKind)
        : form(source), kind(programKind), inGraphics(IsGraphicsType(source.GuiWindowType)), font(FontSpec(source))
    {
        ClearValues();
    }

    GeneratedProgram Run(const ProgramHeader& header)
    {
        AddHeader(header);
        AddColors();
        if (form.GuiTooltipsOn)
            tooltipBlock = QString::fromUtf16(TooltipStart);
        AddWindowSetup();
        if (form.GuiMenuOn)
            AddMenus();
        for (const KindStatements& statements : StatementTable)
            AddKind(statements);
        AddOpen();
        AddCalls();
        return {Join(), bitmapMissing};
    }

private:
    void AddHeader(const ProgramHeader& header)
    {
        if (header.comments)
            headerBlock += *header.comments + u"\r\n\r\n\r\n"_s;
        headerBlock +=
            u"'** Created by Orchard Bench - "_s + header.date + u"\r\n'** "_s + form.caption + u"\r\n\r\n"_s;
        if (kind == ProgramKind::Outline)
            headerBlock += u"    True = 1 : False = 0\r\n"_s;
    }

    void AddColors()
    {
        bodyBlock += u"\r\n"
                     "[InitColors]\r\n"
                     "    'Please use default colors when possible.\r\n"
                     "    'Use the following color statements only if necessary in the program.\r\n"_s;
        const auto add = [this](QStringView statement, const QString& color) {
            AppendAll(bodyBlock, {u"    '", statement, u" = \"", color, u"\"\r\n"});
        };
        add(u"ForegroundColor$", form.GuiForegroundColor);
        add(u"BackgroundColor$", form.GuiBackgroundColor);
        add(u"TexteditorColor$", form.GuiTexteditorColor);
        add(u"TextboxColor$   ", form.GuiTextboxColor);
        add(u"ComboboxColor$  ", form.GuiComboboxColor);
        add(u"ListboxColor$   ", form.GuiListboxColor);
        bodyBlock += u"\r\n"_s;
    }

    void AddWindowSetup()
    {
        bodyBlock += u"[WindowSetup]\r\n"
                     "    NOMAINWIN\r\n"
                     "    WindowWidth = "_s +
                     LTrimSpaces(ProgramNumber(form.width)) + u" : WindowHeight = "_s +
                     LTrimSpaces(ProgramNumber(form.height)) +
                     u"\r\n"
                     "    UpperLeftX = INT((DisplayWidth-WindowWidth)/2)\r\n"
                     "    UpperLeftY = INT((DisplayHeight-WindowHeight)/2)\r\n"
                     "\r\n"
                     "[ControlSetup]\r\n"_s;
    }

    void AddMenus()
    {
        const QString start = u"Menu        #"_s + form.GuiHandleName + u", \""_s;
        if (form.GuiMenuNames[0].isEmpty()) {
            bodyBlock += start + u"&File\" , \"E&xit\", [quit]\r\n"_s;
            // Only the default menu includes one for the editor.
            if (std::ranges::any_of(form.List(ControlKind::Texteditor), &ControlRecord::visible))
                bodyBlock += start + u"Edit\"\r\n"_s;
            return;
        }
        for (std::size_t menu = 0; menu < MenuSlots && !form.GuiMenuNames[menu].isEmpty(); ++menu) {
            bodyBlock += start + form.GuiMenuNames[menu] + u'"';
            for (const QString& item : form.GuiMenuItems[menu]) {
                if (item.isEmpty())
                    break;
                AddMenuItem(SplitMenuItem(item));
            }
            bodyBlock += u"\r\n"_s;
        }
    }

    void AddMenuItem(const MenuItemParts& item)
    {
        if (item.caption == SeparatorCaption) {
            bodyBlock += u", | "_s;
            return;
        }
        bodyBlock += u", \""_s + item.caption + u"\", "_s + item.branch;
        if (kind == ProgramKind::Outline && item.branch != QuitBranch)
            stubBlock += item.branch + u"\r\n    'place code here\r\n    Wait\r\n\r\n"_s;
    }

    void AddKind(const KindStatements& statements)
    {
        const std::vector<ControlRecord>& list = form.List(statements.kind);
        for (std::size_t i = 1; i < list.size(); ++i)
            if (list[i].visible)
                AddControl(statements, {statements.kind, static_cast<int>(i)});
    }

    void AddControl(const KindStatements& statements, ControlRef ref)
    {
        const KindTraits& traits = TraitsOf(ref.kind);
        const ControlRecord& control = form.At(ref);
        index = QString::number(ref.index);
        name = NameInProgram(form, ref);
        current = &control;

        AddStatements(statements);
        if (form.GuiTooltipsOn && !traits.tooltip.empty()) {
            const QString tooltip = SplitTag(control.tag).tooltip;
            AppendTooltip(tooltipBlock, statements.kind, form.GuiHandleName, name,
                          tooltip.isEmpty() ? LatinText(traits.tooltip) : tooltip);
        }
        if (statements.kind == ControlKind::Bmpbutton && !bitmapMissing && control.caption != bitmapFound) {
            bitmapMissing = !FileExists(control.caption);
            bitmapFound = control.caption;
        }
    }

    void AddStatements(const KindStatements& statements)
    {
        const bool isSimple = kind == ProgramKind::Simple;
        if (statements.kind == ControlKind::Groupbox && inGraphics)
            bodyBlock += GroupboxInGraphics;
        else
            Expand(bodyBlock,
                   isSimple && !statements.createSimple.isEmpty() ? statements.createSimple : statements.create);
        if (!statements.listStem.isEmpty())
            AddList(statements.listStem);
        if (isSimple)
            return;
        if (inGraphics)
            Expand(postOpenBlock, statements.fontFirst);
        Expand(postOpenBlock, statements.afterOpen);
        if (inGraphics)
            Expand(postOpenBlock, statements.fontLast);
        if (current->branch != QuitBranch)
            Expand(stubBlock, statements.stub);
        Expand(stubBlock, statements.stubOfItsOwn);
    }

    void AddList(QStringView stem)
    {
        AppendAll(dimBlock, {u"    DIM ", stem, index, u"$(10)\r\n    ", stem, index, u"$(1) = \"First Item\"\r\n    ",
                             stem, index, u"$(2) = \"Second Item\"\r\n"});
    }

    void AddOpen()
    {
        ClearValues();
        const QString handle = u"    #"_s + form.GuiHandleName + u" \""_s;
        bodyBlock += u"\r\nOpen \""_s + form.caption + u"\" for "_s + form.GuiWindowType + u" as #"_s +
                     form.GuiHandleName + u"\r\n"_s + handle + u"trapclose [quit]\"\r\n"_s;
        if (kind == ProgramKind::Outline && inGraphics) {
            bodyBlock += handle + u"down; fill "_s + SurfaceColorName() + u"; flush\"\r\n"_s + handle + u"font "_s +
                         font + u"\"\r\n"_s + handle + u"setfocus; when mouseMove [MouseChange]\"\r\n"_s;
            Expand(stubBlock, MouseStub);
        } else {
            postOpenBlock += handle + u"font "_s + font + u"\"\r\n\r\n"_s;
        }
    }

    // The calls of the routines included in the program.
    void AddCalls()
    {
        const QString& handle = form.GuiHandleName;
        if (form.GuiTooltipsOn)
            postOpenBlock += u"    Call MakeTooltips HWND(#"_s + handle + u")\r\n\r\n"_s;
        if (!form.GuiStatusbarOn)
            return;
        postOpenBlock += u"    '** Change statusbar message at any time with sub ChangeStatusText\r\n"
                         "    '** Call ChangeStatusText hStatus, ID_of_Panel, NewText$\r\n"
                         "    '** The handle of the statusbar is hStatus\r\n"
                         "    hStatus = MakeStatusBar(HWND(#"_s +
                         handle + u"), \"StatusBar\")\r\n"_s;
        if (!form.GuiWindowType.contains(QLatin1String("Window")))
            postOpenBlock += u"'    statusbar will not work properly in this window type\r\n"
                             "'    because resizehandler is not available:\r\n"
                             "'"_s;
        postOpenBlock += u"    #"_s + handle + u" \"resizehandler [ResizeStatus]\"\r\n\r\n"_s;
    }

    QString Join()
    {
        QString text = headerBlock;
        text.reserve(headerBlock.size() + dimBlock.size() + bodyBlock.size() + postOpenBlock.size() + stubBlock.size() +
                     tooltipBlock.size() + 4096);
        text += dimBlock;
        text += bodyBlock;
        text += postOpenBlock;
        if (form.GuiTimerOn)
            text += u"    TIMER 500, [activateTimer]    'initialize the timer\r\n\r\n"_s;
        text += u"[loop]\r\n    Wait\r\n\r\n"_s;
        if (form.GuiTimerOn)
            (kind == ProgramKind::Outline ? stubBlock : text) += TimerStub;
        text += u"[quit]\r\n    close #"_s + form.GuiHandleName + u" : END\r\n\r\n"_s;
        if (form.GuiTooltipsOn)
            tooltipBlock += QStringView(TooltipEnd);
        text += stubBlock;
        text += tooltipBlock;
        if (form.GuiStatusbarOn)
            text += StatusRoutines(form.panels);
        return text;
    }

    // The surface takes its colour only by name, so an unknown name leaves it without one.
    QString SurfaceColorName() const
    {
        const bool known = std::ranges::any_of(
            ColorName, [this](std::string_view each) { return form.GuiBackgroundColor == LatinText(each); });
        return known ? form.GuiBackgroundColor : QString();
    }

    void ClearValues()
    {
        static const ControlRecord nothing;
        current = &nothing;
        index.clear();
        name.clear();
    }

    // Appends the pattern to the block, with the values of the current control.
    void Expand(QString& block, QStringView pattern) const
    {
        for (;;) {
            const qsizetype mark = pattern.indexOf(u'%');
            if (mark < 0)
                break;
            block += pattern.first(mark);
            AppendValue(block, pattern[mark + 1]);
            pattern = pattern.sliced(mark + 2);
        }
        block += pattern;
    }

    void AppendValue(QString& block, QChar placeholder) const
    {
        switch (placeholder.unicode()) {
        case u'H':
            block += form.GuiHandleName;
            break;
        case u'N':
            block += name;
            break;
        case u'i':
            block += index;
            break;
        case u'B':
            block += current->branch;
            break;
        case u'C':
            block += current->caption;
            break;
        case u'F':
            block += font;
            break;
        case u'K':
            block += NameFromColor(QString::number(current->backColor));
            break;
        case u'x':
            block += ProgramNumber(current->left);
            break;
        case u'y':
            block += ProgramNumber(current->top);
            break;
        case u'w':
            block += ProgramNumber(current->width);
            break;
        case u'h':
            block += ProgramNumber(current->height);
            break;
        default:
            Q_UNREACHABLE();
        }
    }

    const GuiForm& form;
    ProgramKind kind;
    bool inGraphics;
    QString font;

    // The current control.
    const ControlRecord* current = nullptr;
    QString index;
    QString name;

    QString headerBlock;
    QString dimBlock;
    QString bodyBlock;
    QString postOpenBlock;
    QString stubBlock;
    QString tooltipBlock;
    bool bitmapMissing = false;
    std::optional<QString> bitmapFound; // the last path that was looked up
};

} // namespace

QString NameInProgram(const GuiForm& form, ControlRef ref)
{
    const QString name = SplitTag(form.At(ref).tag).name;
    if (!name.isEmpty())
        return name;
    // A groupbox that has a tool tip but no name is named like a statictext; existing programs rely on it.
    const ControlKind kind = ref.kind == ControlKind::Groupbox ? ControlKind::Statictext : ref.kind;
    return LatinText(TraitsOf(kind).nameStem) + QString::number(ref.index);
}

GeneratedProgram GenerateProgram(const GuiForm& completed, ProgramKind kind, const ProgramHeader& header)
{
    return Generator(completed, kind).Run(header);
}

} // namespace ob
