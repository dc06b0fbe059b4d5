#include "editors/sprite/spritelist.h"

#include "canvas/canvasclipboard.h"
#include "model/palette.h"
#include "model/spritebank.h"
#include "model/tintorelui.h"
#include "ui/themedicon.h"

#include <QClipboard>
#include <QDataStream>
#include <QIODevice>
#include <QGuiApplication>
#include <QMimeData>
#include <QPainter>
#include <QPixmap>

namespace SpriteEditor {

SpriteList::SpriteList(QWidget* parent)
    : IndexGrid(QString::fromLatin1(DragFormat), parent)
{
    const auto onSprite = [this](const QString& text, auto act) {
        connect(mMenu.addAction(text), &QAction::triggered, this, [this, act] {
            if (mBank && mMenuIndex >= 0 && mMenuIndex < mBank->spriteCount())
                act(mMenuIndex);
        });
    };
    onSprite(tr("Delete"), [this](int index) { emit deleteRequested(index); });
    onSprite(tr("Clear"), [this](int index) { emit clearRequested(index); });
    onSprite(tr("Copy Image"), [this](int) { copyImage(); });
    onSprite(tr("Paste Image"), [this](int) { pasteImage(); });
}

void SpriteList::setSprites(SpriteBank* bank)
{
    if (mBank)
        disconnect(mBank, nullptr, this, nullptr);
    mBank = bank;
    clearMarks();
    mMenuIndex = -1;
    if (mBank) {
        for (auto signal : { &SpriteBank::countChanged, &SpriteBank::restored })
            connect(mBank, signal, this, [this] { fitHeight(); });
        connect(mBank, &SpriteBank::imageChanged, this, [this] { update(); });
    }
    fitHeight();
}

bool SpriteList::hasContent() const
{
    return mBank;
}

int SpriteList::cellCount() const
{
    return mBank ? mBank->spriteCount() + 1 : 0;
}

bool SpriteList::isAddEntry(int index) const
{
    return mBank && index == mBank->spriteCount();
}

bool SpriteList::canDrag(int index) const
{
    return mBank && index >= 0 && index < mBank->spriteCount();
}

void SpriteList::paintCell(QPainter& painter, int index, const QRect& cell)
{
    if (isAddEntry(index)) {
        const QRect inner = cell.adjusted(4, 2, -4, -14);
        painter.drawPixmap(inner, themedIcon(QStringLiteral(":/AddDoc")).pixmap(inner.size()));
        painter.setPen(Qt::white);
        painter.drawText(cell.adjusted(0, 0, 0, -1), Qt::AlignHCenter | Qt::AlignBottom, tr("Sprite"));
        return;
    }
    painter.drawImage(cell.adjusted(2, 2, -2, -2), mBank->render(index, mBank->offset(index), false, false, false));
}

QByteArray SpriteList::dragPayload(int index) const
{
    QByteArray payload;
    QDataStream stream(&payload, QIODevice::WriteOnly);
    stream << qint32(index);
    return payload;
}

QImage SpriteList::dragImage(int index) const
{
    return mBank->render(index, mBank->offset(index), false, false, false);
}

QString SpriteList::toolTipAt(int index) const
{
    if (isAddEntry(index))
        return tr("Add a sprite");
    return tr("Sprite %1").arg(index + 1);
}

void SpriteList::clicked(int index)
{
    if (isAddEntry(index)) {
        emit addSprite();
        return;
    }
    setSelectedIndex(index);
    emit indexChanged(index);
}

void SpriteList::menuRequested(int index, const QPoint& globalPos)
{
    if (isAddEntry(index))
        return;
    mMenuIndex = index;
    mMenu.popup(globalPos);
}

void SpriteList::copyImage()
{
    if (!mBank || mMenuIndex < 0 || mMenuIndex >= mBank->spriteCount())
        return;
    CanvasClipboard::Clip clip;
    clip.imageType = int(mBank->depth() == Tintorel::Sprite::FourBit ? Tintorel::Ui::ImageType::Offset16
                                                                     : Tintorel::Ui::ImageType::Full256);
    clip.paletteId = mBank->paletteId();
    clip.image = mBank->sprite(mMenuIndex);
    QGuiApplication::clipboard()->setMimeData(CanvasClipboard::encode(clip), QClipboard::Clipboard);
}

void SpriteList::pasteImage()
{
    if (!mBank || mMenuIndex < 0 || mMenuIndex >= mBank->spriteCount() || !editSprite)
        return;
    const int index = mMenuIndex;
    const QMimeData* data = QGuiApplication::clipboard()->mimeData(QClipboard::Clipboard);
    CanvasClipboard::Clip clip;
    if (CanvasClipboard::decode(data, &clip)) {
        // The canvas's own pictures keep their indices.
        editSprite(index, tr("Paste Image"), [this, index, &clip] { mBank->setImage(index, clip.image); });
        return;
    }
    if (!data || !data->hasImage())
        return;
    // Another program's picture, cut to one sprite on black, takes the bank's colours.
    QImage picture = qvariant_cast<QImage>(data->imageData());
    if (picture.isNull())
        picture = qvariant_cast<QPixmap>(data->imageData()).toImage();
    QImage sprite(SpriteBank::SpriteSize, SpriteBank::SpriteSize, QImage::Format_ARGB32);
    sprite.fill(Qt::black);
    QPainter(&sprite).drawImage(0, 0, picture);
    editSprite(index, tr("Paste Image"), [this, index, &sprite] { mBank->importImage(index, sprite); });
}

} // namespace SpriteEditor
