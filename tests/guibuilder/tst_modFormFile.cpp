// SPDX-License-Identifier: GPL-3.0-or-later
// Form files as the bench writes them: each line written and read, what is filled in, and the order of all.
#include "guibuilder/modFormFile.h"

#include "guibuilder/FormLines.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

using namespace ob;

class tst_modFormFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // --- Whole files. ---

    void aFreshFormIsTwoLinesAndAnEmptyOne() { QCOMPARE(FileOf(GuiForm()), Fresh({})); }

    void aFileReadAndWrittenIsTheSame_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::newRow("a window with menu and button") << QByteArray(
            "defaults|Black|Buttonface|White|White|White|White|False|False|False|1|True\r\n"
            "Window|Window Title| 1200| 1200| 6000| 4500|main|-2147483633|ms sans serif *10|False|1|True\r\n"
            "menu|&File|&Open  [open] * E&xit  [quit] * |none|none|none|none|none|none|False|1|True\r\n"
            "button|Button  1| 600| 300| 1200| 450|button1|button1.click|none|False|1|True\r\n"
            "\r\n");
        const QDir samples(u"" OB_TEST_DATA "/../../samples"_s);
        const QStringList names = samples.entryList({u"*.obf"_s});
        QVERIFY(names.size() >= 4);
        for (const QString& name : names) {
            QFile file(samples.filePath(name));
            QVERIFY(file.open(QIODevice::ReadOnly));
            QTest::newRow(qPrintable(name)) << file.readAll();
        }
    }

    void aFileReadAndWrittenIsTheSame()
    {
        QFETCH(QByteArray, file);
        GuiForm form = FormOf(file);
        QCOMPARE(AnsiFromText(SavedText(form)).bytes, file);
        QVERIFY(FormOf(file) == form);
    }

    void controlsAreOrderedByKindThenByIndex()
    {
        GuiForm form;
        for (int round = 1; round <= 2; ++round)
            for (const KindTraits& traits : KindTable)
                form.At(AddControl(form, traits.kind)).visible = true;
        form.GuiStatusbarOn = true;
        form.GuiMenuNames[0] = u"&File"_s;
        QByteArrayList words;
        for (const QByteArray& line : FileOf(form).split('\n'))
            words.append(line.left(std::max(0, static_cast<int>(line.indexOf('|')))));
        QCOMPARE(words.join(' '),
                 QByteArray("defaults Window menu bmpbutton bmpbutton button button statictext statictext "
                            "groupbox groupbox listbox listbox combobox combobox textbox textbox "
                            "texteditor texteditor graphicbox graphicbox radiobutton radiobutton "
                            "checkbox checkbox statusbar  "));
    }

    void everyLineHasTwelveFields()
    {
        GuiForm form = FormOf(FileOf(FormWith(ControlKind::Button)));
        form.GuiStatusbarOn = true;
        form.GuiMenuNames[0] = form.GuiMenuItems[0][0] = u"x"_s;
        const QByteArrayList lines = FileOf(form).split('\n');
        QCOMPARE(lines.size(), 7);
        for (const QByteArray& line : lines.first(5))
            QCOMPARE(line.count('|'), 11);
    }

    // --- The defaults line. ---

    void eachDefaultHasItsField_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::newRow("colours") << QByteArray("defaults|A|B|C|D|E|F|False|False|False|1|True");
        QTest::newRow("empty colours") << QByteArray("defaults|||||||False|False|False|1|True");
        QTest::newRow("tool tips") << QByteArray("defaults|A|B|C|D|E|F|True|False|False|1|True");
        QTest::newRow("timer") << QByteArray("defaults|A|B|C|D|E|F|False|False|True|1|True");
        QTest::newRow("state") << QByteArray("defaults|A|B|C|D|E|F|False|False|False|-32768|True");
        QTest::newRow("menu off") << QByteArray("defaults|A|B|C|D|E|F|False|False|False|1|False");
    }

    void eachDefaultHasItsField()
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

    void olderDefaultsLinesAreShorter_data()
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

    void olderDefaultsLinesAreShorter()
    {
        QFETCH(QByteArray, line);
        QFETCH(QByteArray, written);
        QCOMPARE(FileOf(FormOf(Joined({line, FreshWindow}))).split('\r').first(), written);
    }

    void switchesAreWordsInAnyCaseOrNumbers_data()
    {
        QTest::addColumn<QByteArray>("word");
        QTest::addColumn<bool>("isOn");
        for (const char* word : {"True", "TRUE", "true", "1", "-1", " 2 ", "0.5"})
            QTest::newRow(word) << QByteArray(word) << true;
        for (const char* word : {"False", "FALSE", "false", "0", "0.0"})
            QTest::newRow(word) << QByteArray(word) << false;
    }

    void switchesAreWordsInAnyCaseOrNumbers()
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

    void theStateIsTheNumberThatItsFieldStartsWith_data()
    {
        QTest::addColumn<QByteArray>("field");
        QTest::addColumn<int>("state");
        QTest::newRow("with a space") << QByteArray(" 1") << 1;
        QTest::newRow("letters after") << QByteArray("-1x") << -1;
        QTest::newRow("letters") << QByteArray("x") << 0;
        QTest::newRow("empty") << QByteArray() << 0;
        QTest::newRow("halves to the even neighbour") << QByteArray("2.5") << 2;
    }

    void theStateIsTheNumberThatItsFieldStartsWith()
    {
        QFETCH(QByteArray, field);
        QFETCH(int, state);
        QCOMPARE(FormOf("defaults|A|B|C|D|E|F|0|0|0|" + field).GuiDefaultsState, static_cast<std::int16_t>(state));
    }

    // --- The window line. ---

    void eachWindowTypeSetsItsOwnColorAndMenu_data()
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

    void eachWindowTypeSetsItsOwnColorAndMenu()
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

    void theMenuFlagAppliesOnlyToLaterWindows()
    {
        const QByteArray off = "defaults|A|B|C|D|E|F|0|0|0|1|False";
        QVERIFY(!FormOf(Joined({off, FreshWindow})).GuiMenuOn);
        QVERIFY(FormOf(Joined({FreshWindow, off})).GuiMenuOn);
        QVERIFY(FormOf(off).GuiMenuOn);
    }

    void aGraphicsWindowsColorIsTheNumberThatItsFieldStartsWith_data()
    {
        QTest::addColumn<QByteArray>("field");
        QTest::addColumn<unsigned>("color");
        QTest::newRow("signed") << QByteArray("-2147483633") << 0x8000000FU;
        QTest::newRow("with a space") << QByteArray(" 255") << 255U;
        QTest::newRow("letters after") << QByteArray("255x") << 255U;
        QTest::newRow("letters") << QByteArray("Red") << 0U;
        QTest::newRow("empty") << QByteArray() << 0U;
        QTest::newRow("hexadecimal") << QByteArray("&HFF00") << 0xFFFFFF00U;
    }

    void aGraphicsWindowsColorIsTheNumberThatItsFieldStartsWith()
    {
        QFETCH(QByteArray, field);
        QFETCH(unsigned, color);
        QCOMPARE(FormOf("Graphics_nsb|T|0|0|0|0|h|" + field + "|f *8").backColor, color);
    }

    void anUnknownBackgroundNameLeavesTheWindowsColor()
    {
        QCOMPARE(FormOf("defaults|A|Nocolour|C|D|E|F|0|0\r\nWindow|T|0|0|0|0|h|255|f *8").backColor,
                 ColorRef{0x8000000F});
    }

    void theFontFieldIsNameAndSize_data()
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

    void theFontFieldIsNameAndSize()
    {
        QFETCH(QByteArray, field);
        QFETCH(QByteArray, written);
        const GuiForm form = FormOf("Window|T|0|0|0|0|h|0|" + field);
        QCOMPARE((form.GuiFontName + u" *"_s + form.GuiFontSize).toLatin1(), written);
    }

    void theWindowsTagIsWrittenAndNotItsType()
    {
        GuiForm form;
        form.GuiWindowType = u"Dialog"_s;
        QVERIFY(FileOf(form).contains("\r\nWindow|Window Title|"));
        for (const char* tag : {"open", "closed", "Dialog_modal"}) {
            form.windowTag = QString::fromLatin1(tag);
            QVERIFY2(FileOf(form).contains("\r\n" + QByteArray(tag) + "|Window Title|"), tag);
        }
    }

    void anEmptyHandleBecomesMainAndStays()
    {
        GuiForm form;
        form.GuiHandleName.clear();
        QCOMPARE(SavedText(form).toLatin1(), Fresh({}));
        QCOMPARE(form.GuiHandleName, u"main"_s);
        form.GuiHandleName = u" "_s;
        QVERIFY(SavedText(form).contains(u"| |-2147483633|"_s));
    }

    void withoutAWindowLineTheWindowIsAFreshOne()
    {
        QCOMPARE(FileOf(FormOf("")), Fresh({}));
        const GuiForm form = FormOf("button|B|0|0|0|0|b|c\r\n");
        QCOMPARE(form.windowTag, QString());
        QVERIFY(form.GuiMenuOn);
        QCOMPARE(FileOf(form), Fresh({"button|B| 0| 0| 0| 0|b|c|none|False|-1|True"}));
    }

    // --- Menus. ---

    void menusAreWrittenToTheFirstEmptyNameAndItem()
    {
        GuiForm form;
        QVERIFY(!FileOf(form).contains("menu|"));
        form.GuiMenuNames[1] = u"&Edit"_s;
        form.GuiMenuNames[3] = u"&Lost"_s;
        QVERIFY(!FileOf(form).contains("menu|"));
        form.GuiMenuNames[0] = u"&File"_s;
        form.GuiMenuItems[0][0] = u"&Open  [open]"_s;
        form.GuiMenuItems[0][1] = u"--bar--  [none]"_s;
        form.GuiMenuItems[0][3] = u"Lost  [lost]"_s;
        QCOMPARE(FileOf(form), Fresh({"menu|&File|&Open  [open] * --bar--  [none] * |none|none|none|none|none|none|"
                                      "False|-1|True",
                                      "menu|&Edit||none|none|none|none|none|none|False|-1|True"}));
    }

    void menusFillTheirSlotsInTurn()
    {
        const GuiForm form = FormOf("menu|&File| &Open  [open]  *  [x]*E&xit  [quit] * \r\nmenu|&Edit|\r\n");
        QCOMPARE(form.GuiMenuNames[0], u"&File"_s);
        QCOMPARE(form.GuiMenuItems[0][0], u"&Open  [open]"_s);
        QCOMPARE(form.GuiMenuItems[0][1], u"[x]"_s);
        QCOMPARE(form.GuiMenuItems[0][2], u"E&xit  [quit]"_s);
        QCOMPARE(form.GuiMenuItems[0][3], QString());
        QCOMPARE(form.GuiMenuNames[1], u"&Edit"_s);
        QCOMPARE(form.GuiMenuItems[1][0], QString());
        QCOMPARE(form.menuLabel, u"&File    &Edit    "_s);
    }

    void aStarInAnItemSplitsIt()
    {
        GuiForm form;
        form.GuiMenuNames[0] = u"&Sum"_s;
        form.GuiMenuItems[0][0] = u"a * b  [ab]"_s;
        form = FormOf(FileOf(form));
        QCOMPARE(form.GuiMenuItems[0][0], u"a"_s);
        QCOMPARE(form.GuiMenuItems[0][1], u"b  [ab]"_s);
    }

    void anUnnamedMenuTakesASlotThatStaysTheFirstEmptyOne()
    {
        const GuiForm form = FormOf("menu||a*b*c\r\nmenu|&File|d*e\r\n");
        QCOMPARE(form.GuiMenuNames[0], u"&File"_s);
        QCOMPARE(form.GuiMenuNames[1], QString());
        QCOMPARE(form.GuiMenuItems[0][0] + form.GuiMenuItems[0][1] + form.GuiMenuItems[0][2], u"dec"_s);
    }

    void aMenuAfterTheLastSlotIsDropped()
    {
        QByteArray file;
        for (int menu = 0; menu < 22; ++menu)
            file += "menu|m" + QByteArray::number(menu) + "|i" + QByteArray::number(menu) + "\r\n";
        const GuiForm form = FormOf(file + "menu\r\n");
        QCOMPARE(form.GuiMenuNames[20], u"m20"_s);
        QCOMPARE(form.GuiMenuItems[20][0], u"i20"_s);
        QCOMPARE(form.menuLabel.count(QLatin1String("    ")), 21);
        QCOMPARE(FileOf(form).count("\r\nmenu|"), 21);
    }

    void withoutMenusTheLabelShowsWhatAClickDoes()
    {
        QCOMPARE(FormOf("").menuLabel, u"Right-click to remove menubar. Left-click to edit menus."_s);
    }
};

QTEST_APPLESS_MAIN(tst_modFormFile)
#include "tst_modFormFile.moc"
