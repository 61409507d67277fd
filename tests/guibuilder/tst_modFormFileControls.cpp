// SPDX-License-Identifier: GPL-3.0-or-later
// Controls and status bar panels in form files: each kind's line read and written, and what the save fills in.
#include "guibuilder/modFormFile.h"

#include "guibuilder/FormLines.h"
#include "platform/language/cRuntimeError.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

using namespace ob;

class tst_modFormFileControls : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // --- Controls. ---

    void eachKindHasItsLine_data()
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

    void eachKindHasItsLine()
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

    void theReaderTakesNumbersInBothForms()
    {
        const QByteArray start = "|none|15| 30| -45 |4.5e2|t|none|none";
        QCOMPARE(FileOf(FormOf(Joined({"texteditor" + start, "textbox" + start}))),
                 Fresh({"textbox|none| 15| 30|-45| 450|t|none|none|False|-1|True",
                        "texteditor|none|15|30|-45|450|t|none|none|False|-1|True"}));
    }

    void numbersAreWrittenAsSinglesInTwoForms_data()
    {
        QTest::addColumn<float>("number");
        QTest::addColumn<QByteArray>("spaced");
        QTest::addColumn<QByteArray>("plain");
        const auto row = [](float number, const char* spaced, const char* plain) {
            QTest::newRow(plain) << number << QByteArray(spaced) << QByteArray(plain);
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

    void numbersAreWrittenAsSinglesInTwoForms()
    {
        QFETCH(float, number);
        QFETCH(QByteArray, spaced);
        QFETCH(QByteArray, plain);
        for (const ControlKind kind : {ControlKind::Textbox, ControlKind::Texteditor}) {
            GuiForm form = FormWith(kind);
            ControlRecord& control = form.At({kind, 1});
            control.left = control.top = control.width = control.height = number;
            const QByteArrayList fields = FileOf(form).split('\n')[2].split('|');
            const QByteArray expected = kind == ControlKind::Texteditor ? plain : spaced;
            QCOMPARE(fields.mid(2, 4), (QByteArrayList{expected, expected, expected, expected}));
        }
    }

    void emptyNamesAndBranchesAreFilledAndStay_data()
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

    void emptyNamesAndBranchesAreFilledAndStay()
    {
        QFETCH(int, kind);
        QFETCH(QByteArray, branch);
        const ControlRef ref{static_cast<ControlKind>(kind), 2};
        GuiForm form = FormWith(ref.kind, 2);
        form.List(ref.kind)[1].visible = false;
        const QString first = SavedText(form);
        QCOMPARE(form.At(ref).tag, LatinText(TraitsOf(ref.kind).keyword) + u'2');
        QCOMPARE(form.At(ref).branch.toLatin1(), branch);
        QCOMPARE(form.List(ref.kind)[1].tag, QString());
        QCOMPARE(SavedText(form), first);
    }

    void aBranchIsTrimmedButNotThatOfAGraphicbox()
    {
        for (const ControlKind kind : {ControlKind::Bmpbutton, ControlKind::Button, ControlKind::Listbox,
                                       ControlKind::Combobox, ControlKind::Radiobutton, ControlKind::Checkbox}) {
            GuiForm form = FormWith(kind);
            form.At({kind, 1}).branch = u"  go "_s;
            QVERIFY(SavedText(form).contains(u"1|go|none|False"_s));
            QCOMPARE(form.At({kind, 1}).branch, u"go"_s);
            form.At({kind, 1}).branch = u"  "_s;
            QVERIFY(SavedText(form).contains(u"1||none|False"_s));
        }
        GuiForm form = FormWith(ControlKind::Graphicbox);
        for (const QString& branch : {u" N/A "_s, QString()}) {
            form.At({ControlKind::Graphicbox, 1}).branch = branch;
            QVERIFY(SavedText(form).contains(u"|graphicbox1|%1|16777215|"_s.arg(branch)));
        }
    }

    void aTagIsWrittenUnchanged()
    {
        GuiForm form = FormWith(ControlKind::Button);
        for (const QString& tag : {u" ok  * tip "_s, u" "_s, u" *tip"_s}) {
            form.At({ControlKind::Button, 1}).tag = tag;
            QVERIFY(SavedText(form).contains(u"| 450|%1|button1.click|"_s.arg(tag)));
        }
    }

    void deletedControlsAreGoneAndTheRestRenumberedAfterReading()
    {
        GuiForm form = FormWith(ControlKind::Button, 3);
        form.List(ControlKind::Button)[1].visible = form.List(ControlKind::Button)[2].visible = false;
        const QByteArray file = FileOf(form);
        QCOMPARE(file.count("\r\nbutton|"), 1);
        QVERIFY(file.contains("|button3|button3.click|"));
        form = FormOf(file);
        QCOMPARE(form.List(ControlKind::Button).size(), std::size_t{2});
        QCOMPARE(form.At({ControlKind::Button, 1}).tag, u"button3"_s);

        form.List(ControlKind::Button)[1].visible = false;
        QCOMPARE(FileOf(form), Fresh({}));
        form = FormOf(FileOf(form));
        QCOMPARE(AddControl(form, ControlKind::Button).index, 1);
    }

    void controlsStackInFileOrder()
    {
        const GuiForm form = FormOf("checkbox|c|0|0|0|0|n|b\r\nbutton|c|0|0|0|0|n|b\r\ncheckbox|c|0|0|0|0|n|b\r\n");
        QCOMPARE(form.order, (std::vector<ControlRef>{
                                 {ControlKind::Checkbox, 1}, {ControlKind::Button, 1}, {ControlKind::Checkbox, 2}}));
    }

    void aBmpbuttonShowsItsBitmap()
    {
        QTemporaryDir folder;
        QImage image(3, 2, QImage::Format_RGB32);
        image.fill(Qt::red);
        QVERIFY(image.save(folder.filePath(u"red.bmp"_s), "BMP"));
        const QString before = QDir::currentPath();
        const auto pictureOf = [](const QByteArray& path) {
            return FormOf("bmpbutton|" + path + "|0|0|0|0|n|b").At({ControlKind::Bmpbutton, 1}).picture.Image();
        };
        QDir::setCurrent(folder.path());
        const QImage relative = pictureOf("red.bmp");
        const GuiForm two = FormOf("bmpbutton|red.bmp|0|0|0|0|n|b\r\nbmpbutton|red.bmp|0|0|0|0|n|b");
        QDir::setCurrent(before);
        QCOMPARE(relative.size(), QSize(3, 2));
        QCOMPARE(relative.pixel(2, 1), 0xFFFF0000U);
        QCOMPARE(pictureOf(QFile::encodeName(folder.filePath(u"red.bmp"_s))), relative);
        QCOMPARE(two.At({ControlKind::Bmpbutton, 1}).picture.Image(), relative);
        QCOMPARE(two.At({ControlKind::Bmpbutton, 2}).picture.Image(), relative);
        QVERIFY(pictureOf("").isNull());
        QVERIFY(pictureOf("bmpbttn").isNull());
    }

    // --- Status bar. ---

    void panelsFillTheFieldsFromTheSecondOn_data()
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

    void panelsFillTheFieldsFromTheSecondOn()
    {
        QFETCH(QByteArray, line);
        const QByteArrayList fields = line.split('|');
        // A control before them leaves "none" in the fields that the panels do not reach.
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

    void elevenPanelsAreTooMany()
    {
        GuiForm form;
        form.panels.resize(11);
        QCOMPARE(FileOf(form), Fresh({}));
        form.GuiStatusbarOn = true;
        bool isRaised = false;
        try {
            SavedText(form);
        } catch (const RuntimeError& error) {
            isRaised = true;
            QCOMPARE(error.number, 9);
        }
        QVERIFY(isRaised);
    }

    void theStatusbarLineSetsTheNumberOfPanels_data()
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
        QTest::newRow("with spaces") << QByteArray("statusbar| 2 |a|b") << QByteArray("a,b");
        QTest::newRow("halves to the even neighbour") << QByteArray("statusbar|2.5|a|b") << QByteArray("a,b");
        QTest::newRow("many") << QByteArray("statusbar|13|a|b|c|d|e|f|g|h|i|j|k|l|m")
                              << QByteArray("a,b,c,d,e,f,g,h,i,j,k,l,m");
        QTest::newRow("fewer again") << QByteArray("statusbar|3|a|b|c\r\nstatusbar|2|d|e") << QByteArray("d,e");
        QTest::newRow("more again") << QByteArray("statusbar|1|a\r\nstatusbar|2|d|e") << QByteArray("d,e");
    }

    void theStatusbarLineSetsTheNumberOfPanels()
    {
        QFETCH(QByteArray, lines);
        QStringList panels;
        for (const QString& panel : FormOf(lines).panels)
            panels.append(panel);
        QTEST(panels.join(u',').toLatin1(), "panels");
    }
};

QTEST_APPLESS_MAIN(tst_modFormFileControls)
#include "tst_modFormFileControls.moc"
