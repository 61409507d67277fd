// SPDX-License-Identifier: GPL-3.0-or-later
// The compressors: what is decoded again, the same bytes each time, rejected sizes, a missing plugin.
#include "imagetools/avi/cAviWriting.h"

#include "imagetools/avi/AviBench.h"
#include "platform/files/modPaths.h"

#include <QTest>

#include <cstdlib>
#include <memory>

using namespace Qt::StringLiterals;

using namespace ob;

class tst_modAviCodecs : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> folder;
    QString message;

    QString At(const QString& name) const { return folder->filePath(name); }
    QString At(const char* name) const { return At(QString::fromLatin1(name)); }

    AviList Bitmaps(const QList<QByteArray>& bitmaps) const
    {
        AviList list;
        for (const QByteArray& bitmap : bitmaps) {
            const QString path = At(u"%1.bmp"_s.arg(list.files.size()));
            Put(path, bitmap);
            const auto format = FormatForList(list, path, [](const std::string&, NoticeIcon) {});
            if (format)
                AddToList(list, path, *format);
        }
        return list;
    }
    AviList Noise(const BitmapKind& kind, int count) const
    {
        QList<QByteArray> bitmaps;
        for (int frame = 0; frame < count; ++frame)
            bitmaps.append(NoiseBitmap(kind, static_cast<unsigned>(frame)));
        return Bitmaps(bitmaps);
    }

    // A picture without sharp edges, which lossy codecs keep nearly unchanged.
    static QByteArray Gradient(int width, int height, int step)
    {
        QByteArray bitmap = NoiseBitmap({.height = height, .width = width}, 0);
        const int line = (width * 3 + 3) / 4 * 4;
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                const int place = 54 + y * line + x * 3;
                bitmap[place] = static_cast<char>(40 + x * 150 / width);
                bitmap[place + 1] = static_cast<char>(60 + y * 100 / height);
                bitmap[place + 2] = static_cast<char>(90 + step * 10);
            }
        }
        return bitmap;
    }

    AviState Write(const AviList& list, const char* codec, const char* out = "out.avi", int quality = 90)
    {
        cAviWriting writing(At(out), list, u"5"_s, [](const std::string&, NoticeIcon) {});
        const AviOutcome outcome = OutcomeOf(writing, {codec, quality});
        message = (outcome.message + u' ' + outcome.reason).trimmed();
        return outcome.state;
    }

    static QByteArray AllPixels(const AviList& list)
    {
        QByteArray pixels;
        for (const QString& file : list.files)
            pixels += PixelsOf(LoadPicture(file));
        return pixels;
    }

    static void CodecColumn(std::initializer_list<const char*> names)
    {
        QTest::addColumn<QByteArray>("codec");
        for (const char* name : names)
            QTest::newRow(name) << QByteArray(name);
    }

private Q_SLOTS:
    void initTestCase() { SetLibraryFolder(u"" OB_BIN ""_s); }
    void init() { folder = std::make_unique<QTemporaryDir>(); }
    void cleanup() { folder.reset(); }

    // First, as the plugin stays once it is loaded.
    void withoutThePluginUncompressedVideosStillWork()
    {
        SetLibraryFolder(folder->path());
        QCOMPARE(AviCodecs().size(), std::size_t{1});
        QVERIFY(AviCodecsTrouble().startsWith(u"The compressors are missing: there is no "_s));
        const AviList list = Noise({}, 2);
        QCOMPARE(Write(list, "none"), AviState::Finished);
        QVERIFY(Decoded(At("out.avi")) == AllPixels(list));
        QVERIFY(QFile::remove(At("out.avi")));
        QCOMPARE(Write(list, "ffv1"), Unfinished);
        QVERIFY(message.startsWith(u"The compressors are missing: "_s));
        Put(LibraryFile(u"AviCodecsOB"_s), "no library");
        QVERIFY(AviCodecsTrouble().startsWith(u"The compressors cannot be loaded: "_s));
        QVERIFY(!QFile::exists(At("out.avi")));
        SetLibraryFolder(u"" OB_BIN ""_s);
        QVERIFY(AviCodecsTrouble().isEmpty());
    }

    void theListHasTheInstalledCodecs()
    {
        QByteArrayList names;
        for (const AviCodec& codec : AviCodecs()) {
            names.append(QByteArray(codec.name.data(), static_cast<qsizetype>(codec.name.size())));
            QVERIFY(!codec.description.empty());
        }
        QCOMPARE(names,
                 (QByteArrayList{"none", "huffyuv", "utvideo", "ffv1", "png", "zmbv", "mjpeg", "mpeg4", "cinepak"}));
    }

    void losslessCodecsGiveTheExactPixels_data()
    {
        QTest::addColumn<QByteArray>("codec");
        QTest::addColumn<BitmapKind>("kind");
        for (const char* codec : {"huffyuv", "utvideo", "ffv1", "png", "zmbv"}) {
            const auto row = [&](const char* name, const BitmapKind& kind) {
                QTest::addRow("%s, %s", codec, name) << QByteArray(codec) << kind;
            };
            row("24 bits", {.height = 90, .width = 120});
            row("odd sides", {.height = 11, .width = 37});
            row("from the top", {.height = -24, .width = 24});
            row("1 bit", {.bits = 1});
            row("8 bits", {.bits = 8, .colors = 77});
            row("32 bits", {.bits = 32});
        }
    }
    void losslessCodecsGiveTheExactPixels()
    {
        QFETCH(QByteArray, codec);
        QFETCH(BitmapKind, kind);
        const AviList list = Noise(kind, 3);
        QVERIFY2(Write(list, codec.constData()) == AviState::Finished, qPrintable(message));
        QVERIFY(Decoded(At("out.avi")) == AllPixels(list));
    }

    void runLengthsAreUnpackedForACompressor()
    {
        const QByteArray runs = Get(u"" OB_TEST_DATA "/avi/runs.bmp"_s);
        const AviList list = Bitmaps({runs});
        QCOMPARE(Write(list, "png"), AviState::Finished);
        QCOMPARE(Decoded(At("out.avi")).toHex(), AllPixels(list).toHex());
        QCOMPARE(AllPixels(list).first(6).toHex(), QByteArray("010203010203"));
    }

    void lossyCodecsComeCloseAndFollowTheQuality_data() { CodecColumn({"mjpeg", "mpeg4", "cinepak"}); }
    void lossyCodecsComeCloseAndFollowTheQuality()
    {
        QFETCH(QByteArray, codec);
        const AviList list = Bitmaps({Gradient(64, 48, 0), Gradient(64, 48, 5)});
        QVERIFY2(Write(list, codec.constData()) == AviState::Finished, qPrintable(message));
        const QByteArray expected = AllPixels(list);
        const QByteArray decoded = Decoded(At("out.avi"));
        QCOMPARE(decoded.size(), expected.size());
        qint64 error = 0;
        for (qsizetype place = 0; place < expected.size(); ++place)
            error += std::abs(static_cast<uchar>(expected[place]) - static_cast<uchar>(decoded[place]));
        QVERIFY2(error < 6 * expected.size(), qPrintable(QString::number(error)));

        const AviList noise = Noise({.height = 48, .width = 64}, 2);
        QCOMPARE(Write(noise, codec.constData(), "fine.avi", 100), AviState::Finished);
        QCOMPARE(Write(noise, codec.constData(), "coarse.avi", 5), AviState::Finished);
        QVERIFY(SizeOf("coarse.avi") < SizeOf("fine.avi") * (codec == "cinepak" ? 99 : 75) / 100);
    }

    void everyFrameIsAKeyFrameAndTheBytesAreReproducible_data()
    {
        CodecColumn({"huffyuv", "utvideo", "ffv1", "png", "zmbv", "mjpeg", "mpeg4", "cinepak"});
    }
    void everyFrameIsAKeyFrameAndTheBytesAreReproducible()
    {
        QFETCH(QByteArray, codec);
        // One frame twice: a codec that refers to the previous frame would encode nothing for it.
        const QByteArray bitmap = NoiseBitmap({.height = 80, .width = 96}, 1);
        const AviList list = Bitmaps({bitmap, bitmap, NoiseBitmap({.height = 80, .width = 96}, 2)});
        QVERIFY2(Write(list, codec.constData()) == AviState::Finished, qPrintable(message));
        QCOMPARE(Write(list, codec.constData(), "again.avi"), AviState::Finished);
        const QByteArray video = Get(At("out.avi"));
        QVERIFY(video == Get(At("again.avi")));
        QVERIFY(!video.contains("Lav"));
        QVERIFY(FramesIn(At("out.avi")) == (FrameKinds{3, 0}));
        QCOMPARE(Probed(At("out.avi"), "stream=codec_name,nb_frames,r_frame_rate,width,height"),
                 codec + ",96,80,5/1,3");
        const QByteArray last = OutputOf(u"ffmpeg"_s, {u"-v"_s, u"error"_s, u"-ss"_s, u"0.4"_s, u"-i"_s, At("out.avi"),
                                                       u"-f"_s, u"rawvideo"_s, u"-pix_fmt"_s, u"bgr24"_s, u"-"_s});
        QVERIFY(last == Decoded(At("out.avi")).last(96 * 80 * 3));
    }

    void slowestAndFastestFrameRatesAreAccepted_data() { CodecColumn({"none", "mjpeg", "mpeg4", "ffv1"}); }
    void slowestAndFastestFrameRatesAreAccepted()
    {
        QFETCH(QByteArray, codec);
        const AviList list = Noise({.height = 16, .width = 16}, 2);
        for (const char* rate : {"1", "30"}) {
            cAviWriting writing(At("out.avi"), list, QString::fromLatin1(rate), [](const std::string&, NoticeIcon) {});
            AviState state = writing.Begin([&](const AviFormat&) { return AviOptions{codec.toStdString(), 90}; });
            while (state == AviState::Writing)
                state = writing.WriteFrame();
            QCOMPARE(state, AviState::Finished);
            QCOMPARE(Probed(At("out.avi"), "stream=r_frame_rate"), QByteArray(rate) + "/1");
        }
    }

    void sizesThatACodecRejectsAreReportedBeforeThereIsAFile()
    {
        const AviOptions cinepak{"cinepak", 90};
        QCOMPARE(AviRefusal(cinepak, 64, 48), QString());
        const QString refusal = u"Cinepak needs a width and a height that are multiples of 4. "
                                "These pictures have 37 x 11 pixels."_s;
        QCOMPARE(AviRefusal(cinepak, 37, 11), refusal);
        QVERIFY(!AviRefusal(cinepak, 36, 11).isEmpty());
        QCOMPARE(Write(Noise({}, 1), "cinepak"), Unfinished);
        QCOMPARE(message, refusal);
        QCOMPARE(QDir(folder->path()).entryList(QDir::Files | QDir::Hidden), QStringList{u"0.bmp"_s});
        const QString tooWide = AviRefusal({"mpeg4", 90}, 20'000, 16);
        QVERIFY2(tooWide.startsWith(u"This codec does not take pictures of 20000 x 16 pixels ("_s),
                 qPrintable(tooWide));
        QVERIFY(!AviRefusal({"png", 90}, 0, 10).isEmpty());
        QVERIFY(!AviRefusal({"png", 90}, -5, 10).isEmpty());
        QCOMPARE(AviRefusal({"nosuch", 90}, 16, 16), u"There is no codec \"nosuch\" here."_s);
        QCOMPARE(AviRefusal({}, 37, 11), QString());
    }

    void aPictureThatChangedItsSizeFailsTheCompression()
    {
        const AviList list = Noise({}, 2);
        Put(list.files[1], NoiseBitmap({.width = 36}, 1));
        QCOMPARE(Write(list, "ffv1"), Unfinished);
        QCOMPARE(message, u"There was an error writing the file. %1 cannot be read as a picture of 37 x 11 "
                          "pixels."_s.arg(list.files[1]));
        QVERIFY(!QFile::exists(At("out.avi")));
    }

    void hostileHeadersOnlyFailTheCompression()
    {
        QByteArray bitmap = NoiseBitmap({}, 1);
        const auto put = [&](int place, quint32 value) {
            for (int byte = 0; byte < 4; ++byte)
                bitmap[place + byte] = static_cast<char>(value >> (8 * byte));
        };
        const auto outcome = [&] { return Write(Bitmaps({bitmap}), "png"); };
        put(34, 0x7FFFFFFF);
        QCOMPARE(outcome(), AviState::Finished); // enough pixels, whatever the header claims
        put(22, 0x80000000);
        QCOMPARE(outcome(), Unfinished);
        put(22, 11);
        put(18, 0xFFFFFFFF);
        QCOMPARE(outcome(), Unfinished);
        put(18, 37);
        put(34, 1);
        QCOMPARE(outcome(), AviState::Finished); // zeros for what is missing
        put(34, 1232);
        put(28, 0x7FFF);
        QCOMPARE(outcome(), Unfinished);
        put(28, 24);
        put(10, 0x7FFFFFFF);
        QCOMPARE(outcome(), AviState::Finished); // all zeros, as pixels after the end of the file are
    }

private:
    qint64 SizeOf(const char* name) const { return QFileInfo(At(name)).size(); }
};

QTEST_GUILESS_MAIN(tst_modAviCodecs)
#include "tst_modAviCodecs.moc"
