// SPDX-License-Identifier: GPL-3.0-or-later
// Shows a preview in its middle.
#include "imagetools/pictures/frmPreviewBox.h"

#include <QPainter>

namespace ob {

frmPreviewBox::frmPreviewBox(QWidget* parent) : QFrame(parent)
{
    setFrameShape(QFrame::StyledPanel);
}

void frmPreviewBox::ShowPreview(const Preview& newPreview)
{
    preview = newPreview;
    update();
}

PreviewRequest frmPreviewBox::RequestFor(const QString& path) const
{
    return {path, contentsRect().size(), devicePixelRatioF()};
}

QRect frmPreviewBox::PictureRect() const
{
    if (preview.IsEmpty())
        return {};
    QRect place(QPoint(0, 0), FittedSize(preview.size, contentsRect().size()));
    place.moveCenter(contentsRect().center());
    return place;
}

void frmPreviewBox::paintEvent(QPaintEvent* event)
{
    QFrame::paintEvent(event);
    if (preview.IsEmpty())
        return;
    QPainter painter(this);
    // At its own size a picture keeps its pixels; a reduced one is smooth on every screen.
    painter.setRenderHint(QPainter::SmoothPixmapTransform, PictureRect().size() != preview.size);
    painter.drawImage(PictureRect(), preview.image);
}

void frmPreviewBox::resizeEvent(QResizeEvent* event)
{
    QFrame::resizeEvent(event);
    Q_EMIT BoxChanged();
}

} // namespace ob
