// SPDX-License-Identifier: GPL-3.0-or-later
// The console: columns, questions, and the host on the standard streams.
#include "orchard/library/LibraryTest.h"

#include <QDateTime>
#include <QFile>
#include <QTemporaryDir>

#include <unistd.h>

#include "orchard/library/cScriptedHost.h"
#include "orchard/library/cTextHost.h"

using namespace ob::basic;
using namespace Qt::StringLiterals;

namespace {

// Puts files in the place of the standard streams.
class cStreams {
public:
    explicit cStreams(const QByteArray& typed) : oldInput(::dup(0)), oldOutput(::dup(1))
    {
        QFile in(folder.filePath(u"in"_s));
        if (in.open(QIODevice::WriteOnly))
            in.write(typed);
        in.close();
        (void)!::freopen(in.fileName().toUtf8().constData(), "r", stdin);
        (void)!::freopen(folder.filePath(u"out"_s).toUtf8().constData(), "w", stdout);
    }
    ~cStreams()
    {
        ::dup2(oldInput, 0);
        ::dup2(oldOutput, 1);
        ::close(oldInput);
        ::close(oldOutput);
    }
    QByteArray Written() const
    {
        QFile out(folder.filePath(u"out"_s));
        return out.open(QIODevice::ReadOnly) ? out.readAll() : QByteArray("missing");
    }

private:
    QTemporaryDir folder;
    int oldInput;
    int oldOutput;
};

} // namespace

class tst_cConsole : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void columnsAreFourteenWide();
    void tabGoesToTheNextLineWhenPassed();
    void columnsAreCountedOverManyPieces();
    void questionsSplitLines();
    void questionsAskAgain();
    void anInputEndsTheLine();
    void theEndOfTheInputIsAnError();
    void boxesAreAnsweredOrNeedAWindow();
    void textHostPassesAllBytes();
    void textHostHasNoWindows();
    void theClockIsLocal();
    void sleepEndsWhenStopped();
};

void tst_cConsole::columnsAreFourteenWide()
{
    cScriptedHost host;
    cConsole& console = host.Console();
    console.Number(1);
    console.Comma();
    console.Number(-2);
    console.Comma();
    console.EndLine();
    console.Text("1234567890123");
    console.Comma();
    console.Text("b");
    console.EndLine();
    console.Text("12345678901234");
    console.Comma();
    console.Text("b");
    console.EndLine();
    console.Comma();
    console.Text("c");
    console.EndStatement();
    console.EndLine();
    QCOMPARE(Shown(host.Console().Printed()), QByteArray("1             -2            \n"
                                                         "1234567890123 b\n"
                                                         "12345678901234              b\n"
                                                         "              c\n"));
}

void tst_cConsole::tabGoesToTheNextLineWhenPassed()
{
    cScriptedHost host;
    cConsole& console = host.Console();
    console.Tab(5);
    console.Text("a");
    console.Tab(6);
    console.Text("b");
    console.Tab(6);
    console.Text("c");
    console.Tab(0);
    console.Tab(-1e300);
    console.Text("d");
    console.Tab(1.9);
    console.Text("\n");
    console.Tab(2);
    console.EndLine();
    QCOMPARE(Shown(host.Console().Printed()), QByteArray("    ab\n     c\nd\n\n \n"));
    console.Tab(1e300);
    QCOMPARE(host.Console().Printed().size(), std::size_t{19 + 999999});
}

void tst_cConsole::columnsAreCountedOverManyPieces()
{
    cScriptedHost host;
    cConsole& console = host.Console();
    QByteArray expected;
    for (int i = 0; i < 20000; ++i) {
        console.Number(i);
        console.Comma();
        expected += QByteArray::number(i).leftJustified(14);
    }
    console.EndLine();
    QCOMPARE(Shown(host.Console().Printed()), expected + '\n');
}

void tst_cConsole::questionsSplitLines()
{
    cScriptedHost host("1, \"a, b\" , c d,surplus\r\n\nlast");
    cQuestion question(host.Console(), "Name? ");
    QCOMPARE(Shown(question.Next()), QByteArray("1"));
    QCOMPARE(Shown(question.Next()), QByteArray("a, b"));
    QCOMPARE(Shown(question.Next()), QByteArray("c d"));
    QCOMPARE(Shown(cQuestion(host.Console(), cQuestion::Mark).Next()), QByteArray());
    QCOMPARE(Shown(host.Console().Ask("")), QByteArray("last"));
    QCOMPARE(Shown(host.Console().Printed()), QByteArray("Name? ?"));
}

void tst_cConsole::questionsAskAgain()
{
    cScriptedHost host("1\n2,3\n");
    cQuestion question(host.Console(), cQuestion::Mark);
    QCOMPARE(Shown(question.Next()), QByteArray("1"));
    QCOMPARE(Shown(question.Next()), QByteArray("2"));
    QCOMPARE(Shown(question.Next()), QByteArray("3"));
    QCOMPARE(Shown(host.Console().Printed()), QByteArray("??"));
}

void tst_cConsole::anInputEndsTheLine()
{
    cScriptedHost host("x\nyz");
    cConsole& console = host.Console();
    (void)console.Ask("12345");
    console.Comma();
    console.Text("a");
    QCOMPARE(Shown(console.Bytes(1)), QByteArray("y"));
    console.Tab(2);
    console.Text("b");
    QCOMPARE(Shown(host.Console().Printed()), QByteArray("12345              a b"));
}

void tst_cConsole::theEndOfTheInputIsAnError()
{
    cScriptedHost host("only\n");
    QCOMPARE(Shown(host.Console().Ask("")), QByteArray("only"));
    QVERIFY(host.Console().IsAtEnd());
    QCOMPARE(ErrorOf([&] { return host.Console().Ask(""); }), NumberOf(ErrorNumber::InputPastEnd));
    QCOMPARE(ErrorOf([&] { return host.Console().Bytes(1); }), NumberOf(ErrorNumber::InputPastEnd));
}

void tst_cConsole::boxesAreAnsweredOrNeedAWindow()
{
    cScriptedHost host;
    host.answers = {"", "yes", "no", "Ann"};
    host.Notice("Hello");
    QVERIFY(host.Confirm("Sure?"));
    QVERIFY(!host.Confirm("Sure?"));
    QCOMPARE(host.Prompt("Name?", ""), std::string("Ann"));
    QCOMPARE(host.asked, std::string("notice: Hello\nconfirm: Sure?\nconfirm: Sure?\nprompt: Name?\n"));
    QVERIFY_THROWS_EXCEPTION(WindowNeeded, host.Notice("again"));
    QVERIFY_THROWS_EXCEPTION(WindowNeeded, host.OpenOnDesktop("a.txt", ""));
}

void tst_cConsole::textHostPassesAllBytes()
{
    QByteArray all;
    for (int code = 0; code < 256; ++code)
        all += static_cast<char>(code);
    const cStreams streams("line \xE4\r\n" + all);
    {
        cTextHost host;
        cConsole& console = host.Console();
        console.Text(View(all));
        console.EndLine();
        const QByteArray line = Shown(console.Ask("?"));
        console.Text(View(line));
        console.Text(console.Bytes(256));
        console.Clear();
        console.Locate(3, 4);
        console.SetTitle("t");
        console.Beep();
        host.FlushAll();
    }
    QCOMPARE(streams.Written(), all + "\n?line \xE4" + all);
}

void tst_cConsole::textHostHasNoWindows()
{
    cTextHost host({}, "a b");
    QCOMPARE(host.CommandLine(), std::string_view("a b"));
    QVERIFY_THROWS_EXCEPTION(WindowNeeded, host.Notice("x"));
    QVERIFY_THROWS_EXCEPTION(WindowNeeded, (void)host.Confirm("x"));
    QVERIFY_THROWS_EXCEPTION(WindowNeeded, (void)host.Prompt("x", ""));
    QVERIFY_THROWS_EXCEPTION(WindowNeeded, host.PrintOnPaper("x"));
    QVERIFY_THROWS_EXCEPTION(WindowNeeded, host.SendToPrinter());
    QCOMPARE(cHost::Version(), std::string_view("4.0"));
    QCOMPARE(cHost::Platform(), std::string_view("Linux"));
    QCOMPARE(DriveNames(), std::string("/"));
}

void tst_cConsole::theClockIsLocal()
{
    cTextHost host;
    const LocalTime shown = host.Now();
    const QDateTime ours(QDate(shown.year, shown.month, shown.day),
                         QTime(shown.hour, shown.minute, shown.second, shown.millisecond));
    QVERIFY(std::abs(ours.msecsTo(QDateTime::currentDateTime())) < 5000);
    QVERIFY(host.RandomSeed() != host.RandomSeed());
}

void tst_cConsole::sleepEndsWhenStopped()
{
    cTextHost host([] { return true; });
    const std::int64_t start = host.Milliseconds();
    host.Sleep(60000);
    QVERIFY(host.Milliseconds() - start < 5000);
    cTextHost patient;
    patient.Sleep(30);
    QVERIFY(patient.Milliseconds() - start >= 30);
}

QTEST_APPLESS_MAIN(tst_cConsole)
#include "tst_cConsole.moc"
