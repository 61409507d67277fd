// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers out of bytes: at a distance, in turn, in both orders, and at and beyond the end.
#include "imaging/cByteReader.h"

#include <QTest>

#include <array>

using namespace ob;

class tst_cByteReader : public QObject {
    Q_OBJECT

    static constexpr std::array<std::uint8_t, 7> bytes = {0x01, 0x82, 0x03, 0x84, 0x05, 0x86, 0x07};

private Q_SLOTS:
    void numbersAtADistanceAreLittleEndian()
    {
        const cByteReader reader(bytes);
        QCOMPARE(int(reader.Byte(1)), 0x82);
        QCOMPARE(int(reader.Word(0)), 0x8201);
        QCOMPARE(reader.Long(0), 0x84038201U);
        QCOMPARE(int(reader.SignedWord(2)), 0x8403 - 0x10000);
        QCOMPARE(reader.SignedLong(0), static_cast<int>(0x84038201U));
    }

    void bytesBeyondTheEndCountAsZeros()
    {
        const cByteReader reader(bytes);
        QCOMPARE(int(reader.Byte(7)), 0);
        QCOMPARE(int(reader.Word(6)), 0x07);
        QCOMPARE(reader.Long(5), 0x0786U);
        QCOMPARE(reader.Long(1'000'000), 0U);
        QCOMPARE(cByteReader({}).Long(0), 0U);
        QVERIFY(!reader.IsShort());
    }

    void numbersInTurnHaveTheOrderThatIsAskedFor()
    {
        cByteReader reader(bytes);
        QCOMPARE(int(reader.Next<std::uint8_t>()), 0x01);
        QCOMPARE((int(reader.Next<std::uint16_t, std::endian::big>())), 0x8203);
        QCOMPARE(int(reader.Next<std::int16_t>()), 0x0584);
        QCOMPARE(reader.Position(), std::size_t{5});
        QCOMPARE(reader.Left(), std::size_t{2});
        cByteReader again(bytes);
        QCOMPARE((again.Next<std::int32_t, std::endian::big>()), 0x01820384);
        QCOMPARE(int(again.Next<std::int16_t>()), 0x8605 - 0x10000);
        QVERIFY(!again.IsShort());
    }

    void aReadBeyondTheEndLeavesNothing()
    {
        cByteReader reader(bytes);
        reader.Skip(4);
        QCOMPARE(reader.Next<std::uint32_t>(), 0U);
        QVERIFY(reader.IsShort());
        QCOMPARE(reader.Left(), std::size_t{0});
        QCOMPARE(int(reader.Next<std::uint8_t>()), 0);
    }

    void bytesAreTakenWholeOrNotAtAll()
    {
        cByteReader reader(bytes);
        QCOMPARE(reader.NextBytes(3).size(), std::size_t{3});
        QCOMPARE(reader.NextBytes(0).size(), std::size_t{0});
        QVERIFY(!reader.IsShort());
        QCOMPARE(reader.NextBytes(static_cast<std::size_t>(-1)).size(), std::size_t{0});
        QVERIFY(reader.IsShort());
    }

    void aPartIsWholeOrEmpty()
    {
        QCOMPARE(BytesAt(bytes, 2, 5).size(), std::size_t{5});
        QCOMPARE(BytesAt(bytes, 2, 5).data(), bytes.data() + 2);
        QVERIFY(BytesAt(bytes, 2, 6).empty());
        QVERIFY(BytesAt(bytes, 8, 0).empty());
        QVERIFY(BytesAt(bytes, ~std::uint64_t{0}, 2).empty());
        QVERIFY(BytesAt(bytes, 2, ~std::uint64_t{0}).empty());
    }
};

QTEST_GUILESS_MAIN(tst_cByteReader)
#include "tst_cByteReader.moc"
