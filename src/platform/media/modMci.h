// SPDX-License-Identifier: GPL-3.0-or-later
// The media control interface: command strings that open, ask, play and close devices.
#pragma once

#include "platform/media/cMediaDevice.h"

#include <QByteArray>
#include <QString>

namespace ob {

// The result of a command, by the interface's own numbers.
enum class MciResult {
    Done = 0,
    UnrecognizedCommand = 261,
    InvalidDeviceName = 263,
    MissingCommandString = 267,
    AnswerTooLong = 268,
    UnsupportedFunction = 274,
    FileNotFound = 275,
    DuplicateAlias = 289,
    InvalidFile = 296,
};

// Runs one command, words in any case:
//
//   open DEVICE!FILE alias NAME           DEVICE is avivideo, mpegvideo, sequencer or waveaudio
//   open FILE type DEVICE alias NAME      without "alias" the file's name is the alias
//   status NAME length|position|mode      milliseconds; mode is "playing" or "stopped"
//   play NAME [wait]                      returns at once, or with "wait" when playing has ended
//   stop NAME, close NAME, close all
//
// The answer is written to the start of the buffer and ends in a NUL; the rest of the buffer is unchanged. No buffer
// and size 0 are allowed. There are no callbacks, so `callback` is 0.
MciResult mciSendStringA(const QString& command, QByteArray* buffer, int size, int callback);

enum SoundFlag : unsigned { SND_SYNC = 0, SND_ASYNC = 1, SND_NODEFAULT = 2 };

// Ends the sound in progress, then plays the file, without SND_ASYNC to its end. A name without folder and extension is
// that of a system sound, and there are none here. False when nothing can be played.
bool sndPlaySoundA(const QString& file, unsigned flags);

// What this computer lacked when the last file was opened.
MediaTrouble LastMediaTrouble();

// The devices in use: those of the library MediaPlayerOB, or those that a test has set instead. The owner keeps them
// alive; null restores the library's. Closes everything that is open. Returns what a test had set before.
cMediaDevices* SetMediaDevices(cMediaDevices* devices);

} // namespace ob
