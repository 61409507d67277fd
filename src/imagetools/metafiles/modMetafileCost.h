// SPDX-License-Identifier: GPL-3.0-or-later
// What the drawing steps of a metafile cost, in nanoseconds of an ordinary processor, as upper bounds that were
// measured.
#pragma once

#include "imagetools/metafiles/modMetafileObjects.h"

#include <QPainterPath>
#include <QRect>
#include <QRegion>

namespace ob {

// Whether colours replace those of the picture, or are combined with them.
enum class MetafileMixing { Replace, Combine };

// A pen in pixels.
struct MetafileStroke {
    double width = 1;       // 1 or less: lines of single pixels
    double reach = 1;       // how far a corner extends, in pixels
    double dashLength = 0;  // of a dash with its gap, in pixels; 0: no dashes
    bool hasGround = false; // the gaps between dashes are drawn too
    MetafileMixing mixing = MetafileMixing::Replace;
};

// For one pixel of an area. The texture's width matters, as each of its lines is copied on its own.
double PixelCost(const MetafileBrush& brush, BackgroundMode background, MetafileMixing mixing);

// For the edges of an area on a picture of that size; its pixels come on top.
double FillCost(const QPainterPath& path, QSize picture);

double StrokeCost(const QPainterPath& path, const MetafileStroke& stroke, QSize picture);

// For combining regions that have so many boxes altogether.
double CombiningCost(int boxes);

// The lines of pixels into which a clip is cut; 0 for a box. Using the clip costs for each of them, and so does drawing
// on so many of the picture's lines.
double LinesOfClip(const QRegion& clip);
double ClipCost(double linesOfClip);
double ClippedCost(double linesOfClip, double share);

// For a character of that height in pixels.
double CharacterCost(double height);

} // namespace ob
