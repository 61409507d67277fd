// SPDX-License-Identifier: GPL-3.0-or-later
// Texts of a running program share, cut and grow without harm to each other.
#include "orchard/machine/cText.h"

#include <QTest>

#include <string>
#include <vector>

class tst_cText final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void emptyAndZeroedTexts();
    void copiesAndSlicesShareBytes();
    void smallSlicesLetGoOfLargeTexts();
    void appendingLeavesSharedTextsAlone();
    void appendingTextToItself();
    void appendingAgainAndAgainIsLinear();
    void textsOfOneByte();
};

void tst_cText::emptyAndZeroedTexts()
{
    const ob::basic::cText empty;
    QVERIFY(empty.View().empty());
    QVERIFY(ob::basic::cText(std::string_view()).View().empty());
    void* const zeros = std::calloc(1, sizeof(ob::basic::cText));
    auto* const text = static_cast<ob::basic::cText*>(zeros);
    *text = ob::basic::cText("filled");
    QCOMPARE(text->View(), std::string_view("filled"));
    text->~cText();
    std::free(zeros);
}

void tst_cText::copiesAndSlicesShareBytes()
{
    const ob::basic::cText text("a text that has more bytes than one register");
    const ob::basic::cText copy = text;
    QCOMPARE(static_cast<const void*>(copy.View().data()), static_cast<const void*>(text.View().data()));
    const ob::basic::cText slice = text.Slice(2, 4);
    QCOMPARE(slice.View(), std::string_view("text"));
    QCOMPARE(static_cast<const void*>(slice.View().data()), static_cast<const void*>(text.View().data() + 2));
    QCOMPARE(text.Slice(text.View().substr(7, 4)).View(), std::string_view("that"));
    QVERIFY(text.Slice(std::string_view()).View().empty());
    ob::basic::cText lasting;
    {
        const ob::basic::cText gone("a text whose owner is gone before its slice");
        lasting = gone.Slice(2, 10);
    }
    QCOMPARE(lasting.View(), std::string_view("text whose"));
}

void tst_cText::smallSlicesLetGoOfLargeTexts()
{
    const ob::basic::cText large(std::string(100000, 'x'));
    const ob::basic::cText small = large.Slice(50, 10);
    QCOMPARE(small.View(), std::string_view("xxxxxxxxxx"));
    QVERIFY(small.View().data() < large.View().data() || small.View().data() >= large.View().data() + 100000);
}

void tst_cText::appendingLeavesSharedTextsAlone()
{
    ob::basic::cText first("start");
    const ob::basic::cText before = first;
    ob::basic::cText second = first;
    first.Append(" one");
    second.Append(" two");
    first.Append(" more");
    QCOMPARE(before.View(), std::string_view("start"));
    QCOMPARE(first.View(), std::string_view("start one more"));
    QCOMPARE(second.View(), std::string_view("start two"));
    ob::basic::cText literal = ob::basic::cText::Literal("fixed");
    literal.Append("!");
    QCOMPARE(literal.View(), std::string_view("fixed!"));
    ob::basic::cText prefix = first.Slice(0, 5);
    prefix.Append("ed");
    QCOMPARE(prefix.View(), std::string_view("started"));
    QCOMPARE(first.View(), std::string_view("start one more"));
}

void tst_cText::appendingTextToItself()
{
    ob::basic::cText text("abc");
    std::string expected = "abc";
    for (int count = 0; count < 12; ++count) {
        text.Append(text.View());
        expected += expected;
        QCOMPARE(text.View(), std::string_view(expected));
    }
    text.Append(text.View().substr(3, 3));
    QVERIFY(text.View().ends_with("cabc"));
}

void tst_cText::appendingAgainAndAgainIsLinear()
{
    ob::basic::cText text;
    std::size_t moves = 0;
    const char* start = nullptr;
    for (int count = 0; count < 1000000; ++count) {
        text.Append("x");
        moves += text.View().data() == start ? 0 : 1;
        start = text.View().data();
    }
    QCOMPARE(text.Size(), std::size_t{1000000});
    QVERIFY2(moves < 40, qPrintable(QString::number(moves)));
}

void tst_cText::textsOfOneByte()
{
    for (int byte = 0; byte < 256; ++byte) {
        const ob::basic::cText text = ob::basic::cText::Character(static_cast<std::uint8_t>(byte));
        QCOMPARE(text.View(), std::string_view(std::string(1, static_cast<char>(byte))));
    }
}

QTEST_APPLESS_MAIN(tst_cText)
#include "tst_cText.moc"
