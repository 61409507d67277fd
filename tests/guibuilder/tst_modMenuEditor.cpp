// SPDX-License-Identifier: GPL-3.0-or-later
// The menu table under the menu editor's operations, and the questions that it asks.
#include "support/ScriptedDialogs.h"

#include "guibuilder/modMenuEditor.h"

#include <QTest>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

QString Text(const char* latin)
{
    return QString::fromLatin1(latin);
}

QStringList Words(const char* latin)
{
    return Text(latin).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

// A form with the menus, each with the items "NAME0  [name0]", "NAME1  [name1]" and so on.
GuiForm FormWith(const QStringList& names, int items)
{
    GuiForm form;
    for (int menu = 0; menu < names.size(); ++menu) {
        SetMenuName(form, menu, names[menu]);
        for (int item = 0; item < items; ++item) {
            const QString caption = names[menu] + QString::number(item);
            SetMenuItem(form, menu, item, {caption, u'[' + caption.toLower() + u']'});
        }
    }
    return form;
}

QStringList Captions(const GuiForm& form, int menu)
{
    QStringList captions;
    for (const MenuItemParts& parts : MenuItems(form, menu))
        captions.append(parts.caption);
    return captions;
}

QStringList FullNames()
{
    QStringList names;
    for (int menu = 0; menu < static_cast<int>(MenuSlots); ++menu)
        names.append(u"M%1."_s.arg(menu));
    return names;
}

const InputSpec NewMenu{u"Please type a name for your menu."_s, {}, {}};
const InputSpec NewItem{u"Please type a name for this item."_s, {}, {}};
const InputSpec NewBranch{u"Please type a name for this item's branch."_s, {}, {}};

InputSpec OtherName(const char* old)
{
    return {u"Please type a new name for "_s + Text(old), {}, Text(old)};
}

InputSpec OtherBranch(const char* old)
{
    return {u"Please type a new name for branch "_s + Text(old), {}, Text(old)};
}

} // namespace

class tst_modMenuEditor : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void namesAreListedUpToTheFirstEmptyOne()
    {
        GuiForm form = FormWith(Words("&File Edit"), 0);
        form.GuiMenuNames[3] = Text("Lost");
        QCOMPARE(MenuNames(form), Words("&File Edit"));
        QCOMPARE(MenuNames(GuiForm()), QStringList());
        QCOMPARE(MenuNames(FormWith(FullNames(), 0)), FullNames());
    }

    void itemsAreListedUpToTheFirstOneWithoutText()
    {
        GuiForm form = FormWith(Words("File"), 2);
        form.GuiMenuItems[0][2] = Text("   ");
        form.GuiMenuItems[0][3] = Text("Lost  [lost]");
        QCOMPARE(Captions(form, 0), Words("File0 File1"));
        QCOMPARE(MenuItems(form, 0)[1].branch, Text("[file1]"));
        QCOMPARE(Captions(FormWith(Words("A"), 21), 0).size(), 21);
    }

    void anItemIsCaptionTwoSpacesAndBranch()
    {
        GuiForm form;
        SetMenuItem(form, 20, 20, {Text("Open"), Text("[open]")});
        QCOMPARE(form.GuiMenuItems[20][20], Text("Open  [open]"));
    }

    void placesBeyondTheTableAreNotTouched()
    {
        GuiForm form = FormWith(FullNames(), 21);
        const GuiForm before = form;
        const MenuItemParts parts{Text("X"), Text("[x]")};
        for (const int beyond : {-1, 21, 22, 1000}) {
            SetMenuName(form, beyond, Text("X"));
            SetMenuItem(form, beyond, 0, parts);
            SetMenuItem(form, 0, beyond, parts);
            RemoveMenu(form, beyond);
            RemoveMenuItem(form, beyond, 0);
            RemoveMenuItem(form, 0, beyond);
            QVERIFY(!MoveMenu(form, beyond, MoveDirection::Up));
            QVERIFY(!MoveMenu(form, beyond, MoveDirection::Down));
            QVERIFY(!MoveMenuItem(form, beyond, 1, MoveDirection::Up));
            QVERIFY(!MoveMenuItem(form, 0, beyond, MoveDirection::Up));
            QVERIFY(!MoveMenuItem(form, 0, beyond, MoveDirection::Down));
            QVERIFY(MenuItems(form, beyond).isEmpty());
            QCOMPARE(form, before);
        }
    }

    void aRemovedMenuLetsTheLaterOnesMoveUpWithTheirItems()
    {
        GuiForm form = FormWith(Words("A B C"), 2);
        RemoveMenu(form, 0);
        QCOMPARE(MenuNames(form), Words("B C"));
        QCOMPARE(Captions(form, 0), Words("B0 B1"));
        QCOMPARE(Captions(form, 1), Words("C0 C1"));
        QCOMPARE(Captions(form, 2), QStringList());
    }

    void removingTheOnlyMenuLeavesAnEmptyTable()
    {
        GuiForm form = FormWith(Words("A"), 3);
        RemoveMenu(form, 0);
        QCOMPARE(form, GuiForm());
    }

    void theLastPlaceKeepsItsLastItemWhenAMenuGoes()
    {
        GuiForm form = FormWith(FullNames(), 21);
        RemoveMenu(form, 4);
        QStringList left = FullNames();
        left.removeAt(4);
        QCOMPARE(MenuNames(form), left);
        QCOMPARE(Captions(form, 19).size(), 21);
        QCOMPARE(Captions(form, 19).last(), Text("M20.20"));
        QCOMPARE(Captions(form, 3).last(), Text("M3.20"));
        QCOMPARE(Captions(form, 4).last(), Text("M5.20"));
        for (std::size_t item = 0; item < 20; ++item)
            QVERIFY(form.GuiMenuItems[20][item].isEmpty());
        QCOMPARE(form.GuiMenuItems[20][20], Text("M20.20  [m20.20]"));
    }

    void removingTheLastOfTwentyOneMenusClearsItsPlace()
    {
        GuiForm form = FormWith(FullNames(), 2);
        RemoveMenu(form, 20);
        QCOMPARE(MenuNames(form).size(), 20);
        QVERIFY(form.GuiMenuItems[20][0].isEmpty());
        QCOMPARE(Captions(form, 19), Words("M19.0 M19.1"));
    }

    void aRemovedItemLetsTheLaterOnesMoveUp()
    {
        GuiForm form = FormWith(Words("A B"), 3);
        RemoveMenuItem(form, 0, 1);
        QCOMPARE(Captions(form, 0), Words("A0 A2"));
        QCOMPARE(Captions(form, 1), Words("B0 B1 B2"));
    }

    void removingAnItemOfAFullMenuLeavesTheLastPlaceEmpty()
    {
        for (const int item : {0, 20}) {
            GuiForm form = FormWith(Words("A"), 21);
            RemoveMenuItem(form, 0, item);
            QCOMPARE(Captions(form, 0).size(), 20);
            QVERIFY(form.GuiMenuItems[0][20].isEmpty());
            QCOMPARE(Captions(form, 0).first(), item == 0 ? Text("A1") : Text("A0"));
        }
    }

    void aMenuMovesWithAllItsItems()
    {
        GuiForm form = FormWith(Words("A B C"), 21);
        QCOMPARE(MoveMenu(form, 1, MoveDirection::Up), 0);
        QCOMPARE(MenuNames(form), Words("B A C"));
        QCOMPARE(Captions(form, 0).last(), Text("B20"));
        QCOMPARE(Captions(form, 1).last(), Text("A20"));
        QCOMPARE(MoveMenu(form, 1, MoveDirection::Down), 2);
        QCOMPARE(MenuNames(form), Words("B C A"));
        QCOMPARE(Captions(form, 2).last(), Text("A20"));
    }

    void anItemMovesWithinItsMenu()
    {
        GuiForm form = FormWith(Words("A B"), 3);
        QCOMPARE(MoveMenuItem(form, 1, 2, MoveDirection::Up), 1);
        QCOMPARE(Captions(form, 1), Words("B0 B2 B1"));
        QCOMPARE(MoveMenuItem(form, 1, 0, MoveDirection::Down), 1);
        QCOMPARE(Captions(form, 1), Words("B2 B0 B1"));
        QCOMPARE(Captions(form, 0), Words("A0 A1 A2"));
    }

    void nothingMovesBeyondEitherEnd()
    {
        for (const int count : {1, 3, 21}) {
            GuiForm form = FormWith(FullNames().first(count), count);
            const GuiForm before = form;
            QVERIFY(!MoveMenu(form, 0, MoveDirection::Up));
            QVERIFY(!MoveMenu(form, count - 1, MoveDirection::Down));
            QVERIFY(!MoveMenuItem(form, 0, 0, MoveDirection::Up));
            QVERIFY(!MoveMenuItem(form, 0, count - 1, MoveDirection::Down));
            QCOMPARE(form, before);
        }
    }

    void theLabelShowsEachNameFollowedByFourSpaces()
    {
        QCOMPARE(EditedMenuLabel(FormWith(Words("&File Edit"), 1)), Text("&File    Edit    "));
        QCOMPARE(EditedMenuLabel(GuiForm()), Text("    Click here to edit or remove menus."));
    }

    void aMenuNameIsTakenAsTyped()
    {
        for (const char* name : {"&File", "Say \"hi\" | *now*", " blanks ", "[x]"}) {
            ScriptedDialogs boxes;
            boxes.ExpectInput(NewMenu, Text(name));
            QCOMPARE(AskMenuName(), Text(name));
        }
    }

    void aCancelledNameIsAnEmptyOne()
    {
        ScriptedDialogs boxes;
        boxes.ExpectInput(NewMenu, std::nullopt);
        QVERIFY(AskMenuName().isEmpty());
        boxes.ExpectInput(NewItem, std::nullopt);
        QVERIFY(!AskMenuItem());
        boxes.ExpectInput(NewItem, Text("Open"));
        boxes.ExpectInput(NewBranch, std::nullopt);
        QVERIFY(!AskMenuItem());
    }

    void aNewItemGetsItsBranchInBrackets_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("branchTyped");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QString>("branch");
        QTest::newRow("bare") << "Open"
                              << "open"
                              << "Open"
                              << "[open]";
        QTest::newRow("bracketed") << "Open"
                                   << "[open]"
                                   << "Open"
                                   << "[open]";
        QTest::newRow("half bracketed") << "Open"
                                        << "  open] "
                                        << "Open"
                                        << "[open]";
        QTest::newRow("a branch in the caption is cut off") << "Open [x]"
                                                            << "open"
                                                            << "Open"
                                                            << "[open]";
        QTest::newRow("nothing but a branch") << "[x]"
                                              << "open"
                                              << ""
                                              << "[open]";
        QTest::newRow("a bar after the cut") << "Open [a|b]"
                                             << "open"
                                             << "Open"
                                             << "[open]";
        QTest::newRow("quotes and stars") << "Say \"*hi*\""
                                          << "say"
                                          << "Say \"*hi*\""
                                          << "[say]";
        QTest::newRow("spaces around") << " Open "
                                       << "open"
                                       << " Open "
                                       << "[open]";
    }

    void aNewItemGetsItsBranchInBrackets()
    {
        QFETCH(QString, typed);
        QFETCH(QString, branchTyped);
        ScriptedDialogs boxes;
        boxes.ExpectInput(NewItem, typed);
        boxes.ExpectInput(NewBranch, branchTyped);
        const auto parts = AskMenuItem();
        QVERIFY(parts.has_value());
        QTEST(parts->caption, "caption");
        QTEST(parts->branch, "branch");
    }

    void aSeparatorIsNotAskedForABranch_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::newRow("bar") << "|";
        QTest::newRow("bar among other text") << "a \"|\" b";
        QTest::newRow("bar before the cut") << "a|b [c]";
        QTest::newRow("its own name") << "--bar--";
    }

    void aSeparatorIsNotAskedForABranch()
    {
        QFETCH(QString, typed);
        ScriptedDialogs boxes;
        boxes.ExpectInput(NewItem, typed);
        const auto parts = AskMenuItem();
        QVERIFY(parts.has_value());
        QCOMPARE(JoinMenuItem(parts->caption, parts->branch), Text("--bar--  [none]"));
    }

    void aMenuIsRenamedFromItsOldName()
    {
        ScriptedDialogs boxes;
        boxes.ExpectInput(OtherName("&File"), Text("&Fi\"l\"e"));
        QCOMPARE(AskOtherMenuName(Text("&File")), Text("&Fi\"l\"e"));
        boxes.ExpectInput(OtherName("&File"), std::nullopt);
        QVERIFY(AskOtherMenuName(Text("&File")).isEmpty());
    }

    void anItemIsRenamedWithItsBranch()
    {
        const MenuItemParts old{Text("Open"), Text("[open]")};
        ScriptedDialogs boxes;
        boxes.ExpectInput(OtherName("Open"), Text("Load \"x\" *|*"));
        boxes.ExpectInput(OtherBranch("[open]"), Text(" load"));
        auto parts = AskOtherMenuItem(old);
        QVERIFY(parts.has_value());
        QCOMPARE(JoinMenuItem(parts->caption, parts->branch), Text("Load \"x\" *|*  [load]"));

        // A bracket in the caption would be taken for the branch when the item is read again.
        boxes.ExpectInput(OtherName("Open"), Text("Load [x]"));
        boxes.ExpectInput(OtherBranch("[open]"), Text("[open]"));
        parts = AskOtherMenuItem(old);
        QVERIFY(parts.has_value());
        QCOMPARE(JoinMenuItem(parts->caption, parts->branch), Text("Load  [open]"));
    }

    void anItemStaysWhenEitherAnswerIsEmpty()
    {
        const MenuItemParts old{Text("Open"), Text("[open]")};
        ScriptedDialogs boxes;
        boxes.ExpectInput(OtherName("Open"), Text(""));
        QVERIFY(!AskOtherMenuItem(old));
        boxes.ExpectInput(OtherName("Open"), Text("Load"));
        boxes.ExpectInput(OtherBranch("[open]"), std::nullopt);
        QVERIFY(!AskOtherMenuItem(old));
    }

    void withoutAChoiceThereIsAComplaint()
    {
        ScriptedDialogs boxes;
        boxes.ExpectMessage(Text("Cannot edit menu.  No menu is selected."));
        boxes.ExpectMessage(Text("Cannot edit item.  No item is selected."));
        boxes.ExpectMessage(Text("Cannot remove item.  No item is selected."));
        boxes.ExpectMessage(Text("Cannot remove item.  No item is selected."));
        QVERIFY(AskOtherMenuName(std::nullopt).isEmpty());
        QVERIFY(!AskOtherMenuItem(std::nullopt));
        QVERIFY(!MayRemoveMenu(std::nullopt));
        QVERIFY(!MayRemoveMenuItem(std::nullopt));
    }

    void removalIsAskedFor()
    {
        ScriptedDialogs boxes;
        boxes.ExpectQuestion(Text("Remove menu named &\"File\" ?"), BoxAnswer::Yes);
        boxes.ExpectQuestion(Text("Remove menu named &File ?"), BoxAnswer::No);
        boxes.ExpectQuestion(Text("Remove menu item named Open ?"), BoxAnswer::Yes);
        boxes.ExpectQuestion(Text("Remove menu item named Open ?"), BoxAnswer::No);
        QVERIFY(MayRemoveMenu(Text("&\"File\"")));
        QVERIFY(!MayRemoveMenu(Text("&File")));
        QVERIFY(MayRemoveMenuItem(MenuItemParts{Text("Open"), Text("[open]")}));
        QVERIFY(!MayRemoveMenuItem(MenuItemParts{Text("Open"), Text("[open]")}));
    }
};

QTEST_APPLESS_MAIN(tst_modMenuEditor)
#include "tst_modMenuEditor.moc"
