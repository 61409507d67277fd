// SPDX-License-Identifier: GPL-3.0-or-later
// The control properties, as a user fills them in.
#include "shell/state/cMainForm.h"
#include "support/BenchTest.h"
#include "support/TestBench.h"

#include "core/FakeMainForm.h"
#include "guibuilder/frmColorPicker.h"
#include "guibuilder/frmProp.h"
#include "shell/state/frmStyle.h"

#include <QClipboard>
#include <QDir>
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

class win_frmProp : public QObject {
    Q_OBJECT

private:
    // The dialog of a control of that kind, driven by the script.
    PropEnd Play(ControlKind kind, const std::function<void()>& script)
    {
        bench->ExpectModal(Text("frmProp"), [&](QDialog& shown) {
            dialog = &shown;
            script();
        });
        const PropEnd end = ShowProp(ref, LatinText(TraitsOf(kind).propWord));
        dialog = nullptr;
        return end;
    }

    ControlRecord& Place(ControlKind kind)
    {
        ref = AddControl(GuiDesign().form, kind);
        ControlRecord& control = GuiDesign().form.At(ref);
        control.visible = true;
        control.left = 150;
        control.top = 300;
        return control;
    }
    ControlRecord& Control() const { return GuiDesign().form.At(ref); }

    QLineEdit* Field(const char* name) const { return dialog->findChild<QLineEdit*>(Text(name)); }
    QPushButton* Key(const char* name) const { return dialog->findChild<QPushButton*>(Text(name)); }
    QLabel* Label(const char* name) const { return dialog->findChild<QLabel*>(Text(name)); }
    frmColorPicker* Picker() const { return dialog->findChild<frmColorPicker*>(Text("imgCombo")); }
    void Press(const char* name) const { Key(name)->click(); }
    void Press(Qt::Key key) const { QTest::keyClick(dialog->focusWidget(), key); }

    QString PutBitmap(const QString& name, int width, int height) const
    {
        QImage picture(width, height, QImage::Format_RGB32);
        picture.fill(Qt::red);
        if (!picture.save(bench->Path(name), "BMP"))
            QTest::qFail("the test's own bitmap cannot be written", __FILE__, __LINE__);
        return QDir::toNativeSeparators(bench->Path(name));
    }

    void ExpectBitmapBox(const QString& answer) const
    {
        bench->dialogs.ExpectFile(FilePurpose::Open, Text("Open"), Text("Bitmap Files |*.bmp;*.bmp;"), answer);
    }
    void ExpectBitmapQuestion(BoxAnswer answer) const
    {
        bench->dialogs.ExpectMessage(
            Text("This bmpbutton does not have an associated bitmap.  Would you like to choose "
                 "a bitmap for this button."),
            answer, BoxIcon::Question, BoxButtons::YesNoCancel);
    }

    std::unique_ptr<TestBench> bench;
    std::unique_ptr<FakeMainForm> form;
    ControlRef ref;
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

    void titleTipsAndCaptionsAreAsExpected()
    {
        Place(ControlKind::Texteditor);
        Play(ControlKind::Texteditor, [this] {
            QCOMPARE(dialog->windowTitle(), Text("TextEditor Properties"));
            QCOMPARE(Field("txtBitmap")->toolTip(), Text("For bitmap buttons only!"));
            QCOMPARE(Field("txtTooltip")->toolTip(),
                     Text("Choose 'Tooltips On' in Window defaults to activate tooltips."));
            QCOMPARE(Key("cmdDelete")->toolTip(), Text("Delete the current control!??"));
            const auto caption = [](const QString& text) { return QString(text).remove(u'&'); };
            QCOMPARE(caption(Key("cmdDelete")->text()), Text("DELETE"));
            QCOMPARE(Key("cmdBitmap")->text(), Text("..."));
            for (const auto& [label, text] : {std::pair{"lblExt", "*.ext"},
                                              {"lblCaption", "Caption:"},
                                              {"lblBranch", "Branch:"},
                                              {"lblBitmap", "Bitmap:"},
                                              {"lblTooltip", "Tooltip:"},
                                              {"lblColor", "Color:"}})
                QCOMPARE(caption(Label(label)->text()), Text(text));
            QCOMPARE(Picker()->count(), ColorCount);
            dialog->reject();
        });
    }

    void everyFieldHasAnAccessibleName()
    {
        Place(ControlKind::Button);
        Play(ControlKind::Button, [this] {
            QWidgetList labelled;
            for (const QLabel* label : dialog->findChildren<QLabel*>())
                labelled.append(label->buddy());
            for (QLineEdit* field : dialog->findChildren<QLineEdit*>())
                QVERIFY2(labelled.contains(field), qPrintable(field->objectName()));
            QVERIFY(labelled.contains(Picker()));
            QVERIFY(!Key("cmdBitmap")->accessibleName().isEmpty());
            dialog->reject();
        });
    }

    void noTwoControlsShareAKey()
    {
        Place(ControlKind::Button);
        Play(ControlKind::Button, [this] {
            QStringList keys;
            for (const QLabel* label : dialog->findChildren<QLabel*>())
                keys.append(QKeySequence::mnemonic(label->text()).toString());
            for (const QPushButton* button : dialog->findChildren<QPushButton*>())
                keys.append(QKeySequence::mnemonic(button->text()).toString());
            keys.removeAll(QString());
            QVERIFY(keys.size() > 10);
            QCOMPARE(keys.removeDuplicates(), 0);
            dialog->reject();
        });
    }

    void fieldsHoldWhatTheyShow()
    {
        UseBenchStyle();
        QGuiApplication::clipboard()->setText(Text("one\r\ntwo\n"));
        Place(ControlKind::Button);
        Play(ControlKind::Button, [this] {
            int pasted = 0;
            for (QLineEdit* field : dialog->findChildren<QLineEdit*>()) {
                if (!field->isEnabled() || !field->isVisible() || field->isReadOnly())
                    continue;
                ++pasted;
                field->clear();
                QTest::keyClick(field, Qt::Key_V, Qt::ControlModifier);
                QVERIFY2(field->text() == Text("one two"), qPrintable(field->objectName()));
            }
            QVERIFY(pasted >= 3);
            dialog->reject();
        });
    }

    void startsWithTheNameSelected()
    {
        Place(ControlKind::Button).tag = Text("ok *Go");
        Play(ControlKind::Button, [this] {
            QCOMPARE(dialog->focusWidget(), Field("txtExt"));
            QCOMPARE(Field("txtExt")->selectedText(), Text("ok"));
            QCOMPARE(Field("txtTooltip")->text(), Text("Go"));
            QCOMPARE(Field("txtX")->text(), Text("10"));
            QCOMPARE(Field("txtHeight")->text(), Text("30"));
            dialog->reject();
        });
    }

    void fieldsThatAKindLacksAreDisabled()
    {
        Place(ControlKind::Groupbox);
        Play(ControlKind::Groupbox, [this] {
            for (const char* name : {"txtBranch", "txtBitmap", "txtTooltip"}) {
                QVERIFY(!Field(name)->isEnabled());
                QCOMPARE(Field(name)->text(), Text("N/A"));
            }
            QVERIFY(!Key("cmdBitmap")->isEnabled() && !Picker()->isEnabled());
            QVERIFY(Field("txtCaption")->isEnabled() && Field("txtExt")->isEnabled());
            QVERIFY(!Label("picPreview")->isVisible());
            dialog->reject();
        });
    }

    void enterConfirmsAndRefreshesTheForm()
    {
        Place(ControlKind::Button);
        const PropEnd end = Play(ControlKind::Button, [this] {
            QTest::keyClicks(dialog->focusWidget(), Text("ok"));
            Field("txtX")->setText(Text("40"));
            Field("txtWidth")->setText(Text("0"));
            Field("txtCaption")->setText(Text("Go on"));
            Field("txtBranch")->setText(Text("[ok]"));
            Press(Qt::Key_Return);
        });
        QCOMPARE(end, PropEnd::Confirmed);
        QCOMPARE(Control().tag, Text("ok *"));
        QCOMPARE(Control().left, 600.0f);
        QCOMPARE(Control().width, 10.0f);
        QCOMPARE(Control().caption, Text("Go on"));
        QCOMPARE(Control().branch, Text("[ok]"));
        QCOMPARE(form->log, QStringList{Text("refresh gui")});
    }

    void escapeAndCancelChangeNothing()
    {
        Place(ControlKind::Button);
        const GuiForm before = GuiDesign().form;
        const auto spoil = [this] { Field("txtExt")->setText(Text("other")); };
        QCOMPARE(Play(ControlKind::Button,
                      [&] {
                          spoil();
                          Press(Qt::Key_Escape);
                      }),
                 PropEnd::Cancelled);
        QCOMPARE(Play(ControlKind::Button,
                      [&] {
                          spoil();
                          Press("CancelButton");
                      }),
                 PropEnd::Cancelled);
        QVERIFY(GuiDesign().form == before);
        QVERIFY(form->log.isEmpty());
    }

    void nothingHappensWhileAFormIsLoaded()
    {
        Place(ControlKind::Button);
        GuiDesign().GuiFormLoading = true;
        QCOMPARE(ShowProp(ref, Text("Button")), PropEnd::Cancelled);
        QVERIFY(form->log.isEmpty());
    }

    void graphicboxIsColoredByTheChosenEntry()
    {
        Place(ControlKind::Graphicbox).backColor = Rgb(0, 0, 255);
        Play(ControlKind::Graphicbox, [this] {
            QVERIFY(Picker()->isEnabled());
            QCOMPARE(Picker()->currentText(), Text("Blue"));
            Picker()->setCurrentIndex(Picker()->findText(Text("Buttonface")));
            Press("OKButton");
        });
        QCOMPARE(Control().backColor, ColorRef{0x8000000F});
    }

    void deleteAsksAndHides()
    {
        Place(ControlKind::Button);
        bench->dialogs.ExpectMessage(Text("Delete this control?"), BoxAnswer::No, BoxIcon::Critical, BoxButtons::YesNo);
        bench->dialogs.ExpectMessage(Text("Delete this control?"), BoxAnswer::Yes, BoxIcon::Critical,
                                     BoxButtons::YesNo);
        const PropEnd end = Play(ControlKind::Button, [this] {
            Field("txtExt")->setText(Text("gone"));
            Press("cmdDelete");
            QVERIFY(dialog->isVisible() && Control().visible);
            Press("cmdDelete");
        });
        QCOMPARE(end, PropEnd::Deleted);
        QVERIFY(!Control().visible);
        QCOMPARE(Control().tag, Text("gone *"));
        QCOMPARE(form->log, QStringList{Text("refresh gui")});
    }

    void deletedBmpbuttonIsNotAskedForItsBitmap()
    {
        Place(ControlKind::Bmpbutton);
        bench->dialogs.ExpectMessage(Text("Delete this control?"), BoxAnswer::Yes, BoxIcon::Critical,
                                     BoxButtons::YesNo);
        QCOMPARE(Play(ControlKind::Bmpbutton, [this] { Press("cmdDelete"); }), PropEnd::Deleted);
    }

    void enterNeverDeletes()
    {
        Place(ControlKind::Button);
        QCOMPARE(Play(ControlKind::Button,
                      [this] {
                          Key("cmdDelete")->setFocus();
                          Press(Qt::Key_Return);
                      }),
                 PropEnd::Confirmed);
        QVERIFY(Control().visible);
    }

    void chosenBitmapIsPreviewedAndTaken()
    {
        const QString path = PutBitmap(Text("Key Two.bmp"), 300, 24);
        Place(ControlKind::Bmpbutton);
        ExpectBitmapBox(path);
        Play(ControlKind::Bmpbutton, [&] {
            QCOMPARE(Field("txtBitmap")->text(), Text("bmpbttn"));
            QVERIFY(!Field("txtCaption")->isEnabled());
            QVERIFY(Label("picPreview")->isVisible() && Label("picPreview")->pixmap().isNull());
            Press("cmdBitmap");
#ifndef Q_OS_WIN
            QCOMPARE(Field("txtBitmap")->text(), path);
#endif
            const QSize shown = Label("picPreview")->pixmap().size();
            QVERIFY(!shown.isEmpty() && shown.width() <= Label("picPreview")->width());
            QVERIFY(Label("lblPreview")->text().contains(Text("300 x 24")));
            Field("txtWidth")->setText(Text("7"));
            Press("OKButton");
        });
        QCOMPARE(Control().picture.Image().size(), QSize(300, 24));
        QCOMPARE(Control().width, 4500.0f);
        QCOMPARE(Control().height, 360.0f);
    }

    void cancelledBitmapBoxLeavesThePath()
    {
        Place(ControlKind::Bmpbutton).caption = Text("old.bmp");
        ExpectBitmapBox({});
        Play(ControlKind::Bmpbutton, [this] {
            Press("cmdBitmap");
            QCOMPARE(Field("txtBitmap")->text(), Text("old.bmp"));
            dialog->reject();
        });
    }

    void previewShowsWhatIsWrongWithABitmap()
    {
        bench->Write(Text("text.bmp"), "print 1");
        Place(ControlKind::Bmpbutton);
        Play(ControlKind::Bmpbutton, [this] {
            QStringList words{Label("lblPreview")->text()};
            for (const char* path : {"missing.bmp", "text.bmp"}) {
                Field("txtBitmap")->setText(Text(path));
                words.append(Label("lblPreview")->text());
                QVERIFY(Label("picPreview")->pixmap().isNull());
            }
            QCOMPARE(words.removeDuplicates(), 0);
            Press("OKButton");
        });
        QCOMPARE(Control().caption, Text("text.bmp"));
        QVERIFY(Control().picture.IsNull());
    }

    void missingBitmapMayBeLeftOut()
    {
        Place(ControlKind::Bmpbutton);
        ExpectBitmapQuestion(BoxAnswer::No);
        QCOMPARE(Play(ControlKind::Bmpbutton, [this] { Press("OKButton"); }), PropEnd::Confirmed);
        QCOMPARE(Control().caption, NoBitmap);
    }

    void missingBitmapMayBeChosenThen()
    {
        const QString path = PutBitmap(Text("key.bmp"), 5, 6);
        Place(ControlKind::Bmpbutton);
        ExpectBitmapQuestion(BoxAnswer::Yes);
        ExpectBitmapBox(path);
        QCOMPARE(Play(ControlKind::Bmpbutton,
                      [this] {
                          Press("OKButton");
                          QVERIFY(dialog->isVisible());
                          QVERIFY(Control().picture.IsNull());
                          Press("OKButton");
                      }),
                 PropEnd::Confirmed);
        QCOMPARE(Control().picture.Image().size(), QSize(5, 6));
    }

    void cancellingTheBitmapQuestionLeavesTheDialogOpen()
    {
        Place(ControlKind::Bmpbutton);
        ExpectBitmapQuestion(BoxAnswer::Cancel);
        const PropEnd end = Play(ControlKind::Bmpbutton, [this] {
            Field("txtExt")->setText(Text("key"));
            Press("OKButton");
            QVERIFY(dialog->isVisible());
            Press("CancelButton");
        });
        // The other fields were already in the control, so the form has changed.
        QCOMPARE(end, PropEnd::Confirmed);
        QCOMPARE(Control().tag, Text("key *"));
        QCOMPARE(form->log, QStringList{Text("refresh gui")});
    }
};

OB_BENCH_TEST(win_frmProp)
#include "win_frmProp.moc"
