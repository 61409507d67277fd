// SPDX-License-Identifier: GPL-3.0-or-later
// The parts of find and replace that need no window: case in every script, empty fields, the dialog's position, a full
// control.
#include "core/CoreBench.h"

#include "editor/modFind.h"
#include "editor/modTextSearch.h"

#include <QElapsedTimer>

#include <new>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

// "start-end" of each match that begins after the start of the previous one.
QByteArray Matches(const QByteArray& text, const QByteArray& find, CaseRule rule = CaseRule::Folded)
{
    QByteArrayList places;
    const TextPattern pattern(find, rule);
    for (auto match = pattern.FindIn(text); match; match = pattern.FindIn(text, match->start + 1))
        places.append(QByteArray::number(match->start) + '-' + QByteArray::number(match->end));
    return places.join(' ');
}

// Finds a match at the start each time, but has no room for a replacement.
class FullSci final : public cSciControl {
public:
    enum class Refusal { Throws, SetsStatus };
    explicit FullSci(Refusal how) : refusal(how) {}

    std::intptr_t Send(unsigned message, std::uintptr_t, std::intptr_t) override
    {
        messages.append(message);
        switch (message) {
        case SCI_GETLENGTH:
            return 10;
        case SCI_GETTARGETEND:
            return 3;
        case SCI_REPLACETARGET:
            if (refusal == Refusal::Throws)
                throw std::bad_alloc();
            return 0;
        case SCI_GETSTATUS:
            return refusal == Refusal::SetsStatus ? 2 : 0;
        default:
            return 0;
        }
    }

    QList<unsigned> messages;

private:
    Refusal refusal;
};

} // namespace

class tst_modFind : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void lettersMatchInBothCases_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QByteArray>("find");
        QTest::addColumn<QByteArray>("places");
        const QByteArray sharpS("\xc3\x9f");
        const QByteArray capitalSharpS("\xe1\xba\x9e");
        QTest::newRow("ASCII") << QByteArray("Foo fOO") << QByteArray("foo") << QByteArray("0-3 4-7");
        QTest::newRow("overlapping") << QByteArray("aAa") << QByteArray("aa") << QByteArray("0-2 1-3");
        QTest::newRow("umlauts") << QByteArray("\xc3\x84x\xc3\xa4") << QByteArray("\xc3\xa4") << QByteArray("0-2 3-5");
        QTest::newRow("longer capital") << "x" + capitalSharpS + "y" << sharpS << QByteArray("1-4");
        QTest::newRow("shorter lower-case letter") << "x" + sharpS + "y" << capitalSharpS << QByteArray("1-3");
        QTest::newRow("one character is not two") << "x" + sharpS + "ss" << QByteArray("SS") << QByteArray("3-5");
        QTest::newRow("beyond 16 bits") << QByteArray("\xf0\x90\x90\x80") << QByteArray("\xf0\x90\x90\xa8")
                                        << QByteArray("0-4");
        QTest::newRow("not a letter") << QByteArray("\xe2\x82\xac 5") << QByteArray("\xe2\x82\xac")
                                      << QByteArray("0-3");
        QTest::newRow("text is longer") << QByteArray("\xc3\xa4")
                                        << QByteArray("\xc3\xa4"
                                                      "b")
                                        << QByteArray();
        QTest::newRow("empty text") << QByteArray("abc") << QByteArray() << QByteArray();
        QTest::newRow("empty document") << QByteArray() << QByteArray("a") << QByteArray();
        QTest::newRow("NUL bytes") << QByteArray("a\0\xc3\x84", 4) << QByteArray("\0\xc3\xa4", 3) << QByteArray("1-4");
        QTest::newRow("cut character") << QByteArray("a\xc3") << QByteArray("\xc3\xa4") << QByteArray();
        QTest::newRow("malformed bytes are themselves")
            << QByteArray("\xff\xfe\xff") << QByteArray("\xff") << QByteArray("0-1 2-3");
    }

    void lettersMatchInBothCases()
    {
        QFETCH(QByteArray, text);
        QFETCH(QByteArray, find);
        QTEST(Matches(text, find), "places");
    }

    void exactSearchDistinguishesCase()
    {
        QCOMPARE(Matches("Foo foo f\xc3\x96 f\xc3\xb6", "foo", CaseRule::Exact), QByteArray("4-7"));
        QCOMPARE(Matches("Foo foo f\xc3\x96 f\xc3\xb6", "f\xc3\xb6", CaseRule::Exact), QByteArray("12-15"));
    }

    void matchesThatBeginInsideAFalseStartAreFound()
    {
        QCOMPARE(Matches("aabaabaac", "aabaac"), QByteArray("3-9"));
        QCOMPARE(Matches("ababababc", "ABABC"), QByteArray("4-9"));
        QCOMPARE(Matches("\xc3\xa4"
                         "a\xc3\x84"
                         "a\xc3\xa4"
                         "b",
                         "\xc3\xa4"
                         "a\xc3\xa4"
                         "b"),
                 QByteArray("3-9"));
    }

    // A repetitive text, searched for in itself; a search that starts over at each position takes minutes.
    void longRepeatingTextTakesNoLonger()
    {
        const QByteArray text = QByteArray("abc\r\n").repeated(200'000);
        QElapsedTimer time;
        time.start();
        QVERIFY(!TextPattern(text.chopped(500'000) + 'x', CaseRule::Folded).FindIn(text));
        QVERIFY2(time.elapsed() < 2'000, qPrintable(QString::number(time.elapsed())));
    }

    void emptyFieldsAreReported_data()
    {
        QTest::addColumn<QString>("find");
        QTest::addColumn<QString>("replace");
        QTest::addColumn<QStringList>("messages");
        const QString noText = u"No text specified!"_s;
        const QString noReplacement = u"No replacement text specified!"_s;
        QTest::newRow("both filled") << "a"
                                     << "b" << QStringList();
        QTest::newRow("no text") << ""
                                 << "b" << QStringList{noText};
        QTest::newRow("no replacement") << "a"
                                        << "" << QStringList{noReplacement};
        QTest::newRow("both empty") << ""
                                    << "" << QStringList{noText, noReplacement};
    }

    void emptyFieldsAreReported()
    {
        QFETCH(QString, find);
        QFETCH(QString, replace);
        QFETCH(QStringList, messages);
        CoreBench bench;
        for (const QString& message : messages)
            bench.dialogs.ExpectMessage(message, BoxAnswer::Ok, BoxIcon::Exclamation);
        QCOMPARE(CheckReplaceFields(find, replace), messages.isEmpty() ? Fields::Filled : Fields::Empty);
    }

    void windowMovesAsideTheShortestWay_data()
    {
        QTest::addColumn<QRect>("frame");
        QTest::addColumn<QRect>("place");
        QTest::addColumn<QPoint>("corner");
        const QRect wide(0, 300, 1000, 20);
        QTest::newRow("nothing covered") << QRect(100, 100, 200, 100) << wide << QPoint(100, 100);
        QTest::newRow("down") << QRect(100, 290, 200, 100) << wide << QPoint(100, 320);
        QTest::newRow("up") << QRect(100, 230, 200, 100) << wide << QPoint(100, 200);
        QTest::newRow("right") << QRect(100, 100, 200, 400) << QRect(90, 200, 30, 20) << QPoint(120, 100);
        QTest::newRow("left") << QRect(600, 100, 200, 400) << QRect(780, 200, 30, 20) << QPoint(580, 100);
        QTest::newRow("down, as there is no room above")
            << QRect(0, 0, 200, 100) << QRect(0, 90, 1000, 20) << QPoint(0, 110);
        QTest::newRow("no room anywhere") << QRect(0, 0, 1000, 700) << wide << QPoint(0, 0);
    }

    void windowMovesAsideTheShortestWay()
    {
        QFETCH(QRect, frame);
        QFETCH(QRect, place);
        QTEST(PlaceBeside(frame, place, QRect(0, 0, 1000, 800)), "corner");
    }

    void fullControlIsReportedAndTheUndoStepEnds_data()
    {
        QTest::addColumn<int>("refusal");
        QTest::newRow("thrown") << int(FullSci::Refusal::Throws);
        QTest::newRow("as a status") << int(FullSci::Refusal::SetsStatus);
    }

    void fullControlIsReportedAndTheUndoStepEnds()
    {
        QFETCH(int, refusal);
        CoreBench bench;
        cDocument& document = bench.Open(u"a.bas"_s);
        FullSci full{FullSci::Refusal(refusal)};
        document.sci = &full;
        bench.dialogs.ExpectMessage(u"Confirm each replacement?"_s, BoxAnswer::No, BoxIcon::Question, BoxButtons::YesNo,
                                    u"Confirm?"_s);
        bench.dialogs.ExpectMessage(u"Error Replacing Text!"_s, BoxAnswer::Ok, BoxIcon::None);
        ReplaceAllText(document, u"foo"_s, u"bar"_s);
        QCOMPARE(full.messages.count(SCI_BEGINUNDOACTION), 1);
        QCOMPARE(full.messages.count(SCI_ENDUNDOACTION), 1);
        QCOMPARE(full.messages.count(SCI_REPLACETARGET), 1);
    }
};

OB_CORE_TEST(tst_modFind)
#include "tst_modFind.moc"
