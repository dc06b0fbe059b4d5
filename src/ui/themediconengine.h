#pragma once
#include <QByteArray>
#include <QIconEngine>
#include <QString>

class QColor;

// Draws a monochrome SVG resource in the colour that the application palette
// gives the icon's mode, so that every icon follows light and dark themes.
class ThemedIconEngine : public QIconEngine
{
public:
    explicit ThemedIconEngine(const QString& path);

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
    // Qt 6.4's QIcon::pixmap hands this one a size already in device pixels.
    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state, qreal scale) override;
    // A pixmap for `size` logical pixels at `scale` device pixels to each.
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state, qreal scale);

    QString key() const override;
    QIconEngine* clone() const override;
    bool isNull() override;

    static QColor colourFor(QIcon::Mode mode);

private:
    QPixmap cachedPixmap(const QSize& deviceSize, QIcon::Mode mode, qreal scale);
    const QByteArray& svg();

    QString mPath;
    QByteArray mSvg;
    bool mRead = false;
};
