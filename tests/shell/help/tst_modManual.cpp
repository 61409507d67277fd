// SPDX-License-Identifier: GPL-3.0-or-later
// The manual: links between its pages, the parsing of their texts, the search.
#include "shell/help/cManualHistory.h"
#include "shell/help/modManual.h"

#include <QDir>
#include <QFileInfo>
#include <QTest>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

const QString SourceFolder = u"" OB_TEST_DATA "/../../docs/manual/"_s;
constexpr qint64 LargestPicture = 60 * 1024;

HelpPage Parse(const char* text)
{
    return ParseManualPage(u"page"_s, QString::fromUtf8(text));
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
    return {ParseManualPage(u"apples"_s, u"# Apples\n\nRed or green, like pears.\n"_s),
            ParseManualPage(u"pears"_s, u"# Pears\n\n## Green pears\n\nEat them.\n"_s),
            ParseManualPage(u"plums"_s, u"# Plums\n\nBlue, never green. Green ones wait.\n\nNot pears.\n"_s)};
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
        return u"%1: no kind of link: %2"_s.arg(from.name, link.target);
    const ManualPlace place = PlaceOfLink(link.target, from.name);
    const HelpPage* page = FindManualPage(place.page);
    if (page == nullptr)
        return u"%1: no such page: %2"_s.arg(from.name, link.target);
    return HasSection(*page, place.section) ? QString() : u"%1: no such section: %2"_s.arg(from.name, link.target);
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
    QStringList files = QDir(SourceFolder).entryList({u"*.md"_s}, QDir::Files, QDir::Name);
    QVERIFY(files.contains(u"index.md"_s));
    QStringList embedded;
    for (const HelpPage& page : Manual())
        embedded.append(page.name + u".md"_s);
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
                    trouble.append(u"%1: %2"_s.arg(page.name, picture.target));
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
             QStringList{u"Press F5 or twice a**b and *not* 2 * 3."_s});
    QCOMPARE(TextsOf(Parse("> said\n> before")), QStringList{u"said before"_s});
}

void tst_modManual::wrappedLinesAreOneParagraph()
{
    QCOMPARE(TextsOf(Parse("one\ntwo\r\n\nthree")), (QStringList{u"one two"_s, u"three"_s}));
}

void tst_modManual::itemsRowsAndCodeAreBlocksOfTheirOwn()
{
    const HelpPage page = Parse("- first\n  goes on\n- second\n12. third\n\n| a | b\\|c |\n|---|:-:|\n| d | |\n\n"
                                "```\n# no [heading](x.md)\n\n```\nend");
    QCOMPARE(TextsOf(page), (QStringList{u"first goes on"_s, u"second"_s, u"third"_s, u"a  b|c"_s, u"d  "_s,
                                         u"# no [heading](x.md)"_s, QString(), u"end"_s}));
    QCOMPARE(page.blocks[2].kind, BlockKind::Item);
    QCOMPARE(page.blocks[3].kind, BlockKind::Row);
    QCOMPARE(page.blocks[5].kind, BlockKind::Code);
    QVERIFY(page.blocks[5].links.isEmpty());
}

void tst_modManual::linksAndPicturesAreFoundOutsideOfCode()
{
    const HelpPage page = Parse("See [the **bold** [x]](a.md#b) and ![a view](pictures/p.png), not `[c](d.md)`.");
    const ManualBlock& block = page.blocks.front();
    QCOMPARE(block.text, u"See the bold [x] and , not [c](d.md)."_s);
    QCOMPARE(block.links.size(), 1);
    QCOMPARE(block.links[0].target, u"a.md#b"_s);
    QCOMPARE(block.pictures.size(), 1);
    QCOMPARE(block.pictures[0].text, u"a view"_s);
    QCOMPARE(block.pictures[0].target, u"pictures/p.png"_s);
}

void tst_modManual::halfALinkIsText()
{
    QCOMPARE(TextsOf(Parse("a [b] c [d](e ![ [")), QStringList{u"a [b] c [d](e ![ ["_s});
}

void tst_modManual::sectionsFollowTheirHeadings()
{
    const HelpPage page = Parse("# Title\n\nzero\n\n## The first `one`\n\ntext\n\n### Deeper\n\nmore");
    QCOMPARE(page.title, u"Title"_s);
    QStringList sections;
    for (const ManualBlock& block : page.blocks)
        sections.append(block.section);
    const QString first = u"the-first-one"_s;
    const QString deeper = u"deeper"_s;
    QCOMPARE(sections, (QStringList{{}, {}, first, first, deeper, deeper}));
}

void tst_modManual::pageWithoutATitleHasItsName()
{
    QCOMPARE(Parse("").title, u"page"_s);
    QVERIFY(Parse("").blocks.empty());
}

void tst_modManual::anchorsAreThoseOfTheMarkdownHost_data()
{
    QTest::addColumn<QString>("heading");
    QTest::addColumn<QString>("anchor");
    QTest::newRow("spaces") << u"What a save does"_s << u"what-a-save-does"_s;
    QTest::newRow("signs") << u"Save & close?"_s << u"save--close"_s;
    QTest::newRow("dot") << u"untitled.bak"_s << u"untitledbak"_s;
    QTest::newRow("dash") << u"Re-use_it"_s << u"re-use_it"_s;
}

void tst_modManual::anchorsAreThoseOfTheMarkdownHost()
{
    QFETCH(QString, heading);
    QTEST(AnchorOf(heading), "anchor");
}

void tst_modManual::linksGoToPagesAndSections()
{
    const QString from = u"here"_s;
    QCOMPARE(PlaceOfLink(u"files.md", from), (ManualPlace{u"files"_s, {}}));
    QCOMPARE(PlaceOfLink(u"files.md#save", from), (ManualPlace{u"files"_s, u"save"_s}));
    QCOMPARE(PlaceOfLink(u"#save", from), (ManualPlace{from, u"save"_s}));
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
    QCOMPARE(entries[0].caption, u"Group"_s);
    QVERIFY(entries[0].page.isEmpty());
    QCOMPARE(entries[1].caption, u"A page"_s);
    QCOMPARE(entries[1].page, u"a"_s);
    QCOMPARE(entries[2].page, u"b"_s);
}

void tst_modManual::missingPageSaysSo()
{
    QVERIFY(FindManualPage(u"no-such-page") == nullptr);
    const HelpPage page = ParseManualPage(u"x"_s, ManualText(u"no-such-page"_s));
    QCOMPARE(page.title, u"There is no page on this yet."_s);
    QCOMPARE(PlaceOfLink(page.blocks.back().links.value(0).target, page.name).page, ManualContentsPage);
}

void tst_modManual::toolsThatATextDoesNotNameComeAtItsMark()
{
    const std::vector<ManualTool> tools = {{u"Preview > Wav"_s, u"wav"_s}, {u"Gui"_s, u"form"_s}};
    QCOMPARE(WithTools(u"- [Forms](form.md#a)\n<!-- more tools -->\n\nend"_s, tools, ToolLines::Pages),
             u"- [Forms](form.md#a)\n- [Wav](wav.md)\n\nend"_s);
    QCOMPARE(WithTools(u"| Gui | | draws |\n<!-- more tools -->\n"_s, tools, ToolLines::MenuItems),
             u"| Gui | | draws |\n| Preview > Wav | | see [Wav](wav.md) |\n"_s);
    QCOMPARE(WithTools(u"text\n"_s, tools, ToolLines::Pages), u"text\n"_s);
}

void tst_modManual::wordsAreFoundWhereTheyBegin()
{
    const QStringList words = SearchWords(u"  Save SAVE  .bak ");
    QCOMPARE(words, (QStringList{u"save"_s, u".bak"_s}));
    QCOMPARE(FindWords(u"Saved, unsaved: x.BAK", words), (QList<TextSpan>{{0, 4}, {17, 4}}));
    // Of two words that start at the same place the longer one counts.
    QCOMPARE(FindWords(u"a saver", SearchWords(u"save saver")), (QList<TextSpan>{{2, 5}}));
}

void tst_modManual::searchNeedsEveryWord()
{
    const auto pages = SmallManual();
    QCOMPARE(NamesOf(SearchManual(pages, u"blue green")), QStringList{u"plums"_s});
    QVERIFY(SearchManual(pages, u"blue red").empty());
}

void tst_modManual::searchPutsHeadingsFirstThenCounts()
{
    const auto pages = SmallManual();
    QCOMPARE(NamesOf(SearchManual(pages, u"green")), (QStringList{u"pears"_s, u"plums"_s, u"apples"_s}));
    QCOMPARE(NamesOf(SearchManual(pages, u"pears")), (QStringList{u"pears"_s, u"apples"_s, u"plums"_s}));
}

void tst_modManual::searchShowsTheLinesAndTheSection()
{
    const auto pages = SmallManual();
    const ManualHit hit = SearchManual(pages, u"EAT green").at(0);
    QCOMPARE(hit.title, u"Pears"_s);
    QCOMPARE(hit.snippets, (QStringList{u"Green pears"_s, u"Eat them."_s}));
    QCOMPARE(hit.place.section, u"green-pears"_s);
    QCOMPARE(hit.inHeadings, 1);
    QCOMPARE(hit.count, 2);
    const auto many = {ParseManualPage(u"p"_s, u"# T\n\n- x 1\n- x 2\n- x 3\n- x 4\n"_s)};
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
    QCOMPARE(hits[0].place, (ManualPlace{u"running"_s, u"include-lines"_s}));
    QVERIFY(SearchManual(Manual(), u"zyxwvu").empty());
}

void tst_modManual::historyGoesBackAndForward()
{
    cManualHistory history;
    QVERIFY(history.IsEmpty() && !history.CanGoBack() && !history.CanGoForward());
    const ManualPlace first{u"a"_s, {}};
    const ManualPlace second{u"b"_s, u"s"_s};
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
    history.Visit({u"d"_s, {}});
    QVERIFY(!history.CanGoForward());
    QCOMPARE(history.Back().place.page, u"a"_s);
}

QTEST_MAIN(tst_modManual)
#include "tst_modManual.moc"
