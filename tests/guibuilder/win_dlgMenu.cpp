// SPDX-License-Identifier: GPL-3.0-or-later
// The menu editor, by its controls.
#include "support/BenchTest.h"
#include "support/TestBench.h"

#include "guibuilder/dlgMenu.h"
#include "guibuilder/modGuiCommands.h"
#include "shell/state/Module1.h"
#include "shell/state/frmTool.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>

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

QPushButton* Button(const QDialog& dialog, const char* name)
{
    return dialog.findChild<QPushButton*>(Text(name));
}

QListWidget* List(const QDialog& dialog, const char* name)
{
    return dialog.findChild<QListWidget*>(Text(name));
}

QStringList Lines(const QDialog& dialog, const char* name)
{
    QStringList lines;
    for (int row = 0; row < List(dialog, name)->count(); ++row)
        lines.append(List(dialog, name)->item(row)->text());
    return lines;
}

// The selected row of a list, or -1.
int Chosen(const QDialog& dialog, const char* name)
{
    const QModelIndexList rows = List(dialog, name)->selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.first().row();
}

void ClickLine(const QDialog& dialog, const char* name, int row, Qt::KeyboardModifiers held = {})
{
    QListWidget* list = List(dialog, name);
    list->scrollToItem(list->item(row));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, held, list->visualItemRect(list->item(row)).center());
}

void Press(const QDialog& dialog, const char* list, Qt::Key key, Qt::KeyboardModifiers held = {})
{
    QTest::keyClick(List(dialog, list), key, held);
}

// The names of the disabled buttons.
QStringList ButtonsOff(const QDialog& dialog)
{
    QStringList off;
    for (const QPushButton* button : dialog.findChildren<QPushButton*>())
        if (!button->isEnabled())
            off.append(button->objectName());
    off.sort();
    return off;
}

const QStringList NameButtons = Words("cmdEditMenu cmdNameDown cmdNameUp cmdRemoveMenu");
const QStringList ItemButtons = Words("cmdEditItem cmdItemDown cmdItemUp cmdRemoveItem");

QStringList AllOff()
{
    QStringList off = NameButtons + ItemButtons + Words("cmdAddItem");
    off.sort();
    return off;
}

const InputSpec NewMenu{u"Please type a name for your menu."_s, {}, {}};
const InputSpec NewItem{u"Please type a name for this item."_s, {}, {}};
const InputSpec NewBranch{u"Please type a name for this item's branch."_s, {}, {}};

InputSpec Other(const char* prompt, const char* old)
{
    return {Text(prompt) + Text(old), {}, Text(old)};
}

void SetMenus(const QStringList& names, int items)
{
    for (int menu = 0; menu < names.size(); ++menu) {
        SetMenuName(GuiDesign().form, menu, names[menu]);
        for (int item = 0; item < items; ++item) {
            const QString caption = names[menu] + QString::number(item);
            SetMenuItem(GuiDesign().form, menu, item, {caption, u'[' + caption.toLower() + u']'});
        }
    }
}

} // namespace

class win_dlgMenu : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TestBench> bench;

    // Opens the editor over a form that is under design, and runs the script in it.
    void Edit(const std::function<void(QDialog&)>& script) const
    {
        bench->ExpectModal(Text("dlgMenu"), [&script](QDialog& dialog) {
            script(dialog);
            if (dialog.isVisible())
                Button(dialog, "OKButton")->click();
        });
        ShowToolModally<dlgMenu>();
    }

private Q_SLOTS:
    void init()
    {
        ResetState();
        ShowTips = false;
        QuitQuery = false;
        bench = std::make_unique<TestBench>();
        bench->Start();
        ResetGui();
        ClearForm(GuiDesign().form);
    }

    void cleanup()
    {
        bench.reset();
        ResetGui();
    }

    void textsAreAsExpected()
    {
        Edit([](QDialog& dialog) {
            QCOMPARE(dialog.windowTitle(), Text("Menu Editor"));
            const std::initializer_list<std::pair<const char*, const char*>> labels = {
                {"lblNames", "Menu Names:"}, {"lblItems", "Menu Items:"}, {"lblBranches", "Branches:"}};
            const auto plain = [](QString text) { return text.remove(u'&'); };
            for (const auto& [name, text] : labels)
                QCOMPARE(plain(dialog.findChild<QLabel*>(Text(name))->text()), Text(text));
            const std::initializer_list<std::pair<const char*, const char*>> captions = {
                {"cmdAddMenu", "Add"}, {"cmdAddItem", "Add"}, {"cmdNoMenu", "Remove Menubar"}, {"OKButton", "Exit"}};
            for (const auto& [name, text] : captions)
                QCOMPARE(plain(Button(dialog, name)->text()), Text(text));
            const std::initializer_list<std::pair<const char*, const char*>> tips = {
                {"cmdAddMenu", "Add new menu."},
                {"cmdAddItem", "Add an item to the current menu."},
                {"cmdNameUp", "Move menu up in list."},
                {"cmdNameDown", "Move menu down in list."},
                {"cmdItemUp", "Move menu item up in list."},
                {"cmdItemDown", " Move menu item down in list."},
                {"OKButton", "Exit Menu Editor."}};
            for (const auto& [name, text] : tips)
                QCOMPARE(Button(dialog, name)->toolTip(), Text(text));
        });
    }

    void everyKeyOfTheManualIsUnderlined()
    {
        Edit([](QDialog& dialog) {
            QStringList keys;
            for (const QLabel* label : dialog.findChildren<QLabel*>())
                keys.append(QKeySequence::mnemonic(label->text()).toString());
            for (const QPushButton* button : dialog.findChildren<QPushButton*>())
                keys.append(QKeySequence::mnemonic(button->text()).toString());
            keys.removeAll(QString());
            keys.sort();
            QStringList expected;
            for (const QChar key : QStringLiteral("ABDEHIMNRTX"))
                expected.append(QStringLiteral("Alt+") + key);
            QCOMPARE(keys, expected);
        });
    }

    void withoutMenusOnlyAddingIsPossible()
    {
        Edit([](QDialog& dialog) {
            QVERIFY(Lines(dialog, "lstNames").isEmpty());
            QVERIFY(Lines(dialog, "lstItems0").isEmpty());
            QCOMPARE(ButtonsOff(dialog), AllOff());
            QCOMPARE(dialog.focusWidget(), Button(dialog, "cmdAddMenu"));
        });
        QCOMPARE(GuiDesign().form.menuLabel, Text("    Click here to edit or remove menus."));
    }

    void itOpensWithTheFirstMenuAndItsItems()
    {
        SetMenus(Words("File Edit"), 2);
        Edit([](QDialog& dialog) {
            QCOMPARE(Lines(dialog, "lstNames"), Words("File Edit"));
            QCOMPARE(Chosen(dialog, "lstNames"), 0);
            QCOMPARE(Lines(dialog, "lstItems0"), Words("File0 File1"));
            QCOMPARE(Lines(dialog, "lstItems1"), Words("[file0] [file1]"));
            QCOMPARE(Chosen(dialog, "lstItems0"), -1);
            QCOMPARE(ButtonsOff(dialog), QStringList());
        });
        QCOMPARE(GuiDesign().form.menuLabel, Text("File    Edit    "));
    }

    void anotherMenuShowsItsItems()
    {
        SetMenus(Words("File Edit"), 2);
        SetMenuName(GuiDesign().form, 2, Text("Bare"));
        Edit([](QDialog& dialog) {
            ClickLine(dialog, "lstNames", 1);
            QCOMPARE(Lines(dialog, "lstItems1"), Words("[edit0] [edit1]"));
            ClickLine(dialog, "lstNames", 2);
            QVERIFY(Lines(dialog, "lstItems0").isEmpty());
            QCOMPARE(ButtonsOff(dialog), ItemButtons);
        });
    }

    void addedMenusAndItemsAreInTheFormAtOnce()
    {
        Edit([this](QDialog& dialog) {
            bench->dialogs.ExpectInput(NewMenu, Text("&File"));
            Button(dialog, "cmdAddMenu")->click();
            QCOMPARE(GuiDesign().form.GuiMenuNames[0], Text("&File"));
            QCOMPARE(ButtonsOff(dialog), ItemButtons);
            bench->dialogs.ExpectInput(NewItem, Text("Open [x]"));
            bench->dialogs.ExpectInput(NewBranch, Text("open"));
            Button(dialog, "cmdAddItem")->click();
            QCOMPARE(GuiDesign().form.GuiMenuItems[0][0], Text("Open  [open]"));
            QCOMPARE(ButtonsOff(dialog), QStringList());
            bench->dialogs.ExpectInput(NewItem, Text("|"));
            Button(dialog, "cmdAddItem")->click();
            QCOMPARE(GuiDesign().form.GuiMenuItems[0][1], Text("--bar--  [none]"));
            QCOMPARE(Lines(dialog, "lstItems0"), Words("Open --bar--"));
            QCOMPARE(Lines(dialog, "lstItems1"), Words("[open] [none]"));
            QCOMPARE(Chosen(dialog, "lstItems0"), 1);
            QCOMPARE(Chosen(dialog, "lstItems1"), 1);
            bench->dialogs.ExpectInput(NewMenu, Text("Edit"));
            Button(dialog, "cmdAddMenu")->click();
            QCOMPARE(Chosen(dialog, "lstNames"), 1);
            QVERIFY(Lines(dialog, "lstItems1").isEmpty());
            bench->dialogs.ExpectInput(NewItem, Text("Cut"));
            bench->dialogs.ExpectInput(NewBranch, Text("cut"));
            Button(dialog, "cmdAddItem")->click();
            QCOMPARE(GuiDesign().form.GuiMenuItems[1][0], Text("Cut  [cut]"));
        });
        QCOMPARE(GuiDesign().form.menuLabel, Text("&File    Edit    "));
        QVERIFY(!GuiDesign().GuiFormModified);
    }

    void cancelledBoxesChangeNothing()
    {
        SetMenus(Words("File"), 1);
        const GuiForm before = GuiDesign().form;
        Edit([&](QDialog& dialog) {
            ClickLine(dialog, "lstItems0", 0);
            bench->dialogs.ExpectInput(NewMenu, std::nullopt);
            Button(dialog, "cmdAddMenu")->click();
            bench->dialogs.ExpectInput(NewItem, std::nullopt);
            Button(dialog, "cmdAddItem")->click();
            bench->dialogs.ExpectInput(Other("Please type a new name for ", "File"), std::nullopt);
            Button(dialog, "cmdEditMenu")->click();
            bench->dialogs.ExpectInput(Other("Please type a new name for ", "File0"), Text("Other"));
            bench->dialogs.ExpectInput(Other("Please type a new name for branch ", "[file0]"), std::nullopt);
            Button(dialog, "cmdEditItem")->click();
            bench->dialogs.ExpectQuestion(Text("Remove menu named File ?"), BoxAnswer::No);
            Button(dialog, "cmdRemoveMenu")->click();
            bench->dialogs.ExpectQuestion(Text("Remove menu item named File0 ?"), BoxAnswer::No);
            Button(dialog, "cmdRemoveItem")->click();
            QCOMPARE(Lines(dialog, "lstNames"), Words("File"));
            QCOMPARE(Lines(dialog, "lstItems0"), Words("File0"));
            QCOMPARE(GuiDesign().form, before);
        });
    }

    void aTwentySecondItemIsInTheListOnly()
    {
        SetMenus(Words("File Edit"), 21);
        const auto before = GuiDesign().form.GuiMenuItems;
        Edit([&](QDialog& dialog) {
            bench->dialogs.ExpectInput(NewItem, Text("More"));
            bench->dialogs.ExpectInput(NewBranch, Text("more"));
            Button(dialog, "cmdAddItem")->click();
            QCOMPARE(Lines(dialog, "lstItems0").size(), 22);
            QCOMPARE(Lines(dialog, "lstItems1").last(), Text("[more]"));
            QCOMPARE(Chosen(dialog, "lstItems0"), 21);
            Button(dialog, "cmdItemUp")->click();
            bench->dialogs.ExpectInput(Other("Please type a new name for ", "More"), Text("Most"));
            bench->dialogs.ExpectInput(Other("Please type a new name for branch ", "[more]"), Text("most"));
            Button(dialog, "cmdEditItem")->click();
            QCOMPARE(Lines(dialog, "lstItems0").last(), Text("Most"));
            bench->dialogs.ExpectQuestion(Text("Remove menu item named Most ?"), BoxAnswer::Yes);
            Button(dialog, "cmdRemoveItem")->click();
            QCOMPARE(Lines(dialog, "lstItems0").size(), 21);
            QCOMPARE(GuiDesign().form.GuiMenuItems, before);
        });
    }

    void aTwentySecondMenuIsInTheListOnly()
    {
        QStringList names;
        for (int menu = 0; menu < 21; ++menu)
            names.append(u"M%1"_s.arg(menu));
        SetMenus(names, 1);
        const GuiForm before = GuiDesign().form;
        Edit([&](QDialog& dialog) {
            bench->dialogs.ExpectInput(NewMenu, Text("More"));
            Button(dialog, "cmdAddMenu")->click();
            QCOMPARE(Chosen(dialog, "lstNames"), 21);
            bench->dialogs.ExpectInput(NewItem, Text("Item"));
            bench->dialogs.ExpectInput(NewBranch, Text("item"));
            Button(dialog, "cmdAddItem")->click();
            QCOMPARE(Lines(dialog, "lstItems0"), Words("Item"));
            Button(dialog, "cmdNameUp")->click();
            QCOMPARE(Lines(dialog, "lstNames").size(), 22);
            QCOMPARE(GuiDesign().form, before);
        });
    }

    void renamingWritesListAndTable()
    {
        SetMenus(Words("File Edit"), 2);
        Edit([this](QDialog& dialog) {
            ClickLine(dialog, "lstNames", 1);
            bench->dialogs.ExpectInput(Other("Please type a new name for ", "Edit"), Text("\"Go\" *|*"));
            Button(dialog, "cmdEditMenu")->click();
            QCOMPARE(Lines(dialog, "lstNames").last(), Text("\"Go\" *|*"));
            QCOMPARE(GuiDesign().form.GuiMenuNames[1], Text("\"Go\" *|*"));
            ClickLine(dialog, "lstItems1", 1);
            bench->dialogs.ExpectInput(Other("Please type a new name for ", "Edit1"), Text("Copy"));
            bench->dialogs.ExpectInput(Other("Please type a new name for branch ", "[edit1]"), Text("copy"));
            Button(dialog, "cmdEditItem")->click();
            QCOMPARE(Lines(dialog, "lstItems0"), Words("Edit0 Copy"));
            QCOMPARE(Lines(dialog, "lstItems1"), Words("[edit0] [copy]"));
            QCOMPARE(GuiDesign().form.GuiMenuItems[1][1], Text("Copy  [copy]"));
        });
    }

    void withoutAChoiceTheEditorComplains()
    {
        SetMenus(Words("File"), 1);
        Edit([this](QDialog& dialog) {
            bench->dialogs.ExpectMessage(Text("Cannot edit item.  No item is selected."));
            Button(dialog, "cmdEditItem")->click();
            bench->dialogs.ExpectMessage(Text("Cannot remove item.  No item is selected."));
            Button(dialog, "cmdRemoveItem")->click();
            Button(dialog, "cmdItemUp")->click();
            Button(dialog, "cmdItemDown")->click();
            ClickLine(dialog, "lstNames", 0, Qt::ControlModifier);
            QCOMPARE(Chosen(dialog, "lstNames"), -1);
            bench->dialogs.ExpectMessage(Text("Cannot edit menu.  No menu is selected."));
            Button(dialog, "cmdEditMenu")->click();
            bench->dialogs.ExpectMessage(Text("Cannot remove item.  No item is selected."));
            Button(dialog, "cmdRemoveMenu")->click();
            Button(dialog, "cmdNameUp")->click();
            Button(dialog, "cmdNameDown")->click();
        });
    }

    void theCurrentMenuStaysWhenItsNameIsNoLongerSelected()
    {
        SetMenus(Words("File Edit"), 1);
        Edit([this](QDialog& dialog) {
            ClickLine(dialog, "lstNames", 1);
            ClickLine(dialog, "lstNames", 1, Qt::ControlModifier);
            bench->dialogs.ExpectInput(NewItem, Text("Cut"));
            bench->dialogs.ExpectInput(NewBranch, Text("cut"));
            Button(dialog, "cmdAddItem")->click();
            QCOMPARE(GuiDesign().form.GuiMenuItems[1][1], Text("Cut  [cut]"));
        });
    }

    void removingTheOnlyMenuTurnsTheButtonsOff()
    {
        SetMenus(Words("File"), 3);
        Edit([this](QDialog& dialog) {
            bench->dialogs.ExpectQuestion(Text("Remove menu named File ?"), BoxAnswer::Yes);
            Button(dialog, "cmdRemoveMenu")->click();
            QVERIFY(Lines(dialog, "lstNames").isEmpty());
            QVERIFY(Lines(dialog, "lstItems0").isEmpty());
            QVERIFY(Lines(dialog, "lstItems1").isEmpty());
            QCOMPARE(ButtonsOff(dialog), AllOff());
        });
        QVERIFY(GuiDesign().form.GuiMenuNames[0].isEmpty());
        QCOMPARE(GuiDesign().form.menuLabel, Text("    Click here to edit or remove menus."));
    }

    void afterARemovalTheNextEntryIsSelected()
    {
        SetMenus(Words("A B C"), 3);
        Edit([this](QDialog& dialog) {
            ClickLine(dialog, "lstItems0", 1);
            bench->dialogs.ExpectQuestion(Text("Remove menu item named A1 ?"), BoxAnswer::Yes);
            Button(dialog, "cmdRemoveItem")->click();
            QCOMPARE(Lines(dialog, "lstItems1"), Words("[a0] [a2]"));
            QCOMPARE(Chosen(dialog, "lstItems0"), 1);
            bench->dialogs.ExpectQuestion(Text("Remove menu item named A2 ?"), BoxAnswer::Yes);
            Button(dialog, "cmdRemoveItem")->click();
            QCOMPARE(Chosen(dialog, "lstItems1"), 0);
            bench->dialogs.ExpectQuestion(Text("Remove menu item named A0 ?"), BoxAnswer::Yes);
            Button(dialog, "cmdRemoveItem")->click();
            QCOMPARE(ButtonsOff(dialog), ItemButtons);
            ClickLine(dialog, "lstNames", 2);
            bench->dialogs.ExpectQuestion(Text("Remove menu named C ?"), BoxAnswer::Yes);
            Button(dialog, "cmdRemoveMenu")->click();
            QCOMPARE(Lines(dialog, "lstNames"), Words("A B"));
            QCOMPARE(Chosen(dialog, "lstNames"), 1);
            QCOMPARE(Lines(dialog, "lstItems0"), Words("B0 B1 B2"));
        });
    }

    void movesKeepTheEntrySelectedAndEndAtBothEnds()
    {
        SetMenus(Words("A B C"), 3);
        Edit([](QDialog& dialog) {
            Button(dialog, "cmdNameUp")->click();
            QCOMPARE(Lines(dialog, "lstNames"), Words("A B C"));
            Button(dialog, "cmdNameDown")->click();
            Button(dialog, "cmdNameDown")->click();
            Button(dialog, "cmdNameDown")->click();
            QCOMPARE(Lines(dialog, "lstNames"), Words("B C A"));
            QCOMPARE(Chosen(dialog, "lstNames"), 2);
            QCOMPARE(Lines(dialog, "lstItems0"), Words("A0 A1 A2"));
            QCOMPARE(GuiDesign().form.GuiMenuItems[2][0], Text("A0  [a0]"));
            ClickLine(dialog, "lstItems1", 2);
            Button(dialog, "cmdItemDown")->click();
            Button(dialog, "cmdItemUp")->click();
            Button(dialog, "cmdItemUp")->click();
            Button(dialog, "cmdItemUp")->click();
            QCOMPARE(Lines(dialog, "lstItems0"), Words("A2 A0 A1"));
            QCOMPARE(Lines(dialog, "lstItems1"), Words("[a2] [a0] [a1]"));
            QCOMPARE(Chosen(dialog, "lstItems0"), 0);
            QCOMPARE(Chosen(dialog, "lstItems1"), 0);
        });
    }

    void theTwoItemListsSelectAndScrollTogether()
    {
        SetMenus(Words("File"), 21);
        Edit([](QDialog& dialog) {
            dialog.resize(dialog.minimumSizeHint());
            QApplication::processEvents();
            ClickLine(dialog, "lstItems0", 4);
            QCOMPARE(Chosen(dialog, "lstItems1"), 4);
            ClickLine(dialog, "lstItems1", 20);
            QCOMPARE(Chosen(dialog, "lstItems0"), 20);
            const QScrollBar* left = List(dialog, "lstItems0")->verticalScrollBar();
            QScrollBar* right = List(dialog, "lstItems1")->verticalScrollBar();
            QVERIFY(left->maximum() > 0);
            QCOMPARE(left->maximum(), right->maximum());
            QCOMPARE(left->value(), right->value());
            right->setValue(1);
            QCOMPARE(left->value(), 1);
            Press(dialog, "lstItems0", Qt::Key_Home);
            QCOMPARE(right->value(), 0);
            Press(dialog, "lstItems0", Qt::Key_End);
            QCOMPARE(right->value(), left->maximum());
            ClickLine(dialog, "lstItems1", 20, Qt::ControlModifier);
            QCOMPARE(Chosen(dialog, "lstItems0"), -1);
        });
    }

    void theKeysOfTheListsWork()
    {
        SetMenus(Words("A B"), 2);
        Edit([this](QDialog& dialog) {
            Press(dialog, "lstNames", Qt::Key_Down, Qt::ControlModifier);
            QCOMPARE(Lines(dialog, "lstNames"), Words("B A"));
            Press(dialog, "lstNames", Qt::Key_Up, Qt::ControlModifier);
            QCOMPARE(Lines(dialog, "lstNames"), Words("A B"));
            for (const Qt::Key key : {Qt::Key_F2, Qt::Key_Return, Qt::Key_Enter}) {
                bench->dialogs.ExpectInput(Other("Please type a new name for ", "A"), std::nullopt);
                Press(dialog, "lstNames", key);
            }
            bench->dialogs.ExpectQuestion(Text("Remove menu named A ?"), BoxAnswer::No);
            Press(dialog, "lstNames", Qt::Key_Delete);
            bench->dialogs.ExpectInput(NewMenu, std::nullopt);
            Press(dialog, "lstNames", Qt::Key_Insert);
            ClickLine(dialog, "lstItems0", 0);
            Press(dialog, "lstItems1", Qt::Key_Down, Qt::ControlModifier);
            QCOMPARE(Lines(dialog, "lstItems0"), Words("A1 A0"));
            bench->dialogs.ExpectInput(Other("Please type a new name for ", "A0"), std::nullopt);
            Press(dialog, "lstItems0", Qt::Key_Return);
            bench->dialogs.ExpectQuestion(Text("Remove menu item named A0 ?"), BoxAnswer::No);
            Press(dialog, "lstItems1", Qt::Key_Delete);
            QVERIFY(dialog.isVisible());
        });
    }

    void enterInAnEmptyListDoesNotLeave()
    {
        Edit([](QDialog& dialog) {
            Press(dialog, "lstItems0", Qt::Key_Return);
            QVERIFY(dialog.isVisible());
        });
    }

    void theKeyboardReachesEachListAndLine()
    {
        SetMenus(Words("A B"), 2);
        dlgMenu dialog;
        dialog.show();
        dialog.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QCOMPARE(dialog.focusWidget(), List(dialog, "lstNames"));
        QCOMPARE(Chosen(dialog, "lstItems1"), -1);
        QTest::keyClick(dialog.focusWidget(), Qt::Key_T, Qt::AltModifier);
        QTRY_COMPARE(dialog.focusWidget(), List(dialog, "lstItems0"));
        QCOMPARE(Chosen(dialog, "lstItems1"), 0);
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Down);
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
        QCOMPARE(dialog.focusWidget(), List(dialog, "lstItems1"));
        QCOMPARE(Chosen(dialog, "lstItems1"), 1);
        bench->dialogs.ExpectInput(NewItem, std::nullopt);
        QTest::keyClick(dialog.focusWidget(), Qt::Key_D, Qt::AltModifier);
        QTRY_VERIFY(bench->dialogs.Finished());
        QTest::keyClick(dialog.focusWidget(), Qt::Key_X, Qt::AltModifier);
        QTRY_VERIFY(!dialog.isVisible());
    }

    void aDoubleClickEdits()
    {
        SetMenus(Words("A"), 1);
        Edit([this](QDialog& dialog) {
            bench->dialogs.ExpectInput(Other("Please type a new name for ", "A0"), std::nullopt);
            QListWidget* list = List(dialog, "lstItems1");
            const QPoint place = list->visualItemRect(list->item(0)).center();
            QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
            QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, place);
        });
    }

    void removeMenubarHidesItAndStays()
    {
        SetMenus(Words("A"), 1);
        QVERIFY(GuiDesign().form.GuiMenuOn);
        Edit([](QDialog& dialog) {
            Button(dialog, "cmdNoMenu")->click();
            QVERIFY(dialog.isVisible());
            QVERIFY(!GuiDesign().form.GuiMenuOn);
        });
        QCOMPARE(MenuNames(GuiDesign().form), Words("A"));
    }

    void everyWayToCloseUpdatesTheLabel_data()
    {
        QTest::addColumn<int>("way");
        QTest::newRow("Exit") << 0;
        QTest::newRow("Enter") << 1;
        QTest::newRow("Escape") << 2;
        QTest::newRow("the frame's cross") << 3;
    }

    void everyWayToCloseUpdatesTheLabel()
    {
        QFETCH(int, way);
        SetMenus(Words("A"), 1);
        Edit([this, way](QDialog& dialog) {
            bench->dialogs.ExpectInput(NewMenu, Text("B"));
            Button(dialog, "cmdAddMenu")->click();
            if (way == 0)
                Button(dialog, "OKButton")->click();
            else if (way == 1)
                QTest::keyClick(&dialog, Qt::Key_Return);
            else if (way == 2)
                QTest::keyClick(&dialog, Qt::Key_Escape);
            else
                dialog.close();
            QVERIFY(!dialog.isVisible());
        });
        QCOMPARE(GuiDesign().form.menuLabel, Text("A    B    "));
    }
};

OB_BENCH_TEST(win_dlgMenu)
#include "win_dlgMenu.moc"
