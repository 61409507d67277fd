// SPDX-License-Identifier: GPL-3.0-or-later
// The writer of AVI files: its bytes, both forms, and what is left of files when it fails.
#include "imagetools/avi/cAviWriter.h"

#include "imagetools/avi/AviBench.h"

#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

using namespace ob;

class tst_cAviWriter : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> folder;

    QString At(const char* name) const { return folder->filePath(QString::fromLatin1(name)); }
    QStringList Entries() const
    {
        return QDir(folder->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    static QByteArray Data(const char* name) { return Get(u"" OB_TEST_DATA "/avi/"_s + QString::fromLatin1(name)); }

    static AviStreamInfo Info(int width, int height, int size, unsigned rate)
    {
        AviStreamInfo info;
        info.dwRate = rate;
        info.dwSuggestedBufferSize = static_cast<std::uint32_t>(size);
        info.rcFrame = {0, 0, width, height};
        return info;
    }

    // A video of the bitmaps, which have 24 bits and a header of 40 bytes.
    void WriteVideo(const QString& path, const QList<QByteArray>& bitmaps, const AviStreamInfo& info,
                    std::int64_t segmentBytes) const
    {
        cFileReplacement file(path);
        cAviWriter writer(file, info, ViewOf(bitmaps.first()).subspan(14, 40), AviFrames::Bitmaps, segmentBytes);
        for (const QByteArray& bitmap : bitmaps)
            writer.WriteFrame(ViewOf(bitmap).subspan(54));
        writer.Finish();
        file.Finish();
    }

    QList<QByteArray> Noise(int count) const
    {
        QList<QByteArray> bitmaps;
        for (int frame = 0; frame < count; ++frame)
            bitmaps.append(NoiseBitmap({}, static_cast<unsigned>(frame)));
        return bitmaps;
    }
    static constexpr int NoiseBytes = 112 * 11;

private Q_SLOTS:
    void init() { folder = std::make_unique<QTemporaryDir>(); }
    void cleanup() { folder.reset(); }

    void smallVideosHaveTheOldForm()
    {
        const QList<QByteArray> bitmaps = {Data("color1.bmp"), Data("color2.bmp"), Data("color3.bmp")};
        WriteVideo(At("color.avi"), bitmaps, Info(3, 2, 24, 12), AviSegmentBytes);
        QCOMPARE(Get(At("color.avi")), Data("color.avi"));
        QCOMPARE(Entries(), QStringList{u"color.avi"_s});
    }

    void videosBeyondTheLimitHaveTheLargeForm()
    {
        const QList<QByteArray> bitmaps = {Data("color1.bmp"), Data("color2.bmp"), Data("color3.bmp")};
        // As much as the first two frames take with both of their indexes.
        const std::int64_t limit = Data("color.avi").size() - (8 + 24 + 16) + (8 + 24 + 2 * 8);
        WriteVideo(At("large.avi"), bitmaps, Info(3, 2, 24, 12), limit);
        QCOMPARE(Get(At("large.avi")), Data("color-large.avi"));
        WriteVideo(At("all.avi"), bitmaps, Info(3, 2, 24, 12), limit + 8 + 24 + 8 + 16);
        QCOMPARE(Get(At("all.avi")), Data("color.avi"));
    }

    void everyFrameOfTheLargeFormIsFound_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("limit");
        QTest::newRow("one segment") << 5 << 1000000;
        QTest::newRow("a frame each") << 7 << 1;
        QTest::newRow("several segments") << 50 << 20'000;
        QTest::newRow("all places used") << static_cast<int>(cAviWriter::MostSegments) << 1;
    }

    void everyFrameOfTheLargeFormIsFound()
    {
        QFETCH(int, count);
        QFETCH(int, limit);
        const QList<QByteArray> bitmaps = Noise(count);
        WriteVideo(At("x.avi"), bitmaps, Info(37, 11, NoiseBytes, 25), limit);
        QByteArray pixels;
        for (const QByteArray& bitmap : bitmaps)
            pixels += PixelsOf(PictureOfBytes(bitmap));
        QVERIFY(Decoded(At("x.avi")) == pixels);
        QCOMPARE(Probed(At("x.avi"), "stream=nb_frames,r_frame_rate"), "25/1," + QByteArray::number(count));
        QVERIFY(FramesIn(At("x.avi")) == (FrameKinds{count, 0}));
    }

    void aSeekFindsFramesAfterTheFirstSegment()
    {
        const QList<QByteArray> bitmaps = Noise(50);
        WriteVideo(At("x.avi"), bitmaps, Info(37, 11, NoiseBytes, 1), 20'000);
        const QByteArray late =
            OutputOf(u"ffmpeg"_s, {u"-v"_s, u"error"_s, u"-ss"_s, u"47"_s, u"-i"_s, At("x.avi"), u"-f"_s, u"rawvideo"_s,
                                   u"-frames:v"_s, u"1"_s, u"-pix_fmt"_s, u"bgr24"_s, u"-"_s});
        QVERIFY(late == PixelsOf(PictureOfBytes(bitmaps[47])));
    }

    void moreSegmentsThanTheIndexHoldsAreAnError()
    {
        const QList<QByteArray> bitmaps = Noise(static_cast<int>(cAviWriter::MostSegments) + 1);
        QCOMPARE(ErrorOf([&] { WriteVideo(At("x.avi"), bitmaps, Info(37, 11, NoiseBytes, 25), 1); }), diskFull);
        QCOMPARE(Entries(), QStringList());
    }

    void unfinishedVideosLeaveTheOldFile()
    {
        Put(At("x.avi"), "old");
        {
            cFileReplacement file(At("x.avi"));
            const QByteArray bitmap = Data("color1.bmp");
            cAviWriter writer(file, Info(3, 2, 24, 1), ViewOf(bitmap).subspan(14, 40), AviFrames::Bitmaps);
            writer.WriteFrame(ViewOf(bitmap).subspan(54));
            QCOMPARE(Entries().size(), 2);
        }
        QCOMPARE(Get(At("x.avi")), QByteArray("old"));
        QCOMPARE(Entries().size(), 1);
    }

#ifdef Q_OS_UNIX
    void aFullDiskIsReportedAndLeavesTheOldFile()
    {
        Put(At("x.avi"), "old");
        {
            const FileSizeLimit limit(20'000);
            QCOMPARE(ErrorOf([&] { WriteVideo(At("x.avi"), Noise(30), Info(37, 11, NoiseBytes, 1), 10'000); }),
                     diskFull);
        }
        QCOMPARE(Get(At("x.avi")), QByteArray("old"));
        QCOMPARE(Entries().size(), 1);
    }
#endif
};

QTEST_GUILESS_MAIN(tst_cAviWriter)
#include "tst_cAviWriter.moc"
