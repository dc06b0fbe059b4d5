#include "model/image.h"

#include "model/palette.h"

Image::Image(Tintorel::ImageMode mode, QObject* parent)
    : QObject(parent)
    , mId(QUuid::createUuid())
    , mMode(mode)
{
    const QSize size = sizeOf(mode);
    if (!size.isEmpty()) {
        mImage = QImage(size, QImage::Format_Indexed8);
        mImage.fill(0);
    }
}

QSize Image::sizeOf(Tintorel::ImageMode mode)
{
    switch (mode) {
    case Tintorel::ImageMode::Layer2_256x192: return { 256, 192 };
    case Tintorel::ImageMode::Layer2_320x256: return { 320, 256 };
    case Tintorel::ImageMode::Layer2_640x256: return { 640, 256 };
    case Tintorel::ImageMode::LoRes_128x96: return { 128, 96 };
    }
    return {};
}

int Image::colourCount(Tintorel::ImageMode mode)
{
    return mode == Tintorel::ImageMode::Layer2_640x256 ? 16 : 256;
}

QUuid Image::paletteId() const
{
    return mPalette ? mPalette->id() : QUuid();
}

void Image::setPalette(QPointer<Palette> palette)
{
    mPalette = palette;
    if (mPalette && !mImage.isNull())
        mImage.setColorTable(mPalette->rgbTable());
}

void Image::setImage(const QImage& image)
{
    mImage = image;
    if (mPalette && !mImage.isNull())
        mImage.setColorTable(mPalette->rgbTable());
}
