// SPDX-License-Identifier: GPL-3.0-or-later
// Damaged form files: how each load ends, and what is then in the form.
#include "guibuilder/modFormFile.h"

#include "guibuilder/FormLines.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <atomic>
#include <chrono>
#include <thread>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

constexpr FormLoad Loaded = FormLoad::Loaded;
constexpr FormLoad Corrupt = FormLoad::Corrupt;
constexpr FormLoad Failed = FormLoad::Failed;

// The result of a load, and the file of the form it left.
QByteArray Left(FormLoad end, const QByteArray& file)
{
    GuiForm form;
    const FormLoad actual = ReadForm(file, form);
    const char* names[] = {"loaded", "corrupt", "failed"};
    if (actual != end)
        return QByteArray("not as expected: ") + names[static_cast<int>(actual)];
    return FileOf(form);
}

// The first fields of a line.
QByteArray FirstFields(const QByteArray& line, qsizetype count)
{
    return line.split('|').first(count).join('|');
}

} // namespace

class tst_modFormFileTrouble : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(folder.isValid());
        QDir::setCurrent(folder.path());
    }
    void cleanupTestCase() { QDir::setCurrent(QDir::rootPath()); }

    // --- Reasons. ---

    void aLoadThatEndsEarlySaysWhereAndWhy_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<QString>("reason");
        const auto row = [](const char* line, const QString& reason) {
            QTest::newRow(line) << QByteArray(line) << reason;
        };
        row("nonsense|1", u"no line of a form begins with \"nonsense\""_s);
        row("open|x|1|2|3|4", u"the form was saved before its window properties were confirmed with OK"_s);
        row("button|x|1|2|3", u"field 6 is missing"_s);
        row("button|a|b|1|2|3|4|n|b", u"field 3, \"b\", is not a number"_s);
        row("button|x|1|2|3|1E39|n|b", u"field 6, \"1E39\", is too large"_s);
        row("defaults|a|b|c|d|e|f|maybe|False", u"field 8, \"maybe\", is neither True nor False"_s);
        row("bmpbutton|nowhere.bmp|1|2|3|4|n|b", u"the bitmap nowhere.bmp cannot be loaded: File not found"_s);
        row("menu|&File|1*2*3*4*5*6*7*8*9*10*11*12*13*14*15*16*17*18*19*20*21*22",
            u"the menu has more than 21 items"_s);
    }

    void aLoadThatEndsEarlySaysWhereAndWhy()
    {
        QFETCH(QByteArray, line);
        QFETCH(QString, reason);
        GuiForm form;
        FormTrouble trouble;
        QVERIFY(ReadForm("checkbox|C|1|2|3|4|n|b\r\n\r\n" + line, form, LoadBitmap, &trouble) != Loaded);
        QCOMPARE(trouble.line, 3);
        QCOMPARE(trouble.reason, reason);
        QCOMPARE(TroubleText(u"folder/x.obf"_s, trouble), u"x.obf, line 3: "_s + reason);
    }

    void theTextOfATroubleWithoutALineHasNone()
    {
        QCOMPARE(TroubleText(u"folder/x.obf"_s, {0, u"gone"_s}), u"x.obf: gone"_s);
    }

    // --- Files that could not be loaded again. ---

    void aFileThatReadsAsItWasWrittenHasNoTrouble()
    {
        GuiForm form;
        for (const KindTraits& traits : KindTable)
            form.At(AddControl(form, traits.kind)).visible = true;
        form.GuiStatusbarOn = true;
        form.panels.assign(10, u"panel"_s);
        QVERIFY(!TroubleIn(FileOf(form), LoadBitmap));
    }

    void troubleIsFoundBeforeTheNextLoad()
    {
        const auto trouble = [](const auto& change) {
            GuiForm form = FormWith(ControlKind::Button, 2);
            change(form);
            return TroubleIn(FileOf(form), LoadBitmap).value_or(FormTrouble{});
        };
        const FormTrouble bar{4, u"a text in it has a | or a line break, which ends a field of the file"_s};
        const ControlRef second{ControlKind::Button, 2};
        QCOMPARE(trouble([&](GuiForm& form) { form.At(second).caption = u"a|b"_s; }), bar);
        QCOMPARE(trouble([&](GuiForm& form) { form.At(second).tag = u"n *a|b"_s; }), bar);
        QCOMPARE(trouble([&](GuiForm& form) { form.At(second).caption = u"a\nb"_s; }), bar);
        QCOMPARE(trouble([&](GuiForm& form) { form.windowTag = u"open"_s; }),
                 (FormTrouble{2, u"the form was saved before its window properties were confirmed with OK"_s}));
        QCOMPARE(trouble([&](GuiForm& form) {
                     const ControlRef picture = AddControl(form, ControlKind::Bmpbutton);
                     form.At(picture).visible = true;
                     form.At(picture).caption = u"nowhere.bmp"_s;
                 }),
                 (FormTrouble{3, u"the bitmap nowhere.bmp cannot be loaded: File not found"_s}));
    }

    // --- Lines. ---

    void linesEndInAnyWayAndEmptyOnesAreSkipped_data()
    {
        QTest::addColumn<QByteArray>("file");
        const QByteArray one = "checkbox|C|1|2|3|4|n|b";
        const QByteArray two = "menu|&File|";
        for (const QByteArray& end : {QByteArray("\r\n"), QByteArray("\n"), QByteArray("\r")}) {
            const QByteArray name = end.toHex();
            QTest::newRow((name + " ended").constData()) << one + end + two + end;
            QTest::newRow((name + " not ended").constData()) << one + end + two;
            QTest::newRow((name + " empty lines").constData()) << end + end + one + end + end + end + two + end + end;
        }
        QTest::newRow("mixed") << "\n" + one + "\r\r\n\n" + two + "\r";
    }

    void linesEndInAnyWayAndEmptyOnesAreSkipped()
    {
        QFETCH(QByteArray, file);
        QCOMPARE(Left(Loaded, file), Fresh({"menu|&File||none|none|none|none|none|none|False|-1|True",
                                            "checkbox|C| 1| 2| 3| 4|n|b|none|False|-1|True"}));
    }

    void aFileOfNothingIsAFreshForm_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::newRow("0 bytes") << QByteArray();
        QTest::newRow("LF") << QByteArray("\n");
        QTest::newRow("CR") << QByteArray("\r");
        QTest::newRow("a thousand") << QByteArray("\r\n").repeated(1000);
    }

    void aFileOfNothingIsAFreshForm()
    {
        QFETCH(QByteArray, file);
        QCOMPARE(Left(Loaded, file), Fresh({}));
    }

    void anUnknownFirstFieldIsACorruptFile_data()
    {
        QTest::addColumn<QByteArray>("line");
        for (const char* line : {"x",
                                 "open|Window Title| 0| 0| 0| 0|main|0|f *8",
                                 "closed|Window Title|0|0|0|0|main|0|f",
                                 "Button|B|0|0|0|0|n|b",
                                 "DEFAULTS",
                                 "window|T|0|0|0|0|h|0|f",
                                 "WINDOW",
                                 "Menu|&File|",
                                 " button|B|0|0|0|0|n|b",
                                 "button |B|0|0|0|0|n|b",
                                 "buttons|B",
                                 "Statusbar|1|a",
                                 "Dialog_Modal|T|0|0|0|0|h|0|f",
                                 "Graphics|T|0|0|0|0|h|0|f",
                                 "|",
                                 "||||||||",
                                 " ",
                                 "\t",
                                 "\xFF\xFE",
                                 "\xEF\xBB\xBF"
                                 "defaults|A|B|C|D|E|F|0|0"})
            QTest::newRow(*line == '\t' ? "tab" : line) << QByteArray(line);
        QTest::newRow("NUL") << QByteArray(1, '\0');
        QTest::newRow("NUL after a keyword") << QByteArray("button\0|B|0|0|0|0|n|b", 21);
        QTest::newRow("a bitmap") << QByteArray("BM\x46\0\0\0\0\0\0\0\x36\0\0\0", 14);
    }

    void anUnknownFirstFieldIsACorruptFile()
    {
        QFETCH(QByteArray, line);
        QCOMPARE(Left(Corrupt, line), Fresh({}));
        // What comes before is read, what follows is not.
        QCOMPARE(Left(Corrupt, Joined({"menu|&File|", line, "menu|&Edit|"})),
                 Fresh({"menu|&File||none|none|none|none|none|none|False|-1|True"}));
    }

    void aHundredMegabytesOfOneLineAreRead_data()
    {
        QTest::addColumn<QByteArray>("start");
        QTest::addColumn<char>("filling");
        QTest::addColumn<int>("end");
        QTest::newRow("no keyword") << QByteArray() << 'x' << static_cast<int>(Corrupt);
        QTest::newRow("bars") << QByteArray() << '|' << static_cast<int>(Corrupt);
        QTest::newRow("line ends") << QByteArray() << '\n' << static_cast<int>(Loaded);
        QTest::newRow("bars after a control") << QByteArray("button|B|1|2|3|4|n|b|") << '|' << static_cast<int>(Loaded);
        QTest::newRow("a control's number") << QByteArray("button|B|") << '1' << static_cast<int>(Failed);
        QTest::newRow("menu items") << QByteArray("menu|&File|") << '*' << static_cast<int>(Failed);
        QTest::newRow("a bitmap's path") << QByteArray("bmpbutton|") << 'p' << static_cast<int>(Failed);
    }

    void aHundredMegabytesOfOneLineAreRead()
    {
        QFETCH(QByteArray, start);
        QFETCH(char, filling);
        QFETCH(int, end);
        GuiForm form;
        QCOMPARE(static_cast<int>(ReadForm(start + QByteArray(100'000'000, filling), form)), end);
        QCOMPARE(FileOf(form).count("\r\nbutton|"), end == static_cast<int>(Loaded) && !start.isEmpty() ? 1 : 0);
    }

    void aCaptionOfAHundredMegabytesIsKept()
    {
        const QByteArray caption(100'000'000, 'c');
        GuiForm form = FormOf("checkbox|" + caption + "|1|2|3|4|n|b");
        QCOMPARE(form.At({ControlKind::Checkbox, 1}).caption.size(), caption.size());
        const QByteArray file = FileOf(form);
        form = GuiForm();
        QCOMPARE(FileOf(FormOf(file)), file);
    }

    // --- Missing fields. ---

    void aShortDefaultsLineSetsWhatItHas_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<QByteArray>("left");
        QTest::newRow("1") << 1 << QByteArray("defaults|Black|Buttonface|White|White|White|White|False|False");
        QTest::newRow("2") << 2 << QByteArray("defaults|A|Buttonface|White|White|White|White|False|False");
        QTest::newRow("3") << 3 << QByteArray("defaults|A|B|White|White|White|White|False|False");
        QTest::newRow("4") << 4 << QByteArray("defaults|A|B|C|White|White|White|False|False");
        QTest::newRow("5") << 5 << QByteArray("defaults|A|B|C|D|White|White|False|False");
        QTest::newRow("6") << 6 << QByteArray("defaults|A|B|C|D|E|White|False|False");
        QTest::newRow("7") << 7 << QByteArray("defaults|A|B|C|D|E|F|False|False");
        QTest::newRow("8") << 8 << QByteArray("defaults|A|B|C|D|E|F|True|False");
    }

    void aShortDefaultsLineSetsWhatItHas()
    {
        QFETCH(int, count);
        QFETCH(QByteArray, left);
        const QByteArray line = FirstFields("defaults|A|B|C|D|E|F|True|True|True|1|False", count);
        QByteArray expected = Fresh({});
        expected.replace("defaults|Black|Buttonface|White|White|White|White|False|False", left);
        QCOMPARE(Left(Failed, Joined({line, "menu|&File|"})), expected);
    }

    void aShortWindowLineSetsWhatItHas_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<QByteArray>("left");
        QTest::newRow("1") << 1 << QByteArray("Dialog|Window Title| 1200| 900| 8250| 6000|main|");
        QTest::newRow("2") << 2 << QByteArray("Dialog|T| 1200| 900| 8250| 6000|main|");
        QTest::newRow("6") << 6 << QByteArray("Dialog|T| 1| 2| 3| 4|main|");
        QTest::newRow("7") << 7 << QByteArray("Dialog|T| 1| 2| 3| 4|h|");
        QTest::newRow("8") << 8 << QByteArray("Dialog|T| 1| 2| 3| 4|h|");
    }

    void aShortWindowLineSetsWhatItHas()
    {
        QFETCH(int, count);
        QFETCH(QByteArray, left);
        const QByteArray line = FirstFields("Dialog|T|1|2|3|4|h|0|f *8", count);
        QVERIFY2(Left(Failed, line).contains("\r\n" + left), Left(Failed, line).constData());
    }

    void anIncompleteRectangleFails()
    {
        for (const qsizetype count : {3, 4, 5})
            for (const char* line :
                 {"Window|T|1|2|3|4|h|0|f *8", "Graphics_nsb|T|1|2|3|4|h|0|f *8", "button|B|1|2|3|4|n|b"})
                QVERIFY(Left(Failed, FirstFields(line, count)).startsWith("defaults|"));
    }

    void aGraphicsWindowNeedsItsColor()
    {
        QVERIFY(Left(Failed, "Graphics_nsb|T|1|2|3|4|h").contains("|h|-2147483633|ms sans serif *10|"));
        QVERIFY(Left(Failed, "Graphics_nsb|T|1|2|3|4|h|255").contains("|h|255|ms sans serif *10|"));
        QVERIFY(Left(Loaded, "Graphics_nsb|T|1|2|3|4|h|255|f").contains("|h|255|f *10|"));
    }

    void aShortMenuLineKeepsItsTitle()
    {
        QCOMPARE(Left(Failed, "menu"), Fresh({}));
        QCOMPARE(Left(Failed, "menu|&File"), Fresh({"menu|&File||none|none|none|none|none|none|False|-1|True"}));
    }

    void aShortControlLineLeavesAHiddenControl_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QByteArray>("line");
        const auto row = [](ControlKind kind, const char* line) {
            QTest::newRow(QByteArray(line).split('|').first().constData())
                << static_cast<int>(kind) << QByteArray(line);
        };
        // Each with exactly the fields that its kind needs.
        row(ControlKind::Bmpbutton, "bmpbutton|bmpbttn|1|2|3|4|n|b");
        row(ControlKind::Button, "button|C|1|2|3|4|n|b");
        row(ControlKind::Statictext, "statictext|C|1|2|3|4|n");
        row(ControlKind::Groupbox, "groupbox|C|1|2|3|4|n");
        row(ControlKind::Listbox, "listbox|none|1|2|3|4|n|b");
        row(ControlKind::Combobox, "combobox|none|1|2|3|4|n|b");
        row(ControlKind::Textbox, "textbox|none|1|2|3|4|n");
        row(ControlKind::Texteditor, "texteditor|none|1|2|3|4|n");
        row(ControlKind::Graphicbox, "graphicbox|none|1|2|3|4|n|b|0");
        row(ControlKind::Radiobutton, "radiobutton|C|1|2|3|4|n|b");
        row(ControlKind::Checkbox, "checkbox|C|1|2|3|4|n|b");
    }

    void aShortControlLineLeavesAHiddenControl()
    {
        QFETCH(int, kind);
        QFETCH(QByteArray, line);
        const auto controlKind = static_cast<ControlKind>(kind);
        GuiForm form;
        QCOMPARE(ReadForm(line, form), Loaded);
        QVERIFY(form.At({controlKind, 1}).visible);
        for (qsizetype count = line.count('|'); count > 0; --count) {
            QCOMPARE(ReadForm(Joined({"menu|&File|", FirstFields(line, count), "menu|&Edit|"}), form), Failed);
            QCOMPARE(form.List(controlKind).size(), std::size_t{2});
            const ControlRecord& control = form.At({controlKind, 1});
            QVERIFY(!control.visible);
            QCOMPARE(control.left, count > 2 ? 1.F : form.At({controlKind, 0}).left);
            QCOMPARE(control.tag, count > 6 ? u"n"_s : QString());
            QCOMPARE(FileOf(form), Fresh({"menu|&File||none|none|none|none|none|none|False|-1|True"}));
        }
    }

    void aShortStatusbarLineSetsWhatItHas()
    {
        GuiForm form;
        const QString fresh = u"Click here to modify Statusbar!"_s;
        QCOMPARE(ReadForm("statusbar", form), Failed);
        QCOMPARE(form.panels, std::vector{fresh});
        QCOMPARE(ReadForm("statusbar|2", form), Failed);
        QCOMPARE(form.panels, (std::vector{fresh, QString()}));
        QCOMPARE(ReadForm("statusbar|3|a|b", form), Failed);
        QCOMPARE(form.panels, (std::vector{u"a"_s, u"b"_s, QString()}));
    }

    // --- Invalid numbers. ---

    void aRectangleNeedsNumbers_data()
    {
        QTest::addColumn<QByteArray>("number");
        for (const char* number :
             {"x",    "12x",   "1 2",  "1,5", "1.2.3", "--1",  "+",    "-",    ".",   "1e", "1e999",
              "1e39", "-1e39", "True", "&H",  "&HG",   "0x10", "\xB2", "\x80", "NaN", "inf"})
            QTest::newRow(QByteArray(number).toPercentEncoding().constData()) << QByteArray(number);
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("spaces") << QByteArray("  ");
        QTest::newRow("NUL") << QByteArray("1\0", 2);
    }

    void aRectangleNeedsNumbers()
    {
        QFETCH(QByteArray, number);
        for (const char* line :
             {"Window|T|1|2|3|4|h|0|f *8", "texteditor|none|1|2|3|4|n", "graphicbox|none|1|2|3|4|n|b|0"})
            for (qsizetype field = 2; field <= 5; ++field) {
                QByteArrayList fields = QByteArray(line).split('|');
                fields[field] = number;
                QVERIFY(!Left(Failed, fields.join('|')).contains("\r\ntexteditor"));
            }
    }

    void thePanelCountNeedsANumber()
    {
        for (const char* count : {"x", "", " ", "1x", "32768", "-32769", "1e9", "1e999"})
            QCOMPARE(
                Left(Failed, QByteArray("defaults|Black|Buttonface|White|White|White|White|False|False\r\nstatusbar|") +
                                 count + "|a"),
                Fresh({}).replace("|-1|", "|1|"));
        // Just within 16 bits, but without the texts.
        QCOMPARE(Left(Failed, "statusbar|32767|a"), Fresh({}));
    }

    void switchesNeedWordsOrNumbers_data()
    {
        QTest::addColumn<QByteArray>("line");
        for (const char* word : {"x", "", " ", "Yes", "Truex", "1x"})
            for (const int field : {7, 8, 9, 11}) {
                QByteArrayList fields = QByteArray("defaults|A|B|C|D|E|F|0|0|0|1|0").split('|');
                fields[field] = word;
                QTest::addRow("'%s' in %d", word, field) << fields.join('|');
            }
    }

    void switchesNeedWordsOrNumbers()
    {
        QFETCH(QByteArray, line);
        QVERIFY(Left(Failed, line).startsWith("defaults|A|B|C|D|E|F|False|False|False|"));
    }

    void numbersBeyondTheirTypeFail()
    {
        QVERIFY(Left(Failed, "defaults|A|B|C|D|E|F|0|0|0|32768|True").startsWith("defaults|A|"));
        QVERIFY(Left(Failed, "Graphics_nsb|T|1|2|3|4|h|2147483648|f *8").contains("|h|-2147483633|"));
        QVERIFY(Left(Failed, "graphicbox|none|1|2|3|4|n|b|1e99").startsWith("defaults|Black|"));
        QVERIFY(Left(Failed, "Window|T|1|2|3|4|h|0|f *1e999").contains("|h|"));
    }

    // --- Menus. ---

    void twentyOneItemsFit()
    {
        const GuiForm form = FormOf("menu|&File|" + QByteArray("i*").repeated(20) + "last");
        QCOMPARE(form.GuiMenuItems[0][20], u"last"_s);
    }

    void aTwentySecondItemFails_data()
    {
        QTest::addColumn<QByteArray>("items");
        QTest::newRow("an item") << QByteArray("i * ").repeated(21) + "i";
        QTest::newRow("the empty piece after the last") << QByteArray("i * ").repeated(21);
        QTest::newRow("many") << QByteArray("i * ").repeated(1000);
    }

    void aTwentySecondItemFails()
    {
        QFETCH(QByteArray, items);
        QCOMPARE(Left(Failed, "menu|&File|" + items), Fresh({"menu|&File|" + QByteArray("i * ").repeated(21) +
                                                             "|none|none|none|none|none|none|False|-1|True"}));
    }

    void aMenuOfAllItemsIsWrittenButCannotBeRead()
    {
        GuiForm form;
        form.GuiMenuNames.fill(u"m"_s);
        form.GuiMenuItems[20].fill(u"i"_s);
        const QByteArray file = FileOf(form);
        QVERIFY(file.contains("\r\nmenu|m|" + QByteArray("i * ").repeated(21) + "|none|"));
        QCOMPARE(Left(Failed, file), file);
    }

    // --- Bars in texts. ---

    void aBarShiftsTheFieldsAfterIt()
    {
        QCOMPARE(Left(Loaded, "button|7|1|2|3|4|5|6|7"), Fresh({"button|7| 1| 2| 3| 4|5|6|none|False|-1|True"}));
        // A number after the bar is taken for Left; anything else ends the load.
        GuiForm form = FormWith(ControlKind::Button);
        ControlRecord& control = form.At({ControlKind::Button, 1});
        control.caption = u"5|6"_s;
        QCOMPARE(Left(Loaded, FileOf(form)), Fresh({"button|5| 6| 0| 0| 1200| 450|button1|none|False|-1|True"}));
        control.caption = u"yes|no"_s;
        QCOMPARE(Left(Failed, FileOf(form)), Fresh({}));
    }

    void aBarInATagShiftsTheBranch()
    {
        GuiForm form = FormWith(ControlKind::Button);
        form.At({ControlKind::Button, 1}).tag = u"ok *a|b"_s;
        QCOMPARE(Left(Loaded, FileOf(form)), Fresh({"button|| 0| 0| 1200| 450|ok *a|b|none|False|-1|True"}));
    }

    void aBarInTheWindowsCaptionEndsTheLoad()
    {
        GuiForm form;
        form.caption = u"a|b"_s;
        QVERIFY(Left(Failed, FileOf(form)).contains("\r\nWindow|a| 1200|"));
    }

    // --- Bytes above 127. ---

    void everyByteSurvivesARoundTrip()
    {
        QByteArray bytes;
        for (int byte = 1; byte < 256; ++byte)
            if (byte != '\n' && byte != '\r' && byte != '|')
                bytes.append(static_cast<char>(byte));
        const QByteArray line = "checkbox|" + bytes + "| 1| 2| 3| 4|" + bytes + "|b|none|False|-1|True";
        QCOMPARE(Left(Loaded, line), Fresh({line}));
        QCOMPARE(FormOf("checkbox|\x80\xE9|1|2|3|4|n|b").At({ControlKind::Checkbox, 1}).caption, u"\u20AC\u00E9"_s);
    }

    void aNulIsACharacterLikeAnyOther()
    {
        const QByteArray line = QByteArray("checkbox|a\0b", 12) + "| 1| 2| 3| 4|n|b|none|False|-1|True";
        QCOMPARE(Left(Loaded, line), Fresh({line}));
    }

    // --- Bitmaps. ---

    void aBitmapThatCannotBeLoadedFailsTheLoad_data()
    {
        QTest::addColumn<QByteArray>("path");
        QVERIFY(QDir().mkdir(u"folder"_s));
        Put("text.bmp", "10 PRINT \"no bitmap\"\r\n");
        Put("empty.bmp", {});
        Put("short.bmp", QByteArray("BM\x46\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\x04\0\0\0", 22));
        for (const char* path : {"gone.bmp", "folder", "folder/gone.bmp", "text.bmp", "empty.bmp", "short.bmp", " ",
                                 "/dev/zero", "\xFF\xFE", "BMPBTTN", "bmpbttn "})
            QTest::newRow(QByteArray(path).toPercentEncoding().constData()) << QByteArray(path);
        QTest::newRow("NUL") << QByteArray("text\0.bmp", 9);
    }

    void aBitmapThatCannotBeLoadedFailsTheLoad()
    {
        QFETCH(QByteArray, path);
        GuiForm form;
        QCOMPARE(ReadForm("menu|&File|\r\nbmpbutton|" + path + "|1|2|3|4|n|b\r\nmenu|&Edit|", form), Failed);
        const ControlRecord& control = form.At({ControlKind::Bmpbutton, 1});
        QVERIFY(!control.visible);
        QVERIFY(control.picture.IsNull());
        QCOMPARE(control.branch, u"b"_s);
        QCOMPARE(FileOf(form), Fresh({"menu|&File||none|none|none|none|none|none|False|-1|True"}));
    }

    void aPipeDoesNotBlock()
    {
#ifdef Q_OS_UNIX
        QCOMPARE(mkfifo("pipe.bmp", 0600), 0);
        // Releases a blocked reader after a while.
        std::atomic<bool> isRead = false;
        std::thread writer([&isRead] {
            for (int step = 0; step < 200 && !isRead; ++step)
                std::this_thread::sleep_for(std::chrono::milliseconds(10));
            const int end = isRead ? -1 : ::open("pipe.bmp", O_WRONLY | O_NONBLOCK);
            if (end >= 0)
                ::close(end);
        });
        QElapsedTimer time;
        time.start();
        GuiForm form;
        const FormLoad end = ReadForm("bmpbutton|pipe.bmp|1|2|3|4|n|b", form);
        const qint64 took = time.elapsed();
        isRead = true;
        writer.join();
        QCOMPARE(end, Failed);
        QVERIFY2(took < 1500, "the pipe was opened");
#else
        QSKIP("has no pipes in folders");
#endif
    }

    // --- What was in the form before. ---

    void readingClearsTheFormButNotItsWindow()
    {
        for (const char* file : {"", "corrupt", "menu"}) {
            GuiForm form =
                FormOf("Dialog|Old|1|2|3|4|old|0|f *8\r\nmenu|&Old|a\r\nbutton|B|1|2|3|4|n|b\r\nstatusbar|2|a|b");
            ReadForm(file, form);
            GuiForm expected;
            expected.GuiWindowType = u"Dialog"_s;
            expected.caption = u"Old"_s;
            expected.left = 1;
            expected.top = 2;
            expected.width = 3;
            expected.height = 4;
            expected.GuiHandleName = u"old"_s;
            expected.GuiFontName = u"f"_s;
            expected.GuiFontSize = u"8"_s;
            QVERIFY2(form == expected, file);
        }
    }

private:
    static void Put(const char* name, const QByteArray& bytes)
    {
        QFile file(QString::fromLatin1(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), bytes.size());
    }

    QTemporaryDir folder;
};

QTEST_APPLESS_MAIN(tst_modFormFileTrouble)
#include "tst_modFormFileTrouble.moc"
