// SPDX-License-Identifier: GPL-3.0-or-later
// The form under design as a value: the table of kinds, fresh and cleared forms, lists of controls, texts in two parts.
#include "guibuilder/modGui.h"

#include <QTest>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

// One kind's row with "," between its parts.
QByteArray RowOf(const KindTraits& kind)
{
    const auto bytes = [](std::string_view text) {
        return QByteArray(text.data(), static_cast<qsizetype>(text.size()));
    };
    return QByteArrayList{bytes(kind.toolName),
                          bytes(kind.listName),
                          bytes(kind.propWord),
                          bytes(kind.keyword),
                          QByteArray::number(kind.width) + " x " + QByteArray::number(kind.height),
                          "'" + bytes(kind.newCaption) + "'",
                          bytes(kind.nameStem),
                          bytes(kind.branchStem),
                          bytes(kind.tooltip)}
        .join(", ");
}

QList<ControlKind> KindsIn(const std::vector<ControlRef>& order)
{
    QList<ControlKind> kinds;
    for (const ControlRef& ref : order)
        kinds.append(ref.kind);
    return kinds;
}

} // namespace

class tst_modGui : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { ResetGui(); }
    void cleanup() { ResetGui(); }

    // --- Kinds. ---

    void theKindsAreInTheOrderOfThePalette_data()
    {
        QTest::addColumn<int>("place");
        QTest::addColumn<QByteArray>("row");
        int place = 0;
        const auto row = [&](const char* text) {
            QTest::addRow("%d", place) << place << QByteArray(text);
            ++place;
        };
        row("Button, btnButton, Button, button, 80 x 30, 'Button ', button, button, Button Tooltip");
        row("Bmpbutton, bmpButton, BmpButton, bmpbutton, 30 x 30, '', bmpbutton, bmpbutton, BmpButton Tooltip");
        row("Statictext, StaticText, StaticText, statictext, 80 x 30, 'StaticText', static, , ");
        row("Groupbox, GroupBox, GroupBox, groupbox, 80 x 80, 'GroupBox', group, , ");
        row("Textbox, TextBox, TextBox, textbox, 80 x 30, 'TextBox', textbox, , Enter text here.");
        row("Texteditor, TextEditor, TextEditor, texteditor, 80 x 80, 'TextEditor', texteditor, , "
            "Right-click for an edit menu.");
        row("Checkbox, CheckBox, CheckBox, checkbox, 80 x 30, 'CheckBox ', check, checkbox, Select desired options.");
        row("Radiobutton, RadioButton, RadioButton, radiobutton, 80 x 30, 'RadioButton ', radio, radio, "
            "Choose one option.");
        row("Listbox, ListBox, ListBox, listbox, 80 x 80, 'ListBox', list, list, "
            "Click here to make a choice from the list.");
        row("Combobox, ComboBox, ComboBox, combobox, 80 x 30, 'Combobox ', combo, combo, "
            "Click arrow button to see a list of choices.");
        row("Graphicbox, GraphicBox, GraphicBox, graphicbox, 50 x 50, '', graphicbox, , GraphicBox Tooltip");
    }

    void theKindsAreInTheOrderOfThePalette()
    {
        QFETCH(int, place);
        QFETCH(QByteArray, row);
        const KindTraits& traits = KindTable[static_cast<std::size_t>(place)];
        QCOMPARE(RowOf(traits), row);
        QCOMPARE(static_cast<int>(traits.kind), place);
        QCOMPARE(&TraitsOf(traits.kind), &traits);
    }

    void kindsWithEventsHaveABranch()
    {
        QByteArray uses;
        for (const KindTraits& traits : KindTable)
            uses += traits.branch == BranchUse::Label ? 'L' : traits.branch == BranchUse::NotApplicable ? 'N' : '-';
        QCOMPARE(uses, QByteArray("LL----LLLLN"));
    }

    void aTemplateHasItsKindsSizeInTwips()
    {
        const GuiForm form;
        for (const KindTraits& traits : KindTable) {
            QCOMPARE(form.List(traits.kind).size(), std::size_t{1});
            const ControlRecord& record = form.List(traits.kind).front();
            QVERIFY(!record.visible);
            QCOMPARE(record.width, static_cast<float>(traits.width * 15));
            QCOMPARE(record.height, static_cast<float>(traits.height * 15));
            QCOMPARE(record.tag + record.branch, QString());
        }
    }

    void aTemplateShowsItsKindsWordWhereTheFileKeepsNoCaption()
    {
        const GuiForm form;
        QStringList captions;
        for (const KindTraits& traits : KindTable)
            captions.append(form.List(traits.kind).front().caption);
        QCOMPARE(captions.join(u','), u",bmpbttn,,,TextBox,TextEditor,,,ListBox,,"_s);
    }

    // --- Forms. ---

    void aFreshFormHasTheWindowsDefaults()
    {
        const GuiForm form;
        QCOMPARE(form.GuiWindowType, u"Window"_s);
        QCOMPARE(form.caption, u"Window Title"_s);
        QCOMPARE(form.GuiHandleName, u"main"_s);
        QCOMPARE(form.GuiFontName, u"ms sans serif"_s);
        QCOMPARE(form.GuiFontSize, u"10"_s);
        QCOMPARE(form.GuiForegroundColor, u"Black"_s);
        QCOMPARE(form.GuiBackgroundColor, u"Buttonface"_s);
        for (const QString& color :
             {form.GuiComboboxColor, form.GuiListboxColor, form.GuiTextboxColor, form.GuiTexteditorColor})
            QCOMPARE(color, u"White"_s);
        QCOMPARE(form.backColor, ColorRef{0x8000000F});
        QVERIFY(!form.GuiTooltipsOn && !form.GuiStatusbarOn && !form.GuiTimerOn);
        QVERIFY(form.GuiMenuOn);
        QCOMPARE(form.GuiDefaultsState, std::int16_t{-1});
        QCOMPARE(form.windowTag, QString());
        QCOMPARE(form.panels, std::vector<QString>{u"Click here to modify Statusbar!"_s});
        QVERIFY(form.width > 0 && form.height > 0);
    }

    void aClearedFormKeepsItsWindowRecord()
    {
        GuiForm form;
        const auto setRecord = [](GuiForm& target) {
            target.GuiWindowType = u"Graphics_nsb"_s;
            target.caption = u"Mine"_s;
            target.left = target.top = target.width = target.height = 15;
            target.GuiHandleName = u"h"_s;
            target.GuiFontName = u"arial"_s;
            target.GuiFontSize = u"8"_s;
            target.GuiForegroundColor = u"Red"_s;
            target.GuiBackgroundColor = u"Cyan"_s;
            target.GuiComboboxColor = target.GuiListboxColor = u"Pink"_s;
            target.GuiTextboxColor = target.GuiTexteditorColor = u"Blue"_s;
            target.GuiTooltipsOn = target.GuiStatusbarOn = target.GuiTimerOn = true;
            target.GuiDefaultsState = 1;
        };
        setRecord(form);
        for (const KindTraits& traits : KindTable)
            form.At(AddControl(form, traits.kind)).visible = true;
        form.GuiMenuNames[0] = form.GuiMenuItems[20][20] = u"x"_s;
        form.GuiMenuOn = false;
        form.panels.resize(3);
        form.menuLabel = form.windowTag = u"y"_s;
        ClearForm(form);

        GuiForm expected;
        setRecord(expected);
        expected.backColor = Rgb(0, 255, 255);
        QVERIFY(form == expected);
    }

    void aCopyIsASnapshot()
    {
        GuiForm form;
        form.At(AddControl(form, ControlKind::Button)).caption = u"before"_s;
        const GuiForm copy = form;
        QVERIFY(copy == form);
        form.At({ControlKind::Button, 1}).caption = u"after"_s;
        QVERIFY(!(copy == form));
        QCOMPARE(copy.At({ControlKind::Button, 1}).caption, u"before"_s);
    }

    void theProgramsStartResetsEverything()
    {
        FormDesign& design = GuiDesign();
        design.form.caption = u"x"_s;
        design.GuiFormOpen = design.GuiFormModified = design.GuiFormLoading = true;
        design.GuiGridOn = design.GuiStatusNoteOn = false;
        ResetGui();
        QVERIFY(design.form == GuiForm());
        QVERIFY(!(design.GuiFormOpen || design.GuiFormModified || design.GuiFormLoading));
        QVERIFY(design.GuiGridOn && design.GuiStatusNoteOn);
    }

    // --- Window types. ---

    void windowTypesAreGraphicsWindowsOrDialogs_data()
    {
        QTest::addColumn<int>("place");
        QTest::addColumn<QString>("type");
        QTest::addColumn<bool>("isGraphics");
        QTest::addColumn<bool>("isDialog");
        int place = 0;
        const auto row = [&](const char* type, bool isGraphics, bool isDialog) {
            QTest::newRow(type) << place++ << QString::fromLatin1(type) << isGraphics << isDialog;
        };
        row("Window", false, false);
        row("Window_nf", false, false);
        row("Graphics_nsb", true, false);
        row("Graphics_nf_nsb", true, false);
        row("Dialog", false, true);
        row("Dialog_modal", false, true);
    }

    void windowTypesAreGraphicsWindowsOrDialogs()
    {
        QFETCH(int, place);
        QFETCH(QString, type);
        QCOMPARE(LatinText(WindowTypes[static_cast<std::size_t>(place)]), type);
        QTEST(IsGraphicsType(type), "isGraphics");
        QTEST(IsDialogType(type), "isDialog");
    }

    // --- Lists of controls. ---

    void aNewControlTakesTheListsCountAsItsIndex()
    {
        GuiForm form;
        form.List(ControlKind::Textbox).front().caption = u"template"_s;
        QCOMPARE(AddControl(form, ControlKind::Textbox), (ControlRef{ControlKind::Textbox, 1}));
        QCOMPARE(AddControl(form, ControlKind::Button), (ControlRef{ControlKind::Button, 1}));
        // A deleted one keeps its index.
        form.At({ControlKind::Textbox, 1}).visible = false;
        QCOMPARE(AddControl(form, ControlKind::Textbox), (ControlRef{ControlKind::Textbox, 2}));
        const ControlRecord& added = form.At({ControlKind::Textbox, 2});
        QVERIFY(!added.visible);
        QCOMPARE(added.caption, u"template"_s);
        QCOMPARE(KindsIn(form.order), (QList{ControlKind::Textbox, ControlKind::Button, ControlKind::Textbox}));
    }

    void thereIsNoLimitOnTheNumberOfControls()
    {
        GuiForm form;
        for (int count = 0; count < 40'000; ++count)
            AddControl(form, ControlKind::Checkbox);
        QCOMPARE(AddControl(form, ControlKind::Checkbox).index, 40'001);
        QCOMPARE(form.order.back().index, 40'001);
    }

    void aControlComesToTheFront()
    {
        GuiForm form;
        const ControlRef button = AddControl(form, ControlKind::Button);
        const ControlRef listbox = AddControl(form, ControlKind::Listbox);
        const ControlRef checkbox = AddControl(form, ControlKind::Checkbox);
        BringToFront(form, button);
        QCOMPARE(form.order, (std::vector{listbox, checkbox, button}));
        BringToFront(form, button);
        BringToFront(form, {ControlKind::Graphicbox, 1});
        QCOMPARE(form.order, (std::vector{listbox, checkbox, button}));
        BringToFront(form, checkbox);
        QCOMPARE(form.order, (std::vector{listbox, button, checkbox}));
    }

    // --- Texts in two parts. ---

    void aTagIsSplitAtItsFirstSpaceAndStar_data()
    {
        QTest::addColumn<QString>("tag");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("tooltip");
        const auto row = [](const char* what, const char* tag, const char* name, const char* tooltip) {
            QTest::newRow(what) << QString::fromLatin1(tag) << QString::fromLatin1(name)
                                << QString::fromLatin1(tooltip);
        };
        row("empty", "", "", "");
        row("name", "ok", "ok", "");
        row("name with spaces around", "  ok ", "ok", "");
        row("name with a tab around", "\tok ", "\tok", "");
        row("name and tool tip", "ok *Takes it", "ok", "Takes it");
        row("tool tip unchanged", "  ok  * Takes it ", "ok", " Takes it ");
        row("no name", " *Takes it", "", "Takes it");
        row("no tool tip", "ok *", "ok", "");
        row("two marks", "ok *a *b", "ok", "a *b");
        row("no space before", "ok*a", "ok*a", "");
        row("star first", "*a *b", "*a", "b");
        row("spaces", "   ", "", "");
    }

    void aTagIsSplitAtItsFirstSpaceAndStar()
    {
        QFETCH(QString, tag);
        const TagParts parts = SplitTag(tag);
        QTEST(parts.name, "name");
        QTEST(parts.tooltip, "tooltip");
    }

    void aMenuItemIsSplitAtItsFirstBracket_data()
    {
        QTest::addColumn<QString>("item");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QString>("branch");
        const auto row = [](const char* what, const char* item, const char* caption, const char* branch) {
            QTest::newRow(what) << QString::fromLatin1(item) << QString::fromLatin1(caption)
                                << QString::fromLatin1(branch);
        };
        row("both", "&Open  [open]", "&Open", "[open]");
        row("separator", "--bar--  [none]", "--bar--", "[none]");
        row("spaces around", "  &Open   [open]  ", "&Open", "[open]");
        row("no branch", " &Open ", "&Open", "");
        row("no caption", "[open]", "", "[open]");
        row("two brackets", "A [b] [c]", "A", "[b] [c]");
        row("empty", "", "", "");
    }

    void aMenuItemIsSplitAtItsFirstBracket()
    {
        QFETCH(QString, item);
        const MenuItemParts parts = SplitMenuItem(item);
        QTEST(parts.caption, "caption");
        QTEST(parts.branch, "branch");
    }

    void aMenuItemIsJoinedWithTwoSpaces() { QCOMPARE(JoinMenuItem(u"&Open"_s, u"[open]"_s), u"&Open  [open]"_s); }

    void aBranchGetsItsMissingBrackets_data()
    {
        QTest::addColumn<QString>("branch");
        QTest::addColumn<QString>("bracketed");
        const auto row = [](const char* branch, const char* bracketed) {
            QTest::newRow(*branch == '\0' ? "empty" : branch)
                << QString::fromLatin1(branch) << QString::fromLatin1(bracketed);
        };
        row("a.click", "[a.click]");
        row("[a", "[a]");
        row("a]", "[a]");
        row("[a]", "[a]");
        row("[[a]]", "[[a]]");
        row(" [a] ", "[ [a] ]");
        row("", "[]");
        row("[", "[]");
        row("]", "[]");
    }

    void aBranchGetsItsMissingBrackets()
    {
        QFETCH(QString, branch);
        QTEST(BracketedBranch(branch), "bracketed");
    }

    void theMenuLabelShowsTheMenusUpToTheFirstEmptyOne()
    {
        GuiForm form;
        const QString none = u"none"_s;
        QCOMPARE(MenuLabel(form, none), none);
        form.GuiMenuNames[1] = u"&Edit"_s;
        QCOMPARE(MenuLabel(form, none), none);
        form.GuiMenuNames[0] = u"&File"_s;
        form.GuiMenuNames[3] = u"&Help"_s;
        QCOMPARE(MenuLabel(form, none), u"&File    &Edit    "_s);
        form.GuiMenuNames.fill(u"x"_s);
        QCOMPARE(MenuLabel(form, none), u"x    "_s.repeated(21));
    }

    void anUnknownColorNameLeavesTheColor()
    {
        ColorRef color = 7;
        SetColorByName(color, u"Pink"_s);
        QCOMPARE(color, Rgb(255, 0, 255));
        for (const QString& name : {u"pink"_s, u"Purple"_s, QString()}) {
            SetColorByName(color, name);
            QCOMPARE(color, Rgb(255, 0, 255));
        }
        SetColorByName(color, u"Buttonface"_s);
        QCOMPARE(color, ColorRef{0x8000000F});
    }
};

QTEST_APPLESS_MAIN(tst_modGui)
#include "tst_modGui.moc"
