// SPDX-License-Identifier: GPL-3.0-or-later
// Generated programs, control by control: statements, lists, fonts, stubs, tool tips, and what is filled in.
#include "guibuilder/modGenerator.h"

#include "guibuilder/ProgramText.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

constexpr ProgramKind Outline = ProgramKind::Outline;
constexpr ProgramKind Simple = ProgramKind::Simple;
constexpr ProgramKind BothKinds[] = {Outline, Simple};

// A window without menus, with one control of the kind as its second; the first was deleted.
GuiForm Second(ControlKind kind, const char* windowType = "Window")
{
    GuiForm form = FormWith(kind, 2);
    form.List(kind)[1].visible = false;
    form.GuiWindowType = QString::fromLatin1(windowType);
    form.GuiMenuOn = false;
    ControlRecord& control = form.At({kind, 2});
    control.left = 150;
    control.top = 29.5F;
    control.width = 1514;
    control.height = -1;
    control.caption = u"The Text"_s;
    return form;
}

// The control's lines between those of the window.
QByteArray OpenedOf(const ProgramParts& parts)
{
    QByteArray opened = parts.opened;
    return opened.replace("    #main \"font ms_sans_serif 10\"\r\n\r\n", "")
        .replace("    #main \"down; fill Buttonface; flush\"\r\n    #main \"font ms_sans_serif 10\"\r\n"
                 "    #main \"setfocus; when mouseMove [MouseChange]\"\r\n",
                 "");
}

} // namespace

class tst_modGeneratorControls : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // --- Statements. ---

    void eachKindHasItsStatement_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QByteArray>("outline");
        QTest::addColumn<QByteArray>("simple");
        const auto row = [](ControlKind kind, const char* outline, const char* simple = nullptr) {
            QTest::newRow(LatinText(TraitsOf(kind).keyword).toLatin1().constData())
                << static_cast<int>(kind) << QByteArray(outline) + "\r\n"
                << QByteArray(simple == nullptr ? outline : simple) + "\r\n";
        };
        row(ControlKind::Graphicbox, "graphicbox  #main.graphicbox2, 10, 1, 100,-1");
        row(ControlKind::Groupbox, "groupbox    #main.group2, \"The Text\", 10, 1, 100,-1");
        row(ControlKind::Statictext, "statictext  #main.static2, \"The Text\", 10, 1, 100,-1");
        row(ControlKind::Button, "button      #main.button2, \"The Text\", [button2.click], UL, 10, 1, 100,-1",
            "button      #main.button2, \"The Text\",[button2.click],UL, 10, 1, 100,-1");
        row(ControlKind::Bmpbutton, "bmpbutton   #main.bmpbutton2, \"The Text\",[bmpbutton2.click],UL, 10, 1");
        row(ControlKind::Textbox, "textbox     #main.textbox2, 10, 1, 100,-1");
        row(ControlKind::Texteditor, "texteditor  #main.texteditor2, 10, 1, 100,-1");
        row(ControlKind::Radiobutton, "radiobutton #main.radio2, \"The Text\",[radio2.click],[loop], 10, 1, 100,-1");
        row(ControlKind::Checkbox,
            "checkbox    #main.check2, \"The Text\",[checkbox2.click],[checkbox2.reset], 10, 1, 100,-1");
        row(ControlKind::Listbox, "listbox     #main.list2, List2$(),[list2.click], 10, 1, 100,-1");
        row(ControlKind::Combobox, "combobox    #main.combo2,Combo2$(),[combo2.click], 10, 1, 100, 300");
    }

    void eachKindHasItsStatement()
    {
        QFETCH(int, kind);
        const auto controlKind = static_cast<ControlKind>(kind);
        GuiForm form = Second(controlKind);
        QTEST(PartsOf(form, Outline).controls, "outline");
        form = Second(controlKind);
        QTEST(PartsOf(form, Simple).controls, "simple");
        if (controlKind == ControlKind::Groupbox)
            return;
        form.GuiWindowType = u"Graphics_nsb"_s;
        QTEST(PartsOf(form, Outline).controls, "outline");
        QTEST(PartsOf(form, Simple).controls, "simple");
    }

    void aGroupboxInAGraphicsWindowIsAComment()
    {
        for (const ProgramKind kind : BothKinds) {
            GuiForm form = Second(ControlKind::Groupbox, "Graphics_nf_nsb");
            QCOMPARE(PartsOf(form, kind).controls,
                     QByteArray("'***You have attempted to add a groupbox to a graphics window.\r\n"
                                "'***Graphics windows may not contain groupboxes.\r\n"));
            QCOMPARE(form.At({ControlKind::Groupbox, 2}).tag, u"group2"_s);
        }
    }

    void kindsFollowInOneOrderAndSkipTheDeleted()
    {
        for (const ProgramKind kind : BothKinds) {
            GuiForm form;
            form.GuiMenuOn = false;
            for (int round = 1; round <= 3; ++round)
                for (const KindTraits& traits : KindTable)
                    form.At(AddControl(form, traits.kind)).visible = round != 2;
            QByteArrayList words;
            for (const QByteArray& line : PartsOf(form, kind).controls.split('\n'))
                words.append(line.left(4));
            QCOMPARE(words.join(' '),
                     QByteArray("grap grap grou grou stat stat butt butt bmpb bmpb text text text text "
                                "radi radi chec chec list list comb comb "));
            QVERIFY(PartsOf(form, kind)
                        .controls.contains("#main.static1, \"\", 0, 0, 80, 30\r\nstatictext  #main.static3"));
        }
    }

    void textsAreWrittenUnchanged()
    {
        GuiForm form = Second(ControlKind::Button);
        form.At({ControlKind::Button, 2}).caption = u"%B \"q\" %%"_s;
        form.At({ControlKind::Button, 2}).tag = u"%N"_s;
        form.At({ControlKind::Button, 2}).branch = u"%H"_s;
        QCOMPARE(PartsOf(form, Simple).controls,
                 QByteArray("button      #main.%N, \"%B \"q\" %%\",[%H],UL, 10, 1, 100,-1\r\n"));
    }

    void numbersHaveALeadingSpaceOrASign_data()
    {
        QTest::addColumn<float>("twips");
        QTest::addColumn<QByteArray>("pixels");
        const auto row = [](float twips, const char* pixels) {
            QTest::addRow("%g", static_cast<double>(twips)) << twips << QByteArray(pixels);
        };
        row(0, " 0");
        row(14.9F, " 0");
        row(15, " 1");
        row(29.99F, " 1");
        row(-0.1F, "-1");
        row(-15, "-1");
        row(-15.5F, "-2");
        row(1.5e8F, " 1E+07");
        row(-1.5e9F, "-1E+08");
    }

    void numbersHaveALeadingSpaceOrASign()
    {
        QFETCH(float, twips);
        QFETCH(QByteArray, pixels);
        GuiForm form = Second(ControlKind::Textbox);
        ControlRecord& control = form.At({ControlKind::Textbox, 2});
        control.left = control.top = control.width = control.height = twips;
        QCOMPARE(PartsOf(form, Outline).controls,
                 "textbox     #main.textbox2," + pixels + ',' + pixels + ',' + pixels + ',' + pixels + "\r\n");
    }

    // --- Lists, lines after the open statement, stubs. ---

    void listsHaveContentsInBothKinds()
    {
        const QByteArray contents =
            "    DIM X2$(10)\r\n    X2$(1) = \"First Item\"\r\n    X2$(2) = \"Second Item\"\r\n";
        for (const ProgramKind kind : BothKinds)
            for (const KindTraits& traits : KindTable) {
                GuiForm form = Second(traits.kind);
                const QByteArray expected =
                    traits.kind == ControlKind::Listbox    ? QByteArray(contents).replace('X', "List")
                    : traits.kind == ControlKind::Combobox ? QByteArray(contents).replace('X', "Combo")
                                                           : QByteArray();
                QCOMPARE(PartsOf(form, kind).lists, expected);
            }
    }

    void theOutlineSetsFontsInGraphicsWindowsOnly_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QByteArray>("inWindow");
        QTest::addColumn<QByteArray>("inGraphics");
        const auto row = [](ControlKind kind, const char* inWindow, const char* inGraphics) {
            QTest::newRow(LatinText(TraitsOf(kind).keyword).toLatin1().constData())
                << static_cast<int>(kind) << QByteArray(inWindow) << QByteArray(inGraphics);
        };
        row(ControlKind::Graphicbox,
            "    #main.graphicbox2 \"down; fill White; flush\"\r\n"
            "    #main.graphicbox2 \"setfocus; when mouseMove [MouseChange2]\"\r\n",
            "    #main.graphicbox2 \"font ms_sans_serif 10\"\r\n"
            "    #main.graphicbox2 \"down; fill White; flush\"\r\n"
            "    #main.graphicbox2 \"setfocus; when mouseMove [MouseChange2]\"\r\n");
        row(ControlKind::Groupbox, "", "");
        row(ControlKind::Statictext, "", "    #main.static2 \"!font ms_sans_serif 10\"\r\n");
        row(ControlKind::Button, "", "    #main.button2 \"!font ms_sans_serif 10\"\r\n");
        row(ControlKind::Bmpbutton, "", "");
        row(ControlKind::Textbox, "", "    #main.textbox2 \"!font ms_sans_serif 10\"\r\n");
        row(ControlKind::Texteditor, "", "    #main.texteditor2 \"!font ms_sans_serif 10\"\r\n");
        row(ControlKind::Radiobutton, "", "    #main.radio2 \"font ms_sans_serif 10\"\r\n");
        row(ControlKind::Checkbox, "", "    #main.check2 \"font ms_sans_serif 10\"\r\n");
        row(ControlKind::Listbox, "    #main.list2 \"selectindex 1\"\r\n",
            "    #main.list2 \"selectindex 1\"\r\n    #main.list2 \"font ms_sans_serif 10\"\r\n");
        row(ControlKind::Combobox, "    #main.combo2 \"selectindex 1\"\r\n",
            "    #main.combo2 \"selectindex 1\"\r\n    #main.combo2 \"font ms_sans_serif 10\"\r\n");
    }

    void theOutlineSetsFontsInGraphicsWindowsOnly()
    {
        QFETCH(int, kind);
        const auto controlKind = static_cast<ControlKind>(kind);
        for (const char* type : {"Window", "Window_nf", "Dialog", "Dialog_modal"}) {
            GuiForm form = Second(controlKind, type);
            QTEST(OpenedOf(PartsOf(form, Outline)), "inWindow");
            QCOMPARE(OpenedOf(PartsOf(form, Simple)), QByteArray());
        }
        for (const char* type : {"Graphics_nsb", "Graphics_nf_nsb"}) {
            GuiForm form = Second(controlKind, type);
            QTEST(OpenedOf(PartsOf(form, Outline)), "inGraphics");
            QCOMPARE(OpenedOf(PartsOf(form, Simple)), QByteArray());
        }
    }

    void aGraphicboxIsFilledWithItsColorsName()
    {
        GuiForm form = Second(ControlKind::Graphicbox);
        const auto fill = [&](ColorRef color) {
            form.At({ControlKind::Graphicbox, 2}).backColor = color;
            const QByteArray opened = PartsOf(form, Outline).opened;
            const qsizetype start = opened.indexOf("fill ") + 5;
            return opened.mid(start, opened.indexOf(';', start) - start);
        };
        for (std::size_t color = 0; color < ColorName.size(); ++color)
            QCOMPARE(QString::fromLatin1(fill(ColorValue[color])), LatinText(ColorName[color]));
        QCOMPARE(fill(Rgb(1, 2, 3)), QByteArray());
    }

    void theOutlineHasStubs_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QByteArray>("branchs"); // of the control's branch
        QTest::addColumn<QByteArray>("others");
        const auto row = [](ControlKind kind, const char* branchs, const char* others) {
            QTest::newRow(LatinText(TraitsOf(kind).keyword).toLatin1().constData())
                << static_cast<int>(kind) << QByteArray(branchs) << QByteArray(others);
        };
        row(ControlKind::Graphicbox, "",
            "[MouseChange2]\r\n    'MouseX and MouseY contain mouse coordinates\r\n    wait\r\n\r\n");
        for (const ControlKind kind :
             {ControlKind::Groupbox, ControlKind::Statictext, ControlKind::Textbox, ControlKind::Texteditor})
            row(kind, "", "");
        row(ControlKind::Button, "[go]\r\n    'place code here\r\n    wait\r\n\r\n", "");
        row(ControlKind::Bmpbutton, "[go]\r\n    'place code here\r\n    wait\r\n\r\n", "");
        row(ControlKind::Radiobutton, "[go]\r\n    #main.it \"value? result$\"\r\n    wait\r\n\r\n", "");
        row(ControlKind::Checkbox, "[go]\r\n    #main.it \"value? result$\"\r\n    wait\r\n\r\n",
            "[checkbox2.reset]\r\n    'place code here\r\n    wait\r\n\r\n");
        row(ControlKind::Listbox, "[go]\r\n    #main.it \"selection? selected$\"\r\n    wait\r\n\r\n", "");
        row(ControlKind::Combobox, "[go]\r\n    #main.it \"selection? selected$\"\r\n    wait\r\n\r\n", "");
    }

    void theOutlineHasStubs()
    {
        QFETCH(int, kind);
        QFETCH(QByteArray, branchs);
        QFETCH(QByteArray, others);
        const ControlRef ref{static_cast<ControlKind>(kind), 2};
        GuiForm form = Second(ref.kind);
        form.At(ref).tag = u" it  *tip"_s;
        for (const char* branch : {"go", "[go", "go]", "[go]"}) {
            form.At(ref).branch = QString::fromLatin1(branch);
            QCOMPARE(PartsOf(form, Outline).stubs, branchs + others);
        }
        for (const char* branch : {"quit", "[quit]"}) {
            form.At(ref).branch = QString::fromLatin1(branch);
            QCOMPARE(PartsOf(form, Outline).stubs, others);
        }
        form.At(ref).branch = u"[QUIT]"_s;
        QCOMPARE(PartsOf(form, Outline).stubs, branchs.replace("[go]", "[QUIT]") + others);
        QCOMPARE(PartsOf(form, Simple).stubs, QByteArray());
    }

    void aButtonThatQuitsStillNamesTheLabel()
    {
        GuiForm form = Second(ControlKind::Button);
        form.At({ControlKind::Button, 2}).branch = u"[quit]"_s;
        const QByteArray program = ProgramOf(form, Outline);
        QVERIFY(program.contains("\"The Text\", [quit], UL,"));
        QCOMPARE(program.count("\r\n[quit]\r\n"), 1);
    }

    void resetStubsAreNamedByTheIndex()
    {
        GuiForm form = FormWith(ControlKind::Checkbox, 2);
        form.At({ControlKind::Checkbox, 1}).branch = u"[quit]"_s;
        form.At({ControlKind::Checkbox, 2}).branch = u"[x]"_s;
        QCOMPARE(PartsOf(form, Outline).stubs,
                 QByteArray("[checkbox1.reset]\r\n    'place code here\r\n    wait\r\n\r\n"
                            "[x]\r\n    #main.check2 \"value? result$\"\r\n    wait\r\n\r\n"
                            "[checkbox2.reset]\r\n    'place code here\r\n    wait\r\n\r\n"));
    }

    // --- Names, tool tips, branches. ---

    void anEmptyNameIsFilledButNotKept_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QByteArray>("tooltip");
        QTest::addColumn<QByteArray>("branch");
        const auto row = [](ControlKind kind, const char* name, const char* tooltip, const char* branch) {
            QTest::newRow(name) << static_cast<int>(kind) << QByteArray(name) << QByteArray(tooltip)
                                << QByteArray(branch);
        };
        row(ControlKind::Button, "button2", "Button Tooltip", "[button2.click]");
        row(ControlKind::Bmpbutton, "bmpbutton2", "BmpButton Tooltip", "[bmpbutton2.click]");
        row(ControlKind::Statictext, "static2", "", "");
        row(ControlKind::Textbox, "textbox2", "Enter text here.", "");
        row(ControlKind::Texteditor, "texteditor2", "Right-click for an edit menu.", "");
        row(ControlKind::Checkbox, "check2", "Select desired options.", "[checkbox2.click]");
        row(ControlKind::Radiobutton, "radio2", "Choose one option.", "[radio2.click]");
        row(ControlKind::Listbox, "list2", "Click here to make a choice from the list.", "[list2.click]");
        row(ControlKind::Combobox, "combo2", "Click arrow button to see a list of choices.", "[combo2.click]");
        row(ControlKind::Graphicbox, "graphicbox2", "GraphicBox Tooltip", "");
    }

    void anEmptyNameIsFilledButNotKept()
    {
        QFETCH(int, kind);
        QFETCH(QByteArray, name);
        QFETCH(QByteArray, tooltip);
        QFETCH(QByteArray, branch);
        const ControlRef ref{static_cast<ControlKind>(kind), 2};
        for (const ProgramKind programKind : BothKinds)
            for (const char* tag : {"", " ", " *", "  *Tip", "own *", "own *Tip"}) {
                GuiForm form = Second(ref.kind);
                form.GuiTooltipsOn = true;
                form.At(ref).tag = QString::fromLatin1(tag);
                const QByteArray program = ProgramOf(form, programKind);
                QCOMPARE(form.At(ref).tag, QString::fromLatin1(tag));
                QCOMPARE(form.At(ref).branch.toLatin1(), branch);
                const QByteArray used = "#main." + (QByteArray(tag).contains("own") ? QByteArray("own") : name);
                QVERIFY2(program.contains(" " + used + ","), program.constData());
                const QByteArray tip = QByteArray(tag).contains("Tip") ? QByteArray("Tip") : tooltip;
                QCOMPARE(program.count("'*** CHANGE TOOLTIP"), tooltip.isEmpty() ? 0 : 1);
                if (!tooltip.isEmpty()) {
                    QVERIFY(program.contains("hwnd(" + used + ")\r\n"));
                    QVERIFY(program.contains(".struct = \"" + tip + "\"  '*** CHANGE TOOLTIP"));
                }
            }
    }

    void aGroupboxsNameIsKept_data()
    {
        QTest::addColumn<QByteArray>("tag");
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QByteArray>("kept");
        QTest::newRow("empty") << QByteArray() << QByteArray("group2") << QByteArray("group2");
        QTest::newRow("a tool tip alone") << QByteArray(" *tip") << QByteArray("static2") << QByteArray(" *tip");
        QTest::newRow("a name") << QByteArray("own") << QByteArray("own") << QByteArray("own");
        QTest::newRow("both") << QByteArray(" own  *tip") << QByteArray("own") << QByteArray(" own  *tip");
    }

    void aGroupboxsNameIsKept()
    {
        QFETCH(QByteArray, tag);
        QFETCH(QByteArray, name);
        for (const ProgramKind kind : BothKinds) {
            GuiForm form = Second(ControlKind::Groupbox);
            form.GuiTooltipsOn = true;
            form.At({ControlKind::Groupbox, 2}).tag = QString::fromLatin1(tag);
            const QByteArray program = ProgramOf(form, kind);
            QVERIFY(program.contains("groupbox    #main." + name + ", \"The Text\","));
            QVERIFY(!program.contains("CHANGE TOOLTIP"));
            QTEST(form.At({ControlKind::Groupbox, 2}).tag.toLatin1(), "kept");
        }
    }

    void aBranchIsBracketedInTheFormToo()
    {
        GuiForm form = Second(ControlKind::Listbox);
        form.At({ControlKind::Listbox, 2}).branch = u" go "_s;
        QVERIFY(PartsOf(form, Simple).controls.contains("List2$(),[ go ], 10"));
        QCOMPARE(form.At({ControlKind::Listbox, 2}).branch, u"[ go ]"_s);
    }

    void aGraphicboxsBranchStaysAsItIs()
    {
        GuiForm form = Second(ControlKind::Graphicbox);
        for (const QString& branch : {u"N/A"_s, QString()}) {
            form.At({ControlKind::Graphicbox, 2}).branch = branch;
            QVERIFY(!ProgramOf(form, Outline).contains("N/A"));
            QCOMPARE(form.At({ControlKind::Graphicbox, 2}).branch, branch);
        }
    }

    void theFirstOfSaveAndCompilationDecidesARadiobuttonsBranch()
    {
        const ControlRef ref{ControlKind::Radiobutton, 1};
        GuiForm generatedFirst = FormWith(ref.kind);
        ProgramOf(generatedFirst, Outline);
        SavedText(generatedFirst);
        QCOMPARE(generatedFirst.At(ref).branch, u"[radio1.click]"_s);
        QCOMPARE(generatedFirst.At(ref).tag, u"radiobutton1"_s);

        GuiForm savedFirst = FormWith(ref.kind);
        SavedText(savedFirst);
        QCOMPARE(savedFirst.At(ref).branch, u"radiobutton1.click"_s);
        QVERIFY(ProgramOf(savedFirst, Outline).contains("#main.radiobutton1, \"\",[radiobutton1.click],[loop],"));
        QCOMPARE(savedFirst.At(ref).branch, u"[radiobutton1.click]"_s);
    }

    void generatingTwiceGivesTheSameProgram()
    {
        GuiForm form;
        for (const KindTraits& traits : KindTable)
            form.At(AddControl(form, traits.kind)).visible = true;
        form.GuiTooltipsOn = true;
        const QByteArray first = ProgramOf(form, Outline);
        QCOMPARE(ProgramOf(form, Outline), first);
    }

    // --- Bitmaps. ---

    void aBmpbuttonWithoutAFileIsReported_data()
    {
        QTest::addColumn<QStringList>("captions"); // "-": a deleted button
        QTest::addColumn<bool>("isMissing");
        const QString here = u"here.bmp"_s;
        QTest::newRow("no bmpbutton") << QStringList{} << false;
        QTest::newRow("a file") << QStringList{here} << false;
        QTest::newRow("two files") << QStringList{here, u"text.txt"_s} << false;
        QTest::newRow("placeholder") << QStringList{u"bmpbttn"_s} << true;
        QTest::newRow("empty") << QStringList{QString()} << true;
        QTest::newRow("gone") << QStringList{u"gone.bmp"_s} << true;
        QTest::newRow("a folder") << QStringList{u"."_s} << true;
        QTest::newRow("the last of three") << QStringList{here, here, u"x"_s} << true;
        QTest::newRow("the first of three") << QStringList{u"x"_s, here, here} << true;
        QTest::newRow("a deleted one") << QStringList{u"-"_s, here} << false;
    }

    void aBmpbuttonWithoutAFileIsReported()
    {
        QFETCH(QStringList, captions);
        QTemporaryDir folder;
        const QString before = QDir::currentPath();
        QDir::setCurrent(folder.path());
        for (const char* name : {"here.bmp", "text.txt"})
            QVERIFY(QFile(QString::fromLatin1(name)).open(QIODevice::WriteOnly));
        GuiForm form = FormWith(ControlKind::Bmpbutton, static_cast<int>(captions.size()));
        for (qsizetype place = 0; place < captions.size(); ++place) {
            ControlRecord& control = form.At({ControlKind::Bmpbutton, static_cast<int>(place) + 1});
            control.caption = captions[place];
            control.visible = captions[place] != QLatin1String("-");
        }
        for (const ProgramKind kind : BothKinds)
            QTEST(Compiled(form, kind, {}).bitmapMissing, "isMissing");
        QDir::setCurrent(before);
    }
};

QTEST_APPLESS_MAIN(tst_modGeneratorControls)
#include "tst_modGeneratorControls.moc"
