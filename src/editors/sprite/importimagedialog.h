#pragma once
#include "editors/sprite/spriteimportdialog.h"

namespace SpriteEditor {

// Asks how to take a picture into sprites: into the open bank, or into a
// new one with a palette from the picture or one of the project's.
class ImportImageDialog : public SpriteImportDialog
{
    Q_OBJECT
public:
    enum ImportAction { Append = 1, ImagePalette = 2, ProjectPalette = 4 };
    Q_DECLARE_FLAGS(ImportActions, ImportAction)

    explicit ImportImageDialog(QWidget* parent = nullptr);

signals:
    void accepted(SpriteEditor::ImportImageDialog::ImportActions append, QUuid paletteId);
};

} // namespace SpriteEditor

Q_DECLARE_OPERATORS_FOR_FLAGS(SpriteEditor::ImportImageDialog::ImportActions)
