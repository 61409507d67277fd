// SPDX-License-Identifier: GPL-3.0-or-later
// Shows a preview in its middle, never larger than it is.
#pragma once

#include "imagetools/pictures/modPreview.h"

#include <QFrame>

namespace ob {

class frmPreviewBox final : public QFrame {
    Q_OBJECT

public:
    explicit frmPreviewBox(QWidget* parent = nullptr);

    void ShowPreview(const Preview& newPreview);

    // The request for a preview that fills the box.
    PreviewRequest RequestFor(const QString& path) const;

    // The picture's place; empty when there is none.
    QRect PictureRect() const;

Q_SIGNALS:
    void BoxChanged();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    Preview preview;
};

} // namespace ob
