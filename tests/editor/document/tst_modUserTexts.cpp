// SPDX-License-Identifier: GPL-3.0-or-later
// Tests of the programmer's comments and of the custom keywords.
#include "editor/document/modUserTexts.h"

#include "core/CoreBench.h"
#include "editor/document/modSyntaxTable.h"
#include "platform/files/FileTrouble.h"
#include "shell/bench/modStart.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

bool WriteBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

// A code window's control that keeps the keywords it was given.
class KeywordSci final : public cSciControl {
public:
    std::intptr_t Send(unsigned message, std::uintptr_t wParam, std::intptr_t lParam) override
    {
        if (message == SCI_SETKEYWORDS && wParam == 0)
            words = reinterpret_cast<const char*>(lParam);
        return 0;
    }

    QByteArray words;
};

} // namespace

class tst_modUserTexts : public QObject {
    Q_OBJECT

    QTemporaryDir temporary;
    QString folder;
    int folderCount = 0;

private Q_SLOTS:
    void initTestCase() { QVERIFY(temporary.isValid()); }

    void init()
    {
        folder = temporary.filePath(QString::number(++folderCount));
        QVERIFY(QDir().mkdir(folder));
        BuildSyntaxTable();
    }

    void filesHaveTheirNamesInTheFolder()
    {
        QCOMPARE(CommentsPath(u"/a b"_s), u"/a b/comments.txt"_s);
        QCOMPARE(KeywordsPath(u"/a b"_s), u"/a b/keywords.txt"_s);
    }

    void commentsLoseTheirLastTwoBytes_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QByteArray>("comments");
        QTest::newRow("line end") << QByteArray("'by me\r\n") << QByteArray("'by me");
        QTest::newRow("inner line ends stay") << QByteArray("'a\r\n\r\n'b\r\n\r\n") << QByteArray("'a\r\n\r\n'b\r\n");
        QTest::newRow("no line end") << QByteArray("'by me") << QByteArray("'by ");
        QTest::newRow("line end alone") << QByteArray("\r\n") << QByteArray("");
        QTest::newRow("one byte") << QByteArray("'") << QByteArray("");
        QTest::newRow("bytes outside ASCII") << QByteArray("'\xE9\x80\xFF\r\n") << QByteArray("'\xE9\x80\xFF");
        QTest::newRow("zero byte") << QByteArray("a\0b\r\n", 5) << QByteArray("a\0b", 3);
    }

    void commentsLoseTheirLastTwoBytes()
    {
        QFETCH(QByteArray, content);
        QVERIFY(WriteBytes(folder + u"/comments.txt"_s, content));
        QTEST(ReadComments(folder), "comments");
        QTEST(CommentText(content), "comments");
    }

    void missingCommentsGiveTheSentence()
    {
        QCOMPARE(ReadComments(folder), QByteArray("'no programmer's comments on file"));
        QCOMPARE(ReadComments(folder + u"/none"_s), QByteArray("'no programmer's comments on file"));
    }

    void emptyCommentsGiveTheSentence()
    {
        QVERIFY(WriteBytes(folder + u"/comments.txt"_s, ""));
        QCOMPARE(ReadComments(folder), QByteArray("'no programmer's comments on file"));
    }

    void commentsThatCannotBeReadGiveTheSentence()
    {
        QVERIFY(QDir(folder).mkdir(u"comments.txt"_s));
        QCOMPARE(ReadComments(folder), QByteArray("'no programmer's comments on file"));
    }

    void customKeywordsArePrependedInLowerCaseWithTheirLineEnd()
    {
        const QByteArray builtIn = Words().LexerKeywords;
        QVERIFY(WriteBytes(folder + u"/keywords.txt"_s, "Pear$ APPLE( \r\n"));
        LoadCustomKeywords(folder);
        QCOMPARE(Words().LexerKeywords, "pear$ apple( \r\n" + builtIn);
    }

    void bytesOutsideAsciiStayInCustomKeywords()
    {
        const QByteArray builtIn = Words().LexerKeywords;
        QVERIFY(WriteBytes(folder + u"/keywords.txt"_s, QByteArray("\xC9T\xE9\0X", 5)));
        LoadCustomKeywords(folder);
        QCOMPARE(Words().LexerKeywords, QByteArray("\xE9t\xE9 x") + builtIn);
    }

    void missingEmptyOrUnreadableKeywordsChangeNothing()
    {
        const QByteArray builtIn = Words().LexerKeywords;
        LoadCustomKeywords(folder);
        QCOMPARE(Words().LexerKeywords, builtIn);
        QVERIFY(WriteBytes(folder + u"/keywords.txt"_s, ""));
        LoadCustomKeywords(folder);
        QCOMPARE(Words().LexerKeywords, builtIn);
        QVERIFY(QFile::remove(folder + u"/keywords.txt"_s));
        QVERIFY(QDir(folder).mkdir(u"keywords.txt"_s));
        LoadCustomKeywords(folder);
        QCOMPARE(Words().LexerKeywords, builtIn);
    }

    void customKeywordsStayOutOfTheListOfKeywordsAndTheCatalogue()
    {
        const QByteArray list = Words().KeywordList;
        QVERIFY(WriteBytes(folder + u"/keywords.txt"_s, "pear\r\n"));
        LoadCustomKeywords(folder);
        QCOMPARE(Words().KeywordList, list);
        QVERIFY(!FindSyntaxRow("pear"));
    }

    void buildingTheTableAgainDeletesCustomKeywords()
    {
        const QByteArray builtIn = Words().LexerKeywords;
        QVERIFY(WriteBytes(folder + u"/keywords.txt"_s, "pear\r\n"));
        LoadCustomKeywords(folder);
        QVERIFY(Words().LexerKeywords != builtIn);
        BuildSyntaxTable();
        QCOMPARE(Words().LexerKeywords, builtIn);
    }

    // --- The keyword editor's work. ---

    void theEditorShowsTheWholeFileOrTheSentence()
    {
        QCOMPARE(CustomKeywordText(folder), u"no custom keywords found"_s);
        QVERIFY(WriteBytes(KeywordsPath(folder), "pear \xE9\r\n\r\n"));
        QCOMPARE(CustomKeywordText(folder), QString::fromUtf8("pear \u00e9\r\n\r\n"));
        QVERIFY(WriteBytes(KeywordsPath(folder), ""));
        QCOMPARE(CustomKeywordText(folder), QString());
    }

    void addedKeywordsAreAppendedToTheFileAndTheList_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QByteArray>("file");
        QTest::newRow("words") << u"Pear APPLE"_s << QByteArray("pear apple\r\n");
        QTest::newRow("beyond ASCII") << QString::fromUtf8("\u00C9T\u00c9") << QByteArray("\xE9t\xE9\r\n");
        QTest::newRow("shown again") << u"pear\n"_s << QByteArray("pear\r\n\r\n");
        QTest::newRow("nothing") << QString() << QByteArray("\r\n");
        QTest::newRow("more than the sentence")
            << u"no custom keywords found "_s << QByteArray("no custom keywords found \r\n");
    }

    void addedKeywordsAreAppendedToTheFileAndTheList()
    {
        QFETCH(QString, text);
        QFETCH(QByteArray, file);
        const QByteArray builtIn = Words().LexerKeywords;
        QVERIFY(AddCustomKeywords(folder, text) == KeywordSave::Written);
        QCOMPARE(CoreBench::Get(KeywordsPath(folder)), file);
        QCOMPARE(Words().LexerKeywords, builtIn + file.chopped(2));
        BuildSyntaxTable();
        LoadCustomKeywords(folder);
        QCOMPARE(Words().LexerKeywords, file + builtIn);
    }

    void aSecondAdditionJoinsTheFirst()
    {
        const QByteArray builtIn = Words().LexerKeywords;
        QVERIFY(AddCustomKeywords(folder, u"pear"_s) == KeywordSave::Written);
        QVERIFY(AddCustomKeywords(folder, u"fig"_s) == KeywordSave::Written);
        QCOMPARE(Words().LexerKeywords, builtIn + "pearfig");
        QCOMPARE(CoreBench::Get(KeywordsPath(folder)), QByteArray("fig\r\n"));
    }

    void theSentenceIsNothingToAdd()
    {
        const QByteArray builtIn = Words().LexerKeywords;
        QVERIFY(AddCustomKeywords(folder, u"No Custom KEYWORDS found"_s) == KeywordSave::NothingToAdd);
        QVERIFY(!QFile::exists(KeywordsPath(folder)));
        QCOMPARE(Words().LexerKeywords, builtIn);
    }

    void aKeywordThatCannotBeStoredRaisesAQuestion()
    {
        const QByteArray builtIn = Words().LexerKeywords;
        const QString question = u"Line 1 of the keywords holds a character that BASIC source files "
                                 "cannot store.\n"
                                 "Save with a question mark in place of each such character?"_s;
        ScriptedDialogs dialogs;
        dialogs.ExpectQuestion(question, BoxAnswer::No);
        QVERIFY(AddCustomKeywords(folder, QString::fromUtf8("a\u2192")) == KeywordSave::Declined);
        QVERIFY(!QFile::exists(KeywordsPath(folder)));
        QCOMPARE(Words().LexerKeywords, builtIn);
        dialogs.ExpectQuestion(question, BoxAnswer::Yes);
        QVERIFY(AddCustomKeywords(folder, QString::fromUtf8("a\u2192")) == KeywordSave::Written);
        QCOMPARE(CoreBench::Get(KeywordsPath(folder)), QByteArray("a?\r\n"));
    }

    void aFailedSaveChangesNothing()
    {
        const QByteArray builtIn = Words().LexerKeywords;
        QVERIFY(QDir(folder).mkdir(u"keywords.txt"_s));
        QCOMPARE(RaisedBy([this] { AddCustomKeywords(folder, u"pear"_s); }), 75);
        QCOMPARE(Words().LexerKeywords, builtIn);
#ifdef Q_OS_UNIX
        QVERIFY(QDir(folder).rmdir(u"keywords.txt"_s));
        QVERIFY(WriteBytes(KeywordsPath(folder), "old\r\n"));
        const FileSizeLimit limit(400);
        QCOMPARE(RaisedBy([this] { AddCustomKeywords(folder, QString(1000, QLatin1Char('x'))); }), 61);
        QCOMPARE(CoreBench::Get(KeywordsPath(folder)), QByteArray("old\r\n"));
        QCOMPARE(Words().LexerKeywords, builtIn);
#endif
    }

    void deletedKeywordsAreGoneFromFileAndList()
    {
        const QByteArray builtIn = Words().LexerKeywords;
        QVERIFY(AddCustomKeywords(folder, u"pear"_s) == KeywordSave::Written);
        DeleteCustomKeywords(folder);
        QVERIFY(!QFile::exists(KeywordsPath(folder)));
        QCOMPARE(Words().LexerKeywords, builtIn);
        DeleteCustomKeywords(folder);
        QCOMPARE(Words().LexerKeywords, builtIn);
    }

    void everyOpenWindowGetsTheKeywords()
    {
        ResetBench();
        KeywordSci first;
        KeywordSci third;
        Documents.push_back(nullptr);
        for (Sci sci : {Sci(&first), Sci(), Sci(&third)}) {
            Documents.push_back(std::make_unique<cDocument>(static_cast<int>(Documents.size())));
            Documents.back()->sci = sci;
        }
        Words().LexerKeywords = "pear \xE9";
        UpdateKeywordsOfWindows();
        ResetBench();
        QCOMPARE(first.words, QByteArray("pear \xC3\xA9"));
        QCOMPARE(third.words, QByteArray("pear \xC3\xA9"));
    }
};

QTEST_APPLESS_MAIN(tst_modUserTexts)
#include "tst_modUserTexts.moc"
