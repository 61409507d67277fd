// SPDX-License-Identifier: GPL-3.0-or-later
// The user's manual: parsing of pages, contents, search.
#include "shell/help/modManual.h"

#include <QDir>
#include <QFile>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>
#include <QTextTable>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

const QString PageFolder = u":/manual"_s;
const QLatin1String PageEnding(".md");
const QString MenusPage = u"menus-and-keys"_s;
const QString ToolsMark = u"<!-- more tools -->\n"_s;
constexpr int MaximumSnippets = 3;

ManualToolSource toolSource = nullptr;

// A fragment's text as the reader sees it, without the character that a picture is in the document.
QString ShownText(const QTextFragment& fragment)
{
    return fragment.charFormat().isImageFormat() ? QString() : fragment.text().replace(QChar::LineSeparator, u' ');
}

// Appends a block of the document to ours: its text, its links and pictures. A link whose caption changes its look is
// several fragments that follow one another.
void AppendText(ManualBlock& block, const QTextBlock& source)
{
    QString linkBefore;
    for (auto it = source.begin(); !it.atEnd(); ++it) {
        const QTextFragment fragment = it.fragment();
        const QTextCharFormat format = fragment.charFormat();
        const QString text = ShownText(fragment);
        block.text += text;
        if (format.isImageFormat())
            block.pictures.append({format.stringProperty(QTextFormat::ImageAltText), format.toImageFormat().name()});
        const QString link = format.isAnchor() ? format.anchorHref() : QString();
        if (!link.isEmpty() && link == linkBefore)
            block.links.back().text += text;
        else if (!link.isEmpty())
            block.links.append({text, link});
        linkBefore = link;
    }
}

// Takes the blocks of a page out of the document that the toolkit has parsed.
class Reader {
public:
    explicit Reader(HelpPage& target) : page(target) {}

    void Take(const QTextDocument& document)
    {
        for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
            if (QTextTable* table = QTextCursor(block).currentTable())
                block = TakeTable(*table);
            else if (block.blockFormat().hasProperty(QTextFormat::BlockCodeFence))
                Begin(BlockKind::Code).text = block.text().trimmed();
            else if (const int level = block.blockFormat().headingLevel())
                TakeHeading(block, level);
            else if (block.length() > 1) // an empty one is only the end of a table or of a list
                AppendText(Begin(block.textList() != nullptr ? BlockKind::Item : BlockKind::Text), block);
        }
    }

private:
    ManualBlock& Begin(BlockKind kind)
    {
        page.blocks.emplace_back();
        page.blocks.back().kind = kind;
        page.blocks.back().section = section;
        return page.blocks.back();
    }

    void TakeHeading(const QTextBlock& source, int level)
    {
        ManualBlock& block = Begin(BlockKind::Heading);
        block.level = level;
        AppendText(block, source);
        // The page's own title is the page's start, not a section.
        section = level == 1 ? QString() : AnchorOf(block.text);
        block.section = section;
        if (page.title.isEmpty())
            page.title = block.text;
    }

    // Gives the table's last block.
    QTextBlock TakeTable(const QTextTable& table)
    {
        QTextBlock last;
        for (int row = 0; row < table.rows(); ++row) {
            ManualBlock& block = Begin(BlockKind::Row);
            for (int column = 0; column < table.columns(); ++column) {
                if (!block.text.isEmpty())
                    block.text += QLatin1String("  ");
                last = table.cellAt(row, column).firstCursorPosition().block();
                AppendText(block, last);
            }
        }
        return last;
    }

    HelpPage& page;
    QString section;
};

void ReadPage(HelpPage& page)
{
    QTextDocument document;
    document.setUndoRedoEnabled(false);
    document.setMarkdown(page.markdown, QTextDocument::MarkdownDialectGitHub);
    Reader(page).Take(document);
    if (page.title.isEmpty())
        page.title = page.name;
}

// A page's text with the tools that are listed on it.
QString CompletedText(const QString& name, const QString& markdown)
{
    const bool isContents = name == ManualContentsPage;
    if (!isContents && name != MenusPage)
        return markdown;
    const auto tools = toolSource == nullptr ? std::vector<ManualTool>() : toolSource();
    return WithTools(markdown, tools, isContents ? ToolLines::Pages : ToolLines::MenuItems);
}

// All pages as they are written; a page is taken apart when it is asked for, as that costs far more than reading it.
std::vector<HelpPage>& Shelf()
{
    static std::vector<HelpPage> pages = [] {
        std::vector<HelpPage> found;
        const QDir folder(PageFolder);
        for (const QString& file : folder.entryList({u"*.md"_s}, QDir::Files, QDir::Name)) {
            QFile source(folder.filePath(file));
            const QString name = file.chopped(PageEnding.size());
            if (source.open(QIODevice::ReadOnly))
                found.push_back({name, {}, CompletedText(name, QString::fromUtf8(source.readAll())), {}});
        }
        return found;
    }();
    return pages;
}

const HelpPage& TakenApart(HelpPage& page)
{
    if (page.title.isEmpty())
        ReadPage(page);
    return page;
}

HelpPage* OnShelf(QStringView name)
{
    for (HelpPage& page : Shelf())
        if (page.name == name)
            return &page;
    return nullptr;
}

bool IsWordCharacter(QChar each)
{
    return each.isLetterOrNumber();
}

// Whether the word is at `at` in the text, at the beginning of a word there.
bool WordBegins(QStringView text, qsizetype at, QStringView word)
{
    if (!text.sliced(at).startsWith(word, Qt::CaseInsensitive))
        return false;
    return at == 0 || !IsWordCharacter(word.front()) || !IsWordCharacter(text[at - 1]);
}

// The hit for a page; nothing when a word is missing in it.
std::optional<ManualHit> HitIn(const HelpPage& page, const QStringList& words)
{
    ManualHit hit{{page.name, {}}, page.title, {}, 0, 0};
    QStringList missing = words;
    qsizetype best = 0;
    for (const ManualBlock& block : page.blocks) {
        const QList<TextSpan> found = FindWords(block.text, words);
        if (found.isEmpty())
            continue;
        const bool isHeading = block.kind == BlockKind::Heading;
        hit.count += static_cast<int>(found.size());
        if (isHeading)
            hit.inHeadings += static_cast<int>(found.size());
        missing.removeIf([&](const QString& word) { return !FindWords(block.text, {word}).isEmpty(); });
        // A heading is more relevant than a line of text.
        const qsizetype worth = found.size() * (isHeading ? 10 : 1);
        if (worth > best) {
            best = worth;
            hit.place.section = block.section;
        }
        if (!(isHeading && block.level == 1) && hit.snippets.size() < MaximumSnippets)
            hit.snippets.append(block.text);
    }
    return missing.isEmpty() ? std::optional(hit) : std::nullopt;
}

} // namespace

void SetManualTools(ManualToolSource source)
{
    toolSource = source;
}

QString WithTools(const QString& markdown, const std::vector<ManualTool>& tools, ToolLines lines)
{
    QString added;
    for (const auto& [item, page] : tools) {
        const QString link = u"[%1](%2.md)"_s.arg(item.section(u" > "_s, -1), page);
        if (lines == ToolLines::Pages && !markdown.contains(u"](%1.md"_s.arg(page)))
            added += u"- %1\n"_s.arg(link);
        if (lines == ToolLines::MenuItems && !markdown.contains(u"| %1 |"_s.arg(item)))
            added += u"| %1 | | see %2 |\n"_s.arg(item, link);
    }
    return QString(markdown).replace(ToolsMark, added);
}

HelpPage ParseManualPage(const QString& name, const QString& markdown)
{
    HelpPage page{name, {}, markdown, {}};
    ReadPage(page);
    return page;
}

const std::vector<HelpPage>& Manual()
{
    for (HelpPage& page : Shelf())
        TakenApart(page);
    return Shelf();
}

const HelpPage* FindManualPage(QStringView name)
{
    HelpPage* page = OnShelf(name);
    return page == nullptr ? nullptr : &TakenApart(*page);
}

bool HasSections(QStringView name)
{
    const HelpPage* page = OnShelf(name);
    return page != nullptr && page->markdown.contains(QLatin1String("\n## "));
}

QString ManualText(const QString& name)
{
    if (const HelpPage* page = OnShelf(name))
        return page->markdown;
    return u"# There is no page on this yet.\n\nThe manual's other pages are in the "
           "[contents](index.md).\n"_s;
}

std::vector<ManualEntry> ContentsOf(const HelpPage& contents)
{
    std::vector<ManualEntry> entries;
    for (const ManualBlock& block : contents.blocks) {
        if (block.kind == BlockKind::Heading && block.level > 1)
            entries.push_back({block.text, {}});
        if (block.kind != BlockKind::Item)
            continue;
        for (const ManualLink& link : block.links)
            if (IsManualLink(link.target))
                entries.push_back({link.text, PlaceOfLink(link.target, contents.name).page});
    }
    return entries;
}

QString AnchorOf(QStringView heading)
{
    QString anchor;
    for (const QChar each : heading.trimmed()) {
        if (each == u' ')
            anchor += u'-';
        else if (each.isLetterOrNumber() || each == u'-' || each == u'_')
            anchor += each.toLower();
    }
    return anchor;
}

bool IsManualLink(QStringView target)
{
    return !target.contains(u':') &&
           (target.startsWith(u'#') || target.endsWith(PageEnding) || target.contains(QLatin1String(".md#")));
}

ManualPlace PlaceOfLink(QStringView target, const QString& fromPage)
{
    const qsizetype mark = target.indexOf(u'#');
    QStringView page = mark < 0 ? target : target.first(mark);
    if (page.endsWith(PageEnding))
        page.chop(PageEnding.size());
    return {page.isEmpty() ? fromPage : page.toString(), mark < 0 ? QString() : target.sliced(mark + 1).toString()};
}

QStringList SearchWords(QStringView text)
{
    QStringList words = text.toString().toLower().simplified().split(u' ', Qt::SkipEmptyParts);
    words.removeDuplicates();
    return words;
}

QList<TextSpan> FindWords(QStringView text, const QStringList& words)
{
    QList<TextSpan> found;
    for (qsizetype at = 0; at < text.size();) {
        qsizetype longest = 0;
        for (const QString& word : words)
            if (WordBegins(text, at, word))
                longest = std::max(longest, word.size());
        if (longest > 0)
            found.append({at, longest});
        at += std::max<qsizetype>(longest, 1);
    }
    return found;
}

std::vector<ManualHit> SearchManual(const std::vector<HelpPage>& pages, QStringView text)
{
    std::vector<ManualHit> hits;
    const QStringList words = SearchWords(text);
    if (words.isEmpty())
        return hits;
    for (const HelpPage& page : pages)
        if (const auto hit = HitIn(page, words))
            hits.push_back(*hit);
    std::stable_sort(hits.begin(), hits.end(), [](const ManualHit& left, const ManualHit& right) {
        return left.inHeadings != right.inHeadings ? left.inHeadings > right.inHeadings : left.count > right.count;
    });
    return hits;
}

} // namespace ob
