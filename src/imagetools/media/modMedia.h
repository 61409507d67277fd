// SPDX-License-Identifier: GPL-3.0-or-later
// Media files: playing them by command strings, and the BASIC code that plays them.
#pragma once

#include <QString>

namespace ob {

// Of the file that was opened last, in milliseconds; 0 when it could not be opened.
inline float MediaLength = 0;

// Each closes what plays, opens the file as "PlayFile" on its device and starts it. An error is passed over in
// silence; the length is 0 then.
void PlayAVI(const QString& file);
void PlayMIDI(const QString& file);
void PlayMPEG(const QString& file);

// Closes every device of the process.
void StopMedia();

// Where the playing has got to, in milliseconds. At the end all is stopped.
struct MediaProgress {
    float position = 0;
    bool hasEnded = false;
};
MediaProgress PollMedia();

// What stands behind the first "." of a file's name, its folders included; empty without one.
QString MediaExtension(const QString& file);

enum class MediaType { Unknown, Avi, Midi, Mpeg };
MediaType MediaTypeOf(const QString& file);

// Plays a file on the device of its type. False, and nothing is done, for an unknown one.
bool PlayMedia(const QString& file);

// The BASIC lines that play a file, each with its CR LF: with its path as given, or with its name alone. A file of
// unknown type has no type clause.
enum class MediaPath { NameOnly, Whole };
QString MediaCode(const QString& file, MediaPath path);

// The filter of the box that asks where a copy of the file shall go; empty for an unknown type.
QString MediaCopyFilter(const QString& file);

// Makes a copy under a temporary name and renames it. False when that fails; an older file is then as it was.
bool CopyMedia(const QString& from, const QString& to);

// "0:07 / 1:30" of two times in milliseconds; hours when there are any.
QString MediaTimeText(float position, float length);

// What to tell the user about something that this computer lacks; empty when the file could be opened all the same.
QString MissingMediaText();

// Whether the file that plays is not heard for want of a sound device.
bool IsMediaSilent();

} // namespace ob
