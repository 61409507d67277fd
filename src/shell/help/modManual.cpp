// SPDX-License-Identifier: GPL-3.0-or-later
// The user's manual: parsing of pages, contents, search.
#include "shell/help/modManual.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <optional>

namespace ob {

namespace {

const QString PageFolder = QStringLiteral(":/manual");
const QLatin1String PageEnding(".md");
constexpr int MaximumSnippets = 3;

// The text between an opening bracket at `open` and its partner; moves `open` past the partner. Nothing, and no move,
// when there is none.
std::optional<QString> Bracketed(QStringView text, qsizetype& open, QChar opening, QChar closing)
{
    int depth = 0;
    for (qsizetype at = open; at < text.size(); ++at) {
        if (text[at] == opening)
            ++depth;
        if (text[at] == closing && --depth == 0) {
            const QString inside = text.sliced(open + 1, at - open - 1).toString();
            open = at + 1;
            return inside;
        }
    }
    return std::nullopt;
}

// "[text](target)" at `at`, which moves past it.
std::optional<ManualLink> ReadLink(QStringView text, qsizetype& at)
{
    qsizetype end = at;
    const auto caption = Bracketed(text, end, u'[', u']');
    if (!caption || end >= text.size() || text[end] != u'(')
        return std::nullopt;
    const auto target = Bracketed(text, end, u'(', u')');
    if (!target)
        return std::nullopt;
    at = end;
    return ManualLink{*caption, *target};
}

// Appends a line's text without its marks to the block, and its links and pictures.
void AppendInline(ManualBlock& block, QStringView text)
{
    bool isCode = false;
    for (qsizetype at = 0; at < text.size();) {
        const QChar character = text[at];
        if (character == u'`') {
            isCode = !isCode;
            ++at;
            continue;
        }
        const bool isPicture = !isCode && text.sliced(at).startsWith(QLatin1String("!["));
        if (isPicture || (!isCode && character == u'[')) {
            qsizetype end = isPicture ? at + 1 : at;
            if (const auto link = ReadLink(text, end)) {
                (isPicture ? block.pictures : block.links).append(*link);
                if (!isPicture)
                    AppendInline(block, link->text);
                at = end;
                continue;
            }
        }
        if (!isCode && character == u'\\' && at + 1 < text.size()) {
            block.text += text[at + 1];
            at += 2;
            continue;
        }
        // An asterisk between spaces is text; others mark bold and italic.
        const bool isAlone = (at == 0 || text[at - 1] == u' ') && (at + 1 == text.size() || text[at + 1] == u' ');
        if (isCode || character != u'*' || isAlone)
            block.text += character;
        ++at;
    }
}

// The length of a list item's mark; 0 when the line is not an item.
qsizetype ItemMark(QStringView line)
{
    if (line.startsWith(QLatin1String("- ")) || line.startsWith(QLatin1String("* ")))
        return 2;
    qsizetype digits = 0;
    while (digits < line.size() && line[digits].isDigit())
        ++digits;
    return digits > 0 && line.sliced(digits).startsWith(QLatin1String(". ")) ? digits + 2 : 0;
}

bool IsTableRule(QStringView line)
{
    return std::all_of(line.begin(), line.end(), [](QChar each) { return QStringView(u"|-: ").contains(each); });
}

// Reads a page line by line.
class Reader {
public:
    explicit Reader(HelpPage& target) : page(target) {}

    void Take(QStringView raw)
    {
        QStringView line = raw.trimmed();
        if (!isCode && line.startsWith(QLatin1String("> ")))
            line = line.sliced(2);
        if (line.startsWith(QLatin1String("```"))) {
            isCode = !isCode;
            isOpen = false;
        } else if (isCode) {
            Begin(BlockKind::Code).text = line.toString();
        } else if (line.isEmpty()) {
            isOpen = false;
        } else if (line.startsWith(u'#')) {
            TakeHeading(line);
        } else if (line.startsWith(u'|')) {
            TakeRow(line);
        } else if (const qsizetype mark = ItemMark(line)) {
            AppendInline(Begin(BlockKind::Item), line.sliced(mark));
            isOpen = true;
        } else if (isOpen) {
            page.blocks.back().text += u' ';
            AppendInline(page.blocks.back(), line);
        } else {
            AppendInline(Begin(BlockKind::Text), line);
            isOpen = true;
        }
    }

private:
    ManualBlock& Begin(BlockKind kind)
    {
        page.blocks.emplace_back();
        page.blocks.back().kind = kind;
        page.blocks.back().section = section;
        isOpen = false;
        return page.blocks.back();
    }

    void TakeHeading(QStringView line)
    {
        qsizetype level = 0;
        while (level < line.size() && line[level] == u'#')
            ++level;
        ManualBlock& block = Begin(BlockKind::Heading);
        block.level = static_cast<int>(level);
        AppendInline(block, line.sliced(level).trimmed());
        // The page's own title is the page's start, not a section.
        section = block.level == 1 ? QString() : AnchorOf(block.text);
        block.section = section;
        if (page.title.isEmpty())
            page.title = block.text;
    }

    void TakeRow(QStringView line)
    {
        if (IsTableRule(line))
            return;
        ManualBlock& block = Begin(BlockKind::Row);
        QString cells = line.toString();
        const QChar bar(0xE000); // a bar that is text, not a cell border
        cells.replace(QLatin1String("\\|"), QString(bar));
        for (const QString& cell : cells.split(u'|', Qt::SkipEmptyParts)) {
            if (!block.text.isEmpty())
                block.text += QLatin1String("  ");
            AppendInline(block, cell.trimmed());
        }
        block.text.replace(bar, u'|');
    }

    HelpPage& page;
    QString section;
    bool isCode = false;
    bool isOpen = false; // whether the next line continues the last block
};

std::vector<HelpPage> ReadPages()
{
    std::vector<HelpPage> pages;
    const QDir folder(PageFolder);
    for (const QString& file : folder.entryList({QStringLiteral("*.md")}, QDir::Files, QDir::Name)) {
        QFile source(folder.filePath(file));
        if (source.open(QIODevice::ReadOnly))
            pages.push_back(ParseManualPage(file.chopped(PageEnding.size()), QString::fromUtf8(source.readAll())));
    }
    return pages;
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

HelpPage ParseManualPage(const QString& name, const QString& markdown)
{
    HelpPage page;
    page.name = name;
    page.markdown = markdown;
    Reader reader(page);
    for (const QStringView line : QStringView(markdown).split(u'\n'))
        reader.Take(line);
    if (page.title.isEmpty())
        page.title = name;
    return page;
}

const std::vector<HelpPage>& Manual()
{
    static const std::vector<HelpPage> pages = ReadPages();
    return pages;
}

const HelpPage* FindManualPage(QStringView name)
{
    for (const HelpPage& page : Manual())
        if (page.name == name)
            return &page;
    return nullptr;
}

QString ManualText(const QString& name)
{
    if (const HelpPage* page = FindManualPage(name))
        return page->markdown;
    return QStringLiteral("# There is no page on this yet.\n\nThe manual's other pages are in the "
                          "[contents](index.md).\n");
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
