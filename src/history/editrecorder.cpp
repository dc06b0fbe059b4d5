#include "history/editrecorder.h"

#include "history/palettecolourcommand.h"
#include "history/snapshotcommand.h"
#include "history/undocommandids.h"
#include "model/mapobjects.h"
#include "model/palette.h"
#include "model/spriteanim.h"
#include "model/tileset.h"

#include <QDateTime>
#include <QUndoStack>

// Undo and redo restore an animation: what it then holds is the state that
// the next edit starts from.
template<typename Anim, typename State>
void EditRecorder::keep(Anim* animation, QHash<QUuid, State>& kept)
{
    if (startTracking(animation))
        connect(animation, &Animation::restored, this,
                [animation, &kept] { kept.insert(animation->id(), animation->state()); });
    kept.insert(animation->id(), animation->state());
}

template<typename Anim, typename State>
void EditRecorder::recordFrames(Anim* animation, QHash<QUuid, State>& kept, int id, const QUuid& document)
{
    if (!animation)
        return;
    const auto found = kept.constFind(animation->id());
    if (found == kept.cend()) {
        // Nothing to compare with: this becomes the state the next edit starts from.
        keep(animation, kept);
        return;
    }
    const State before = *found;
    keep(animation, kept);
    const State after = kept.value(animation->id());
    if (after == before)
        return;
    push(document, std::make_unique<SnapshotCommand<State>>(
                       QStringLiteral("Edit Frames"), animation, before, after,
                       [animation](const State& state) { animation->restore(state); }, id, FramesMergeWindow, now()));
}

EditRecorder::EditRecorder(StackLookup stackFor, QObject* parent)
    : QObject(parent)
    , mStackFor(std::move(stackFor))
{
}

bool EditRecorder::push(const QUuid& asset, std::unique_ptr<QUndoCommand> command)
{
    QUndoStack* stack = mStackFor ? mStackFor(asset) : nullptr;
    if (!stack || !command)
        return false;
    stack->push(command.release());
    return true;
}

void EditRecorder::clear()
{
    for (const QPointer<QObject>& asset : std::as_const(mTracked))
        if (asset)
            disconnect(asset, nullptr, this, nullptr);
    mTracked.clear();
    mMaps.clear();
    mBlockSets.clear();
    mOpenTileSetEdits.clear();
    mOpenBankEdits.clear();
    mTileAnimations.clear();
    mSpriteAnimations.clear();
}

void EditRecorder::trackPalette(Palette* palette)
{
    if (!startTracking(palette))
        return;
    connect(palette, &Palette::colourEdited, this, [this, palette](int index, ushort before, ushort after) {
        using Entries = PaletteColourCommand::Entries;
        push(palette->id(),
             std::make_unique<PaletteColourCommand>(palette, Entries { { index, before } },
                                                    Entries { { index, after } }, now()));
    });
}

void EditRecorder::trackTileSet(TileSet* tileSet)
{
    if (!startTracking(tileSet))
        return;
    connect(tileSet, &TileSet::structureAboutToChange, this, [this, tileSet] { beginTileSetEdit(tileSet); });
    connect(tileSet, &TileSet::structureChanged, this,
            [this, tileSet](const QString& text) { endTileSetEdit(tileSet, text); });
}

void EditRecorder::trackSprites(SpriteBank* bank)
{
    if (!startTracking(bank))
        return;
    connect(bank, &SpriteBank::structureAboutToChange, this, [this, bank] { beginBankEdit(bank); });
    connect(bank, &SpriteBank::structureChanged, this, [this, bank](const QString& text) { endBankEdit(bank, text); });
    connect(bank, &SpriteBank::animationsChanged, this, [this, bank] { keepBankAnimations(bank); });
    // A restore may bring back animations as new objects.
    connect(bank, &SpriteBank::restored, this, [this, bank] { keepBankAnimations(bank); });
    keepBankAnimations(bank);
}

void EditRecorder::trackMap(Map* map)
{
    if (!startTracking(map))
        return;
    mMaps.removeAll(nullptr);
    mMaps.append(map);
}

void EditRecorder::trackBlocks(MapObjects* blocks)
{
    if (!startTracking(blocks))
        return;
    mBlockSets.removeAll(nullptr);
    mBlockSets.append(blocks);
    connect(blocks, &MapObjects::animationsChanged, this, [this, blocks] { keepBlocks(blocks); });
    keepBlocks(blocks);
}

void EditRecorder::tileAnimationChanged(TileAnimation* animation, const QUuid& document)
{
    recordFrames(animation, mTileAnimations, UndoCommandId::TileAnimationFrames, document);
}

void EditRecorder::spriteAnimationChanged(SpriteAnim* animation, const QUuid& document)
{
    recordFrames(animation, mSpriteAnimations, UndoCommandId::SpriteAnimationFrames, document);
}

bool EditRecorder::startTracking(QObject* asset)
{
    if (!asset)
        return false;
    mTracked.removeAll(nullptr);
    if (mTracked.contains(asset))
        return false;
    mTracked.append(asset);
    return true;
}

qint64 EditRecorder::now() const
{
    return mClock ? mClock() : QDateTime::currentMSecsSinceEpoch();
}

void EditRecorder::beginTileSetEdit(TileSet* tileSet)
{
    OpenTileSetEdit& edit = mOpenTileSetEdits[tileSet->id()];
    if (edit.depth++ > 0)
        return;
    edit.before = tileSet->snapshot();
    edit.dependants.capture(mapsOn(tileSet), blocksOn(tileSet));
}

void EditRecorder::endTileSetEdit(TileSet* tileSet, const QString& text)
{
    const auto open = mOpenTileSetEdits.find(tileSet->id());
    if (open == mOpenTileSetEdits.end() || --open->depth > 0)
        return;
    const OpenTileSetEdit edit = *open;
    mOpenTileSetEdits.erase(open);

    // The blocks followed the tiles without a signal of their own.
    for (TileAnimation* block : blocksOn(tileSet))
        keep(block, mTileAnimations);
    const TileSetEdit after = tileSet->snapshot();
    if (after == edit.before)
        return;
    auto command = std::make_unique<SnapshotCommand<TileSetEdit>>(
        text, tileSet, edit.before, after, [tileSet](const TileSetEdit& state) { tileSet->restore(state); },
        UndoCommandId::TileSetStructure, StructureMergeWindow, now());
    edit.dependants.addChanged(command.get());
    push(tileSet->id(), std::move(command));
}

void EditRecorder::beginBankEdit(SpriteBank* bank)
{
    OpenEdit<SpriteBank::State>& edit = mOpenBankEdits[bank->id()];
    if (edit.depth++ == 0)
        edit.before = bank->state();
}

void EditRecorder::endBankEdit(SpriteBank* bank, const QString& text)
{
    const auto open = mOpenBankEdits.find(bank->id());
    if (open == mOpenBankEdits.end() || --open->depth > 0)
        return;
    const SpriteBank::State before = open->before;
    mOpenBankEdits.erase(open);

    // Deleting a sprite renumbers the animations' cells silently.
    keepBankAnimations(bank);
    const SpriteBank::State after = bank->state();
    if (after == before)
        return;
    push(bank->id(), std::make_unique<SnapshotCommand<SpriteBank::State>>(
                         text, bank, before, after, [bank](const SpriteBank::State& state) { bank->restore(state); },
                         UndoCommandId::SpriteBankStructure, StructureMergeWindow, now()));
}

QList<Map*> EditRecorder::mapsOn(const TileSet* tileSet) const
{
    QList<Map*> maps;
    for (const QPointer<Map>& map : mMaps)
        if (map && map->tileSet() == tileSet)
            maps.append(map);
    return maps;
}

QList<TileAnimation*> EditRecorder::blocksOn(const TileSet* tileSet) const
{
    QList<TileAnimation*> blocks;
    for (const QPointer<MapObjects>& set : mBlockSets) {
        if (!set || set->tileSet() != tileSet)
            continue;
        for (const QSharedPointer<TileAnimation>& block : set->animations())
            blocks.append(block.data());
    }
    return blocks;
}

void EditRecorder::keepBlocks(MapObjects* blocks)
{
    for (const QSharedPointer<TileAnimation>& block : blocks->animations())
        keep(block.data(), mTileAnimations);
}

void EditRecorder::keepBankAnimations(SpriteBank* bank)
{
    for (const QSharedPointer<SpriteAnim>& animation : bank->animations())
        keep(animation.data(), mSpriteAnimations);
}
