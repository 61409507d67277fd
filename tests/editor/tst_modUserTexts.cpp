// SPDX-License-Identifier: GPL-3.0-or-later
// Tests of the programmer's comments and of the custom keywords.
#include "editor/modUserTexts.h"

#include "editor/modSyntaxTable.h"
#include "platform/cRuntimeError.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using namespace ob;

namespace {

bool WriteBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

} // namespace

class tst_modUserTexts : public QObject {
    Q_OBJECT

    QTemporaryDir temporary;
    QString folder;
    int folderCount = 0;

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(temporary.isValid());
    }

    void init()
    {
        folder = temporary.filePath(QString::number(++folderCount));
        QVERIFY(QDir().mkdir(folder));
        BuildSyntaxTable();
    }

    void filesHaveTheirNamesInTheFolder()
    {
        QCOMPARE(CommentsPath(QStringLiteral("/a b")), QStringLiteral("/a b/comments.txt"));
        QCOMPARE(KeywordsPath(QStringLiteral("/a b")), QStringLiteral("/a b/keywords.txt"));
    }

    void commentsLoseTheirLastTwoBytes_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QByteArray>("comments");
        QTest::newRow("line end") << QByteArray("'by me\r\n") << QByteArray("'by me");
        QTest::newRow("inner line ends stay") << QByteArray("'a\r\n\r\n'b\r\n\r\n") << QByteArray("'a\r\n\r\n'b\r\n");
        QTest::newRow("no line end") << QByteArray("'by me") << QByteArray("'by ");
        QTest::newRow("line end alone") << QByteArray("\r\n") << QByteArray("");
        QTest::newRow("bytes outside ASCII") << QByteArray("'\xE9\x80\xFF\r\n") << QByteArray("'\xE9\x80\xFF");
        QTest::newRow("zero byte") << QByteArray("a\0b\r\n", 5) << QByteArray("a\0b", 3);
    }

    void commentsLoseTheirLastTwoBytes()
    {
        QFETCH(QByteArray, content);
        QVERIFY(WriteBytes(folder + QStringLiteral("/comments.txt"), content));
        QTEST(ReadComments(folder), "comments");
        QTEST(CommentText(content), "comments");
    }

    void missingCommentsGiveTheSentence()
    {
        QCOMPARE(ReadComments(folder), QByteArray("'no programmer's comments on file"));
        QCOMPARE(ReadComments(folder + QStringLiteral("/none")), QByteArray("'no programmer's comments on file"));
    }

    void emptyCommentsGiveTheSentence()
    {
        QVERIFY(WriteBytes(folder + QStringLiteral("/comments.txt"), ""));
        QCOMPARE(ReadComments(folder), QByteArray("'no programmer's comments on file"));
    }

    void commentsThatCannotBeReadGiveTheSentence()
    {
        QVERIFY(QDir(folder).mkdir(QStringLiteral("comments.txt")));
        QCOMPARE(ReadComments(folder), QByteArray("'no programmer's comments on file"));
    }

    void commentsOfOneByteAreAnInvalidCall()
    {
        QVERIFY(WriteBytes(folder + QStringLiteral("/comments.txt"), "'"));
        try {
            ReadComments(folder);
            QFAIL("no error was raised");
        } catch (const RuntimeError& error) {
            QCOMPARE(error.number, 5);
            QCOMPARE(error.description, QStringLiteral("Invalid procedure call or argument"));
        }
    }

    void customKeywordsStandInFrontInLowerCaseWithTheirLineEnd()
    {
        const QByteArray builtIn = LexerKeywords;
        QVERIFY(WriteBytes(folder + QStringLiteral("/keywords.txt"), "Pear$ APPLE( \r\n"));
        LoadCustomKeywords(folder);
        QCOMPARE(LexerKeywords, "pear$ apple( \r\n" + builtIn);
    }

    void bytesOutsideAsciiStayInCustomKeywords()
    {
        const QByteArray builtIn = LexerKeywords;
        QVERIFY(WriteBytes(folder + QStringLiteral("/keywords.txt"), QByteArray("\xC9T\xE9\0X", 5)));
        LoadCustomKeywords(folder);
        QCOMPARE(LexerKeywords, QByteArray("\xC9t\xE9 x") + builtIn);
    }

    void missingEmptyOrUnreadableKeywordsChangeNothing()
    {
        const QByteArray builtIn = LexerKeywords;
        LoadCustomKeywords(folder);
        QCOMPARE(LexerKeywords, builtIn);
        QVERIFY(WriteBytes(folder + QStringLiteral("/keywords.txt"), ""));
        LoadCustomKeywords(folder);
        QCOMPARE(LexerKeywords, builtIn);
        QVERIFY(QFile::remove(folder + QStringLiteral("/keywords.txt")));
        QVERIFY(QDir(folder).mkdir(QStringLiteral("keywords.txt")));
        LoadCustomKeywords(folder);
        QCOMPARE(LexerKeywords, builtIn);
    }

    void customKeywordsStayOutOfTheListOfKeywordsAndTheCatalogue()
    {
        const QByteArray list = KeywordList;
        QVERIFY(WriteBytes(folder + QStringLiteral("/keywords.txt"), "pear\r\n"));
        LoadCustomKeywords(folder);
        QCOMPARE(KeywordList, list);
        QVERIFY(!FindSyntaxRow("pear"));
    }

    void buildingTheTableAgainDeletesCustomKeywords()
    {
        const QByteArray builtIn = LexerKeywords;
        QVERIFY(WriteBytes(folder + QStringLiteral("/keywords.txt"), "pear\r\n"));
        LoadCustomKeywords(folder);
        QVERIFY(LexerKeywords != builtIn);
        BuildSyntaxTable();
        QCOMPARE(LexerKeywords, builtIn);
    }
};

QTEST_APPLESS_MAIN(tst_modUserTexts)
#include "tst_modUserTexts.moc"
