// SPDX-License-Identifier: GPL-3.0-or-later
// The picture of a bmpbutton.
#include "guibuilder/cButtonPicture.h"

#include <QImage>

namespace ob {

cButtonPicture::cButtonPicture(const QImage& picture)
{
    if (!picture.isNull())
        image = std::make_shared<const QImage>(picture);
}

const QImage& cButtonPicture::Image() const
{
    static const QImage none;
    return image == nullptr ? none : *image;
}

bool operator==(const cButtonPicture& left, const cButtonPicture& right)
{
    return left.image == right.image || left.Image() == right.Image();
}

} // namespace ob
