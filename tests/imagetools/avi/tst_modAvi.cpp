// SPDX-License-Identifier: GPL-3.0-or-later
// The AVI maker without its window: the list, the frame rate, every kind of bitmap, and failures along the way.
#include "imagetools/avi/cAviWriting.h"

#include "imagetools/avi/AviBench.h"

#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

using namespace ob;

class tst_modAvi : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> folder;
    QStringList notices;

    QString At(const QString& name) const { return folder->filePath(name); }
    QString At(const char* name) const { return At(QString::fromLatin1(name)); }
    QStringList Entries(const char* pattern) const
    {
        return QDir(folder->path())
            .entryList({QString::fromLatin1(pattern)}, QDir::Files | QDir::Hidden | QDir::System);
    }
    NoticeSink Sink()
    {
        return [this](const std::string& text, NoticeIcon icon) {
            notices.append(QString::fromStdString(text) + (icon == NoticeIcon::Stop ? u"!"_s : QString()));
        };
    }

    // A list of that many bitmaps of one kind.
    AviList Bitmaps(const BitmapKind& kind, int count)
    {
        AviList list;
        for (int frame = 0; frame < count; ++frame) {
            const QString path = At(u"%1.bmp"_s.arg(frame));
            Put(path, NoiseBitmap(kind, static_cast<unsigned>(frame)));
            const auto format = FormatForList(list, path, Sink());
            if (format)
                AddToList(list, path, *format);
        }
        return list;
    }

    AviState Write(const AviList& list, const char* out = "out.avi", const AviOptions& options = {})
    {
        cAviWriting writing(At(out), list, u"5"_s, Sink());
        const AviOutcome outcome = OutcomeOf(writing, options);
        message = outcome.message;
        reason = outcome.reason;
        return outcome.state;
    }
    QString message;
    QString reason;

    static QByteArray AllPixels(const AviList& list)
    {
        QByteArray pixels;
        for (const QString& file : list.files)
            pixels += PixelsOf(LoadPicture(file));
        return pixels;
    }

    static std::vector<std::uint8_t> FormatOfBytes(const QByteArray& bitmap)
    {
        cDIB dib;
        dib.CreateFromBytes({bitmap.begin(), bitmap.end()});
        return StreamFormatOf(dib);
    }

private Q_SLOTS:
    void init()
    {
        folder = std::make_unique<QTemporaryDir>();
        notices.clear();
    }
    void cleanup() { folder.reset(); }

    void frameRatesAreRoundedAndKeptWithinTheirBounds_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("rate");
        const auto row = [](const char* text, int rate) { QTest::newRow(text) << QString::fromLatin1(text) << rate; };
        row("45", 30);
        row("12.5", 12);
        row("13.5", 14);
        row("", 1);
        row("0", 1);
        row("-5", 1);
        row("0.4", 1);
        row("1.5", 2);
        row("29.5", 30);
        row("30.4", 30);
        row("1 5 frames", 15);
        row("many", 1);
        row("1e300", 30);
        row("&H10", 16);
    }
    void frameRatesAreRoundedAndKeptWithinTheirBounds()
    {
        QFETCH(QString, text);
        QFETCH(int, rate);
        QCOMPARE(FramesPerSecondOf(text), rate);
    }

    void theListTakesOneFormat()
    {
        AviList list = Bitmaps({}, 2);
        QCOMPARE(list.files.size(), 2);
        QVERIFY(list.first == (AviFormat{37, 11, 24}));
        for (const BitmapKind& other :
             {BitmapKind{.bits = 8}, BitmapKind{.height = 12}, BitmapKind{.width = 38}, BitmapKind{.height = -11}}) {
            Put(At("other.bmp"), NoiseBitmap(other, 1));
            QVERIFY(!FormatForList(list, At("other.bmp"), Sink()));
        }
        QCOMPARE(notices, QStringList(4, DifferentFormatText));
        QCOMPARE(DifferentFormatText, u"Chosen bitmap file is a different format!"_s);
        list = {};
        QVERIFY(FormatForList(list, At("other.bmp"), Sink()));
    }

    void filesThatCannotBeLoadedAreReported()
    {
        QVERIFY(!FormatForList({}, At("gone.bmp"), Sink()));
        Put(At("text.bmp"), "some text that is no bitmap and longer than any header of one");
        QVERIFY(!FormatForList({}, At("text.bmp"), Sink()));
        Put(At("empty.bmp"), "");
        QVERIFY(!FormatForList({}, At("empty.bmp"), Sink()));
        QCOMPARE(notices, (QStringList{u"File does not exist:\r\n"_s + At("gone.bmp") + u'!',
                                       u"File is not a supported bitmap format:\r\n"_s + At("text.bmp"),
                                       u"File is not a supported bitmap format:\r\n"_s + At("empty.bmp")}));
        QByteArray noSize = NoiseBitmap({}, 1);
        noSize.replace(34, 4, QByteArray(4, '\0'));
        Put(At("noSize.bmp"), noSize);
        QCOMPARE(ErrorOf([&] { FormatForList({}, At("noSize.bmp"), Sink()); }), 9);
        Put(At("short.bmp"), "BM");
        QCOMPARE(ErrorOf([&] { FormatForList({}, At("short.bmp"), Sink()); }), 9);
    }

    void theStreamFormatIsHeaderAndTableWithoutTheExtraByte()
    {
        for (const BitmapKind& kind :
             {BitmapKind{.bits = 1}, BitmapKind{.bits = 4}, BitmapKind{.bits = 4, .colors = 3}, BitmapKind{.bits = 8},
              BitmapKind{.bits = 16}, BitmapKind{.bits = 24}, BitmapKind{.bits = 32},
              BitmapKind{.bits = 16, .masks = {0xF800, 0x7E0, 0x1F}}}) {
            const QByteArray bitmap = NoiseBitmap(kind, 1);
            const int pixels = static_cast<uchar>(bitmap[10]) | static_cast<uchar>(bitmap[11]) << 8;
            QCOMPARE(BytesOf(FormatOfBytes(bitmap)), bitmap.mid(14, pixels - 14));
        }
    }

    void longHeadersGapsAndUsualMasksAreLeftOut()
    {
        const BitmapKind plain = {.bits = 32};
        const BitmapKind masked = {.bits = 32, .masks = {0xFF0000, 0xFF00, 0xFF}};
        const BitmapKind longHeader = {.bits = 32, .headerSize = 124, .masks = {0xFF0000, 0xFF00, 0xFF, 0xFF000000}};
        const QByteArray expected = BytesOf(FormatOfBytes(NoiseBitmap(plain, 1)));
        QCOMPARE(expected.size(), 40);
        QCOMPARE(BytesOf(FormatOfBytes(NoiseBitmap(masked, 1))), expected);
        QCOMPARE(BytesOf(FormatOfBytes(NoiseBitmap(longHeader, 1))), expected);
        QCOMPARE(BytesOf(FormatOfBytes(NoiseBitmap({.bits = 8, .headerSize = 108}, 1))),
                 BytesOf(FormatOfBytes(NoiseBitmap({.bits = 8}, 1))));
        QCOMPARE(BytesOf(FormatOfBytes(NoiseBitmap({.bits = 4, .colors = 5, .gap = 10}, 1))),
                 BytesOf(FormatOfBytes(NoiseBitmap({.bits = 4, .colors = 5}, 1))));
    }

    void theStreamIsDescribedAsExpected()
    {
        cDIB dib;
        const QByteArray bitmap = NoiseBitmap({}, 1);
        QVERIFY(dib.CreateFromBytes({bitmap.begin(), bitmap.end()}));
        const AviStreamInfo info = StreamInfoOf(dib, 12);
        QCOMPARE(info.fccType, 0x73646976U);
        QCOMPARE(info.fccHandler, 0U);
        QCOMPARE(info.dwScale, 1U);
        QCOMPARE(info.dwRate, 12U);
        QCOMPARE(info.dwSuggestedBufferSize, 112U * 11);
        QCOMPARE(info.rcFrame.left, 0);
        QCOMPARE(info.rcFrame.top, 0);
        QCOMPARE(info.rcFrame.right, 37);
        QCOMPARE(info.rcFrame.bottom, 11);
    }

    void everyDepthDecodesToThePixelsOfTheBitmaps_data()
    {
        QTest::addColumn<BitmapKind>("kind");
        QTest::addColumn<QByteArray>("pixelFormat"); // other than bgr24: the pixels' raw words
        const auto row = [](const char* name, const BitmapKind& kind, const char* format = "bgr24") {
            QTest::newRow(name) << kind << QByteArray(format);
        };
        row("1", {.bits = 1});
        row("1, one colour", {.bits = 1, .colors = 1});
        row("4", {.bits = 4});
        row("4, few colours", {.bits = 4, .colors = 5});
        row("8", {.bits = 8});
        row("8, few colours", {.bits = 8, .colors = 200});
        row("8, long header", {.bits = 8, .headerSize = 124});
        row("8, few colours, long header and gap", {.bits = 8, .headerSize = 108, .colors = 17, .gap = 6});
        row("8, from the top", {.bits = 8, .height = -11});
        row("16", {.bits = 16}, "rgb555le");
        row("16, usual masks", {.bits = 16, .masks = {0x7C00, 0x3E0, 0x1F}}, "rgb555le");
        row("16, six bits of green", {.bits = 16, .masks = {0xF800, 0x7E0, 0x1F}}, "rgb565le");
        row("24", {.bits = 24});
        row("24, one column", {.bits = 24, .width = 1});
        row("24, long header", {.bits = 24, .headerSize = 124});
        row("24, from the top", {.bits = 24, .height = -11});
        row("32", {.bits = 32});
        row("32, usual masks", {.bits = 32, .headerSize = 56, .masks = {0xFF0000, 0xFF00, 0xFF, 0xFF000000}});
    }
    void everyDepthDecodesToThePixelsOfTheBitmaps()
    {
        QFETCH(BitmapKind, kind);
        QFETCH(QByteArray, pixelFormat);
        const AviList list = Bitmaps(kind, 3);
        QCOMPARE(list.files.size(), 3);
        QCOMPARE(Write(list), AviState::Finished);
        if (pixelFormat == "bgr24") {
            QCOMPARE(Decoded(At("out.avi")).toHex(), AllPixels(list).toHex());
        } else {
            QByteArray words;
            for (const QString& file : list.files) {
                const QByteArray bitmap = Get(file);
                const qsizetype line = (kind.width * 16 + 31) / 32 * 4;
                for (int y = kind.height - 1; y >= 0; --y)
                    words += bitmap.mid(bitmap.size() - line * kind.height + y * line, kind.width * 2);
            }
            // The sixteenth bit has no meaning.
            if (pixelFormat == "rgb555le") {
                for (qsizetype place = 1; place < words.size(); place += 2)
                    words[place] = static_cast<char>(words[place] & 0x7F);
            }
            QByteArray decoded = Decoded(At("out.avi"), pixelFormat.constData());
            if (pixelFormat == "rgb555le") {
                for (qsizetype place = 1; place < decoded.size(); place += 2)
                    decoded[place] = static_cast<char>(decoded[place] & 0x7F);
            }
            QCOMPARE(decoded.toHex(), words.toHex());
        }
        QCOMPARE(Probed(At("out.avi"), "stream=r_frame_rate,nb_frames"), QByteArray("5/1,3"));
        QVERIFY(FramesIn(At("out.avi")) == (FrameKinds{3, 0}));
        QCOMPARE(notices, QStringList());
    }

    void aTruncatedBitmapIsPaddedWithZeros()
    {
        AviList list = Bitmaps({}, 1);
        const QByteArray whole = Get(list.files.first());
        Put(list.files.first(), whole.first(whole.size() - 500));
        QCOMPARE(Write(list), AviState::Finished);
        QVERIFY(Get(At("out.avi")).contains(whole.sliced(54).chopped(500) + QByteArray(500, '\0')));
    }

    void aVanishedFileRepeatsTheFrameBefore()
    {
        const AviList list = Bitmaps({}, 4);
        cAviWriting writing(At("out.avi"), list, {}, Sink());
        QCOMPARE(writing.Begin([](const AviFormat&) { return AviOptions(); }), AviState::Writing);
        QCOMPARE(writing.FrameCount(), 4);
        QCOMPARE(writing.WriteFrame(), AviState::Writing);
        QCOMPARE(writing.WriteFrame(), AviState::Writing);
        QCOMPARE(writing.FramesWritten(), 2);
        QVERIFY(QFile::remove(list.files[2]));
        QCOMPARE(writing.WriteFrame(), AviState::Writing);
        QCOMPARE(notices, QStringList{u"File does not exist:\r\n"_s + list.files[2] + u'!'});
        QCOMPARE(writing.WriteFrame(), AviState::Finished);
        const auto pixels = [&](int frame) { return PixelsOf(LoadPicture(list.files[frame])); };
        QVERIFY(Decoded(At("out.avi")) == pixels(0) + pixels(1) + pixels(1) + pixels(3));
    }

    void aFileThatIsNoBitmapAnyMoreRepeatsTheFrameBeforeToo()
    {
        const AviList list = Bitmaps({}, 2);
        Put(list.files[1], "text");
        QCOMPARE(Write(list), AviState::Finished);
        QCOMPARE(notices.size(), 1);
        const QByteArray pixels = PixelsOf(LoadPicture(list.files[0]));
        QVERIFY(Decoded(At("out.avi")) == pixels + pixels);
    }

    void aChangedFileIsNotCheckedAgain()
    {
        const AviList list = Bitmaps({}, 3);
        const QByteArray other = NoiseBitmap({.bits = 8, .height = 3, .width = 3}, 9);
        Put(list.files[1], other);
        QCOMPARE(Write(list), AviState::Finished);
        const QByteArray video = Get(At("out.avi"));
        QByteArray chunk("00db\x0c\0\0\0", 8);
        chunk += other.right(12);
        QVERIFY(video.contains(chunk));
        QVERIFY(notices.isEmpty());
    }

    void aFileWithoutItsImageSizeEndsTheWriting()
    {
        const AviList list = Bitmaps({}, 2);
        QByteArray bitmap = Get(list.files[1]);
        Put(list.files[1], bitmap.replace(34, 4, QByteArray(4, '\0')));
        QCOMPARE(ErrorOf([&] { Write(list); }), 9);
        QCOMPARE(Entries("*"), (QStringList{u"0.bmp"_s, u"1.bmp"_s}));
    }

    void withoutTheFirstBitmapThereIsNoVideo()
    {
        const AviList list = Bitmaps({}, 2);
        QVERIFY(QFile::remove(list.files[0]));
        QCOMPARE(Write(list), Unfinished);
        QCOMPARE(message, u"Could not load first bitmap file in list!"_s);
        QCOMPARE(notices, QStringList{u"File does not exist:\r\n"_s + list.files[0] + u'!'});
        QCOMPARE(Entries("*"), QStringList{u"1.bmp"_s});
    }

    void anUnwritablePlaceIsReportedBeforeTheOptions()
    {
        cAviWriting writing(At("gone/out.avi"), Bitmaps({}, 1), {}, Sink());
        bool isAsked = false;
        try {
            writing.Begin([&](const AviFormat&) {
                isAsked = true;
                return AviOptions();
            });
            QFAIL("no failure");
        } catch (const AviFailure& failure) {
            QCOMPARE(failure.message, u"There was an error writing the file."_s);
            QCOMPARE(failure.cause, u"Path not found"_s);
            QCOMPARE(failure.reason,
                     QString::fromStdString(std::make_error_code(std::errc::no_such_file_or_directory).message()));
            QCOMPARE(failure.description, u"There was an error writing the file. Path not found"_s);
        }
        QVERIFY(!isAsked);
    }

    void withoutOptionsAnEmptyFileIsLeftUnlessThereIsOne()
    {
        const AviList list = Bitmaps({}, 1);
        const auto dismiss = [&](const char* out) {
            return cAviWriting(At(out), list, {}, Sink()).Begin([](const AviFormat& first) {
                [&] { QCOMPARE(first.width, 37); }();
                return std::optional<AviOptions>();
            });
        };
        QCOMPARE(dismiss("new.avi"), AviState::Dismissed);
        QCOMPARE(Get(At("new.avi")), QByteArray());
        QVERIFY(QFile::exists(At("new.avi")));
        Put(At("old.avi"), "old");
        QCOMPARE(dismiss("old.avi"), AviState::Dismissed);
        QCOMPARE(Get(At("old.avi")), QByteArray("old"));
        QCOMPARE(Entries("*").size(), 3);
        QVERIFY(notices.isEmpty());
    }

    void aStoppedWritingLeavesNothing()
    {
        Put(At("out.avi"), "old");
        {
            cAviWriting writing(At("out.avi"), Bitmaps({}, 3), {}, Sink());
            QCOMPARE(writing.Begin([](const AviFormat&) { return AviOptions(); }), AviState::Writing);
            QCOMPARE(writing.WriteFrame(), AviState::Writing);
            QCOMPARE(Entries("*.tmp").size(), 1);
        }
        QCOMPARE(Get(At("out.avi")), QByteArray("old"));
        QCOMPARE(Entries("*.tmp").size(), 0);
    }

    void pathsAreSortedByTheirNumbers()
    {
        QCOMPARE(InNumberOrder({u"/a/f10.bmp"_s, u"/a/f9.bmp"_s, u"/a/F1.bmp"_s, u"/a/f2.bmp"_s}),
                 QStringList({u"/a/F1.bmp"_s, u"/a/f2.bmp"_s, u"/a/f9.bmp"_s, u"/a/f10.bmp"_s}));
        QCOMPARE(InNumberOrder({u"7b"_s, u"007a"_s, u"7"_s, u"b"_s, u""_s, u"7a"_s}),
                 QStringList({u""_s, u"7"_s, u"007a"_s, u"7a"_s, u"7b"_s, u"b"_s}));
        // Longer than every integer.
        QCOMPARE(InNumberOrder({u"f99999999999999999999999.bmp"_s, u"f100000000000000000000000.bmp"_s}).first(),
                 u"f99999999999999999999999.bmp"_s);
    }

    void aFolderIsAddedInNumberOrder()
    {
        const QString frames = At("frames");
        QVERIFY(QDir().mkdir(frames));
        const auto put = [&](const char* name, const QByteArray& bytes) {
            Put(frames + u'/' + QLatin1String(name), bytes);
        };
        for (const char* name : {"10.bmp", "9.BMP", "2.dib"})
            put(name, NoiseBitmap({}, 1));
        put("3.bmp", NoiseBitmap({.bits = 8}, 1));
        put("4.bmp", "no bitmap");
        QByteArray noSize = NoiseBitmap({}, 1);
        noSize.replace(34, 4, QByteArray(4, '\0'));
        put("5.bmp", noSize);
        put("notes.txt", "text");
        const AviFolder added = WithFolder({}, frames);
        QStringList names;
        for (const QString& file : added.list.files)
            names.append(QFileInfo(file).fileName());
        QCOMPARE(names, QStringList({u"2.dib"_s, u"9.BMP"_s, u"10.bmp"_s}));
        QCOMPARE(added.leftOut, QStringList({u"3.bmp"_s, u"4.bmp"_s, u"5.bmp"_s}));
        QCOMPARE(
            FolderAddedText(3, added.leftOut),
            u"Files added: 3. Left out, as they cannot be read or have another format: 3 (3.bmp, 4.bmp, 5.bmp)."_s);
        QCOMPARE(FolderAddedText(2, {}), u"Files added: 2."_s);
        QCOMPARE(FolderAddedText(0, {}), u"There are no bitmaps in this folder."_s);
    }

    void theVideoMayReplaceOneOfItsBitmaps()
    {
        const AviList list = Bitmaps({}, 2);
        const QByteArray pixels = AllPixels(list);
        QCOMPARE(Write(list, "1.bmp"), AviState::Finished);
        QVERIFY(Decoded(list.files[1]) == pixels);
    }

#ifdef Q_OS_UNIX
    void aFullDiskIsReportedAndLeavesNoFile_data()
    {
        QTest::addColumn<int>("limit");
        QTest::newRow("within the headers") << 1000;
        QTest::newRow("within the frames") << 20'000;
    }
    void aFullDiskIsReportedAndLeavesNoFile()
    {
        QFETCH(int, limit);
        const AviList list = Bitmaps({}, 30);
        {
            const FileSizeLimit full(static_cast<rlim_t>(limit));
            QCOMPARE(Write(list), Unfinished);
        }
        QCOMPARE(message, u"There was an error writing the file."_s);
        QCOMPARE(reason, u"Disk full"_s);
        QCOMPARE(Entries("*.avi") + Entries("*.tmp"), QStringList());
    }
#endif
};

QTEST_GUILESS_MAIN(tst_modAvi)
#include "tst_modAvi.moc"
