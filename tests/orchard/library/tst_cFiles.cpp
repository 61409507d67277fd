// SPDX-License-Identifier: GPL-3.0-or-later
// Files and folders as a program uses them, in a folder of the test's own.
#include "orchard/library/LibraryTest.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <memory>

#include "orchard/library/cFiles.h"
#include "orchard/library/modFileNames.h"

using namespace ob::basic;
using namespace Qt::StringLiterals;

namespace {

QByteArray BytesOf(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("missing");
}

void WriteFile(const QString& name, const QByteArray& bytes)
{
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
}

QByteArray NamesOf(const std::vector<FolderEntry>& entries)
{
    QByteArray names;
    for (const FolderEntry& entry : entries)
        names += Shown(entry.name) + ' ';
    return names;
}

} // namespace

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
    void otherCapitalsAreFound();
    void namesOutsideAsciiAreOfTheCodePage();
    void wrongNamesAreErrors();
    void foldersAreNoFiles();
    void aFullDiskIsAnErrorAtOnce();
    void whatFitsBeforeTheDiskIsFullStays();
    void filesThatMayNotBeWrittenSayWhy();
    void renamingWritesNothingOver();
    void foldersAreMadeAndRemoved();
    void foldersAreListed();
    void patternsFit_data();
    void patternsFit();
    void theCodePageComesBack();
    void waitingForAPipeCanBeStopped();

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

void tst_cFiles::otherCapitalsAreFound()
{
    QVERIFY(QDir().mkpath(u"Data/Sub Folder"_s));
    WriteFile(u"Data/Sub Folder/Read Me.TXT"_s, "found");
    cFiles files;
    for (const char* name : {"data\\sub folder\\read me.txt", "DATA/SUB FOLDER/READ ME.TXT",
                             ".\\Data\\..\\data\\Sub Folder\\Read Me.TXT", "data\\\\sub folder\\Read me.txt"})
        QCOMPARE(Shown(files.Open(name, FileMode::Input).Line()), QByteArray("found"));
    files.CloseAll();
    files.Close(files.Open("DATA\\sub folder\\READ ME.txt", FileMode::Output));
    QCOMPARE(BytesOf(u"Data/Sub Folder/Read Me.TXT"_s), QByteArray());
    files.Close(files.Open("data\\New.txt", FileMode::Output));
    QVERIFY(QFile::exists(u"Data/New.txt"_s));
    const QByteArray absolute = QDir::currentPath().toUtf8() + "\\data\\new.TXT";
    files.Kill(View(absolute));
    QVERIFY(!QFile::exists(u"Data/New.txt"_s));
}

void tst_cFiles::namesOutsideAsciiAreOfTheCodePage()
{
    cFiles files;
    files.Close(files.Open("Stra\xDF"
                           "e \x80.txt",
                           FileMode::Output));
    QVERIFY(QFile::exists(u"Straße €.txt"_s));
    WriteFile(u"ÄPFEL.txt"_s, "x");
    QCOMPARE(files.Open("\xE4pfel.TXT", FileMode::Input).Length(), 1.0);
    WriteFile(u"żółw.txt"_s, "yy");
    const std::string foreign = NamesOf(files.List("", "*w.txt").files).trimmed().toStdString();
    QCOMPARE(files.Open(foreign, FileMode::Input).Length(), 2.0);
    QCOMPARE(NamesOf(files.List("", "stra*").files), QByteArray("Stra\xDF"
                                                                "e \x80.txt "));
}

void tst_cFiles::wrongNamesAreErrors()
{
    cFiles files;
    const auto errorOf = [&files](std::string_view name) {
        return ErrorOf([&] { return &files.Open(name, FileMode::Input); });
    };
    QCOMPARE(errorOf(""), NumberOf(ErrorNumber::WrongFileName));
    QCOMPARE(errorOf(std::string_view("a\0b", 3)), NumberOf(ErrorNumber::WrongFileName));
    QCOMPARE(errorOf(std::string(5000, 'a')), NumberOf(ErrorNumber::WrongFileName));
    QCOMPARE(errorOf("missing.txt"), NumberOf(ErrorNumber::FileNotFound));
    QCOMPARE(errorOf("missing\\a.txt"), NumberOf(ErrorNumber::FolderNotFound));
    WriteFile(u"file"_s, "");
    QCOMPARE(errorOf("file\\a.txt"), NumberOf(ErrorNumber::FolderExpected));
    QCOMPARE(ErrorOf([&] { return &files.Open("missing\\a.txt", FileMode::Output); }),
             NumberOf(ErrorNumber::FolderNotFound));
    QCOMPARE(ErrorOf([&] {
                 files.Kill("missing.txt");
                 return 0;
             }),
             NumberOf(ErrorNumber::FileNotFound));
}

void tst_cFiles::foldersAreNoFiles()
{
    QVERIFY(QDir().mkdir(u"folder"_s));
    cFiles files;
    const int number = NumberOf(ErrorNumber::IsFolder);
    for (const FileMode mode :
         {FileMode::Input, FileMode::Output, FileMode::Append, FileMode::Random, FileMode::Binary})
        QCOMPARE(ErrorOf([&] { return &files.Open("Folder", mode); }), number);
    QCOMPARE(ErrorOf([&] {
                 files.Kill("folder");
                 return 0;
             }),
             number);
    QCOMPARE(ErrorOf([&] {
                 files.Rename("folder", "other");
                 return 0;
             }),
             number);
    QVERIFY(QDir(u"folder"_s).exists());
}

void tst_cFiles::aFullDiskIsAnErrorAtOnce()
{
    if (!QFile::exists(u"/dev/full"_s))
        QSKIP("This system has no device that is always full");
    cFiles files;
    cFile& file = files.Open("/dev/full", FileMode::Output);
    const auto print = [&file] {
        file.Text("x");
        file.EndLine();
        return 0;
    };
    QCOMPARE(ErrorOf(print), NumberOf(ErrorNumber::DiskFull));
    QCOMPARE(ErrorOf(print), NumberOf(ErrorNumber::DiskFull));
    file.Text("waits");
    QCOMPARE(ErrorOf([&] {
                 files.Close(file);
                 return 0;
             }),
             NumberOf(ErrorNumber::DiskFull));
    files.FlushAll();
}

void tst_cFiles::whatFitsBeforeTheDiskIsFullStays()
{
    WriteFile(u"small"_s, "");
    cFiles files;
    cFile& file = files.Open("small", FileMode::Output);
    file.Text("first");
    file.EndLine();
    cFile& full = files.Open("/dev/full", FileMode::Append);
    full.Text("lost");
    QCOMPARE(ErrorOf([&] {
                 files.CloseAll();
                 return 0;
             }),
             NumberOf(ErrorNumber::DiskFull));
    QCOMPARE(BytesOf(u"small"_s), QByteArray("first\r\n"));
}

void tst_cFiles::filesThatMayNotBeWrittenSayWhy()
{
    WriteFile(u"a.bin"_s, "abc");
    cFiles files;
    try {
        files.Open("missing.txt", FileMode::Input);
        QFAIL("a missing file was opened");
    } catch (const cProgramError& error) {
        QCOMPARE(Shown(error.Text()), QByteArray("File not found: missing.txt"));
    }
    cFile& kernel = files.Open("/proc/version", FileMode::Binary);
    QVERIFY(!kernel.Line().empty());
    kernel.Text("x");
    QVERIFY(ErrorOf([&] {
                kernel.Flush();
                return 0;
            }) != 0);
}

void tst_cFiles::renamingWritesNothingOver()
{
    WriteFile(u"a.txt"_s, "a");
    WriteFile(u"b.txt"_s, "b");
    cFiles files;
    const auto rename = [&files](std::string_view from, std::string_view to) {
        return ErrorOf([&] {
            files.Rename(from, to);
            return 0;
        });
    };
    QCOMPARE(rename("a.txt", "B.TXT"), NumberOf(ErrorNumber::FileExists));
    QCOMPARE(rename("c.txt", "d.txt"), NumberOf(ErrorNumber::FileNotFound));
    QCOMPARE(rename("a.txt", "missing\\d.txt"), NumberOf(ErrorNumber::FolderNotFound));
    QCOMPARE(BytesOf(u"b.txt"_s), QByteArray("b"));
    QCOMPARE(rename("a.txt", "c.txt"), 0);
    QCOMPARE(BytesOf(u"c.txt"_s), QByteArray("a"));
    QCOMPARE(rename("c.txt", "C.TXT"), 0);
    QCOMPARE(QDir(u"."_s).entryList({u"c*"_s}, QDir::Files), QStringList{u"C.TXT"_s});
    QCOMPARE(BytesOf(u"C.TXT"_s), QByteArray("a"));
}

void tst_cFiles::foldersAreMadeAndRemoved()
{
    cFiles files;
    QCOMPARE(files.MakeFolder("made"), 0);
    QCOMPARE(files.MakeFolder("Made"), NumberOf(ErrorNumber::FileExists));
    QCOMPARE(files.MakeFolder("made\\deep"), 0);
    QCOMPARE(files.MakeFolder("missing\\deep"), NumberOf(ErrorNumber::FileNotFound));
    QCOMPARE(files.RemoveFolder("made"), NumberOf(ErrorNumber::FolderNotEmpty));
    QCOMPARE(files.RemoveFolder("MADE\\Deep"), 0);
    QCOMPARE(files.RemoveFolder("made"), 0);
    QVERIFY(files.RemoveFolder("made") != 0);
    QCOMPARE(files.RemoveFolder(""), NumberOf(ErrorNumber::WrongFileName));
    WriteFile(u"file"_s, "x");
    QCOMPARE(files.RemoveFolder("file"), NumberOf(ErrorNumber::FolderExpected));
    QCOMPARE(BytesOf(u"file"_s), QByteArray("x"));
    QCOMPARE(Shown(files.CurrentFolder()), QDir::currentPath().toUtf8());
}

void tst_cFiles::foldersAreListed()
{
    for (const char16_t* name : {u"b.txt", u"A.TXT", u"c.bas", u".hidden"})
        WriteFile(QString::fromUtf16(name), "12345");
    QVERIFY(QDir().mkdir(u"sub"_s) && QDir().mkdir(u"Other.txt"_s));
    cFiles files;
    cFile& open = files.Open("open.txt", FileMode::Output);
    open.Text("not sent");
    const FolderEntries all = files.List(".", "*.*");
    QCOMPARE(NamesOf(all.files), QByteArray(".hidden A.TXT b.txt c.bas open.txt "));
    QCOMPARE(NamesOf(all.folders), QByteArray("Other.txt sub "));
    QCOMPARE(all.files[1].size, std::string("5"));
    QCOMPARE(all.files[4].size, std::string("8"));
    QCOMPARE(all.folders[0].size, std::string("0"));
    QCOMPARE(QString::fromStdString(all.files[0].date + ' ' + all.files[0].time).size(), 19);
    QCOMPARE(QDateTime::fromString(QString::fromStdString(all.files[0].date), u"MM/dd/yyyy"_s).date(),
             QDate::currentDate());
    const FolderEntries texts = files.List("", "*.txt");
    QCOMPARE(NamesOf(texts.files), QByteArray("A.TXT b.txt open.txt "));
    QCOMPARE(NamesOf(texts.folders), QByteArray("Other.txt "));
    QVERIFY(files.List("SUB", "").files.empty());
    QCOMPARE(ErrorOf([&] { return files.List("missing", "*"); }), NumberOf(ErrorNumber::FolderNotFound));
    QCOMPARE(ErrorOf([&] { return files.List("b.txt", "*"); }), NumberOf(ErrorNumber::FolderExpected));
}

void tst_cFiles::patternsFit_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("pattern");
    QTest::addColumn<bool>("fits");
    const auto row = [](const char* name, const char* pattern, bool fits) {
        QTest::addRow("%s %s", name, pattern) << QByteArray(name) << QByteArray(pattern) << fits;
    };
    row("a.txt", "", true);
    row("a", "*.*", true);
    row("a.txt", "*.txt", true);
    row("A.TXT", "*.txt", true);
    row("a.txt", "?.t?t", true);
    row("ab.txt", "?.txt", false);
    row("a.txt", "*.tx", false);
    row("a.txt", "a*t*", true);
    row("a.txt", "*x*z*", false);
    row("a.txt.txt", "*.txt", true);
    row("", "?", false);
    row("abc", "abc", true);
    row("abc", "abcd", false);
    row("abcd", "abc", false);
    row("a", "***", true);
}

void tst_cFiles::patternsFit()
{
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, pattern);
    QFETCH(bool, fits);
    QCOMPARE(FitsPattern(View(name), View(pattern)), fits);
}

void tst_cFiles::theCodePageComesBack()
{
    for (int code = 1; code < 256; ++code) {
        const std::string text(1, static_cast<char>(code));
        QCOMPARE(AnsiOfUtf8(Utf8OfAnsi(text)), text);
    }
    for (const char* kept :
         {"\xE4", "\xC5\xBC", "\xF0\x9F\x98\x80", "\xC0\x80", "\xE0\x80\x80", "\xE2\x82", "\xED\xA0\x80"})
        QCOMPARE(AnsiOfUtf8(kept), std::string(kept));
    QCOMPARE(Utf8OfAnsi("\x80"), std::string("\xE2\x82\xAC"));
}

void tst_cFiles::waitingForAPipeCanBeStopped()
{
    QCOMPARE(std::system("mkfifo pipe"), 0);
    int asked = 0;
    cFiles files([&asked] { return ++asked > 1; });
    // The write end of one handle keeps the pipe open, and nothing comes.
    cFile& both = files.Open("pipe", FileMode::Binary);
    QVERIFY_THROWS_EXCEPTION(ProgramStopped, (void)both.Line());
    QCOMPARE(asked, 2);
    both.Text("line\n");
    QCOMPARE(Shown(both.Line()), QByteArray("line"));
}

QTEST_APPLESS_MAIN(tst_cFiles)
#include "tst_cFiles.moc"
