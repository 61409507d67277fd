// SPDX-License-Identifier: GPL-3.0-or-later
// ANSI text to UTF-8 and back, compared with a simple transcription that converts one character at a time.
#include "platform/language/modAnsi.h"

#include <QTest>

#include <cstdint>
#include <random>
#include <string>

using namespace Qt::StringLiterals;

namespace {

// The characters of windows-1252 between 80 and 9F, in order.
const QString upperControls = QString::fromUtf16(
    u"\u20AC\u0081\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152\u008D\u017D\u008F"
    u"\u0090\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122\u0161\u203A\u0153\u009D\u017E\u0178");

QChar CharacterOf(unsigned char byte)
{
    return byte >= 0x80 && byte < 0xA0 ? upperControls[byte - 0x80] : QChar(char16_t{byte});
}

QByteArray PlainDecode(const QByteArray& ansi)
{
    QString text;
    for (const char byte : ansi)
        text += CharacterOf(static_cast<unsigned char>(byte));
    return text.toUtf8();
}

int ByteOf(char32_t character)
{
    for (int byte = 0; byte < 256; ++byte) {
        if (CharacterOf(static_cast<unsigned char>(byte)).unicode() == character)
            return byte;
    }
    return -1;
}

// A character in UTF-8, written from the encoding's definition.
std::string Utf8Of(char32_t character)
{
    const auto tail = [&](unsigned shift) { return static_cast<char>(0x80 | ((character >> shift) & 0x3F)); };
    if (character < 0x80)
        return {static_cast<char>(character)};
    if (character < 0x800)
        return {static_cast<char>(0xC0 | (character >> 6)), tail(0)};
    if (character < 0x10000)
        return {static_cast<char>(0xE0 | (character >> 12)), tail(6), tail(0)};
    return {static_cast<char>(0xF0 | (character >> 18)), tail(12), tail(6), tail(0)};
}

} // namespace

class tst_modAnsi : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyByteSurvivesTheRoundTrip();
    void everyByteSurvivesAtEveryPlaceInABlock();
    void everyCharacterIsEncodedOrCountsAsLost();
    void malformedUtf8CountsByteByByte_data();
    void malformedUtf8CountsByteByByte();
    void theFirstLostLineIsNamed_data();
    void theFirstLostLineIsNamed();
    void randomTextsAgreeWithThePlainTranscription();
    void randomUtf8AgreesWithThePlainTranscription();
    void asciiIsSharedAndNotCopied();
    void emptyTextsStayEmpty();
    void nulIsACharacterLikeAnyOther();
    void qStringsGoBothWays();
    void unpairedSurrogatesCountAsLost();
};

void tst_modAnsi::everyByteSurvivesTheRoundTrip()
{
    QByteArray all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    const QByteArray utf8 = ob::DecodeAnsi(all);
    QCOMPARE(utf8, PlainDecode(all));
    QVERIFY(utf8.contains("\xE2\x82\xAC"));
    const ob::AnsiText back = ob::EncodeAnsi(utf8);
    QCOMPARE(back.bytes, all);
    QCOMPARE(back.lostCount, std::size_t{0});
    QCOMPARE(back.firstLostLine, -1);
}

void tst_modAnsi::everyByteSurvivesAtEveryPlaceInABlock()
{
    for (int length = 1; length <= 70; ++length) {
        for (int place = 0; place < length; ++place) {
            for (const char byte : {'\x80', '\xE4', '\xFF'}) {
                QByteArray ansi(length, 'x');
                ansi[place] = byte;
                const QByteArray utf8 = ob::DecodeAnsi(ansi);
                QCOMPARE(utf8, PlainDecode(ansi));
                QCOMPARE(ob::EncodeAnsi(utf8).bytes, ansi);
            }
        }
    }
}

void tst_modAnsi::everyCharacterIsEncodedOrCountsAsLost()
{
    int encodedCount = 0;
    for (char32_t character = 0; character < 0x11000; ++character) {
        if (character >= 0xD800 && character < 0xE000)
            continue;
        const ob::AnsiText ansi = ob::EncodeAnsi("a" + Utf8Of(character) + "b");
        const int byte = ByteOf(character);
        encodedCount += byte >= 0 ? 1 : 0;
        const QByteArray expected = QByteArray("a") + (byte >= 0 ? static_cast<char>(byte) : '?') + 'b';
        QCOMPARE(ansi.bytes, expected);
        QCOMPARE(ansi.lostCount, std::size_t{byte >= 0 ? 0U : 1U});
        QCOMPARE(ansi.firstLostLine, byte >= 0 ? -1 : 1);
    }
    QCOMPARE(encodedCount, 256);
}

void tst_modAnsi::malformedUtf8CountsByteByByte_data()
{
    QTest::addColumn<QByteArray>("utf8");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("lostCount");
    QTest::newRow("lone follower") << QByteArray("a\x80"
                                                 "b")
                                   << QByteArray("a?b") << 1;
    QTest::newRow("cut two-byte character") << QByteArray("a\xC3") << QByteArray("a?") << 1;
    QTest::newRow("cut three-byte character") << QByteArray("\xE2\x82") << QByteArray("??") << 2;
    QTest::newRow("cut before ASCII") << QByteArray("\xE2\x82x") << QByteArray("??x") << 2;
    QTest::newRow("cut four-byte character") << QByteArray("\xF0\x9F\x98") << QByteArray("???") << 3;
    QTest::newRow("NUL in two bytes") << QByteArray("\xC0\x80") << QByteArray("??") << 2;
    QTest::newRow("slash in two bytes") << QByteArray("\xC1\xAF") << QByteArray("??") << 2;
    QTest::newRow("o umlaut in three bytes") << QByteArray("\xE0\x83\xB6") << QByteArray("???") << 3;
    QTest::newRow("euro in four bytes") << QByteArray("\xF0\x82\x82\xAC") << QByteArray("????") << 4;
    QTest::newRow("surrogate") << QByteArray("\xED\xA0\x80") << QByteArray("???") << 3;
    QTest::newRow("beyond the last character") << QByteArray("\xF4\x90\x80\x80") << QByteArray("????") << 4;
    QTest::newRow("bytes that never occur in UTF-8") << QByteArray("\xFE\xFF\xF5") << QByteArray("???") << 3;
    QTest::newRow("last character, well-formed") << QByteArray("\xF4\x8F\xBF\xBF") << QByteArray("?") << 1;
    QTest::newRow("well-formed after malformed") << QByteArray("\xE2\xC3\xA4") << QByteArray("?\xE4") << 1;
}

void tst_modAnsi::malformedUtf8CountsByteByByte()
{
    QFETCH(QByteArray, utf8);
    QFETCH(QByteArray, bytes);
    QFETCH(int, lostCount);
    const ob::AnsiText ansi = ob::EncodeAnsi(utf8);
    QCOMPARE(ansi.bytes, bytes);
    QCOMPARE(ansi.lostCount, static_cast<std::size_t>(lostCount));
}

void tst_modAnsi::theFirstLostLineIsNamed_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("line");
    QTest::newRow("first line") << u"\u0436\r\na"_s << 1;
    QTest::newRow("CR LF") << u"a\r\nb\r\n\u0436"_s << 3;
    QTest::newRow("LF") << u"a\nb\n\n\u0436"_s << 4;
    QTest::newRow("CR") << u"a\rb\r\u0436"_s << 3;
    QTest::newRow("LF CR are two ends") << u"a\n\r\u0436"_s << 3;
    QTest::newRow("CR right before it") << u"\r\u0436"_s << 2;
    QTest::newRow("the first of several") << u"a\n\u0436\n\u0436"_s << 2;
    QTest::newRow("other characters do not count") << u"\u00E4\u20AC\n\u00FC"_s << -1;
}

void tst_modAnsi::theFirstLostLineIsNamed()
{
    QFETCH(QString, text);
    QFETCH(int, line);
    QCOMPARE(ob::EncodeAnsi(text.toUtf8()).firstLostLine, line);
    QCOMPARE(ob::AnsiFromText(text).firstLostLine, line);
}

void tst_modAnsi::randomTextsAgreeWithThePlainTranscription()
{
    std::mt19937 random(20240611);
    for (int round = 0; round < 3000; ++round) {
        const auto length = static_cast<int>(random() % 300);
        const auto highShare = random() % 101;
        QByteArray ansi;
        for (int index = 0; index < length; ++index)
            ansi += static_cast<char>(random() % 128 + (random() % 100 < highShare ? 128 : 0));
        const QByteArray utf8 = ob::DecodeAnsi(ansi);
        QCOMPARE(utf8, PlainDecode(ansi));
        QCOMPARE(ob::DecodeAnsi(QByteArrayView(ansi)), utf8);
        const ob::AnsiText back = ob::EncodeAnsi(utf8);
        QCOMPARE(back.bytes, ansi);
        QCOMPARE(back.lostCount, std::size_t{0});
    }
}

void tst_modAnsi::randomUtf8AgreesWithThePlainTranscription()
{
    std::mt19937 random(1252);
    for (int round = 0; round < 1000; ++round) {
        std::string utf8;
        QByteArray expected;
        std::size_t lostCount = 0;
        const auto length = random() % 200;
        for (auto left = length; left > 0; --left) {
            const auto kind = random() % 10;
            const std::uint32_t bound = kind < 6 ? 0x80 : kind < 8 ? 0x200 : kind < 9 ? 0x3000 : 0x110000;
            auto character = static_cast<char32_t>(random() % bound);
            if (character >= 0xD800 && character < 0xE000)
                character = U'x';
            const int byte = ByteOf(character);
            lostCount += byte < 0 ? 1 : 0;
            expected += byte < 0 ? '?' : static_cast<char>(byte);
            utf8 += Utf8Of(character);
        }
        const ob::AnsiText ansi = ob::EncodeAnsi(utf8);
        QCOMPARE(ansi.bytes, expected);
        QCOMPARE(ansi.lostCount, lostCount);
    }
}

void tst_modAnsi::asciiIsSharedAndNotCopied()
{
    const QByteArray text = QByteArray("print \"all ASCII\"\r\n").repeated(50);
    QCOMPARE(ob::DecodeAnsi(text).constData(), text.constData());
    QCOMPARE(ob::EncodeAnsi(text).bytes.constData(), text.constData());
    QCOMPARE(ob::DecodeAnsi(QByteArrayView(text)), text);
    QVERIFY(ob::DecodeAnsi(QByteArrayView(text)).constData() != text.constData());
}

void tst_modAnsi::emptyTextsStayEmpty()
{
    QCOMPARE(ob::DecodeAnsi(QByteArray()).size(), 0);
    QCOMPARE(ob::EncodeAnsi(QByteArrayView()).bytes.size(), 0);
    QCOMPARE(ob::EncodeAnsi("").firstLostLine, -1);
}

void tst_modAnsi::nulIsACharacterLikeAnyOther()
{
    const QByteArray ansi("a\0\xE4\0", 4);
    const QByteArray utf8("a\0\xC3\xA4\0", 5);
    QCOMPARE(ob::DecodeAnsi(ansi), utf8);
    QCOMPARE(ob::EncodeAnsi(utf8).bytes, ansi);
    QCOMPARE(ob::EncodeAnsi(utf8).lostCount, std::size_t{0});
}

void tst_modAnsi::qStringsGoBothWays()
{
    QCOMPARE(ob::TextFromAnsi("5 \x80 f\xFCr \x93"
                              "alles\x94"),
             u"5 \u20AC f\u00FCr \u201Calles\u201D"_s);
    const ob::AnsiText ansi = ob::AnsiFromText(u"\u00DCbung \u20AC \U0001F600");
    QCOMPARE(ansi.bytes, QByteArray("\xDC"
                                    "bung \x80 ?"));
    QCOMPARE(ansi.lostCount, std::size_t{1});
}

void tst_modAnsi::unpairedSurrogatesCountAsLost()
{
    QString text = u"a\n?b"_s;
    text[2] = QChar(0xD83D);
    const ob::AnsiText ansi = ob::AnsiFromText(text + u"\u00E4\U0001F600"_s + QChar(0xDE00));
    QCOMPARE(ansi.bytes, QByteArray("a\n?b\xE4??"));
    QCOMPARE(ansi.lostCount, std::size_t{3});
    QCOMPARE(ansi.firstLostLine, 2);
}

QTEST_APPLESS_MAIN(tst_modAnsi)
#include "tst_modAnsi.moc"
