#include "ui/themediconengine.h"

#include <QColor>
#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <cmath>

ThemedIconEngine::ThemedIconEngine(const QString& path)
    : mPath(path)
{
}

QColor ThemedIconEngine::colourFor(QIcon::Mode mode)
{
    const QPalette palette = QGuiApplication::palette();
    switch (mode) {
    case QIcon::Disabled:
        return palette.color(QPalette::Disabled, QPalette::ButtonText);
    case QIcon::Selected:
        return palette.color(QPalette::Active, QPalette::HighlightedText);
    default:
        return palette.color(QPalette::Active, QPalette::ButtonText);
    }
}

void ThemedIconEngine::paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State)
{
    if (svg().isEmpty())
        return;
    QByteArray themed = mSvg;
    themed.replace("currentColor", colourFor(mode).name().toLatin1());
    QSvgRenderer renderer(themed);
    renderer.render(painter, QRectF(rect));
}

QPixmap ThemedIconEngine::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State)
{
    return cachedPixmap(size, mode, 1.0);
}

QPixmap ThemedIconEngine::scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State, qreal scale)
{
    return cachedPixmap(size, mode, scale);
}

QPixmap ThemedIconEngine::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State, qreal scale)
{
    const QSize device(int(std::lround(size.width() * scale)), int(std::lround(size.height() * scale)));
    return cachedPixmap(device, mode, scale);
}

QPixmap ThemedIconEngine::cachedPixmap(const QSize& deviceSize, QIcon::Mode mode, qreal scale)
{
    if (deviceSize.isEmpty())
        return QPixmap();
    // The colour is in the key, so a palette change simply makes new entries.
    const QString key = QStringLiteral("themed:%1:%2x%3:%4")
                            .arg(mPath)
                            .arg(deviceSize.width())
                            .arg(deviceSize.height())
                            .arg(colourFor(mode).rgb());
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap))
        return pixmap;
    pixmap = QPixmap(deviceSize);
    pixmap.fill(Qt::transparent);
    {
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(0, 0), deviceSize), mode, QIcon::Off);
    }
    pixmap.setDevicePixelRatio(scale);
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

QString ThemedIconEngine::key() const
{
    return QStringLiteral("ThemedIconEngine");
}

QIconEngine* ThemedIconEngine::clone() const
{
    return new ThemedIconEngine(*this);
}

bool ThemedIconEngine::isNull()
{
    return svg().isEmpty();
}

const QByteArray& ThemedIconEngine::svg()
{
    if (!mRead) {
        mRead = true;
        QFile file(mPath);
        if (file.open(QIODevice::ReadOnly))
            mSvg = file.readAll();
    }
    return mSvg;
}
