// SPDX-License-Identifier: GPL-3.0-or-later
// The window's properties, as a user sets them.
#include "shell/state/cMainForm.h"
#include "support/BenchTest.h"
#include "support/TestBench.h"

#include "core/FakeMainForm.h"
#include "guibuilder/frmColorDefault.h"
#include "guibuilder/frmColorPicker.h"
#include "guibuilder/modGui.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QImage>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace ob;

namespace {

QString Text(const char* text)
{
    return QString::fromLatin1(text);
}

} // namespace

class win_frmColorDefault : public QObject {
    Q_OBJECT

private:
    DefaultsEnd Play(const std::function<void()>& script)
    {
        bench->ExpectModal(Text("frmColorDefault"), [&](QDialog& shown) {
            dialog = &shown;
            script();
        });
        const DefaultsEnd end = ShowColorDefault();
        dialog = nullptr;
        return end;
    }

    QLineEdit* Field(const char* name) const { return dialog->findChild<QLineEdit*>(Text(name)); }
    QCheckBox* Box(const char* name) const { return dialog->findChild<QCheckBox*>(Text(name)); }
    QPushButton* Key(const char* name) const { return dialog->findChild<QPushButton*>(Text(name)); }
    QLabel* Label(const char* name) const { return dialog->findChild<QLabel*>(Text(name)); }
    QComboBox* Types() const { return dialog->findChild<QComboBox*>(Text("Combo1")); }
    frmColorPicker* Picker(int number) const
    {
        return dialog->findChild<frmColorPicker*>(Text("imgCombo") + QString::number(number));
    }
    QImage Swatch(int color) const { return Picker(0)->itemIcon(color).pixmap(Picker(0)->iconSize()).toImage(); }
    QPoint SwatchMiddle() const { return Swatch(0).rect().center(); }
    void Choose(const char* type) const { Types()->setCurrentIndex(Types()->findText(Text(type))); }

    std::unique_ptr<TestBench> bench;
    std::unique_ptr<FakeMainForm> form;
    QDialog* dialog = nullptr;

private Q_SLOTS:
    void init()
    {
        bench = std::make_unique<TestBench>();
        form = std::make_unique<FakeMainForm>();
        MainForm = form.get();
        ResetGui();
    }
    void cleanup()
    {
        bench.reset();
        form.reset();
        ResetGui();
    }

    void theListsHaveTheirEntries()
    {
        Play([this] {
            QStringList types;
            for (int type = 0; type < Types()->count(); ++type)
                types.append(Types()->itemText(type));
            QCOMPARE(types.join(u' '), Text("Window Window_nf Graphics_nsb Graphics_nf_nsb Dialog Dialog_modal"));
            for (int picker = 0; picker < 7; ++picker)
                for (int color = 0; color < ColorCount; ++color) {
                    QCOMPARE(Picker(picker)->itemText(color), LatinText(ColorName[static_cast<std::size_t>(color)]));
                    QVERIFY(!Picker(picker)->itemIcon(color).isNull());
                }
            dialog->reject();
        });
    }

    void everyFieldHasAnAccessibleName()
    {
        Play([this] {
            QWidgetList labelled;
            for (const QLabel* label : dialog->findChildren<QLabel*>())
                labelled.append(label->buddy());
            for (QLineEdit* field : dialog->findChildren<QLineEdit*>())
                QVERIFY2(labelled.contains(field), qPrintable(field->objectName()));
            for (QComboBox* list : dialog->findChildren<QComboBox*>())
                QVERIFY2(labelled.contains(list), qPrintable(list->objectName()));
            QVERIFY(!Key("cmdFont")->accessibleName().isEmpty());
            dialog->reject();
        });
    }

    void openingTouchesNothing()
    {
        GuiDesign().form.GuiWindowType = Text("Dialog");
        GuiDesign().form.GuiMenuOn = false;
        const GuiForm before = GuiDesign().form;
        QCOMPARE(Play([this] {
                     QCOMPARE(Types()->currentText(), Text("Dialog"));
                     QVERIFY(!Box("chkMenu")->isChecked() && Box("chkMenu")->isEnabled());
                     QTest::keyClick(dialog->focusWidget(), Qt::Key_Escape);
                 }),
                 DefaultsEnd::Cancelled);
        QVERIFY(GuiDesign().form == before);
        QVERIFY(form->log.isEmpty());
    }

    void showsTheWindowRecord()
    {
        GuiDesign().form.caption = Text("Addresses");
        GuiDesign().form.width = 4500;
        GuiDesign().form.GuiListboxColor = Text("Pink");
        GuiDesign().form.GuiTimerOn = true;
        Play([this] {
            QCOMPARE(dialog->focusWidget(), Field("txtCaption"));
            QCOMPARE(Field("txtCaption")->selectedText(), Text("Addresses"));
            QCOMPARE(Field("txtHandle")->text(), Text("main"));
            QCOMPARE(Field("txtWidth")->text(), Text("300"));
            QCOMPARE(Field("txtFont")->text(), Text("ms sans serif"));
            QCOMPARE(Label("lblFontSize")->text(), Text("10 pt"));
            QCOMPARE(Picker(2)->currentText(), Text("Pink"));
            QCOMPARE(Picker(6)->currentText(), Text("Buttonface"));
            QVERIFY(Box("chkTimer")->isChecked() && Box("chkMenu")->isChecked() && !Box("chkTooltip")->isChecked());
            dialog->reject();
        });
    }

    void enterConfirmsAndRefreshesTheForm()
    {
        GuiDesign().form.windowTag = Text("open");
        QCOMPARE(Play([this] {
                     QTest::keyClicks(dialog->focusWidget(), Text("My window"));
                     Picker(1)->SelectName(Text("Darkblue"));
                     Picker(5)->SelectName(Text("Yellow"));
                     Box("chkTooltip")->setChecked(true);
                     Field("txtHeight")->setText(Text("200"));
                     QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
                 }),
                 DefaultsEnd::Confirmed);
        QCOMPARE(GuiDesign().form.caption, Text("My window"));
        QCOMPARE(GuiDesign().form.windowTag, Text("Window"));
        QCOMPARE(GuiDesign().form.GuiBackgroundColor, Text("Darkblue"));
        QCOMPARE(GuiDesign().form.backColor, Rgb(0, 0, 128));
        QCOMPARE(GuiDesign().form.GuiTexteditorColor, Text("Yellow"));
        QVERIFY(GuiDesign().form.GuiTooltipsOn);
        QCOMPARE(GuiDesign().form.height, 3000.0f);
        QCOMPARE(static_cast<int>(GuiDesign().form.GuiDefaultsState), 1);
        QCOMPARE(form->log, QStringList{Text("refresh gui")});
    }

    void cancelLeavesANewFormUnconfirmed()
    {
        GuiDesign().form.windowTag = Text("open");
        Play([this] { Key("CancelButton")->click(); });
        QCOMPARE(GuiDesign().form.windowTag, Text("open"));
        QCOMPARE(static_cast<int>(GuiDesign().form.GuiDefaultsState), -1);
    }

    void dialogTypeRemovesTheMenuAtOnce()
    {
        QCOMPARE(Play([this] {
                     Choose("Dialog");
                     QVERIFY(!Box("chkMenu")->isChecked() && !Box("chkMenu")->isEnabled());
                     QVERIFY(!GuiDesign().form.GuiMenuOn);
                     QCOMPARE(form->log, (QStringList{Text("refresh gui"), Text("disable tool Open Menu Editor")}));
                     Key("CancelButton")->click();
                 }),
                 DefaultsEnd::Cancelled);
        QVERIFY(!GuiDesign().form.GuiMenuOn);
        QCOMPARE(GuiDesign().form.GuiWindowType, Text("Window"));
    }

    void windowTypeEnablesTheMenuBoxButDoesNotRestoreTheMenu()
    {
        Play([this] {
            Choose("Dialog_modal");
            form->log.clear();
            Choose("Graphics_nsb");
            QVERIFY(Box("chkMenu")->isEnabled() && !Box("chkMenu")->isChecked());
            QCOMPARE(form->log, (QStringList{Text("refresh gui"), Text("enable tool Open Menu Editor")}));
            QVERIFY(!GuiDesign().form.GuiMenuOn);
            Box("chkMenu")->click();
            QVERIFY(GuiDesign().form.GuiMenuOn);
            dialog->reject();
        });
        QVERIFY(GuiDesign().form.GuiMenuOn);
    }

    void otherWindowTypesKeepTheMenu()
    {
        Play([this] {
            Choose("Window_nf");
            QVERIFY(GuiDesign().form.GuiMenuOn && Box("chkMenu")->isChecked());
            dialog->reject();
        });
    }

    void menuBoxTakesEffectAtOnceAndSurvivesCancel()
    {
        Play([this] {
            Box("chkMenu")->click();
            QVERIFY(!GuiDesign().form.GuiMenuOn);
            QCOMPARE(form->log, QStringList{Text("refresh gui")});
            Key("CancelButton")->click();
        });
        QVERIFY(!GuiDesign().form.GuiMenuOn);
    }

    void statusTextFollowsItsBox()
    {
        Play([this] {
            QVERIFY(!Field("txtStatus")->isEnabled());
            Box("chkStatusbar")->click();
            QVERIFY(Field("txtStatus")->isEnabled());
            QVERIFY(!GuiDesign().form.GuiStatusbarOn);
            Field("txtStatus")->clear();
            Key("OKButton")->click();
        });
        QVERIFY(GuiDesign().form.GuiStatusbarOn);
        QCOMPARE(GuiDesign().form.panels.front(), FirstPanelText);
        Play([this] {
            QVERIFY(Field("txtStatus")->isEnabled());
            Box("chkStatusbar")->click();
            QVERIFY(!Field("txtStatus")->isEnabled());
            dialog->reject();
        });
        QVERIFY(GuiDesign().form.GuiStatusbarOn);
    }

    void fontComesFromTheFontBox()
    {
        bench->dialogs.ExpectFont({Text("ms sans serif"), 10, false, false}, std::nullopt);
        bench->dialogs.ExpectFont({Text("ms sans serif"), 10, false, false}, FontSpec{Text("Arial"), 14, true, false});
        bench->dialogs.ExpectFont({Text("Arial"), 14, false, false}, std::nullopt);
        Play([this] {
            Key("cmdFont")->click();
            QCOMPARE(Field("txtFont")->text(), Text("ms sans serif"));
            Key("cmdFont")->click();
            QCOMPARE(Field("txtFont")->text(), Text("Arial"));
            QCOMPARE(Label("lblFontSize")->text(), Text("14 pt"));
            QCOMPARE(GuiDesign().form.GuiFontName, Text("ms sans serif"));
            Key("cmdFont")->click();
            Key("OKButton")->click();
        });
        QCOMPARE(GuiDesign().form.GuiFontName, Text("Arial"));
        QCOMPARE(GuiDesign().form.GuiFontSize, Text("14"));
    }

    void graphicsWindowTakesTheLastPicker()
    {
        Play([this] {
            const QString note = Label("lblGraphics")->text();
            Choose("Graphics_nf_nsb");
            QVERIFY(Label("lblGraphics")->text() != note);
            Picker(1)->SelectName(Text("Red"));
            Picker(6)->SelectName(Text("Cyan"));
            Key("OKButton")->click();
        });
        QCOMPARE(GuiDesign().form.GuiBackgroundColor, Text("Cyan"));
        QCOMPARE(GuiDesign().form.backColor, Rgb(0, 255, 255));
    }

    void unknownColorNameIsShownNotChosenAndKept()
    {
        GuiDesign().form.GuiTextboxColor = Text("Mauve");
        const auto look = [this] {
            QCOMPARE(Picker(4)->currentIndex(), -1);
            QCOMPARE(Picker(4)->Name(), Text("Mauve"));
        };
        Play([&] {
            look();
            Key("OKButton")->click();
        });
        QCOMPARE(GuiDesign().form.GuiTextboxColor, Text("Mauve"));
        Play([&] {
            look();
            Picker(4)->setCurrentIndex(0);
            Key("OKButton")->click();
        });
        QCOMPARE(GuiDesign().form.GuiTextboxColor, Text("Black"));
    }

    void swatchesShowTheirColors()
    {
        Play([this] {
            QCOMPARE(Swatch(0).pixelColor(SwatchMiddle()), QColor(0, 0, 0));
            QCOMPARE(Swatch(4).pixelColor(SwatchMiddle()), QColor(255, 0, 0));
            QCOMPARE(Swatch(13).pixelColor(SwatchMiddle()), QColor(0, 0, 128));
            QCOMPARE(Swatch(4).pixelColor(0, 0).alpha(), 255);
            dialog->reject();
        });
    }

    void buttonfaceIsAKeyInTheDesktopsColor()
    {
        Play([this] {
            for (const QColor& face : {QColor(240, 240, 240), QColor(60, 60, 64)}) {
                QPalette colors = Picker(0)->palette();
                colors.setColor(QPalette::Button, face);
                Picker(0)->setPalette(colors);
                const QImage swatch = Swatch(ColorCount - 1);
                const int shade = swatch.pixelColor(SwatchMiddle()).lightness() - face.lightness();
                QVERIFY2(std::abs(shade) < 6, qPrintable(QString::number(shade)));
                // Its corners are round.
                QVERIFY(swatch.pixelColor(0, 0).alpha() < 100);
            }
            dialog->reject();
        });
    }

    void noTwoControlsShareAKey()
    {
        Play([this] {
            QStringList keys;
            for (const QLabel* label : dialog->findChildren<QLabel*>())
                keys.append(QKeySequence::mnemonic(label->text()).toString());
            for (const QAbstractButton* button : dialog->findChildren<QAbstractButton*>())
                keys.append(QKeySequence::mnemonic(button->text()).toString());
            keys.removeAll(QString());
            QVERIFY(keys.size() > 15);
            QCOMPARE(keys.removeDuplicates(), 0);
            dialog->reject();
        });
    }
};

OB_BENCH_TEST(win_frmColorDefault)
#include "win_frmColorDefault.moc"
