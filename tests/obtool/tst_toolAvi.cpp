// SPDX-License-Identifier: GPL-3.0-or-later
// "obtool avi", as other programs call it.
#include "imagetools/avi/AviBench.h"

#include <QTest>

#include <memory>

using namespace ob;

namespace {

constexpr char WriteUsage[] = "usage: obtool avi write OUT [--fps N] [--codec NAME] FILE...";
const QString Tool = QStringLiteral(OB_BIN "/obtool");

struct Result {
    int status = -1;
    QByteArray out;
    QByteArray err;
};

Result Run(const QString& program, const QStringList& arguments, const char* limit = nullptr)
{
    QProcess process;
    if (limit == nullptr)
        process.start(program, arguments);
    else
        // A write beyond the limit is an error only where the signal is ignored.
        process.start(QStringLiteral("bash"),
                      QStringList{QStringLiteral("-c"),
                                  QStringLiteral("trap '' XFSZ; ulimit -f %1; exec \"$@\"").arg(QLatin1String(limit)),
                                  QStringLiteral("bash"), program} +
                          arguments);
    if (!process.waitForFinished(60'000) || process.exitStatus() != QProcess::NormalExit) {
        process.kill();
        process.waitForFinished();
        return {};
    }
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

Result Run(const char* line)
{
    QStringList arguments = QString::fromUtf8(line).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    arguments.replaceInStrings(QStringLiteral("''"), QString());
    return Run(Tool, arguments);
}

QByteArray Data(const char* name)
{
    return Get(QStringLiteral(OB_TEST_DATA "/avi/") + QString::fromLatin1(name));
}

QString Name(const char* name)
{
    return QString::fromLatin1(name);
}

} // namespace

class tst_toolAvi : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> folder;

    static QStringList Entries(const char* pattern)
    {
        return QDir().entryList({Name(pattern)}, QDir::Files | QDir::Hidden | QDir::System);
    }

private Q_SLOTS:
    void init()
    {
        folder = std::make_unique<QTemporaryDir>();
        QVERIFY(QDir::setCurrent(folder->path()));
        for (const char* name : {"color1.bmp", "color2.bmp", "color3.bmp", "table.bmp", "runs.bmp"})
            Put(Name(name), Data(name));
    }
    void cleanup()
    {
        QDir::setCurrent(QDir::rootPath());
        folder.reset();
    }

    void videosAreRightToTheByte_data()
    {
        QTest::addColumn<QByteArray>("arguments");
        QTest::addColumn<QByteArray>("expected");
        const auto row = [](const char* arguments, const char* expected) {
            QTest::newRow(arguments) << QByteArray(arguments) << QByteArray(expected);
        };
        row("--fps 12 color1.bmp color2.bmp color3.bmp", "color.avi");
        row("--codec none color1.bmp color2.bmp --fps 12.5 color3.bmp", "color.avi");
        row("table.bmp", "table.avi");
        row("--fps 1 table.bmp", "table.avi");
        row("--fps 0 table.bmp", "table.avi");
        row("--fps -7 table.bmp", "table.avi");
        row("--fps words table.bmp", "table.avi");
        row("--fps '' table.bmp", "table.avi");
        row("--fps 45 runs.bmp runs.bmp", "runs.avi");
    }
    void videosAreRightToTheByte()
    {
        QFETCH(QByteArray, arguments);
        QFETCH(QByteArray, expected);
        Put(Name("out.avi"), "old");
        const Result result = Run("avi write out.avi " + arguments);
        QCOMPARE(result.err, QByteArray());
        QCOMPARE(result.out, QByteArray());
        QCOMPARE(result.status, 0);
        QCOMPARE(Get(Name("out.avi")).toHex(), Data(expected.constData()).toHex());
        QCOMPARE(Entries("*.tmp"), QStringList());
    }

    void filesThatDoNotFitAreNotesAndTheRestGoesOn()
    {
        Put(Name("text.bmp"), "text");
        Put(Name("[a,b].bmp"), Data("color3.bmp"));
        Put(Name("noSize.bmp"), Data("color1.bmp").replace(34, 4, QByteArray(4, '\0')));
        const Result result = Run("avi write out.avi --fps 12 gone.bmp color1.bmp table.bmp text.bmp color2.bmp "
                                  "noSize.bmp [a,b].bmp");
        QCOMPARE(result.err, QByteArray("obtool: note: File does not exist: gone.bmp\n"
                                        "obtool: note: Chosen bitmap file is a different format!\n"
                                        "obtool: note: File is not a supported bitmap format: text.bmp\n"
                                        "obtool: note: noSize.bmp: Subscript out of range\n"));
        QCOMPARE(result.status, 0);
        QVERIFY(Get(Name("out.avi")) == Data("color.avi"));
    }

    void withNoneLeftItIsAFailure()
    {
        const Result result = Run("avi write out.avi gone.bmp");
        QCOMPARE(result.err, QByteArray("obtool: note: File does not exist: gone.bmp\n"
                                        "obtool: out.avi: There is no bitmap to make a video of.\n"));
        QCOMPARE(result.status, 1);
        QCOMPARE(Entries("*.avi"), QStringList());
    }

    void wrongUsageIsTold()
    {
        for (const char* line : {"avi write", "avi write out.avi", "avi write out.avi --fps",
                                 "avi write out.avi "
                                 "--speed 3 table.bmp"}) {
            const Result result = Run(line);
            QCOMPARE(result.status, 2);
            QVERIFY2(result.err.endsWith(QByteArray("\n") + WriteUsage + '\n'), result.err.constData());
        }
        QCOMPARE(Run("avi codecs extra").status, 2);
        QCOMPARE(Run("avi").status, 2);
        const Result help = Run("avi write --help");
        QCOMPARE(help.status, 0);
        QVERIFY(help.out.contains(WriteUsage));
        QCOMPARE(Entries("*.avi"), QStringList());
    }

    void placesThatCannotBeWrittenAreFailures()
    {
        const Result result = Run("avi write gone/out.avi table.bmp");
        QCOMPARE(result.err, QByteArray("obtool: gone/out.avi: There was an error writing the file. Path not found\n"));
        QCOMPARE(result.status, 1);
        QCOMPARE(Run("avi write . table.bmp").status, 1);
    }

#ifdef Q_OS_UNIX
    void aFullDiskLeavesNoFile()
    {
        for (int frame = 0; frame < 4; ++frame)
            Put(Name("%1.bmp").arg(frame), NoiseBitmap({.height = 20, .width = 100}, 1));
        const QStringList arguments = {Name("avi"),   Name("write"), Name("out.avi"), Name("0.bmp"),
                                       Name("1.bmp"), Name("2.bmp"), Name("3.bmp")};
        const Result result = Run(Tool, arguments, "16");
        QCOMPARE(result.err, QByteArray("obtool: out.avi: There was an error writing the file. Disk full\n"));
        QCOMPARE(result.status, 1);
        QCOMPARE(Entries("*.avi") + Entries("*.tmp"), QStringList());
        Put(Name("out.avi"), "old");
        QCOMPARE(Run(Tool, arguments, "16").status, 1);
        QCOMPARE(Get(Name("out.avi")), QByteArray("old"));
        QCOMPARE(Run(Tool, arguments, "64").status, 0);
        QCOMPARE(Run("avi write /dev/full 0.bmp").status, 1);
    }
#endif

    void compressorsAreListedAndUsed()
    {
        const Result list = Run("avi codecs");
        QCOMPARE(list.status, 0);
        QCOMPARE(list.err, QByteArray());
        const QByteArrayList lines = list.out.chopped(1).split('\n');
        QVERIFY(lines.first().startsWith("none\tUncompressed"));
        for (const QByteArray& line : lines) {
            QCOMPARE(line.count('\t'), 1);
            const QByteArray name = line.split('\t').first();
            for (int frame = 0; frame < 3; ++frame)
                Put(Name("%1.bmp").arg(frame), NoiseBitmap({.height = 32, .width = 48}, static_cast<unsigned>(frame)));
            const Result result = Run("avi write out.avi --codec " + name + " 0.bmp 1.bmp 2.bmp");
            QCOMPARE(result.err, QByteArray());
            QCOMPARE(result.status, 0);
            QCOMPARE(Probed(Name("out.avi"), "stream=codec_name,nb_frames"),
                     (name == "none" ? QByteArray("rawvideo") : name) + ",3");
        }
    }

    void codecsThatCannotBeUsedAreFailures()
    {
        Result result = Run("avi write out.avi --codec nosuch table.bmp");
        QCOMPARE(result.err, QByteArray("obtool: out.avi: There is no codec \"nosuch\" here.\n"));
        QCOMPARE(result.status, 1);
        result = Run("avi write out.avi --codec cinepak table.bmp");
        QCOMPARE(result.err, QByteArray("obtool: out.avi: Cinepak needs a width and a height that are multiples of 4. "
                                        "These pictures have 5 x 2 pixels.\n"));
        QCOMPARE(result.status, 1);
        QCOMPARE(Entries("*.avi"), QStringList());
    }

    void withoutThePluginUncompressedVideosStillWork()
    {
        QVERIFY(QFile::copy(Tool, Name("obtool")));
        const QString tool = folder->filePath(Name("obtool"));
        Result result = Run(tool, {Name("avi"), Name("write"), Name("out.avi"), Name("table.bmp")});
        QCOMPARE(result.err, QByteArray());
        QVERIFY(Get(Name("out.avi")) == Data("table.avi"));
        result = Run(tool, {Name("avi"), Name("codecs")});
        QCOMPARE(result.status, 0);
        QCOMPARE(result.out.count('\n'), 1);
        QVERIFY(result.err.startsWith("obtool: note: The compressors are missing: "));
        result =
            Run(tool, {Name("avi"), Name("write"), Name("x.avi"), Name("--codec"), Name("png"), Name("table.bmp")});
        QCOMPARE(result.status, 1);
        QVERIFY(result.err.startsWith("obtool: x.avi: The compressors are missing: "));
        QCOMPARE(Entries("x.avi"), QStringList());
    }
};

QTEST_GUILESS_MAIN(tst_toolAvi)
#include "tst_toolAvi.moc"
