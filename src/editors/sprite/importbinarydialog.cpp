#include "editors/sprite/importbinarydialog.h"

namespace SpriteEditor {

ImportBinaryDialog::ImportBinaryDialog(QWidget* parent)
    : SpriteImportDialog(tr("Import Sprite Data"), tr("Create a new standard next palette"),
                         tr("Use an existing palette from the project"), CreatePalette, UseExistingPalette, parent)
{
    connect(this, &SpriteImportDialog::chosen, this,
            [this](int flags, const QUuid& paletteId) { emit accepted(ImportActions(flags), paletteId); });
}

} // namespace SpriteEditor
