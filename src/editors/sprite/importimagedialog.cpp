#include "editors/sprite/importimagedialog.h"

namespace SpriteEditor {

ImportImageDialog::ImportImageDialog(QWidget* parent)
    : SpriteImportDialog(tr("Import Sprite Image(s)"), tr("Create a new palette from the image"),
                         tr("Use an existing palette"), ImagePalette, ProjectPalette, parent)
{
    connect(this, &SpriteImportDialog::chosen, this,
            [this](int flags, const QUuid& paletteId) { emit accepted(ImportActions(flags), paletteId); });
}

} // namespace SpriteEditor
