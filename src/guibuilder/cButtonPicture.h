// SPDX-License-Identifier: GPL-3.0-or-later
// The picture of a bmpbutton.
#pragma once

#include <memory>

class QImage;

namespace ob {

// A value that is copied and destroyed without the picture library, which a form's text needs for nothing else.
class cButtonPicture {
public:
    cButtonPicture() = default;
    cButtonPicture(const QImage& picture);

    bool IsNull() const { return image == nullptr; }

    // The null image where there is no picture.
    const QImage& Image() const;

    // Pictures are equal when their pixels are.
    friend bool operator==(const cButtonPicture& left, const cButtonPicture& right);

private:
    std::shared_ptr<const QImage> image;
};

} // namespace ob
