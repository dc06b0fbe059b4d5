#include "project/projectstore.h"

#include "model/map.h"
#include "model/palette.h"
#include "model/tileset.h"
#include "project/project.h"
#include "project/projectschema.h"
#include "project/zipfile.h"

#include <QCryptographicHash>
#include <QFile>

ProjectStore::ProjectStore(QObject* parent)
    : QObject(parent)
{
}

ProjectStore::~ProjectStore()
{
    closeProject();
}

QPointer<Project> ProjectStore::create(const QString& name, bool withStandardPalette)
{
    closeProject();
    mProject = new Project(this);
    mProject->setName(name);
    if (withStandardPalette) {
        const QPointer<Palette> standard = mProject->createPalette(CreateAction::Standard, tr("Standard Next"));
        mProject->setScratchPalette(standard->id());
    }
    return mProject;
}

bool ProjectStore::load(const QString& path)
{
    if (!mProject)
        create(QString(), false);
    ZipFile zip;
    if (!zip.openRead(path)) {
        emit loadError(tr("Invalid project file"));
        closeProject();
        return false;
    }
    const auto entryReader = [&zip](const QString& name) {
        return zip.contains(name) ? zip.read(name) : QByteArray();
    };
    QString error;
    if (!readProjectJson(*mProject, entryReader, error)) {
        emit loadError(error);
        closeProject();
        return false;
    }
    emit projectLoad(mProject->name());
    mFilePath = path;
    emit showMessage(tr("Project loaded"), 2500);
    return true;
}

void ProjectStore::backupFile() const
{
    // One generation only; a first save has nothing to rename, which is fine.
    const QString backup = mFilePath + QStringLiteral(".bak");
    QFile::remove(backup);
    QFile::rename(mFilePath, backup);
}

bool ProjectStore::save(bool backup)
{
    if (!mProject)
        return false;
    if (backup)
        backupFile();
    // Written in place under the final name: the backup is the only
    // protection against a save that fails half-way.
    ZipFile zip;
    if (!zip.openWrite(mFilePath)) {
        emit saveError(tr("Could not create the project file"));
        return false;
    }
    QString failed;
    if (!zip.writeAll(collectEntries(*mProject, true), &failed)) {
        emit saveError(tr("Could not write %1").arg(failed));
        return false;
    }
    if (!zip.close()) {
        emit saveError(tr("Could not finish writing the project file"));
        return false;
    }
    emit showMessage(tr("Saved %1 to %2").arg(mProject->name(), mFilePath), 2500);
    return true;
}

bool ProjectStore::saveAs(const QString& path)
{
    mFilePath = path;
    const bool saved = save(false);
    if (!saved)
        mFilePath.clear();
    return saved;
}

void ProjectStore::closeProject()
{
    delete mProject.data();
    mFilePath.clear();
}

QByteArray ProjectStore::fingerprint() const
{
    if (!mProject)
        return {};
    QCryptographicHash hash(QCryptographicHash::Sha1);
    const QMap<QString, QByteArray> entries = collectEntries(*mProject, false);
    for (auto it = entries.cbegin(); it != entries.cend(); ++it) {
        hash.addData(it.key().toUtf8());
        hash.addData(it.value());
    }
    return hash.result();
}

void ProjectStore::reportExport(bool found, bool exported, const QString& notFound, const QString& done,
                                const QString& failed)
{
    if (!found)
        emit saveError(notFound);
    else if (exported)
        emit showMessage(done, 2000);
    else
        emit saveError(failed);
}

void ProjectStore::exportMap(const QString& dir, const QUuid& id)
{
    const QPointer<Map> map = mProject ? mProject->map(id) : nullptr;
    reportExport(map, map && map->exportBinary(dir), tr("Invalid map id"), tr("Map exported"),
                 tr("Exporting the map failed"));
}

void ProjectStore::exportTiles(const QString& dir, const QUuid& id)
{
    const QPointer<TileSet> tiles = mProject ? mProject->tileSet(id) : nullptr;
    reportExport(tiles, tiles && tiles->exportBinary(dir), tr("Invalid tile set id"), tr("Tile set exported"),
                 tr("Exporting the tile set failed"));
}

void ProjectStore::exportPalette(const QString& dir, const QUuid& id)
{
    const QPointer<Palette> palette = mProject ? mProject->palette(id) : nullptr;
    reportExport(palette, palette && palette->exportBinary(dir), tr("Invalid palette id"), tr("Palette exported"),
                 tr("Exporting the palette failed"));
}
