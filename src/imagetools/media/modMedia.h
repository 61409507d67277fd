// SPDX-License-Identifier: GPL-3.0-or-later
// Media files: playing them by command strings, and the BASIC code that plays them.
#pragma once

#include <QString>

namespace ob {

// Of the last opened file, in milliseconds; 0 when it could not be opened.
float MediaLength();

// Each closes what plays, opens the file as "PlayFile" on its device and starts it. Errors are ignored; the length is
// then 0.
void PlayAVI(const QString& file);
void PlayMIDI(const QString& file);
void PlayMPEG(const QString& file);

// Closes every device of the process.
void StopMedia();

// The playing position, in milliseconds. Stops everything at the end.
struct MediaProgress {
    float position = 0;
    bool hasEnded = false;
};
MediaProgress PollMedia();

// The part of a path after its first ".", folders included; empty without one.
QString MediaExtension(const QString& file);

enum class MediaType { Unknown, Avi, Midi, Mpeg };
MediaType MediaTypeOf(const QString& file);

// Plays a file on the device of its type. False, without any effect, for an unknown one.
bool PlayMedia(const QString& file);

// The BASIC lines that play a file, each with its CR LF: with its path as given, or with its name only. A file of
// unknown type has no type clause.
enum class MediaPath { NameOnly, Whole };
QString MediaCode(const QString& file, MediaPath path);

// The filter of the box that asks for the copy's place; empty for an unknown type.
QString MediaCopyFilter(const QString& file);

// Makes a copy under a temporary name and renames it. Raises as cFileReplacement does, and PathFileAccess for what
// cannot be read; an older file is then as it was.
void CopyMedia(const QString& from, const QString& to);

// "0:07 / 1:30" of two times in milliseconds; hours when there are any.
QString MediaTimeText(float position, float length);

// The message about something missing on this computer; empty when the file could be opened anyway.
QString MissingMediaText();

// Whether the playing file is silent for lack of a sound device.
bool IsMediaSilent();

} // namespace ob
