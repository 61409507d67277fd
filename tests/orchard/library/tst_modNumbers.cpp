// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers as the engine shows, reads and lays them out.
#include "orchard/library/LibraryTest.h"

#include <cmath>
#include <cstdio>
#include <limits>
#include <random>

#include "orchard/library/modNumbers.h"

using namespace ob::basic;

namespace {

constexpr double largest = std::numeric_limits<double>::max();

std::string WithoutZeros(std::string text)
{
    const std::size_t exponent = text.find('e');
    const std::string tail = exponent == std::string::npos ? "" : text.substr(exponent);
    text.resize(std::min(exponent, text.size()));
    if (text.find('.') != std::string::npos) {
        text.resize(text.find_last_not_of('0') + 1);
        if (text.back() == '.')
            text.pop_back();
    }
    return text + tail;
}

// The rules of print over the C library's printf, which rounds from the exact value too.
std::string PrintfText(double value)
{
    char buffer[64];
    const double size = std::fabs(value);
    if (size < 1e15 && size == std::trunc(size)) {
        std::snprintf(buffer, sizeof buffer, "%.0f", value == 0 ? 0 : value);
        return buffer;
    }
    if (size >= 1e15 || size < 0.0001) {
        std::snprintf(buffer, sizeof buffer, "%.8e", value);
        std::string text = buffer;
        const std::size_t mark = text.find('e');
        return WithoutZeros(text.substr(0, mark) + 'e' + std::to_string(std::stoi(text.substr(mark + 1))));
    }
    int places = 8;
    for (double limit = 10; places > 0 && size >= limit; limit *= 10)
        --places;
    for (const double limit : {0.1, 0.01, 0.001})
        places += size < limit ? 1 : 0;
    std::snprintf(buffer, sizeof buffer, "%.*f", places, value);
    return WithoutZeros(buffer);
}

} // namespace

class tst_modNumbers : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void numbersAreShownAsPrintDoes_data();
    void numbersAreShownAsPrintDoes();
    void shownNumbersAgreeWithPrintfOnRandomValues();
    void numbersAreReadFromTheFront_data();
    void numbersAreReadFromTheFront();
    void shownNumbersReadBack();
    void longDigitsAreReadExactly();
    void hexadecimalIsReadAndWritten_data();
    void hexadecimalIsReadAndWritten();
    void hexadecimalOfHugeNumbersKeepsAllDigits();
    void usingLaysOutNumbers_data();
    void usingLaysOutNumbers();
    void usingTakesLongTemplates();
    void wrongTemplatesAreErrors();
    void numbersAreCutTowardZero();
    void functionsOutsideTheirRangeAreErrors();
};

void tst_modNumbers::numbersAreShownAsPrintDoes_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QByteArray>("text");
    const auto row = [](double value, const char* text) { QTest::newRow(text) << value << QByteArray(text); };
    row(0, "0");
    QTest::newRow("minus zero") << -0.0 << QByteArray("0");
    row(-7, "-7");
    row(999999999999999, "999999999999999");
    row(-123456789012345, "-123456789012345");
    row(1e15, "1e15");
    row(1.5e20, "1.5e20");
    row(-1.5e20, "-1.5e20");
    row(1.0 / 3, "0.33333333");
    row(100.0 / 3, "33.3333333");
    row(std::sqrt(2), "1.41421356");
    row(0.1, "0.1");
    row(-0.5, "-0.5");
    row(0.012345678949, "0.012345679");
    row(0.0012345678, "0.0012345678");
    row(0.0001, "0.0001");
    row(2.5e-5, "2.5e-5");
    row(9.9999e-5, "9.9999e-5");
    QTest::newRow("nine digits in an exponent") << 1.23456789123e-7 << QByteArray("1.23456789e-7");
    QTest::newRow("rounds up to the next form's size") << 0.99999999999 << QByteArray("1");
    QTest::newRow("rounds up, keeps its form") << 9.99999999999e-5 << QByteArray("1e-4");
    QTest::newRow("rounds up to a whole number") << 9.999999999 << QByteArray("10");
    QTest::newRow("long whole part") << 123456789012.5 << QByteArray("123456789012");
    QTest::newRow("tie to even above") << 123456789013.5 << QByteArray("123456789014");
    QTest::newRow("tie to even with a place") << 12345678.25 << QByteArray("12345678.2");
    QTest::newRow("tie to even with a place above") << 12345678.75 << QByteArray("12345678.8");
    QTest::newRow("carries into the whole part") << 99999999.96 << QByteArray("100000000");
    QTest::newRow("fraction just below a limit") << 999999999999999.5 << QByteArray("1000000000000000");
    row(largest, "1.79769313e308");
    row(5e-324, "4.94065646e-324");
}

void tst_modNumbers::numbersAreShownAsPrintDoes()
{
    QFETCH(double, value);
    QFETCH(QByteArray, text);
    QCOMPARE(Shown(NumberText(value)), text);
}

void tst_modNumbers::shownNumbersAgreeWithPrintfOnRandomValues()
{
    std::mt19937_64 random(11);
    std::uniform_real_distribution<double> exponents(-8, 18);
    for (int i = 0; i < 200000; ++i) {
        double value = std::pow(10, exponents(random)) * (i % 2 == 0 ? 1 : -1);
        if (i % 3 == 0)
            value = std::ldexp(std::trunc(value * 16), -4);
        if (i % 7 == 0)
            value = std::round(value * 1000) / 1000;
        QCOMPARE(Shown(NumberText(value)), Shown(PrintfText(value)));
    }
}

void tst_modNumbers::numbersAreReadFromTheFront_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<double>("value");
    const auto row = [](const char* text, double value) { QTest::newRow(text) << QByteArray(text) << value; };
    row("", 0);
    row("12", 12);
    row("  12abc", 12);
    row("\t12", 0);
    row("+5", 5);
    row("-5.25", -5.25);
    row("- 5", 0);
    row("--5", 0);
    row(".5", 0.5);
    row("5.", 5);
    row(".", 0);
    row("-.", 0);
    row(".e5", 0);
    row("1.5e-3", 0.0015);
    row("2d10", 2e10);
    row("2D+1x", 20);
    row("2e", 2);
    row("2e+", 2);
    row("2e 5", 2);
    row("1.5d1", 15);
    row("1,234", 1);
    row("1.2.3", 1.2);
    row("inf", 0);
    row("nan", 0);
    row("-infinity", 0);
    row("0x10", 0);
    row("&H1F", 31);
    row("&hff", 255);
    row("&H", 0);
    row("&", 0);
    row("-&H10", -16);
    row("&HFFFFFFFF", 4294967295.0);
    row("&H1.8p1", 1);
    row("0.1", 0.1);
    row("9007199254740993", 9007199254740992.0);
    row("123456789012345678", 123456789012345677.0);
    row("1e308", 1e308);
    row("1e309", largest);
    row("-1e309", -largest);
    row("1d999999999999999999999", largest);
    row("1e-999999999999999999999", 0);
    row("1e-400", 0);
    row("0e999", 0);
    row("0.0000e99999", 0);
    row("4.9e-324", 5e-324);
}

void tst_modNumbers::numbersAreReadFromTheFront()
{
    QFETCH(QByteArray, text);
    QFETCH(double, value);
    QCOMPARE(Val(View(text)), value);
    QVERIFY(!std::signbit(Val("-0")));
}

void tst_modNumbers::shownNumbersReadBack()
{
    std::mt19937_64 random(5);
    for (int i = 0; i < 50000; ++i) {
        const double value = static_cast<double>(static_cast<std::int64_t>(random()) >> 20) / 1024;
        const double read = Val(NumberText(value));
        QVERIFY(std::fabs(read - value) <= std::fabs(value) * 1e-8);
    }
}

void tst_modNumbers::longDigitsAreReadExactly()
{
    QCOMPARE(Val(std::string(400, '9')), largest);
    QCOMPARE(Val("0." + std::string(400, '0') + "1"), 0.0);
    QCOMPARE(Val("0." + std::string(400, '0') + "1e401"), 1.0);
    QCOMPARE(Val(std::string(400, '0') + "7"), 7.0);
    QCOMPARE(Val("1" + std::string(400, '0') + "e-400"), 1.0);
    QCOMPARE(HexDec(std::string(300, 'F')), largest);
    QCOMPARE(HexDec("20000000000001" + std::string(10, '0')), std::ldexp(9007199254740993.0, 40));
}

void tst_modNumbers::hexadecimalIsReadAndWritten_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<double>("readBack");
    const auto row = [](double value, const char* text, double readBack) {
        QTest::newRow(text) << value << QByteArray(text) << readBack;
    };
    row(0, "0", 0);
    row(255.9, "FF", 255);
    row(3735928559.0, "DEADBEEF", 3735928559.0);
    row(-1, "FFFFFFFF", 4294967295.0);
    row(-2147483648.0, "80000000", 2147483648.0);
    row(-2147483649.0, "FFFFFFFF7FFFFFFF", 18446744071562067967.0);
    row(9223372036854775808.0, "8000000000000000", 9223372036854775808.0);
    row(18446744073709551616.0, "10000000000000000", 18446744073709551616.0);
}

void tst_modNumbers::hexadecimalIsReadAndWritten()
{
    QFETCH(double, value);
    QFETCH(QByteArray, text);
    QFETCH(double, readBack);
    QCOMPARE(Shown(DecHex(value)), text);
    QCOMPARE(HexDec(View(text)), readBack);
    QCOMPARE(HexDec(View("  &h" + text.toLower() + "z")), readBack);
}

void tst_modNumbers::hexadecimalOfHugeNumbersKeepsAllDigits()
{
    QCOMPARE(DecHex(largest).size(), std::size_t{256});
    for (const double value : {largest, 1e300, 1e30, std::ldexp(1.0, 64) + 4096, std::ldexp(1.0, 61) + 256})
        QCOMPARE(HexDec(DecHex(value)), value);
    QCOMPARE(Shown(DecHex(-largest)), QByteArray("8000000000000000"));
    QCOMPARE(HexDec(""), 0.0);
    QCOMPARE(HexDec("-1"), 0.0);
    QCOMPARE(HexDec("1.8"), 1.0);
    QCOMPARE(HexDec("1p3"), 1.0);
}

void tst_modNumbers::usingLaysOutNumbers_data()
{
    QTest::addColumn<QByteArray>("pattern");
    QTest::addColumn<double>("value");
    QTest::addColumn<QByteArray>("text");
    const auto row = [](const char* pattern, double value, const char* text) {
        QTest::addRow("%s of %.17g", pattern, value) << QByteArray(pattern) << value << QByteArray(text);
    };
    row("###.##", 3.14159, "  3.14");
    row("###.##", -3.14159, " -3.14");
    row("###.##", 999.985, "999.99"); // the nearest double lies above the half
    row("###.##", 999.9949, "999.99");
    row("###.##", 999.995, "%1000.00");
    row("###.##", 999.999, "%1000.00");
    row("####", 12, "  12");
    row("##", 100, "%100");
    row("##", -5, "-5");
    row("#", -5, "%-5");
    row("#", 0.5, "1");
    row("#", 1.5, "2");
    row("#", 2.5, "3");
    row("##", -2.5, "-3");
    row("#.#", 0.25, "0.3");
    row("#.##", 0.125, "0.13");
    row("#.##", 0.135, "0.14");
    row("#.##", 1.005, "1.00");
    row("#.#", 0.05, "0.1");
    row(".##", 0.5, ".50");
    row(".##", 0.999, "%1.00");
    row(".##", -0.5, "%-0.50");
    row("#.##", -0.5, "-.50");
    row("##.##", -0.5, "-0.50");
    row("##.##", -0.001, " 0.00");
    row(".#", 0, ".0");
    row("#", 0, "0");
    row("#", -0.2, "0");
    row("##.", 7, " 7.");
    row(".", 0, "%0.");
    row("", 5, "%5");
    row("####.#", 9999.95, "%10000.0");
    row("########################", 1e23, " 99999999999999991611392");
    row("#.####################", 0.1, "0.10000000000000000555");
}

void tst_modNumbers::usingLaysOutNumbers()
{
    QFETCH(QByteArray, pattern);
    QFETCH(double, value);
    QFETCH(QByteArray, text);
    QCOMPARE(Shown(Using(View(pattern), value)), text);
}

void tst_modNumbers::usingTakesLongTemplates()
{
    const std::string places(2000, '#');
    const std::string half = Using("#." + places, 0.5);
    QCOMPARE(half.size(), std::size_t{2002});
    QCOMPARE(half.substr(0, 4), std::string("0.50"));
    // The smallest number has its first digit at place 324 and its last at 1074.
    const std::string smallest = Using("#." + std::string(1080, '#'), 5e-324);
    QVERIFY(smallest.ends_with("625000000") && smallest.find_first_not_of("0.") == 2 + 323);
    QVERIFY(Using("#." + std::string(1073, '#'), 5e-324).ends_with("63"));
    QCOMPARE(Using(places, largest).size(), std::size_t{2000});
    QVERIFY(Using("#.##", largest).starts_with("%1797693"));
}

void tst_modNumbers::wrongTemplatesAreErrors()
{
    for (const char* pattern : {"#.#.#", "##,###", "$##", " ##", "##%", "abc", "-##"})
        QCOMPARE(ErrorOf([pattern] { return Using(pattern, 1); }), NumberOf(ErrorNumber::WrongTemplate));
}

void tst_modNumbers::numbersAreCutTowardZero()
{
    QCOMPARE(WholePart(-7.9), std::int64_t{-7});
    QCOMPARE(WholePart(1e300), INT64_MAX);
    QCOMPARE(WholePart(-1e300), INT64_MIN);
    QCOMPARE(WholePart(std::nan("")), std::int64_t{0});
}

void tst_modNumbers::functionsOutsideTheirRangeAreErrors()
{
    QCOMPARE(ErrorOf([] { return Sqr(-1); }), NumberOf(ErrorNumber::OutOfRange));
    QCOMPARE(ErrorOf([] { return Log(0); }), NumberOf(ErrorNumber::OutOfRange));
    QCOMPARE(ErrorOf([] { return Asn(1.1); }), NumberOf(ErrorNumber::OutOfRange));
    QCOMPARE(ErrorOf([] { return Acs(-1.1); }), NumberOf(ErrorNumber::OutOfRange));
    QCOMPARE(ErrorOf([] { return Power(-8, 1.0 / 3); }), NumberOf(ErrorNumber::OutOfRange));
    QCOMPARE(ErrorOf([] { return Power(0, -1); }), NumberOf(ErrorNumber::DivisionByZero));
    QCOMPARE(ErrorOf([] { return Power(10, 309); }), NumberOf(ErrorNumber::Overflow));
    QCOMPARE(Power(-2, 3), -8.0);
    QCOMPARE(Power(0, 0), 1.0);
    QCOMPARE(Sqr(16), 4.0);
}

QTEST_APPLESS_MAIN(tst_modNumbers)
#include "tst_modNumbers.moc"
