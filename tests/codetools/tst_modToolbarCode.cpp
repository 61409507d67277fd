// SPDX-License-Identifier: GPL-3.0-or-later
// The toolbar maker's listings and the rules for labels, tips and handles.
#include "codetools/modToolbarCode.h"

#include "codetools/modAPItextedit.h"
#include "core/CoreBench.h"
#include "platform/files/modFiles.h"
#include "platform/language/modAnsi.h"

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

QByteArray Golden(const char* name)
{
    return ReadWhole(u"" OB_TEST_DATA "/codetools/"_s + QString::fromLatin1(name));
}

QByteArray CodeOf(const ToolbarSpec& spec)
{
    return AnsiFromText(ToolbarCode(spec)).bytes;
}

} // namespace

class tst_modToolbarCode : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aNewWindowOmitsTheBlockOfItsOwnExit()
    {
        ToolbarSpec spec;
        spec.buttons = {
            {u"[open]"_s, u"Open a file"_s}, {u"[quit]"_s, u"Leave"_s}, {u"[branch3]"_s, u"branch3 tooltip"_s}};
        spec.bitmap = u"toolbar.bmp"_s;
        QCOMPARE(CodeOf(spec), Golden("toolbar-new.bas"));
    }

    void textsAreInsertedUnchanged()
    {
        ToolbarSpec spec;
        spec.buttons = {{u"[a]"_s, u"{i} \"quoted\" {tip}"_s}};
        spec.style = ToolbarStyle::Raised;
        spec.border = ToolbarBorder::Thick;
        spec.program = u"editor.bas"_s;
        spec.bitmap = u"c:\\pictures\\bar.bmp"_s;
        QCOMPARE(CodeOf(spec), Golden("toolbar-raised.bas"));
    }

    void anExistingWindowGetsItsHandleAndTheExit()
    {
        ToolbarSpec spec;
        spec.buttons = {{u"[open]"_s, u"\u00d6ffnen"_s}, {u"[save]"_s, u"Save"_s}};
        spec.border = ToolbarBorder::Thin;
        spec.program = u"ignored.bas"_s;
        spec.bitmap = u"C:\\bench\\\\toolbar.bmp"_s;
        spec.handle = u"#win"_s;
        QCOMPARE(CodeOf(spec), Golden("toolbar-existing.bas"));
    }

    void withoutStylesTheLineIsEightSpaces()
    {
        ToolbarSpec spec;
        spec.buttons = {{u"[a]"_s, u"A"_s}};
        spec.style = ToolbarStyle::Raised;
        QVERIFY(CodeOf(spec).contains("TBSTYLE.WRAPABLE _\r\n        \r\n    uStructSize"));
    }

    void labelsGetTheirBrackets()
    {
        const auto label = [](const char* answer) { return ToolbarBranchOf(QString::fromLatin1(answer), 7); };
        QCOMPARE(label(""), u"[branch7]"_s);
        QCOMPARE(label("branch7"), u"[branch7]"_s);
        QCOMPARE(label("[open"), u"[open]"_s);
        QCOMPARE(label("open]"), u"[open]"_s);
        QCOMPARE(label("[open]"), u"[open]"_s);
        QCOMPARE(label("["), u"[]"_s);
        QCOMPARE(label(" "), u"[ ]"_s);
    }

    void anEmptyTipIsNamedAfterItsButton()
    {
        QCOMPARE(ToolbarTipOf({}, 12), u"branch12 tooltip"_s);
        QCOMPARE(ToolbarTipOf(u"%1"_s, 12), u"%1"_s);
    }

    void handlesGetTheirNumberSign()
    {
        QCOMPARE(WindowHandleOf(u"main"_s), std::optional(u"#main"_s));
        QCOMPARE(WindowHandleOf(u"#main"_s), std::optional(u"#main"_s));
        QVERIFY(!WindowHandleOf({}));
    }

    void theTextEditorOpensInANewWindowEachTime()
    {
        CoreBench bench;
        const QByteArray code = TextEditorCode();
        QCOMPARE(code.count("\r\n"), 203);
        QCOMPARE(code.count('\n'), 203);
        QVERIFY(code.startsWith("nomainwin\r\nWindowWidth=640:WindowHeight=480\r\n"));
        QVERIFY(code.endsWith("    1 as boolean, result as boolean\r\n    end sub\r\n"));
        mnuToolTE_Click();
        cDocument* const first = bench.form.active;
        QCOMPARE(first->Caption(), u"untitled.bas"_s);
        mnuToolTE_Click();
        QVERIFY(bench.form.active != first);
        QCOMPARE(bench.form.active->Caption(), u"untitled.bas"_s);
        QCOMPARE(FakeMainForm::Control(*bench.form.active).text, FakeMainForm::Control(*first).text);
        QCOMPARE(FakeMainForm::Control(*first).text, code);
    }
};

OB_CORE_TEST(tst_modToolbarCode)
#include "tst_modToolbarCode.moc"
