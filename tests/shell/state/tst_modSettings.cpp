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

using namespace Qt::StringLiterals;

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
    QString StoreFile() const { return folder->filePath(u"store.ini"_s); }
    // Reads the store from disk again, under another name because the toolkit caches a file it has opened.
    void Reopen() const
    {
        ob::SyncSettings();
        const QString copy = folder->filePath(u"copy.ini"_s);
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
    ob::SetSettingsFile(folder->filePath(u"last.ini"_s));
}

void tst_modSettings::aMissingKeyGivesTheFallback()
{
    QCOMPARE(ob::ReadSetting(u"FontName"_s, u"Courier New"_s), u"Courier New"_s);
    ob::WriteSetting(u"FontName"_s, QString());
    QCOMPARE(ob::ReadSetting(u"FontName"_s, u"Courier New"_s), QString());
    Reopen();
    QCOMPARE(ob::ReadSetting(u"FontName"_s, u"Courier New"_s), QString());
    QCOMPARE(ob::ReadSetting(u"TabSize"_s, u"4"_s), u"4"_s);
}

void tst_modSettings::everyTextComesBackExactly_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << u""_s;
    QTest::newRow("word") << u"untitled"_s;
    QTest::newRow("boolean") << u"True"_s;
    QTest::newRow("number") << u"0012.50"_s;
    QTest::newRow("comma") << u"a,b, c,"_s;
    QTest::newRow("one comma") << u","_s;
    QTest::newRow("backslashes") << u"c:\\new folder\\x00\\\\server\\"_s;
    QTest::newRow("quotes") << u"\"a\" 'b\""_s;
    QTest::newRow("semicolon, equals, percent") << u"a;b=c%20%d#e"_s;
    QTest::newRow("spaces at the ends") << u"  a  "_s;
    QTest::newRow("tab and lines") << u"a\tb\r\nc\nd\re"_s;
    QTest::newRow("unicode") << u"/home/j\u00FCrgen/\u0436\u4E2D/\U0001F600.bas"_s;
    QTest::newRow("at sign") << u"@ByteArray(x)"_s;
    QTest::newRow("invalid mark") << u"@Invalid()"_s;
    QTest::newRow("two at signs") << u"@@"_s;
    QTest::newRow("brackets") << u"[Settings]"_s;
    QTest::newRow("NUL") << u"a"_s + QChar::Null + u"b"_s;
    QTest::newRow("hexadecimal after unicode") << u"\u0001abc\u00E4def"_s;
    QTest::newRow("long") << QString(100000, u'x');
}

void tst_modSettings::everyTextComesBackExactly()
{
    QFETCH(QString, text);
    ob::WriteSetting(u"MRU1"_s, text);
    ob::WriteSetting(u"User10"_s, u"after"_s);
    QCOMPARE(ob::ReadSetting(u"MRU1"_s, u"fallback"_s), text);
    Reopen();
    QCOMPARE(ob::ReadSetting(u"MRU1"_s, u"fallback"_s), text);
    QCOMPARE(ob::ReadSetting(u"User10"_s, u"fallback"_s), u"after"_s);
}

void tst_modSettings::textsSurviveInAnotherProcess()
{
    ob::WriteSetting(u"LastDir"_s, u"/tmp/a, b"_s);
    ob::SyncSettings();
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {u"--print-setting"_s, StoreFile()});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.readAllStandardOutput(), QByteArray("/tmp/a, b"));
}

void tst_modSettings::theSectionIsSettings()
{
    ob::WriteSetting(u"TabSize"_s, u"8"_s);
    ob::SyncSettings();
    QFile file(StoreFile());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll().replace("\r\n", "\n"), QByteArray("[Settings]\nTabSize=8\n"));
}

void tst_modSettings::aListWrittenByHandIsOneText()
{
    QFile file(folder->filePath(u"hand.ini"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[Settings]\nFontName=Courier, New\n");
    file.close();
    ob::SetSettingsFile(file.fileName());
    QCOMPARE(ob::ReadSetting(u"FontName"_s, {}), u"Courier, New"_s);
}

void tst_modSettings::aStoreThatCannotBeWrittenKeepsItsTexts()
{
#ifdef Q_OS_LINUX
    ob::SetSettingsFile(u"/proc/store.ini"_s);
    QCOMPARE(ob::ReadSetting(u"TabSize"_s, u"4"_s), u"4"_s);
    ob::WriteSetting(u"TabSize"_s, u"8"_s);
    ob::SyncSettings();
    QCOMPARE(ob::ReadSetting(u"TabSize"_s, u"4"_s), u"8"_s);
    QVERIFY(!QFileInfo::exists(u"/proc/store.ini"_s));
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
        form.status = u"as it was"_s;
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
        ob::WriteSetting(u"TabSize"_s, u"8"_s);
        QCOMPARE(bar.AfterSync(), u"Permission denied"_s);
    }
    QVERIFY(QFile::setPermissions(folder->path(), QFile::Permissions(0x7777)));
    QCOMPARE(bar.AfterSync(), u"as it was"_s);
    QVERIFY(Get(StoreFile()).contains("TabSize=8"));
#else
    QSKIP("has no such permissions");
#endif
}

void tst_modSettings::aDiskThatLosesTheNameIsReported()
{
    StatusBar bar;
    ob::WriteSetting(u"TabSize"_s, u"8"_s);
    ob::SetDisk([](ob::SyncStep) { return std::make_error_code(std::errc::io_error); });
    const QString status = bar.AfterSync();
    ob::SetDisk({});
    QCOMPARE(status, u"Input/output error"_s);
    QCOMPARE(bar.AfterSync(), u"as it was"_s);
}

void tst_modSettings::aBrokenFileGivesFallbacks()
{
    QFile file(folder->filePath(u"broken.ini"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("\xFF\xFE\x01no section\n[Settings\nTabSize\n[]=\n");
    file.close();
    ob::SetSettingsFile(file.fileName());
    QCOMPARE(ob::ReadSetting(u"TabSize"_s, u"4"_s), u"4"_s);
}

void tst_modSettings::theUsersOwnStoreBearsTheApplicationsName()
{
    ob::SetSettingsFile({});
    QCOMPARE(QFileInfo(ob::SettingsFile()).completeBaseName(), u"OB Bench"_s);
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
        keys += u"Key%1"_s.arg(number);
    if (isFilled) {
        for (const QString& key : std::as_const(keys))
            ob::WriteSetting(key, u"/home/user/a folder/"_s + key);
        ob::SyncSettings();
    }
    // The best of several runs: other programs may take the processor in between.
    qint64 best = std::numeric_limits<qint64>::max();
    for (int round = 0; round < 20; ++round) {
        ob::SetSettingsFile(folder->filePath(u"other.ini"_s));
        const QString copy = folder->filePath(u"copy%1.ini"_s.arg(round));
        if (isFilled)
            QVERIFY(QFile::copy(StoreFile(), copy));
        QElapsedTimer timer;
        timer.start();
        ob::SetSettingsFile(copy);
        qsizetype length = 0;
        for (const QString& key : std::as_const(keys))
            length += ob::ReadSetting(key, u"-"_s).size();
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
        const QByteArray value = ob::ReadSetting(u"LastDir"_s, {}).toUtf8();
        return out.open(1, QIODevice::WriteOnly) && out.write(value) == value.size() ? 0 : 1;
    }
    QStandardPaths::setTestModeEnabled(true);
    tst_modSettings test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_modSettings.moc"
