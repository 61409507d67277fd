// SPDX-License-Identifier: GPL-3.0-or-later
// Files and folders by their names: what is found, refused, listed, and what the disk says.
#include "orchard/library/FilesTest.h"

#include <algorithm>

#include "orchard/library/modFileNames.h"

using namespace ob::basic;
using namespace Qt::StringLiterals;

class tst_cFilesByName : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
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

void tst_cFilesByName::init()
{
    before = QDir::currentPath();
    folder = std::make_unique<QTemporaryDir>();
    QVERIFY(folder->isValid() && QDir::setCurrent(folder->path()));
}

void tst_cFilesByName::cleanup()
{
    QDir::setCurrent(before);
    folder.reset();
}

void tst_cFilesByName::otherCapitalsAreFound()
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

void tst_cFilesByName::namesOutsideAsciiAreOfTheCodePage()
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

void tst_cFilesByName::wrongNamesAreErrors()
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

void tst_cFilesByName::foldersAreNoFiles()
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

void tst_cFilesByName::aFullDiskIsAnErrorAtOnce()
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

void tst_cFilesByName::whatFitsBeforeTheDiskIsFullStays()
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

void tst_cFilesByName::filesThatMayNotBeWrittenSayWhy()
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

void tst_cFilesByName::renamingWritesNothingOver()
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

void tst_cFilesByName::foldersAreMadeAndRemoved()
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

void tst_cFilesByName::foldersAreListed()
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

void tst_cFilesByName::patternsFit_data()
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

void tst_cFilesByName::patternsFit()
{
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, pattern);
    QFETCH(bool, fits);
    QCOMPARE(FitsPattern(View(name), View(pattern)), fits);
}

void tst_cFilesByName::theCodePageComesBack()
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

void tst_cFilesByName::waitingForAPipeCanBeStopped()
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

QTEST_APPLESS_MAIN(tst_cFilesByName)
#include "tst_cFilesByName.moc"
