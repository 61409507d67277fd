// SPDX-License-Identifier: GPL-3.0-or-later
// Files read by ranges: every range, a change while the file is open, and what cannot be opened.
#include "platform/files/cFileSource.h"

#include "platform/files/FileTrouble.h"
#include "platform/files/modByteViews.h"

#include <QTemporaryDir>

#include <array>
#include <random>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

using namespace Qt::StringLiterals;

using namespace ob;

class tst_cFileSource : public QObject {
    Q_OBJECT

    QTemporaryDir folder;
    QByteArray content;

    QString Path() const { return folder.filePath(u"file"_s); }
    static QByteArray Range(const cFileSource& source, std::uint64_t offset, std::uint64_t size)
    {
        return QtViewOf(source.Bytes({offset, size})).toByteArray();
    }

private Q_SLOTS:
    void init()
    {
        std::mt19937 random(1);
        content.clear();
        for (int place = 0; place < 100'000; ++place)
            content.append(static_cast<char>(random()));
        Put(Path(), content);
    }

    void everyRangeIsRead()
    {
        const cFileSource source(Path());
        QCOMPARE(source.Size(), static_cast<std::uint64_t>(content.size()));
        std::mt19937 random(2);
        for (int count = 0; count < 2'000; ++count) {
            const qsizetype offset = static_cast<qsizetype>(random()) % content.size();
            const qsizetype size = static_cast<qsizetype>(random()) % (count % 2 == 0 ? 40 : content.size());
            const QByteArray expected = content.mid(offset, size);
            QCOMPARE(Range(source, static_cast<std::uint64_t>(offset), static_cast<std::uint64_t>(expected.size())),
                     expected);
            std::vector<std::uint8_t> buffer;
            const ByteRange range = {static_cast<std::uint64_t>(offset), static_cast<std::uint64_t>(expected.size())};
            QCOMPARE(QtViewOf(source.Look(range, buffer)), QByteArrayView(expected));
        }
    }

    void placesThatShareABlockOfTheCacheAreKeptApart()
    {
        constexpr qint64 far = 8192 * 256;
        QFile file(Path());
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.seek(far) && file.write("far") == 3);
        file.close();
        const cFileSource source(Path());
        for (int turn = 0; turn < 3; ++turn) {
            QCOMPARE(Range(source, 0, 3), content.first(3));
            QCOMPARE(Range(source, far, 3), QByteArray("far"));
        }
    }

    void aFileThatIsShortenedMeanwhileRaises()
    {
        const cFileSource source(Path());
        QCOMPARE(Range(source, 0, 10), content.first(10));
        QVERIFY(QFile::resize(Path(), 50'000));
        QCOMPARE(ErrorOf([&] { source.Bytes({49'990, 20}); }), int(deviceIoError));
        QCOMPARE(ErrorOf([&] { source.Bytes({99'000, 20}); }), int(deviceIoError));
        QCOMPARE(ErrorOf([&] { source.Bytes(source.All()); }), int(deviceIoError));
        QCOMPARE(source.Size(), std::uint64_t{100'000});
        QVERIFY(QFile::resize(Path(), 0));
        QCOMPARE(ErrorOf([&] { source.Bytes({20'000, 1}); }), int(deviceIoError));
    }

    void aFailedReadIsForgotten()
    {
        const cFileSource source(Path());
        QVERIFY(QFile::resize(Path(), 0));
        QCOMPARE(ErrorOf([&] { source.Bytes({5, 1}); }), int(deviceIoError));
        Put(Path(), content);
        QCOMPARE(Range(source, 5, 1), content.mid(5, 1));
    }

    void whatIsNoFileIsNotOpened()
    {
        QCOMPARE(ErrorOf([&] { cFileSource(folder.filePath(u"gone"_s)); }), int(fileNotFound));
        QCOMPARE(ErrorOf([&] { cFileSource(folder.path()); }), int(fileNotFound));
        QCOMPARE(ErrorOf([&] { cFileSource({}); }), int(fileNotFound));
#ifdef Q_OS_UNIX
        const QString pipe = folder.filePath(u"pipe"_s);
        QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        QCOMPARE(ErrorOf([&] { cFileSource{pipe}; }), int(pathFileAccess));
#endif
    }

    void piecesKeepTheirOrderInBothKindsOfViews()
    {
        const std::array<std::uint8_t, 3> bytes = {'a', 'b', 'c'};
        const std::array<ByteView, 3> pieces = {ByteView(bytes).first(2), ByteView(), ByteView(bytes)};
        const std::vector<QByteArrayView> views = QtViewsOf(pieces);
        QCOMPARE(views.size(), std::size_t{3});
        QCOMPARE(views[0], QByteArrayView("ab"));
        QVERIFY(views[1].isEmpty());
        QCOMPARE(views[2], QByteArrayView("abc"));
        QCOMPARE(ByteViewOf(views[2]).data(), bytes.data());
    }
};

QTEST_GUILESS_MAIN(tst_cFileSource)
#include "tst_cFileSource.moc"
