// SPDX-License-Identifier: GPL-3.0-or-later
// Form files as the bench writes them: each line there and back, what is filled in, and the order of all.
#include "guibuilder/modFormFile.h"

#include "guibuilder/FormLines.h"
#include "platform/cRuntimeError.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

using namespace ob;

namespace {

constexpr char FreshDefaults[] = "defaults|Black|Buttonface|White|White|White|White|False|False|False|-1|True";
constexpr char FreshWindow[] =
    "Window|Window Title| 1200| 900| 8250| 6000|main|-2147483633|ms sans serif *10|False|-1|True";

// A file of the given lines behind those of a fresh form, as the bench writes it.
QByteArray Fresh(const QByteArrayList& lines)
{
    return Joined(QByteArrayList{FreshDefaults, FreshWindow} + lines + QByteArrayList{""});
}

GuiForm FormWith(ControlKind kind, int count = 1)
{
    GuiForm form;
    for (int number = 0; number < count; ++number)
        form.At(AddControl(form, kind)).visible = true;
    return form;
}

} // namespace

class tst_modFormFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // --- Whole files. ---

    void AFreshFormIsTwoLinesAndAnEmptyOne() { QCOMPARE(FileOf(GuiForm()), Fresh({})); }

    void AFileReadAndWrittenIsTheSame_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::newRow("a window with menu and button") << QByteArray(
            "defaults|Black|Buttonface|White|White|White|White|False|False|False|1|True\r\n"
            "Window|Window Title| 1200| 1200| 6000| 4500|main|-2147483633|ms sans serif *10|False|1|True\r\n"
            "menu|&File|&Open  [open] * E&xit  [quit] * |none|none|none|none|none|none|False|1|True\r\n"
            "button|Button  1| 600| 300| 1200| 450|button1|button1.click|none|False|1|True\r\n"
            "\r\n");
        const QDir samples(QStringLiteral(OB_TEST_DATA "/../../samples"));
        const QStringList names = samples.entryList({QStringLiteral("*.obf")});
        QVERIFY(names.size() >= 4);
        for (const QString& name : names) {
            QFile file(samples.filePath(name));
            QVERIFY(file.open(QIODevice::ReadOnly));
            QTest::newRow(qPrintable(name)) << file.readAll();
        }
    }

    void AFileReadAndWrittenIsTheSame()
    {
        QFETCH(QByteArray, file);
        GuiForm form = FormOf(file);
        QCOMPARE(AnsiFromText(WriteForm(form)).bytes, file);
        QVERIFY(FormOf(file) == form);
    }

    void ControlsGoByKindThenByIndex()
    {
        GuiForm form;
        for (int round = 1; round <= 2; ++round)
            for (const KindTraits& traits : KindTable)
                form.At(AddControl(form, traits.kind)).visible = true;
        form.GuiStatusbarOn = true;
        form.GuiMenuNames[0] = QStringLiteral("&File");
        QByteArrayList words;
        for (const QByteArray& line : FileOf(form).split('\n'))
            words.append(line.left(std::max(0, static_cast<int>(line.indexOf('|')))));
        QCOMPARE(words.join(' '),
                 QByteArray("defaults Window menu bmpbutton bmpbutton button button statictext statictext "
                            "groupbox groupbox listbox listbox combobox combobox textbox textbox "
                            "texteditor texteditor graphicbox graphicbox radiobutton radiobutton "
                            "checkbox checkbox statusbar  "));
    }

    void EveryLineHasTwelveFields()
    {
        GuiForm form = FormOf(FileOf(FormWith(ControlKind::Button)));
        form.GuiStatusbarOn = true;
        form.GuiMenuNames[0] = form.GuiMenuItems[0][0] = QStringLiteral("x");
        const QByteArrayList lines = FileOf(form).split('\n');
        QCOMPARE(lines.size(), 7);
        for (const QByteArray& line : lines.first(5))
            QCOMPARE(line.count('|'), 11);
    }

    // --- The defaults line. ---

    void EachDefaultHasItsField_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::newRow("colours") << QByteArray("defaults|A|B|C|D|E|F|False|False|False|1|True");
        QTest::newRow("empty colours") << QByteArray("defaults|||||||False|False|False|1|True");
        QTest::newRow("tool tips") << QByteArray("defaults|A|B|C|D|E|F|True|False|False|1|True");
        QTest::newRow("timer") << QByteArray("defaults|A|B|C|D|E|F|False|False|True|1|True");
        QTest::newRow("state") << QByteArray("defaults|A|B|C|D|E|F|False|False|False|-32768|True");
        QTest::newRow("menu off") << QByteArray("defaults|A|B|C|D|E|F|False|False|False|1|False");
    }

    void EachDefaultHasItsField()
    {
        QFETCH(QByteArray, line);
        const GuiForm form = FormOf(Joined({line, FreshWindow}));
        QCOMPARE(FileOf(form).split('\r').first(), line);
        const QByteArrayList fields = line.split('|');
        QCOMPARE(form.GuiForegroundColor.toLatin1(), fields[1]);
        QCOMPARE(form.GuiBackgroundColor.toLatin1(), fields[2]);
        QCOMPARE(form.GuiListboxColor.toLatin1(), fields[3]);
        QCOMPARE(form.GuiComboboxColor.toLatin1(), fields[4]);
        QCOMPARE(form.GuiTextboxColor.toLatin1(), fields[5]);
        QCOMPARE(form.GuiTexteditorColor.toLatin1(), fields[6]);
        QCOMPARE(form.GuiTooltipsOn, fields[7] == "True");
        QCOMPARE(form.GuiTimerOn, fields[9] == "True");
        QCOMPARE(form.GuiMenuOn, fields[11] == "True");
    }

    void OlderDefaultsLinesAreShorter_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<QByteArray>("written");
        const QByteArray start = "defaults|Black|Buttonface|White|White|White|White|True|False";
        QTest::newRow("nine fields") << start << start + "|False|1|True";
        QTest::newRow("ten fields") << start + "|True" << start + "|True|1|True";
        QTest::newRow("eleven fields") << start + "|True|-1" << start + "|True|-1|True";
        QTest::newRow("twelve fields") << start + "|True|-1|False" << start + "|True|-1|False";
        QTest::newRow("thirteen fields") << start + "|True|-1|False|x" << start + "|True|-1|False";
    }

    void OlderDefaultsLinesAreShorter()
    {
        QFETCH(QByteArray, line);
        QFETCH(QByteArray, written);
        QCOMPARE(FileOf(FormOf(Joined({line, FreshWindow}))).split('\r').first(), written);
    }

    void SwitchesAreWordsInAnyCaseOrNumbers_data()
    {
        QTest::addColumn<QByteArray>("word");
        QTest::addColumn<bool>("isOn");
        for (const char* word : {"True", "TRUE", "true", "1", "-1", " 2 ", "0.5"})
            QTest::newRow(word) << QByteArray(word) << true;
        for (const char* word : {"False", "FALSE", "false", "0", "0.0"})
            QTest::newRow(word) << QByteArray(word) << false;
    }

    void SwitchesAreWordsInAnyCaseOrNumbers()
    {
        QFETCH(QByteArray, word);
        QFETCH(bool, isOn);
        const QByteArray line = "defaults|A|B|C|D|E|F|" + word + "|" + word + "|" + word + "|1|" + word;
        const GuiForm form = FormOf(Joined({line, FreshWindow}));
        QCOMPARE(form.GuiTooltipsOn, isOn);
        QCOMPARE(form.GuiStatusbarOn, isOn);
        QCOMPARE(form.GuiTimerOn, isOn);
        QCOMPARE(form.GuiMenuOn, isOn);
    }

    void TheStateIsTheNumberThatItsFieldStartsWith_data()
    {
        QTest::addColumn<QByteArray>("field");
        QTest::addColumn<int>("state");
        QTest::newRow("with a blank") << QByteArray(" 1") << 1;
        QTest::newRow("letters behind") << QByteArray("-1x") << -1;
        QTest::newRow("letters") << QByteArray("x") << 0;
        QTest::newRow("empty") << QByteArray() << 0;
        QTest::newRow("halves to the even neighbour") << QByteArray("2.5") << 2;
    }

    void TheStateIsTheNumberThatItsFieldStartsWith()
    {
        QFETCH(QByteArray, field);
        QFETCH(int, state);
        QCOMPARE(FormOf("defaults|A|B|C|D|E|F|0|0|0|" + field).GuiDefaultsState, static_cast<std::int16_t>(state));
    }

    // --- The window line. ---

    void EachWindowTypeSetsItsOwnColorAndMenu_data()
    {
        QTest::addColumn<QByteArray>("type");
        QTest::addColumn<unsigned>("color");
        QTest::addColumn<bool>("hasMenu");
        QTest::newRow("Window") << QByteArray("Window") << unsigned{Rgb(255, 255, 0)} << true;
        QTest::newRow("Window_nf") << QByteArray("Window_nf") << unsigned{Rgb(255, 255, 0)} << true;
        QTest::newRow("Graphics_nsb") << QByteArray("Graphics_nsb") << 255U << true;
        QTest::newRow("Graphics_nf_nsb") << QByteArray("Graphics_nf_nsb") << 255U << true;
        QTest::newRow("Dialog") << QByteArray("Dialog") << unsigned{Rgb(255, 255, 0)} << false;
        QTest::newRow("Dialog_modal") << QByteArray("Dialog_modal") << unsigned{Rgb(255, 255, 0)} << false;
    }

    void EachWindowTypeSetsItsOwnColorAndMenu()
    {
        QFETCH(QByteArray, type);
        QFETCH(unsigned, color);
        QFETCH(bool, hasMenu);
        const GuiForm form = FormOf("defaults|Red|Yellow|C|D|E|F|0|0|0|1|1\r\n" + type +
                                    "|My Title|15.5| 30|-45|6E1|hnd|255|Arial Bold *8.5");
        QCOMPARE(form.GuiWindowType.toLatin1(), type);
        QCOMPARE(form.windowTag.toLatin1(), type);
        QCOMPARE(form.backColor, color);
        QCOMPARE(form.GuiMenuOn, hasMenu);
        const QByteArray number = QByteArray::number(static_cast<int>(color));
        QCOMPARE(FileOf(form).split('\n')[1], type + "|My Title| 15.5| 30|-45| 60|hnd|" + number +
                                                  "|Arial Bold *8.5|False|1|" + (hasMenu ? "True\r" : "False\r"));
    }

    void TheMenuFlagReachesOnlyWindowsBehindIt()
    {
        const QByteArray off = "defaults|A|B|C|D|E|F|0|0|0|1|False";
        QVERIFY(!FormOf(Joined({off, FreshWindow})).GuiMenuOn);
        QVERIFY(FormOf(Joined({FreshWindow, off})).GuiMenuOn);
        QVERIFY(FormOf(off).GuiMenuOn);
    }

    void AGraphicsWindowsColorIsTheNumberThatItsFieldStartsWith_data()
    {
        QTest::addColumn<QByteArray>("field");
        QTest::addColumn<unsigned>("color");
        QTest::newRow("signed") << QByteArray("-2147483633") << 0x8000000FU;
        QTest::newRow("with a blank") << QByteArray(" 255") << 255U;
        QTest::newRow("letters behind") << QByteArray("255x") << 255U;
        QTest::newRow("letters") << QByteArray("Red") << 0U;
        QTest::newRow("empty") << QByteArray() << 0U;
        QTest::newRow("hexadecimal") << QByteArray("&HFF00") << 0xFFFFFF00U;
    }

    void AGraphicsWindowsColorIsTheNumberThatItsFieldStartsWith()
    {
        QFETCH(QByteArray, field);
        QFETCH(unsigned, color);
        QCOMPARE(FormOf("Graphics_nsb|T|0|0|0|0|h|" + field + "|f *8").backColor, color);
    }

    void AnUnknownBackgroundNameLeavesTheWindowsColor()
    {
        QCOMPARE(FormOf("defaults|A|Nocolour|C|D|E|F|0|0\r\nWindow|T|0|0|0|0|h|255|f *8").backColor,
                 ColorRef{0x8000000F});
    }

    void TheFontFieldIsNameAndSize_data()
    {
        QTest::addColumn<QByteArray>("field");
        QTest::addColumn<QByteArray>("written");
        const auto row = [](const char* field, const char* written) {
            QTest::newRow(*field == '\0' ? "empty" : field) << QByteArray(field) << QByteArray(written);
        };
        row("ms sans serif *10", "ms sans serif *10");
        row("Arial *8.25", "Arial *8.25");
        row("Arial * 9 ", "Arial * 9 ");
        row("Arial *", "Arial *10");
        row("Arial *0", "Arial *10");
        row("Arial *x", "Arial *10");
        row("Arial *9x", "Arial *9x");
        row("Arial *-5", "Arial *-5");
        row("Arial", "Arial *10");
        row("Arial*9", "Arial*9 *9");
        row("a *b *7", "a *7");
        row("a *6*7", "a *7");
        row("", " *10");
        row(" *12", " *12");
    }

    void TheFontFieldIsNameAndSize()
    {
        QFETCH(QByteArray, field);
        QFETCH(QByteArray, written);
        const GuiForm form = FormOf("Window|T|0|0|0|0|h|0|" + field);
        QCOMPARE((form.GuiFontName + QStringLiteral(" *") + form.GuiFontSize).toLatin1(), written);
    }

    void TheWindowsTagIsWrittenAndNotItsType()
    {
        GuiForm form;
        form.GuiWindowType = QStringLiteral("Dialog");
        QVERIFY(FileOf(form).contains("\r\nWindow|Window Title|"));
        for (const char* tag : {"open", "closed", "Dialog_modal"}) {
            form.windowTag = QString::fromLatin1(tag);
            QVERIFY2(FileOf(form).contains("\r\n" + QByteArray(tag) + "|Window Title|"), tag);
        }
    }

    void AnEmptyHandleBecomesMainAndStays()
    {
        GuiForm form;
        form.GuiHandleName.clear();
        QCOMPARE(WriteForm(form).toLatin1(), Fresh({}));
        QCOMPARE(form.GuiHandleName, QStringLiteral("main"));
        form.GuiHandleName = QStringLiteral(" ");
        QVERIFY(WriteForm(form).contains(QStringLiteral("| |-2147483633|")));
    }

    void WithoutAWindowLineTheWindowIsAFreshOne()
    {
        QCOMPARE(FileOf(FormOf("")), Fresh({}));
        const GuiForm form = FormOf("button|B|0|0|0|0|b|c\r\n");
        QCOMPARE(form.windowTag, QString());
        QVERIFY(form.GuiMenuOn);
        QCOMPARE(FileOf(form), Fresh({"button|B| 0| 0| 0| 0|b|c|none|False|-1|True"}));
    }

    // --- Menus. ---

    void MenusAreWrittenToTheFirstEmptyNameAndItem()
    {
        GuiForm form;
        QVERIFY(!FileOf(form).contains("menu|"));
        form.GuiMenuNames[1] = QStringLiteral("&Edit");
        form.GuiMenuNames[3] = QStringLiteral("&Lost");
        QVERIFY(!FileOf(form).contains("menu|"));
        form.GuiMenuNames[0] = QStringLiteral("&File");
        form.GuiMenuItems[0][0] = QStringLiteral("&Open  [open]");
        form.GuiMenuItems[0][1] = QStringLiteral("--bar--  [none]");
        form.GuiMenuItems[0][3] = QStringLiteral("Lost  [lost]");
        QCOMPARE(FileOf(form), Fresh({"menu|&File|&Open  [open] * --bar--  [none] * |none|none|none|none|none|none|"
                                      "False|-1|True",
                                      "menu|&Edit||none|none|none|none|none|none|False|-1|True"}));
    }

    void MenusFillTheirSlotsInTurn()
    {
        const GuiForm form = FormOf("menu|&File| &Open  [open]  *  [x]*E&xit  [quit] * \r\nmenu|&Edit|\r\n");
        QCOMPARE(form.GuiMenuNames[0], QStringLiteral("&File"));
        QCOMPARE(form.GuiMenuItems[0][0], QStringLiteral("&Open  [open]"));
        QCOMPARE(form.GuiMenuItems[0][1], QStringLiteral("[x]"));
        QCOMPARE(form.GuiMenuItems[0][2], QStringLiteral("E&xit  [quit]"));
        QCOMPARE(form.GuiMenuItems[0][3], QString());
        QCOMPARE(form.GuiMenuNames[1], QStringLiteral("&Edit"));
        QCOMPARE(form.GuiMenuItems[1][0], QString());
        QCOMPARE(form.menuLabel, QStringLiteral("&File    &Edit    "));
    }

    void AStarInAnItemPartsIt()
    {
        GuiForm form;
        form.GuiMenuNames[0] = QStringLiteral("&Sum");
        form.GuiMenuItems[0][0] = QStringLiteral("a * b  [ab]");
        form = FormOf(FileOf(form));
        QCOMPARE(form.GuiMenuItems[0][0], QStringLiteral("a"));
        QCOMPARE(form.GuiMenuItems[0][1], QStringLiteral("b  [ab]"));
    }

    void AnUnnamedMenuTakesASlotThatStaysTheFirstEmptyOne()
    {
        const GuiForm form = FormOf("menu||a*b*c\r\nmenu|&File|d*e\r\n");
        QCOMPARE(form.GuiMenuNames[0], QStringLiteral("&File"));
        QCOMPARE(form.GuiMenuNames[1], QString());
        QCOMPARE(form.GuiMenuItems[0][0] + form.GuiMenuItems[0][1] + form.GuiMenuItems[0][2], QStringLiteral("dec"));
    }

    void AMenuBehindTheLastSlotIsDropped()
    {
        QByteArray file;
        for (int menu = 0; menu < 22; ++menu)
            file += "menu|m" + QByteArray::number(menu) + "|i" + QByteArray::number(menu) + "\r\n";
        const GuiForm form = FormOf(file + "menu\r\n");
        QCOMPARE(form.GuiMenuNames[20], QStringLiteral("m20"));
        QCOMPARE(form.GuiMenuItems[20][0], QStringLiteral("i20"));
        QCOMPARE(form.menuLabel.count(QLatin1String("    ")), 21);
        QCOMPARE(FileOf(form).count("\r\nmenu|"), 21);
    }

    void WithoutMenusTheLabelTellsWhatAClickDoes()
    {
        QCOMPARE(FormOf("").menuLabel, QStringLiteral("Right-click to remove menubar. Left-click to edit menus."));
    }

    // --- Controls. ---

    void EachKindHasItsLine_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QByteArray>("line");
        const auto row = [](ControlKind kind, const char* line) {
            QTest::newRow(QByteArray(line).split('|').first().constData())
                << static_cast<int>(kind) << line + QByteArray("|False|-1|True");
        };
        row(ControlKind::Bmpbutton, "bmpbutton|bmpbttn| 15| 30.5|-45| 450|pic *tip|[go]|none");
        row(ControlKind::Button, "button|&OK| 15| 30.5|-45| 450|ok *tip|[go]|none");
        row(ControlKind::Statictext, "statictext|Name:| 15| 30.5|-45| 450|label|none|none");
        row(ControlKind::Groupbox, "groupbox|Group| 15| 30.5|-45| 450|box|none|none");
        row(ControlKind::Listbox, "listbox|none| 15| 30.5|-45| 450|list *tip|[go]|none");
        row(ControlKind::Combobox, "combobox|none| 15| 30.5|-45| 450|combo *tip|[go]|none");
        row(ControlKind::Textbox, "textbox|none| 15| 30.5|-45| 450|text *tip|none|none");
        row(ControlKind::Texteditor, "texteditor|none|15|30.5|-45|450|edit *tip|none|none");
        row(ControlKind::Graphicbox, "graphicbox|none| 15| 30.5|-45| 450|box *tip|N/A|255");
        row(ControlKind::Radiobutton, "radiobutton|One| 15| 30.5|-45| 450|one *tip|[go]|none");
        row(ControlKind::Checkbox, "checkbox|Two| 15| 30.5|-45| 450|two *tip|[go]|none");
    }

    void EachKindHasItsLine()
    {
        QFETCH(int, kind);
        QFETCH(QByteArray, line);
        const GuiForm form = FormOf(Joined({line}));
        const ControlRef ref{static_cast<ControlKind>(kind), 1};
        QCOMPARE(form.order, std::vector{ref});
        QCOMPARE(FileOf(form), Fresh({line}));

        const QByteArrayList fields = line.split('|');
        const ControlRecord& control = form.At(ref);
        const ControlRecord& model = form.At({ref.kind, 0});
        QVERIFY(control.visible);
        QCOMPARE(control.caption.toLatin1(), fields[1] == "none" ? model.caption.toLatin1() : fields[1]);
        QCOMPARE((QList{control.left, control.top, control.width, control.height}), (QList{15.F, 30.5F, -45.F, 450.F}));
        QCOMPARE(control.tag.toLatin1(), fields[6]);
        QCOMPARE(control.branch.toLatin1(), fields[7] == "none" ? QByteArray() : fields[7]);
        QCOMPARE(control.backColor, fields[8] == "none" ? model.backColor : 255);
    }

    void TheReaderTakesNumbersInBothForms()
    {
        const QByteArray start = "|none|15| 30| -45 |4.5e2|t|none|none";
        QCOMPARE(FileOf(FormOf(Joined({"texteditor" + start, "textbox" + start}))),
                 Fresh({"textbox|none| 15| 30|-45| 450|t|none|none|False|-1|True",
                        "texteditor|none|15|30|-45|450|t|none|none|False|-1|True"}));
    }

    void NumbersAreWrittenAsSinglesInTwoForms_data()
    {
        QTest::addColumn<float>("number");
        QTest::addColumn<QByteArray>("blank");
        QTest::addColumn<QByteArray>("plain");
        const auto row = [](float number, const char* blank, const char* plain) {
            QTest::newRow(plain) << number << QByteArray(blank) << QByteArray(plain);
        };
        row(0.F, " 0", "0");
        row(1200.F, " 1200", "1200");
        row(1234.5F, " 1234.5", "1234.5");
        row(-15.F, "-15", "-15");
        row(0.5F, " .5", "0.5");
        row(-0.5F, "-.5", "-0.5");
        row(100.F / 3, " 33.33333", "33.33333");
        row(9999999.F, " 9999999", "9999999");
        row(1e7F, " 1E+07", "1E+07");
    }

    void NumbersAreWrittenAsSinglesInTwoForms()
    {
        QFETCH(float, number);
        QFETCH(QByteArray, blank);
        QFETCH(QByteArray, plain);
        for (const ControlKind kind : {ControlKind::Textbox, ControlKind::Texteditor}) {
            GuiForm form = FormWith(kind);
            ControlRecord& control = form.At({kind, 1});
            control.left = control.top = control.width = control.height = number;
            const QByteArrayList fields = FileOf(form).split('\n')[2].split('|');
            const QByteArray expected = kind == ControlKind::Texteditor ? plain : blank;
            QCOMPARE(fields.mid(2, 4), (QByteArrayList{expected, expected, expected, expected}));
        }
    }

    void EmptyNamesAndBranchesAreFilledAndStay_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QByteArray>("branch");
        for (const KindTraits& traits : KindTable) {
            const QByteArray keyword(traits.keyword.data(), static_cast<qsizetype>(traits.keyword.size()));
            QTest::newRow(keyword.constData())
                << static_cast<int>(traits.kind)
                << (traits.branch == BranchUse::Label ? keyword + "2.click" : QByteArray());
        }
    }

    void EmptyNamesAndBranchesAreFilledAndStay()
    {
        QFETCH(int, kind);
        QFETCH(QByteArray, branch);
        const ControlRef ref{static_cast<ControlKind>(kind), 2};
        GuiForm form = FormWith(ref.kind, 2);
        form.List(ref.kind)[1].visible = false;
        const QString first = WriteForm(form);
        QCOMPARE(form.At(ref).tag, LatinText(TraitsOf(ref.kind).keyword) + u'2');
        QCOMPARE(form.At(ref).branch.toLatin1(), branch);
        QCOMPARE(form.List(ref.kind)[1].tag, QString());
        QCOMPARE(WriteForm(form), first);
    }

    void ABranchIsTrimmedButNotThatOfAGraphicbox()
    {
        for (const ControlKind kind : {ControlKind::Bmpbutton, ControlKind::Button, ControlKind::Listbox,
                                       ControlKind::Combobox, ControlKind::Radiobutton, ControlKind::Checkbox}) {
            GuiForm form = FormWith(kind);
            form.At({kind, 1}).branch = QStringLiteral("  go ");
            QVERIFY(WriteForm(form).contains(QStringLiteral("1|go|none|False")));
            QCOMPARE(form.At({kind, 1}).branch, QStringLiteral("go"));
            form.At({kind, 1}).branch = QStringLiteral("  ");
            QVERIFY(WriteForm(form).contains(QStringLiteral("1||none|False")));
        }
        GuiForm form = FormWith(ControlKind::Graphicbox);
        for (const QString& branch : {QStringLiteral(" N/A "), QString()}) {
            form.At({ControlKind::Graphicbox, 1}).branch = branch;
            QVERIFY(WriteForm(form).contains(QStringLiteral("|graphicbox1|%1|16777215|").arg(branch)));
        }
    }

    void ATagIsWrittenAsItStands()
    {
        GuiForm form = FormWith(ControlKind::Button);
        for (const QString& tag : {QStringLiteral(" ok  * tip "), QStringLiteral(" "), QStringLiteral(" *tip")}) {
            form.At({ControlKind::Button, 1}).tag = tag;
            QVERIFY(WriteForm(form).contains(QStringLiteral("| 450|%1|button1.click|").arg(tag)));
        }
    }

    void DeletedControlsAreGoneAndTheRestRenumberedAfterReading()
    {
        GuiForm form = FormWith(ControlKind::Button, 3);
        form.List(ControlKind::Button)[1].visible = form.List(ControlKind::Button)[2].visible = false;
        const QByteArray file = FileOf(form);
        QCOMPARE(file.count("\r\nbutton|"), 1);
        QVERIFY(file.contains("|button3|button3.click|"));
        form = FormOf(file);
        QCOMPARE(form.List(ControlKind::Button).size(), std::size_t{2});
        QCOMPARE(form.At({ControlKind::Button, 1}).tag, QStringLiteral("button3"));

        form.List(ControlKind::Button)[1].visible = false;
        QCOMPARE(FileOf(form), Fresh({}));
        form = FormOf(FileOf(form));
        QCOMPARE(AddControl(form, ControlKind::Button).index, 1);
    }

    void ControlsStackInFileOrder()
    {
        const GuiForm form = FormOf("checkbox|c|0|0|0|0|n|b\r\nbutton|c|0|0|0|0|n|b\r\ncheckbox|c|0|0|0|0|n|b\r\n");
        QCOMPARE(form.order, (std::vector<ControlRef>{
                                 {ControlKind::Checkbox, 1}, {ControlKind::Button, 1}, {ControlKind::Checkbox, 2}}));
    }

    void ABmpbuttonShowsItsBitmap()
    {
        QTemporaryDir folder;
        QImage image(3, 2, QImage::Format_RGB32);
        image.fill(Qt::red);
        QVERIFY(image.save(folder.filePath(QStringLiteral("red.bmp")), "BMP"));
        const QString before = QDir::currentPath();
        const auto pictureOf = [](const QByteArray& path) {
            return FormOf("bmpbutton|" + path + "|0|0|0|0|n|b").At({ControlKind::Bmpbutton, 1}).picture;
        };
        QDir::setCurrent(folder.path());
        const QImage relative = pictureOf("red.bmp");
        QDir::setCurrent(before);
        QCOMPARE(relative.size(), QSize(3, 2));
        QCOMPARE(relative.pixel(2, 1), 0xFFFF0000U);
        QCOMPARE(pictureOf(QFile::encodeName(folder.filePath(QStringLiteral("red.bmp")))), relative);
        QVERIFY(pictureOf("").isNull());
        QVERIFY(pictureOf("bmpbttn").isNull());
    }

    // --- Status bar. ---

    void PanelsFillTheFieldsFromTheSecondOn_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::newRow("1") << QByteArray("statusbar|1|a|||||||F|1|T");
        QTest::newRow("2") << QByteArray("statusbar|2|a|b||||||F|1|T");
        QTest::newRow("6") << QByteArray("statusbar|6|a|b|c|d|e|f||F|1|T");
        QTest::newRow("7") << QByteArray("statusbar|7|a|b|c|d|e|f|g|F|1|T");
        QTest::newRow("8") << QByteArray("statusbar|8|a|b|c|d|e|f|g|h|1|T");
        QTest::newRow("9") << QByteArray("statusbar|9|a|b|c|d|e|f|g|h|i|T");
        QTest::newRow("10") << QByteArray("statusbar|10|a|b|c|d|e|f|g|h|i|j");
    }

    void PanelsFillTheFieldsFromTheSecondOn()
    {
        QFETCH(QByteArray, line);
        const QByteArrayList fields = line.split('|');
        // A control in front leaves "none" in the fields that the panels do not reach.
        GuiForm form = FormWith(ControlKind::Button);
        form.GuiStatusbarOn = true;
        form.panels.clear();
        for (const QByteArray& panel : fields.mid(2, fields[1].toInt()))
            form.panels.push_back(QString::fromLatin1(panel));
        QByteArray written = FileOf(form).split('\n')[3];
        written.replace("|False|-1|True\r", "|F|1|T\r").replace("|-1|True\r", "|1|T\r").replace("|True\r", "|T\r");
        QCOMPARE(written, line + '\r');
        QCOMPARE(FormOf(FileOf(form)).panels, form.panels);
    }

    void ElevenPanelsAreTooMany()
    {
        GuiForm form;
        form.panels.resize(11);
        QCOMPARE(FileOf(form), Fresh({}));
        form.GuiStatusbarOn = true;
        bool isRaised = false;
        try {
            WriteForm(form);
        } catch (const RuntimeError& error) {
            isRaised = true;
            QCOMPARE(error.number, 9);
        }
        QVERIFY(isRaised);
    }

    void TheStatusbarLineSetsTheNumberOfPanels_data()
    {
        QTest::addColumn<QByteArray>("lines");
        QTest::addColumn<QByteArray>("panels");
        const QByteArray fresh = "Click here to modify Statusbar!";
        QTest::newRow("no line") << QByteArray("defaults|A|B|C|D|E|F|0|True") << fresh;
        QTest::newRow("one") << QByteArray("statusbar|1|a") << QByteArray("a");
        QTest::newRow("one, empty") << QByteArray("statusbar|1|") << QByteArray();
        QTest::newRow("none") << QByteArray("statusbar|0") << fresh;
        QTest::newRow("fewer than none") << QByteArray("statusbar|-7") << fresh;
        QTest::newRow("more fields than panels") << QByteArray("statusbar|2|a|b|c|d") << QByteArray("a,b");
        QTest::newRow("with blanks") << QByteArray("statusbar| 2 |a|b") << QByteArray("a,b");
        QTest::newRow("halves to the even neighbour") << QByteArray("statusbar|2.5|a|b") << QByteArray("a,b");
        QTest::newRow("many") << QByteArray("statusbar|13|a|b|c|d|e|f|g|h|i|j|k|l|m")
                              << QByteArray("a,b,c,d,e,f,g,h,i,j,k,l,m");
        QTest::newRow("fewer again") << QByteArray("statusbar|3|a|b|c\r\nstatusbar|2|d|e") << QByteArray("d,e");
        QTest::newRow("more again") << QByteArray("statusbar|1|a\r\nstatusbar|2|d|e") << QByteArray("d,e");
    }

    void TheStatusbarLineSetsTheNumberOfPanels()
    {
        QFETCH(QByteArray, lines);
        QStringList panels;
        for (const QString& panel : FormOf(lines).panels)
            panels.append(panel);
        QTEST(panels.join(u',').toLatin1(), "panels");
    }
};

QTEST_APPLESS_MAIN(tst_modFormFile)
#include "tst_modFormFile.moc"
