// SPDX-License-Identifier: GPL-3.0-or-later
// "obtool write array", "messagebox", "menu" and "stylebits" as processes.
#include "obtool/RunObtool.h"

#include "codetools/MakerFiles.h"

#include <QTest>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

QStringList Words(std::initializer_list<const char*> words)
{
    QStringList texts;
    for (const char* word : words)
        texts.append(QString::fromUtf8(word));
    return texts;
}

Outcome Run(const QStringList& arguments)
{
    return RunObtool(QStringList{u"write"_s} + arguments);
}

void Row(const char* file, std::initializer_list<const char*> arguments, const char* note = "")
{
    QTest::newRow(file) << Words(arguments) << MakerBytes(file) << QByteArray(note);
}

} // namespace

class tst_toolWriteCode : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void anOptionMayBeEmpty()
    {
        const Outcome separate = Run({u"messagebox"_s, u"--title"_s, QString(), u"--message"_s, u"x"_s});
        const Outcome joined = Run({u"messagebox"_s, u"--title="_s, u"--message=x"_s});
        QCOMPARE(joined.status, 0);
        QVERIFY(joined.out.contains("\"Information\" as ptr"));
        QCOMPARE(joined.out, separate.out);
    }

    void theTextIsThatOfTheWindow_data();
    void theTextIsThatOfTheWindow();
    void eachListIsThatOfTheWindow();
    void workThatFailsReportsWhyOnOneLine_data();
    void workThatFailsReportsWhyOnOneLine();
    void wrongUsageIsStatus2_data();
    void wrongUsageIsStatus2();
    void whatTheCodePageLacksIsReported();
    void helpOpensWithTheUsage();
};

void tst_toolWriteCode::theTextIsThatOfTheWindow_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("note");
    Row("array/days.bas", {"array", "--name", "days", "Mon", "Tue"});
    // The window's question cannot be answered here.
    Row("array/no-items.bas", {"array", "--name", ""});
    Row("array/numeric.bas", {"array", "--numeric", "--name", "total", "1", "-2.5", "x + 1"});
    Row("array/numeric-dollar.bas", {"array", "--name=a$", "7", "--numeric"});
    Row("array/numeric-parenthesis.bas", {"array", "--name", "x$(foo", "5", ".5", "--numeric"});
    Row("array/string-both.bas", {"array", "--name", "days$(x", "--", "Mon", "Tue"});
    Row("array/parts.bas", {"array", "--name", "a$", "left|right", "", "|"});
    Row("array/unchanged.bas",
        {"array", "--name", "[a,b] c", "say \"hi\"", "  two  spaces ", "[open,close]", "Grüße", "{}", "a=b"});
    Row("messagebox/defaults.bas", {"messagebox"});
    Row("messagebox/critical-okcancel.bas",
        {"messagebox", "--icon", "critical", "--buttons", "okcancel", "--title", "Halt", "--message", "Stop?"});
    Row("messagebox/exclamation-yesno.bas",
        {"messagebox", "--icon", "exclamation", "--buttons", "yesno", "--title", "Only a title", "--message", ""});
    Row("messagebox/question-yesnocancel.bas", {"messagebox", "--icon", "question", "--buttons", "yesnocancel",
                                                "--title", "My \"title\"", "--message", "Save \"it\"?"});
    Row("messagebox/information-retrycancel.bas",
        {"messagebox", "--icon", "information", "--buttons", "retrycancel", "--message", "Only a message"});
    Row("messagebox/none-abortretryignore.bas", {"messagebox", "--icon", "none", "--buttons", "abortretryignore",
                                                 "--title", "[Grüße | spaces ]", "--message", " "});
    Row("menu/file.txt", {"menu", "--name", "File", "--handle", "#main", "Open=[open]", "Exit=[quit]"});
    Row("menu/no-items.txt", {"menu"});
    Row("menu/popup-no-items.txt", {"menu", "--popup", "--name", "File"});
    Row("menu/popup.txt", {"menu", "--popup", "Cut=cut", " | =nowhere", "Paste=[paste]"});
    Row("menu/numbered.txt", {"menu", "--name", " File ", "--handle", "main", "", "|", "  = three ", " Four = "});
    Row("menu/labels.txt", {"menu", "--name", "M", "a=[a b]", "b=my item", "c=[open", "d=shut]", "e=]shut", "f=a[b]c",
                            "g=  g  ", "h=x=y", "i=a  b."});
    Row("menu/handle.txt", {"menu", "--name", "Datei öffnen", "--handle", " my own window.ext ", "say \"hi\"=hi"});
    Row("stylebits/add.txt", {"stylebits", "Button", "WS_BORDER", "BS_MULTILINE", "BS_TOP", "BS_TOP"});
    Row("stylebits/remove.txt", {"stylebits", "StaticText", "--remove", "WS_VISIBLE"});
    Row("stylebits/add-extended.txt", {"stylebits", "--extended", "Dialog", "WS_EX_CLIENTEDGE", "WS_EX_TOPMOST"});
    Row("stylebits/remove-extended.txt", {"stylebits", "Window", "--extended", "--remove", "WS_EX_DLGMODALFRAME"});
    Row("stylebits/double-space.txt", {"stylebits", "Combobox", "CBS_SORT", "CBS_AUTOHSCROLL"});
}

void tst_toolWriteCode::theTextIsThatOfTheWindow()
{
    QFETCH(QStringList, arguments);
    const Outcome outcome = Run(arguments);
    QTEST(outcome.error, "note");
    QCOMPARE(outcome.status, 0);
    QTEST(outcome.out, "text");
}

void tst_toolWriteCode::eachListIsThatOfTheWindow()
{
    for (const char* object : {"Button", "Checkbox", "Combobox", "Dialog", "Graphicbox", "Groupbox", "Listbox",
                               "Radiobutton", "StaticText", "Textbox", "Window"}) {
        const QByteArray name = QByteArray("stylebits/") + object;
        const Outcome regular = Run(Words({"stylebits", object, "--list"}));
        QCOMPARE(regular.status, 0);
        QCOMPARE(regular.out, MakerBytes(name + ".list"));
        QCOMPARE(Run(Words({"stylebits", "--list", "--extended", object})).out, MakerBytes(name + "-extended.list"));
    }
}

void tst_toolWriteCode::workThatFailsReportsWhyOnOneLine_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("error");
    QTest::newRow("no bit") << Words({"stylebits", "Button"}) << QByteArray("Button: No stylebits are selected.");
    QTest::newRow("another object's bit")
        << Words({"stylebits", "Button", "BS_TOP", "LBS_SORT"}) << QByteArray("LBS_SORT: the list of Button lacks it");
    QTest::newRow("another case") << Words({"stylebits", "Button", "bs_top"})
                                  << QByteArray("bs_top: the list of Button lacks it");
    QTest::newRow("a regular bit of the extended list") << Words({"stylebits", "Window", "--extended", "WS_BORDER"})
                                                        << QByteArray("WS_BORDER: the list of Window lacks it");
    QTest::newRow("an entry in place of its name") << Words({"stylebits", "Window", "WS_BORDER = has border"})
                                                   << QByteArray("WS_BORDER = has border: the list of Window lacks it");
    QTest::newRow("an empty name") << Words({"stylebits", "Window", ""}) << QByteArray(": the list of Window lacks it");
    QTest::newRow("a static text's bit") << Words({"stylebits", "StaticText", "SS_CENTER"})
                                         << QByteArray("SS_CENTER: the list of StaticText lacks it");
}

void tst_toolWriteCode::workThatFailsReportsWhyOnOneLine()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, error);
    const Outcome outcome = Run(arguments);
    QCOMPARE(outcome.status, 1);
    QCOMPARE(outcome.out, QByteArray());
    QCOMPARE(outcome.error, "obtool: " + error + "\n");
}

void tst_toolWriteCode::wrongUsageIsStatus2_data()
{
    QTest::addColumn<QStringList>("arguments");
    const auto row = [](const char* name, std::initializer_list<const char*> arguments) {
        QTest::newRow(name) << Words(arguments);
    };
    row("an array without a name", {"array", "Mon"});
    row("an array's unknown option", {"array", "--name", "x", "--string"});
    row("an unknown icon", {"messagebox", "--icon", "16"});
    row("an icon in capitals", {"messagebox", "--icon", "Question"});
    row("unknown buttons", {"messagebox", "--buttons", "okay"});
    row("a message box with an argument", {"messagebox", "hello"});
    row("a menu's unknown option", {"menu", "--regular"});
    row("no object", {"stylebits"});
    row("an unknown object", {"stylebits", "Menu", "WS_BORDER"});
    row("the spelling that the box lacks", {"stylebits", "Statictext", "WS_BORDER"});
    row("an object in lower case", {"stylebits", "window", "--list"});
    row("list and bits", {"stylebits", "Window", "--list", "WS_BORDER"});
}

void tst_toolWriteCode::wrongUsageIsStatus2()
{
    QFETCH(QStringList, arguments);
    const Outcome outcome = Run(arguments);
    QCOMPARE(outcome.status, 2);
    QCOMPARE(outcome.out, QByteArray());
    const QByteArray usage = "\nusage: obtool write " + arguments[0].toLatin1() + ' ';
    QVERIFY2(outcome.error.contains(usage), outcome.error.constData());
}

void tst_toolWriteCode::whatTheCodePageLacksIsReported()
{
    const Outcome outcome = Run(Words({"menu", "--popup", "日=x"}));
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.out, QByteArray("Popupmenu  \"?\", [x]"));
    QCOMPARE(outcome.error, QByteArray("obtool: note: Characters that the code page lacks became question marks.\n"));
}

void tst_toolWriteCode::helpOpensWithTheUsage()
{
    for (const char* verb : {"array", "messagebox", "menu", "stylebits"}) {
        const Outcome outcome = Run(Words({verb, "--help"}));
        QCOMPARE(outcome.status, 0);
        QVERIFY2(outcome.out.contains(QByteArray("\nusage: obtool write ") + verb + ' '), outcome.out.constData());
    }
}

QTEST_GUILESS_MAIN(tst_toolWriteCode)
#include "tst_toolWriteCode.moc"
