// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers as bytes, one after another.
#include "imaging/cByteWriter.h"

#include <QTest>

#include <array>
#include <stdexcept>

using namespace ob;

using Bytes = std::vector<std::uint8_t>;

class tst_cByteWriter : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void numbersAreLittleEndian()
    {
        cByteWriter writer;
        writer.Byte(1).Word(0x0302).Long(0x07060504).Long64(0x0F0E0D0C0B0A0908);
        QVERIFY(writer.Take() == (Bytes{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15}));
    }

    void negativeNumbersKeepTheirBits()
    {
        cByteWriter writer;
        writer.SignedWord(-2).SignedLong(-3);
        QVERIFY(writer.Take() == (Bytes{0xFE, 0xFF, 0xFD, 0xFF, 0xFF, 0xFF}));
    }

    void aWordIsTheLowerHalf()
    {
        cByteWriter writer;
        writer.Word(0x12345678);
        QVERIFY(writer.Take() == (Bytes{0x78, 0x56}));
    }

    void bytesAndZerosAreAdded()
    {
        const std::array<std::uint8_t, 2> some = {7, 8};
        cByteWriter writer;
        writer.Zeros(2).Bytes(some).Zeros(0).Bytes({});
        QCOMPARE(writer.Size(), std::size_t{4});
        QVERIFY(writer.Take() == (Bytes{0, 0, 7, 8}));
        QCOMPARE(writer.Size(), std::size_t{0});
    }

    void aNumberIsPutOverOthersAndNeverBeyond()
    {
        cByteWriter writer;
        writer.Zeros(6).LongAt(1, 0x04030201);
        QVERIFY_EXCEPTION_THROWN(writer.LongAt(3, 1), std::out_of_range);
        QVERIFY_EXCEPTION_THROWN(writer.LongAt(~std::size_t{0} - 1, 1), std::out_of_range);
    }
};

QTEST_GUILESS_MAIN(tst_cByteWriter)
#include "tst_cByteWriter.moc"
