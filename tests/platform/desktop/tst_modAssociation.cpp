// SPDX-License-Identifier: GPL-3.0-or-later
// File association for this user: what is written where, how other programs then treat the files, and what is left
// alone. The desktop is a folder of the test; it is queried by separate processes.
#include "platform/desktop/modAssociation.h"

#include "platform/language/cRuntimeError.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QMimeDatabase>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

const QString BasicType = u"application/x-orchard-basic"_s;
const QString FormType = u"application/x-orchard-form"_s;

QByteArray Get(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArrayLiteral("(no such file)");
}

void Put(const QString& path, const QByteArray& bytes)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        QTest::qFail("the test's own file cannot be written", __FILE__, __LINE__);
}

void PutProgram(const QString& path, const QByteArray& script)
{
    Put(path, "#!/bin/sh\n" + script);
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

// The number of the runtime error raised by the association; 0 for none.
int RaisedBy(const AssociationPlaces& places)
{
    try {
        AssociateFileTypes(places);
    } catch (const RuntimeError& error) {
        return error.number;
    }
    return 0;
}

} // namespace

class tst_modAssociation : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
#ifdef Q_OS_WIN
        QSKIP("the registry of this user is no place for a test");
#endif
        folder = std::make_unique<QTemporaryDir>();
        places = {folder->filePath(u"orchard-bench"_s), folder->filePath(u"data"_s), folder->filePath(u"config"_s),
                  u"" OB_TEST_DATA "/../../resources/icons"_s};
        PutProgram(places.executable,
                   "printf '%s\\n' \"$@\" > \"$0.called.new\"\nmv \"$0.called.new\" \"$0.called\"\n");
        qputenv("PATH", usualPath);
    }

    void cleanup()
    {
        qputenv("PATH", usualPath);
        folder.reset();
    }

    void theUsersFoldersComeFromTheEnvironment()
    {
        qputenv("XDG_DATA_HOME", "/a/data/");
        qputenv("XDG_CONFIG_HOME", "/a/config");
        const AssociationPlaces set = UsersPlaces(u":/icons"_s);
        QCOMPARE(set.executable, QCoreApplication::applicationFilePath());
        QCOMPARE(set.dataFolder, u"/a/data"_s);
        QCOMPARE(set.configFolder, u"/a/config"_s);
        QCOMPARE(set.iconFolder, u":/icons"_s);
        qputenv("XDG_DATA_HOME", "not/a/full/path");
        qunsetenv("XDG_CONFIG_HOME");
        const AssociationPlaces usual = UsersPlaces({});
        QCOMPARE(usual.dataFolder, QDir::homePath() + u"/.local/share"_s);
        QCOMPARE(usual.configFolder, QDir::homePath() + u"/.config"_s);
        qunsetenv("XDG_DATA_HOME");
    }

    void aProgramsNameIsQuotedWhereItHasToBe_data()
    {
        QTest::addColumn<QString>("executable");
        QTest::addColumn<QByteArray>("entry");
        QTest::newRow("plain") << u"/usr/bin/orchard-bench"_s << QByteArray("/usr/bin/orchard-bench");
        QTest::newRow("space") << u"/a b/bench"_s << QByteArray("\"/a b/bench\"");
        QTest::newRow("percent") << u"/100%/bench"_s << QByteArray("/100%%/bench");
        QTest::newRow("quote") << u"/a\"b/bench"_s << QByteArray("\"/a\\\\\"b/bench\"");
        QTest::newRow("dollar") << u"/$a/bench"_s << QByteArray("\"/\\\\$a/bench\"");
        QTest::newRow("backslash") << u"/a\\b/bench"_s << QByteArray("\"/a\\\\\\\\b/bench\"");
        QTest::newRow("apostrophe") << u"/a'b/bench"_s << QByteArray("\"/a'b/bench\"");
        QTest::newRow("line feed") << u"/a\nb/bench"_s << QByteArray("\"/a\\nb/bench\"");
        QTest::newRow("beyond ASCII") << u"/\u00E4/bench"_s << QByteArray("/\xC3\xA4/bench");
    }

    void aProgramsNameIsQuotedWhereItHasToBe()
    {
        QFETCH(QString, executable);
        QTEST(ExecutableInEntry(executable), "entry");
    }

    void theListOfDefaultsKeepsItsOtherLines_data()
    {
        QTest::addColumn<QByteArray>("list");
        QTest::addColumn<QByteArray>("changed");
        const QByteArray ours = "application/x-orchard-basic=o.desktop;\napplication/x-orchard-form=o.desktop;\n";
        QTest::newRow("no list") << QByteArray()
                                 << "[Default Applications]\n" + ours + "\n[Added Associations]\n" + ours;
        QTest::newRow("other groups and comments")
            << QByteArray("# mine\n[Removed Associations]\na/b=x.desktop\n\n[Default Applications]\n"
                          "text/plain=edit.desktop\n\n[Added Associations]\ntext/plain=edit.desktop;vim.desktop;\n")
            << "# mine\n[Removed Associations]\na/b=x.desktop\n\n[Default Applications]\ntext/plain=edit.desktop\n" +
                   ours + "\n[Added Associations]\ntext/plain=edit.desktop;vim.desktop;\n" + ours;
        QTest::newRow("the other programs of the type stay after it")
            << QByteArray("[Default Applications]\napplication/x-orchard-form=o.desktop;\n"
                          "application/x-orchard-basic=vim.desktop;o.desktop;\n"
                          "[Added Associations]\n" +
                          ours)
            << QByteArray("[Default Applications]\napplication/x-orchard-form=o.desktop;\n"
                          "application/x-orchard-basic=o.desktop;vim.desktop;\n"
                          "[Added Associations]\n" +
                          ours);
        QTest::newRow("removed by hand once")
            << "[Default Applications]\n" + ours + "[Added Associations]\n" + ours +
                   "[Removed Associations]\napplication/x-orchard-basic=a.desktop;o.desktop;\na/b=o.desktop;\n"
            << "[Default Applications]\n" + ours + "[Added Associations]\n" + ours +
                   "[Removed Associations]\napplication/x-orchard-basic=a.desktop;\na/b=o.desktop;\n";
        QTest::newRow("no line end at the end, spaces around the sign")
            << QByteArray("[Default Applications]\napplication/x-orchard-basic = b.desktop\r\n"
                          "application/x-orchard-form=o.desktop\n[Added Associations]\n" +
                          ours + "[X]\ny=1")
            << QByteArray("[Default Applications]\napplication/x-orchard-basic =o.desktop;b.desktop;\r\n"
                          "application/x-orchard-form=o.desktop\n[Added Associations]\n" +
                          ours + "[X]\ny=1");
    }

    void theListOfDefaultsKeepsItsOtherLines()
    {
        QFETCH(QByteArray, list);
        QFETCH(QByteArray, changed);
        QCOMPARE(WithProgramFirst(list, "o.desktop"), changed);
        QCOMPARE(WithProgramFirst(changed, "o.desktop"), changed);
    }

    void theFilesAreWhereTheDesktopLooks()
    {
        AssociateFileTypes(places);
        QVERIFY(Get(Data(u"mime/packages/orchard-bench.xml"_s)).contains("\"*.oba\""));
        const QByteArray entry = Get(Data(u"applications/orchard-bench.desktop"_s));
        QVERIFY(entry.contains("\nExec=" + places.executable.toUtf8() + " %f\n"));
        QVERIFY(entry.contains("\nMimeType=application/x-orchard-basic;application/x-orchard-form;\n"));
        for (const char* size : {"16", "32", "48", "64", "128", "256"}) {
            const QString side = QString::fromLatin1(size);
            QCOMPARE(Get(Data(u"icons/hicolor/%1x%1/apps/orchard-bench.png"_s.arg(side))),
                     Get(places.iconFolder + u"/app-%1.png"_s.arg(side)));
        }
        QCOMPARE(Get(Data(u"icons/hicolor/scalable/apps/orchard-bench.svg"_s)), Get(places.iconFolder + u"/app.svg"_s));
    }

    void filesHaveTheProgramsTypes_data()
    {
        QTest::addColumn<bool>("withTools");
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("type");
        for (const bool withTools : {true, false}) {
            const char* how = withTools ? "with" : "without";
            QTest::addRow("bas, %s the desktop's tools", how) << withTools << u"a.bas"_s << BasicType;
            QTest::addRow("BAS, %s the desktop's tools", how) << withTools << u"A.BAS"_s << BasicType;
            QTest::addRow("oba, %s the desktop's tools", how) << withTools << u"a b.oba"_s << BasicType;
            QTest::addRow("obf, %s the desktop's tools", how) << withTools << u"a.obf"_s << FormType;
        }
    }

    void filesHaveTheProgramsTypes()
    {
        QFETCH(bool, withTools);
        QFETCH(QString, file);
        if (!withTools)
            qputenv("PATH", "/nowhere");
        AssociateFileTypes(places);
        qputenv("PATH", usualPath);
        QCOMPARE(QFile::exists(Data(u"mime/mime.cache"_s)),
                 withTools && !QStandardPaths::findExecutable(u"update-mime-database"_s).isEmpty());
        QTEST(TypeOf(file), "type");
    }

    void theRunCopysExtensionIsLeftAlone()
    {
        const QString before = TypeOf(u"a.bak"_s);
        AssociateFileTypes(places);
        QCOMPARE(TypeOf(u"a.bak"_s), before);
        QVERIFY(before != BasicType);
        QDirIterator written(folder->path(), QDir::Files, QDirIterator::Subdirectories);
        while (written.hasNext())
            QVERIFY2(!Get(written.next()).contains(".bak"), qPrintable(written.filePath()));
    }

    void aProgramIsPlainTextToo()
    {
        AssociateFileTypes(places);
        QCOMPARE(Ask(QCoreApplication::applicationFilePath(), {u"--parent-of"_s, BasicType}).trimmed(),
                 QByteArray("text/plain"));
    }

    void theDesktopNamesTheProgramForBothTypes()
    {
        const QString gio = QStandardPaths::findExecutable(u"gio"_s);
        QVERIFY2(!gio.isEmpty(), "gio is not installed; ./test installs it");
        AssociateFileTypes(places);
        for (const QString& type : {BasicType, FormType}) {
            const QByteArrayList lines = Ask(gio, {u"mime"_s, type}).split('\n');
            QVERIFY2(lines.first().endsWith(": orchard-bench.desktop"), lines.first().constData());
        }
    }

    void aDoubleClickStartsTheProgramOnTheFile_data()
    {
        QTest::addColumn<QString>("program");
        QTest::addColumn<bool>("withTools");
        QTest::newRow("plain name") << u"orchard-bench"_s << true;
        QTest::newRow("plain name, no tools") << u"orchard-bench"_s << false;
        QTest::newRow("name with signs") << u"my $1 \"own\" \\ `bench`"_s << true;
    }

    void aDoubleClickStartsTheProgramOnTheFile()
    {
        QFETCH(QString, program);
        QFETCH(bool, withTools);
        const QString gio = QStandardPaths::findExecutable(u"gio"_s);
        QVERIFY2(!gio.isEmpty(), "gio is not installed; ./test installs it");
        QVERIFY2(!QStandardPaths::findExecutable(u"update-mime-database"_s).isEmpty(),
                 "update-mime-database is not installed; ./test installs it");
        if (program != QLatin1String("orchard-bench")) {
            QVERIFY(QFile::rename(places.executable, folder->filePath(program)));
            places.executable = folder->filePath(program);
        }
        AssociateFileTypes(places);
        if (!withTools) {
            // The types stay known; the program's association is what is written without a tool.
            QFile::remove(Config());
            qputenv("PATH", "/nowhere");
            AssociateFileTypes(places);
            qputenv("PATH", usualPath);
        }
        const QString file = folder->filePath(u"my program.bas"_s);
        Put(file, "print 1\r\n");
        Ask(gio, {u"open"_s, file});
        const QString called = places.executable + u".called"_s;
        QVERIFY(QTest::qWaitFor([&] { return QFile::exists(called); }, 20'000));
        QCOMPARE(Get(called), file.toUtf8() + '\n');
    }

    void theDesktopsToolIsAskedFirst()
    {
        const QString tools = folder->filePath(u"tools"_s);
        PutProgram(tools + u"/xdg-mime"_s,
                   "echo \"$XDG_CONFIG_HOME $XDG_DATA_HOME $@\" > \"$XDG_CONFIG_HOME.asked\"\n");
        qputenv("PATH", tools.toUtf8());
        AssociateFileTypes(places);
        const QByteArray asked = places.configFolder.toUtf8() + ' ' + places.dataFolder.toUtf8() +
                                 " default orchard-bench.desktop " + BasicType.toUtf8() + ' ' + FormType.toUtf8() +
                                 '\n';
        QCOMPARE(Get(places.configFolder + u".asked"_s), asked);
        // The association is written even when the tool wrote nothing.
        QVERIFY(Get(Config()).contains("application/x-orchard-form=orchard-bench.desktop;\n"));
    }

    void associatingTwiceIsHarmless()
    {
        Put(Config(), "[Default Applications]\ntext/plain=edit.desktop\n");
        AssociateFileTypes(places);
        const QMap<QString, QByteArray> once = Everything();
        AssociateFileTypes(places);
        QCOMPARE(Everything(), once);
        QVERIFY(Get(Config()).startsWith("[Default Applications]\ntext/plain=edit.desktop\n"));
    }

    void aListThatIsALinkStaysOne()
    {
        const QString target = folder->filePath(u"dots/mimeapps.list"_s);
        Put(target, "[Default Applications]\ntext/plain=edit.desktop\n");
        QDir().mkpath(places.configFolder);
        QVERIFY(QFile::link(target, Config()));
        AssociateFileTypes(places);
        QVERIFY(QFileInfo(Config()).isSymLink());
        QVERIFY(Get(target).contains("text/plain=edit.desktop\napplication/x-orchard-basic=orchard-bench.desktop;\n"));
    }

    void aFolderThatCannotBeMadeIsAFailure()
    {
        Put(places.dataFolder, "a file in the way");
        QCOMPARE(RaisedBy(places), static_cast<int>(ErrorNumber::PathFileAccess));
        QCOMPARE(Get(places.dataFolder), QByteArray("a file in the way"));
        QVERIFY(!QFile::exists(Config()));
    }

    void aListThatCannotBeWrittenIsAFailure()
    {
        QVERIFY(QDir().mkpath(Config() + u"/a folder in the way"_s));
        QCOMPARE(RaisedBy(places), static_cast<int>(ErrorNumber::PathFileAccess));
    }

    void aTypeDatabaseThatCannotBeBuiltIsAFailure()
    {
        const QString tools = folder->filePath(u"tools"_s);
        PutProgram(tools + u"/update-mime-database"_s, "exit 1\n");
        qputenv("PATH", tools.toUtf8());
        QCOMPARE(RaisedBy(places), static_cast<int>(ErrorNumber::DeviceIoError));
    }

    void missingIconsAreAFailure()
    {
        places.iconFolder = folder->filePath(u"none"_s);
        QCOMPARE(RaisedBy(places), static_cast<int>(ErrorNumber::FileNotFound));
    }

private:
    QString Data(const QString& name) const
    {
        return places.dataFolder + QLatin1Char('/') + name;
    }
    QString Config() const
    {
        return places.configFolder + u"/mimeapps.list"_s;
    }

    // Runs a program on the test's desktop and returns its output.
    QByteArray Ask(const QString& program, const QStringList& arguments) const
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"XDG_DATA_HOME"_s, places.dataFolder);
        environment.insert(u"XDG_CONFIG_HOME"_s, places.configFolder);
        environment.remove(u"XDG_CURRENT_DESKTOP"_s);
        QProcess process;
        process.setProcessEnvironment(environment);
        process.start(program, arguments);
        if (!process.waitForFinished() || process.exitCode() != 0)
            QTest::qFail(
                qPrintable(u"%1 failed: "_s.arg(program) + QString::fromLocal8Bit(process.readAllStandardError())),
                __FILE__, __LINE__);
        return process.readAllStandardOutput();
    }

    QString TypeOf(const QString& name) const
    {
        const QString file = folder->filePath(name);
        Put(file, "x");
        return QString::fromUtf8(Ask(QCoreApplication::applicationFilePath(), {u"--type-of"_s, file}).trimmed());
    }

    QMap<QString, QByteArray> Everything() const
    {
        QMap<QString, QByteArray> files;
        QDirIterator found(folder->path(), QDir::Files, QDirIterator::Subdirectories);
        while (found.hasNext()) {
            const QString path = found.next();
            files.insert(path, Get(path));
        }
        return files;
    }

    const QByteArray usualPath = qgetenv("PATH");
    std::unique_ptr<QTemporaryDir> folder;
    AssociationPlaces places;
};

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    // The toolkit reads the types once, so each query is a separate process.
    if (arguments.size() == 3 && arguments[1] == QLatin1String("--type-of")) {
        std::puts(qPrintable(QMimeDatabase().mimeTypeForFile(arguments[2]).name()));
        return 0;
    }
    if (arguments.size() == 3 && arguments[1] == QLatin1String("--parent-of")) {
        std::puts(qPrintable(QMimeDatabase().mimeTypeForName(arguments[2]).parentMimeTypes().join(QLatin1Char(' '))));
        return 0;
    }
    tst_modAssociation test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_modAssociation.moc"
