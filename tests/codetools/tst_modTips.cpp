// SPDX-License-Identifier: GPL-3.0-or-later
// The tips of the day: the table, where a display begins, how it continues, and the stored switch.
#include "codetools/modTips.h"

#include "core/CoreBench.h"

using namespace Qt::StringLiterals;

using namespace ob;

class tst_modTips : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { SetRandomSource({}); }

    void thereAreFiftyFiveTips()
    {
        const QStringList tips = LoadTips();
        QCOMPARE(tips.size(), 55);
        for (const QString& tip : tips)
            QVERIFY2(!tip.isEmpty() && tip == tip.trimmed() && !tip.contains(QLatin1Char('"')), qPrintable(tip));
    }

    void theTipsHaveTheirWording_data()
    {
        QTest::addColumn<int>("number");
        QTest::addColumn<QString>("text");
        const auto tip = [](int number, const char* text) {
            QTest::addRow("%d", number) << number << QString::fromLatin1(text);
        };
        tip(1, "You can set the number of characters for a tab in the Options menu, under Preferences.");
        tip(3, "In the editor window, hit F-2 to pop up a list of possible keywords.  Scroll through the list and "
               "choose one by hitting ENTER or the TAB key");
        tip(33, "Add your own often-used code to the Snippet Library.  Seach through your snippets with the Branch "
                "Label tool.");
        tip(44, "To find tune the location or size of a control in the Gui Builder, enter the desired coordinates or "
                "dimensions in the control properties window.");
        tip(55, "Links to popular Orchard BASIC sites can be accessed from the 'Orchard BASIC' menu.");
    }

    void theTipsHaveTheirWording()
    {
        QFETCH(int, number);
        QTEST(LoadTips().at(number - 1), "text");
    }

    void theFirstTipFollowsTheRandomPick_data()
    {
        QTest::addColumn<double>("random");
        QTest::addColumn<int>("first");
        QTest::newRow("lowest") << 0.0 << 2;
        QTest::newRow("just below the second") << 0.99 / 55 << 2;
        QTest::newRow("the second") << 1.01 / 55 << 3;
        QTest::newRow("middle") << 0.5 << 29;
        QTest::newRow("the last but one") << 53.5 / 55 << 55;
        QTest::newRow("the last goes round") << 0.999999 << 1;
    }

    void theFirstTipFollowsTheRandomPick()
    {
        QFETCH(double, random);
        QTEST(FirstTip(random, 55), "first");
    }

    void everyTipFollowsInTurnAndTheFirstFollowsTheLast()
    {
        int index = 1;
        for (int expected = 2; expected <= 55; ++expected) {
            index = NextTip(index, 55);
            QCOMPARE(index, expected);
        }
        QCOMPARE(NextTip(index, 55), 1);
        QCOMPARE(NextTip(1, 1), 1);
    }

    void anEmptyTableHasNoTip()
    {
        QCOMPARE(FirstTip(0.5, 0), 0);
        QCOMPARE(NextTip(3, 0), 0);
    }

    void randomNumbersAreBelowOneAndDiffer()
    {
        bool differ = false;
        const double first = RandomNumber();
        for (int i = 0; i < 1000; ++i) {
            const double number = RandomNumber();
            QVERIFY(number >= 0 && number < 1);
            differ = differ || number != first;
        }
        QVERIFY(differ);
    }

    void theRandomSourceCanBeReplaced()
    {
        SetRandomSource([] { return 0.25; });
        QCOMPARE(RandomNumber(), 0.25);
        QCOMPARE(RandomNumber(), 0.25);
    }

    void theSwitchIsStoredLikeTheSettings()
    {
        const CoreBench bench;
        ShowTips = false;
        StoreShowTips();
        QCOMPARE(ReadSetting(u"ShowTips"_s, u"none"_s), u"False"_s);
        ShowTips = true;
        StoreShowTips();
        QCOMPARE(ReadSetting(u"ShowTips"_s, u"none"_s), u"True"_s);
    }
};

OB_CORE_TEST(tst_modTips)
#include "tst_modTips.moc"
