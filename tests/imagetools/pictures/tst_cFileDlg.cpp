// SPDX-License-Identifier: GPL-3.0-or-later
// The file boxes as a record: what the box is given, and what it returns.
#include "imagetools/pictures/cFileDlg.h"

#include "support/ScriptedDialogs.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

using namespace ob;

class tst_cFileDlg : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<ScriptedDialogs> boxes;

    QString Made(const char* name) const
    {
        const QString path = folder->filePath(QString::fromLatin1(name));
        QFile file(path);
        return file.open(QIODevice::WriteOnly) ? path : QString();
    }
    QString At(const char* name) const { return folder->filePath(QString::fromLatin1(name)); }

private Q_SLOTS:
    void init()
    {
        folder = std::make_unique<QTemporaryDir>();
        boxes = std::make_unique<ScriptedDialogs>();
    }
    void cleanup()
    {
        QVERIFY(boxes->Finished());
        boxes.reset();
        QDir::setCurrent(QDir::rootPath());
        folder.reset();
    }

    void theMembersAreTheFlags()
    {
        cFileDlg dialog;
        QCOMPARE(dialog.AllFlags(), 0U);
        dialog.Flags = 0x80000;
        dialog.ReadOnly = true;
        QCOMPARE(dialog.AllFlags(), 0x80001U);
        dialog.OverwritePrompt = dialog.HideReadOnly = dialog.MultiSelect = dialog.FileMustExist = true;
        QCOMPARE(dialog.AllFlags(), 0x81207U);
    }

    void bothSeparatorsSplitTheFilter_data()
    {
        QTest::addColumn<QString>("filter");
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("shown");
        const QString all = u"B|*.bmp|D|*.dib|A|*.*"_s;
        QTest::newRow("colons") << u"B:*.bmp:D:*.dib:A:*.*"_s << 1 << all;
        QTest::newRow("lines") << all << 0 << all;
        QTest::newRow("both") << u"B|*.bmp:D|*.dib:A|*.*"_s << 1 << all;
        QTest::newRow("the second first") << all << 2 << u"D|*.dib|B|*.bmp|A|*.*"_s;
        QTest::newRow("the last first") << all << 3 << u"A|*.*|B|*.bmp|D|*.dib"_s;
        QTest::newRow("one that is not there") << all << 4 << all;
    }
    void bothSeparatorsSplitTheFilter()
    {
        QFETCH(QString, filter);
        QFETCH(int, index);
        QFETCH(QString, shown);
        cFileDlg dialog;
        dialog.DlgTitle = u"Choose"_s;
        dialog.Filter = filter;
        dialog.FilterIndex = index;
        const QString path = Made("a.bmp");
        boxes->ExpectFile(FilePurpose::Open, u"Choose"_s, shown, path);
        QString name;
        QVERIFY(dialog.VBGetOpenFileName(name));
        QCOMPARE(name, path);
    }

    void cancelLeavesTheName()
    {
        cFileDlg dialog;
        boxes->ExpectFile(FilePurpose::Open, {}, {}, {});
        boxes->ExpectFile(FilePurpose::Open, {}, {}, {});
        boxes->ExpectFile(FilePurpose::Save, {}, {}, {});
        QString name = u"before"_s;
        QVERIFY(!dialog.VBGetOpenFileName(name));
        QVERIFY(!dialog.VBGetOpenFileNamePreview(name));
        QVERIFY(!dialog.VBGetSaveFileName(name));
        QCOMPARE(name, u"before"_s);
    }

    void aMissingFileIsRejectedOnlyWhereItMustExist()
    {
        cFileDlg dialog;
        QString name;
        boxes->ExpectFile(FilePurpose::Open, {}, {}, At("gone.bmp"));
        QVERIFY(dialog.VBGetOpenFileName(name));
        dialog.FileMustExist = true;
        boxes->ExpectFile(FilePurpose::Open, {}, {}, At("gone.bmp"));
        QVERIFY(!dialog.VBGetOpenFileName(name));
    }

    void severalFilesCanBeChosen()
    {
        cFileDlg dialog;
        const QStringList files = {Made("a.bmp"), Made("b.bmp"), At("gone.bmp")};
        dialog.MultiSelect = true;
        boxes->ExpectFiles({}, {}, files);
        QCOMPARE(dialog.VBGetOpenFileNames(), files);
        dialog.FileMustExist = true;
        boxes->ExpectFiles({}, {}, files);
        QCOMPARE(dialog.VBGetOpenFileNames(), files.first(2));
        boxes->ExpectFiles({}, {}, {});
        QCOMPARE(dialog.VBGetOpenFileNames(), QStringList());
        dialog.MultiSelect = false;
        boxes->ExpectFile(FilePurpose::Open, {}, {}, files[1]);
        QCOMPARE(dialog.VBGetOpenFileNames(), QStringList(files[1]));
    }

    void aNameThatIsTooLongForTheRecordCountsAsCancel()
    {
        cFileDlg dialog;
        QString name;
        const QString longest = u'/' + QString(1022, u'a');
        boxes->ExpectFile(FilePurpose::Save, {}, {}, longest);
        QVERIFY(dialog.VBGetSaveFileName(name));
        QCOMPARE(name, longest);
        boxes->ExpectFile(FilePurpose::Save, {}, {}, longest + u'a');
        QVERIFY(!dialog.VBGetSaveFileName(name));
    }

    void theEndingIsAddedToANameWithoutOne()
    {
        cFileDlg dialog;
        dialog.DefaultExt = u"avi"_s;
        QString name;
        boxes->ExpectFile(FilePurpose::Save, {}, {}, At("film"));
        QVERIFY(dialog.VBGetSaveFileName(name));
        QCOMPARE(name, At("film.avi"));
        boxes->ExpectFile(FilePurpose::Save, {}, {}, At("film.mov"));
        QVERIFY(dialog.VBGetSaveFileName(name));
        QCOMPARE(name, At("film.mov"));
    }

    void anOldFileUnderTheNameWithItsEndingIsAskedFor()
    {
        cFileDlg dialog;
        dialog.DefaultExt = u"avi"_s;
        const QString question = u"%1 already exists.\nDo you want to replace it?"_s.arg(Made("film.avi"));
        for (const BoxAnswer answer : {BoxAnswer::Yes, BoxAnswer::No}) {
            QString name = u"before"_s;
            boxes->ExpectFile(FilePurpose::Save, {}, {}, At("film"));
            boxes->ExpectMessage(question, answer, BoxIcon::Question, BoxButtons::YesNo);
            QCOMPARE(dialog.VBGetSaveFileName(name), answer == BoxAnswer::Yes);
            QCOMPARE(name, answer == BoxAnswer::Yes ? At("film.avi") : u"before"_s);
        }
    }

    void filesAreFoundAndNamed()
    {
        QVERIFY(cFileDlg::ExistFile(Made("a.bmp")));
        QVERIFY(!cFileDlg::ExistFile(At("gone.bmp")));
        QVERIFY(!cFileDlg::ExistFile(folder->path()));
        QCOMPARE(cFileDlg::VBGetFileTitle(At("a.bmp")), u"a.bmp"_s);
    }
};

QTEST_GUILESS_MAIN(tst_cFileDlg)
#include "tst_cFileDlg.moc"
