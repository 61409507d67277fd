// SPDX-License-Identifier: GPL-3.0-or-later
// Generated programs around their controls: whole programs, header, colours, window, menus, options, closing lines.
#include "guibuilder/modGenerator.h"
#include "shell/state/Module1.h"

#include "guibuilder/ProgramText.h"
#include "guibuilder/modSupport.h"
#include "platform/language/cRuntimeError.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

constexpr ProgramKind Outline = ProgramKind::Outline;
constexpr ProgramKind Simple = ProgramKind::Simple;
constexpr ProgramKind BothKinds[] = {Outline, Simple};

QByteArray Read(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no such file)");
}

GuiForm FormOfType(const char* type)
{
    GuiForm form;
    form.GuiWindowType = QString::fromLatin1(type);
    return form;
}

} // namespace

class tst_modGenerator : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // --- Whole programs. ---

    void samplesGiveTheirPrograms_data()
    {
        QTest::addColumn<QString>("sample");
        QTest::addColumn<bool>("isSimple");
        QTest::addColumn<bool>("bitmapMissing");
        for (const char* name : {"address-book", "drawing", "about-dialog", "every-control"})
            for (const bool isSimple : {false, true})
                QTest::addRow("%s%s", name, isSimple ? "-simple" : "")
                    << QString::fromLatin1(name) << isSimple << (QByteArray(name) == "every-control");
    }

    void samplesGiveTheirPrograms()
    {
        QFETCH(QString, sample);
        QFETCH(bool, isSimple);
        GuiForm form = FormOf(Read(u"" OB_TEST_DATA "/../../samples/%1.obf"_s.arg(sample)));
        const GuiForm asRead = form;
        const GeneratedProgram program = Compiled(form, isSimple ? Simple : Outline, {u"2026-11-21"_s, std::nullopt});
        const QString ending = isSimple ? u"-simple.bas"_s : u".bas"_s;
        QCOMPARE(program.text.toLatin1(), Read(u"" OB_TEST_DATA "/forms/"_s + sample + ending));
        QTEST(program.bitmapMissing, "bitmapMissing");
        // These forms have nothing to fill in.
        QVERIFY(form == asRead);
    }

    void anEmptyFormIsAProgramToo()
    {
        const QByteArray afterHeader = "\r\n"
                                       "[InitColors]\r\n"
                                       "    'Please use default colors when possible.\r\n"
                                       "    'Use the following color statements only if necessary in the program.\r\n"
                                       "    'ForegroundColor$ = \"Black\"\r\n"
                                       "    'BackgroundColor$ = \"Buttonface\"\r\n"
                                       "    'TexteditorColor$ = \"White\"\r\n"
                                       "    'TextboxColor$    = \"White\"\r\n"
                                       "    'ComboboxColor$   = \"White\"\r\n"
                                       "    'ListboxColor$    = \"White\"\r\n"
                                       "\r\n"
                                       "[WindowSetup]\r\n"
                                       "    NOMAINWIN\r\n"
                                       "    WindowWidth = 550 : WindowHeight = 400\r\n"
                                       "    UpperLeftX = INT((DisplayWidth-WindowWidth)/2)\r\n"
                                       "    UpperLeftY = INT((DisplayHeight-WindowHeight)/2)\r\n"
                                       "\r\n"
                                       "[ControlSetup]\r\n"
                                       "Menu        #main, \"&File\" , \"E&xit\", [quit]\r\n"
                                       "\r\n"
                                       "Open \"Window Title\" for Window as #main\r\n"
                                       "    #main \"trapclose [quit]\"\r\n"
                                       "    #main \"font ms_sans_serif 10\"\r\n"
                                       "\r\n"
                                       "[loop]\r\n"
                                       "    Wait\r\n"
                                       "\r\n"
                                       "[quit]\r\n"
                                       "    close #main : END\r\n"
                                       "\r\n";
        const QByteArray header = "'** Created by Orchard Bench - DATE\r\n'** Window Title\r\n\r\n";
        GuiForm form;
        QCOMPARE(ProgramOf(form, Outline), header + "    True = 1 : False = 0\r\n" + afterHeader);
        QCOMPARE(ProgramOf(form, Simple), header + afterHeader);
    }

    // --- Header, colours, window. ---

    void commentsComeFirstFollowedByTwoEmptyLines()
    {
        GuiForm form;
        for (const ProgramKind kind : BothKinds) {
            const QString plain = Compiled(form, kind, {u"D"_s, std::nullopt}).text;
            const ProgramHeader two{u"D"_s, u"'mine\r\n'all"_s};
            QCOMPARE(Compiled(form, kind, two).text, u"'mine\r\n'all\r\n\r\n\r\n"_s + plain);
            const ProgramHeader none{u"D"_s, QString()};
            QCOMPARE(Compiled(form, kind, none).text, u"\r\n\r\n\r\n"_s + plain);
        }
    }

    void theHeaderHasDateAndCaption()
    {
        GuiForm form;
        form.caption = u"A \"B\" \u20AC"_s;
        const ProgramHeader header{u"1.2.2026"_s, std::nullopt};
        QVERIFY(Compiled(form, Simple, header)
                    .text.startsWith(u"'** Created by Orchard Bench - 1.2.2026\r\n'** A \"B\" \u20AC\r\n\r\n"_s));
    }

    void eachColorHasItsComment()
    {
        GuiForm form;
        form.GuiForegroundColor = u"A"_s;
        form.GuiBackgroundColor = u"B"_s;
        form.GuiTexteditorColor = u"C"_s;
        form.GuiTextboxColor = u"D"_s;
        form.GuiComboboxColor = u"E"_s;
        form.GuiListboxColor.clear();
        for (const ProgramKind kind : BothKinds)
            QVERIFY(ProgramOf(form, kind)
                        .contains("    'ForegroundColor$ = \"A\"\r\n"
                                  "    'BackgroundColor$ = \"B\"\r\n"
                                  "    'TexteditorColor$ = \"C\"\r\n"
                                  "    'TextboxColor$    = \"D\"\r\n"
                                  "    'ComboboxColor$   = \"E\"\r\n"
                                  "    'ListboxColor$    = \"\"\r\n\r\n[WindowSetup]"));
    }

    void theWindowsSizeIsTruncatedToPixels_data()
    {
        QTest::addColumn<float>("width");
        QTest::addColumn<float>("height");
        QTest::addColumn<QByteArray>("line");
        QTest::newRow("whole") << 6000.F << 4500.F << QByteArray("WindowWidth = 400 : WindowHeight = 300");
        QTest::newRow("cut") << 6014.F << 4514.9F << QByteArray("WindowWidth = 400 : WindowHeight = 300");
        QTest::newRow("nothing") << 0.F << 14.F << QByteArray("WindowWidth = 0 : WindowHeight = 0");
        QTest::newRow("down below zero") << -1.F << -15.F << QByteArray("WindowWidth = -1 : WindowHeight = -1");
        QTest::newRow("far") << 15000014.F << 1.5e9F << QByteArray("WindowWidth = 1000000 : WindowHeight = 1E+08");
    }

    void theWindowsSizeIsTruncatedToPixels()
    {
        QFETCH(float, width);
        QFETCH(float, height);
        QFETCH(QByteArray, line);
        GuiForm form;
        form.width = width;
        form.height = height;
        form.left = form.top = 777;
        for (const ProgramKind kind : BothKinds)
            QVERIFY2(ProgramOf(form, kind).contains("\r\n    NOMAINWIN\r\n    " + line + "\r\n    UpperLeftX"),
                     ProgramOf(form, kind).constData());
    }

    void thisScreensFactorsAreIgnored()
    {
        const int before = TwipsPerPixelX;
        TwipsPerPixelX = TwipsPerPixelY = 12;
        GuiForm form;
        const QByteArray program = ProgramOf(form, Outline);
        TwipsPerPixelX = TwipsPerPixelY = before;
        QVERIFY(program.contains("WindowWidth = 550 : WindowHeight = 400"));
    }

    void theHandleIsTrimmedAndStays_data()
    {
        QTest::addColumn<QString>("handle");
        QTest::addColumn<QString>("used");
        QTest::newRow("plain") << u"win"_s << u"win"_s;
        QTest::newRow("empty") << QString() << u"main"_s;
        QTest::newRow("spaces around") << u" my win "_s << u"my win"_s;
        QTest::newRow("spaces") << u"  "_s << QString();
    }

    void theHandleIsTrimmedAndStays()
    {
        QFETCH(QString, handle);
        QFETCH(QString, used);
        for (const ProgramKind kind : BothKinds) {
            GuiForm form = FormWith(ControlKind::Textbox);
            form.GuiHandleName = handle;
            const QString program = QString::fromLatin1(ProgramOf(form, kind));
            QCOMPARE(form.GuiHandleName, used);
            for (const char* line : {"Menu        #%1, \"&File\"", "textbox     #%1.textbox1, 0", " as #%1\r\n",
                                     "    #%1 \"trapclose", "    #%1 \"font ", "    close #%1 : END"})
                QVERIFY2(program.contains(QString::fromLatin1(line).arg(used)), line);
        }
    }

    void theFontIsOneWordAndANumber_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("size");
        QTest::addColumn<QString>("font");
        const auto row = [](const char* name, const char* size, const char* font) {
            QTest::newRow(font) << QString::fromLatin1(name) << QString::fromLatin1(size) << QString::fromLatin1(font);
        };
        row("ms sans serif", "10", "ms_sans_serif 10");
        row("Courier New", "8.25", "courier_new 8.25");
        row("\xC4RIAL", "09", "\xE4rial 9");
        row(" Arial ", " 9 ", "_arial_ 9");
        row("", "9pt", " 9");
        row("Arial", "", "arial 0");
        row("Arial", ".5", "arial 0.5");
        row("Arial", "-9", "arial -9");
    }

    void theFontIsOneWordAndANumber()
    {
        QFETCH(QString, name);
        QFETCH(QString, size);
        QFETCH(QString, font);
        GuiForm form;
        form.GuiFontName = name;
        form.GuiFontSize = size;
        for (const ProgramKind kind : BothKinds)
            QCOMPARE(PartsOf(form, kind).opened, "    #main \"font " + font.toLatin1() + "\"\r\n\r\n");
        QCOMPARE(form.GuiFontName, name);
        QCOMPARE(form.GuiFontSize, size);
    }

    void aFontSizeBeyondNumbersIsAnError()
    {
        GuiForm form;
        form.GuiFontSize = u"1e999"_s;
        int number = 0;
        try {
            ProgramOf(form, Outline);
        } catch (const RuntimeError& error) {
            number = error.number;
        }
        QCOMPARE(number, 6);
    }

    // --- Menus. ---

    void withoutUserMenusTheFixedOneIsWritten()
    {
        GuiForm form;
        for (const ProgramKind kind : BothKinds) {
            QCOMPARE(PartsOf(form, kind).controls, QByteArray("Menu        #main, \"&File\" , \"E&xit\", [quit]\r\n"));
            QCOMPARE(PartsOf(form, kind).stubs, QByteArray());
        }
        form = FormWith(ControlKind::Texteditor, 2);
        form.List(ControlKind::Texteditor)[1].visible = false;
        for (const ProgramKind kind : BothKinds)
            QVERIFY(PartsOf(form, kind)
                        .controls.startsWith("Menu        #main, \"&File\" , \"E&xit\", [quit]\r\n"
                                             "Menu        #main, \"Edit\"\r\ntexteditor "));
        form.List(ControlKind::Texteditor)[2].visible = false;
        QVERIFY(!PartsOf(form, Outline).controls.contains("Edit"));
        form.GuiMenuOn = false;
        for (const ProgramKind kind : BothKinds)
            QCOMPARE(PartsOf(form, kind).controls, QByteArray());
    }

    void userMenusReplaceTheFixedOne()
    {
        GuiForm form = FormWith(ControlKind::Texteditor);
        form.GuiMenuNames = {u"&File"_s, u"&Edit"_s, QString(), u"&Lost"_s};
        form.GuiMenuItems[0] = {u"&Open  [open]"_s, u"--bar--  [none]"_s, u"E&xit  [quit]"_s};
        form.GuiMenuItems[1][1] = u"Lost  [lost]"_s;
        const QByteArray menus = "Menu        #main, \"&File\", \"&Open\", [open], | , \"E&xit\", [quit]\r\n"
                                 "Menu        #main, \"&Edit\"\r\n"
                                 "texteditor  #main.texteditor1, 0, 0, 80, 80\r\n";
        QCOMPARE(PartsOf(form, Outline).controls, menus);
        QCOMPARE(PartsOf(form, Outline).stubs, QByteArray("[open]\r\n    'place code here\r\n    Wait\r\n\r\n"));
        QCOMPARE(PartsOf(form, Simple).controls, menus);
        QCOMPARE(PartsOf(form, Simple).stubs, QByteArray());
        form.GuiMenuOn = false;
        QVERIFY(PartsOf(form, Outline).controls.startsWith("texteditor "));
        QCOMPARE(PartsOf(form, Outline).stubs, QByteArray());
    }

    void aMenuItemIsCaptionAndBranch_data()
    {
        QTest::addColumn<QString>("item");
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QByteArray>("label"); // "-": no stub
        const auto row = [](const char* item, const char* text, const char* label) {
            QTest::newRow(item) << QString::fromLatin1(item) << QByteArray(text) << QByteArray(label);
        };
        row("A  [a]", ", \"A\", [a]", "[a]");
        row("  A   [a]  ", ", \"A\", [a]", "[a]");
        row("A", ", \"A\", ", "");
        row("[a]", ", \"\", [a]", "[a]");
        row("A [b] [c]", ", \"A\", [b] [c]", "[b] [c]");
        row("--bar--", ", | ", "-");
        row("--bar--  [quit]", ", | ", "-");
        row("--BAR--  [none]", ", \"--BAR--\", [none]", "[none]");
        row("A  [quit]", ", \"A\", [quit]", "-");
        row("A  [Quit]", ", \"A\", [Quit]", "[Quit]");
        row("A  [quit] ", ", \"A\", [quit]", "-");
        row("A  [quit", ", \"A\", [quit", "[quit");
    }

    void aMenuItemIsCaptionAndBranch()
    {
        QFETCH(QString, item);
        QFETCH(QByteArray, text);
        QFETCH(QByteArray, label);
        GuiForm form;
        form.GuiMenuNames[0] = u"M"_s;
        form.GuiMenuItems[0][0] = item;
        const ProgramParts parts = PartsOf(form, Outline);
        QCOMPARE(parts.controls, "Menu        #main, \"M\"" + text + "\r\n");
        QCOMPARE(parts.stubs, label == "-" ? QByteArray() : label + "\r\n    'place code here\r\n    Wait\r\n\r\n");
    }

    void allMenusAndItemsAreWritten()
    {
        GuiForm form;
        form.GuiMenuNames.fill(u"M"_s);
        for (auto& items : form.GuiMenuItems)
            items.fill(u"A  [a]"_s);
        QCOMPARE(PartsOf(form, Outline).controls,
                 ("Menu        #main, \"M\"" + QByteArray(", \"A\", [a]").repeated(21) + "\r\n").repeated(21));
        QCOMPARE(PartsOf(form, Outline).stubs.count("[a]\r\n"), 441);
    }

    // --- Open and close. ---

    void aGraphicsWindowIsFilledInTheOutlineOnly()
    {
        for (const char* type : {"Graphics_nsb", "Graphics_nf_nsb"}) {
            GuiForm form = FormOfType(type);
            form.GuiBackgroundColor = u"Darkpink"_s;
            const QByteArray open =
                QByteArray("\r\nOpen \"Window Title\" for ") + type + " as #main\r\n    #main \"trapclose [quit]\"\r\n";
            const ProgramParts outline = PartsOf(form, Outline);
            QCOMPARE(outline.open, open);
            QCOMPARE(outline.opened, QByteArray("    #main \"down; fill Darkpink; flush\"\r\n"
                                                "    #main \"font ms_sans_serif 10\"\r\n"
                                                "    #main \"setfocus; when mouseMove [MouseChange]\"\r\n"));
            QCOMPARE(outline.stubs, QByteArray("[MouseChange]\r\n    'MouseX and MouseY contain mouse coordinates\r\n"
                                               "    wait\r\n\r\n"));
            const ProgramParts simple = PartsOf(form, Simple);
            QCOMPARE(simple.open, open);
            QCOMPARE(simple.opened, QByteArray("    #main \"font ms_sans_serif 10\"\r\n\r\n"));
            QCOMPARE(simple.stubs, QByteArray());
        }
    }

    void anUnknownColorFillsWithNoName()
    {
        GuiForm form = FormOfType("Graphics_nsb");
        for (const char* name : {"Purple", "white", ""}) {
            form.GuiBackgroundColor = QString::fromLatin1(name);
            QVERIFY(PartsOf(form, Outline).opened.startsWith("    #main \"down; fill ; flush\"\r\n"));
        }
    }

    void otherWindowsGetOnlyAFont()
    {
        for (const char* type : {"Window", "Window_nf", "Dialog", "Dialog_modal"})
            for (const ProgramKind kind : BothKinds) {
                GuiForm form = FormOfType(type);
                const ProgramParts parts = PartsOf(form, kind);
                QCOMPARE(parts.open, QByteArray("\r\nOpen \"Window Title\" for ") + type +
                                         " as #main\r\n    #main \"trapclose [quit]\"\r\n");
                QCOMPARE(parts.opened, QByteArray("    #main \"font ms_sans_serif 10\"\r\n\r\n"));
            }
    }

    void tooltipsAreCalledAndTheirRoutineIsWritten()
    {
        for (const ProgramKind kind : BothKinds) {
            GuiForm form;
            form.GuiTooltipsOn = true;
            const ProgramParts parts = PartsOf(form, kind);
            QCOMPARE(parts.opened, QByteArray("    #main \"font ms_sans_serif 10\"\r\n\r\n"
                                              "    Call MakeTooltips HWND(#main)\r\n\r\n"));
            QCOMPARE(parts.stubs, QString::fromUtf16(TooltipStart).toLatin1() + "    END SUB\r\n\r\n");
        }
    }

    void theStatusBarResizesInWindowsOnly_data()
    {
        QTest::addColumn<QByteArray>("type");
        QTest::addColumn<bool>("resizes");
        for (const char* type : {"Window", "Window_nf"})
            QTest::newRow(type) << QByteArray(type) << true;
        for (const char* type : {"Graphics_nsb", "Graphics_nf_nsb", "Dialog", "Dialog_modal"})
            QTest::newRow(type) << QByteArray(type) << false;
    }

    void theStatusBarResizesInWindowsOnly()
    {
        QFETCH(QByteArray, type);
        QFETCH(bool, resizes);
        GuiForm form = FormOfType(type.constData());
        form.GuiStatusbarOn = true;
        form.panels = {u"a"_s, u"b"_s};
        for (const ProgramKind kind : BothKinds) {
            const ProgramParts parts = PartsOf(form, kind);
            QByteArray lines = "    '** Change statusbar message at any time with sub ChangeStatusText\r\n"
                               "    '** Call ChangeStatusText hStatus, ID_of_Panel, NewText$\r\n"
                               "    '** The handle of the statusbar is hStatus\r\n"
                               "    hStatus = MakeStatusBar(HWND(#main), \"StatusBar\")\r\n";
            if (!resizes)
                lines += "'    statusbar will not work properly in this window type\r\n"
                         "'    because resizehandler is not available:\r\n"
                         "'";
            lines += "    #main \"resizehandler [ResizeStatus]\"\r\n\r\n";
            QVERIFY2(parts.opened.endsWith("\r\n" + lines), parts.opened.constData());
            QCOMPARE(parts.opened.count("MakeStatusBar"), 1);
            QVERIFY(parts.stubs.endsWith(StatusRoutines(form.panels).toLatin1()));
        }
    }

    void theTimersStubHasAPlaceForEachWindowType()
    {
        GuiForm form = FormWith(ControlKind::Button);
        form.GuiTimerOn = true;
        const QByteArray timer = "    TIMER 500, [activateTimer]    'initialize the timer\r\n\r\n";
        const QByteArray loop = "[loop]\r\n    Wait\r\n\r\n";
        const QByteArray stub = "[activateTimer]\r\n    'place code here\r\n    wait\r\n\r\n";
        const QByteArray quit = "[quit]\r\n    close #main : END\r\n\r\n";
        const QByteArray font = "    #main \"font ms_sans_serif 10\"\r\n\r\n";
        QVERIFY(ProgramOf(form, Outline)
                    .endsWith(font + timer + loop + quit +
                              "[button1.click]\r\n    'place code here\r\n    wait\r\n\r\n" + stub));
        QVERIFY(ProgramOf(form, Simple).endsWith(font + timer + loop + stub + quit));
    }

    void allOptionsFollowInOneOrder()
    {
        GuiForm form = FormOfType("Graphics_nsb");
        form.GuiTimerOn = form.GuiTooltipsOn = form.GuiStatusbarOn = true;
        form.GuiMenuNames[0] = u"M"_s;
        form.GuiMenuItems[0][0] = u"A  [a]"_s;
        form.At(AddControl(form, ControlKind::Listbox)).visible = true;
        const auto places = [&](ProgramKind kind, const QByteArrayList& marks) {
            const QByteArray program = ProgramOf(form, kind);
            qsizetype last = -1;
            for (const QByteArray& mark : marks) {
                const qsizetype at = program.indexOf(mark, last + 1);
                if (at < 0)
                    return mark;
                last = at;
            }
            return QByteArray();
        };
        QCOMPARE(places(Outline, {"'** Created",
                                  "True = 1",
                                  "DIM List1",
                                  "[InitColors]",
                                  "[WindowSetup]",
                                  "[ControlSetup]",
                                  "Menu ",
                                  "listbox ",
                                  "Open ",
                                  "down; fill",
                                  "selectindex",
                                  "Call MakeTooltips",
                                  "hStatus = ",
                                  "TIMER",
                                  "[loop]",
                                  "[quit]",
                                  "\r\n[a]",
                                  "\r\n[list1.click]",
                                  "\r\n[MouseChange]",
                                  "\r\n[activateTimer]",
                                  "SUB MakeTooltips",
                                  "'Listbox Tooltip:",
                                  "END SUB",
                                  "[ResizeStatus] '",
                                  "FUNCTION MakeStatusBar",
                                  "SUB ChangeStatusText"}),
                 QByteArray());
        QCOMPARE(places(Simple, {"'** Created", "DIM List1", "[InitColors]", "[ControlSetup]", "Menu ", "listbox ",
                                 "Open ", "\"font ", "Call MakeTooltips", "hStatus = ", "TIMER", "[loop]",
                                 "\r\n[activateTimer]", "\r\n[quit]", "SUB MakeTooltips",
                                 "'Listbox Tooltip:", "END SUB", "[ResizeStatus] '", "SUB ChangeStatusText"}),
                 QByteArray());
    }
};

QTEST_APPLESS_MAIN(tst_modGenerator)
#include "tst_modGenerator.moc"
