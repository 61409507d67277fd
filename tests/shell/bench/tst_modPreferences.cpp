// SPDX-License-Identifier: GPL-3.0-or-later
// The preferences without their window: copies of the settings, clamping, the steps of Apply and their order.
#include "shell/bench/modPreferences.h"

#include "core/CoreBench.h"
#include "editor/document/modUserTexts.h"
#include "shell/state/modOptions.h"

#include <QSet>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

// A control that records the settings at the time of its styling, and can fail.
class StyledSci final : public cSciControl {
public:
    std::intptr_t Send(unsigned message, std::uintptr_t wParam, std::intptr_t lParam) override
    {
        if (fails)
            throw RuntimeErrorOf(ErrorNumber::InvalidCall);
        if (message == SCI_STYLECLEARALL)
            ++times;
        if (message == SCI_SETTABWIDTH)
            tabWidth = wParam;
        if (message == SCI_STYLESETFORE && wParam == 8)
            labelColor = static_cast<ColorRef>(lParam);
        commentsWereAdded = AddComments;
        return 0;
    }

    bool fails = false;
    int times = 0;
    std::uintptr_t tabWidth = 0;
    ColorRef labelColor = 0;
    bool commentsWereAdded = false;
};

cDocument& AddDocument(Sci sci)
{
    if (Documents.empty())
        Documents.push_back(nullptr);
    Documents.push_back(std::make_unique<cDocument>(static_cast<int>(Documents.size())));
    Documents.back()->sci = sci;
    return *Documents.back();
}

// Values that differ from every default and from each other.
Preferences Changed()
{
    Preferences values;
    int number = 0;
    for (const PreferenceRow& row : PreferenceRows()) {
        ++number;
        if (const auto* text = std::get_if<Field<QString>>(&row.field))
            values.*text->copy = u"text %1"_s.arg(number);
        else if (const auto* color = std::get_if<Field<ColorRef>>(&row.field))
            values.*color->copy = static_cast<ColorRef>(0x010203 * number);
        else if (const auto* choice = std::get_if<Field<bool>>(&row.field))
            values.*choice->copy = !*choice->setting;
    }
    values.fontSize = 33;
    values.tabSize = 7;
    values.syntaxColor = 0;
    return values;
}

QString Stored(const char* key)
{
    return ReadSetting(QString::fromLatin1(key), u"(none)"_s);
}

} // namespace

class tst_modPreferences : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        bench = std::make_unique<CoreBench>();
        ReadAllSettings();
        folder = QFileInfo(bench->ProgramPath(u"x"_s)).path();
    }

    void cleanup()
    {
        QVERIFY(bench->dialogs.Finished());
        bench.reset();
    }

    void everyFieldHasAControlOfItsOwn()
    {
        QSet<QString> names;
        for (const PreferenceRow& row : PreferenceRows()) {
            names.insert(QString::fromLatin1(row.control));
            if (row.browse != nullptr)
                names.insert(QString::fromLatin1(row.browse));
        }
        QCOMPARE(PreferenceRows().size(), 25u);
        QCOMPARE(names.size(), 30);
    }

    void copiesHoldWhatTheSettingsHold()
    {
        OBPath = u"/e/orchard.exe"_s;
        Editor.FontHeight = 0;
        Editor.TabSize = 70000;
        Editor.SyntaxColor = 1;
        Editor.HandleColor = 0x12345678;
        AddComments = true;
        const Preferences values = LoadPreferences(folder);
        QCOMPARE(values.orchardPath, u"/e/orchard.exe"_s);
        QCOMPARE(values.helpPath, u"no path"_s);
        QCOMPARE(values.fontName, u"Courier New"_s);
        QCOMPARE(values.fontSize, 0);
        QCOMPARE(values.tabSize, 70000);
        QCOMPARE(values.syntaxColor, 1);
        QCOMPARE(values.handleColor, ColorRef{0x12345678});
        QVERIFY(values.addComments && values.quitQuery && values.lineNums && !values.openFileOn);
    }

    void anyColoringAboveNoneIsOn()
    {
        Editor.SyntaxColor = 0;
        QCOMPARE(LoadPreferences(folder).syntaxColor, 0);
        Editor.SyntaxColor = -3;
        QCOMPARE(LoadPreferences(folder).syntaxColor, 0);
    }

    void everyCopyIsAppliedToItsSetting()
    {
        Preferences values = Changed();
        ApplyPreferences(values, folder);
        for (const PreferenceRow& row : PreferenceRows())
            std::visit([&](const auto& field) { QCOMPARE(*field.setting, values.*field.copy); }, row.field);
        QCOMPARE(Editor.FontHeight, 33);
        QCOMPARE(Editor.TabSize, 7);
        QCOMPARE(Editor.SyntaxColor, 0);
        QCOMPARE(OBRuntimePath, values.runtimePath);
        QCOMPARE(Editor.CommentBackColor, values.commentBackColor);
        QCOMPARE(Editor.BranchColor, values.branchColor);
        QVERIFY(AddComments && OpenFileOn && !QuitQuery && !Editor.AutoIndent);
    }

    void copiesAloneChangeNothing()
    {
        const Preferences values = Changed();
        QCOMPARE(Editor.TabSize, 4);
        QCOMPARE(Editor.FontName, u"Courier New"_s);
        QVERIFY(values.fontName != Editor.FontName);
    }

    void aTypedTabSizeIsClampedAtItsEnds_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<int>("size");
        QTest::newRow("99") << u"99"_s << 12;
        QTest::newRow("13") << u"13"_s << 12;
        QTest::newRow("12") << u"12"_s << 12;
        QTest::newRow("1") << u"1"_s << 1;
        QTest::newRow("0 stays") << u"0"_s << 0;
        QTest::newRow("-1 stays") << u"-1"_s << -1;
        QTest::newRow("-2") << u"-2"_s << 1;
        QTest::newRow("a word") << u"wide"_s << 0;
        QTest::newRow("minus alone") << u"-"_s << 0;
        QTest::newRow("number and a character") << u"8x"_s << 8;
        QTest::newRow("half to even") << u"2.5"_s << 2;
        QTest::newRow("beyond 32 bits") << u"99999999999"_s << 12;
        QTest::newRow("beyond 32 bits below") << u"-99999999999"_s << 1;
        QTest::newRow("beyond a double") << u"1e999"_s << 12;
        QTest::newRow("beyond a double below") << u"-1e999"_s << 1;
        QTest::newRow("hexadecimal") << u"&HA"_s << 10;
    }

    void aTypedTabSizeIsClampedAtItsEnds()
    {
        QFETCH(QString, typed);
        QTEST(TypedTabSize(typed), "size");
    }

    void anAppliedTabSizeIsOneToTwelve_data()
    {
        QTest::addColumn<int>("size");
        QTest::addColumn<int>("applied");
        QTest::newRow("0") << 0 << 1;
        QTest::newRow("-1") << -1 << 1;
        QTest::newRow("1") << 1 << 1;
        QTest::newRow("12") << 12 << 12;
        QTest::newRow("70000") << 70000 << 12;
    }

    void anAppliedTabSizeIsOneToTwelve()
    {
        QFETCH(int, size);
        Preferences values = LoadPreferences(folder);
        values.tabSize = size;
        ApplyPreferences(values, folder);
        QTEST(Editor.TabSize, "applied");
        QTEST(values.tabSize, "applied");
    }

    void openWindowsAreStyledOnceWithTheNewSettings()
    {
        StyledSci first;
        StyledSci last;
        AddDocument(&first);
        AddDocument(nullptr).Tag = TagClosed;
        AddDocument(&last);
        Preferences values = Changed();
        values.syntaxColor = 1;
        Editor.EditBackColor = 0xFFFFFF; // on a dark one the colours that are shown differ
        ApplyPreferences(values, folder);
        for (const StyledSci* sci : {&first, &last}) {
            QCOMPARE(sci->times, 1);
            QCOMPARE(sci->tabWidth, std::uintptr_t{7});
            QCOMPARE(sci->labelColor, values.branchColor);
            // The switch for comments is written only afterwards.
            QCOMPARE(sci->commentsWereAdded, false);
        }
        QCOMPARE(AddComments, true);
    }

    void nothingChangedStylesTheWindowsAsWell()
    {
        StyledSci sci;
        AddDocument(&sci);
        Preferences values = LoadPreferences(folder);
        ApplyPreferences(values, folder);
        QCOMPARE(sci.times, 1);
    }

    void aWindowThatFailsStopsNothing()
    {
        StyledSci broken;
        StyledSci sound;
        broken.fails = true;
        AddDocument(&broken);
        AddDocument(&sound);
        Preferences values = Changed();
        values.comments = u"'me"_s;
        ApplyPreferences(values, folder);
        QCOMPARE(sound.times, 1);
        QCOMPARE(AddComments, true);
        QCOMPARE(CoreBench::Get(CommentsPath(folder)), QByteArray("'me\r\n"));
        QCOMPARE(Stored("TabSize"), u"7"_s);
    }

    void applyStoresEverything()
    {
        Preferences values = Changed();
        ApplyPreferences(values, folder);
        QCOMPARE(Stored("OBPath"), values.orchardPath);
        QCOMPARE(Stored("FontHeight"), u"33"_s);
        QCOMPARE(Stored("QuitQuery"), u"False"_s);
        QCOMPARE(Stored("AddComments"), u"True"_s);
        QCOMPARE(Stored("HandleColor"), QString::number(values.handleColor));
        QVERIFY(CoreBench::Get(bench->StorePath()).contains("TabSize=7"));
    }

    void aStoreThatCannotBeWrittenStopsNothing()
    {
        const QString inTheWay = bench->Put(u"file"_s, "x");
        SetSettingsFile(inTheWay + u"/store.ini"_s);
        Preferences values = Changed();
        ApplyPreferences(values, folder);
        QCOMPARE(Editor.TabSize, 7);
        QCOMPARE(CoreBench::Get(inTheWay), QByteArray("x"));
    }

    void commentsAreTheFilesRawText()
    {
        QCOMPARE(LoadPreferences(folder).comments, QString());
        CoreBench::PutFile(CommentsPath(folder), "");
        QCOMPARE(LoadPreferences(folder).comments, QString());
        CoreBench::PutFile(CommentsPath(folder), "'by \xE9\r\n'me\r\n");
        QCOMPARE(LoadPreferences(folder).comments, u"'by \u00E9\r\n'me\r\n"_s);
    }

    void commentsAreWrittenWithALineEndAfterThem()
    {
        Preferences values = LoadPreferences(folder);
        values.comments = u"'by \u00E9\n'me"_s;
        ApplyPreferences(values, folder);
        QCOMPARE(CoreBench::Get(CommentsPath(folder)), QByteArray("'by \xE9\r\n'me\r\n"));
        // Writing the same text again gives the same file.
        ApplyPreferences(values, folder);
        QCOMPARE(CoreBench::Get(CommentsPath(folder)), QByteArray("'by \xE9\r\n'me\r\n"));
        QCOMPARE(ReadComments(folder), QByteArray("'by \xE9\r\n'me"));
    }

    void everyByteOfTheCommentsIsKept()
    {
        QByteArray bytes;
        for (int byte = 0; byte < 256; ++byte)
            if (byte != '\n' && byte != '\r')
                bytes.append(static_cast<char>(byte));
        CoreBench::PutFile(CommentsPath(folder), bytes);
        Preferences values = LoadPreferences(folder);
        ApplyPreferences(values, folder);
        QCOMPARE(CoreBench::Get(CommentsPath(folder)), bytes + "\r\n");
    }

    void noCommentsLeaveTheFile()
    {
        CoreBench::PutFile(CommentsPath(folder), "'old\r\n");
        Preferences values = LoadPreferences(folder);
        values.comments.clear();
        ApplyPreferences(values, folder);
        QCOMPARE(CoreBench::Get(CommentsPath(folder)), QByteArray("'old\r\n"));
    }

    void aCharacterThatCannotBeStoredIsAskedAbout_data()
    {
        QTest::addColumn<BoxAnswer>("answer");
        QTest::addColumn<QByteArray>("file");
        QTest::newRow("yes") << BoxAnswer::Yes << QByteArray("'a\r\n'?\r\n");
        QTest::newRow("no") << BoxAnswer::No << QByteArray("'old\r\n");
    }

    void aCharacterThatCannotBeStoredIsAskedAbout()
    {
        QFETCH(BoxAnswer, answer);
        CoreBench::PutFile(CommentsPath(folder), "'old\r\n");
        Preferences values = LoadPreferences(folder);
        values.comments = u"'a\n'\u4E2D"_s;
        bench->dialogs.ExpectQuestion(
            u"Line 2 of the comments holds a character that BASIC source files cannot store.\n"
            "Save with a question mark in place of each such character?"_s,
            answer);
        ApplyPreferences(values, folder);
        QTEST(CoreBench::Get(CommentsPath(folder)), "file");
    }

    void commentsThatCannotBeWrittenStopNothing()
    {
        QVERIFY(QDir().mkpath(CommentsPath(folder)));
        Preferences values = Changed();
        values.comments = u"'me"_s;
        ApplyPreferences(values, folder);
        QCOMPARE(Stored("TabSize"), u"7"_s);
    }

    void defaultColorsAreInForceAtOnce()
    {
        Preferences values = Changed();
        const QString font = values.fontName;
        Editor.NumberColor = Editor.CommentBackColor = 0x777777;
        TakeDefaultColors(values);
        QCOMPARE(Editor.NumberColor, Rgb(100, 100, 0));
        QCOMPARE(Editor.CommentBackColor, Rgb(240, 240, 240));
        QCOMPARE(Editor.HighlightColor, Rgb(255, 240, 200));
        QCOMPARE(values.numberColor, Editor.NumberColor);
        QCOMPARE(values.commentColor, Rgb(0, 100, 0));
        QCOMPARE(values.commentBackColor, Editor.CommentBackColor);
        QCOMPARE(values.fontName, font);
        QCOMPARE(Editor.TabSize, 4);
    }

    void associatingAsksFirst()
    {
        ExpectAssociationQuestion(BoxAnswer::No);
        AssociateFiles(Places());
        QVERIFY(!QFile::exists(bench->Path(u"data"_s)));
    }

    void associatingSaysThatItWorked()
    {
#ifdef Q_OS_WIN
        QSKIP("the registry of this user is no place for a test");
#endif
        ExpectAssociationQuestion(BoxAnswer::Yes);
        bench->dialogs.ExpectMessage(
            u"Files with extensions *.OBF and *.BAS will now open with Orchard Bench when they are "
            "double-clicked in Windows Explorer or My Computer."_s,
            BoxAnswer::Ok, BoxIcon::Exclamation, BoxButtons::Ok, u"Success!"_s);
        AssociateFiles(Places());
        QVERIFY(QFile::exists(bench->Path(u"config/mimeapps.list"_s)));
    }

    void associatingSaysThatItFailed()
    {
#ifdef Q_OS_WIN
        QSKIP("the registry of this user is no place for a test");
#endif
        bench->Put(u"data"_s, "a file in the way");
        ExpectAssociationQuestion(BoxAnswer::Yes);
        bench->dialogs.ExpectMessage(u"The operation to associate file types with Orchard Bench failed."_s,
                                     BoxAnswer::Ok, BoxIcon::Critical, BoxButtons::Ok, u"Error!"_s);
        AssociateFiles(Places());
    }

private:
    AssociationPlaces Places() const
    {
        return {QCoreApplication::applicationFilePath(), bench->Path(u"data"_s), bench->Path(u"config"_s),
                u"" OB_TEST_DATA "/../../resources/icons"_s};
    }

    void ExpectAssociationQuestion(BoxAnswer answer)
    {
        bench->dialogs.ExpectMessage(u"Associate files with extensions *.OBF and *.BAS with Orchard Bench?"_s, answer,
                                     BoxIcon::None, BoxButtons::YesNo, u"Confirm!"_s);
    }

    std::unique_ptr<CoreBench> bench;
    QString folder;
};

OB_CORE_TEST(tst_modPreferences)
#include "tst_modPreferences.moc"
