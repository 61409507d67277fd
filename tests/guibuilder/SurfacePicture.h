// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures painted by the drawing surface's painter, at any scale of the screen.
#pragma once

#include "guibuilder/frmSurfacePaint.h"
#include "guibuilder/modDesigner.h"

#include <QColor>
#include <QImage>
#include <QPainter>

namespace ob {

inline constexpr int SurfaceTwips = 15; // per pixel
inline constexpr SurfaceScale PictureScale = {SurfaceTwips, SurfaceTwips};
inline const QColor Blank(1, 2, 3); // a colour that nothing is painted in

struct SurfacePicture {
    explicit SurfacePicture(double scaleWanted = 1, QSize size = {200, 150})
        : scale(scaleWanted), image((QSizeF(size) * scaleWanted).toSize(), QImage::Format_RGB32)
    {
        image.setDevicePixelRatio(scale);
        image.fill(Blank);
    }
    QColor At(int x, int y) const { return image.pixelColor(x, y); }
    // The bounds of everything painted, in device pixels.
    QRect Touched() const
    {
        QRect touched;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (At(x, y) != Blank)
                    touched |= QRect(x, y, 1, 1);
        return touched;
    }
    QRect WhereIs(QColor color) const
    {
        QRect found;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (At(x, y) == color)
                    found |= QRect(x, y, 1, 1);
        return found;
    }

    double scale;
    QImage image;
};

inline void Place(ControlRecord& control, QRect pixels)
{
    control.left = static_cast<float>(pixels.x() * SurfaceTwips);
    control.top = static_cast<float>(pixels.y() * SurfaceTwips);
    control.width = static_cast<float>(pixels.width() * SurfaceTwips);
    control.height = static_cast<float>(pixels.height() * SurfaceTwips);
}

inline ControlRef Put(GuiForm& form, ControlKind kind, QRect pixels)
{
    const ControlRef ref = AddControl(form, kind);
    ControlRecord& control = form.At(ref);
    control.visible = true;
    control.caption = NewCaption(kind, ref.index);
    Place(control, pixels);
    return ref;
}

inline SurfacePicture Painted(const GuiForm& form, ControlRef ref, double scale = 1)
{
    SurfacePicture picture(scale);
    QPainter painter(&picture.image);
    PaintControl(painter, SurfaceStyle(form, PictureScale), form, ref);
    return picture;
}

} // namespace ob
