// SPDX-License-Identifier: GPL-3.0-or-later
// What files of a program hold: lines, items, bytes, records.
#include "orchard/library/FilesTest.h"

#include <algorithm>

#include "orchard/library/modFileNames.h"

using namespace ob::basic;
using namespace Qt::StringLiterals;

class tst_cFiles : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void printedLinesEndInCrLf();
    void columnsCountInFiles();
    void linesOfAllEndsAreRead();
    void longLinesAreReadWhole();
    void lineEndsAreFoundWhereverTheBufferEnds();
    void itemsAreReadAcrossLines();
    void aMillionItemsOnOneLineAreRead();
    void bytesAndDelimitersAreRead();
    void readingPastTheEndIsAnError();
    void appendingKeepsWhatIsThere();
    void binaryFilesHavePlacesFromZero();
    void recordsHaveFields();
    void recordsOutsideTheFileAreErrors();
    void wrongFieldsAreErrors();
    void writtenBytesAreSeenThroughAnyHandle();
    void bulkWritesReachTheDiskInOrder();
    void modesAreHeld();

private:
    std::unique_ptr<QTemporaryDir> folder;
    QString before;
};

void tst_cFiles::init()
{
    before = QDir::currentPath();
    folder = std::make_unique<QTemporaryDir>();
    QVERIFY(folder->isValid() && QDir::setCurrent(folder->path()));
}

void tst_cFiles::cleanup()
{
    QDir::setCurrent(before);
    folder.reset();
}

void tst_cFiles::printedLinesEndInCrLf()
{
    cFiles files;
    cFile& file = files.Open("a.txt", FileMode::Output);
    file.Text("one");
    file.EndLine();
    file.Text("two ");
    file.EndStatement();
    file.Number(2.5);
    file.EndLine();
    file.EndLine();
    files.Close(file);
    QCOMPARE(BytesOf(u"a.txt"_s), QByteArray("one\r\ntwo 2.5\r\n\r\n"));
}

void tst_cFiles::columnsCountInFiles()
{
    cFiles files;
    cFile& file = files.Open("a.txt", FileMode::Output);
    file.Text("ab");
    file.Comma();
    file.Text("12345678901234");
    file.Comma();
    file.Text("x");
    file.Tab(60);
    file.Text("y");
    file.Tab(60);
    file.Text("z");
    file.Tab(3);
    file.Tab(4);
    file.Text("w\r\nv");
    file.Comma();
    file.Text("u");
    file.EndLine();
    file.Text(std::string(70000, 'q'));
    file.Comma();
    file.Text("r");
    files.CloseAll();
    const QByteArray expected = "ab            12345678901234              x" + QByteArray(16, ' ') + "y\r\n" +
                                QByteArray(59, ' ') + "z\r\n   w\r\nv             u\r\n" + QByteArray(70000, 'q') +
                                QByteArray(14 - 70000 % 14, ' ') + "r";
    QCOMPARE(BytesOf(u"a.txt"_s), expected);
}

void tst_cFiles::linesOfAllEndsAreRead()
{
    WriteFile(u"a.txt"_s, QByteArray("a\r\nb\nc\rd\r\r\n\n\0e\r", 15).append("\nlast"));
    cFiles files;
    cFile& file = files.Open("a.txt", FileMode::Input);
    QByteArray all;
    while (!file.Eof())
        all += '<' + Shown(file.Line()) + '>';
    QCOMPARE(all, QByteArray("<a><b><c><d><><><\0e><last>", 26));
    QCOMPARE(ErrorOf([&] { return file.Line(); }), NumberOf(ErrorNumber::InputPastEnd));
}

void tst_cFiles::longLinesAreReadWhole()
{
    const QByteArray line(3000000, 'x');
    WriteFile(u"a.txt"_s, "short\r\n" + line + "\n" + line + "y");
    cFiles files;
    cFile& file = files.Open("a.txt", FileMode::Input);
    QCOMPARE(Shown(file.Line()), QByteArray("short"));
    QCOMPARE(file.Line().size(), std::size_t{3000000});
    QVERIFY(!file.Eof());
    QCOMPARE(file.Line().size(), std::size_t{3000001});
    QVERIFY(file.Eof());
}

void tst_cFiles::lineEndsAreFoundWhereverTheBufferEnds()
{
    for (int length = 65530; length < 65540; ++length) {
        WriteFile(u"a.txt"_s, QByteArray(length, 'x') + "\r\nnext\r\n");
        cFiles files;
        cFile& file = files.Open("a.txt", FileMode::Input);
        QCOMPARE(file.Line().size(), static_cast<std::size_t>(length));
        QCOMPARE(Shown(file.Line()), QByteArray("next"));
        QVERIFY(file.Eof());
    }
}

void tst_cFiles::itemsAreReadAcrossLines()
{
    WriteFile(u"a.txt"_s, " 1, two ,\"three, four\" x,\r\n\r\n\"five\nsix");
    cFiles files;
    cFile& file = files.Open("a.txt", FileMode::Input);
    QByteArray all;
    while (!file.Eof())
        all += '<' + Shown(file.Item()) + '>';
    QCOMPARE(all, QByteArray("<1><two><three, four><><><five><six>"));
    QCOMPARE(ErrorOf([&] { return file.Item(); }), NumberOf(ErrorNumber::InputPastEnd));
}

void tst_cFiles::aMillionItemsOnOneLineAreRead()
{
    WriteFile(u"a.txt"_s, QByteArray("12,").repeated(1000000));
    cFiles files;
    cFile& file = files.Open("a.txt", FileMode::Input);
    int count = 0;
    for (; !file.Eof(); ++count)
        QVERIFY(file.Item() == "12");
    QCOMPARE(count, 1000000);
}

void tst_cFiles::bytesAndDelimitersAreRead()
{
    WriteFile(u"a.txt"_s, "abcd;ef\r\ng<>h<>" + QByteArray(100000, 'i') + "<>tail");
    cFiles files;
    cFile& file = files.Open("a.txt", FileMode::Input);
    QCOMPARE(Shown(file.Bytes(3)), QByteArray("abc"));
    QCOMPARE(Shown(file.UpTo(";")), QByteArray("d"));
    QCOMPARE(Shown(file.UpTo("<>")), QByteArray("ef\r\ng"));
    QCOMPARE(Shown(file.UpTo("<>")), QByteArray("h"));
    QCOMPARE(file.UpTo("<>").size(), std::size_t{100000});
    QCOMPARE(Shown(file.Bytes(0)), QByteArray());
    QCOMPARE(Shown(file.UpTo("")), QByteArray("tail"));
    QVERIFY(file.Eof());
    file.Seek(7);
    QCOMPARE(Shown(file.Line()), QByteArray());
    QCOMPARE(Shown(file.Bytes(1)), QByteArray("g"));
    QCOMPARE(file.Bytes(std::size_t{1} << 60).size(), std::size_t{100011});
}

void tst_cFiles::readingPastTheEndIsAnError()
{
    WriteFile(u"a.txt"_s, "");
    cFiles files;
    cFile& file = files.Open("a.txt", FileMode::Input);
    QVERIFY(file.Eof());
    QCOMPARE(file.Length(), 0.0);
    const int number = NumberOf(ErrorNumber::InputPastEnd);
    QCOMPARE(ErrorOf([&] { return file.Line(); }), number);
    QCOMPARE(ErrorOf([&] { return file.Item(); }), number);
    QCOMPARE(ErrorOf([&] { return file.Bytes(1); }), number);
    QCOMPARE(ErrorOf([&] { return file.UpTo(","); }), number);
    QCOMPARE(Shown(file.Bytes(0)), QByteArray());
}

void tst_cFiles::appendingKeepsWhatIsThere()
{
    WriteFile(u"a.txt"_s, "old\r\n");
    cFiles files;
    cFile& file = files.Open("a.txt", FileMode::Append);
    QCOMPARE(file.Length(), 5.0);
    QCOMPARE(file.Location(), 5.0);
    file.Text("new");
    file.EndLine();
    QCOMPARE(file.Location(), 10.0);
    QCOMPARE(file.Length(), 10.0);
    files.Close(file);
    QCOMPARE(BytesOf(u"a.txt"_s), QByteArray("old\r\nnew\r\n"));
    files.Close(files.Open("new.txt", FileMode::Append));
    QCOMPARE(BytesOf(u"new.txt"_s), QByteArray());
}

void tst_cFiles::binaryFilesHavePlacesFromZero()
{
    WriteFile(u"a.bin"_s, "0123456789");
    cFiles files;
    cFile& file = files.Open("a.bin", FileMode::Binary);
    QCOMPARE(file.Location(), 0.0);
    QCOMPARE(Shown(file.Bytes(3)), QByteArray("012"));
    QCOMPARE(file.Location(), 3.0);
    file.Text("ab");
    file.EndLine();
    QCOMPARE(file.Location(), 5.0);
    QCOMPARE(Shown(file.Bytes(2)), QByteArray("56"));
    file.Seek(1);
    QCOMPARE(Shown(file.Bytes(5)), QByteArray("12ab5"));
    file.Seek(12);
    QVERIFY(file.Eof());
    file.Text("z");
    QCOMPARE(file.Length(), 13.0);
    file.Seek(2);
    file.Text("Y");
    file.Seek(2);
    QCOMPARE(Shown(file.Bytes(1)), QByteArray("Y"));
    QCOMPARE(ErrorOf([&] {
                 file.Seek(-1);
                 return 0;
             }),
             NumberOf(ErrorNumber::OutOfRange));
    QCOMPARE(ErrorOf([&] {
                 file.Seek(1e300);
                 return 0;
             }),
             NumberOf(ErrorNumber::OutOfRange));
    files.Close(file);
    QCOMPARE(BytesOf(u"a.bin"_s), QByteArray("01Yab56789\0\0z", 13));
}

void tst_cFiles::recordsHaveFields()
{
    cFiles files;
    cFile& file = files.Open("a.dat", FileMode::Random, 12);
    const double widths[] = {5, 3.9, 2};
    file.SetFields(widths);
    file.Put(2, std::array<std::string_view, 3>{"long name", "7", "ab"});
    file.Put(1, std::array<std::string_view, 2>{"x", "12"});
    QCOMPARE(file.Length(), 24.0);
    QCOMPARE(file.Location(), 1.0);
    const auto second = file.Get(2.9);
    QCOMPARE(second.size(), std::size_t{3});
    QCOMPARE(Shown(second[0]) + '|' + Shown(second[1]) + '|' + Shown(second[2]), QByteArray("long |7  |ab"));
    QCOMPARE(Shown(file.Get(1)[0]), QByteArray("x    "));
    QCOMPARE(file.Location(), 1.0);
    for (int i = 3; i <= 2000; ++i)
        file.Put(i, std::array<std::string_view, 1>{NumberText(i)});
    for (int i = 2000; i >= 3; --i)
        QCOMPARE(Val(file.Get(i)[0]), static_cast<double>(i));
    files.CloseAll();
    QCOMPARE(BytesOf(u"a.dat"_s).first(24), QByteArray("x    12     long 7  ab  "));
    QCOMPARE(BytesOf(u"a.dat"_s).size(), 24000);
}

void tst_cFiles::recordsOutsideTheFileAreErrors()
{
    WriteFile(u"a.dat"_s, "abcdef");
    cFiles files;
    cFile& file = files.Open("a.dat", FileMode::Random);
    QCOMPARE(ErrorOf([&] { return file.Get(1); }), NumberOf(ErrorNumber::WrongFileMode));
    const double widths[] = {4};
    file.SetFields(widths);
    QCOMPARE(Shown(file.Get(2)[0]), QByteArray("ef  "));
    QCOMPARE(ErrorOf([&] { return file.Get(3); }), NumberOf(ErrorNumber::InputPastEnd));
    for (const double number : {0.0, -1.0, 1e300})
        QCOMPARE(ErrorOf([&] { return file.Get(number); }), NumberOf(ErrorNumber::WrongRecord));
}

void tst_cFiles::wrongFieldsAreErrors()
{
    cFiles files;
    cFile& file = files.Open("a.dat", FileMode::Random, 5);
    const auto errorOf = [&file](std::initializer_list<double> widths) {
        const std::vector<double> all(widths);
        return ErrorOf([&] {
            file.SetFields(all);
            return 0;
        });
    };
    for (const std::initializer_list<double> widths :
         {std::initializer_list<double>{6}, {3, 3}, {-1}, {}, {0, 0}, {1e300}, {1e9, 1e9}})
        QCOMPARE(errorOf(widths), NumberOf(ErrorNumber::WrongRecordLength));
    QCOMPARE(errorOf({2, 3}), 0);
    QCOMPARE(ErrorOf([&] { return &files.Open("b.dat", FileMode::Random, -1); }),
             NumberOf(ErrorNumber::WrongRecordLength));
    QVERIFY(!QFile::exists(u"b.dat"_s));
}

void tst_cFiles::writtenBytesAreSeenThroughAnyHandle()
{
    cFiles files;
    cFile& writer = files.Open("a.txt", FileMode::Output);
    writer.Text("one");
    writer.EndLine();
    cFile& reader = files.Open("A.TXT", FileMode::Input);
    QCOMPARE(Shown(reader.Line()), QByteArray("one"));
    QVERIFY(reader.Eof());
    for (int i = 0; i < 1000; ++i) {
        writer.Number(i);
        writer.EndLine();
        QCOMPARE(Shown(reader.Line()), QByteArray::number(i));
        QVERIFY(reader.Eof());
    }
    cFile& binary = files.Open("a.txt", FileMode::Binary);
    reader.Seek(0);
    QCOMPARE(Shown(reader.Bytes(1)), QByteArray("o"));
    binary.Seek(1);
    binary.Text("NE");
    binary.EndStatement();
    QCOMPARE(Shown(reader.Bytes(2)), QByteArray("NE"));
    writer.Text("x");
    writer.EndStatement();
    QCOMPARE(BytesOf(u"a.txt"_s).back(), 'x');
}

void tst_cFiles::bulkWritesReachTheDiskInOrder()
{
    cFiles files;
    cFile& file = files.Open("a.txt", FileMode::Output);
    QByteArray expected;
    for (int i = 0; i < 20000; ++i) {
        const std::string text = std::string(static_cast<std::size_t>(i % 97), 'a') + std::to_string(i);
        file.Text(text);
        file.EndLine();
        expected += Shown(text) + "\r\n";
    }
    files.FlushAll();
    QCOMPARE(BytesOf(u"a.txt"_s), expected);
}

void tst_cFiles::modesAreHeld()
{
    WriteFile(u"a.txt"_s, "abc");
    cFiles files;
    const int number = NumberOf(ErrorNumber::WrongFileMode);
    cFile& input = files.Open("a.txt", FileMode::Input);
    QCOMPARE(ErrorOf([&] {
                 input.Text("x");
                 return 0;
             }),
             number);
    QCOMPARE(ErrorOf([&] {
                 input.SetFields({});
                 return 0;
             }),
             number);
    cFile& output = files.Open("b.txt", FileMode::Output);
    QVERIFY(output.Eof());
    QCOMPARE(ErrorOf([&] { return output.Line(); }), number);
    QCOMPARE(ErrorOf([&] { return output.Get(1); }), number);
    cFile& append = files.Open("b.txt", FileMode::Append);
    QCOMPARE(ErrorOf([&] {
                 append.Seek(0);
                 return 0;
             }),
             number);
    files.CloseAll();
    QCOMPARE(BytesOf(u"a.txt"_s), QByteArray("abc"));
}

QTEST_APPLESS_MAIN(tst_cFiles)
#include "tst_cFiles.moc"
