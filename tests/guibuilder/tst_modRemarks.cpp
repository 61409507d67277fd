// SPDX-License-Identifier: GPL-3.0-or-later
// The remarks on a form: each oddity once, with its control, and none on a plain form.
#include "guibuilder/modRemarks.h"

#include "guibuilder/FormLines.h"

#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

const QString NameRule = u" A name is a letter, then letters, digits, \".\" and \"_\"."_s;

std::vector<FormRemark> Remarks(const GuiForm& form)
{
    return RemarksOn(Completed(form, CompletedFor::Program));
}

ControlRef Put(GuiForm& form, ControlKind kind, const QString& tag = {})
{
    const ControlRef ref = AddControl(form, kind);
    form.At(ref).visible = true;
    form.At(ref).tag = tag;
    return ref;
}

} // namespace

class tst_modRemarks : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aPlainFormHasNone()
    {
        GuiForm form;
        for (const KindTraits& traits : KindTable)
            if (traits.kind != ControlKind::Bmpbutton)
                for (int number = 0; number < 3; ++number)
                    Put(form, traits.kind);
        form.GuiMenuNames[0] = u"&File"_s;
        form.GuiMenuItems[0][0] = u"&Open  [open]"_s;
        QCOMPARE(Remarks(form), std::vector<FormRemark>{});
    }

    void aNameInUseIsNamedWithItsFirstOwner()
    {
        GuiForm form;
        Put(form, ControlKind::Button, u"go *Starts"_s);
        const ControlRef second = Put(form, ControlKind::Textbox, u"go"_s);
        // Names tell capitals apart, and a deleted control has none.
        Put(form, ControlKind::Textbox, u"Go"_s);
        form.At(Put(form, ControlKind::Listbox, u"go"_s)).visible = false;
        QCOMPARE(Remarks(form), (std::vector<FormRemark>{{second, u"TextBox 1: Button 1 has the name \"go\" too."_s}}));
    }

    void aNameMadeForAControlCountsToo()
    {
        GuiForm form;
        const ControlRef unnamed = Put(form, ControlKind::Statictext);
        Put(form, ControlKind::Button, u"static1"_s);
        QCOMPARE(Remarks(form),
                 (std::vector<FormRemark>{{unnamed, u"StaticText 1: Button 1 has the name \"static1\" too."_s}}));
    }

    void whatIsNoNameIsRemarkedOn_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("isName");
        for (const char* good : {"a", "Z9", "ok.button_2", "loadbmp"})
            QTest::newRow(good) << QString::fromLatin1(good) << true;
        for (const char* bad : {"my button", "1st", "gr\u00F6\u00DFe", "a-b", "#a", "_a", ".a", "a$"})
            QTest::newRow(bad) << QString::fromUtf8(bad) << false;
    }

    void whatIsNoNameIsRemarkedOn()
    {
        QFETCH(QString, name);
        QFETCH(bool, isName);
        GuiForm form;
        const ControlRef control = Put(form, ControlKind::Button, name);
        std::vector<FormRemark> expected;
        if (!isName)
            expected.push_back({control, u"Button 1: \"%1\" is no name."_s.arg(name) + NameRule});
        QCOMPARE(Remarks(form), expected);
    }

    void theHandleIsANameOrANumber()
    {
        GuiForm form;
        form.GuiHandleName = u"1"_s;
        QCOMPARE(Remarks(form), std::vector<FormRemark>{});
        form.GuiHandleName = u"my window"_s;
        QCOMPARE(Remarks(form),
                 (std::vector<FormRemark>{{std::nullopt, u"The window: \"my window\" is no name."_s + NameRule}}));
    }

    void quotationMarksAreFoundWhereTheProgramHasTheText()
    {
        GuiForm form;
        const QString quoted = u"say \"hello\""_s;
        const QString end = u" has a quotation mark, which ends the text in the program."_s;
        form.caption = quoted;
        form.GuiStatusbarOn = form.GuiTooltipsOn = true;
        form.panels = {u"one"_s, quoted};
        form.GuiMenuNames[0] = u"&File"_s;
        form.GuiMenuItems[0][0] = quoted + u"  [a]"_s;
        const ControlRef button = Put(form, ControlKind::Button, u"go *"_s + quoted);
        form.At(button).caption = quoted;
        // Its text is not in the program.
        form.At(Put(form, ControlKind::Textbox)).caption = quoted;
        QCOMPARE(Remarks(form), (std::vector<FormRemark>{{std::nullopt, u"The window: its caption"_s + end},
                                                         {std::nullopt, u"The status bar: panel 2"_s + end},
                                                         {std::nullopt, u"The menu &File: an item"_s + end},
                                                         {button, u"Button 1: its caption"_s + end},
                                                         {button, u"Button 1: its tool tip"_s + end}}));
        form.GuiStatusbarOn = form.GuiTooltipsOn = form.GuiMenuOn = false;
        QCOMPARE(Remarks(form).size(), std::size_t{2});
    }

    void aBitmapWithoutAFileIsNamed()
    {
        QTemporaryDir folder;
        const QString there = folder.filePath(u"there.bmp"_s);
        QFile file(there);
        QVERIFY(file.open(QIODevice::WriteOnly));
        GuiForm form;
        form.At(Put(form, ControlKind::Bmpbutton)).caption = there;
        const ControlRef missing = Put(form, ControlKind::Bmpbutton);
        form.At(missing).caption = u"nowhere.bmp"_s;
        const ControlRef none = Put(form, ControlKind::Bmpbutton);
        form.At(none).caption = NoBitmap;
        QCOMPARE(Remarks(form), (std::vector<FormRemark>{{missing, u"BmpButton 2: there is no file nowhere.bmp."_s},
                                                         {none, u"BmpButton 3: it has no bitmap."_s}}));
    }
};

QTEST_APPLESS_MAIN(tst_modRemarks)
#include "tst_modRemarks.moc"
