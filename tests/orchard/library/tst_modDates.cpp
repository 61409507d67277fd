// SPDX-License-Identifier: GPL-3.0-or-later
// Dates and times of day.
#include "orchard/library/LibraryTest.h"

#include "orchard/library/modDates.h"
#include "orchard/library/modNumbers.h"

using namespace ob::basic;

namespace {

const LocalTime autumn = {2026, 11, 5, 14, 5, 9, 42};

QByteArray ShownAnswer(const NumberOrText& answer)
{
    const double* number = std::get_if<double>(&answer);
    return number != nullptr ? "number " + Shown(NumberText(*number)) : Shown(std::get<std::string>(answer));
}

} // namespace

class tst_modDates : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void datesHaveTheirFormats_data();
    void datesHaveTheirFormats();
    void wrongDatesAreErrors_data();
    void wrongDatesAreErrors();
    void daysAndDatesAgreeOverAllYears();
    void daysOutsideTheCalendarAreErrors();
    void timesHaveTheirFormats_data();
    void timesHaveTheirFormats();
    void argumentsSayWhetherANumberComes();
};

void tst_modDates::datesHaveTheirFormats_data()
{
    QTest::addColumn<QByteArray>("argument");
    QTest::addColumn<QByteArray>("answer");
    const auto row = [](const char* argument, const char* answer) {
        QTest::newRow(argument) << QByteArray(argument) << QByteArray(answer);
    };
    row("", "Nov 05, 2026");
    row("mm/dd/yyyy", "11/05/2026");
    row("MM/DD/YYYY", "11/05/2026");
    row("mm/dd/yy", "11/05/26");
    row("yyyy/mm/dd", "2026/11/05");
    row("days", "number 45964");
    row("01/01/1901", "number 0");
    row("1/2/1901", "number 1");
    row("12/31/1900", "number -1");
    row("11/21/2026", "number 45980");
    row("2026/11/21", "number 45980");
    row(" 2026/1/1 ", "number 45656");
    row("02/29/2024", "number 44984");
    row("02/29/2000", "number 36218");
    row("1/1/0001", "number -693960");
}

void tst_modDates::datesHaveTheirFormats()
{
    QFETCH(QByteArray, argument);
    QFETCH(QByteArray, answer);
    QCOMPARE(ShownAnswer(Date(View(argument), autumn)), answer);
}

void tst_modDates::wrongDatesAreErrors_data()
{
    QTest::addColumn<QByteArray>("argument");
    for (const char* argument : {"02/29/2023",
                                 "02/29/1900",
                                 "13/01/2020",
                                 "00/10/2020",
                                 "04/31/2020",
                                 "1/0/2020",
                                 "11/21/26",
                                 "2026/11",
                                 "11/21/2026/1",
                                 "11-21-2026",
                                 "abc",
                                 " ",
                                 "/",
                                 "//",
                                 "11/21/20261",
                                 "1111/11/1111",
                                 "-1/1/2020",
                                 "1/1/0000",
                                 "99999999999999999999/1/1",
                                 "dd/mm/yyyy",
                                 "11 /21/2026"})
        QTest::newRow(argument) << QByteArray(argument);
}

void tst_modDates::wrongDatesAreErrors()
{
    QFETCH(QByteArray, argument);
    QCOMPARE(ErrorOf([&] { return Date(View(argument), autumn); }), NumberOf(ErrorNumber::NotADate));
}

void tst_modDates::daysAndDatesAgreeOverAllYears()
{
    QCOMPARE(DateOfDays(0), std::string("01/01/1901"));
    QCOMPARE(DateOfDays(45980.9), std::string("11/21/2026"));
    std::string before;
    for (std::int64_t days = DaysOfDate(1, 1, 1); days <= DaysOfDate(9999, 12, 31); days += 1) {
        if (days % 97 != 0 && days % 365 > 3)
            continue;
        const std::string date = DateOfDays(static_cast<double>(days));
        QCOMPARE(std::get<double>(Date(date, autumn)), static_cast<double>(days));
        QVERIFY(date != before);
        before = date;
    }
}

void tst_modDates::daysOutsideTheCalendarAreErrors()
{
    QCOMPARE(DateOfDays(-693960), std::string("01/01/0001"));
    QCOMPARE(DateOfDays(static_cast<double>(DaysOfDate(9999, 12, 31))), std::string("12/31/9999"));
    for (const double days : {-693961.0, 1e7, 1e300, -1e300})
        QCOMPARE(ErrorOf([days] { return DateOfDays(days); }), NumberOf(ErrorNumber::OutOfRange));
}

void tst_modDates::timesHaveTheirFormats_data()
{
    QTest::addColumn<QByteArray>("argument");
    QTest::addColumn<QByteArray>("answer");
    QTest::newRow("none") << QByteArray("") << QByteArray("14:05:09");
    QTest::newRow("seconds") << QByteArray("seconds") << QByteArray("number 50709");
    QTest::newRow("milliseconds") << QByteArray("Milliseconds") << QByteArray("number 50709042");
    QTest::newRow("ms") << QByteArray("ms") << QByteArray("number 50709042");
}

void tst_modDates::timesHaveTheirFormats()
{
    QFETCH(QByteArray, argument);
    QFETCH(QByteArray, answer);
    QCOMPARE(ShownAnswer(Time(View(argument), autumn)), answer);
    QCOMPARE(ErrorOf([] { return Time("hours", autumn); }), NumberOf(ErrorNumber::OutOfRange));
}

void tst_modDates::argumentsSayWhetherANumberComes()
{
    for (const char* argument :
         {"", "mm/dd/yyyy", "mm/dd/yy", "yyyy/MM/dd", "days", "DAYS", "11/21/2026", "2026/11/21"})
        QCOMPARE(std::holds_alternative<double>(Date(argument, autumn)), GivesNumberAsDate(argument));
    for (const char* argument : {"", "seconds", "milliseconds", "MS"})
        QCOMPARE(std::holds_alternative<double>(Time(argument, autumn)), GivesNumberAsTime(argument));
}

QTEST_APPLESS_MAIN(tst_modDates)
#include "tst_modDates.moc"
