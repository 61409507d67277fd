// SPDX-License-Identifier: GPL-3.0-or-later
// Reading programs: golden files of errors and of what the code is generated from, all that the bench carries, and
// depth.
#include "orchard/language/modDump.h"
#include "orchard/language/modRead.h"
#include "orchard/library/modConstants.h"
#include "scilexer/BasicSource.h"

#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QtTest>

#include <algorithm>
#include <string>

using namespace Qt::StringLiterals;

using namespace ob::basic;

namespace {

constexpr double ConstantValue = 7;
const QString TopFolder = u"" OB_TEST_DATA "/../../"_s;

QString DataFolder()
{
    return u"" OB_TEST_DATA "/basic/reading/"_s;
}

bool FindTestConstant(std::string_view name, double& value)
{
    value = ConstantValue;
    return name != "_NO_SUCH_CONSTANT";
}

Program Read(std::string text)
{
    return ReadProgram(std::move(text), FindTestConstant);
}

std::string ReadBytes(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll().toStdString();
}

std::string ErrorsOf(const Program& program)
{
    std::string text;
    for (const ReadError& error : program.errors) {
        const LineColumn place = program.lines.PlaceOf(error.offset);
        text += std::to_string(place.line) + ':' + std::to_string(place.column) + ": " + error.Text() + '\n';
    }
    return text;
}

// Compares with the golden file, and writes what was found beside it when they differ.
bool IsGolden(const QString& path, const std::string& found)
{
    if (ReadBytes(path) == found)
        return true;
    QFile file(path + u".new"_s);
    if (file.open(QIODevice::WriteOnly))
        file.write(found.data(), static_cast<qint64>(found.size()));
    return false;
}

std::string Repeated(std::string_view piece, std::size_t count)
{
    std::string text;
    for (std::size_t at = 0; at < count; ++at)
        text += piece;
    return text;
}

} // namespace

class tst_modRead : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void goldenFiles_data();
    void goldenFiles();
    void programsOfTheBenchHaveNoErrors_data();
    void programsOfTheBenchHaveNoErrors();
    void everyRowOfTheHintTableIsKnown();
    void nestingIsBoundedByMemoryAlone_data();
    void nestingIsBoundedByMemoryAlone();
    void hostileTextsTakeLinearTime_data();
    void hostileTextsTakeLinearTime();
    void numbersAreReadExactly_data();
    void numbersAreReadExactly();
    void aTextEndsAtItsFirstNul();
    void errorsPointIntoTheTextInItsOrder();
    void operandsComeBeforeWhatUsesThem();
    void namesAreFoundAsARoutineSeesThem();
    void expressionsUseTheNamesOfTheirPlace();
    void wrongExpressionsAreErrors();
};

void tst_modRead::goldenFiles_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QByteArray>("lineEnd");
    for (const QString& old : QDir(DataFolder()).entryList({u"*.new"_s}, QDir::Files))
        QFile::remove(DataFolder() + old);
    const QStringList names = QDir(DataFolder()).entryList({u"*.bas"_s}, QDir::Files, QDir::Name);
    QVERIFY(names.size() >= 16);
    for (const QString& name : names)
        for (const char* lineEnd : {"\n", "\r\n", "\r"}) {
            const QByteArray label = name.toUtf8() + (lineEnd[0] == '\n' ? " LF" : lineEnd[1] != 0 ? " CR LF" : " CR");
            QTest::newRow(label.constData()) << DataFolder() + name << QByteArray(lineEnd);
        }
}

void tst_modRead::goldenFiles()
{
    QFETCH(QString, path);
    QFETCH(QByteArray, lineEnd);
    QByteArray text = QByteArray::fromStdString(ReadBytes(path));
    QVERIFY(!text.isEmpty());
    text.replace("\r\n", "\n").replace('\r', '\n').replace("\n", lineEnd);

    const Program program = Read(text.toStdString());
    QCOMPARE(!program.errors.empty(), path.contains(u"errors-"_s));
    const bool hasErrors = !program.errors.empty();
    const QString golden = path.chopped(3) + (hasErrors ? u"errors"_s : u"dump"_s);
    QVERIFY2(IsGolden(golden, hasErrors ? ErrorsOf(program) : DumpProgram(program)),
             "what was read differs; see the .new file");
}

void tst_modRead::programsOfTheBenchHaveNoErrors_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("errors");
    // What a user typed into a maker comes out as it is: quotes and names that make no program.
    const QMap<QString, QString> wrong = {
        {u"toolbar-raised.bas"_s, u"192:40: found \"quoted\", expected the end of the statement\n"_s},
        {u"question-yesnocancel.bas"_s, u"7:12: found \"it\", expected \"as\"\n"_s},
    };
    int count = 0;
    for (const char* folder : {"samples", "resources/texts", "tests/data/forms", "tests/data/codetools/messagebox",
                               "tests/data/obtool/snippets", "tests/data/codetools"}) {
        QDirIterator files(TopFolder + QLatin1String(folder), {u"*.bas"_s, u"*.snip"_s}, QDir::Files);
        while (files.hasNext()) {
            const QString path = files.next();
            const QByteArray label = (QLatin1String(folder) + u"/"_s + files.fileName()).toUtf8();
            QTest::newRow(label.constData()) << path << wrong.value(files.fileName());
            ++count;
        }
    }
    QVERIFY(count >= 30);
}

void tst_modRead::programsOfTheBenchHaveNoErrors()
{
    QFETCH(QString, path);
    QFETCH(QString, errors);
    const std::string text = ReadBytes(path);
    QVERIFY(!text.empty());
    QCOMPARE(QString::fromStdString(ErrorsOf(ReadProgram(text, FindConstant))), errors);
}

// A row of the hint table is a word of the language, or a command that is sent to a window.
void tst_modRead::everyRowOfTheHintTableIsKnown()
{
    const QStringList sent =
        u"backcolor color box boxfilled circle circlefilled drawbmp ellipse ellipsefilled fill pie piefilled place "
        u"posxy "
        "rule stringwidth? size segment delsegment redraw go set turn font getbmp trapclose when !contents !contents? "
        "!font !line !lines !modified? !origin? !origin !selection? !trapclose !select !locate bitmap value? select "
        "selectindex selection? selectionindex? addsprite background backgroundxy cyclesprite spritecollides "
        "spriteimage "
        "spritemovexy spriteorient spritescale spritevisible spritexy spritexy? vertscrollbar horizcrollbar enable "
        "disable "
        "show hide centersprite removesprite spriteoffset spritetravelxy spritetofront spritetoback spriteround"_s
            .split(u' ');
    const QStringList rows =
        QString::fromLatin1(QByteArray::fromStdString(ReadBytes(TopFolder + u"resources/texts/syntax.txt"_s)))
            .split(u'|', Qt::SkipEmptyParts);
    QVERIFY(rows.size() > 200);
    int known = 0;
    for (const QString& row : rows) {
        const QString word = row.trimmed().section(QRegularExpression(u"[\\s(]"_s), 0, 0);
        if (word.isEmpty() || sent.contains(word))
            continue;
        QVERIFY2(MeaningOf(word.toStdString()).kind != WordKind::Name, qPrintable(word));
        ++known;
    }
    QVERIFY(known > 120);
}

void tst_modRead::nestingIsBoundedByMemoryAlone_data()
{
    constexpr std::size_t deep = 100'000;
    QTest::addColumn<QByteArray>("text");
    const auto row = [](const char* name, const std::string& text) {
        QTest::newRow(name) << QByteArray::fromStdString(text);
    };
    row("parentheses", "a = " + Repeated("(", deep) + "1" + Repeated(")", deep));
    row("operands to the right", "a = " + Repeated("1 + (", deep) + "1" + Repeated(")", deep));
    row("operands to the left", "a = 1" + Repeated(" + 1", deep));
    row("signs", "a = " + Repeated("-", deep) + "1");
    row("powers of signs", "a = 2" + Repeated("^-2", deep));
    row("nots", "a = " + Repeated("not ", deep) + "1");
    row("functions", "a = " + Repeated("abs(", deep) + "1" + Repeated(")", deep));
    row("items", "a = " + Repeated("b(1, ", deep) + "1" + Repeated(")", deep));
    row("ifs", Repeated("if a then\n", deep) + Repeated("end if\n", deep));
    row("ifs of a line", Repeated("if a then ", deep) + "b = 1" + Repeated(" else b = 2", deep));
    row("else after else", Repeated("if a then\nelse\n", deep) + Repeated("end if\n", deep));
    row("loops", Repeated("for i = 1 to 2\n", deep) + Repeated("next\n", deep));
    row("selects", Repeated("select case a\ncase 1\n", deep) + Repeated("end select\n", deep));
    row("exits", "do\n" + Repeated("if a then\nexit do\n", deep) + Repeated("end if\n", deep) + "loop");
    row("a continued line", "a = 1" + Repeated(" + _\n1", deep));
}

void tst_modRead::nestingIsBoundedByMemoryAlone()
{
    QFETCH(QByteArray, text);
    QElapsedTimer timer;
    timer.start();
    const Program program = Read(text.toStdString());
    QCOMPARE(ErrorsOf(program), std::string());
    QVERIFY2(timer.elapsed() < 10'000, "reading takes too long");
}

void tst_modRead::hostileTextsTakeLinearTime_data()
{
    constexpr std::size_t many = 100'000;
    QTest::addColumn<QByteArray>("text");
    const auto row = [](const char* name, const std::string& text) {
        QTest::newRow(name) << QByteArray::fromStdString(text);
    };
    row("unclosed blocks", Repeated("if a then\n", many) + Repeated("next\n", many));
    row("crossed blocks", Repeated("if a then\nfor i = 1 to 2\n", many) + Repeated("end if\n", many));
    row("exits from nothing", Repeated("if a then\n", many) + Repeated("exit for\n", many));
    row("brackets", std::string(many, '['));
    row("underscores", std::string(many, '_') + Repeated("\n_ _", many));
    row("quotes", std::string(many + 1, '"'));
    row("unknown calls", Repeated("nobody 1, 2\n", many));
    row("unknown labels", Repeated("goto [x]\n", many));
    row("labels again", Repeated("[x]\n", many));
    row("subs again", Repeated("sub a b, c\nend sub\n", many));
    row("unclosed parentheses", Repeated("a = (((1 + b(\n", many));
    row("types", Repeated("a = \"x\" + 1\n", many));
}

void tst_modRead::hostileTextsTakeLinearTime()
{
    QFETCH(QByteArray, text);
    QElapsedTimer timer;
    timer.start();
    const Program program = Read(text.toStdString());
    QVERIFY(!program.errors.empty());
    QVERIFY2(timer.elapsed() < 10'000, "reading takes too long");
}

void tst_modRead::numbersAreReadExactly_data()
{
    QTest::addColumn<QByteArray>("written");
    QTest::addColumn<double>("value");
    const auto row = [](const std::string& written, double value) {
        QTest::newRow(written.substr(0, 20).c_str()) << QByteArray::fromStdString(written) << value;
    };
    row("0", 0);
    row("12", 12);
    row("999999999999999", 999999999999999);
    row("9007199254740993", 9007199254740992);
    row(".5", 0.5);
    row("3.", 3);
    row("1.5e-3", 0.0015);
    row("2d10", 2e10);
    row("2D+3", 2000);
    row("1.e2", 100);
    row("1.7976931348623157e308", 1.7976931348623157e308);
    row("1e-400", 0);
    row("1e-99999999999999999999", 0);
    row("0." + std::string(400, '0') + "1", 0);
    row("0." + std::string(400, '0') + "1e10", 0);
    row("0." + std::string(400, '0') + "1e401", 1);
    row("0e99999999999999999999", 0);
}

void tst_modRead::numbersAreReadExactly()
{
    QFETCH(QByteArray, written);
    QFETCH(double, value);
    const Program program = Read("a = " + written.toStdString());
    QCOMPARE(ErrorsOf(program), std::string());
    QVERIFY(program.numbers.at(0) == value);
    for (const char* large : {"1e309", "1e99999999999999999999", "1d400"})
        QVERIFY(!Read(std::string("a = ") + large).errors.empty());
    QVERIFY(!Read("a = " + std::string(400, '9')).errors.empty());
}

void tst_modRead::aTextEndsAtItsFirstNul()
{
    const Program program = Read(std::string("a = 1\n\0)))", 10));
    QCOMPARE(ErrorsOf(program), std::string());
    QCOMPARE(program.source->size(), std::size_t{6});
}

// Any bytes: nothing is read outside the text, and the errors are in order.
void tst_modRead::errorsPointIntoTheTextInItsOrder()
{
    static constexpr std::string_view pieces[] = {"if ",        "then ",      "else ",
                                                  "end if",     "\n",         ":",
                                                  "a",          "b$",         "(",
                                                  ")",          "1",          "\"x\"",
                                                  "\"",         "+",          "-",
                                                  "=",          "print ",     ",",
                                                  "sub ",       "end sub",    "function ",
                                                  "for ",       " to ",       "next ",
                                                  "[x]",        "goto ",      "#h",
                                                  "struct ",    " as ",       "long",
                                                  "_",          "_x",         "select case ",
                                                  "case ",      "end select", "data ",
                                                  "read ",      "while ",     "wend",
                                                  "do ",        "loop ",      "until ",
                                                  "exit ",      "open ",      "dim ",
                                                  "call ",      "not ",       "and ",
                                                  "a.b.struct", "calldll ",   "global ",
                                                  "byref ",     "\xE9",       "'",
                                                  "date$(",     "menu ",      "|"};
    ob::BasicSource random(3);
    for (int round = 0; round < 5000; ++round) {
        std::string text;
        for (std::size_t count = random.Below(60); count > 0; --count)
            text += pieces[random.Below(std::size(pieces))];
        const Program program = Read(text);
        Offset last = 0;
        for (const ReadError& error : program.errors) {
            QVERIFY(error.offset >= last && error.offset + error.length <= program.source->size());
            last = error.offset;
        }
        if (program.errors.empty())
            QVERIFY(!DumpProgram(program).empty());
    }
}

// The order that a machine relies on.
void tst_modRead::operandsComeBeforeWhatUsesThem()
{
    const Program program = Read("a = f(1, 2 + 3, b$) * -c(4, 5)\nfunction f(x, y, z$)\nend function\n");
    QCOMPARE(ErrorsOf(program), std::string());
    std::size_t depth = 0;
    for (Index at = program.statements[0].firstNode; at < program.statements[0].endNode; ++at) {
        const Node& node = program.nodes[at];
        QVERIFY(node.count <= depth);
        std::vector<Index> operands;
        AppendOperands(program, node.first, at, operands);
        QCOMPARE(operands.size(), std::size_t{node.count});
        depth = depth - node.count + 1;
    }
    QCOMPARE(depth, std::size_t{2});
}

void tst_modRead::namesAreFoundAsARoutineSeesThem()
{
    const Program program = Read("global g\n[x] a = 1\nsub s a, byref b$\ng = 1 : c = WindowWidth\n[y]\nend sub\n");
    QCOMPARE(ErrorsOf(program), std::string());
    VariableInfo variable{};
    QVERIFY(FindVariable(program, 0, "a", variable) && variable.scope == Scope::Local && variable.slot == 0);
    QVERIFY(FindVariable(program, 1, "a", variable) && variable.scope == Scope::Local && variable.slot == 0);
    QVERIFY(FindVariable(program, 1, "b$", variable) && variable.scope == Scope::ByRef && variable.type == Type::Text);
    QVERIFY(FindVariable(program, 1, "c", variable) && variable.slot == 1);
    QVERIFY(FindVariable(program, 1, "g", variable) && variable.scope == Scope::Global);
    QVERIFY(FindVariable(program, 0, "mousex", variable) && variable.scope == Scope::System);
    QVERIFY(!FindVariable(program, 0, "c", variable));
    QCOMPARE(program.labels[FindLabel(program, 0, "[x]")].statement, Index{1});
    QCOMPARE(FindLabel(program, 0, "[y]"), NoIndex);
    QVERIFY(FindLabel(program, 1, "[y]") != NoIndex);
    QCOMPARE(FindRoutine(program, "s"), Index{1});
    QCOMPARE(FindRoutine(program, "S"), NoIndex);
}

void tst_modRead::expressionsUseTheNamesOfTheirPlace()
{
    const Program outer =
        Read("global g$\nother = 1 : a = b(2) : print #x, f(1, a)\nstruct s, l as long, n as char[4]\n"
             "function f(n, byref m)\nlocal = 3 : c(1) = 2 : name = g$ + \"x\" = \"x\"\nend function\n");
    QCOMPARE(ErrorsOf(outer), std::string());
    const Program inner = ReadExpression(
        "local + c(2) * f(n, m) + other + b(1) + nothing(1) + s.l.struct + name + eof(#x)", outer, 1, FindTestConstant);
    QCOMPARE(ErrorsOf(inner), std::string());
    QCOMPARE(inner.statements.size(), std::size_t{1});
    const auto nodeAt = [&](NodeKind kind, std::size_t number) {
        for (const Node& node : inner.nodes)
            if (node.kind == kind && number-- == 0)
                return node;
        return Node{};
    };
    VariableInfo local{};
    QVERIFY(FindVariable(outer, 1, "local", local));
    QCOMPARE(nodeAt(NodeKind::Variable, 0).a, local.slot);
    QCOMPARE(nodeAt(NodeKind::Variable, 1).a, Index{0}); // n
    QCOMPARE(nodeAt(NodeKind::Variable, 2).scope, Scope::ByRef);
    QCOMPARE(nodeAt(NodeKind::Variable, 2).use, Use::Reference);
    QCOMPARE(nodeAt(NodeKind::Call, 0).a, Index{1});
    QCOMPARE(outer.names.Text(outer.arrays[nodeAt(NodeKind::Item, 0).a].name), std::string_view("c"));
    QCOMPARE(outer.names.Text(outer.arrays[nodeAt(NodeKind::Item, 1).a].name), std::string_view("b"));
    QCOMPARE(nodeAt(NodeKind::Item, 2).a, NoIndex);
    QCOMPARE(nodeAt(NodeKind::Field, 0).a, Index{0});
    QCOMPARE(outer.names.Text(nodeAt(NodeKind::Field, 0).b), std::string_view("l"));
    QCOMPARE(nodeAt(NodeKind::Handle, 0).a, Index{0});
    // The main program's `other` is none of the function's variables.
    QCOMPARE(std::ranges::count(inner.nodes, NodeKind::Variable, &Node::kind), 4);

    const Program texts = ReadExpression(" g$ + unknown$ + s.n.struct ", outer, 0, FindTestConstant);
    QCOMPARE(ErrorsOf(texts), std::string());
    QCOMPARE(texts.nodes[0].scope, Scope::Global);
    QCOMPARE(texts.nodes[1].kind, NodeKind::Text);
    QCOMPARE(texts.nodes[1].b, Index{0});
    QCOMPARE(texts.nodes.back().type, Type::Text);
}

void tst_modRead::wrongExpressionsAreErrors()
{
    const Program outer = Read("a = 1\nsub s a\nend sub\nfunction f(a)\nend function\n");
    for (const char* text : {"", "1 +", "1 2", "a = \"x\"", "1 : 2", "s(1)", "f()", "f(\"x\")", "print 1", "1\n2", "#x",
                             "q.r.struct", "_NO_SUCH_CONSTANT", "tab(1)", "tab(1) + 1"})
        QVERIFY2(!ReadExpression(text, outer, 0, FindTestConstant).errors.empty(), text);
}

QTEST_GUILESS_MAIN(tst_modRead)
#include "tst_modRead.moc"
