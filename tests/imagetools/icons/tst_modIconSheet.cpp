// SPDX-License-Identifier: GPL-3.0-or-later
// What the icon editor works on: undo, and what counts as a change to be saved.
#include "imagetools/icons/modIcon.h"

#include <QTest>

using namespace ob;

namespace {

Icon Numbered(std::size_t number)
{
    Icon icon;
    icon.pixels[number] = Rgb(255, 0, 0);
    return icon;
}

} // namespace

class tst_modIconSheet : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void undoRestoresOneIconOnce()
    {
        IconSheet sheet;
        QVERIFY(!sheet.canUndo && !sheet.isChanged && sheet.isEmpty);
        Edit(sheet, Numbered(1));
        Edit(sheet, Numbered(2));
        QVERIFY(sheet.canUndo && sheet.isChanged && !sheet.isEmpty);
        Undo(sheet);
        QVERIFY(sheet.icon == Numbered(1));
        QVERIFY(!sheet.canUndo && sheet.isChanged);
        Undo(sheet);
        QVERIFY(sheet.icon == Numbered(1));
    }

    void aNewIconCannotBeUndone()
    {
        IconSheet sheet;
        Edit(sheet, Numbered(1));
        NewIcon(sheet);
        QVERIFY(sheet.icon == Icon());
        QVERIFY(!sheet.canUndo && !sheet.isChanged && sheet.isEmpty);
        Undo(sheet);
        QVERIFY(sheet.icon == Icon());
    }

    void anIconOfAFileIsNoChange()
    {
        IconSheet sheet;
        TakeIcon(sheet, Numbered(1));
        QVERIFY(!sheet.isChanged && sheet.canUndo && !sheet.isEmpty);
        Edit(sheet, Numbered(2));
        TakeIcon(sheet, Numbered(3));
        QVERIFY(sheet.isChanged);
        Undo(sheet);
        QVERIFY(sheet.icon == Numbered(2));
    }

    void undoAfterASaveIsAChange()
    {
        IconSheet sheet;
        Edit(sheet, Numbered(1));
        MarkSaved(sheet);
        QVERIFY(!sheet.isChanged && sheet.canUndo);
        Undo(sheet);
        QVERIFY(sheet.icon == Icon() && sheet.isChanged);
        // A save without a step to undo, or an edit after it, changes nothing about that.
        MarkSaved(sheet);
        Undo(sheet);
        QVERIFY(!sheet.isChanged);
        TakeIcon(sheet, Numbered(2));
        Undo(sheet);
        QVERIFY(!sheet.isChanged);
    }
};

QTEST_GUILESS_MAIN(tst_modIconSheet)
#include "tst_modIconSheet.moc"
