// SPDX-License-Identifier: GPL-3.0-or-later
// Ranges of bytes, and memory as a source of them.
#include "imaging/cByteSource.h"

#include <QTest>

#include <array>

using namespace ob;

class tst_cByteSource : public QObject {
    Q_OBJECT

    static void Same(const ByteRange& range, std::uint64_t offset, std::uint64_t size)
    {
        QCOMPARE(range.offset, offset);
        QCOMPARE(range.size, size);
    }

private Q_SLOTS:
    void aRangeWithinAnotherIsWholeOrEmpty()
    {
        const ByteRange range = {100, 10};
        Same(range.At(3, 7), 103, 7);
        QVERIFY(range.At(3, 8).IsEmpty());
        QVERIFY(range.At(11, 0).IsEmpty());
        QVERIFY(range.At(~std::uint64_t{0}, 2).IsEmpty());
        QVERIFY(range.At(2, ~std::uint64_t{0}).IsEmpty());
    }

    void aRangeFromAPlaceOnIsCutAtTheEnd()
    {
        const ByteRange range = {100, 10};
        Same(range.From(0, 4), 100, 4);
        Same(range.From(8, 4), 108, 2);
        QVERIFY(range.From(10, 4).IsEmpty());
        QVERIFY(range.From(~std::uint64_t{0}, ~std::uint64_t{0}).IsEmpty());
    }

    void memoryIsReadByRanges()
    {
        const std::array<std::uint8_t, 5> bytes = {1, 2, 3, 4, 5};
        const cMemorySource source(bytes);
        QCOMPARE(source.Size(), std::uint64_t{5});
        QVERIFY(source.Bytes(source.All()) == (std::vector<std::uint8_t>{1, 2, 3, 4, 5}));
        QVERIFY(source.Bytes(source.All().At(1, 3)) == (std::vector<std::uint8_t>{2, 3, 4}));
        QVERIFY(source.Bytes({}).empty());
        std::vector<std::uint8_t> buffer;
        QCOMPARE(source.Look({1, 3}, buffer).data(), bytes.data() + 1);
        QVERIFY(buffer.empty());
    }
};

QTEST_GUILESS_MAIN(tst_cByteSource)
#include "tst_cByteSource.moc"
