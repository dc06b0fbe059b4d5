#include "benchtable.h"
#include "picturegenerator.h"

#include "model/map.h"
#include "model/palette.h"
#include "model/tileset.h"
#include "project/project.h"
#include "project/projectstore.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

namespace {

void runCli(const QString& cli, const QStringList& arguments)
{
    QProcess process;
    process.start(cli, arguments);
    if (!process.waitForFinished(-1) || process.exitCode() != 0)
        qFatal("tintorel-cli %s failed: %s", qPrintable(arguments.join(' ')),
               process.readAllStandardError().constData());
}

} // namespace

// Whole runs of the command-line tool, start to finish, as a build runs it.
void benchCli(BenchTable& table, const QString& cli)
{
    QTemporaryDir dir;
    const QString picture = dir.filePath("screen.png");
    PictureGenerator::tiles(32, 24, 24, 3).save(picture);
    const QString imported = dir.filePath("imported.tintorel");
    table.measure("tintorel-cli import 256x192 picture, to saved project", "s", 0.3, 5, [&] {
        QFile::remove(imported);
        QFile::remove(imported + ".bak");
        runCli(cli, { "import", picture, "--project", imported });
    });

    ProjectStore store;
    const QPointer<Project> project = store.create("Render", false);
    const auto palette = project->createPalette(CreateAction::Standard, "Colours");
    const auto tiles = project->createTileSet("Tiles", palette->id(), 512);
    for (int i = 0; i < tiles->count(); ++i) {
        QImage image(8, 8, QImage::Format_Indexed8);
        image.setColorTable(palette->rgbTable());
        image.fill(uint(i % 16));
        image.setPixel(i % 8, (i / 8) % 8, 15);
        tiles->setTileImage(i, image);
    }
    const auto map = project->createMap("World", tiles->id(), QSize(256, 256));
    for (int y = 0; y < 256; ++y)
        for (int x = 0; x < 256; ++x)
            map->setTile(QPoint(x, y), { (x * 3 + y * 5) % 512, (x & 1) != 0, (y & 1) != 0, false, 0, true });
    const QString file = dir.filePath("render.tintorel");
    store.saveAs(file);
    const QString png = dir.filePath("world.png");
    table.measure("tintorel-cli render 256x256-cell map to 2048x2048 PNG", "s", 0.4, 5,
                  [&] { runCli(cli, { "render", file, "--map", "World", "--out", png }); });
}
