// SPDX-License-Identifier: GPL-3.0-or-later
// The list of bitmaps from which the previewer writes the program lines that load and unload them.
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

    // Increments the count, and takes the path unless the count exceeds the maximum; counts also when it takes no path.
    Answer Add(const QString& path);

    // Takes one out, after which there is room again, or moves one; places from 0 to those of the paths.
    void Remove(int place);
    void Move(int from, int to);

    int Count() const { return count; }
    const QStringList& Paths() const { return paths; }

private:
    QStringList paths;
    std::int16_t count = 0;
};

enum class ImageLibrary { Unused, Used };  // whether jpeg.dll or the language itself loads the pictures
enum class PathInformation { Left, Full }; // pictures are in the program's folder, or at their full paths

// The routine that loads the pictures and the one that unloads them, lines ending in CR LF. A picture is named after
// its file without the last four characters; a path may have either separator. Raises InvalidCall for a name of fewer
// than four characters.
QString LoadBmpText(const QStringList& paths, ImageLibrary library, PathInformation information);

} // namespace ob
