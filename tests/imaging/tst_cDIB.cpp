// SPDX-License-Identifier: GPL-3.0-or-later
// The raw bitmap file: what is accepted, kept and written again.
#include "imaging/BitmapBytes.h"
#include "imaging/MemoryFiles.h"
#include "imaging/cDIB.h"
#include "imaging/cImagingError.h"

#include <QTest>

using namespace ob;

namespace {

struct Notices {
    std::vector<std::pair<std::string, NoticeIcon>> shown;
    NoticeSink Sink()
    {
        return [this](const std::string& text, NoticeIcon icon) { shown.emplace_back(text, icon); };
    }
};

int ErrorNumberOf(const std::function<void()>& work)
{
    try {
        work();
    } catch (const ImagingError& error) {
        return error.number;
    }
    return 0;
}

std::vector<std::uint8_t> File24()
{
    BitmapBytes file;
    file.FileHeader(54, 62).InfoHeader(2, 1, 24, 0, 8).Bytes({1, 2, 3, 4, 5, 6, 0, 0});
    return file.bytes;
}

std::vector<std::uint8_t> Copy(ByteView view)
{
    return {view.begin(), view.end()};
}

// The object after a load that must succeed.
cDIB Loaded(std::vector<std::uint8_t> bytes)
{
    cDIB dib;
    if (!dib.CreateFromBytes(std::move(bytes)))
        throw std::runtime_error("not loaded");
    return dib;
}

constexpr std::int64_t Most = std::numeric_limits<std::int32_t>::max();

} // namespace

class tst_cDIB : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aLoadedFileReportsItsFields()
    {
        MemoryFiles disk;
        disk.files["x.bmp"] = File24();
        Notices notices;
        cDIB dib;
        QVERIFY(dib.CreateFromFile("x.bmp", disk.Reader(), notices.Sink()));
        QVERIFY(notices.shown.empty());
        QCOMPARE(int(dib.FileType()), 19778);
        QCOMPARE(dib.SizeFileHeader(), 62);
        QCOMPARE(dib.BitOffset(), 54);
        QCOMPARE(dib.SizeInfoHeader(), 40);
        QCOMPARE(dib.Width(), 2);
        QCOMPARE(dib.Height(), 1);
        QCOMPARE(int(dib.Planes()), 1);
        QCOMPARE(int(dib.BitCount()), 24);
        QCOMPARE(dib.Compression(), 0);
        QCOMPARE(dib.SizeImage(), 8);
        QCOMPARE(dib.XPPM(), 2835);
        QCOMPARE(dib.YPPM(), 2836);
        QCOMPARE(dib.ClrUsed(), 0);
        QCOMPARE(dib.ClrImportant(), 7);
        QCOMPARE(dib.SizeBitmapInfo(), 41);
        QCOMPARE(Copy(dib.PointerToBits()), (std::vector<std::uint8_t>{1, 2, 3, 4, 5, 6, 0, 0}));
        const std::vector<std::uint8_t> info = Copy(dib.PointerToBitmapInfo());
        QCOMPARE(info.size(), std::size_t{41});
        QCOMPARE(int(info.front()), 40);
        QCOMPARE(int(info.back()), 1);
    }

    void aColorTableBelongsToTheInfoBytes()
    {
        BitmapBytes file;
        file.FileHeader(1078).InfoHeader(4, 1, 8, 0, 4).bytes.resize(1078);
        file.Bytes({9, 8, 7, 6});
        const cDIB dib = Loaded(file.bytes);
        QCOMPARE(dib.SizeBitmapInfo(), 1065);
        QCOMPARE(int(dib.PointerToBitmapInfo().back()), 9);
    }

    void theMessagesOfFilesThatAreNotLoaded()
    {
        MemoryFiles disk;
        Notices notices;
        cDIB dib;
        QVERIFY(!dib.CreateFromFile("gone.bmp", disk.Reader(), notices.Sink()));
        disk.files["x.bmp"] = File24();
        disk.readOutcome = FileOutcome::Locked;
        QVERIFY(!dib.CreateFromFile("x.bmp", disk.Reader(), notices.Sink()));
        disk.readOutcome = FileOutcome::NotOpened;
        disk.description = "Path/File access error";
        QVERIFY(!dib.CreateFromFile("x.bmp", disk.Reader(), notices.Sink()));
        disk.readOutcome = FileOutcome::Done;
        disk.Put("x.bmp", "");
        QVERIFY(!dib.CreateFromFile("x.bmp", disk.Reader(), notices.Sink()));
        disk.Put("x.bmp", "B");
        QVERIFY(!dib.CreateFromFile("x.bmp", disk.Reader(), notices.Sink()));
        disk.Put("x.bmp", "GIF89a");
        QVERIFY(!dib.CreateFromFile("x.bmp", disk.Reader(), notices.Sink()));
        const std::string unsupported = "File is not a supported bitmap format:\r\nx.bmp";
        const std::vector<std::pair<std::string, NoticeIcon>> expected = {
            {"File does not exist:\r\ngone.bmp", NoticeIcon::Stop},
            {"File is locked - cannot access:\r\nx.bmp", NoticeIcon::Stop},
            {"Path/File access error", NoticeIcon::Information},
            {unsupported, NoticeIcon::Information},
            {unsupported, NoticeIcon::Information},
            {unsupported, NoticeIcon::Information}};
        QVERIFY(notices.shown == expected);
    }

    void impossibleSizesRaiseTheSubscriptError_data()
    {
        QTest::addColumn<qint64>("offset");
        QTest::addColumn<qint64>("sizeImage");
        QTest::newRow("no image size") << qint64{54} << qint64{0};
        QTest::newRow("negative image size") << qint64{54} << qint64{-1};
        QTest::newRow("pixels within the file header") << qint64{13} << qint64{8};
        QTest::newRow("no offset") << qint64{0} << qint64{8};
        QTest::newRow("negative offset") << qint64{-54} << qint64{8};
    }

    void impossibleSizesRaiseTheSubscriptError()
    {
        QFETCH(qint64, offset);
        QFETCH(qint64, sizeImage);
        BitmapBytes file;
        file.FileHeader(offset).InfoHeader(2, 1, 24, 0, sizeImage).Put(0, 8);
        QCOMPARE(ErrorNumberOf([&] { cDIB().CreateFromBytes(file.bytes); }), 9);
    }

    void pixelsMayStartWithinTheHeader()
    {
        for (const int offset : {14, 20, 53}) {
            BitmapBytes file;
            file.FileHeader(offset).InfoHeader(2, 1, 24, 0, 4).Put(0, 8);
            const cDIB dib = Loaded(file.bytes);
            QCOMPARE(dib.SizeBitmapInfo(), offset - 13);
            QCOMPARE(dib.PointerToBits().size(), std::size_t{4});
            QCOMPARE(int(dib.PointerToBits()[0]), int(file.bytes[static_cast<std::size_t>(offset)]));
        }
    }

    void missingBytesAreZerosEvenWithinAField()
    {
        std::vector<std::uint8_t> bytes = File24();
        bytes.resize(58);
        cDIB dib = Loaded(bytes);
        QCOMPARE(Copy(dib.PointerToBits()), (std::vector<std::uint8_t>{1, 2, 3, 4, 0, 0, 0, 0}));
        BitmapBytes file;
        file.FileHeader(54).InfoHeader(0x01020304, 1, 24, 0, 0x0A0B);
        file.bytes.resize(35); // the image size's first byte is the last
        dib = Loaded(file.bytes);
        QCOMPARE(dib.Width(), 0x01020304);
        QCOMPARE(dib.SizeImage(), 0x0B);
        QCOMPARE(dib.XPPM(), 0);
    }

    void aHeaderThatPromisesGigabytesCostsNothing()
    {
        BitmapBytes file;
        file.FileHeader(Most).InfoHeader(2, 1, 24, 0, Most).Put(0, 8);
        const cDIB dib = Loaded(file.bytes);
        QCOMPARE(dib.SizeImage(), std::int32_t{Most});
        QCOMPARE(dib.SizeBitmapInfo(), std::int32_t{Most - 13});
    }

    void negativeValuesAreReportedAsSuch()
    {
        BitmapBytes file;
        file.FileHeader(54, -3).InfoHeader(-2, -5, -8, -1, 4, -1).Put(0, 8);
        const cDIB dib = Loaded(file.bytes);
        QCOMPARE(dib.SizeFileHeader(), -3);
        QCOMPARE(dib.Width(), -2);
        QCOMPARE(dib.Height(), -5);
        QCOMPARE(int(dib.BitCount()), -8);
        QCOMPARE(dib.Compression(), -1);
        QCOMPARE(dib.ClrUsed(), -1);
    }

    void anEmptyObjectHasNoBytes()
    {
        const cDIB dib;
        QCOMPARE(ErrorNumberOf([&] { dib.PointerToBits(); }), 9);
        QCOMPARE(ErrorNumberOf([&] { dib.PointerToBitmapInfo(); }), 9);
        QCOMPARE(ErrorNumberOf([&] { dib.SizeBitmapInfo(); }), 9);
        QCOMPARE(dib.Width(), 0);
    }

    void aLoadedFileIsWrittenWithOneByteTooMany()
    {
        const std::vector<std::uint8_t> bytes = File24();
        MemoryFiles disk;
        QVERIFY(Loaded(bytes).WriteToFile("y.bmp", disk.Writer()));
        std::vector<std::uint8_t> expected = bytes;
        expected.insert(expected.begin() + 54, 1);
        QCOMPARE(disk.files["y.bmp"], expected);
        disk.writeResult.outcome = FileOutcome::NotOpened;
        QVERIFY(Loaded(bytes).WriteToFile("y.bmp", disk.Writer()));
    }

    void aPackedBitmapIsTakenFromMemory()
    {
        BitmapBytes packed;
        packed.InfoHeader(2, 1, 24, 0, 8).Bytes({1, 2, 3, 4, 5, 6, 7, 8, 99});
        cDIB dib;
        QVERIFY(dib.CreateFromPackedDIBPointer(packed.bytes));
        QCOMPARE(int(dib.FileType()), 19778);
        QCOMPARE(dib.SizeFileHeader(), 8 + 55);
        QCOMPARE(dib.BitOffset(), 54);
        QCOMPARE(dib.SizeBitmapInfo(), 40);
        QCOMPARE(Copy(dib.PointerToBits()), (std::vector<std::uint8_t>{1, 2, 3, 4, 5, 6, 7, 8}));
        MemoryFiles disk;
        QVERIFY(dib.WriteToFile("y.bmp", disk.Writer()));
        QCOMPARE(disk.files["y.bmp"].size(), std::size_t{62});
        QCOMPARE(int(disk.files["y.bmp"][54]), 1);
    }

    void invalidPackedBitmapsAreRejected()
    {
        const auto take = [](int bits, int sizeImage, int pixelBytes) {
            BitmapBytes packed;
            packed.InfoHeader(2, 1, bits, 0, sizeImage).bytes.resize(static_cast<std::size_t>(40 + pixelBytes));
            return cDIB().CreateFromPackedDIBPointer(packed.bytes);
        };
        QVERIFY(take(16, 8, 8));
        QVERIFY(!take(8, 8, 8));
        QVERIFY(!take(24, 0, 8));
        QVERIFY(!take(24, -1, 8));
        QVERIFY(!take(24, 9, 8));
        QVERIFY(!cDIB().CreateFromPackedDIBPointer({}));
    }
};

QTEST_APPLESS_MAIN(tst_cDIB)
#include "tst_cDIB.moc"
