#include "interchange/paletteimport.h"

#include "model/nximage.h"
#include "model/palette.h"
#include "project/project.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("PaletteImport", text);
}

QString readError()
{
    return tr("Read error");
}

} // namespace

ImportReport importPalette(Project& project, const QString& filePath, QPointer<Palette>* created)
{
    const QFileInfo info(filePath);
    const QString suffix = info.suffix().toLower();
    const bool picture = suffix == "png" || suffix == "bmp";
    ImportReport report;
    NxImage colours;
    if (picture) {
        if (!colours.load(filePath))
            return ImportReport::failure(
                ImportText::because(readError(), tr("%1 is not a picture").arg(ImportText::file(filePath))));
        if (colours.colours().size() > Palette::Size)
            report.warnings << tr("%1 has %2 colours; the palette took the first %3")
                                   .arg(ImportText::file(filePath))
                                   .arg(colours.colours().size())
                                   .arg(Palette::Size);
    } else {
        if (!info.exists())
            return ImportReport::failure(
                ImportText::because(readError(), tr("%1 does not exist").arg(ImportText::file(filePath))));
        const QString length = ImportText::paletteLength(filePath);
        if (!length.isEmpty())
            return ImportReport::failure(ImportText::because(readError(), length));
    }

    const QPointer<Palette> palette = project.createPalette(CreateAction::Blank, info.baseName());
    if (picture) {
        palette->setColours(colours.colours());
    } else if (!palette->importData(filePath)) {
        // Checked above, so only a file that changed under us gets here: leave no black palette behind.
        project.deletePalette(palette->id());
        return ImportReport::failure(
            ImportText::because(readError(), tr("%1 could not be read").arg(ImportText::file(filePath))));
    }
    if (created)
        *created = palette;
    return report;
}
