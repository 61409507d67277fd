// SPDX-License-Identifier: GPL-3.0-or-later
// Views of bytes: the toolkit's and the standard library's. Neither copies.
#pragma once

#include "imaging/modByteView.h"

#include <QByteArrayView>

#include <vector>

namespace ob {

inline ByteView ByteViewOf(QByteArrayView bytes)
{
    return {reinterpret_cast<const std::uint8_t*>(bytes.data()), static_cast<std::size_t>(bytes.size())};
}

inline QByteArrayView QtViewOf(ByteView bytes)
{
    return {reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())};
}

// The pieces that the imaging library gives to a file writer, as ReplaceFile of modFilePieces.h takes them.
inline std::vector<QByteArrayView> QtViewsOf(std::span<const ByteView> pieces)
{
    std::vector<QByteArrayView> views;
    views.reserve(pieces.size());
    for (const ByteView piece : pieces)
        views.push_back(QtViewOf(piece));
    return views;
}

} // namespace ob
