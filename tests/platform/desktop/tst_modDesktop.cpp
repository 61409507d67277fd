// SPDX-License-Identifier: GPL-3.0-or-later
// The program with which a desktop opens a file, by the lists of the user and the system and the programs in its menus.
#include "platform/desktop/modDesktop.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

// A setting consists of lines "file: a line of that file", with these files of the test's desktop:
//   home/    the user's lists     home-data/       the user's programs
//   system/  the system's lists   data/ and more/  the system's programs
class tst_modDesktop : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theListsAreReadInTheirOrder_data();
    void theListsAreReadInTheirOrder();
    void theTypeOfTheFileCountsBeforeItsParents_data();
    void theTypeOfTheFileCountsBeforeItsParents();
    void aMissingFileHasNoProgram();
    void theFileManagerOpensFolders();
    void theCalculatorIsTheFirstThatMenusShow_data();
    void theCalculatorIsTheFirstThatMenusShow();
    void argumentsArePassedOn();

private:
    void Append(const QString& name, const QByteArray& line) const;
    // Creates the lists and the programs of a setting; a program's entry "a.desktop" starts the program "a".
    void Set(const QString& setting) const;
    QString NameOf(const std::optional<ob::ProgramCall>& call) const;
    QString ProgramFor(const QString& fileName) const;

    std::unique_ptr<QTemporaryDir> folder;
};

void tst_modDesktop::init()
{
#ifdef Q_OS_WIN
    QSKIP("the system finds the programs there");
#endif
    folder = std::make_unique<QTemporaryDir>();
    const auto set = [&](const char* variable, const char* value) {
        qputenv(variable, QByteArray(value).replace("@", QFile::encodeName(folder->path()) + '/'));
    };
    set("XDG_CONFIG_HOME", "@home");
    set("XDG_CONFIG_DIRS", "@system");
    set("XDG_DATA_HOME", "@home-data");
    set("XDG_DATA_DIRS", "@data:@more:/usr/share"); // the database of types
    set("XDG_CURRENT_DESKTOP", "First:Second");
}

void tst_modDesktop::cleanup()
{
    for (const char* variable :
         {"XDG_CONFIG_HOME", "XDG_CONFIG_DIRS", "XDG_DATA_HOME", "XDG_DATA_DIRS", "XDG_CURRENT_DESKTOP"})
        qunsetenv(variable);
    folder.reset();
}

void tst_modDesktop::Append(const QString& name, const QByteArray& line) const
{
    const QString path = folder->filePath(name);
    QVERIFY(QDir().mkpath(QFileInfo(path).path()));
    QFile file(path);
    QVERIFY(file.open(QIODevice::Append));
    file.write(line + '\n');
}

void tst_modDesktop::Set(const QString& setting) const
{
    QStringList entries;
    for (const QString& line : setting.split(u'\n', Qt::SkipEmptyParts)) {
        const QString file = line.section(u": "_s, 0, 0);
        if (file.endsWith(QLatin1String(".desktop")) && !entries.contains(file)) {
            entries.append(file);
            const QString program = QFileInfo(file).completeBaseName();
            Append(program, "#!/bin/sh");
            QFile::setPermissions(folder->filePath(program), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
            Append(file, "[Desktop Entry]\nType=Application\nName=T\nExec=" +
                             QFile::encodeName(folder->filePath(program)) + " %f");
        }
        Append(file, line.section(u": "_s, 1).toUtf8());
    }
}

QString tst_modDesktop::NameOf(const std::optional<ob::ProgramCall>& call) const
{
    if (!call)
        return u"none"_s;
    const QString program = QString::fromStdU16String(call->program);
    return program.startsWith(folder->path()) ? program.sliced(folder->path().size() + 1) : program;
}

QString tst_modDesktop::ProgramFor(const QString& fileName) const
{
    Append(fileName, "x");
    return NameOf(ob::FindExecutable(folder->filePath(fileName).toStdU16String()));
}

void tst_modDesktop::theListsAreReadInTheirOrder_data()
{
    QTest::addColumn<QString>("setting");
    QTest::addColumn<QString>("program");
    const auto row = [](const char* name, const char* setting, const char* program) {
        // Lists name the group first: "home/mimeapps.list: D text/plain=a.desktop".
        QString lines = QString::fromLatin1(setting);
        lines.replace(QLatin1String(": D "), QLatin1String(": [Default Applications]\n\t"))
            .replace(QLatin1String(": A "), QLatin1String(": [Added Associations]\n\t"))
            .replace(QLatin1String(": R "), QLatin1String(": [Removed Associations]\n\t"))
            .replace(QLatin1String(": C "), QLatin1String(": [MIME Cache]\n\t"));
        QStringList whole;
        for (const QString& line : lines.split(u'\n', Qt::SkipEmptyParts))
            whole.append(line.startsWith(u'\t') ? whole.last().section(u':', 0, 0) + u": "_s + line.mid(1) : line);
        QTest::newRow(name) << whole.join(u'\n') << QString::fromLatin1(program);
    };
    const QByteArray programs = "data/applications/a.desktop: MimeType=text/plain;\n"
                                "data/applications/b.desktop: MimeType=text/plain;\n"
                                "data/applications/c.desktop: MimeType=a/b;\n";
    const auto with = [&](const char* name, const char* lists, const char* program) {
        row(name, programs + lists, program);
    };
    row("no program", "", "none");
    with("no list", "", "a");
    with("default", "home/mimeapps.list: D text/plain=b.desktop", "b");
    with("default of two", "home/mimeapps.list: D text/plain=b.desktop;a.desktop;", "b");
    with("default that is not installed", "home/mimeapps.list: D text/plain=x.desktop;b.desktop;", "b");
    with("default of another type", "home/mimeapps.list: D text/css=b.desktop", "a");
    with("default that claims nothing", "home/mimeapps.list: D text/plain=c.desktop", "c");
    // The order of the lists.
    with("the user's before the system's",
         "system/mimeapps.list: D text/plain=a.desktop\nhome/mimeapps.list: D text/plain=b.desktop", "b");
    with("the desktop's before the others",
         "home/mimeapps.list: D text/plain=a.desktop\nhome/second-mimeapps.list: D text/plain=b.desktop", "b");
    with("the first desktop's before the second's",
         "home/second-mimeapps.list: D text/plain=a.desktop\nhome/first-mimeapps.list: D text/plain=b.desktop", "b");
    with("another desktop's not at all", "home/third-mimeapps.list: D text/plain=b.desktop", "a");
    with("the user's before the system's for a desktop",
         "system/first-mimeapps.list: D text/plain=a.desktop\nhome/mimeapps.list: D text/plain=b.desktop", "b");
    with("the lists of settings before those of programs",
         "home-data/applications/mimeapps.list: D text/plain=a.desktop\nsystem/mimeapps.list: D text/plain=b.desktop",
         "b");
    with("the user's programs before the system's",
         "data/applications/mimeapps.list: D text/plain=a.desktop\n"
         "home-data/applications/mimeapps.list: D text/plain=b.desktop",
         "b");
    with("the system's programs in their order",
         "more/applications/mimeapps.list: D text/plain=a.desktop\n"
         "data/applications/mimeapps.list: D text/plain=b.desktop",
         "b");
    with("the older list after the newer",
         "data/applications/defaults.list: D text/plain=a.desktop\n"
         "data/applications/mimeapps.list: D text/plain=b.desktop",
         "b");
    with("the older list", "data/applications/defaults.list: D text/plain=b.desktop", "b");
    // Associations.
    with("added", "home/mimeapps.list: A text/plain=c.desktop;", "c");
    with("a default before what is added",
         "home/mimeapps.list: A text/plain=c.desktop\nsystem/mimeapps.list: D text/plain=b.desktop", "b");
    with("removed", "home/mimeapps.list: R text/plain=a.desktop", "b");
    with("all removed", "home/mimeapps.list: R text/plain=a.desktop;b.desktop;", "none");
    with("removed for another type", "home/mimeapps.list: R text/css=a.desktop", "a");
    with("removed before a lower list adds it",
         "home/mimeapps.list: R text/plain=c.desktop\nsystem/mimeapps.list: A text/plain=c.desktop", "a");
    with("added before a lower list removes it",
         "home/mimeapps.list: A text/plain=c.desktop\nsystem/mimeapps.list: R text/plain=c.desktop", "c");
    with("added and removed in one list",
         "home/mimeapps.list: A text/plain=c.desktop\nhome/mimeapps.list: R text/plain=c.desktop", "c");
    with("a default that is removed",
         "home/mimeapps.list: R text/plain=b.desktop\nsystem/mimeapps.list: D text/plain=b.desktop", "a");
    with("a default that a lower list removes",
         "home/mimeapps.list: D text/plain=b.desktop\nsystem/mimeapps.list: R text/plain=b.desktop", "b");
    // The programs' own claims.
    with("the order of the cache", "data/applications/mimeinfo.cache: C text/plain=b.desktop;a.desktop;", "b");
    with("a cache out of date", "data/applications/mimeinfo.cache: C text/plain=c.desktop;x.desktop;b.desktop;", "b");
    with("the user's program before the system's", "home-data/applications/z.desktop: MimeType=text/plain;", "z");
    with("the user's file in place of the system's", "home-data/applications/a.desktop: MimeType=a/b;", "b");
    with("the user hides a program", "home-data/applications/a.desktop: Hidden=true", "b");
    with("a hidden default",
         "home/mimeapps.list: D text/plain=a.desktop\nhome-data/applications/a.desktop: Hidden=true", "b");
    with("a program that menus do not show",
         "home-data/applications/z.desktop: NoDisplay=true\n"
         "home-data/applications/z.desktop: MimeType=text/plain;",
         "z");
    row("a folder in the name", "data/applications/kde/ed.desktop: \nhome/mimeapps.list: D text/plain=kde-ed.desktop",
        "ed");
    row("two folders, and a dash of the name's own",
        "data/applications/x-y/z/ed.desktop: \nhome/mimeapps.list: D text/plain=x-y-z-ed.desktop", "ed");
}

void tst_modDesktop::theListsAreReadInTheirOrder()
{
    QFETCH(QString, setting);
    Set(setting);
    QTEST(ProgramFor(u"test.txt"_s), "program");
}

void tst_modDesktop::theTypeOfTheFileCountsBeforeItsParents_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("program");
    const auto row = [](const char* file, const char* type, const char* program) {
        QTest::addRow("%s by %s", file, type)
            << QString::fromLatin1(file) << QString::fromLatin1(type) << QString::fromLatin1(program);
    };
    row("a.txt", "text/plain", "p");
    row("a.bmp", "image/bmp", "p");
    row("a.wav", "audio/x-wav", "p");
    row("a.wav", "audio/vnd.wave", "p");
    row("a.doc", "application/msword", "p");
    row("a.html", "text/plain", "p"); // a parent
    row("a.txt", "application/octet-stream", "none");
    row("a.bmp", "text/plain", "none");
}

void tst_modDesktop::theTypeOfTheFileCountsBeforeItsParents()
{
    QFETCH(QString, file);
    QFETCH(QString, type);
    Set(u"data/applications/p.desktop: MimeType=%1;"_s.arg(type));
    QTEST(ProgramFor(file), "program");
    if (file != QLatin1String("a.html"))
        return;
    Set(u"more/applications/web.desktop: MimeType=text/html;"_s);
    QCOMPARE(ProgramFor(file), u"web"_s);
}

void tst_modDesktop::aMissingFileHasNoProgram()
{
    Set(u"data/applications/a.desktop: MimeType=text/plain;"_s);
    QCOMPARE(NameOf(ob::FindExecutable(folder->filePath(u"gone.txt"_s).toStdU16String())), u"none"_s);
}

void tst_modDesktop::theFileManagerOpensFolders()
{
    QCOMPARE(NameOf(ob::FileManager()), u"none"_s);
    Set(u"data/applications/files.desktop: MimeType=inode/directory;"_s);
    QCOMPARE(NameOf(ob::FileManager()), u"files"_s);
}

void tst_modDesktop::theCalculatorIsTheFirstThatMenusShow_data()
{
    QTest::addColumn<QString>("setting");
    QTest::addColumn<QString>("program");
    const auto row = [](const char* name, const char* more, const char* program) {
        QTest::newRow(name) << u"data/applications/b.desktop: Categories=Calculator;Utility;\n"
                               "data/applications/c.desktop: Categories=Calculator;\n"_s +
                                   QString::fromLatin1(more)
                            << QString::fromLatin1(program);
    };
    const char* category = "\nhome-data/applications/a.desktop: Categories=Calculator;";
    row("by name", "", "b");
    row("of another category", "home-data/applications/a.desktop: Categories=Calc;", "b");
    row("the user's first", category, "a");
    row("not in menus", (QByteArray("home-data/applications/a.desktop: NoDisplay=true") + category).constData(), "b");
    row("of another desktop",
        (QByteArray("home-data/applications/a.desktop: OnlyShowIn=Third;") + category).constData(), "b");
    row("of this desktop", (QByteArray("home-data/applications/a.desktop: OnlyShowIn=Second;") + category).constData(),
        "a");
    row("hidden by the user", "home-data/applications/b.desktop: Hidden=true", "c");
}

void tst_modDesktop::theCalculatorIsTheFirstThatMenusShow()
{
    QFETCH(QString, setting);
    qputenv("XDG_DATA_DIRS", QFile::encodeName(folder->filePath(u"data"_s)));
    Set(setting);
    QTEST(NameOf(ob::Calculator()), "program");
}

void tst_modDesktop::argumentsArePassedOn()
{
    Set(u"data/applications/a.desktop: MimeType=text/plain;"_s);
    const QString entry = u"home-data/applications/a.desktop"_s;
    Append(entry, "[Desktop Entry]\nType=Application\nName[de]=Rechner\nName=Other\nMimeType=text/plain;\nExec=" +
                      QFile::encodeName(folder->filePath(u"a"_s)) + R"( -n "a b \\"c\\"" %c %F)");
    qputenv("LC_ALL", "de_DE.UTF-8");
    Append(u"test.txt"_s, "x");
    const auto call = ob::FindExecutable(folder->filePath(u"test.txt"_s).toStdU16String());
    qputenv("LC_ALL", "C.UTF-8");
    QCOMPARE(NameOf(call), u"a"_s);
    const std::vector<std::u16string> expected = {u"-n", u"a b \"c\"", u"Rechner"};
    QVERIFY(call->arguments == expected);
}

QTEST_GUILESS_MAIN(tst_modDesktop)
#include "tst_modDesktop.moc"
