// SPDX-License-Identifier: GPL-3.0-or-later
// The bench's icons.
#include "shell/state/modIcons.h"

#include "shell/state/modColors.h"

#include <QBuffer>
#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QImageReader>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QRegularExpression>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

// The drawing with each colour in a form that can be seen on the ground.
QByteArray RecoloredFor(const QByteArray& drawing, const QColor& ground)
{
    static const QRegularExpression color(u"#[0-9a-fA-F]{6}"_s);
    const QString text = QString::fromUtf8(drawing);
    QString recolored;
    qsizetype done = 0;
    for (auto each = color.globalMatch(text); each.hasNext();) {
        const QRegularExpressionMatch match = each.next();
        recolored += QStringView(text).mid(done, match.capturedStart() - done);
        recolored += ReadableOn(ground, QColor(match.captured()), PictureContrast).name();
        done = match.capturedEnd();
    }
    recolored += QStringView(text).mid(done);
    return recolored.toUtf8();
}

class IconEngine final : public QIconEngine {
public:
    IconEngine(QString iconName, IconGround iconGround) : name(std::move(iconName)), ground(iconGround) {}

    QIconEngine* clone() const override { return new IconEngine(*this); }
    QString key() const override { return u"bench"_s; }
    bool isNull() override { return !QFile::exists(Path()); }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override
    {
        const double scale = painter->device()->devicePixelRatioF();
        QPixmap picture = pixmap(rect.size() * scale, mode, state);
        picture.setDevicePixelRatio(scale);
        painter->drawPixmap(rect, picture);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override
    {
        const QColor behind = QGuiApplication::palette().color(QPalette::Window);
        const QString look = mode == QIcon::Disabled ? u"disabled"_s : u"enabled"_s;
        const QString place = u"bench/%1/%2/%3x%4/%5/%6"_s.arg(name)
                                  .arg(static_cast<int>(ground))
                                  .arg(size.width())
                                  .arg(size.height())
                                  .arg(look, behind.name());
        QPixmap picture;
        if (!QPixmapCache::find(place, &picture)) {
            picture = Draw(size, behind, mode == QIcon::Disabled ? DisabledOpacity : 1);
            QPixmapCache::insert(place, picture);
        }
        return picture;
    }

private:
    static constexpr double DisabledOpacity = 0.35;

    QString Path() const { return u":/icons/%1.svg"_s.arg(name); }

    QPixmap Draw(const QSize& size, const QColor& behind, double opacity) const
    {
        QFile file(Path());
        if (!file.open(QIODevice::ReadOnly))
            return {};
        const int side = std::min(size.width(), size.height());
        QByteArray drawing = RecoloredFor(file.readAll(), behind);
        QBuffer buffer(&drawing);
        QImageReader reader(&buffer, "svg");
        reader.setScaledSize({side, side});
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        painter.setOpacity(opacity);
        painter.translate((size.width() - side) / 2, (size.height() - side) / 2);
        if (ground == IconGround::Title)
            painter.fillRect(0, 0, side, side, behind);
        painter.drawImage(0, 0, reader.read());
        return picture;
    }

    QString name;
    IconGround ground;
};

} // namespace

QIcon BenchIcon(const QString& name, IconGround ground)
{
    return QIcon(new IconEngine(name, ground));
}

} // namespace ob
