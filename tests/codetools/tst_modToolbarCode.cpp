// SPDX-License-Identifier: GPL-3.0-or-later
// The toolbar maker's listings and the rules for labels, tips and handles.
#include "codetools/modToolbarCode.h"

#include "codetools/modAPItextedit.h"
#include "core/CoreBench.h"
#include "platform/files/modFiles.h"
#include "platform/language/modAnsi.h"

using namespace ob;

namespace {

QByteArray Golden(const char* name)
{
    return ReadWhole(QStringLiteral(OB_TEST_DATA "/codetools/") + QString::fromLatin1(name));
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
        spec.buttons = {{QStringLiteral("[open]"), QStringLiteral("Open a file")},
                        {QStringLiteral("[quit]"), QStringLiteral("Leave")},
                        {QStringLiteral("[branch3]"), QStringLiteral("branch3 tooltip")}};
        spec.bitmap = QStringLiteral("toolbar.bmp");
        QCOMPARE(CodeOf(spec), Golden("toolbar-new.bas"));
    }

    void textsAreInsertedUnchanged()
    {
        ToolbarSpec spec;
        spec.buttons = {{QStringLiteral("[a]"), QStringLiteral("{i} \"quoted\" {tip}")}};
        spec.style = ToolbarStyle::Raised;
        spec.border = ToolbarBorder::Thick;
        spec.program = QStringLiteral("editor.bas");
        spec.bitmap = QStringLiteral("c:\\pictures\\bar.bmp");
        QCOMPARE(CodeOf(spec), Golden("toolbar-raised.bas"));
    }

    void anExistingWindowGetsItsHandleAndTheExit()
    {
        ToolbarSpec spec;
        spec.buttons = {{QStringLiteral("[open]"), QStringLiteral("\u00d6ffnen")},
                        {QStringLiteral("[save]"), QStringLiteral("Save")}};
        spec.border = ToolbarBorder::Thin;
        spec.program = QStringLiteral("ignored.bas");
        spec.bitmap = QStringLiteral("C:\\bench\\\\toolbar.bmp");
        spec.handle = QStringLiteral("#win");
        QCOMPARE(CodeOf(spec), Golden("toolbar-existing.bas"));
    }

    void withoutStylesTheLineIsEightSpaces()
    {
        ToolbarSpec spec;
        spec.buttons = {{QStringLiteral("[a]"), QStringLiteral("A")}};
        spec.style = ToolbarStyle::Raised;
        QVERIFY(CodeOf(spec).contains("TBSTYLE.WRAPABLE _\r\n        \r\n    uStructSize"));
    }

    void labelsGetTheirBrackets()
    {
        const auto label = [](const char* answer) { return ToolbarBranchOf(QString::fromLatin1(answer), 7); };
        QCOMPARE(label(""), QStringLiteral("[branch7]"));
        QCOMPARE(label("branch7"), QStringLiteral("[branch7]"));
        QCOMPARE(label("[open"), QStringLiteral("[open]"));
        QCOMPARE(label("open]"), QStringLiteral("[open]"));
        QCOMPARE(label("[open]"), QStringLiteral("[open]"));
        QCOMPARE(label("["), QStringLiteral("[]"));
        QCOMPARE(label(" "), QStringLiteral("[ ]"));
    }

    void anEmptyTipIsNamedAfterItsButton()
    {
        QCOMPARE(ToolbarTipOf({}, 12), QStringLiteral("branch12 tooltip"));
        QCOMPARE(ToolbarTipOf(QStringLiteral("%1"), 12), QStringLiteral("%1"));
    }

    void handlesGetTheirNumberSign()
    {
        QCOMPARE(WindowHandleOf(QStringLiteral("main")), std::optional(QStringLiteral("#main")));
        QCOMPARE(WindowHandleOf(QStringLiteral("#main")), std::optional(QStringLiteral("#main")));
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
        QCOMPARE(first->Caption(), QStringLiteral("untitled.bas"));
        mnuToolTE_Click();
        QVERIFY(bench.form.active != first);
        QCOMPARE(bench.form.active->Caption(), QStringLiteral("untitled.bas"));
        QCOMPARE(FakeMainForm::Control(*bench.form.active).text, FakeMainForm::Control(*first).text);
        QCOMPARE(FakeMainForm::Control(*first).text, code);
    }
};

OB_CORE_TEST(tst_modToolbarCode)
#include "tst_modToolbarCode.moc"
