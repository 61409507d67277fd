// SPDX-License-Identifier: GPL-3.0-or-later
// The menu maker: labels, numbered items, whole statements.
#include "codetools/modMenuCode.h"

#include "codetools/MakerFiles.h"
#include "platform/language/cRuntimeError.h"

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

using Items = QList<QPair<QString, QString>>;

QPair<QString, QString> Item(const char* text, const char* branch = "")
{
    return {QString::fromUtf8(text), QString::fromUtf8(branch)};
}

} // namespace

class tst_modMenuCode : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aLabelIsCompleted_data()
    {
        QTest::addColumn<QString>("branch");
        QTest::addColumn<QString>("label");
        const auto row = [](const char* branch, const char* label) {
            QTest::newRow(branch) << QString::fromLatin1(branch) << QString::fromLatin1(label);
        };
        row("open", "[open]");
        row("[open]", "[open]");
        row("[open", "[open]");
        row("open]", "[open]");
        row("BranchLabel 1", "[BranchLabel.1]");
        row("my item", "[my.item]");
        row("[a b]", "[a.b]");
        row("a [b] c", "[a.[b].c]");
        row("a[b]c", "a[b]c");
        row("]a[", "]a[");
        row("]", "[]");
        row("[", "[]");
        row("a\tb", "[a\tb]");
        row(" ", "[.]");
    }

    void aLabelIsCompleted()
    {
        QFETCH(QString, branch);
        QTEST(ReadyMenuLabel(branch), "label");
    }

    void spacesAreReplacedOneByOne()
    {
        QCOMPARE(WithoutSpaces(u"  a b  c "_s, u'_'), u"__a_b__c_"_s);
        QCOMPARE(WithoutSpaces(u"a\tb\u00A0c"_s, u'.'), u"a\tb\u00A0c"_s);
        QCOMPARE(WithoutSpaces({}, u'.'), QString());
    }

    void theWholeStatementMatches_data()
    {
        QTest::addColumn<MenuType>("type");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("handle");
        QTest::addColumn<Items>("items");
        QTest::addColumn<QByteArray>("expected");
        const auto row = [](const char* file, MenuType type, const char* name, const char* handle, const Items& items) {
            QTest::newRow(file) << type << QString::fromUtf8(name) << QString::fromUtf8(handle) << items
                                << MakerBytes(file);
        };
        row("menu/file.txt", MenuType::Regular, "File", "#main", {Item("Open", "[open]"), Item("Exit", "[quit]")});
        row("menu/no-items.txt", MenuType::Regular, "  ", "", {});
        row("menu/popup-no-items.txt", MenuType::Popup, "File", "#main", {});
        row("menu/popup.txt", MenuType::Popup, "File", "#main",
            {Item("Cut", "cut"), Item(" | ", "nowhere"), Item("Paste", "[paste]")});
        row("menu/numbered.txt", MenuType::Regular, " File ", "main",
            {Item(""), Item("|"), Item("  ", " three "), Item(" Four ", " ")});
        row("menu/labels.txt", MenuType::Regular, "M", "#main",
            {Item("a", "[a b]"), Item("b", "my item"), Item("c", "[open"), Item("d", "shut]"), Item("e", "]shut"),
             Item("f", "a[b]c"), Item("g", "  g  "), Item("h", "x=y"), Item("i", "a  b.")});
        row("menu/handle.txt", MenuType::Regular, "Datei öffnen", " my own window.ext ", {Item("say \"hi\"", "hi")});
        row("menu/handle-mark.txt", MenuType::Regular, "M", "##main", {});
    }

    void theWholeStatementMatches()
    {
        QFETCH(MenuType, type);
        QFETCH(QString, name);
        QFETCH(QString, handle);
        QFETCH(Items, items);
        MenuSpec spec{type, name, handle, {}};
        for (const auto& [text, branch] : items)
            AddMenuItem(spec.tail, text, branch);
        QTEST(BytesOf(MenuCode(spec)), "expected");
    }

    void theItemAfterTheLastNumberOverflows()
    {
        MenuTail tail;
        for (int i = 1; i < 32'767; ++i)
            AddMenuItem(tail, u"|"_s, {});
        AddMenuItem(tail, {}, {});
        QVERIFY(tail.list.endsWith(u", \"MenuItem  32767\", [BranchLabel.32767]"_s));
        const QString before = tail.list;
        int raised = 0;
        try {
            AddMenuItem(tail, {}, {});
        } catch (const RuntimeError& error) {
            raised = error.number;
        }
        QCOMPARE(raised, 6);
        QCOMPARE(tail.list, before);
        QCOMPARE(tail.count, 32'767);
    }
};

QTEST_GUILESS_MAIN(tst_modMenuCode)
#include "tst_modMenuCode.moc"
