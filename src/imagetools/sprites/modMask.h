// SPDX-License-Identifier: GPL-3.0-or-later
// Sprites and their masks: a picture of twice the height, a black and white mask above an unchanged copy.
#pragma once

#include "imaging/cDIBSection.h"

#include <QString>
#include <QStringList>

#include <functional>

namespace ob {

// The double-height picture of a sprite. In its upper half a pixel is white where the sprite is black (0, 0, 0) and
// black everywhere else. Raises InvalidPicture for a sprite without pixels or one too large for a picture twice as
// high.
cDIBSection SpriteWithMask(const cDIBSection& sprite);

// The same in steps, for a window that shows the mask growing: the sprite twice, then the columns become mask from the
// left. Columns outside the picture are ignored.
cDIBSection SpriteTwice(const cDIBSection& sprite);
void MaskColumns(cDIBSection& picture, std::int32_t left, std::int32_t count);

// Reads a sprite and masks it, and writes a picture as a 24-bit bitmap file, an empty one when it has no pixels; after
// a failure an older file is unchanged. They raise as LoadPicture and ReplaceFile do.
cDIBSection LoadSpriteWithMask(const QString& path);
void SaveMask(const QString& path, const cDIBSection& picture);

// --- All bitmaps of a folder. ---

extern const QStringList BitmapPatterns;

// The names of the bitmaps in the folder itself, in order.
QStringList BitmapsIn(const QString& folder);

enum class BatchStep { GoOn, Stop };
enum class BatchEnd { Finished, Cancelled };

struct BatchWatch {
    std::function<void(qsizetype place)> before;                             // place from 0 in the list
    std::function<BatchStep(const QString& path, const cDIBSection&)> after; // the file is written
};

// Gives each file its mask, in place. The first error ends the work and is raised; that file is unchanged, and those
// before it have their masks.
BatchEnd MaskFiles(const QString& folder, const QStringList& names, const BatchWatch& watch);

// The texts shown to the user.
extern const QString BatchStartText;
extern const QString BatchQuestionText;
extern const QString BatchCancelledText;
QString NoBitmapsText(const QString& folder);
QString BatchProgressText(qsizetype place, qsizetype count, const QString& folder);
QString BatchFinishedText(const QString& folder);

// Which file ended a batch, the number of those done by then, and how to go on.
QString BatchFailedText(const QString& name, qsizetype done, qsizetype count);

} // namespace ob
