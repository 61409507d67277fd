// SPDX-License-Identifier: GPL-3.0-or-later
// "obtool sprite" as a process.
#include "obtool/RunObtool.h"

#include "imagetools/sprites/SpriteFiles.h"
#include "platform/files/FileTrouble.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

constexpr char Usage[] = "usage: obtool sprite mask IN OUT | obtool sprite mask --folder DIR\n";

Outcome Run(const QStringList& arguments, const QByteArray& input = {})
{
    return RunObtool(QStringList{u"sprite"_s} + arguments, input);
}

Outcome RunWords(const char* line, const QByteArray& input = {})
{
    return Run(WordsOf(line), input);
}

} // namespace

class tst_toolSprite : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> folder;

private Q_SLOTS:
    void init()
    {
        folder = std::make_unique<QTemporaryDir>();
        QDir::setCurrent(folder->path());
    }
    void cleanup()
    {
        QDir::setCurrent(QDir::rootPath());
        folder.reset();
    }

    void theMaskIsAboveTheSprite()
    {
        const QImage sprite = SpriteImage(21, 17);
        Put(u"in.bmp"_s, BitmapBytesOf(sprite));
        const Outcome result = RunWords("mask in.bmp out.bmp");
        QCOMPARE(result.error, QByteArray());
        QCOMPARE(result.status, 0);
        QCOMPARE(result.out, QByteArray());
        QCOMPARE(ImageAt(u"out.bmp"_s), MaskedImage(sprite));
        const QByteArray bytes = Get(u"out.bmp"_s);
        QCOMPARE(bytes.size(), 54 + 64 * 34);
        QCOMPARE(int{bytes[28]}, 24);
        QCOMPARE(Get(u"in.bmp"_s), BitmapBytesOf(sprite));
    }

    void anyPictureAndStandardInputAreRead()
    {
        const QImage sprite = SpriteImage(5, 6);
        QBuffer png;
        png.open(QIODevice::WriteOnly);
        sprite.save(&png, "PNG");
        QCOMPARE(RunWords("mask - out.bmp", png.data()).status, 0);
        QCOMPARE(ImageAt(u"out.bmp"_s), MaskedImage(sprite));
    }

    void whatCannotBeReadLeavesTheOlderFile()
    {
        Put(u"bad.bmp"_s, "BM nothing");
        Put(u"out.bmp"_s, "old");
        const Outcome bad = RunWords("mask bad.bmp out.bmp");
        QCOMPARE(bad.status, 1);
        QCOMPARE(bad.error, QByteArray("obtool: bad.bmp: Invalid picture\n"));
        const Outcome missing = RunWords("mask none.bmp out.bmp");
        QCOMPARE(missing.status, 1);
        QCOMPARE(missing.error, QByteArray("obtool: none.bmp: File does not exist or is corrupt.\n"));
        QCOMPARE(Get(u"out.bmp"_s), QByteArray("old"));
        Put(u"in.bmp"_s, BitmapBytesOf(SpriteImage(4, 4)));
        const Outcome closed = RunWords("mask in.bmp no/such/out.bmp");
        QCOMPARE(closed.status, 1);
        QCOMPARE(closed.error, QByteArray("obtool: no/such/out.bmp: Path not found\n"));
    }

    void aFolderIsMaskedInPlaceWithALinePerFile()
    {
        QDir().mkdir(u"art"_s);
        const QImage sprite = SpriteImage(9, 8);
        for (const char* name : {"art/b.BMP", "art/a.bmp", "art/C.bmp"})
            Put(QString::fromLatin1(name), BitmapBytesOf(sprite));
        Put(u"art/note.txt"_s, "text");
        const Outcome result = RunWords("mask --folder art");
        QCOMPARE(result.status, 0);
        QCOMPARE(result.out, QByteArray());
        QCOMPARE(result.error, QByteArray("art/a.bmp\nart/b.BMP\nart/C.bmp\n"));
        for (const char* name : {"art/b.BMP", "art/a.bmp", "art/C.bmp"})
            QCOMPARE(ImageAt(QString::fromLatin1(name)), MaskedImage(sprite));
        QCOMPARE(Get(u"art/note.txt"_s), QByteArray("text"));
    }

    void aBadBitmapEndsTheFolder()
    {
        const QImage sprite = SpriteImage(9, 8);
        Put(u"a.bmp"_s, BitmapBytesOf(sprite));
        Put(u"b.bmp"_s, "BM nothing");
        Put(u"c.bmp"_s, BitmapBytesOf(sprite));
        const Outcome result = RunWords("mask --folder .");
        QCOMPARE(result.status, 1);
        QCOMPARE(result.error, QByteArray("./a.bmp\nobtool: ./b.bmp: Invalid picture\n"));
        QCOMPARE(ImageAt(u"a.bmp"_s), MaskedImage(sprite));
        QCOMPARE(Get(u"b.bmp"_s), QByteArray("BM nothing"));
        QCOMPARE(ImageAt(u"c.bmp"_s), sprite);
    }

    void aFolderWithoutBitmapsIsAFailure()
    {
        QDir().mkdir(u"empty"_s);
        const Outcome empty = RunWords("mask --folder empty");
        QCOMPARE(empty.status, 1);
        QCOMPARE(empty.error,
                 QByteArray("obtool: empty: There are no bitmaps in empty!  Please choose another directory.\n"));
        const Outcome missing = RunWords("mask --folder none");
        QCOMPARE(missing.status, 1);
        QCOMPARE(missing.error, QByteArray("obtool: none: Path not found\n"));
    }

    void wrongUsageIsReported_data()
    {
        QTest::addColumn<QByteArray>("line");
        for (const char* line : {"mask", "mask in.bmp", "mask a b c", "mask --folder", "mask in.bmp --folder .",
                                 "mask in.bmp out.bmp --folder .", "mask in.bmp out.bmp --wide"})
            QTest::newRow(line) << QByteArray(line);
    }
    void wrongUsageIsReported()
    {
        QFETCH(QByteArray, line);
        const Outcome result = RunWords(line.constData());
        QCOMPARE(result.status, 2);
        QVERIFY2(result.error.endsWith(Usage), result.error.constData());
        QVERIFY(QDir().entryList(QDir::Files).isEmpty());
    }

    void emptyNamesAreWrongUsage()
    {
        QCOMPARE(Run({u"mask"_s, QString(), u"out.bmp"_s}).status, 2);
        QCOMPARE(Run({u"mask"_s, u"--folder"_s, QString()}).status, 2);
    }

    void helpShowsTheUsage()
    {
        const Outcome help = RunWords("mask --help");
        QCOMPARE(help.status, 0);
        QVERIFY(help.out.contains(Usage));
        QCOMPARE(RunWords("--help").status, 0);
        QCOMPARE(RunWords("").status, 2);
    }
};

QTEST_GUILESS_MAIN(tst_toolSprite)
#include "tst_toolSprite.moc"
