// SPDX-License-Identifier: GPL-3.0-or-later
// The settings store returns every text as it was written.
#include "shell/state/modSettings.h"

#include "core/FakeMainForm.h"
#include "platform/files/FileTrouble.h"
#include "platform/files/modSync.h"
#include "shell/state/Module1.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <limits>
#include <memory>

class tst_modSettings : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aMissingKeyGivesTheFallback();
    void everyTextComesBackExactly_data();
    void everyTextComesBackExactly();
    void textsSurviveInAnotherProcess();
    void theSectionIsSettings();
    void aListWrittenByHandIsOneText();
    void aStoreThatCannotBeWrittenKeepsItsTexts();
    void theReasonOfAFailedSyncIsInTheStatusBar();
    void aDiskThatLosesTheNameIsReported();
    void aBrokenFileGivesFallbacks();
    void theUsersOwnStoreBearsTheApplicationsName();
    void readingAllKeysTakesLessThanAMillisecond_data();
    void readingAllKeysTakesLessThanAMillisecond();

private:
    QString StoreFile() const { return folder->filePath(QStringLiteral("store.ini")); }
    // Reads the store from disk again, under another name because the toolkit caches a file it has opened.
    void Reopen() const
    {
        ob::SyncSettings();
        const QString copy = folder->filePath(QStringLiteral("copy.ini"));
        QVERIFY(QFile::copy(ob::SettingsFile(), copy));
        ob::SetSettingsFile(copy);
    }

    std::unique_ptr<QTemporaryDir> folder;
};

void tst_modSettings::init()
{
    folder = std::make_unique<QTemporaryDir>();
    ob::SetSettingsFile(StoreFile());
}

void tst_modSettings::cleanup()
{
    ob::SetSettingsFile(folder->filePath(QStringLiteral("last.ini")));
}

void tst_modSettings::aMissingKeyGivesTheFallback()
{
    QCOMPARE(ob::ReadSetting(QStringLiteral("FontName"), QStringLiteral("Courier New")), QStringLiteral("Courier New"));
    ob::WriteSetting(QStringLiteral("FontName"), QString());
    QCOMPARE(ob::ReadSetting(QStringLiteral("FontName"), QStringLiteral("Courier New")), QString());
    Reopen();
    QCOMPARE(ob::ReadSetting(QStringLiteral("FontName"), QStringLiteral("Courier New")), QString());
    QCOMPARE(ob::ReadSetting(QStringLiteral("TabSize"), QStringLiteral("4")), QStringLiteral("4"));
}

void tst_modSettings::everyTextComesBackExactly_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QStringLiteral("");
    QTest::newRow("word") << QStringLiteral("untitled");
    QTest::newRow("boolean") << QStringLiteral("True");
    QTest::newRow("number") << QStringLiteral("0012.50");
    QTest::newRow("comma") << QStringLiteral("a,b, c,");
    QTest::newRow("one comma") << QStringLiteral(",");
    QTest::newRow("backslashes") << QStringLiteral("c:\\new folder\\x00\\\\server\\");
    QTest::newRow("quotes") << QStringLiteral("\"a\" 'b\"");
    QTest::newRow("semicolon, equals, percent") << QStringLiteral("a;b=c%20%d#e");
    QTest::newRow("spaces at the ends") << QStringLiteral("  a  ");
    QTest::newRow("tab and lines") << QStringLiteral("a\tb\r\nc\nd\re");
    QTest::newRow("unicode") << QStringLiteral("/home/j\u00FCrgen/\u0436\u4E2D/\U0001F600.bas");
    QTest::newRow("at sign") << QStringLiteral("@ByteArray(x)");
    QTest::newRow("invalid mark") << QStringLiteral("@Invalid()");
    QTest::newRow("two at signs") << QStringLiteral("@@");
    QTest::newRow("brackets") << QStringLiteral("[Settings]");
    QTest::newRow("NUL") << QStringLiteral("a") + QChar::Null + QStringLiteral("b");
    QTest::newRow("hexadecimal after unicode") << QStringLiteral("\u0001abc\u00E4def");
    QTest::newRow("long") << QString(100000, u'x');
}

void tst_modSettings::everyTextComesBackExactly()
{
    QFETCH(QString, text);
    ob::WriteSetting(QStringLiteral("MRU1"), text);
    ob::WriteSetting(QStringLiteral("User10"), QStringLiteral("after"));
    QCOMPARE(ob::ReadSetting(QStringLiteral("MRU1"), QStringLiteral("fallback")), text);
    Reopen();
    QCOMPARE(ob::ReadSetting(QStringLiteral("MRU1"), QStringLiteral("fallback")), text);
    QCOMPARE(ob::ReadSetting(QStringLiteral("User10"), QStringLiteral("fallback")), QStringLiteral("after"));
}

void tst_modSettings::textsSurviveInAnotherProcess()
{
    ob::WriteSetting(QStringLiteral("LastDir"), QStringLiteral("/tmp/a, b"));
    ob::SyncSettings();
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--print-setting"), StoreFile()});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.readAllStandardOutput(), QByteArray("/tmp/a, b"));
}

void tst_modSettings::theSectionIsSettings()
{
    ob::WriteSetting(QStringLiteral("TabSize"), QStringLiteral("8"));
    ob::SyncSettings();
    QFile file(StoreFile());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll().replace("\r\n", "\n"), QByteArray("[Settings]\nTabSize=8\n"));
}

void tst_modSettings::aListWrittenByHandIsOneText()
{
    QFile file(folder->filePath(QStringLiteral("hand.ini")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[Settings]\nFontName=Courier, New\n");
    file.close();
    ob::SetSettingsFile(file.fileName());
    QCOMPARE(ob::ReadSetting(QStringLiteral("FontName"), {}), QStringLiteral("Courier, New"));
}

void tst_modSettings::aStoreThatCannotBeWrittenKeepsItsTexts()
{
#ifdef Q_OS_LINUX
    ob::SetSettingsFile(QStringLiteral("/proc/store.ini"));
    QCOMPARE(ob::ReadSetting(QStringLiteral("TabSize"), QStringLiteral("4")), QStringLiteral("4"));
    ob::WriteSetting(QStringLiteral("TabSize"), QStringLiteral("8"));
    ob::SyncSettings();
    QCOMPARE(ob::ReadSetting(QStringLiteral("TabSize"), QStringLiteral("4")), QStringLiteral("8"));
    QVERIFY(!QFileInfo::exists(QStringLiteral("/proc/store.ini")));
#else
    QSKIP("has no such folder");
#endif
}

namespace {

// A main window with nothing but its status bar, and what that shows after a sync.
class StatusBar {
public:
    StatusBar() { ob::MainForm = &form; }
    ~StatusBar() { ob::MainForm = nullptr; }
    StatusBar(const StatusBar&) = delete;
    StatusBar& operator=(const StatusBar&) = delete;

    QString AfterSync()
    {
        form.status = QStringLiteral("as it was");
        ob::SyncSettings();
        QCoreApplication::processEvents();
        return form.status;
    }

private:
    ob::FakeMainForm form;
};

} // namespace

void tst_modSettings::theReasonOfAFailedSyncIsInTheStatusBar()
{
#ifdef Q_OS_UNIX
    StatusBar bar;
    QVERIFY(QFile::setPermissions(folder->path(), QFile::Permissions(0x5555)));
    {
        const PlainUser user;
        ob::WriteSetting(QStringLiteral("TabSize"), QStringLiteral("8"));
        QCOMPARE(bar.AfterSync(), QStringLiteral("Permission denied"));
    }
    QVERIFY(QFile::setPermissions(folder->path(), QFile::Permissions(0x7777)));
    QCOMPARE(bar.AfterSync(), QStringLiteral("as it was"));
    QVERIFY(Get(StoreFile()).contains("TabSize=8"));
#else
    QSKIP("has no such permissions");
#endif
}

void tst_modSettings::aDiskThatLosesTheNameIsReported()
{
    StatusBar bar;
    ob::WriteSetting(QStringLiteral("TabSize"), QStringLiteral("8"));
    ob::SetDisk([](ob::SyncStep) { return std::make_error_code(std::errc::io_error); });
    const QString status = bar.AfterSync();
    ob::SetDisk({});
    QCOMPARE(status, QStringLiteral("Input/output error"));
    QCOMPARE(bar.AfterSync(), QStringLiteral("as it was"));
}

void tst_modSettings::aBrokenFileGivesFallbacks()
{
    QFile file(folder->filePath(QStringLiteral("broken.ini")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("\xFF\xFE\x01no section\n[Settings\nTabSize\n[]=\n");
    file.close();
    ob::SetSettingsFile(file.fileName());
    QCOMPARE(ob::ReadSetting(QStringLiteral("TabSize"), QStringLiteral("4")), QStringLiteral("4"));
}

void tst_modSettings::theUsersOwnStoreBearsTheApplicationsName()
{
    ob::SetSettingsFile({});
    QCOMPARE(QFileInfo(ob::SettingsFile()).completeBaseName(), QStringLiteral("OB Bench"));
}

void tst_modSettings::readingAllKeysTakesLessThanAMillisecond_data()
{
    QTest::addColumn<bool>("isFilled");
    QTest::newRow("empty store") << false;
    QTest::newRow("filled store") << true;
}

void tst_modSettings::readingAllKeysTakesLessThanAMillisecond()
{
    QFETCH(bool, isFilled);
    QStringList keys;
    for (int number = 1; number <= 60; ++number)
        keys += QStringLiteral("Key%1").arg(number);
    if (isFilled) {
        for (const QString& key : std::as_const(keys))
            ob::WriteSetting(key, QStringLiteral("/home/user/a folder/") + key);
        ob::SyncSettings();
    }
    // The best of several runs: other programs may take the processor in between.
    qint64 best = std::numeric_limits<qint64>::max();
    for (int round = 0; round < 20; ++round) {
        ob::SetSettingsFile(folder->filePath(QStringLiteral("other.ini")));
        const QString copy = folder->filePath(QStringLiteral("copy%1.ini").arg(round));
        if (isFilled)
            QVERIFY(QFile::copy(StoreFile(), copy));
        QElapsedTimer timer;
        timer.start();
        ob::SetSettingsFile(copy);
        qsizetype length = 0;
        for (const QString& key : std::as_const(keys))
            length += ob::ReadSetting(key, QStringLiteral("-")).size();
        best = std::min(best, timer.nsecsElapsed());
        QVERIFY(isFilled ? length > 60 * 20 : length == 60);
    }
    qInfo("opening and reading 60 keys: %lld microseconds", static_cast<long long>(best / 1000));
    QVERIFY2(best < 1000000, "slower than a millisecond");
}

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    if (argc == 3 && qstrcmp(argv[1], "--print-setting") == 0) {
        ob::SetSettingsFile(QString::fromLocal8Bit(argv[2]));
        QFile out;
        const QByteArray value = ob::ReadSetting(QStringLiteral("LastDir"), {}).toUtf8();
        return out.open(1, QIODevice::WriteOnly) && out.write(value) == value.size() ? 0 : 1;
    }
    QStandardPaths::setTestModeEnabled(true);
    tst_modSettings test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_modSettings.moc"
