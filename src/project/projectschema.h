#pragma once
#include <QByteArray>
#include <QMap>
#include <QString>
#include <functional>

class Project;
class QUuid;

// The project file's content: "project.json" and the picture and tile-map
// entries beside it in the archive. Writing is in projectwriter.cpp,
// reading in projectreader.cpp; the archive itself is ProjectStore's.

// Names of the archive's entries; an asset's id goes in braced form.
namespace ProjectEntry {
QString document();
QString tileSet(const QUuid& id);
QString tileMap(const QUuid& id);
QString spriteBank(const QUuid& id);
QString image(const QUuid& id);
QString scratch();
} // namespace ProjectEntry

// Indented JSON; the open tabs only when asked, so that a fingerprint
// does not change when a tab opens.
QByteArray writeProjectJson(const Project& project, bool includeOpenDocuments);

// Every entry of a project file by name, in the order they are written.
QMap<QString, QByteArray> collectEntries(const Project& project, bool includeOpenDocuments);

// Fills an empty project. `entryReader` gives empty bytes for a missing
// entry. On false, `errorOut` holds the message for the user and the
// project is half-built, to be thrown away.
bool readProjectJson(Project& project, const std::function<QByteArray(const QString&)>& entryReader,
                     QString& errorOut);
