// SPDX-License-Identifier: GPL-3.0-or-later
// The image library written out for programs: its exports, its imports, and its demonstration program.
#include "imagetools/pictures/modImageFiles.h"
#include "platform/language/cRuntimeError.h"
#include "shell/state/modTexts.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>

#include <algorithm>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

QByteArray Embedded(int number)
{
    const auto bytes = EmbeddedText(number, u"CUSTOM"_s);
    return bytes ? QByteArray(bytes->data(), static_cast<qsizetype>(bytes->size())) : QByteArray();
}

// Just enough of the 32-bit library format for the tables of imports and exports.
class LibraryFile {
public:
    explicit LibraryFile(const QByteArray& content) : bytes(content), header(Number(0x3C)) {}

    quint32 Number(qsizetype place) const
    {
        return place + 4 <= bytes.size() ? qFromLittleEndian<quint32>(bytes.constData() + place) : 0;
    }
    quint16 Half(qsizetype place) const { return static_cast<quint16>(Number(place) & 0xFFFF); }
    qsizetype Header() const { return header; }

    // The position in the file of an address, by the section table.
    qsizetype Place(quint32 address) const
    {
        const qsizetype sections = header + 24 + Half(header + 20);
        for (int i = 0; i < Half(header + 6); ++i) {
            const qsizetype section = sections + 40 * i;
            const quint32 start = Number(section + 12);
            if (address >= start && address - start < Number(section + 16))
                return Number(section + 20) + (address - start);
        }
        return bytes.size();
    }
    QByteArray Name(quint32 address) const { return QByteArray(bytes.constData() + Place(address)); }

    QList<QByteArray> Exports() const
    {
        const qsizetype table = Place(Number(header + 24 + 96));
        const qsizetype names = Place(Number(table + 32));
        QList<QByteArray> result;
        for (quint32 i = 0; i < Number(table + 24); ++i)
            result.append(Name(Number(names + 4 * i)));
        return result;
    }
    QList<QByteArray> Imports() const
    {
        QList<QByteArray> result;
        for (qsizetype entry = Place(Number(header + 24 + 104)); Number(entry + 12) != 0; entry += 20)
            result.append(Name(Number(entry + 12)).toLower());
        std::sort(result.begin(), result.end());
        return result;
    }

private:
    QByteArray bytes;
    qsizetype header;
};

} // namespace

class tst_imageLibrary : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void isALibraryOf32Bits();
    void exportsTheThreeFunctionsUndecorated();
    void needsOnlyTheSystem();
    void isSmallAndTheSameInEveryBuild();
    void demonstrationDeclaresTheThreeFunctions();
    void bothAreWrittenIntoAFolder();
    void unwritableFolderIsAnError();
};

// Without the cross compiler the program is built without the library.
#define NEED_LIBRARY()                                                                                                 \
    do {                                                                                                               \
        if (!CarriesImageLibrary())                                                                                    \
            QSKIP("the library is not embedded in this build");                                                        \
    } while (false)

void tst_imageLibrary::isALibraryOf32Bits()
{
    NEED_LIBRARY();
    const QByteArray bytes = Embedded(104);
    const LibraryFile library(bytes);
    constexpr quint16 dll = 0x2000;
    constexpr quint16 i386 = 0x14C;
    QCOMPARE(bytes.left(2), QByteArray("MZ"));
    QCOMPARE(bytes.mid(library.Header(), 4), QByteArray("PE\0\0", 4));
    QCOMPARE(library.Half(library.Header() + 4), i386);
    QVERIFY((library.Half(library.Header() + 22) & dll) != 0);
}

void tst_imageLibrary::exportsTheThreeFunctionsUndecorated()
{
    NEED_LIBRARY();
    const QList<QByteArray> expected = {"ImageHeight", "ImageWidth", "LoadImageFile"};
    QCOMPARE(LibraryFile(Embedded(104)).Exports(), expected);
}

void tst_imageLibrary::needsOnlyTheSystem()
{
    NEED_LIBRARY();
    const QList<QByteArray> expected = {"gdi32.dll", "gdiplus.dll", "kernel32.dll", "user32.dll"};
    QCOMPARE(LibraryFile(Embedded(104)).Imports(), expected);
}

void tst_imageLibrary::isSmallAndTheSameInEveryBuild()
{
    NEED_LIBRARY();
    const QByteArray bytes = Embedded(104);
    const LibraryFile library(bytes);
    QVERIFY(bytes.size() < 16'384);
    // No build time, neither in the file's header nor in that of its exports, and no path.
    QCOMPARE(library.Number(library.Header() + 8), 0U);
    QCOMPARE(library.Number(library.Place(library.Number(library.Header() + 24 + 96)) + 4), 0U);
    // The linker's default base address depends on the folder of the build.
    QCOMPARE(library.Number(library.Header() + 24 + 28), 0x6A500000U);
    QVERIFY(!bytes.contains(".cpp"));
    QVERIFY(!bytes.contains(QDir::homePath().toLocal8Bit() + '/') || QDir::homePath() == QLatin1String("/"));
}

void tst_imageLibrary::demonstrationDeclaresTheThreeFunctions()
{
    const QByteArray text = Embedded(103);
    QCOMPARE(EmbeddedText(103, u"CUSTOM"_s), EmbeddedText(u"jpeg.bas"_s));
    QCOMPARE(text.count('\n'), text.count("\r\n"));
    QCOMPARE(text.count('\r'), text.count("\r\n"));
    QVERIFY(text.endsWith("\r\n"));
    for (const char* name : {"LoadImageFile", "ImageWidth", "ImageHeight"}) {
        QVERIFY(text.contains(QByteArray("'  ") + name));
        QVERIFY(text.contains(QByteArray("calldll #j, \"") + name + "\""));
    }
    QVERIFY(text.contains("open \"jpeg.dll\" for DLL as #j"));
    for (const char byte : text)
        QVERIFY(static_cast<unsigned char>(byte) < 0x80);
}

void tst_imageLibrary::bothAreWrittenIntoAFolder()
{
    NEED_LIBRARY();
    const QTemporaryDir folder;
    const QString path = WriteImageLibrary(folder.path());
    QCOMPARE(path, folder.filePath(u"jpeg.dll"_s));
    QFile library(path);
    QFile program(folder.filePath(u"jpeg.bas"_s));
    QVERIFY(library.open(QIODevice::ReadOnly) && program.open(QIODevice::ReadOnly));
    QCOMPARE(library.readAll(), Embedded(104));
    QCOMPARE(program.readAll(), Embedded(103));
}

void tst_imageLibrary::unwritableFolderIsAnError()
{
    const QTemporaryDir folder;
    QVERIFY_EXCEPTION_THROWN(WriteImageLibrary(folder.filePath(u"missing"_s)), RuntimeError);
}

QTEST_APPLESS_MAIN(tst_imageLibrary)
#include "tst_imageLibrary.moc"
