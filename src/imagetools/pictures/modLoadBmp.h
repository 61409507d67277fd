// SPDX-License-Identifier: GPL-3.0-or-later
// The list of bitmaps from which the previewer writes the lines that load them into a program and let go of them.
#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>

namespace ob {

inline const QString BmpListFullText = QStringLiteral("The bmplist is limited to 150 bitmaps");

class cLoadBmpList {
public:
    static constexpr int Most = 150;

    enum class Answer { Added, Full };

    // Counts on, and takes the path when the count is not beyond the most; it counts on also after a refusal.
    Answer Add(const QString& path);

    int Count() const { return count; }
    const QStringList& Paths() const { return paths; }

private:
    QStringList paths;
    std::int16_t count = 0;
};

enum class ImageLibrary { Unused, Used };  // jpeg.dll loads the pictures, or the language itself does
enum class PathInformation { Left, Full }; // pictures lie beside the program, or where their paths say

// The routine that loads the pictures and the one that lets go of them, lines ending in CR LF. A picture is called by
// its file's name without the last four characters; a path may have either separator. Raises InvalidCall for a name of
// fewer than four characters.
QString LoadBmpText(const QStringList& paths, ImageLibrary library, PathInformation information);

} // namespace ob
