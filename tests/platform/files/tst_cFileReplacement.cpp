// SPDX-License-Identifier: GPL-3.0-or-later
// A file that gets its name only once it is complete.
#include "platform/files/cFileReplacement.h"

#include "platform/files/FileTrouble.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <memory>

using namespace Qt::StringLiterals;

using namespace ob;

class tst_cFileReplacement : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> folder;

    QString At(const char* name) const { return folder->filePath(QString::fromLatin1(name)); }
    QStringList Entries() const
    {
        return QDir(folder->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }
    static std::vector<std::uint8_t> Bytes(const char* text) { return {text, text + std::strlen(text)}; }
    static void Write(const QString& path, const char* text)
    {
        cFileReplacement file(path);
        file.Write(Bytes(text));
        file.Finish();
    }

private Q_SLOTS:
    void init() { folder = std::make_unique<QTemporaryDir>(); }
    void cleanup() { folder.reset(); }

    void piecesAndPatchesMakeTheFile()
    {
        Put(At("x"), "old");
        cFileReplacement file(At("x"));
        file.Write(Bytes("0123"));
        file.Write(std::vector<std::uint8_t>(100'000, 'a'));
        file.WriteAt(1, Bytes("XY"));
        file.Write(Bytes("end"));
        QCOMPARE(file.Size(), std::int64_t{100'007});
        QCOMPARE(Get(At("x")), QByteArray("old"));
        file.Finish();
        QCOMPARE(Get(At("x")), "0XY3" + QByteArray(100'000, 'a') + "end");
        QCOMPARE(Entries(), QStringList{u"x"_s});
    }

    void whatIsLetGoLeavesNothing()
    {
        {
            cFileReplacement file(At("x"));
            file.Write(Bytes("0123"));
        }
        QCOMPARE(Entries(), QStringList());
    }

    void whatCannotBeReplacedIsAnErrorAtOnce()
    {
        QCOMPARE(ErrorOf([] { cFileReplacement file{QString()}; }), pathFileAccess);
        QCOMPARE(ErrorOf([&] { cFileReplacement file(folder->path()); }), pathFileAccess);
        QCOMPARE(ErrorOf([&] { cFileReplacement file(At("gone/x")); }), pathNotFound);
        Put(At("file"), "x");
        QCOMPARE(ErrorOf([&] { cFileReplacement file(At("file/x")); }), pathNotFound);
        QCOMPARE(Entries(), QStringList{u"file"_s});
    }

#ifdef Q_OS_UNIX
    void devicesAreRefused()
    {
        QCOMPARE(ErrorOf([] { cFileReplacement file(u"/dev/full"_s); }), pathFileAccess);
        QVERIFY(QFileInfo::exists(u"/dev/full"_s));
    }

    void linksStayLinks()
    {
        Put(At("target"), "old");
        QVERIFY(QFile::link(u"target"_s, At("link")));
        Write(At("link"), "new");
        QVERIFY(QFileInfo(At("link")).isSymLink());
        QCOMPARE(Get(At("target")), QByteArray("new"));
        QVERIFY(QFile::link(u"round"_s, At("round")));
        QCOMPARE(ErrorOf([&] { cFileReplacement file(At("round")); }), pathFileAccess);
    }

    void permissionsStay()
    {
        Put(At("x"), "old");
        const auto permissions = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
        QVERIFY(QFile::setPermissions(At("x"), permissions));
        Write(At("x"), "new");
        QVERIFY(QFile::permissions(At("x")).testFlags(permissions));
        QVERIFY(!QFile::permissions(At("x")).testAnyFlags(QFile::ReadGroup | QFile::ReadOther));
    }

    void closedFilesAndFoldersAreErrors()
    {
        QVERIFY(QFile::setPermissions(folder->path(), QFile::Permissions(0x7777)));
        Put(At("x"), "old");
        QVERIFY(QFile::setPermissions(At("x"), QFile::ReadOwner | QFile::ReadOther));
        {
            const PlainUser user;
            QCOMPARE(ErrorOf([&] { cFileReplacement file(At("x")); }), pathFileAccess);
        }
        QVERIFY(QFile::setPermissions(folder->path(), QFile::Permissions(0x5555)));
        {
            const PlainUser user;
            QCOMPARE(ErrorOf([&] { cFileReplacement file(At("new")); }), pathFileAccess);
        }
        QVERIFY(QFile::setPermissions(folder->path(), QFile::Permissions(0x7777)));
        QCOMPARE(Entries(), QStringList{u"x"_s});
    }

    void aFullDiskIsReportedByTheEndAtTheLatest()
    {
        Put(At("x"), "old");
        const FileSizeLimit limit(1000);
        QCOMPARE(ErrorOf([&] {
                     cFileReplacement file(At("x"));
                     file.Write(std::vector<std::uint8_t>(1'000'000, 'a'));
                 }),
                 diskFull);
        QCOMPARE(ErrorOf([&] {
                     cFileReplacement file(At("x"));
                     for (int count = 0; count < 1010; ++count)
                         file.Write(Bytes("a"));
                     file.Finish();
                 }),
                 diskFull);
        QCOMPARE(Get(At("x")), QByteArray("old"));
        QCOMPARE(Entries().size(), 1);
    }
#endif
};

QTEST_GUILESS_MAIN(tst_cFileReplacement)
#include "tst_cFileReplacement.moc"
