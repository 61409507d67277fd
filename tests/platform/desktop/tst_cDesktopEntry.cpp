// SPDX-License-Identifier: GPL-3.0-or-later
// Desktop entries: a row for each rule about a program and its arguments.
#include "platform/desktop/cDesktopEntry.h"

#include "platform/desktop/modAssociation.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

using ob::cDesktopEntry;

class tst_cDesktopEntry : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { qputenv("PATH", usualPath); }

    void execIsSplitIntoArguments_data();
    void execIsSplitIntoArguments();
    void anOpenQuoteIsMalformed();
    void escapesAreReplacedBeforeQuotes_data();
    void escapesAreReplacedBeforeQuotes();
    void codesAreExpanded_data();
    void codesAreExpanded();
    void programsThatCannotStartHaveNoCommand_data();
    void programsThatCannotStartHaveNoCommand();
    void programsThatCanStartHaveACommand_data();
    void programsThatCanStartHaveACommand();
    void menusShowWhatTheirDesktopMay_data();
    void menusShowWhatTheirDesktopMay();
    void typesAndCategoriesAreClaimed();
    void whatAssociatingWritesIsReadBack_data();
    void whatAssociatingWritesIsReadBack();

private:
    QString At(const QString& name) const { return folder.filePath(name); }
    void PutProgram(const QString& name, QFile::Permissions permissions) const;
    // The entry of a program "Test" with these additional lines.
    cDesktopEntry Entry(const QByteArray& lines, const QString& locale = {}) const;

    const QByteArray usualPath = qgetenv("PATH");
    QTemporaryDir folder;
};

void tst_cDesktopEntry::PutProgram(const QString& name, QFile::Permissions permissions) const
{
    QFile file(At(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.setPermissions(permissions));
}

void tst_cDesktopEntry::initTestCase()
{
    qputenv("PATH", QFile::encodeName(folder.path()));
    QVERIFY(QDir(folder.path()).mkpath(u"folder"_s));
    PutProgram(u"editor"_s, QFile::ReadOwner | QFile::ExeOwner);
    PutProgram(u"my editor"_s, QFile::ReadOwner | QFile::ExeOwner);
    PutProgram(u"a=b"_s, QFile::ReadOwner | QFile::ExeOwner);
    PutProgram(u"text"_s, QFile::ReadOwner);
}

cDesktopEntry tst_cDesktopEntry::Entry(const QByteArray& lines, const QString& locale) const
{
    QFile file(At(u"test.desktop"_s));
    if (!file.open(QIODevice::WriteOnly) || file.write("[Desktop Entry]\nName=Test\n" + lines + '\n') < 0)
        QTest::qFail("the desktop file cannot be written", __FILE__, __LINE__);
    file.close();
    return cDesktopEntry(file.fileName(), locale);
}

void tst_cDesktopEntry::execIsSplitIntoArguments_data()
{
    QTest::addColumn<QString>("exec");
    QTest::addColumn<QString>("arguments"); // each in brackets
    const auto row = [](const char* name, const char* exec, const char* arguments) {
        QTest::newRow(name) << QString::fromUtf8(exec) << QString::fromUtf8(arguments);
    };
    row("nothing", "", "");
    row("program", "editor", "[editor]");
    row("spaces between", "editor -a   b ", "[editor][-a][b]");
    row("quoted program", R"("/my p/editor" -a)", "[/my p/editor][-a]");
    row("quoted argument", R"(editor "a b")", "[editor][a b]");
    row("empty argument", R"(editor "" b)", "[editor][][b]");
    row("double quote", R"(editor "a\"b")", R"([editor][a"b])");
    row("backtick", R"(editor "a\`b")", "[editor][a`b]");
    row("dollar sign", R"(editor "a\$b")", "[editor][a$b]");
    row("backslash", R"(editor "a\\b")", R"([editor][a\b])");
    row("backslash at the end", R"(editor "a\\" b)", R"([editor][a\][b])");
    row("no escape", R"(editor "a\nb")", R"([editor][a\nb])");
    row("reserved characters", R"-(editor "'><~|&;*?#()")-", "[editor]['><~|&;*?#()]");
    row("tab and line feed", "editor \"a\tb\nc\"", "[editor][a\tb\nc]");
    row("a quote that begins inside", R"(editor a" b"c)", "[editor][a bc]");
    row("an apostrophe is not a quote", "editor it's", "[editor][it's]");
}

void tst_cDesktopEntry::execIsSplitIntoArguments()
{
    QFETCH(QString, exec);
    const auto arguments = ob::SplitExec(exec);
    QVERIFY(arguments.has_value());
    QString shown;
    for (const QString& argument : *arguments)
        shown += u'[' + argument + u']';
    QTEST(shown, "arguments");
}

void tst_cDesktopEntry::anOpenQuoteIsMalformed()
{
    QVERIFY(!ob::SplitExec(u"editor \"a b"));
    QVERIFY(!ob::SplitExec(u"editor \"a\\\""));
    QVERIFY(!Entry("Type=Application\nExec=editor \"a b").Command());
}

void tst_cDesktopEntry::escapesAreReplacedBeforeQuotes_data()
{
    QTest::addColumn<QByteArray>("exec");
    QTest::addColumn<QString>("argument");
    QTest::newRow("double quote") << QByteArray(R"(editor "a\\"b")") << u"a\"b"_s;
    QTest::newRow("dollar sign") << QByteArray(R"(editor "\\$a")") << u"$a"_s;
    QTest::newRow("backslash") << QByteArray(R"(editor "a\\\\b")") << u"a\\b"_s;
    QTest::newRow("space") << QByteArray(R"(editor "a\sb")") << u"a b"_s;
    QTest::newRow("line feed") << QByteArray(R"(editor "a\nb")") << u"a\nb"_s;
    QTest::newRow("space between arguments") << QByteArray(R"(editor\sa)") << u"a"_s;
}

void tst_cDesktopEntry::escapesAreReplacedBeforeQuotes()
{
    QFETCH(QByteArray, exec);
    QFETCH(QString, argument);
    QCOMPARE(Entry("Type=Application\nExec=" + exec).Command().value(), QStringList({At(u"editor"_s), argument}));
}

void tst_cDesktopEntry::codesAreExpanded_data()
{
    QTest::addColumn<QByteArray>("arguments");
    QTest::addColumn<QString>("expanded"); // each in brackets; "malformed" for no command
    const auto row = [](const char* arguments, const char* expanded) {
        QTest::newRow(arguments) << QByteArray(arguments) << QString::fromUtf8(expanded);
    };
    for (const char* code : {"%f", "%F", "%u", "%U", "%d", "%D", "%n", "%N", "%v", "%m"}) {
        row(code, "");
        QTest::addRow("-a %s -b", code) << QByteArray("-a ") + code + " -b" << u"[-a][-b]"_s;
    }
    row("--file=%f", "[--file=]");
    row("\"%f\"", "");
    row("\"\"", "[]");
    row("100%%", "[100%]");
    row("%%f", "[%f]");
    row("%%%%", "[%%]");
    row("\"%% %%\"", "[% %]");
    row("%i", "[--icon][an icon]");
    row("%i %f -b", "[--icon][an icon][-b]");
    row("%c", "[Pr\xC3\xBC"
              "fung 1]");
    row("-t%c.", "[-tPr\xC3\xBC"
                 "fung 1.]");
    row("%k", "[FOLDER/test.desktop]");
    row("-k=%k", "[-k=FOLDER/test.desktop]");
    row("%x", "malformed");
    row("-a %1", "malformed");
    row("a%", "malformed");
}

void tst_cDesktopEntry::codesAreExpanded()
{
    QFETCH(QByteArray, arguments);
    QFETCH(QString, expanded);
    const auto command = Entry("Type=Application\nName[de]=Pr\xC3\xBC"
                               "fung 1\nIcon=an icon\nExec=editor " +
                                   arguments,
                               u"de_DE.UTF-8"_s)
                             .Command();
    QString shown = command ? QString() : u"malformed"_s;
    for (const QString& argument : command.value_or(QStringList()).mid(1))
        shown += u'[' + argument + u']';
    QCOMPARE(shown.replace(folder.path(), u"FOLDER"_s), expanded);
}

void tst_cDesktopEntry::programsThatCannotStartHaveNoCommand_data()
{
    QTest::addColumn<QByteArray>("lines");
    const auto row = [](const char* name, const QByteArray& lines) { QTest::newRow(name) << lines; };
    row("hidden", "Type=Application\nExec=editor\nHidden=true");
    row("in a terminal", "Type=Application\nExec=editor\nTerminal=true");
    row("a link", "Type=Link\nExec=editor");
    row("of no type", "Exec=editor");
    row("without Exec", "Type=Application");
    row("with an empty Exec", "Type=Application\nExec=");
    row("with codes only", "Type=Application\nExec=%f");
    row("not on the search path", "Type=Application\nExec=surely-no-program-has-this-name");
    row("not at the full path", "Type=Application\nExec=/nowhere/editor");
    row("not executable", "Type=Application\nExec=text");
    row("not executable at the full path", "Type=Application\nExec=" + At(u"text"_s).toUtf8());
    row("a folder", "Type=Application\nExec=" + At(u"folder"_s).toUtf8());
    row("neither a name nor a full path", "Type=Application\nExec=./editor");
    row("an equals sign in the program", "Type=Application\nExec=a=b");
    row("TryExec not on the search path", "Type=Application\nExec=editor\nTryExec=surely-no-program-has-this-name");
    row("TryExec not at the full path", "Type=Application\nExec=editor\nTryExec=/nowhere/editor");
    row("TryExec not executable", "Type=Application\nExec=editor\nTryExec=text");
    row("Exec of another group", "Type=Application\n[Desktop Action New]\nExec=editor");
}

void tst_cDesktopEntry::programsThatCannotStartHaveNoCommand()
{
    QFETCH(QByteArray, lines);
    QVERIFY(!Entry(lines).Command());
}

void tst_cDesktopEntry::programsThatCanStartHaveACommand_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<QString>("program");
    const QByteArray path = At(u"my editor"_s).toUtf8();
    QTest::newRow("name") << QByteArray("Exec=editor") << u"editor"_s;
    QTest::newRow("quoted name") << QByteArray("Exec=\"my editor\"") << u"my editor"_s;
    QTest::newRow("full path") << "Exec=\"" + path + '"' << u"my editor"_s;
    QTest::newRow("TryExec by name") << QByteArray("Exec=editor\nTryExec=editor") << u"editor"_s;
    QTest::newRow("TryExec by path") << "Exec=editor\nTryExec=" + path << u"editor"_s;
    QTest::newRow("not in menus") << QByteArray("Exec=editor\nNoDisplay=true") << u"editor"_s;
    QTest::newRow("not hidden, no terminal") << QByteArray("Exec=editor\nHidden=false\nTerminal=false") << u"editor"_s;
}

void tst_cDesktopEntry::programsThatCanStartHaveACommand()
{
    QFETCH(QByteArray, lines);
    QFETCH(QString, program);
    QCOMPARE(Entry("Type=Application\n" + lines).Command().value(), QStringList(At(program)));
}

void tst_cDesktopEntry::menusShowWhatTheirDesktopMay_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<QString>("desktops");
    QTest::addColumn<bool>("isShown");
    const auto row = [](const char* lines, const char* desktops, bool isShown) {
        QTest::addRow("%s on %s", lines, desktops) << QByteArray(lines) << QString::fromLatin1(desktops) << isShown;
    };
    row("", "", true);
    row("", "A", true);
    row("NoDisplay=true", "A", false);
    row("NoDisplay=true\nOnlyShowIn=A;", "A", false);
    row("OnlyShowIn=A;B;", "B", true);
    row("OnlyShowIn=A;B;", "C", false);
    row("OnlyShowIn=A;B;", "", false);
    row("OnlyShowIn=A;", "a", false);
    row("NotShowIn=A;B;", "B", false);
    row("NotShowIn=A;B;", "C", true);
    row("NotShowIn=A;B;", "", true);
    row("OnlyShowIn=A;\nNotShowIn=B;", "A:B", true);
    row("OnlyShowIn=A;\nNotShowIn=B;", "B:A", false);
    row("OnlyShowIn=A;\nNotShowIn=B;", "C:A", true);
}

void tst_cDesktopEntry::menusShowWhatTheirDesktopMay()
{
    QFETCH(QByteArray, lines);
    QFETCH(QString, desktops);
    QTEST(Entry(lines).IsShownIn(desktops.split(u':', Qt::SkipEmptyParts)), "isShown");
}

void tst_cDesktopEntry::typesAndCategoriesAreClaimed()
{
    const cDesktopEntry entry = Entry("MimeType=text/plain;a/b\nCategories=Utility;Calculator;");
    QVERIFY(entry.ClaimsType(u"text/plain"_s));
    QVERIFY(entry.ClaimsType(u"a/b"_s));
    QVERIFY(!entry.ClaimsType(u"text"_s));
    QVERIFY(!entry.ClaimsType(QString()));
    QVERIFY(entry.HasCategory(u"Calculator"_s));
    QVERIFY(!entry.HasCategory(u"calculator"_s));
}

void tst_cDesktopEntry::whatAssociatingWritesIsReadBack_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name : {"bench", "my bench", "100% bench", "%f", "a\"b", "a`b", "$a", "a\\b", "a\\\\", "it's",
                             "a\nb", "a\tb", "(a;b)*?#&|<>~", "\xC3\xA4"})
        QTest::newRow(name) << QString::fromUtf8(name);
}

void tst_cDesktopEntry::whatAssociatingWritesIsReadBack()
{
    QFETCH(QString, name);
    PutProgram(name, QFile::ReadOwner | QFile::ExeOwner);
    const cDesktopEntry entry = Entry("Type=Application\nExec=" + ob::ExecutableInEntry(At(name)) + " %f");
    QCOMPARE(entry.Command().value(), QStringList(At(name)));
}

QTEST_GUILESS_MAIN(tst_cDesktopEntry)
#include "tst_cDesktopEntry.moc"
