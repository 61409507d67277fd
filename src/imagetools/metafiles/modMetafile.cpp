// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures stored as a list of drawing commands.
#include "imagetools/metafiles/modMetafile.h"

#include "imagetools/metafiles/modEmf.h"
#include "imagetools/metafiles/modMetafileSize.h"
#include "imagetools/metafiles/modWmf.h"

#include <QGuiApplication>

#include <algorithm>
#include <cmath>
#include <new>

namespace ob {

namespace {

void (*fontMaker)() = nullptr;

bool HasApplication()
{
    return qobject_cast<QGuiApplication*>(QCoreApplication::instance()) != nullptr;
}

} // namespace

bool IsMetafile(QByteArrayView bytes)
{
    return IsEmf(bytes) || IsWmf(bytes);
}

std::variant<QImage, MetafileError> PlayMetafile(QByteArrayView bytes)
{
    try {
        return IsEmf(bytes) ? PlayEmf(bytes) : PlayWmf(bytes);
    } catch (const std::bad_alloc&) {
        return MetafileError::NoMemory;
    }
}

void SetFontMaker(void (*makeApplication)())
{
    fontMaker = makeApplication;
}

bool CanDrawText()
{
    if (!HasApplication() && fontMaker != nullptr)
        fontMaker();
    return HasApplication();
}

QImage EmptyMetafilePicture(QSizeF size)
{
    constexpr double mostPoints = 16'000'000;
    constexpr double longestSide = 16'000;
    double width = std::max(std::round(size.width()), 1.0);
    double height = std::max(std::round(size.height()), 1.0);
    const double scale =
        std::min({1.0, longestSide / std::max(width, height), std::sqrt(mostPoints / (width * height))});
    if (!(scale > 0))
        return {};
    width = std::max(std::floor(width * scale), 1.0);
    height = std::max(std::floor(height * scale), 1.0);
    QImage picture(static_cast<int>(width), static_cast<int>(height), QImage::Format_RGB32);
    picture.fill(Qt::white);
    return picture;
}

} // namespace ob
