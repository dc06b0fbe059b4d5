#include "editors/tile/tilepickergrid.h"

#include "model/tileset.h"

#include <QActionGroup>
#include <QDataStream>
#include <QPainter>
#include <QWheelEvent>

namespace {

const int kZoomLevels[] = { 1, 2, 3, 4, 6, 8, 12, 16 };

} // namespace

TilePickerGrid::TilePickerGrid(QWidget* parent)
    : IndexGrid(QString::fromLatin1(DragFormat), parent)
    , mZoomGroup(new QActionGroup(this))
{
    buildMenu();
}

void TilePickerGrid::buildMenu()
{
    connect(mMenu.addAction(tr("Zoom In")), &QAction::triggered, this, [this] { setZoom(mZoom + 1); });
    connect(mMenu.addAction(tr("Zoom Out")), &QAction::triggered, this, [this] { setZoom(mZoom - 1); });
    for (int level : kZoomLevels) {
        QAction* action = mMenu.addAction(tr("%1x").arg(level));
        action->setCheckable(true);
        action->setData(level);
        action->setChecked(level == mZoom);
        mZoomGroup->addAction(action);
        connect(action, &QAction::triggered, this, [this, level] { setZoom(level); });
    }
    const auto onTile = [this](const QString& text, auto act) {
        connect(mMenu.addAction(text), &QAction::triggered, this, [this, act] {
            if (mTileSet && mMenuIndex >= 0 && mMenuIndex < mTileSet->count())
                act(mMenuIndex);
        });
    };
    onTile(tr("Clear"), [this](int index) { emit clearRequested(index); });
    onTile(tr("Copy Image"), [this](int index) { emit copyImageRequested(index); });
    onTile(tr("Paste Image"), [this](int index) { emit pasteImageRequested(index); });
    onTile(tr("Insert"), [this](int index) { mTileSet->insertTile(index); });
    onTile(tr("Delete"), [this](int index) { mTileSet->deleteTile(index); });
}

QList<QAction*> TilePickerGrid::magnifications() const
{
    return mZoomGroup->actions();
}

void TilePickerGrid::setTileSet(TileSet* tileSet)
{
    if (mTileSet)
        disconnect(mTileSet, nullptr, this, nullptr);
    mTileSet = tileSet;
    clearMarks();
    mMenuIndex = -1;
    if (mTileSet) {
        // Any change of a tile, its order or its colours shows at once.
        for (auto signal : { &TileSet::tileDeleted, &TileSet::tileInserted, &TileSet::tileChanged })
            connect(mTileSet, signal, this, [this] { fitHeight(); });
        connect(mTileSet, &TileSet::tileSwapped, this, [this] { update(); });
        connect(mTileSet, &TileSet::restored, this, [this] { fitHeight(); });
    }
    fitHeight();
}

bool TilePickerGrid::hasContent() const
{
    return mTileSet;
}

int TilePickerGrid::cellCount() const
{
    return mTileSet ? mTileSet->count() : 0;
}

void TilePickerGrid::setZoom(int level)
{
    mZoom = qBound(1, level, 16);
    for (QAction* action : mZoomGroup->actions())
        action->setChecked(action->data().toInt() == mZoom);
    fitHeight();
    emit zoomChanged(mZoom);
}

void TilePickerGrid::paintCell(QPainter& painter, int index, const QRect& cell)
{
    painter.drawImage(cell.adjusted(1, 1, -1, -1),
                      mTileSet->render(index, false, false, false, mTileSet->tileOffset(index)));
}

QByteArray TilePickerGrid::dragPayload(int index) const
{
    QByteArray payload;
    QDataStream stream(&payload, QIODevice::WriteOnly);
    stream << qint32(index) << qint32(mTileSet->tileOffset(index));
    return payload;
}

QImage TilePickerGrid::dragImage(int index) const
{
    return mTileSet->render(index, false, false, false, mTileSet->tileOffset(index));
}

void TilePickerGrid::copyCell(int from, int to)
{
    mTileSet->copyTile(from, to);
}

void TilePickerGrid::moveCell(int from, int to)
{
    mTileSet->moveTile(from, to);
}

QString TilePickerGrid::toolTipAt(int index) const
{
    return tr("Index: %1\nPalette Offset: %2").arg(index + 1).arg(mTileSet->tileOffset(index) + 1);
}

void TilePickerGrid::doubleClicked(int index)
{
    emit itemDoubleClicked(index + 1);
}

void TilePickerGrid::menuRequested(int index, const QPoint& globalPos)
{
    mMenuIndex = index;
    mMenu.popup(globalPos);
}

void TilePickerGrid::wheelEvent(QWheelEvent* event)
{
    if (!(event->modifiers() & Qt::ControlModifier)) {
        IndexGrid::wheelEvent(event);
        return;
    }
    setZoom(mZoom + (event->angleDelta().y() < 1 ? -1 : 1));
    event->accept();
}
