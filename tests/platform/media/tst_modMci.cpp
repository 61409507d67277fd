// SPDX-License-Identifier: GPL-3.0-or-later
// The command strings, over a scripted player.
#include "platform/media/modMci.h"

#include "platform/files/FileTrouble.h"
#include "platform/files/modPaths.h"
#include "support/ScriptedMedia.h"

#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

// The answer to a command, up to the NUL.
QString Ask(const char* command)
{
    QByteArray buffer(128, ' ');
    mciSendStringA(QString::fromLatin1(command), &buffer, 128, 0);
    return QString::fromLatin1(buffer.first(buffer.indexOf('\0')));
}

int Send(const QString& command)
{
    return static_cast<int>(mciSendStringA(command, nullptr, 0, 0));
}

int Number(MciResult result)
{
    return static_cast<int>(result);
}

} // namespace

class tst_modMci : public QObject {
    Q_OBJECT

private:
    QString Path(const char* name) const { return folder->filePath(QString::fromLatin1(name)); }

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<ScriptedMedia> media;

private Q_SLOTS:
    void init()
    {
        folder = std::make_unique<QTemporaryDir>();
        for (const char* name : {"a.avi", "two words.avi", "x ! alias y.mid", "s.wav"})
            Put(Path(name), "bytes");
        media = std::make_unique<ScriptedMedia>();
        media->length = 5'000;
    }
    void cleanup()
    {
        media.reset();
        folder.reset();
    }

    void aFileIsOpenedOnTheDeviceBeforeTheMark_data()
    {
        QTest::addColumn<QString>("device");
        QTest::addColumn<QString>("kind");
        QTest::newRow("avi") << u"AVIvideo"_s << u"video"_s;
        QTest::newRow("midi") << u"sequencer"_s << u"midi"_s;
        QTest::newRow("mpeg") << u"MPEGvideo"_s << u"video"_s;
        QTest::newRow("wave") << u"WAVEAUDIO"_s << u"sound"_s;
    }

    void aFileIsOpenedOnTheDeviceBeforeTheMark()
    {
        QFETCH(QString, device);
        QFETCH(QString, kind);
        for (const char* name : {"a.avi", "two words.avi", "x ! alias y.mid"}) {
            media->log.clear();
            QCOMPARE(Send(u"open %1!%2 alias PlayFile "_s.arg(device, Path(name))), 0);
            QCOMPARE(media->log, QStringList{u"open %1 %2"_s.arg(kind, Path(name))});
            QCOMPARE(Ask("status PlayFile length"), u"5000"_s);
            QCOMPARE(Send(u"close PlayFile"_s), 0);
        }
    }

    void theTypeFormAndQuotesOpenTheSameFile()
    {
        QCOMPARE(Send(u"open %1 type avivideo alias A"_s.arg(Path("a.avi"))), 0);
        QCOMPARE(Send(u"OPEN \"%1\" TYPE mpegvideo ALIAS B"_s.arg(Path("two words.avi"))), 0);
        QCOMPARE(Send(u"open sequencer!%1"_s.arg(Path("a.avi"))), 0);
        QCOMPARE(media->log, (QStringList{u"open video "_s + Path("a.avi"), u"open video "_s + Path("two words.avi"),
                                          u"open midi "_s + Path("a.avi")}));
        QCOMPARE(Send(u"close "_s + Path("a.avi")), 0);
        QCOMPARE(media->openCount, 2);
    }

    void theAnswerEndsInANulAndLeavesTheRest()
    {
        Send(u"open avivideo!%1 alias P"_s.arg(Path("a.avi")));
        QByteArray buffer(8, ' ');
        QCOMPARE(Number(mciSendStringA(u"status P length"_s, &buffer, 8, 0)), 0);
        QCOMPARE(buffer, QByteArray("5000\0   ", 8));
        QByteArray small(3, ' ');
        QCOMPARE(mciSendStringA(u"status P length"_s, &small, 3, 0), MciResult::AnswerTooLong);
        QCOMPARE(small, QByteArray("50\0", 3));
        QByteArray none;
        QCOMPARE(Number(mciSendStringA(u"status P length"_s, &none, 2, 0)), Number(MciResult::AnswerTooLong));
        QCOMPARE(none, QByteArray("5\0", 2));
        QCOMPARE(Number(mciSendStringA(u"status P length"_s, nullptr, 128, 0)), 0);
    }

    void positionAndModeFollowThePlaying()
    {
        Send(u"open avivideo!%1 alias PlayFile"_s.arg(Path("a.avi")));
        QCOMPARE(Ask("status PlayFile position"), u"0"_s);
        QCOMPARE(Ask("status PlayFile mode"), u"stopped"_s);
        QCOMPARE(Send(u"play PlayFile"_s), 0);
        QCOMPARE(media->log.last(), u"play"_s);
        media->position = 1'234;
        QCOMPARE(Ask("status playfile POSITION"), u"1234"_s);
        QCOMPARE(Ask("status PlayFile mode"), u"playing"_s);
        media->position = 5'000;
        QCOMPARE(Ask("status PlayFile mode"), u"stopped"_s);
    }

    void closeAllClosesEveryDevice()
    {
        Send(u"open avivideo!%1 alias A"_s.arg(Path("a.avi")));
        Send(u"open avivideo!%1 alias B"_s.arg(Path("two words.avi")));
        QCOMPARE(media->openCount, 2);
        QCOMPARE(Send(u"close all"_s), 0);
        QCOMPARE(media->openCount, 0);
        QCOMPARE(Ask("status A length"), QString());
        QCOMPARE(Send(u"close all"_s), 0);
    }

    void stopEndsOneDevice()
    {
        Send(u"open avivideo!%1 alias A"_s.arg(Path("a.avi")));
        QCOMPARE(Send(u"stop A"_s), 0);
        QCOMPARE(media->openCount, 0);
    }

    void playAndWaitReturnsAtTheEnd()
    {
        Send(u"open avivideo!%1 alias A"_s.arg(Path("a.avi")));
        QTimer::singleShot(60, this, [this] { media->position = 5'000; });
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(Send(u"play A wait"_s), 0);
        QVERIFY(timer.elapsed() >= 55);
        QTimer::singleShot(30, this, [] { Send(u"close all"_s); });
        media->position = 0;
        QCOMPARE(Send(u"play A wait"_s), 0);
        QCOMPARE(media->openCount, 0);
    }

    void commandsThatMakeNoSenseSaySo_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<int>("result");
        const auto row = [](const char* command, MciResult result) {
            QTest::newRow(command) << QString::fromLatin1(command) << Number(result);
        };
        row("", MciResult::MissingCommandString);
        row("   ", MciResult::MissingCommandString);
        row("sing A", MciResult::UnrecognizedCommand);
        row("open", MciResult::InvalidDeviceName);
        row("open alias A", MciResult::InvalidDeviceName);
        row("open cdaudio!FILE alias A", MciResult::InvalidDeviceName);
        row("open FILE type flute alias A", MciResult::InvalidDeviceName);
        row("open avivideo! alias A", MciResult::FileNotFound);
        row("open avivideo!FILE.gone alias A", MciResult::FileNotFound);
        row("open avivideo!FOLDER alias A", MciResult::FileNotFound);
        row("open avivideo!FILE alias P", MciResult::DuplicateAlias);
        row("status", MciResult::InvalidDeviceName);
        row("status P", MciResult::InvalidDeviceName);
        row("status Q length", MciResult::InvalidDeviceName);
        row("status P tracks", MciResult::UnsupportedFunction);
        row("play", MciResult::InvalidDeviceName);
        row("play wait", MciResult::InvalidDeviceName);
        row("play Q", MciResult::InvalidDeviceName);
        row("close", MciResult::InvalidDeviceName);
        row("close Q", MciResult::InvalidDeviceName);
    }

    void commandsThatMakeNoSenseSaySo()
    {
        QFETCH(QString, command);
        QFETCH(int, result);
        Send(u"open avivideo!%1 alias P"_s.arg(Path("a.avi")));
        command.replace(QLatin1String("FILE"), Path("a.avi")).replace(QLatin1String("FOLDER"), folder->path());
        QCOMPARE(Send(command), result);
        QCOMPARE(media->openCount, 1);
    }

    void aFileThatThePlayerRefusesIsNotOpen()
    {
        media->length = -1;
        media->trouble = MediaTrouble::NoSoundFont;
        QCOMPARE(Send(u"open sequencer!%1 alias P"_s.arg(Path("a.avi"))), Number(MciResult::InvalidFile));
        QCOMPARE(LastMediaTrouble(), MediaTrouble::NoSoundFont);
        QCOMPARE(Ask("status P length"), QString());
    }

    void aMissingPlayerIsTrouble()
    {
        media.reset();
        SetLibraryFolder(folder->path());
        SetProgramFolder(folder->path());
        QCOMPARE(Send(u"open avivideo!%1 alias P"_s.arg(Path("a.avi"))), Number(MciResult::InvalidFile));
        QCOMPARE(LastMediaTrouble(), MediaTrouble::NoPlayer);
        QVERIFY(!sndPlaySoundA(Path("s.wav"), SND_ASYNC));
        SetLibraryFolder({});
        SetProgramFolder({});
    }

    void aSoundPlaysBesideTheDevicesAndTheNextOneEndsIt()
    {
        QVERIFY(sndPlaySoundA(Path("s.wav"), SND_ASYNC | SND_NODEFAULT));
        QCOMPARE(media->log, (QStringList{u"open sound "_s + Path("s.wav"), u"play"_s}));
        Send(u"close all"_s);
        QCOMPARE(media->openCount, 1);
        QVERIFY(sndPlaySoundA(Path("s.wav"), SND_ASYNC | SND_NODEFAULT));
        QCOMPARE(media->openCount, 1);
        QCOMPARE(media->log.count(u"close"_s), 1);
    }

    void theNameOfNoSoundEndsTheOneInProgress()
    {
        sndPlaySoundA(Path("s.wav"), SND_ASYNC);
        // Even when a file has that name.
        const QString before = QDir::currentPath();
        QDir::setCurrent(folder->path());
        Put(Path("1"), "bytes");
        QVERIFY(!sndPlaySoundA(u"1"_s, SND_SYNC));
        QDir::setCurrent(before);
        QCOMPARE(media->openCount, 0);
        QCOMPARE(media->log.last(), u"close"_s);
    }

    void aSoundWithoutTheFlagPlaysToItsEnd()
    {
        QTimer::singleShot(60, this, [this] { media->position = 5'000; });
        QElapsedTimer timer;
        timer.start();
        QVERIFY(sndPlaySoundA(Path("s.wav"), SND_SYNC));
        QVERIFY(timer.elapsed() >= 55);
    }

    void aMissingSoundIsRejected()
    {
        QVERIFY(!sndPlaySoundA(Path("gone.wav"), SND_ASYNC));
        QVERIFY(!sndPlaySoundA(folder->path(), SND_ASYNC));
        QVERIFY(media->log.isEmpty());
    }
};

QTEST_GUILESS_MAIN(tst_modMci)
#include "tst_modMci.moc"
