// SPDX-License-Identifier: GPL-3.0-or-later
// The media player itself, with generated files: their lengths, timing and pictures, and files that are no media.
#include "support/BenchTest.h"
#include "support/TestBench.h"

#include "imagetools/media/frmMedia.h"
#include "platform/files/FileTrouble.h"
#include "platform/files/modPaths.h"
#include "platform/media/MidiBytes.h"
#include "platform/media/modMci.h"

#include <QDir>
#include <QElapsedTimer>
#include <QLabel>
#include <QProcess>
#include <QPushButton>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTimer>
#include <QWidget>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

constexpr int SoundRate = 8'000;

QByteArray LittleEndian(quint32 value, int width)
{
    QByteArray bytes;
    for (int i = 0; i < width; ++i)
        bytes += static_cast<char>(value >> (8 * i));
    return bytes;
}

// A sound of 16 bits per sample, so quiet that a test on a desktop disturbs nobody.
QByteArray WavFile(int milliseconds)
{
    QByteArray samples;
    for (int i = 0; i < SoundRate * milliseconds / 1'000; ++i)
        samples += LittleEndian(static_cast<quint32>(i / 10 % 2 == 0 ? 20 : 65'516), 2);
    const auto size = static_cast<quint32>(samples.size());
    return "RIFF" + LittleEndian(36 + size, 4) + "WAVEfmt " + LittleEndian(16, 4) + LittleEndian(1, 2) +
           LittleEndian(1, 2) + LittleEndian(SoundRate, 4) + LittleEndian(SoundRate * 2, 4) + LittleEndian(2, 2) +
           LittleEndian(16, 2) + "data" + LittleEndian(size, 4) + samples;
}

qint64 Ask(const QString& command)
{
    QByteArray buffer(128, ' ');
    mciSendStringA(command, &buffer, 128, 0);
    return buffer.first(buffer.indexOf('\0')).toLongLong();
}

MciResult Open(const QString& device, const QString& path)
{
    return mciSendStringA(u"open %1!%2 alias PlayFile "_s.arg(device, path), nullptr, 0, 0);
}

void Play()
{
    mciSendStringA(u"play PlayFile"_s, nullptr, 0, 0);
}

qint64 Position()
{
    return Ask(u"status PlayFile position"_s);
}

qint64 Length()
{
    return Ask(u"status PlayFile length"_s);
}

void CloseAll()
{
    mciSendStringA(u"close all"_s, nullptr, 0, 0);
}

// The window of the current film; null when there is none.
QWidget* FilmWindow()
{
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->objectName() == QLatin1String("frmVideo") && window->isVisible())
            return window;
    }
    return nullptr;
}

QColor PixelOf(QWidget& window, const QPoint& place)
{
    return window.grab().toImage().pixelColor(place);
}

bool IsNear(const QColor& left, const QColor& right)
{
    constexpr int tolerance = 24; // for lossy compression
    return std::abs(left.red() - right.red()) < tolerance && std::abs(left.green() - right.green()) < tolerance &&
           std::abs(left.blue() - right.blue()) < tolerance;
}

} // namespace

class win_MediaPlayerOB : public QObject {
    Q_OBJECT

private:
    QString Path(const QString& name) const { return folder.filePath(name); }

    // Has ffmpeg create a file in the test's folder.
    QString Make(const QString& name, const QString& arguments)
    {
        QProcess ffmpeg;
        ffmpeg.setWorkingDirectory(folder.path());
        ffmpeg.start(u"ffmpeg"_s,
                     QStringList{u"-v"_s, u"error"_s, u"-y"_s} + QProcess::splitCommand(arguments) + QStringList{name});
        if (!ffmpeg.waitForFinished() || ffmpeg.exitCode() != 0)
            QTest::qFail(ffmpeg.readAllStandardError().constData(), __FILE__, __LINE__);
        return Path(name);
    }

    QString Film(const QString& name, const QString& color, const QString& more)
    {
        return Make(name, u"-f lavfi -i color=%1:size=64x48:rate=10:duration=1 %2"_s.arg(color, more));
    }

    QTemporaryDir folder;

private Q_SLOTS:
    void initTestCase()
    {
        SetLibraryFolder(u"" OB_BIN ""_s);
        Put(Path(u"tone.wav"_s), WavFile(1'000));
        Put(Path(u"song.mid"_s), MidiSongFile(2));
        Film(u"red.avi"_s, u"red"_s, u"-c:v mpeg4 -q:v 2"_s);
        Film(u"plain.avi"_s, u"blue"_s, u"-c:v rawvideo -pix_fmt bgr24"_s);
        Make(u"tone.mp3"_s, u"-i tone.wav -ar 44100 -c:a libmp3lame"_s);
        Make(u"film.mpg"_s, u"-i tone.wav -f lavfi -i color=lime:size=64x48:rate=25:duration=1 "
                            "-c:v mpeg1video -c:a mp2 -ar 44100"_s);
        Film(u"cover.png"_s, u"red"_s, u"-frames:v 1"_s);
        Make(u"cover.mp3"_s, u"-i tone.mp3 -i cover.png -map 0 -map 1 -c copy "
                             "-disposition:v attached_pic"_s);
    }
    void cleanup()
    {
        CloseAll();
        QVERIFY(FilmWindow() == nullptr);
    }
    void cleanupTestCase() { SetLibraryFolder({}); }

    void eachKindPlaysToItsEnd_data()
    {
        QTest::addColumn<QString>("device");
        QTest::addColumn<QString>("name");
        QTest::newRow("wav") << u"waveaudio"_s << u"tone.wav"_s;
        QTest::newRow("avi") << u"AVIvideo"_s << u"red.avi"_s;
        QTest::newRow("uncompressed avi") << u"AVIvideo"_s << u"plain.avi"_s;
        QTest::newRow("mp3") << u"MPEGvideo"_s << u"tone.mp3"_s;
        QTest::newRow("mpg") << u"MPEGvideo"_s << u"film.mpg"_s;
        QTest::newRow("mid") << u"sequencer"_s << u"song.mid"_s;
    }

    void eachKindPlaysToItsEnd()
    {
        QFETCH(QString, device);
        QFETCH(QString, name);
        QCOMPARE(Open(device, Path(name)), MciResult::Done);
        const qint64 length = Length();
        QVERIFY2(length >= 950 && length <= 1'100, qPrintable(QString::number(length)));
        QTest::qWait(30);
        QCOMPARE(Position(), 0);
        QElapsedTimer timer;
        timer.start();
        Play();
        QVERIFY(timer.elapsed() < 500);
        qint64 last = 0;
        for (int i = 0; i < 4; ++i) {
            QTest::qWait(100);
            const qint64 now = Position();
            QVERIFY2(now > last && now <= timer.elapsed(), qPrintable(QString::number(now)));
            last = now;
        }
        QTRY_COMPARE_WITH_TIMEOUT(Position(), length, 3'000);
        QVERIFY(timer.elapsed() >= length - 60);
        QTest::qWait(50);
        QCOMPARE(Position(), length);
    }

    void aFilmIsShownInItsShape()
    {
        Open(u"AVIvideo"_s, Path(u"plain.avi"_s));
        QVERIFY(FilmWindow() == nullptr);
        Play();
        QWidget* window = FilmWindow();
        QVERIFY(window != nullptr);
        QCOMPARE(window->windowTitle(), u"plain.avi"_s);
        QTRY_VERIFY(IsNear(PixelOf(*window, window->rect().center()), Qt::blue));
        window->resize(400, 120);
        // A picture of 160 by 120 is in the middle.
        QTRY_VERIFY(IsNear(PixelOf(*window, {122, 60}), Qt::blue));
        QVERIFY(IsNear(PixelOf(*window, {277, 60}), Qt::blue));
        QCOMPARE(PixelOf(*window, {117, 60}), QColor(Qt::black));
        QCOMPARE(PixelOf(*window, {282, 60}), QColor(Qt::black));
    }

    void compressedFilmsAreShownToo_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QColor>("color");
        QTest::newRow("avi") << u"red.avi"_s << QColor(Qt::red);
        QTest::newRow("mpg") << u"film.mpg"_s << QColor(Qt::green);
    }

    void compressedFilmsAreShownToo()
    {
        QFETCH(QString, name);
        QFETCH(QColor, color);
        Open(u"MPEGvideo"_s, Path(name));
        Play();
        QWidget* window = FilmWindow();
        QVERIFY(window != nullptr);
        QTRY_VERIFY(IsNear(PixelOf(*window, window->rect().center()), color));
    }

    void pixelsThatAreNotSquareGiveTheRightShape()
    {
        Open(u"MPEGvideo"_s, Film(u"wide.mpg"_s, u"white"_s, u"-vf scale=240:240,setdar=16/9 -r 25 -c:v mpeg2video"_s));
        Play();
        QVERIFY(FilmWindow() != nullptr);
        QCOMPARE(FilmWindow()->size(), QSize(427, 240));
    }

    void closingTheFilmStopsIt_data()
    {
        QTest::addColumn<bool>("byEscape");
        QTest::newRow("window closed") << false;
        QTest::newRow("escape") << true;
    }

    void closingTheFilmStopsIt()
    {
        QFETCH(bool, byEscape);
        Open(u"AVIvideo"_s, Path(u"red.avi"_s));
        Play();
        QVERIFY(Position() < Length());
        if (byEscape)
            QTest::keyClick(FilmWindow(), Qt::Key_Escape);
        else
            FilmWindow()->close();
        QCOMPARE(Position(), Length());
    }

    void aSongWithACoverHasNoWindow()
    {
        QCOMPARE(Open(u"MPEGvideo"_s, Path(u"cover.mp3"_s)), MciResult::Done);
        Play();
        QTest::qWait(200);
        QVERIFY(FilmWindow() == nullptr);
        QVERIFY(Position() > 0 && Position() < Length());
    }

    void aFilmAsASoundHasNoWindow()
    {
        QVERIFY(sndPlaySoundA(Path(u"film.mpg"_s), SND_ASYNC));
        QTest::qWait(50);
        QVERIFY(FilmWindow() == nullptr);
        QVERIFY(!sndPlaySoundA(Path(u"red.avi"_s), SND_ASYNC));
        QVERIFY(!sndPlaySoundA(u"1"_s, SND_SYNC));
    }

    void theMediaWindowPlaysAFilm()
    {
        TestBench bench;
        // No dot in a folder's name, as the first one counts.
        const QTemporaryDir plain(QDir::tempPath() + u"/obmediaXXXXXX"_s);
        const QString path = plain.filePath(u"red.avi"_s);
        QVERIFY(QFile::copy(Path(u"red.avi"_s), path));
        frmMedia window;
        window.show();
        bench.dialogs.ExpectFile(FilePurpose::Open, u"Open File..."_s, u"Media Files|*.MID;*.AVI;*.MPG;*.MPEG;*.MP3"_s,
                                 path);
        window.findChild<QPushButton*>(u"cmdOpen"_s)->click();
        window.findChild<QPushButton*>(u"cmdPlay"_s)->click();
        QCOMPARE(window.findChild<QLabel*>(u"lblNow"_s)->text(), u"0:00 / 0:01"_s);
        QTRY_VERIFY(FilmWindow() != nullptr && IsNear(PixelOf(*FilmWindow(), {80, 60}), Qt::red));
        QTRY_VERIFY_WITH_TIMEOUT(FilmWindow() == nullptr, 3'000);
        QVERIFY(!window.findChild<QTimer*>(u"tmrPlay"_s)->isActive());
    }

    void aSoundPlaysToItsEndOnRequest()
    {
        Put(Path(u"short.wav"_s), WavFile(300));
        QElapsedTimer timer;
        timer.start();
        QVERIFY(sndPlaySoundA(Path(u"short.wav"_s), SND_SYNC));
        QVERIFY(timer.elapsed() >= 290);
    }

    void aTruncatedFilmEndsThere()
    {
        const QString path = Make(u"long.avi"_s, u"-f lavfi -i testsrc=size=64x48:rate=10:duration=60 -c:v mjpeg"_s);
        const QByteArray bytes = Get(path);
        // The header claims a minute, but there is hardly a second.
        Put(path, bytes.first(bytes.size() / 80));
        QCOMPARE(Open(u"AVIvideo"_s, path), MciResult::Done);
        Play();
        QTRY_COMPARE_WITH_TIMEOUT(Position(), Length(), 4'000);
    }

    void withoutASoundFontTheTroubleIsReported()
    {
        const QByteArray before = qgetenv("XDG_DATA_DIRS");
        qputenv("XDG_DATA_DIRS", folder.path().toUtf8());
        QCOMPARE(Open(u"sequencer"_s, Path(u"song.mid"_s)), MciResult::InvalidFile);
        QCOMPARE(LastMediaTrouble(), MediaTrouble::NoSoundFont);
        qputenv("XDG_DATA_DIRS", before);
        if (before.isEmpty())
            qunsetenv("XDG_DATA_DIRS");
        QCOMPARE(Open(u"sequencer"_s, Path(u"song.mid"_s)), MciResult::Done);
    }

    void otherFilesAreRejected_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("one byte") << QByteArray("R");
        QTest::newRow("text") << QByteArray("print \"no film\"\r\n").repeated(100);
        QTest::newRow("zeros") << QByteArray(100'000, '\0');
        QByteArray noise(200'000, Qt::Uninitialized);
        QRandomGenerator random(7);
        for (char& byte : noise)
            byte = static_cast<char>(random.bounded(256));
        QTest::newRow("noise") << noise;
        const QByteArray film = folder.filePath(u"red.avi"_s).toUtf8();
        QTest::newRow("list of films") << QByteArray("ffconcat version 1.0\nfile '" + film + "'\n");
        QTest::newRow("list in the network")
            << QByteArray("#EXTM3U\n#EXT-X-TARGETDURATION:1\n#EXTINF:1,\n" + film + "\n#EXT-X-ENDLIST\n");
    }

    void otherFilesAreRejected()
    {
        QFETCH(QByteArray, bytes);
        for (const char* device : {"AVIvideo", "MPEGvideo", "sequencer", "waveaudio"}) {
            for (const char* ending : {"avi", "mpg", "mp3", "mid", "wav"}) {
                const QString path = Path(u"hostile."_s + QString::fromLatin1(ending));
                Put(path, bytes);
                QCOMPARE(Open(QString::fromLatin1(device), path), MciResult::InvalidFile);
                QCOMPARE(Length(), 0);
            }
        }
    }

    void foldersAndVanishedFilesAreRejected()
    {
        QCOMPARE(Open(u"AVIvideo"_s, folder.path()), MciResult::FileNotFound);
        QCOMPARE(Open(u"sequencer"_s, Path(u"gone.mid"_s)), MciResult::FileNotFound);
        // Deleted between opening and playing.
        const QString path = Path(u"soon-gone.wav"_s);
        Put(path, WavFile(400));
        QCOMPARE(Open(u"waveaudio"_s, path), MciResult::Done);
        QVERIFY(QFile::remove(path));
        Play();
        QTRY_COMPARE_WITH_TIMEOUT(Position(), Length(), 2'000);
    }

    void damagedFilesPlayOrAreRejected()
    {
        QRandomGenerator random(11);
        for (const char* name : {"tone.wav", "red.avi", "plain.avi", "tone.mp3", "film.mpg", "cover.mp3", "song.mid"}) {
            const QByteArray whole = Get(Path(QString::fromLatin1(name)));
            for (int round = 0; round < 12; ++round) {
                QByteArray bytes = whole;
                for (int i = random.bounded(1, 60); i > 0; --i)
                    bytes[random.bounded(static_cast<int>(std::min<qsizetype>(bytes.size(), 4'000)))] =
                        static_cast<char>(random.bounded(256));
                if (round % 3 == 0)
                    bytes.truncate(random.bounded(static_cast<int>(bytes.size())));
                const QString path = Path(u"damaged-"_s + QString::fromLatin1(name));
                Put(path, bytes);
                const bool isSong = path.endsWith(QLatin1String(".mid"));
                if (Open(isSong ? u"sequencer"_s : u"AVIvideo"_s, path) != MciResult::Done)
                    continue;
                QVERIFY(Length() >= 0);
                Play();
                QTest::qWait(30);
                QVERIFY(Position() <= Length());
                CloseAll();
            }
        }
    }
};

OB_BENCH_TEST(win_MediaPlayerOB)
#include "win_MediaPlayerOB.moc"
