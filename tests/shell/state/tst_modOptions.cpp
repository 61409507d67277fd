// SPDX-License-Identifier: GPL-3.0-or-later
// The settings: the values from an empty store, the reading of stored texts, the store's contents afterwards.
#include "shell/state/modOptions.h"

#include "core/CoreBench.h"
#include "shell/bench/modStart.h"
#include "shell/state/modRecent.h"

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

// Sets every setting to a value other than its default, so that a variable that is not read is noticed.
void SpoilSettings()
{
    for (QString* path :
         {&OBPath, &OBHelpPath, &OptionalHelpPath, &OBFreeformPath, &OBRuntimePath, &Editor.FontName, &LastDir})
        *path = u"spoilt"_s;
    UserApplications.fill(u"spoilt"_s);
    Editor.FontHeight = Editor.SyntaxColor = Editor.TabSize = 77;
    Editor.FontBold = OpenFileOn = AddComments = true;
    QuitQuery = ShowTips = Editor.AutoIndent = Editor.LineNums = Editor.HighlightOn = Editor.IndentGuidesOn = false;
    for (ColorRef* color : {&Editor.CommentColor, &Editor.BranchColor, &Editor.KeywordColor, &Editor.QuoteColor,
                            &Editor.HighlightColor, &Editor.NumberColor, &Editor.HandleColor, &Editor.CommentBackColor})
        *color = 0xABCDEF;
}

void Store(const char* key, const QString& text)
{
    WriteSetting(QLatin1String(key), text);
}

// The store's lines on disk, sorted: the file has no defined order.
QStringList StoredLines(const QString& path)
{
    QStringList lines =
        QString::fromUtf8(CoreBench::Get(path).replace("\r\n", "\n")).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    lines.sort();
    return lines;
}

} // namespace

class tst_modOptions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { bench = std::make_unique<CoreBench>(); }
    void cleanup() { bench.reset(); }

    void anEmptyStoreGivesEveryDefault()
    {
        SpoilSettings();
        ReadAllSettings();
        for (const QString& path : {OBPath, OBHelpPath, OptionalHelpPath, OBFreeformPath, OBRuntimePath})
            QCOMPARE(path, u"no path"_s);
        QCOMPARE(Editor.FontHeight, 12);
        QCOMPARE(Editor.FontName, u"Courier New"_s);
        QCOMPARE(Editor.FontBold, false);
        QCOMPARE(Editor.SyntaxColor, 1);
        for (const QString& application : UserApplications)
            QCOMPARE(application, u"none"_s);
        QCOMPARE(HotKey, u"none"_s);
        QCOMPARE(QuitQuery, true);
        QCOMPARE(LastDir, u"app.path"_s);
        QCOMPARE(Editor.TabSize, 4);
        QCOMPARE(ShowTips, true);
        QCOMPARE(Editor.AutoIndent, true);
        QCOMPARE(Editor.LineNums, true);
        QCOMPARE(Editor.HighlightOn, true);
        QCOMPARE(Editor.IndentGuidesOn, true);
        QCOMPARE(OpenFileOn, false);
        QCOMPARE(AddComments, false);
    }

    void anEmptyStoreGivesEveryColor_data()
    {
        QTest::addColumn<ColorRef*>("color");
        QTest::addColumn<ColorRef>("value");
        QTest::newRow("CommentColor") << &Editor.CommentColor << ColorRef{0x006400};
        QTest::newRow("BranchColor") << &Editor.BranchColor << ColorRef{0x0000C8};
        QTest::newRow("KeywordColor") << &Editor.KeywordColor << ColorRef{0xC80000};
        QTest::newRow("QuoteColor") << &Editor.QuoteColor << ColorRef{0x640064};
        QTest::newRow("HighlightColor") << &Editor.HighlightColor << ColorRef{0xC8F0FF};
        QTest::newRow("NumberColor") << &Editor.NumberColor << ColorRef{0x006464};
        QTest::newRow("HandleColor") << &Editor.HandleColor << ColorRef{0x646400};
        QTest::newRow("CommentBackColor") << &Editor.CommentBackColor << ColorRef{0xF0F0F0};
    }

    void anEmptyStoreGivesEveryColor()
    {
        QFETCH(ColorRef*, color);
        SpoilSettings();
        ReadAllSettings();
        QTEST(*color, "value");
    }

    void anEmptyStoreGivesTheWindowItsFirstPlace()
    {
        const WindowPlace place = ReadWindowPlace();
        QCOMPARE(place.left, 1000.0f);
        QCOMPARE(place.top, 1000.0f);
        QCOMPARE(place.width, 6500.0f);
        QCOMPARE(place.height, 6500.0f);
    }

    void readingWritesNothing()
    {
        ReadAllSettings();
        (void)ReadWindowPlace();
        SyncSettings();
        QVERIFY(!QFile::exists(bench->StorePath()));
    }

    void syntaxColoringIsOffOrOn_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<int>("read");
        QTest::newRow("off") << u"0"_s << 0;
        QTest::newRow("on") << u"1"_s << 1;
        QTest::newRow("two") << u"2"_s << 1;
        QTest::newRow("five") << u"5"_s << 1;
        QTest::newRow("a half is even") << u"1.5"_s << 1;
        QTest::newRow("text") << u"on"_s << 0;
    }

    void syntaxColoringIsOffOrOn()
    {
        QFETCH(QString, stored);
        Store("SyntaxColor", stored);
        ReadAllSettings();
        QTEST(Editor.SyntaxColor, "read");
    }

    void aFontHeightWithAFractionIsRoundedHalvesToEven_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<int>("read");
        QTest::newRow("below") << u"12.4"_s << 12;
        QTest::newRow("half down") << u"12.5"_s << 12;
        QTest::newRow("half up") << u"13.5"_s << 14;
        QTest::newRow("above") << u"12.51"_s << 13;
        QTest::newRow("negative half") << u"-2.5"_s << -2;
        QTest::newRow("spaces around") << u" 9 "_s << 9;
        QTest::newRow("text") << u"large"_s << 0;
        QTest::newRow("empty") << QString() << 0;
        QTest::newRow("largest") << u"32767"_s << 32767;
        QTest::newRow("too large stays as it was") << u"32768"_s << 77;
    }

    void aFontHeightWithAFractionIsRoundedHalvesToEven()
    {
        QFETCH(QString, stored);
        SpoilSettings();
        Store("FontHeight", stored);
        ReadAllSettings();
        QTEST(Editor.FontHeight, "read");
    }

    void aTabSizeIsANumberOf32Bits_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<int>("read");
        QTest::newRow("text") << u"wide"_s << 0;
        QTest::newRow("number with more") << u"8x"_s << 0;
        QTest::newRow("not clamped") << u"70000"_s << 70000;
        QTest::newRow("negative") << u"-1"_s << -1;
        QTest::newRow("too large stays as it was") << u"2147483648"_s << 77;
    }

    void aTabSizeIsANumberOf32Bits()
    {
        QFETCH(QString, stored);
        SpoilSettings();
        Store("TabSize", stored);
        ReadAllSettings();
        QTEST(Editor.TabSize, "read");
    }

    void aBooleanIsAWordInAnyCaseOrANumber_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<bool>("before");
        QTest::addColumn<bool>("read");
        for (const bool before : {false, true}) {
            const char* suffix = before ? "true before" : "false before";
            QTest::addRow("True, %s", suffix) << u"True"_s << before << true;
            QTest::addRow("true, %s", suffix) << u"true"_s << before << true;
            QTest::addRow("tRUE, %s", suffix) << u"tRUE"_s << before << true;
            QTest::addRow("False, %s", suffix) << u"False"_s << before << false;
            QTest::addRow("false, %s", suffix) << u"false"_s << before << false;
            QTest::addRow("0, %s", suffix) << u"0"_s << before << false;
            QTest::addRow("0.0, %s", suffix) << u"0.0"_s << before << false;
            QTest::addRow("1, %s", suffix) << u"1"_s << before << true;
            QTest::addRow("-1, %s", suffix) << u"-1"_s << before << true;
            QTest::addRow("0.1, %s", suffix) << u"0.1"_s << before << true;
            QTest::addRow("yes, %s", suffix) << u"yes"_s << before << before;
            QTest::addRow("empty, %s", suffix) << QString() << before << before;
            QTest::addRow("True with more, %s", suffix) << u"Trues"_s << before << before;
        }
    }

    void aBooleanIsAWordInAnyCaseOrANumber()
    {
        QFETCH(QString, stored);
        QFETCH(bool, before);
        for (const char* key : {"FontBold", "QuitQuery", "ShowTips", "AutoIndent", "LineNums", "HighlightOn",
                                "IndentGuidesOn", "OpenFileOn", "AddComments"})
            Store(key, stored);
        Editor.FontBold = QuitQuery = ShowTips = Editor.AutoIndent = Editor.LineNums = Editor.HighlightOn =
            Editor.IndentGuidesOn = OpenFileOn = AddComments = before;
        ReadAllSettings();
        QTEST(Editor.FontBold, "read");
        QTEST(QuitQuery, "read");
        QTEST(ShowTips, "read");
        QTEST(Editor.AutoIndent, "read");
        QTEST(Editor.LineNums, "read");
        QTEST(Editor.HighlightOn, "read");
        QTEST(Editor.IndentGuidesOn, "read");
        QTEST(OpenFileOn, "read");
        QTEST(AddComments, "read");
    }

    void anErrorInOneSettingDoesNotStopTheOthers()
    {
        Store("FontHeight", u"99999"_s);
        Store("FontBold", u"perhaps"_s);
        Store("TabSize", u"3"_s);
        Store("CommentColor", u"99999999999"_s);
        Store("CommentBackColor", u"1"_s);
        ReadAllSettings();
        QCOMPARE(Editor.FontHeight, 12);
        QCOMPARE(Editor.FontBold, false);
        QCOMPARE(Editor.TabSize, 3);
        QCOMPARE(Editor.CommentColor, Rgb(0, 100, 0));
        QCOMPARE(Editor.CommentBackColor, ColorRef{1});
    }

    void aColorIsReadAsADecimalNumber_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<ColorRef>("color");
        QTest::newRow("red") << u"255"_s << ColorRef{0x0000FF};
        QTest::newRow("white") << u"16777215"_s << ColorRef{0xFFFFFF};
        QTest::newRow("the system's button face") << u"-2147483633"_s << ColorRef{0x8000000F};
        QTest::newRow("text is black") << u"green"_s << ColorRef{0};
        QTest::newRow("empty is black") << QString() << ColorRef{0};
    }

    void aColorIsReadAsADecimalNumber()
    {
        QFETCH(QString, stored);
        Store("QuoteColor", stored);
        ReadAllSettings();
        QTEST(Editor.QuoteColor, "color");
    }

    void textsAreReadUnchanged()
    {
        Store("OBPath", u"NO PATH"_s);
        Store("OBHelpPath", u"c:\\help files\\orchard.hlp"_s);
        Store("FontName", QString());
        Store("HotKey", u" /bin/true "_s);
        Store("User10", u"None"_s);
        ReadAllSettings();
        QCOMPARE(OBPath, u"NO PATH"_s);
        QCOMPARE(OBHelpPath, u"c:\\help files\\orchard.hlp"_s);
        QCOMPARE(Editor.FontName, QString());
        QCOMPARE(HotKey, u" /bin/true "_s);
        QCOMPARE(UserApplications[9], u"None"_s);
    }

    void theWholeStoreIsWritten()
    {
        for (std::size_t i = 0; i < RecentFiles.size(); ++i)
            RecentFiles[i] = u"/b/%1.bas"_s.arg(i);
        ReadAllSettings();
        OBPath = u"/e/orchard.exe"_s;
        OBRuntimePath = u"/e/run.exe"_s;
        UserApplications[1] = u"/bin/two"_s;
        Editor.FontBold = true;
        Editor.TabSize = 8;
        Editor.KeywordColor = 0x8000000F;
        SaveAllSettings();

        QStringList expected = {u"[Settings]"_s};
        for (int number = 1; number <= 8; ++number)
            expected.append(u"MRU%1=/b/%2.bas"_s.arg(number).arg(number - 1));
        const char* const lines[] = {"OBPath=/e/orchard.exe",
                                     "OBHelpPath=no path",
                                     "OptionalHelpPath=no path",
                                     "OBFreeformPath=no path",
                                     "OBRuntimePath=/e/run.exe",
                                     "FontHeight=12",
                                     "SyntaxColor=1",
                                     "FontName=Courier New",
                                     "FontBold=True",
                                     "HotKey=none",
                                     "User2=/bin/two",
                                     "User3=none",
                                     "User4=none",
                                     "User5=none",
                                     "User6=none",
                                     "User7=none",
                                     "User8=none",
                                     "User9=none",
                                     "User10=none",
                                     "QuitQuery=True",
                                     "LastDir=app.path",
                                     "CommentColor=25600",
                                     "BranchColor=200",
                                     "KeywordColor=-2147483633",
                                     "QuoteColor=6553700",
                                     "HighlightColor=13168895",
                                     "NumberColor=25700",
                                     "HandleColor=6579200",
                                     "CommentBackColor=15790320",
                                     "LineNums=True",
                                     "TabSize=8",
                                     "ShowTips=True",
                                     "AutoIndent=True",
                                     "HighlightOn=True",
                                     "IndentGuidesOn=True",
                                     "OpenFileOn=False",
                                     "AddComments=False"};
        for (const char* line : lines)
            expected.append(QLatin1String(line));
        expected.sort();
        QCOMPARE(StoredLines(bench->StorePath()), expected);
    }

    void whatWasSavedIsReadBack()
    {
        SpoilSettings();
        Editor.SyntaxColor = 0;
        Editor.FontHeight = -3;
        SaveAllSettings();
        ResetBench();
        ReadAllSettings();
        QCOMPARE(OBFreeformPath, u"spoilt"_s);
        QCOMPARE(UserApplications[5], u"spoilt"_s);
        QCOMPARE(LastDir, u"spoilt"_s);
        QCOMPARE(Editor.FontHeight, -3);
        QCOMPARE(Editor.TabSize, 77);
        QCOMPARE(Editor.SyntaxColor, 0);
        QVERIFY(Editor.FontBold && OpenFileOn && AddComments);
        QVERIFY(!QuitQuery && !ShowTips && !Editor.AutoIndent && !Editor.LineNums && !Editor.HighlightOn &&
                !Editor.IndentGuidesOn);
        QCOMPARE(Editor.HighlightColor, ColorRef{0xABCDEF});
    }

    void theWindowsPlaceIsWrittenAloneAndReadBack()
    {
        SaveWindowPlace({-120, 0, 15375.5f, 9000});
        SyncSettings();
        QCOMPARE(StoredLines(bench->StorePath()), (QStringList{u"MainHeight=9000"_s, u"MainLeft=-120"_s, u"MainTop=0"_s,
                                                               u"MainWidth=15375.5"_s, u"[Settings]"_s}));
        const WindowPlace place = ReadWindowPlace();
        QCOMPARE(place.left, -120.0f);
        QCOMPARE(place.top, 0.0f);
        QCOMPARE(place.width, 15375.5f);
        QCOMPARE(place.height, 9000.0f);
    }

    void aPlaceThatIsNotANumberCountsAsZero()
    {
        Store("MainLeft", u"left"_s);
        Store("MainWidth", QString());
        const WindowPlace place = ReadWindowPlace();
        QCOMPARE(place.left, 0.0f);
        QCOMPARE(place.top, 1000.0f);
        QCOMPARE(place.width, 0.0f);
    }

private:
    std::unique_ptr<CoreBench> bench;
};

OB_CORE_TEST(tst_modOptions)
#include "tst_modOptions.moc"
