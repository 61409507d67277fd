// SPDX-License-Identifier: GPL-3.0-or-later
// The conversions of the language's runtime.
#include "platform/language/modRuntime.h"

#include "platform/language/cRuntimeError.h"

#include <QTest>

#include <cmath>
#include <limits>
#include <random>

using namespace Qt::StringLiterals;

namespace {

// The number of the error raised by a call; 0 for none.
template <class Call>
int ErrorOf(Call call)
{
    try {
        call();
    } catch (const ob::RuntimeError& error) {
        return error.number;
    }
    return 0;
}

constexpr int overflow = 6;

// A text as the name of a test's row: line ends and tabs would break the report.
QByteArray RowName(const char* text)
{
    return '"' + QByteArray(text).replace('\n', "\\n").replace('\r', "\\r").replace('\t', "\\t") + '"';
}

} // namespace

class tst_modRuntime : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void valReadsTheNumberAtTheStart_data();
    void valReadsTheNumberAtTheStart();
    void valRaisesOverflow();
    void valReadsBackWhatStrWrites();
    void strWritesDoubles_data();
    void strWritesDoubles();
    void strWritesSingles_data();
    void strWritesSingles();
    void strWritesWholeNumbers();
    void numberTextHasNoLeadingSpaceAndAZero();
    void halvesRoundToEven_data();
    void halvesRoundToEven();
    void conversionsOverflowAtTheirBounds();
    void numberOfTakesWholeTextsOnly_data();
    void numberOfTakesWholeTextsOnly();
    void booleanOfTakesWordsAndNumbers_data();
    void booleanOfTakesWordsAndNumbers();
    void trimmingRemovesSpacesOnly();
    void caseFoldingIsAsciiOnly();
    void equalsIgnoreCaseComparesWholeTexts();
};

void tst_modRuntime::valReadsTheNumberAtTheStart_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("number");
    const auto row = [](const char* text, double number) {
        QTest::newRow(RowName(text)) << QString::fromLatin1(text) << number;
    };
    row("", 0);
    row("abc", 0);
    row("12", 12);
    row("-12", -12);
    row("+12", 12);
    row("--12", 0);
    row("  12 apples", 12);
    row("1 2 3", 123);
    row("\t1\n2\t3", 123);
    row("1\r2", 1);
    row("- 5", -5);
    row("12.5", 12.5);
    row(".5", 0.5);
    row("5.", 5);
    row("-.5", -0.5);
    row(".", 0);
    row("-", 0);
    row("1.2.3", 1.2);
    row("1,5", 1);
    row("1e3", 1000);
    row("1E3", 1000);
    row("1d3", 1000);
    row("1D+3", 1000);
    row("25e-2", 0.25);
    row("1 e 3", 1000);
    row("1e", 1);
    row("1e+", 1);
    row("1e+x", 1);
    row("1exit", 1);
    row("e3", 0);
    row("1.5e2.5", 150);
    row("1e-400", 0);
    row("0e400", 0);
    row("0.1", 0.1);
    row("123456789.123456789", 123456789.123456789);
    row("inf", 0);
    row("nan", 0);
    row("0x10", 0);
    row("&H1F", 31);
    row("&h1f", 31);
    row("&H1FG", 31);
    row("& H 1 F", 31);
    row("&HFFFF", -1);
    row("&H8000", -32768);
    row("&H7FFF", 32767);
    row("&H0000FFFF", -1);
    row("&HFFFF&", 65535);
    row("&H10000", 65536);
    row("&HFFFFFFFF", -1);
    row("&H80000000", -2147483648.0);
    row("&O17", 15);
    row("&o17", 15);
    row("&O18", 1);
    row("&O177777", -1);
    row("&H", 0);
    row("&", 0);
    row("&17", 0);
    row("&H-1", 0);
    row("-&H10", 0);
}

void tst_modRuntime::valReadsTheNumberAtTheStart()
{
    QFETCH(QString, text);
    QFETCH(double, number);
    QVERIFY2(ob::Val(text) == number, qPrintable(QString::number(ob::Val(text), 'g', 17)));
    QVERIFY(ob::Val(text.toLatin1()) == number);
}

void tst_modRuntime::valRaisesOverflow()
{
    for (const char* text : {"1e309", "-1e309", "1e99999999999999999999", "0.1e310", "&H100000000", "&O40000000000",
                             "&HFFFFFFFFFFFFFFFFFFFF"})
        QCOMPARE(ErrorOf([&] { ob::Val(text); }), overflow);
    QCOMPARE(ErrorOf([] { ob::Val(u"1e308"_s); }), 0);
    QCOMPARE(ErrorOf([] { ob::Val(QByteArray(400, '9')); }), overflow);
    QCOMPARE(ErrorOf([] { ob::Val("0." + QByteArray(400, '0') + "1"); }), 0);
    QCOMPARE(ob::Val(u"1\u00E45"_s), 1.0);
    QCOMPARE(ob::Val(u"\u0661"_s), 0.0);
}

void tst_modRuntime::valReadsBackWhatStrWrites()
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> mantissa(-10, 10);
    for (int round = 0; round < 20000; ++round) {
        const double number = mantissa(random) * std::pow(10.0, static_cast<int>(random() % 40) - 20);
        const double back = ob::Val(ob::Str(number));
        QVERIFY2(std::abs(back - number) <= std::abs(number) * 5.1e-15, qPrintable(ob::Str(number)));
        QCOMPARE(ob::Str(back), ob::Str(number));
        const auto single = static_cast<float>(number);
        const auto singleBack = static_cast<float>(ob::Val(ob::Str(single)));
        QVERIFY2(std::abs(singleBack - single) <= std::abs(single) * 6e-7F, qPrintable(ob::Str(single)));
    }
}

void tst_modRuntime::strWritesDoubles_data()
{
    QTest::addColumn<double>("number");
    QTest::addColumn<QString>("text");
    const auto row = [](double number, const char* text) {
        QTest::newRow(RowName(text)) << number << QString::fromLatin1(text);
    };
    row(0, " 0");
    row(-0.0, " 0");
    row(5, " 5");
    row(-5, "-5");
    row(0.5, " .5");
    row(-0.5, "-.5");
    row(1.5, " 1.5");
    row(0.1, " .1");
    row(0.1 + 0.2, " .3");
    row(1.0 / 3, " .333333333333333");
    row(2.0 / 3, " .666666666666667");
    row(1.0 / 30, " 3.33333333333333E-02");
    row(0.05, " .05");
    row(0.00001, " .00001");
    row(1e-15, " .000000000000001");
    row(1e-16, " 1E-16");
    row(1.25e-14, " 1.25E-14");
    row(100, " 100");
    row(1234.5678, " 1234.5678");
    row(123456789012345, " 123456789012345");
    row(999999999999999, " 999999999999999");
    row(1e15, " 1E+15");
    row(1234567890123456, " 1.23456789012346E+15");
    row(999999999999999.9, " 1E+15");
    row(-1.5e100, "-1.5E+100");
    row(1e-300, " 1E-300");
    row(std::numeric_limits<double>::max(), " 1.79769313486232E+308");
    row(std::numeric_limits<double>::infinity(), " 1.#INF");
    row(-std::numeric_limits<double>::infinity(), "-1.#INF");
    row(std::numeric_limits<double>::quiet_NaN(), "-1.#IND");
}

void tst_modRuntime::strWritesDoubles()
{
    QFETCH(double, number);
    QFETCH(QString, text);
    QCOMPARE(ob::Str(number), text);
}

void tst_modRuntime::strWritesSingles_data()
{
    QTest::addColumn<float>("number");
    QTest::addColumn<QString>("text");
    const auto row = [](float number, const char* text) {
        QTest::newRow(RowName(text)) << number << QString::fromLatin1(text);
    };
    row(0.0F, " 0");
    row(0.1F, " .1");
    row(-0.1F, "-.1");
    row(1000.0F, " 1000");
    row(1234.567F, " 1234.567");
    row(1.0F / 3, " .3333333");
    row(1.0F / 30, " 3.333334E-02");
    row(0.000001F, " .000001");
    row(0.00000001F, " 1E-08");
    row(9999999.0F, " 9999999");
    row(1e7F, " 1E+07");
    row(16777216.0F, " 1.677722E+07");
}

void tst_modRuntime::strWritesSingles()
{
    QFETCH(float, number);
    QFETCH(QString, text);
    QCOMPARE(ob::Str(number), text);
}

void tst_modRuntime::strWritesWholeNumbers()
{
    QCOMPARE(ob::Str(0), u" 0"_s);
    QCOMPARE(ob::Str(42), u" 42"_s);
    QCOMPARE(ob::Str(-42), u"-42"_s);
    QCOMPARE(ob::Str(std::int16_t{-32768}), u"-32768"_s);
    QCOMPARE(ob::Str(std::uint32_t{0x8000000F}), u" 2147483663"_s);
    QCOMPARE(ob::Str(std::numeric_limits<std::int64_t>::min()), u"-9223372036854775808"_s);
}

void tst_modRuntime::numberTextHasNoLeadingSpaceAndAZero()
{
    QCOMPARE(ob::NumberText(5), u"5"_s);
    QCOMPARE(ob::NumberText(-5), u"-5"_s);
    QCOMPARE(ob::NumberText(0.5), u"0.5"_s);
    QCOMPARE(ob::NumberText(-0.5), u"-0.5"_s);
    QCOMPARE(ob::NumberText(0.0), u"0"_s);
    QCOMPARE(ob::NumberText(-0.0), u"0"_s);
    QCOMPARE(ob::NumberText(12.25F), u"12.25"_s);
    QCOMPARE(ob::NumberText(0.1F), u"0.1"_s);
    QCOMPARE(ob::NumberText(1e15), u"1E+15"_s);
}

void tst_modRuntime::halvesRoundToEven_data()
{
    QTest::addColumn<double>("number");
    QTest::addColumn<qint64>("whole");
    const auto row = [](double number, qint64 whole) {
        QTest::newRow(qPrintable(QString::number(number, 'g', 17))) << number << whole;
    };
    row(0, 0);
    row(0.5, 0);
    row(-0.5, 0);
    row(1.5, 2);
    row(2.5, 2);
    row(3.5, 4);
    row(-1.5, -2);
    row(-2.5, -2);
    row(2.4999999999, 2);
    row(2.5000000001, 3);
    row(0.49999999999999994, 0);
    row(-0.51, -1);
    row(4503599627370497.5, 4503599627370498);
    row(4503599627370496.5, 4503599627370496);
    row(9007199254740993.0, 9007199254740992);
    row(-9223372036854775808.0, std::numeric_limits<qint64>::min());
}

void tst_modRuntime::halvesRoundToEven()
{
    QFETCH(double, number);
    QFETCH(qint64, whole);
    QCOMPARE(qint64{ob::RoundHalfEven(number)}, whole);
}

void tst_modRuntime::conversionsOverflowAtTheirBounds()
{
    QCOMPARE(int{ob::ToInt16(32767.5 - 0.01)}, 32767);
    QCOMPARE(ErrorOf([] { ob::ToInt16(32767.5); }), overflow);
    QCOMPARE(int{ob::ToInt16(-32768.5)}, -32768);
    QCOMPARE(ErrorOf([] { ob::ToInt16(-32768.6); }), overflow);
    QCOMPARE(ob::ToInt32(2147483647.4), 2147483647);
    QCOMPARE(ErrorOf([] { ob::ToInt32(2147483647.5); }), overflow);
    QCOMPARE(ob::ToInt32(-2147483648.5), std::numeric_limits<std::int32_t>::min());
    QCOMPARE(ErrorOf([] { ob::ToInt32(-2147483648.51); }), overflow);
    QCOMPARE(ErrorOf([] { ob::RoundHalfEven(9223372036854775808.0); }), overflow);
    for (const double number : {std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
                                std::numeric_limits<double>::quiet_NaN()}) {
        QCOMPARE(ErrorOf([&] { ob::ToInt16(number); }), overflow);
        QCOMPARE(ErrorOf([&] { ob::RoundHalfEven(number); }), overflow);
    }
}

void tst_modRuntime::numberOfTakesWholeTextsOnly_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("number");
    QTest::addColumn<bool>("isNumber");
    const auto row = [](const char* text, double number, bool isNumber) {
        QTest::newRow(RowName(text)) << QString::fromLatin1(text) << number << isNumber;
    };
    row("", 0, false);
    row("   ", 0, false);
    row("12", 12, true);
    row(" 12\t", 12, true);
    row("12.5", 12.5, true);
    row("-12.5e2", -1250, true);
    row("1d2", 100, true);
    row("&HFF", 255, true);
    row("&HFF&", 255, true);
    row("12x", 0, false);
    row("1 2", 0, false);
    row("1e", 0, false);
    row("1e400", 0, false);
    row("&HG", 0, false);
    row("&H100000000", 0, false);
    row("twelve", 0, false);
    row("-", 0, false);
    row(".", 0, false);
    row("0", 0, true);
    row("true", 0, false);
}

void tst_modRuntime::numberOfTakesWholeTextsOnly()
{
    QFETCH(QString, text);
    QFETCH(double, number);
    QFETCH(bool, isNumber);
    QVERIFY(ob::NumberOf(text) == number);
    QCOMPARE(ob::ParseNumber(text).has_value(), isNumber);
}

void tst_modRuntime::booleanOfTakesWordsAndNumbers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("expected");
    const auto row = [](const char* text, int expected) {
        QTest::newRow(RowName(text)) << QString::fromLatin1(text) << expected;
    };
    constexpr int neither = -1;
    row("True", 1);
    row("true", 1);
    row("TRUE", 1);
    row("False", 0);
    row("fALSE", 0);
    row("0", 0);
    row("0.0", 0);
    row("1", 1);
    row("-1", 1);
    row("0.1", 1);
    row("", neither);
    row("yes", neither);
    row("truely", neither);
    row("1x", neither);
}

void tst_modRuntime::booleanOfTakesWordsAndNumbers()
{
    QFETCH(QString, text);
    QFETCH(int, expected);
    const std::optional<bool> value = ob::BooleanOf(text);
    QCOMPARE(value ? int{*value} : -1, expected);
    if (value)
        QCOMPARE(ob::BooleanOf(ob::BooleanText(*value)), value);
    QCOMPARE(ob::BooleanText(true), u"True"_s);
    QCOMPARE(ob::BooleanText(false), u"False"_s);
}

void tst_modRuntime::trimmingRemovesSpacesOnly()
{
    const QString text = u"  \t a b\r\n \u00A0  "_s;
    QCOMPARE(ob::TrimSpaces(text), u"\t a b\r\n \u00A0"_s);
    QCOMPARE(ob::LTrimSpaces(text), u"\t a b\r\n \u00A0  "_s);
    QCOMPARE(ob::RTrimSpaces(text), u"  \t a b\r\n \u00A0"_s);
    QCOMPARE(ob::TrimSpaces(u"    "_s), QString());
    QCOMPARE(ob::TrimSpaces(QString()), QString());
    QCOMPARE(ob::TrimSpaces("  \t x  ").toByteArray(), QByteArray("\t x"));
    QCOMPARE(ob::LTrimSpaces("  x  ").toByteArray(), QByteArray("x  "));
    QCOMPARE(ob::RTrimSpaces("  x  ").toByteArray(), QByteArray("  x"));
    QCOMPARE(ob::RTrimSpaces("   ").size(), 0);
}

void tst_modRuntime::caseFoldingIsAsciiOnly()
{
    QCOMPARE(ob::LowerAscii(u"AbZ@[`{\u00C4\u0130"_s), u"abz@[`{\u00C4\u0130"_s);
    QCOMPARE(ob::LowerAscii("AbZ\xC4"), QByteArray("abz\xC4"));
    for (int code = 0; code < 128; ++code)
        QCOMPARE(ob::LowerAscii(static_cast<char>(code)), QChar(code).toLower().toLatin1());
}

void tst_modRuntime::equalsIgnoreCaseComparesWholeTexts()
{
    QVERIFY(ob::EqualsIgnoreCase(u"No Path"_s, QLatin1String("no path")));
    QVERIFY(!ob::EqualsIgnoreCase(u"No Paths"_s, QLatin1String("no path")));
    QVERIFY(!ob::EqualsIgnoreCase(u"\u00C4"_s, u"\u00E4"_s));
    QVERIFY(!ob::EqualsIgnoreCase(u"\u212A"_s, QLatin1String("k")));
    QVERIFY(ob::EqualsIgnoreCase(u"a\u00C4B"_s, u"A\u00C4b"_s));
    QVERIFY(ob::EqualsIgnoreCase(QString(), QString()));
    QVERIFY(ob::EqualsIgnoreCase("GoTo", "gOtO"));
    QVERIFY(!ob::EqualsIgnoreCase("GoTo", "gOsO"));
    QVERIFY(!ob::EqualsIgnoreCase("[", "{"));
}

QTEST_APPLESS_MAIN(tst_modRuntime)
#include "tst_modRuntime.moc"
