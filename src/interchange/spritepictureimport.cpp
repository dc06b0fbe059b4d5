#include "interchange/spritepictureimport.h"

#include "interchange/imageslicer.h"
#include "model/palette.h"
#include "model/picturefile.h"
#include "model/spritebank.h"
#include "project/project.h"
#include "project/projectbudget.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace {

constexpr int SpriteSize = SpriteBank::SpriteSize;

QString tr(const char* text)
{
    return QCoreApplication::translate("SpritePictureImport", text);
}

} // namespace

namespace {

// The count of pieces; `colours` gets the picture's colour count.
int slice(SpriteBank& bank, const QImage& picture, int* colours)
{
    ImageSlicer slicer(picture);
    const int count = slicer.sliceSprites(SpriteSize);
    bank.addSprites(count - 1, true);
    for (int i = 0; i < count; ++i)
        bank.setImage(i, slicer.piece(i));
    if (const QPointer<Palette> palette = bank.palette())
        palette->setColours(slicer.colours());
    *colours = slicer.sourceColourCount();
    return count;
}

} // namespace

int importSpritePicture(SpriteBank& bank, const QImage& picture)
{
    int colours = 0;
    return slice(bank, picture, &colours);
}

ImportReport importSpriteSheet(Project& project, const QString& filePath, SpriteBank** created,
                               const QUuid& paletteId)
{
    QString problem;
    const QImage picture = PictureFile::read(filePath, &problem);
    const QString readError = tr("Read error");
    if (picture.isNull())
        return ImportReport::failure(ImportText::because(
            readError, problem.isEmpty() ? tr("%1 is not a picture").arg(ImportText::file(filePath)) : problem));
    if (picture.width() < SpriteSize || picture.height() < SpriteSize)
        return ImportReport::failure(ImportText::because(readError, tr("%1 is %2 × %3 pixels, smaller than one sprite "
                                                                       "(16 × 16)")
                                                                        .arg(ImportText::file(filePath))
                                                                        .arg(picture.width())
                                                                        .arg(picture.height())));
    const qint64 count = qint64(picture.width() / SpriteSize) * (picture.height() / SpriteSize);
    ProjectBudget budget(project);
    if (!budget.charge(ProjectBudget::pictureCost(QSize(SpriteSize, SpriteSize)) * count
                           + ProjectBudget::recordsCost(count),
                       ImportText::file(filePath)))
        return ImportReport::failure(budget.problem());
    ImportReport report;
    const int right = picture.width() % SpriteSize;
    const int bottom = picture.height() % SpriteSize;
    if (right || bottom)
        report.warnings << tr("%1 is %2 × %3 pixels; the last %4 columns and %5 rows are not whole sprites and "
                              "were left out")
                               .arg(ImportText::file(filePath))
                               .arg(picture.width())
                               .arg(picture.height())
                               .arg(right)
                               .arg(bottom);
    const QString name = QFileInfo(filePath).baseName();
    int colours = 0;
    QPointer<SpriteBank> bank;
    if (const QPointer<Palette> existing = project.palette(paletteId)) {
        bank = project.createSpriteBank(Tintorel::Sprite::EightBit, name, existing->id());
        ImageSlicer slicer(picture);
        const int count = slicer.sliceSprites(SpriteSize);
        bank->addSprites(count - 1, true);
        for (int i = 0; i < count; ++i) {
            QImage piece = slicer.piece(i);
            piece.setColorTable(slicer.colours());
            bank->importImage(i, piece);
        }
    } else {
        const QPointer<Palette> palette = project.createPalette(CreateAction::NewBlank, name);
        bank = project.createSpriteBank(Tintorel::Sprite::EightBit, name, palette->id());
        slice(*bank, picture, &colours);
    }
    if (colours > Palette::Size)
        report.warnings << tr("%1 has %2 colours; pixels of the colours past the first %3 became colour 0")
                               .arg(ImportText::file(filePath))
                               .arg(colours)
                               .arg(Palette::Size);
    if (created)
        *created = bank;
    return report;
}
