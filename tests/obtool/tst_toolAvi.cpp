// SPDX-License-Identifier: GPL-3.0-or-later
// "obtool avi" as a process.
#include "obtool/RunObtool.h"

#include "imagetools/avi/AviBench.h"

#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

constexpr char WriteUsage[] = "usage: obtool avi write OUT [--fps N] [--codec NAME] FILE...";

Outcome Run(const char* line)
{
    QStringList arguments = WordsOf(line);
    arguments.replaceInStrings(u"''"_s, QString());
    return RunObtool(arguments);
}

QByteArray Data(const char* name)
{
    return Get(u"" OB_TEST_DATA "/avi/"_s + QString::fromLatin1(name));
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
        const Outcome result = Run("avi write out.avi " + arguments);
        QCOMPARE(result.error, QByteArray());
        QCOMPARE(result.out, QByteArray());
        QCOMPARE(result.status, 0);
        QCOMPARE(Get(Name("out.avi")).toHex(), Data(expected.constData()).toHex());
        QCOMPARE(Entries("*.tmp"), QStringList());
    }

    void filesThatDoNotFitAreNotesAndTheOthersAreWritten()
    {
        Put(Name("text.bmp"), "text");
        Put(Name("[a,b].bmp"), Data("color3.bmp"));
        Put(Name("noSize.bmp"), Data("color1.bmp").replace(34, 4, QByteArray(4, '\0')));
        const Outcome result = Run("avi write out.avi --fps 12 gone.bmp color1.bmp table.bmp text.bmp color2.bmp "
                                   "noSize.bmp [a,b].bmp");
        QCOMPARE(result.error, QByteArray("obtool: note: File does not exist: gone.bmp\n"
                                          "obtool: note: table.bmp: Chosen bitmap file is a different format!\n"
                                          "obtool: note: File is not a supported bitmap format: text.bmp\n"
                                          "obtool: note: noSize.bmp: Subscript out of range\n"));
        QCOMPARE(result.status, 0);
        QVERIFY(Get(Name("out.avi")) == Data("color.avi"));
    }

    void withNoneLeftItIsAFailure()
    {
        const Outcome result = Run("avi write out.avi gone.bmp");
        QCOMPARE(result.error, QByteArray("obtool: note: File does not exist: gone.bmp\n"
                                          "obtool: out.avi: There is no bitmap to make a video of.\n"));
        QCOMPARE(result.status, 1);
        QCOMPARE(Entries("*.avi"), QStringList());
    }

    void wrongUsageIsReported()
    {
        for (const char* line : {"avi write", "avi write out.avi", "avi write out.avi --fps",
                                 "avi write out.avi "
                                 "--speed 3 table.bmp"}) {
            const Outcome result = Run(line);
            QCOMPARE(result.status, 2);
            QVERIFY2(result.error.endsWith(QByteArray("\n") + WriteUsage + '\n'), result.error.constData());
        }
        QCOMPARE(Run("avi codecs extra").status, 2);
        QCOMPARE(Run("avi").status, 2);
        const Outcome help = Run("avi write --help");
        QCOMPARE(help.status, 0);
        QVERIFY(help.out.contains(WriteUsage));
        QCOMPARE(Entries("*.avi"), QStringList());
    }

    void placesThatCannotBeWrittenAreFailures()
    {
        const Outcome result = Run("avi write gone/out.avi table.bmp");
        QCOMPARE(result.error,
                 QByteArray("obtool: gone/out.avi: There was an error writing the file. Path not found\n"));
        QCOMPARE(result.status, 1);
        QCOMPARE(Run("avi write . table.bmp").status, 1);
    }

#ifdef Q_OS_UNIX
    void aFullDiskLeavesNoFile()
    {
        for (int frame = 0; frame < 4; ++frame)
            Put(Name("%1.bmp").arg(frame), NoiseBitmap({.height = 20, .width = 100}, 1));
        // A write beyond the limit is an error only if the signal is ignored.
        const auto runWithin = [](const char* setup) {
            Surroundings surroundings;
            surroundings.setup = setup;
            return RunObtool(WordsOf("avi write out.avi 0.bmp 1.bmp 2.bmp 3.bmp"), surroundings);
        };
        constexpr char small[] = "trap '' XFSZ; ulimit -f 32"; // in blocks of 512 bytes
        constexpr char large[] = "trap '' XFSZ; ulimit -f 128";
        const Outcome result = runWithin(small);
        QCOMPARE(result.error, QByteArray("obtool: out.avi: There was an error writing the file. Disk full\n"));
        QCOMPARE(result.status, 1);
        QCOMPARE(Entries("*.avi") + Entries("*.tmp"), QStringList());
        Put(Name("out.avi"), "old");
        QCOMPARE(runWithin(small).status, 1);
        QCOMPARE(Get(Name("out.avi")), QByteArray("old"));
        QCOMPARE(runWithin(large).status, 0);
        QCOMPARE(Run("avi write /dev/full 0.bmp").status, 1);
    }
#endif

    void compressorsAreListedAndUsed()
    {
        const Outcome list = Run("avi codecs");
        QCOMPARE(list.status, 0);
        QCOMPARE(list.error, QByteArray());
        const QByteArrayList lines = list.out.chopped(1).split('\n');
        QVERIFY(lines.first().startsWith("none\tUncompressed"));
        for (const QByteArray& line : lines) {
            QCOMPARE(line.count('\t'), 1);
            const QByteArray name = line.split('\t').first();
            for (int frame = 0; frame < 3; ++frame)
                Put(Name("%1.bmp").arg(frame), NoiseBitmap({.height = 32, .width = 48}, static_cast<unsigned>(frame)));
            const Outcome result = Run("avi write out.avi --codec " + name + " 0.bmp 1.bmp 2.bmp");
            QCOMPARE(result.error, QByteArray());
            QCOMPARE(result.status, 0);
            QCOMPARE(Probed(Name("out.avi"), "stream=codec_name,nb_frames"),
                     (name == "none" ? QByteArray("rawvideo") : name) + ",3");
        }
    }

    void codecsThatCannotBeUsedAreFailures()
    {
        Outcome result = Run("avi write out.avi --codec nosuch table.bmp");
        QCOMPARE(result.error, QByteArray("obtool: out.avi: There is no codec \"nosuch\" here.\n"));
        QCOMPARE(result.status, 1);
        result = Run("avi write out.avi --codec cinepak table.bmp");
        QCOMPARE(result.error,
                 QByteArray("obtool: out.avi: Cinepak needs a width and a height that are multiples of 4. "
                            "These pictures have 5 x 2 pixels.\n"));
        QCOMPARE(result.status, 1);
        QCOMPARE(Entries("*.avi"), QStringList());
    }

    void withoutThePluginUncompressedVideosStillWork()
    {
        QVERIFY(QFile::copy(Obtool, Name("obtool")));
        QVERIFY(QFile::copy(u"" OB_BIN "/ToolPicturesOB.so"_s, Name("ToolPicturesOB.so")));
        Surroundings alone;
        alone.program = folder->filePath(Name("obtool"));
        Outcome result = RunObtool(WordsOf("avi write out.avi table.bmp"), alone);
        QCOMPARE(result.error, QByteArray());
        QVERIFY(Get(Name("out.avi")) == Data("table.avi"));
        result = RunObtool(WordsOf("avi codecs"), alone);
        QCOMPARE(result.status, 0);
        QCOMPARE(result.out.count('\n'), 1);
        QVERIFY(result.error.startsWith("obtool: note: The compressors are missing: "));
        result = RunObtool(WordsOf("avi write x.avi --codec png table.bmp"), alone);
        QCOMPARE(result.status, 1);
        QVERIFY(result.error.startsWith("obtool: x.avi: The compressors are missing: "));
        QCOMPARE(Entries("x.avi"), QStringList());
    }
};

QTEST_GUILESS_MAIN(tst_toolAvi)
#include "tst_toolAvi.moc"
