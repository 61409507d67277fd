// SPDX-License-Identifier: GPL-3.0-or-later
// Media files: the commands that play them, the code that plays them, their copies.
#include "imagetools/media/modMedia.h"

#include "platform/files/FileTrouble.h"
#include "support/ScriptedMedia.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

using namespace ob;

class tst_modMedia : public QObject {
    Q_OBJECT

private:
    QString Path(const char* name) const { return folder->filePath(QString::fromLatin1(name)); }

    std::unique_ptr<QTemporaryDir> folder;

private Q_SLOTS:
    void init()
    {
        // No dot in the folder's name, as the first one decides.
        folder = std::make_unique<QTemporaryDir>(QDir::tempPath() + u"/obmediaXXXXXX"_s);
        for (const char* name :
             {"song.mid", "film.AVI", "film.mpg", "film.Mpeg", "song.mp3", "song.wav", "two.parts.mid"})
            Put(Path(name), name);
    }
    void cleanup()
    {
        StopMedia();
        folder.reset();
    }

    void theFirstDotDecidesTheType_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("extension");
        QTest::addColumn<int>("type");
        const auto row = [](const char* file, const char* extension, MediaType type) {
            QTest::newRow(file) << QString::fromLatin1(file) << QString::fromLatin1(extension)
                                << static_cast<int>(type);
        };
        row("a.avi", "avi", MediaType::Avi);
        row("C:\\films\\A.AVI", "AVI", MediaType::Avi);
        row("/home/me/a.Mid", "Mid", MediaType::Midi);
        row("a.mpg", "mpg", MediaType::Mpeg);
        row("a.mpeg", "mpeg", MediaType::Mpeg);
        row("a.MP3", "MP3", MediaType::Mpeg);
        row("a.wav", "wav", MediaType::Unknown);
        row("a.midi", "midi", MediaType::Unknown);
        row("a", "", MediaType::Unknown);
        row("", "", MediaType::Unknown);
        row("a.b.avi", "b.avi", MediaType::Unknown);
        row("/home/me.too/a.avi", "too/a.avi", MediaType::Unknown);
        row("a.avi ", "avi ", MediaType::Unknown);
    }

    void theFirstDotDecidesTheType()
    {
        QFETCH(QString, file);
        QFETCH(QString, extension);
        QFETCH(int, type);
        QCOMPARE(MediaExtension(file), extension);
        QCOMPARE(static_cast<int>(MediaTypeOf(file)), type);
    }

    void theCodeHasTheTypeClauseOfTheFile_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QByteArray>("clause");
        QTest::newRow("mid") << u"x.MID"_s << QByteArray(" type sequencer alias PlayFile");
        QTest::newRow("avi") << u"x.avi"_s << QByteArray(" type avivideo alias PlayFile");
        QTest::newRow("mpg") << u"x.mpg"_s << QByteArray(" type mpegvideo alias PlayFile");
        QTest::newRow("mpeg") << u"x.mpeg"_s << QByteArray(" type mpegvideo alias PlayFile");
        QTest::newRow("mp3") << u"x.mp3"_s << QByteArray(" type mpegvideo alias PlayFile");
        QTest::newRow("unknown") << u"x.ogg"_s << QByteArray();
    }

    void theCodeHasTheTypeClauseOfTheFile()
    {
        QFETCH(QString, file);
        QFETCH(QByteArray, clause);
        const QByteArray call =
            "calldll #winmm, \"mciSendStringA\", a$ as ptr, 0 as long, 0 as long, 0 as long, r as long\r\n";
        const QByteArray expected = "a$ = \"open " + file.toLatin1() + clause + "\"\r\n" + call +
                                    "a$ = \"play PlayFile wait\"\r\n" + call + "a$ = \"close PlayFile\"\r\n" + call;
        QCOMPARE(MediaCode(file, MediaPath::NameOnly).toLatin1(), expected);
    }

    void theCodeNamesTheFileWithOrWithoutItsPath()
    {
        const auto firstLine = [](const char* file, MediaPath path) {
            return MediaCode(QString::fromLatin1(file), path).section(u"\r\n"_s, 0, 0);
        };
        QCOMPARE(firstLine("/music/my song.mid", MediaPath::NameOnly),
                 u"a$ = \"open my song.mid type sequencer alias PlayFile\""_s);
        QCOMPARE(firstLine("/music/my song.mid", MediaPath::Whole),
                 u"a$ = \"open /music/my song.mid type sequencer alias PlayFile\""_s);
        QCOMPARE(firstLine("C:\\music\\song.mid", MediaPath::NameOnly),
                 u"a$ = \"open song.mid type sequencer alias PlayFile\""_s);
        QCOMPARE(firstLine("/my.music/song.mid", MediaPath::NameOnly), u"a$ = \"open song.mid\""_s);
    }

    void eachTypePlaysOnItsDevice_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("kind");
        QTest::newRow("avi") << u"film.AVI"_s << u"video"_s;
        QTest::newRow("mid") << u"song.mid"_s << u"midi"_s;
        QTest::newRow("mpg") << u"film.mpg"_s << u"video"_s;
        QTest::newRow("mpeg") << u"film.Mpeg"_s << u"video"_s;
        QTest::newRow("mp3") << u"song.mp3"_s << u"video"_s;
    }

    void eachTypePlaysOnItsDevice()
    {
        QFETCH(QString, name);
        QFETCH(QString, kind);
        ScriptedMedia media;
        media.length = 61'500;
        const QString path = folder->filePath(name);
        QVERIFY(PlayMedia(path));
        QCOMPARE(media.log, (QStringList{u"open %1 %2"_s.arg(kind, path), u"play"_s}));
        QCOMPARE(MediaLength(), 61'500.0F);
    }

    void otherTypesPlayNothing()
    {
        ScriptedMedia media;
        QVERIFY(!PlayMedia(Path("song.wav")));
        QVERIFY(!PlayMedia(Path("two.parts.mid")));
        QVERIFY(media.log.isEmpty());
    }

    void aSecondFileClosesTheFirst()
    {
        ScriptedMedia media;
        media.length = 1'000;
        PlayMIDI(Path("song.mid"));
        PlayMPEG(Path("song.mp3"));
        QCOMPARE(media.openCount, 1);
        QCOMPARE(media.log.indexOf(u"close"_s), 2);
    }

    void theTickFollowsThePlayingAndStopsAtTheEnd()
    {
        ScriptedMedia media;
        media.length = 1'000;
        PlayAVI(Path("film.AVI"));
        media.position = 999;
        MediaProgress progress = PollMedia();
        QCOMPARE(progress.position, 999.0F);
        QVERIFY(!progress.hasEnded && media.openCount == 1);
        media.position = 1'000;
        progress = PollMedia();
        QVERIFY(progress.hasEnded && media.openCount == 0);
    }

    void aFileThatCannotBeOpenedEndsAtTheFirstTick()
    {
        ScriptedMedia media;
        media.length = 5'000;
        PlayAVI(Path("film.AVI"));
        media.length = -1;
        PlayAVI(Path("film.AVI"));
        QCOMPARE(MediaLength(), 0.0F);
        QVERIFY(PollMedia().hasEnded);
        QVERIFY(!media.log.mid(3).contains(u"play"_s));
    }

    void missingSoundFontsAndDevicesAreReported()
    {
        ScriptedMedia media;
        media.length = 1'000;
        PlayMIDI(Path("song.mid"));
        QVERIFY(MissingMediaText().isEmpty() && !IsMediaSilent());
        media.trouble = MediaTrouble::NoSoundDevice;
        PlayMIDI(Path("song.mid"));
        QVERIFY(MissingMediaText().isEmpty() && IsMediaSilent());
        media.length = -1;
        media.trouble = MediaTrouble::NoSoundFont;
        PlayMIDI(Path("song.mid"));
        QVERIFY(MissingMediaText().contains(QLatin1String("sound font")));
        media.trouble = MediaTrouble::NoPlayer;
        PlayMIDI(Path("song.mid"));
        QVERIFY(MissingMediaText().contains(QLatin1String("MediaPlayerOB")));
        media.trouble = MediaTrouble::None;
        PlayMIDI(Path("song.mid"));
        QVERIFY(MissingMediaText().isEmpty());
    }

    void timesAreShownInMinutesAndHours_data()
    {
        QTest::addColumn<float>("position");
        QTest::addColumn<float>("length");
        QTest::addColumn<QString>("text");
        QTest::newRow("start") << 0.0F << 0.0F << u"0:00 / 0:00"_s;
        QTest::newRow("seconds") << 7'999.0F << 90'000.0F << u"0:07 / 1:30"_s;
        QTest::newRow("hours") << 59 * 60'000.0F << 3'661'000.0F << u"59:00 / 1:01:01"_s;
        QTest::newRow("beyond the end") << 5'000.0F << 2'000.0F << u"0:02 / 0:02"_s;
        QTest::newRow("absurd") << 0.0F << 9e18F << u"0:00 / 277777:46:40"_s;
        QTest::newRow("below nothing") << -5.0F << -1.0F << u"0:00 / 0:00"_s;
    }

    void timesAreShownInMinutesAndHours()
    {
        QFETCH(float, position);
        QFETCH(float, length);
        QFETCH(QString, text);
        QCOMPARE(MediaTimeText(position, length), text);
    }

    void copyFiltersFollowTheType_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("filter");
        QTest::newRow("mid") << u"a.mid"_s << u"MIDI Files (*.mid)| *.mid"_s;
        QTest::newRow("avi") << u"a.AVI"_s << u"AVI Files (*.avi)| *.avi"_s;
        QTest::newRow("mpg") << u"a.mpg"_s << u"Movie Files (*.mpg)| *.mpg"_s;
        QTest::newRow("mpeg") << u"a.mpeg"_s << u"Movie Files (*.mpg)| *.mpg"_s;
        QTest::newRow("mp3") << u"a.Mp3"_s << u"Music Files (*.mp3)| *.mp3"_s;
        QTest::newRow("other") << u"a.ogg"_s << QString();
    }

    void copyFiltersFollowTheType()
    {
        QFETCH(QString, file);
        QFETCH(QString, filter);
        QCOMPARE(MediaCopyFilter(file), filter);
    }

    void aCopyHasTheSameBytes()
    {
        QByteArray bytes(3'000'001, 'x');
        for (qsizetype i = 0; i < bytes.size(); ++i)
            bytes[i] = static_cast<char>(i * 7 + i / 251);
        Put(Path("large.avi"), bytes);
        CopyMedia(Path("large.avi"), Path("copy.avi"));
        QVERIFY(Get(Path("copy.avi")) == bytes);
        CopyMedia(Path("large.avi"), Path("large.avi"));
        QVERIFY(Get(Path("large.avi")) == bytes);
        Put(Path("empty.avi"), "");
        CopyMedia(Path("empty.avi"), Path("copy.avi"));
        QCOMPARE(Get(Path("copy.avi")), QByteArray());
    }

    void aCopyThatFailsLeavesWhatWasThere()
    {
        const QStringList before = QDir(folder->path()).entryList(QDir::Files | QDir::Hidden);
        QCOMPARE(ErrorOf([&] { CopyMedia(Path("gone.mid"), Path("film.AVI")); }), pathFileAccess);
        QCOMPARE(ErrorOf([&] { CopyMedia(folder->path(), Path("film.AVI")); }), pathFileAccess);
        QCOMPARE(ErrorOf([&] { CopyMedia(Path("song.mid"), Path("no/such/folder.mid")); }), pathNotFound);
        QCOMPARE(ErrorOf([&] { CopyMedia(Path("song.mid"), folder->path()); }), pathFileAccess);
#ifdef Q_OS_UNIX
        Put(Path("large.avi"), QByteArray(100'000, 'x'));
        {
            const FileSizeLimit fullDisk(50'000);
            QCOMPARE(ErrorOf([&] { CopyMedia(Path("large.avi"), Path("film.AVI")); }), diskFull);
        }
        QVERIFY(QFile::remove(Path("large.avi")));
#endif
        QCOMPARE(Get(Path("film.AVI")), QByteArray("film.AVI"));
        QCOMPARE(QDir(folder->path()).entryList(QDir::Files | QDir::Hidden), before);
    }
};

QTEST_GUILESS_MAIN(tst_modMedia)
#include "tst_modMedia.moc"
