// SPDX-License-Identifier: GPL-3.0-or-later
// The manual: links between its pages, the parsing of their texts, the search.
#include "shell/help/cManualHistory.h"
#include "shell/help/modManual.h"

#include <QDir>
#include <QFileInfo>
#include <QTest>

using namespace ob;

namespace {

const QString SourceFolder = QStringLiteral(OB_TEST_DATA "/../../docs/manual/");
constexpr qint64 LargestPicture = 60 * 1024;

HelpPage Parse(const char* text)
{
    return ParseManualPage(QStringLiteral("page"), QString::fromUtf8(text));
}

QStringList TextsOf(const HelpPage& page)
{
    QStringList texts;
    for (const ManualBlock& block : page.blocks)
        texts.append(block.text);
    return texts;
}

QStringList NamesOf(const std::vector<ManualHit>& hits)
{
    QStringList names;
    for (const ManualHit& hit : hits)
        names.append(hit.place.page);
    return names;
}

std::vector<HelpPage> SmallManual()
{
    return {ParseManualPage(QStringLiteral("apples"), QStringLiteral("# Apples\n\nRed or green, like pears.\n")),
            ParseManualPage(QStringLiteral("pears"), QStringLiteral("# Pears\n\n## Green pears\n\nEat them.\n")),
            ParseManualPage(QStringLiteral("plums"),
                            QStringLiteral("# Plums\n\nBlue, never green. Green ones wait.\n\nNot pears.\n"))};
}

bool HasSection(const HelpPage& page, const QString& section)
{
    for (const ManualBlock& block : page.blocks)
        if (block.kind == BlockKind::Heading && block.section == section)
            return true;
    return section.isEmpty();
}

// Empty when the link has a target.
QString TroubleWith(const ManualLink& link, const HelpPage& from)
{
    if (link.target.startsWith(QLatin1String("https://")))
        return {};
    if (!IsManualLink(link.target))
        return QStringLiteral("%1: no kind of link: %2").arg(from.name, link.target);
    const ManualPlace place = PlaceOfLink(link.target, from.name);
    const HelpPage* page = FindManualPage(place.page);
    if (page == nullptr)
        return QStringLiteral("%1: no such page: %2").arg(from.name, link.target);
    return HasSection(*page, place.section) ? QString()
                                            : QStringLiteral("%1: no such section: %2").arg(from.name, link.target);
}

} // namespace

class tst_modManual : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyPageIsEmbedded();
    void everyLinkLeadsToAPageAndItsSection();
    void everyPictureIsThereAndSmall();
    void everyPageHasOneTitleAndItsHeadingsDiffer();
    void marksAreTakenOffTheText();
    void wrappedLinesAreOneParagraph();
    void itemsRowsAndCodeAreBlocksOfTheirOwn();
    void linksAndPicturesAreFoundOutsideOfCode();
    void halfALinkIsText();
    void sectionsFollowTheirHeadings();
    void pageWithoutATitleHasItsName();
    void anchorsAreThoseOfTheMarkdownHost_data();
    void anchorsAreThoseOfTheMarkdownHost();
    void linksGoToPagesAndSections();
    void contentsAreGroupsAndTheirItems();
    void missingPageSaysSo();
    void toolsThatATextDoesNotNameComeAtItsMark();
    void wordsAreFoundWhereTheyBegin();
    void searchNeedsEveryWord();
    void searchPutsHeadingsFirstThenCounts();
    void searchShowsTheLinesAndTheSection();
    void searchOfNothingFindsNothing();
    void searchFindsInTheManual();
    void historyGoesBackAndForward();
    void newStopForgetsTheWayAhead();
};

void tst_modManual::everyPageIsEmbedded()
{
    QStringList files = QDir(SourceFolder).entryList({QStringLiteral("*.md")}, QDir::Files, QDir::Name);
    QVERIFY(files.contains(QStringLiteral("index.md")));
    QStringList embedded;
    for (const HelpPage& page : Manual())
        embedded.append(page.name + QStringLiteral(".md"));
    QCOMPARE(embedded, files);
}

void tst_modManual::everyLinkLeadsToAPageAndItsSection()
{
    QStringList trouble;
    int links = 0;
    for (const HelpPage& page : Manual()) {
        for (const ManualBlock& block : page.blocks) {
            for (const ManualLink& link : block.links) {
                ++links;
                trouble.append(TroubleWith(link, page));
            }
        }
    }
    trouble.removeAll(QString());
    QVERIFY2(trouble.isEmpty(), qPrintable(trouble.join(QLatin1Char('\n'))));
    QVERIFY(links > 40);
}

void tst_modManual::everyPictureIsThereAndSmall()
{
    QStringList trouble;
    int pictures = 0;
    for (const HelpPage& page : Manual()) {
        for (const ManualBlock& block : page.blocks) {
            for (const ManualLink& picture : block.pictures) {
                ++pictures;
                const QFileInfo file(SourceFolder + picture.target);
                if (!file.isFile() || file.size() > LargestPicture || picture.text.isEmpty())
                    trouble.append(QStringLiteral("%1: %2").arg(page.name, picture.target));
            }
        }
    }
    QVERIFY2(trouble.isEmpty(), qPrintable(trouble.join(QLatin1Char('\n'))));
    QVERIFY(pictures > 0);
}

void tst_modManual::everyPageHasOneTitleAndItsHeadingsDiffer()
{
    for (const HelpPage& page : Manual()) {
        QVERIFY2(!page.blocks.empty() && page.blocks.front().level == 1, qPrintable(page.name));
        QStringList sections;
        for (const ManualBlock& block : page.blocks)
            if (block.kind == BlockKind::Heading)
                sections.append(block.section);
        QCOMPARE(sections.count(QString()), 1);
        QVERIFY2(sections.removeDuplicates() == 0, qPrintable(page.name));
    }
}

void tst_modManual::marksAreTakenOffTheText()
{
    QCOMPARE(TextsOf(Parse("Press **F5** or *twice* `a**b` and \\*not\\* 2 * 3.")),
             QStringList{QStringLiteral("Press F5 or twice a**b and *not* 2 * 3.")});
    QCOMPARE(TextsOf(Parse("> said\n> before")), QStringList{QStringLiteral("said before")});
}

void tst_modManual::wrappedLinesAreOneParagraph()
{
    QCOMPARE(TextsOf(Parse("one\ntwo\r\n\nthree")), (QStringList{QStringLiteral("one two"), QStringLiteral("three")}));
}

void tst_modManual::itemsRowsAndCodeAreBlocksOfTheirOwn()
{
    const HelpPage page = Parse("- first\n  goes on\n- second\n12. third\n\n| a | b\\|c |\n|---|:-:|\n| d | |\n\n"
                                "```\n# no [heading](x.md)\n\n```\nend");
    QCOMPARE(TextsOf(page), (QStringList{QStringLiteral("first goes on"), QStringLiteral("second"),
                                         QStringLiteral("third"), QStringLiteral("a  b|c"), QStringLiteral("d  "),
                                         QStringLiteral("# no [heading](x.md)"), QString(), QStringLiteral("end")}));
    QCOMPARE(page.blocks[2].kind, BlockKind::Item);
    QCOMPARE(page.blocks[3].kind, BlockKind::Row);
    QCOMPARE(page.blocks[5].kind, BlockKind::Code);
    QVERIFY(page.blocks[5].links.isEmpty());
}

void tst_modManual::linksAndPicturesAreFoundOutsideOfCode()
{
    const HelpPage page = Parse("See [the **bold** [x]](a.md#b) and ![a view](pictures/p.png), not `[c](d.md)`.");
    const ManualBlock& block = page.blocks.front();
    QCOMPARE(block.text, QStringLiteral("See the bold [x] and , not [c](d.md)."));
    QCOMPARE(block.links.size(), 1);
    QCOMPARE(block.links[0].target, QStringLiteral("a.md#b"));
    QCOMPARE(block.pictures.size(), 1);
    QCOMPARE(block.pictures[0].text, QStringLiteral("a view"));
    QCOMPARE(block.pictures[0].target, QStringLiteral("pictures/p.png"));
}

void tst_modManual::halfALinkIsText()
{
    QCOMPARE(TextsOf(Parse("a [b] c [d](e ![ [")), QStringList{QStringLiteral("a [b] c [d](e ![ [")});
}

void tst_modManual::sectionsFollowTheirHeadings()
{
    const HelpPage page = Parse("# Title\n\nzero\n\n## The first `one`\n\ntext\n\n### Deeper\n\nmore");
    QCOMPARE(page.title, QStringLiteral("Title"));
    QStringList sections;
    for (const ManualBlock& block : page.blocks)
        sections.append(block.section);
    const QString first = QStringLiteral("the-first-one");
    const QString deeper = QStringLiteral("deeper");
    QCOMPARE(sections, (QStringList{{}, {}, first, first, deeper, deeper}));
}

void tst_modManual::pageWithoutATitleHasItsName()
{
    QCOMPARE(Parse("").title, QStringLiteral("page"));
    QVERIFY(Parse("").blocks.empty());
}

void tst_modManual::anchorsAreThoseOfTheMarkdownHost_data()
{
    QTest::addColumn<QString>("heading");
    QTest::addColumn<QString>("anchor");
    QTest::newRow("spaces") << QStringLiteral("What a save does") << QStringLiteral("what-a-save-does");
    QTest::newRow("signs") << QStringLiteral("Save & close?") << QStringLiteral("save--close");
    QTest::newRow("dot") << QStringLiteral("untitled.bak") << QStringLiteral("untitledbak");
    QTest::newRow("dash") << QStringLiteral("Re-use_it") << QStringLiteral("re-use_it");
}

void tst_modManual::anchorsAreThoseOfTheMarkdownHost()
{
    QFETCH(QString, heading);
    QTEST(AnchorOf(heading), "anchor");
}

void tst_modManual::linksGoToPagesAndSections()
{
    const QString from = QStringLiteral("here");
    QCOMPARE(PlaceOfLink(u"files.md", from), (ManualPlace{QStringLiteral("files"), {}}));
    QCOMPARE(PlaceOfLink(u"files.md#save", from), (ManualPlace{QStringLiteral("files"), QStringLiteral("save")}));
    QCOMPARE(PlaceOfLink(u"#save", from), (ManualPlace{from, QStringLiteral("save")}));
    QVERIFY(IsManualLink(u"files.md") && IsManualLink(u"files.md#a") && IsManualLink(u"#a"));
    QVERIFY(!IsManualLink(u"https://example.org/a.md"));
    QVERIFY(!IsManualLink(u"mailto:a.md"));
    QVERIFY(!IsManualLink(u"pictures/a.png"));
}

void tst_modManual::contentsAreGroupsAndTheirItems()
{
    const std::vector<ManualEntry> entries =
        ContentsOf(Parse("# Title\n\nRead [this](x.md).\n\n## Group\n\n- [A page](a.md#b): and [another](b.md)\n- "
                         "[out](https://a.b)\n"));
    QCOMPARE(entries.size(), 3U);
    QCOMPARE(entries[0].caption, QStringLiteral("Group"));
    QVERIFY(entries[0].page.isEmpty());
    QCOMPARE(entries[1].caption, QStringLiteral("A page"));
    QCOMPARE(entries[1].page, QStringLiteral("a"));
    QCOMPARE(entries[2].page, QStringLiteral("b"));
}

void tst_modManual::missingPageSaysSo()
{
    QVERIFY(FindManualPage(u"no-such-page") == nullptr);
    const HelpPage page = ParseManualPage(QStringLiteral("x"), ManualText(QStringLiteral("no-such-page")));
    QCOMPARE(page.title, QStringLiteral("There is no page on this yet."));
    QCOMPARE(PlaceOfLink(page.blocks.back().links.value(0).target, page.name).page, ManualContentsPage);
}

void tst_modManual::toolsThatATextDoesNotNameComeAtItsMark()
{
    const std::vector<ManualTool> tools = {{QStringLiteral("Preview > Wav"), QStringLiteral("wav")},
                                           {QStringLiteral("Gui"), QStringLiteral("form")}};
    QCOMPARE(WithTools(QStringLiteral("- [Forms](form.md#a)\n<!-- more tools -->\n\nend"), tools, ToolLines::Pages),
             QStringLiteral("- [Forms](form.md#a)\n- [Wav](wav.md)\n\nend"));
    QCOMPARE(WithTools(QStringLiteral("| Gui | | draws |\n<!-- more tools -->\n"), tools, ToolLines::MenuItems),
             QStringLiteral("| Gui | | draws |\n| Preview > Wav | | see [Wav](wav.md) |\n"));
    QCOMPARE(WithTools(QStringLiteral("text\n"), tools, ToolLines::Pages), QStringLiteral("text\n"));
}

void tst_modManual::wordsAreFoundWhereTheyBegin()
{
    const QStringList words = SearchWords(u"  Save SAVE  .bak ");
    QCOMPARE(words, (QStringList{QStringLiteral("save"), QStringLiteral(".bak")}));
    QCOMPARE(FindWords(u"Saved, unsaved: x.BAK", words), (QList<TextSpan>{{0, 4}, {17, 4}}));
    // Of two words that start at the same place the longer one counts.
    QCOMPARE(FindWords(u"a saver", SearchWords(u"save saver")), (QList<TextSpan>{{2, 5}}));
}

void tst_modManual::searchNeedsEveryWord()
{
    const auto pages = SmallManual();
    QCOMPARE(NamesOf(SearchManual(pages, u"blue green")), QStringList{QStringLiteral("plums")});
    QVERIFY(SearchManual(pages, u"blue red").empty());
}

void tst_modManual::searchPutsHeadingsFirstThenCounts()
{
    const auto pages = SmallManual();
    QCOMPARE(NamesOf(SearchManual(pages, u"green")),
             (QStringList{QStringLiteral("pears"), QStringLiteral("plums"), QStringLiteral("apples")}));
    QCOMPARE(NamesOf(SearchManual(pages, u"pears")),
             (QStringList{QStringLiteral("pears"), QStringLiteral("apples"), QStringLiteral("plums")}));
}

void tst_modManual::searchShowsTheLinesAndTheSection()
{
    const auto pages = SmallManual();
    const ManualHit hit = SearchManual(pages, u"EAT green").at(0);
    QCOMPARE(hit.title, QStringLiteral("Pears"));
    QCOMPARE(hit.snippets, (QStringList{QStringLiteral("Green pears"), QStringLiteral("Eat them.")}));
    QCOMPARE(hit.place.section, QStringLiteral("green-pears"));
    QCOMPARE(hit.inHeadings, 1);
    QCOMPARE(hit.count, 2);
    const auto many = {ParseManualPage(QStringLiteral("p"), QStringLiteral("# T\n\n- x 1\n- x 2\n- x 3\n- x 4\n"))};
    QCOMPARE(SearchManual(many, u"x").at(0).snippets.size(), 3);
}

void tst_modManual::searchOfNothingFindsNothing()
{
    QVERIFY(SearchManual(SmallManual(), u"").empty());
    QVERIFY(SearchManual(SmallManual(), u"  ").empty());
}

void tst_modManual::searchFindsInTheManual()
{
    const auto hits = SearchManual(Manual(), u"include lines");
    QVERIFY(!hits.empty());
    QCOMPARE(hits[0].place, (ManualPlace{QStringLiteral("running"), QStringLiteral("include-lines")}));
    QVERIFY(SearchManual(Manual(), u"zyxwvu").empty());
}

void tst_modManual::historyGoesBackAndForward()
{
    cManualHistory history;
    QVERIFY(history.IsEmpty() && !history.CanGoBack() && !history.CanGoForward());
    const ManualPlace first{QStringLiteral("a"), {}};
    const ManualPlace second{QStringLiteral("b"), QStringLiteral("s")};
    history.Visit(first);
    history.Here().scroll = 70;
    QVERIFY(!history.CanGoBack());
    history.Visit(second);
    QVERIFY(history.CanGoBack() && !history.CanGoForward());
    QCOMPARE(history.Back().place, first);
    QCOMPARE(history.Here().scroll, 70);
    QVERIFY(!history.CanGoBack() && history.CanGoForward());
    QCOMPARE(history.Forward().place, second);
}

void tst_modManual::newStopForgetsTheWayAhead()
{
    cManualHistory history;
    for (const char* page : {"a", "b", "c"})
        history.Visit({QString::fromLatin1(page), {}});
    history.Back();
    history.Back();
    history.Visit({QStringLiteral("d"), {}});
    QVERIFY(!history.CanGoForward());
    QCOMPARE(history.Back().place.page, QStringLiteral("a"));
}

QTEST_MAIN(tst_modManual)
#include "tst_modManual.moc"
