#pragma once
#include "history/tilesetdependants.h"
#include "model/spritebank.h"
#include "model/tileanimation.h"
#include "model/tilesetedit.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QUuid>
#include <functional>
#include <memory>

class MapObjects;
class Palette;
class QUndoCommand;
class QUndoStack;
class SpriteAnim;
class TileSet;

// Watches the open project's assets and turns their edits into commands on
// the stack of each asset's document, so that the model knows nothing of
// undo. Keeps, per asset id, the last snapshot taken.
class EditRecorder : public QObject
{
    Q_OBJECT
public:
    using TileSetEdit = ::TileSetEdit;
    // The stack of an asset's document, or null when it has none.
    using StackLookup = std::function<QUndoStack*(const QUuid&)>;
    using Clock = std::function<qint64()>;

    static constexpr qint64 FramesMergeWindow = 100;
    // Structural edits merge only within one millisecond, when one action makes several.
    static constexpr qint64 StructureMergeWindow = 0;

    explicit EditRecorder(StackLookup stackFor = {}, QObject* parent = nullptr);

    void setStackLookup(StackLookup stackFor) { mStackFor = std::move(stackFor); }
    // Milliseconds since the epoch; the merge windows are measured with it.
    void setClock(Clock clock) { mClock = std::move(clock); }

    // Onto the stack of `asset`; with none the command is deleted. True if pushed.
    bool push(const QUuid& asset, std::unique_ptr<QUndoCommand> command);
    // Stops watching everything and forgets every snapshot, as when a project closes.
    void clear();

public slots:
    void trackPalette(Palette* palette);
    void trackTileSet(TileSet* tileSet);
    // The bank's animations too, as they come and go.
    void trackSprites(SpriteBank* bank);
    // Maps and block sets are restored with their tile set's structural undo.
    void trackMap(Map* map);
    void trackBlocks(MapObjects* blocks);
    // After an edit of the frames; `document` names the stack that receives the step.
    void tileAnimationChanged(TileAnimation* animation, const QUuid& document);
    void spriteAnimationChanged(SpriteAnim* animation, const QUuid& document);

private:
    // The state before a structural edit whose brackets are still open; they may nest.
    template<typename T>
    struct OpenEdit
    {
        T before;
        int depth = 0;
    };
    struct OpenTileSetEdit : OpenEdit<TileSetEdit>
    {
        TileSetDependants dependants;
    };

    bool startTracking(QObject* asset);
    qint64 now() const;
    void beginTileSetEdit(TileSet* tileSet);
    void endTileSetEdit(TileSet* tileSet, const QString& text);
    void beginBankEdit(SpriteBank* bank);
    void endBankEdit(SpriteBank* bank, const QString& text);
    QList<Map*> mapsOn(const TileSet* tileSet) const;
    QList<TileAnimation*> blocksOn(const TileSet* tileSet) const;
    void keepBlocks(MapObjects* blocks);
    void keepBankAnimations(SpriteBank* bank);
    template<typename Anim, typename State>
    void keep(Anim* animation, QHash<QUuid, State>& kept);
    template<typename Anim, typename State>
    void recordFrames(Anim* animation, QHash<QUuid, State>& kept, int id, const QUuid& document);

    StackLookup mStackFor;
    Clock mClock;
    QList<QPointer<QObject>> mTracked;
    QList<QPointer<Map>> mMaps;
    QList<QPointer<MapObjects>> mBlockSets;
    QHash<QUuid, OpenTileSetEdit> mOpenTileSetEdits;
    QHash<QUuid, OpenEdit<SpriteBank::State>> mOpenBankEdits;
    QHash<QUuid, TileAnimation::State> mTileAnimations;
    QHash<QUuid, Animation::State> mSpriteAnimations;
};
