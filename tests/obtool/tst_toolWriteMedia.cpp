// SPDX-License-Identifier: GPL-3.0-or-later
// "obtool write media" as a process.
#include "obtool/RunObtool.h"

#include <QTest>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

Outcome Media(const QStringList& arguments)
{
    return RunObtool(QStringList{u"write"_s, u"media"_s} + arguments);
}

QByteArray Listing(const QByteArray& opened)
{
    const QByteArray call =
        "calldll #winmm, \"mciSendStringA\", a$ as ptr, 0 as long, 0 as long, 0 as long, r as long\r\n";
    return "a$ = \"open " + opened + "\"\r\n" + call + "a$ = \"play PlayFile wait\"\r\n" + call +
           "a$ = \"close PlayFile\"\r\n" + call;
}

} // namespace

class tst_toolWriteMedia : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theCodeIsWritten_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QByteArray>("opened");
        const auto row = [](const char* name, const QStringList& arguments, const QByteArray& opened) {
            QTest::newRow(name) << arguments << opened;
        };
        row("name alone", {u"/music/song.mid"_s}, "song.mid type sequencer alias PlayFile");
        row("name alone, other separator", {u"C:\\films\\a b.AVI"_s}, "a b.AVI type avivideo alias PlayFile");
        row("whole path", {u"/music/song.mp3"_s, u"--path"_s}, "/music/song.mp3 type mpegvideo alias PlayFile");
        row("path as given", {u"--path"_s, u"music\\song.mpg"_s}, "music\\song.mpg type mpegvideo alias PlayFile");
        row("unknown type", {u"song.ogg"_s}, "song.ogg");
        row("a dot too many", {u"song.1.mid"_s}, "song.1.mid");
        row("like an option", {u"--"_s, u"--path"_s}, "--path");
        row("ANSI", {u"L\u00e4rm.mid"_s}, "L\xE4rm.mid type sequencer alias PlayFile");
    }

    void theCodeIsWritten()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QByteArray, opened);
        const Outcome done = Media(arguments);
        QCOMPARE(done.error, QByteArray());
        QCOMPARE(done.status, 0);
        QCOMPARE(done.out, Listing(opened));
    }

    void lostCharactersAreNoted()
    {
        const Outcome done = Media({u"\u65e5.mid"_s});
        QCOMPARE(done.status, 0);
        QCOMPARE(done.out, Listing("?.mid type sequencer alias PlayFile"));
        QCOMPARE(done.error, QByteArray("obtool: note: Characters that the code page lacks became question marks.\n"));
    }

    void wrongUsageShowsTheUsage_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("no file") << QStringList{};
        QTest::newRow("empty file") << QStringList{QString()};
        QTest::newRow("two files") << QStringList{u"a.mid"_s, u"b.mid"_s};
        QTest::newRow("unknown option") << QStringList{u"a.mid"_s, u"--full"_s};
    }

    void wrongUsageShowsTheUsage()
    {
        QFETCH(QStringList, arguments);
        const Outcome done = Media(arguments);
        QCOMPARE(done.status, 2);
        QCOMPARE(done.out, QByteArray());
        QVERIFY2(done.error.endsWith("\nusage: obtool write media FILE [--path]\n"), done.error.constData());
    }
};

QTEST_GUILESS_MAIN(tst_toolWriteMedia)
#include "tst_toolWriteMedia.moc"
