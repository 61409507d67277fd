// SPDX-License-Identifier: GPL-3.0-or-later
// The user's manual: its pages, their contents list and a search over them. A page is taken apart on first use, all of
// them by the first search. Pages become documents of the toolkit, whose fonts want an application object with a
// screen.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <vector>

namespace ob {

// A link or picture as written in its page: "files.md#save", "pictures/bench.png", "https://example.org".
struct ManualLink {
    QString text;
    QString target;
};

enum class BlockKind { Heading, Text, Item, Row, Code };

// One heading, paragraph, list item, table row or line of code, without its marks.
struct ManualBlock {
    BlockKind kind = BlockKind::Text;
    int level = 0;   // of a heading, from 1
    QString text;    // plain; cells are separated by two spaces
    QString section; // anchor of the heading above or of the heading itself
    QList<ManualLink> links;
    QList<ManualLink> pictures;
};

struct HelpPage {
    QString name;     // "files" for docs/manual/files.md
    QString title;    // its first heading, or the name when it has none
    QString markdown; // the unparsed text
    std::vector<ManualBlock> blocks;
};

// A place in the manual.
struct ManualPlace {
    QString page;
    QString section; // an anchor; empty for the page's start
    bool operator==(const ManualPlace&) const = default;
};

// A line of the contents page: a group, which has no page, or a page under it.
struct ManualEntry {
    QString caption;
    QString page;
};

struct ManualHit {
    ManualPlace place;
    QString title;
    QStringList snippets; // the first lines that hold a word, at most three
    int inHeadings = 0;   // number of words found in headings, and in total
    int count = 0;
};

// A run of characters in a text.
struct TextSpan {
    qsizetype start = 0;
    qsizetype length = 0;
    bool operator==(const TextSpan&) const = default;
};

inline const QString ManualContentsPage = QStringLiteral("index");

// A tool for the manual to list where its texts do not name it: the item's place in the Tools menu, "Preview Tools >
// Wav Preview", and the tool's page.
struct ManualTool {
    QString item;
    QString page;
};

// Where the tools come from; asked once, when the manual is read. Whoever has the tools puts it in place before that.
using ManualToolSource = std::vector<ManualTool> (*)();
void SetManualTools(ManualToolSource source);

// The text with a line for each tool that it does not name, in place of its mark "<!-- more tools -->": an item of a
// list with the tool's page, or a row of a table with its menu item. A text without the mark is as it was.
enum class ToolLines { Pages, MenuItems };
QString WithTools(const QString& markdown, const std::vector<ManualTool>& tools, ToolLines lines);

// Parses a page. Any text is valid.
HelpPage ParseManualPage(const QString& name, const QString& markdown);

// All embedded pages, sorted by name.
const std::vector<HelpPage>& Manual();

// Null when there is no such page.
const HelpPage* FindManualPage(QStringView name);

// Whether the page has headings of the second level, without taking it apart.
bool HasSections(QStringView name);

// The text shown for a page; for a missing one, a short page that says so, with a link to the contents.
QString ManualText(const QString& name);

// The groups and pages listed by the contents page, in its order.
std::vector<ManualEntry> ContentsOf(const HelpPage& contents);

// The anchor of a heading: "Save & close" gives "save--close".
QString AnchorOf(QStringView heading);

// Whether a link stays within the manual, and its target: "files.md#save" or, from the page "files", "#save".
bool IsManualLink(QStringView target);
ManualPlace PlaceOfLink(QStringView target, const QString& fromPage);

// The words of a search: separated by spaces, in lower case, without duplicates.
QStringList SearchWords(QStringView text);

// The places where words begin in a text, ignoring case, from left to right; a word in the middle of another does not
// count.
QList<TextSpan> FindWords(QStringView text, const QStringList& words);

// The pages that contain every word. Those with more of them in headings come first, then those with more of them in
// total, then in the pages' order. Without words there are no hits.
std::vector<ManualHit> SearchManual(const std::vector<HelpPage>& pages, QStringView text);

} // namespace ob
