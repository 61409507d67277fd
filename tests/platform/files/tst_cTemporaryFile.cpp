// SPDX-License-Identifier: GPL-3.0-or-later
// A file's way to its name: the temporary file, the disk, the rename, and what is kept of the old file.
#include "platform/files/cTemporaryFile.h"

#include "platform/files/FileTrouble.h"
#include "platform/files/cFileReplacement.h"
#include "platform/files/modFiles.h"
#include "platform/files/modNativePath.h"

#include <QDir>
#include <QTemporaryDir>

#include <memory>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#endif
#ifdef Q_OS_LINUX
#include <sys/xattr.h>
#endif

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

// Within its life the disk answers what the test says.
class FakeDisk {
public:
    explicit FakeDisk(std::function<std::error_code(SyncStep)> disk) { SetDisk(std::move(disk)); }
    ~FakeDisk() { SetDisk({}); }
    FakeDisk(const FakeDisk&) = delete;
    FakeDisk& operator=(const FakeDisk&) = delete;
};

std::function<std::error_code(SyncStep)> FailingAt(SyncStep step)
{
    return [step](SyncStep asked) {
        return asked == step ? std::error_code(EIO, std::system_category()) : std::error_code();
    };
}

QString ReasonOf(const std::function<void()>& work)
{
    try {
        work();
    } catch (const RuntimeError& error) {
        return error.reason;
    }
    return u"no error"_s;
}

} // namespace

class tst_cTemporaryFile : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> folder;

    QString At(const char* name) const { return folder->filePath(QString::fromLatin1(name)); }
    QStringList Entries() const
    {
        return QDir(folder->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

private Q_SLOTS:
    void init() { folder = std::make_unique<QTemporaryDir>(); }
    void cleanup() { folder.reset(); }

    void aNewFileIsNeverOneThatIsThere()
    {
        Put(At("taken"), "old");
        cSystemFile file;
        QVERIFY(TroubleOf(file.Open(NativePath(At("taken")), Opening::New)) == FileTrouble::Exists);
        QCOMPARE(Get(At("taken")), QByteArray("old"));
        const cTemporaryFile temporary(NativePath(At("x")), At("x"));
        QVERIFY(TroubleOf(file.Open(temporary.Path(), Opening::New)) == FileTrouble::Exists);
    }

#ifdef Q_OS_UNIX
    void aNewFileIsNotMadeThroughALink()
    {
        QVERIFY(QFile::link(At("elsewhere"), At("link")));
        cSystemFile file;
        QVERIFY(TroubleOf(file.Open(NativePath(At("link")), Opening::New)) == FileTrouble::Exists);
        QVERIFY(!QFile::exists(At("elsewhere")));
    }
#endif

    void theBytesReachTheDiskBeforeTheNameAndTheNameAfter()
    {
        Put(At("x"), "old");
        QStringList steps;
        const FakeDisk disk([&](SyncStep step) {
            steps += (step == SyncStep::Bytes ? u"bytes, file is "_s : u"names, file is "_s) +
                     QString::fromLatin1(Get(At("x")));
            return std::error_code();
        });
        ReplaceFile(At("x"), "new");
        QCOMPARE(steps, (QStringList{u"bytes, file is old"_s, u"names, file is new"_s}));
    }

    void whatCanBeMadeAgainDoesNotWaitForTheDisk()
    {
        int steps = 0;
        const FakeDisk disk([&](SyncStep) {
            ++steps;
            return std::error_code();
        });
        ReplaceFile(At("x"), "new", Durability::Unsynced);
        AppendToFile(At("x"), "er", Durability::Unsynced);
        WriteKeepingTail(At("x"), "N", Durability::Unsynced);
        QCOMPARE(steps, 0);
        QCOMPARE(Get(At("x")), QByteArray("Newer\r\n"));
        AppendToFile(At("x"), "est");
        QCOMPARE(steps, 1);
    }

    void aDiskThatLosesTheBytesLeavesTheOldFile()
    {
        Put(At("x"), "old");
        const FakeDisk disk(FailingAt(SyncStep::Bytes));
        QCOMPARE(ErrorOf([&] { ReplaceFile(At("x"), "new"); }), deviceIoError);
        QCOMPARE(ErrorOf([&] { ReplaceFile(At("y"), "new"); }), deviceIoError);
        QCOMPARE(ErrorOf([&] { AppendToFile(At("x"), "new"); }), deviceIoError);
        QCOMPARE(ErrorOf([&] { AppendToFile(At("y"), "new"); }), deviceIoError);
        QCOMPARE(ReasonOf([&] { ReplaceFile(At("x"), "new"); }), u"Input/output error"_s);
        QCOMPARE(Get(At("x")), QByteArray("old"));
        QCOMPARE(Entries(), QStringList{u"x"_s});
    }

    void aDiskThatLosesTheNameIsAnErrorToo()
    {
        Put(At("x"), "old");
        const FakeDisk disk(FailingAt(SyncStep::Names));
        QCOMPARE(ErrorOf([&] { ReplaceFile(At("x"), "new"); }), deviceIoError);
        QCOMPARE(Get(At("x")), QByteArray("new"));
        QCOMPARE(Entries(), QStringList{u"x"_s});
    }

#ifdef Q_OS_UNIX
    void aFileThatIsWrittenInPlaceGetsItsOldBytesBack()
    {
        Put(At("x"), "old");
        QVERIFY(QFile::setPermissions(At("x"), QFile::Permissions(0x6666)));
        QVERIFY(QFile::setPermissions(folder->path(), QFile::Permissions(0x5555)));
        {
            const PlainUser user;
            const FakeDisk disk(FailingAt(SyncStep::Bytes));
            QCOMPARE(ErrorOf([&] { ReplaceFile(At("x"), "a longer new one"); }), deviceIoError);
            QCOMPARE(Get(At("x")), QByteArray("old"));
            QCOMPARE(ErrorOf([&] { ReplaceFile(At("x"), "n"); }), deviceIoError);
            QCOMPARE(Get(At("x")), QByteArray("old"));
            ReplaceFile(At("x"), "n", Durability::Unsynced);
        }
        QVERIFY(QFile::setPermissions(folder->path(), QFile::Permissions(0x7777)));
        QCOMPARE(Get(At("x")), QByteArray("n"));
    }

    void theReasonIsTheSystemsText()
    {
        QCOMPARE(ReasonOf([&] { ReplaceFile(At("gone/x"), "new"); }), u"No such file or directory"_s);
        QCOMPARE(ReasonOf([&] { ReplaceFile(folder->path(), "new"); }), u"Is a directory"_s);
        {
            const FileSizeLimit limit(10'000);
            QCOMPARE(ReasonOf([&] { ReplaceFile(At("x"), QByteArray(20'000, 'n')); }), u"File too large"_s);
        }
        QVERIFY(QFile::setPermissions(folder->path(), QFile::Permissions(0x5555)));
        {
            const PlainUser user;
            QCOMPARE(ReasonOf([&] { ReplaceFile(At("x"), "new"); }), u"Permission denied"_s);
        }
        QVERIFY(QFile::setPermissions(folder->path(), QFile::Permissions(0x7777)));
    }
#endif

#ifdef Q_OS_LINUX
    void aFullDeviceSaysSo()
    {
        const QString full = u"No space left on device"_s;
        QCOMPARE(ReasonOf([] { ReplaceFile(u"/dev/full"_s, "x"); }), full);
        QCOMPARE(ReasonOf([] { AppendToFile(u"/dev/full"_s, "x"); }), full);
    }

    void aPrivateFileIsNeverReadableByOthers()
    {
#ifdef Q_OS_UNIX
        Put(At("private"), "old");
        QVERIFY(QFile::setPermissions(At("private"), QFile::ReadOwner | QFile::WriteOwner));
        cFileReplacement file(At("private"));
        const QStringList temporary = Entries().filter(u".tmp"_s);
        QCOMPARE(temporary.size(), 1);
        constexpr QFile::Permissions others =
            QFile::ReadGroup | QFile::ReadOther | QFile::WriteGroup | QFile::WriteOther;
        QVERIFY((QFile::permissions(folder->filePath(temporary[0])) & others) == 0);
        file.Finish();
        QVERIFY((QFile::permissions(At("private")) & others) == 0);
#else
        QSKIP("has no such permissions");
#endif
    }

    void theRightToRunAsTheOwnerIsDropped()
    {
#ifdef Q_OS_UNIX
        Put(At("tool"), "old");
        QCOMPARE(::chmod(qPrintable(At("tool")), 06755), 0);
        ReplaceFile(At("tool"), "new");
        struct stat status = {};
        QCOMPARE(::stat(qPrintable(At("tool")), &status), 0);
        QCOMPARE(status.st_mode & 07777, mode_t{0755});
#else
        QSKIP("has no such rights");
#endif
    }

    void whatAKilledProgramLeftIsRemovedByTheNextSave()
    {
#ifdef Q_OS_UNIX
        Put(At(".ob-123.tmp"), "left");
        QVERIFY(QDir(folder->path()).mkpath(u".ob-456.tmp/Package"_s));
        Put(At(".ob-456.tmp/Package/a"), "left");
        Put(At(".other-1.tmp"), "another program's");
        const cFileReplacement living(At("one"));
        ReplaceFile(At("two"), "new");
        const QStringList left = Entries();
        QVERIFY(!left.contains(u".ob-123.tmp"_s));
        QVERIFY(!left.contains(u".ob-456.tmp"_s));
        QVERIFY(left.contains(u".other-1.tmp"_s));
        // The one whose owner lives is still there.
        QCOMPARE(left.filter(u".ob-"_s).size(), 1);
#else
        QSKIP("what is left stays");
#endif
    }

    void aLivingOwnersFileIsKept()
    {
#ifdef Q_OS_UNIX
        cFileReplacement living(At("one"));
        const int child = ::fork();
        if (child == 0) {
            RemoveAbandoned((folder->path() + u"/."_s).toStdString());
            ::_exit(0);
        }
        QCOMPARE(::waitpid(child, nullptr, 0), child);
        living.Finish();
        QCOMPARE(Entries(), QStringList(u"one"_s));
#else
        QSKIP("has no such locks");
#endif
    }

    void aSignalRemovesTheTemporaryFile()
    {
#ifdef Q_OS_UNIX
        for (const int signal : {SIGINT, SIGTERM}) {
            const int child = ::fork();
            if (child == 0) {
                RemoveMarkedOnSignals();
                const cFileReplacement file(At("one"));
                std::raise(signal);
                ::_exit(0);
            }
            int status = 0;
            QCOMPARE(::waitpid(child, &status, 0), child);
            QVERIFY(WIFSIGNALED(status) && WTERMSIG(status) == signal);
            QCOMPARE(Entries(), QStringList());
        }
#else
        QSKIP("has no such signals");
#endif
    }

    void extendedAttributesStay()
    {
        Put(At("x"), "old");
        const QByteArray path = QFile::encodeName(At("x"));
        if (setxattr(path.constData(), "user.origin", "here", 4, 0) != 0)
            QSKIP("the disk has no extended attributes");
        ReplaceFile(At("x"), "new");
        char value[16] = {};
        QCOMPARE(getxattr(path.constData(), "user.origin", value, sizeof value), ssize_t{4});
        QCOMPARE(QByteArray(value), QByteArray("here"));
        QCOMPARE(Get(At("x")), QByteArray("new"));
    }
#endif
};

QTEST_GUILESS_MAIN(tst_cTemporaryFile)
#include "tst_cTemporaryFile.moc"
