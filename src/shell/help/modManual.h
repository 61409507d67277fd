// SPDX-License-Identifier: GPL-3.0-or-later
// The user's manual: its pages, their contents list and a search over them. All of it is read on first use.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <vector>

namespace ob {

// A link or picture as its page writes it: "files.md#save", "pictures/bench.png", "https://example.org".
struct ManualLink {
    QString text;
    QString target;
};

enum class BlockKind { Heading, Text, Item, Row, Code };

// One heading, paragraph, list item, table row or line of code, without its marks.
struct ManualBlock {
    BlockKind kind = BlockKind::Text;
    int level = 0;   // of a heading, from 1
    QString text;    // plain; cells are parted by two blanks
    QString section; // anchor of the heading above or of the heading itself
    QList<ManualLink> links;
    QList<ManualLink> pictures;
};

struct HelpPage {
    QString name;     // "files" for docs/manual/files.md
    QString title;    // its first heading, or the name when it has none
    QString markdown; // as it is written
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
    int inHeadings = 0;   // how often words occur in headings, and in all
    int count = 0;
};

// A run of characters in a text.
struct TextSpan {
    qsizetype start = 0;
    qsizetype length = 0;
    bool operator==(const TextSpan&) const = default;
};

inline const QString ManualContentsPage = QStringLiteral("index");

// Takes a page's text apart. Any text is a page.
HelpPage ParseManualPage(const QString& name, const QString& markdown);

// All pages that the program carries, by their names.
const std::vector<HelpPage>& Manual();

// Null when the program does not carry the page.
const HelpPage* FindManualPage(QStringView name);

// The text shown for a page; for one that is not there a short page that says so, with a link to the contents.
QString ManualText(const QString& name);

// The groups and pages that the contents page lists, in its order.
std::vector<ManualEntry> ContentsOf(const HelpPage& contents);

// The anchor of a heading: "Save & close" gives "save--close".
QString AnchorOf(QStringView heading);

// Whether a link stays in the manual, and where it goes: "files.md#save" or, from the page "files", "#save".
bool IsManualLink(QStringView target);
ManualPlace PlaceOfLink(QStringView target, const QString& fromPage);

// The words of a search: parted by blanks, in lower case, each once.
QStringList SearchWords(QStringView text);

// Where words begin in a text, in any case, from left to right; a word in the middle of another does not count.
QList<TextSpan> FindWords(QStringView text, const QStringList& words);

// The pages that hold every word. Those with more of them in headings come first, then those with more of them at
// all, then in the pages' order. No words give no hits.
std::vector<ManualHit> SearchManual(const std::vector<HelpPage>& pages, QStringView text);

} // namespace ob
