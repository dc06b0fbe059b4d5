#include "benchtable.h"

#include "model/image.h"
#include "model/map.h"
#include "model/palette.h"
#include "model/spritebank.h"
#include "model/tileset.h"
#include "project/project.h"
#include "project/projectschema.h"
#include "project/projectstore.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <algorithm>
#include <sys/resource.h>

namespace {

// Pixels with some structure, as drawn art has, so that compression has the
// kind of work it meets in real projects.
void paint(QImage& image, QRandomGenerator& random, int values)
{
    for (int y = 0; y < image.height(); ++y) {
        uchar* row = image.scanLine(y);
        for (int x = 0; x < image.width(); ++x)
            row[x] = random.bounded(4) == 0 ? uchar(random.bounded(values)) : uchar((x / 3 + y / 5) % values);
    }
}

// 16 tile sets of 512 tiles, 16 maps of 256 x 256, 16 banks of 128
// sprites and 8 images of 640 x 256.
void buildLargeProject(Project& project)
{
    QRandomGenerator random(42);
    const auto palette = project.createPalette(CreateAction::Standard, "Colours");
    for (int t = 0; t < 16; ++t) {
        const auto tiles = project.createTileSet(QString("Tiles %1").arg(t), palette->id(), 512);
        for (int i = 0; i < tiles->count(); ++i) {
            QImage image(8, 8, QImage::Format_Indexed8);
            image.setColorTable(palette->rgbTable());
            paint(image, random, 16);
            tiles->setTileImage(i, image);
            tiles->setTileOffset(i, i % 16);
        }
        const auto map = project.createMap(QString("Map %1").arg(t), tiles->id(), QSize(256, 256));
        for (int y = 0; y < 256; ++y)
            for (int x = 0; x < 256; ++x)
                map->setTile(QPoint(x, y), { (x / 4 + y * 7) % 512, (x & 1) != 0, false, (y & 1) != 0,
                                             (x / 16) % 16, random.bounded(8) != 0 });
        const auto bank = project.createSpriteBank(Tintorel::Sprite::EightBit, QString("Sprites %1").arg(t),
                                                   palette->id());
        QImage strip(16, 16 * 128, QImage::Format_Indexed8);
        strip.setColorTable(palette->rgbTable());
        paint(strip, random, 256);
        bank->setBankImage(strip);
    }
    for (int i = 0; i < 8; ++i) {
        const auto image = project.createImage(Tintorel::ImageMode::Layer2_640x256, QString("Screen %1").arg(i),
                                               palette->id());
        QImage pixels = image->image();
        paint(pixels, random, 256);
        image->setImage(pixels);
    }
}

// The same entries as files, for the reference archiver.
void writeEntries(const Project& project, const QString& folder)
{
    const QMap<QString, QByteArray> entries = collectEntries(project, true);
    for (auto it = entries.cbegin(); it != entries.cend(); ++it) {
        const QString path = QDir(folder).filePath(it.key());
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        if (file.open(QIODevice::WriteOnly))
            file.write(it.value());
    }
}

double medianOf(QList<double> values)
{
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

} // namespace

void benchProject(BenchTable& table, const QString& cli)
{
    QTemporaryDir dir;
    ProjectStore store;
    buildLargeProject(*store.create("Large", false));
    const QString file = dir.filePath("large.tintorel");
    constexpr int Runs = 5;

    // Ours and the reference archiver, interleaved, so that the machine's
    // load at the time falls on both alike.
    const QString folder = dir.filePath("entries");
    writeEntries(*store.project(), folder);
    QList<double> ours;
    QList<double> reference;
    for (int run = 0; run < Runs; ++run) {
        QElapsedTimer timer;
        timer.start();
        store.saveAs(file);
        ours.append(timer.nsecsElapsed() / 1e9);

        QFile::remove(dir.filePath("reference.zip"));
        QProcess zip;
        zip.setWorkingDirectory(folder);
        timer.start();
        zip.start("zip", { "-9", "-q", "-r", dir.filePath("reference.zip"), "." });
        zip.waitForFinished(-1);
        reference.append(timer.nsecsElapsed() / 1e9);
    }
    table.record("Project save (large synthetic)", "s", medianOf(ours), 1.5, Runs);
    table.record("  zip -9 of the same entries, same runs", "s", medianOf(reference), 0, Runs);
    table.record("  save time ours / zip -9", "x", medianOf(ours) / medianOf(reference), 1.3, Runs);

    table.measure("Project load (large synthetic)", "s", 1.0, Runs, [&] {
        ProjectStore reader;
        reader.load(file);
    });
    table.measure("Project fingerprint (large synthetic)", "s", 1.0, Runs, [&] { store.fingerprint(); });

    // Peak memory of a process that does nothing but load it.
    QProcess info;
    info.start(cli, { "info", file });
    info.waitForFinished(-1);
    rusage usage {};
    getrusage(RUSAGE_CHILDREN, &usage);
    table.record("Peak memory loading it (tintorel-cli info)", "MB", usage.ru_maxrss / 1024.0, 300);
}
