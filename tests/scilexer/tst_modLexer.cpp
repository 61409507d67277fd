// SPDX-License-Identifier: GPL-3.0-or-later
// The lexer: golden files for every rule, and properties of any text.
#include "BasicSource.h"
#include "scilexer/modLexer.h"

#include <QDir>
#include <QFile>
#include <QtTest>

#include <algorithm>
#include <string>
#include <vector>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

using Styles = std::vector<unsigned char>;

struct Lexed {
    Styles styles;
    std::vector<int> states; // after each line
};

std::string ReadBytes(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QByteArray bytes = file.readAll();
    bytes.replace("\r\n", "\n");
    return bytes.toStdString();
}

std::string WithLineEnds(const std::string& text, std::string_view lineEnd)
{
    std::string result;
    for (const char c : text)
        c == '\n' ? result += lineEnd : result += c;
    return result;
}

// Splits a text at CR LF, LF and CR; each line keeps its end.
std::vector<std::string_view> SplitLines(std::string_view text)
{
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        std::size_t length = text.find_first_of("\r\n");
        if (length == std::string_view::npos)
            length = text.size();
        else
            length += text.substr(length, 2) == "\r\n" ? 2 : 1;
        lines.push_back(text.substr(0, length));
        text.remove_prefix(length);
    }
    return lines;
}

Lexed LexByLines(std::string_view text, const KeywordSet& keywords)
{
    Lexed result;
    int state = 0;
    for (const std::string_view line : SplitLines(text)) {
        // A buffer of exactly the line's size lets the sanitizers detect accesses past it.
        const std::string copy(line);
        Styles styles(line.size(), 0xEE);
        state = LexLine(state, {copy.data(), copy.size()}, keywords, styles.data());
        result.styles.insert(result.styles.end(), styles.begin(), styles.end());
        result.states.push_back(state);
    }
    return result;
}

Styles LexWhole(std::string_view text, const KeywordSet& keywords)
{
    Styles styles(text.size(), 0xEE);
    LexText(text, keywords, styles.data());
    return styles;
}

// The text with "{n}" where style n begins, at least once per line; every line end is written as LF.
std::string Styled(std::string_view text, const Styles& styles)
{
    std::string result;
    std::size_t at = 0;
    for (const std::string_view line : SplitLines(text)) {
        int current = -1;
        for (const char c : line) {
            if (styles[at] != current)
                result += '{' + std::to_string(styles[at]) + '}';
            current = styles[at++];
            if (c != '\r' && c != '\n')
                result += c;
        }
        result += '\n';
    }
    return result;
}

// Each line after its depth, "+" for a header and "w" for a blank line.
std::string Folded(std::string_view text, const std::vector<int>& states)
{
    std::string result;
    int before = 0;
    std::size_t i = 0;
    for (std::string_view line : SplitLines(text)) {
        const int level = FoldLevel(before, states[i], line);
        before = states[i++];
        result += std::to_string((level & FoldNumberMask) - FoldBase);
        result += (level & FoldHeader) != 0 ? '+' : ' ';
        result += (level & FoldWhite) != 0 ? 'w' : ' ';
        result += '|';
        result += line.substr(0, line.find_first_of("\r\n"));
        result += '\n';
    }
    return result;
}

QString DataFolder()
{
    return u"" OB_TEST_DATA "/lexer/"_s;
}

KeywordSet TestKeywords()
{
    return KeywordSet(ReadBytes(DataFolder() + u"keywords.txt"_s));
}

// Compares with the golden file; a differing result is written next to it for scripts/promote-styled.sh.
bool IsGolden(const QString& goldenPath, const std::string& found)
{
    if (QFile::exists(goldenPath) && ReadBytes(goldenPath) == found)
        return true;
    QFile file(goldenPath + u".new"_s);
    if (file.open(QIODevice::WriteOnly))
        file.write(found.data(), static_cast<qint64>(found.size()));
    return false;
}

std::string RandomBytes(BasicSource& random, std::size_t length)
{
    static constexpr std::string_view alphabet = "ae1 .:'\"#[]()$!?_\t\r\n\xE4+-rem then if end select case for next";
    std::string text;
    while (text.size() < length) {
        const std::size_t from = random.Below(alphabet.size());
        text += random.Below(4) == 0 ? alphabet.substr(from, 1 + random.Below(8)) : alphabet.substr(from, 1);
        if (random.Below(40) == 0)
            text += static_cast<char>(random.Below(256));
    }
    return text;
}

} // namespace

class tst_modLexer : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void goldenFiles_data();
    void goldenFiles();
    void ansiAndUtf8AgreeCharacterByCharacter();
    void linesAndWholeTextAgreeOnRandomBytes();
    void keywordsIgnoreCase();
    void keywordsOfAnyLengthAndCharacterAreFound();
    void structureWordsAreKeywordsOnlyWhenListed();
    void foldLevelsCountAsScintillaDoes();
    void impossibleStatesAreHarmless();
    void aLineEndIsConsumedWhole();
    void nulBytesAreSpaces();
    void longLinesTakeLinearTime_data();
    void longLinesTakeLinearTime();
    void bracesMatchWithinStyleAndLine_data();
    void bracesMatchWithinStyleAndLine();
};

void tst_modLexer::goldenFiles_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QByteArray>("lineEnd");
    for (const QString& old : QDir(DataFolder()).entryList({u"*.new"_s}, QDir::Files))
        QFile::remove(DataFolder() + old);
    const QStringList names = QDir(DataFolder()).entryList({u"*.bas"_s}, QDir::Files, QDir::Name);
    QVERIFY(names.size() >= 12);
    for (const QString& name : names)
        for (const char* lineEnd : {"\n", "\r\n", "\r"}) {
            const QByteArray label = name.toUtf8() + (lineEnd[0] == '\n' ? " LF" : lineEnd[1] != 0 ? " CR LF" : " CR");
            QTest::newRow(label.constData()) << DataFolder() + name << QByteArray(lineEnd);
        }
}

void tst_modLexer::goldenFiles()
{
    QFETCH(QString, path);
    QFETCH(QByteArray, lineEnd);
    const KeywordSet keywords = TestKeywords();
    QVERIFY(keywords.Contains("print"));
    const std::string text = WithLineEnds(ReadBytes(path), lineEnd.toStdString());
    QVERIFY(!text.empty());

    const Lexed lines = LexByLines(text, keywords);
    Styles whole(text.size(), 0xEE);
    const int finalState = LexText(text, keywords, whole.data());
    QCOMPARE(whole, lines.styles);
    QCOMPARE(finalState, lines.states.back());

    const bool areStylesGolden = IsGolden(path + u".styled"_s, Styled(text, whole));
    const bool areFoldsGolden = IsGolden(path + u".folded"_s, Folded(text, lines.states));
    QVERIFY2(areStylesGolden, "the styles differ; see the .styled.new file");
    QVERIFY2(areFoldsGolden, "the fold levels differ; see the .folded.new file");
}

void tst_modLexer::ansiAndUtf8AgreeCharacterByCharacter()
{
    const KeywordSet keywords = TestKeywords();
    const std::string utf8 = ReadBytes(DataFolder() + u"national.bas"_s);
    const QString text = QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
    const QByteArray ansi = text.toLatin1();
    QVERIFY(static_cast<std::size_t>(ansi.size()) + 10 < utf8.size());

    const Styles ansiStyles = LexWhole({ansi.constData(), static_cast<std::size_t>(ansi.size())}, keywords);
    const Styles utf8Styles = LexWhole(utf8, keywords);
    std::size_t at = 0;
    for (const unsigned char ansiStyle : ansiStyles) {
        QCOMPARE(utf8Styles[at], ansiStyle);
        for (++at; at < utf8.size() && (static_cast<unsigned char>(utf8[at]) & 0xC0) == 0x80; ++at)
            QCOMPARE(utf8Styles[at], ansiStyle);
    }
    QCOMPARE(at, utf8.size());
}

void tst_modLexer::linesAndWholeTextAgreeOnRandomBytes()
{
    const KeywordSet keywords = TestKeywords();
    BasicSource random(7);
    for (std::size_t i = 0; i < 3000; ++i) {
        const std::string text = RandomBytes(random, 1 + i % 200);
        const Styles whole = LexWhole(text, keywords);
        QCOMPARE(LexByLines(text, keywords).styles, whole);
        QVERIFY(std::all_of(whole.begin(), whole.end(), [](unsigned char style) { return style <= StyleLabel; }));
    }
}

void tst_modLexer::keywordsIgnoreCase()
{
    const KeywordSet keywords("print\tLeft$(\r\n  goto \n");
    for (const char* word : {"print", "PRINT", "pRiNt", "left$", "LEFT$", "GoTo"})
        QVERIFY2(keywords.Contains(word), word);
    for (const char* word : {"", "prin", "printx", "left", "left$(", "go", "goto_", "("})
        QVERIFY2(!keywords.Contains(word), word);
    QVERIFY(!KeywordSet("(  ( \n").Contains("("));
    QVERIFY(!KeywordSet().Contains("print"));
}

void tst_modLexer::keywordsOfAnyLengthAndCharacterAreFound()
{
    std::string list;
    std::vector<std::string> words;
    for (std::size_t length = 1; length <= 40; ++length)
        for (const char* letters : {"a", "q_", "Z9$", "x\xC3\xA4"}) {
            std::string word;
            while (word.size() < length)
                word += letters;
            words.push_back(word.substr(0, length));
            list += words.back() + ' ';
        }
    const KeywordSet keywords(list);
    for (const std::string& word : words) {
        QVERIFY2(keywords.Contains(word), word.c_str());
        QVERIFY2(!keywords.Contains(word + "b"), word.c_str());
        QVERIFY2(!keywords.Contains("b" + word), word.c_str());
    }
    // Two characters outside ASCII that differ only in the bit that distinguishes ASCII capitals.
    QVERIFY(KeywordSet("caf\xE9").Contains("CAF\xE9"));
    QVERIFY(!KeywordSet("caf\xE9").Contains("caf\xC9"));
}

void tst_modLexer::structureWordsAreKeywordsOnlyWhenListed()
{
    const std::string line = "if a then";
    Styles styles(line.size());
    QCOMPARE(LexLine(0, line, KeywordSet(), styles.data()), 1);
    QCOMPARE(styles.front(), static_cast<unsigned char>(StyleIdentifier));
    QCOMPARE(LexLine(0, line, KeywordSet("if"), styles.data()), 1);
    QCOMPARE(styles.front(), static_cast<unsigned char>(StyleKeyword));
    QCOMPARE(styles.back(), static_cast<unsigned char>(StyleIdentifier));
}

void tst_modLexer::foldLevelsCountAsScintillaDoes()
{
    QCOMPARE(FoldLevel(0, 0, "print\r\n"), 0x400);
    QCOMPARE(FoldLevel(0, 1, "for\r\n"), 0x400 | 0x2000);
    QCOMPARE(FoldLevel(2, 3, "for"), 0x402 | 0x2000);
    QCOMPARE(FoldLevel(2, 1, "next"), 0x402);
    QCOMPARE(FoldLevel(2, 2, " \t\r\n"), 0x402 | 0x1000);
    QCOMPARE(FoldLevel(0, 0, ""), 0x400 | 0x1000);
    QCOMPARE(FoldLevel(1000000, 1000001, "for"), 0xFFF | 0x2000);
}

void tst_modLexer::impossibleStatesAreHarmless()
{
    unsigned char styles[8];
    QCOMPARE(LexLine(-5, "for", KeywordSet(), styles), 1);
    QCOMPARE(LexLine(-5, "next", KeywordSet(), styles), 0);
    QCOMPARE(LexLine(0x7FFFFFFF, "for", KeywordSet(), styles), 0x7FFFFFFF);
    QCOMPARE(LexLine(3, "", KeywordSet(), styles), 3);
    QCOMPARE(LexText("", KeywordSet(), styles), 0);
}

void tst_modLexer::aLineEndIsConsumedWhole()
{
    const auto lengthOf = [](std::string_view text) {
        Styles styles(text.size());
        return LexFirstLine(0, text, KeywordSet(), styles.data()).length;
    };
    QCOMPARE(lengthOf("a\r\nb"), std::size_t{3});
    QCOMPARE(lengthOf("a\rb"), std::size_t{2});
    QCOMPARE(lengthOf("a\nb"), std::size_t{2});
    QCOMPARE(lengthOf("a\n\rb"), std::size_t{2});
    QCOMPARE(lengthOf("a\r"), std::size_t{2});
    QCOMPARE(lengthOf("'a\rb"), std::size_t{3});
    QCOMPARE(lengthOf("\"a\nb"), std::size_t{3});
    QCOMPARE(lengthOf("[a\rb]"), std::size_t{3});
    QCOMPARE(lengthOf("rem\r\n\n"), std::size_t{5});
    QCOMPARE(lengthOf("abc"), std::size_t{3});
}

void tst_modLexer::nulBytesAreSpaces()
{
    const std::string text("pr\0int \"a\0b\" 'c\0d", 17);
    const Styles styles = LexWhole(text, KeywordSet("pr"));
    QCOMPARE(styles, (Styles{3, 3, 0, 7, 7, 7, 0, 4, 4, 4, 4, 4, 0, 1, 1, 1, 1}));
}

void tst_modLexer::longLinesTakeLinearTime_data()
{
    QTest::addColumn<QByteArray>("piece");
    for (const char* piece : {"[", "[ ", "a", "1", "#", "\"", "'", "(", " ", "[a", "then ", "if a then if "})
        QTest::newRow(piece) << QByteArray(piece);
}

// Searching from every "[" to the end of the line would take minutes here.
void tst_modLexer::longLinesTakeLinearTime()
{
    QFETCH(QByteArray, piece);
    const std::string text = piece.repeated((4 << 20) / static_cast<int>(piece.size())).toStdString();
    for (const char* tail : {"", " ]", "]"}) {
        const std::string line = text + tail;
        QCOMPARE(LexWhole(line, TestKeywords()).size(), line.size());
    }
}

void tst_modLexer::bracesMatchWithinStyleAndLine_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("partner");
    QTest::newRow("plain, forward") << QByteArray("f(a)") << 1 << 3;
    QTest::newRow("plain, back") << QByteArray("f(a)") << 3 << 1;
    QTest::newRow("nested, outer") << QByteArray("((a)(b))") << 0 << 7;
    QTest::newRow("nested, inner") << QByteArray("((a)(b))") << 4 << 6;
    QTest::newRow("nested, back") << QByteArray("((a)(b))") << 7 << 0;
    QTest::newRow("no partner") << QByteArray("(a") << 0 << -1;
    QTest::newRow("no partner, back") << QByteArray("a)") << 1 << -1;
    QTest::newRow("first byte, back") << QByteArray(")") << 0 << -1;
    QTest::newRow("skips strings") << QByteArray("(\")\" )") << 0 << 5;
    QTest::newRow("skips strings, back") << QByteArray("(\"(\" )") << 5 << 0;
    QTest::newRow("within a string") << QByteArray("x = \"(a)\"") << 5 << 7;
    QTest::newRow("skips comments") << QByteArray("(a ')") << 0 << -1;
    QTest::newRow("label") << QByteArray("goto [a]") << 5 << 7;
    QTest::newRow("label, back") << QByteArray("goto [a]") << 7 << 5;
    QTest::newRow("brackets and parentheses apart") << QByteArray("( [ ) ]") << 0 << 4;
    QTest::newRow("not a brace") << QByteArray("(a)") << 1 << -1;
    QTest::newRow("after the line") << QByteArray("(a)") << 3 << -1;
}

void tst_modLexer::bracesMatchWithinStyleAndLine()
{
    QFETCH(QByteArray, line);
    QFETCH(int, column);
    QFETCH(int, partner);
    const std::string text = line.toStdString();
    const Styles styles = LexWhole(text, KeywordSet());
    const std::optional<std::size_t> found = MatchBrace(text, styles.data(), static_cast<std::size_t>(column));
    QCOMPARE(found ? static_cast<int>(*found) : -1, partner);
}

QTEST_APPLESS_MAIN(tst_modLexer)
#include "tst_modLexer.moc"
