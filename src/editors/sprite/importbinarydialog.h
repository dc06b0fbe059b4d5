#pragma once
#include "editors/sprite/spriteimportdialog.h"

namespace SpriteEditor {

// Asks how to take a .spr file in: into the open bank, or into a new one on
// a new standard palette or one of the project's.
class ImportBinaryDialog : public SpriteImportDialog
{
    Q_OBJECT
public:
    enum ImportAction { Append = 1, CreatePalette = 2, UseExistingPalette = 4 };
    Q_DECLARE_FLAGS(ImportActions, ImportAction)

    explicit ImportBinaryDialog(QWidget* parent = nullptr);

signals:
    void accepted(SpriteEditor::ImportBinaryDialog::ImportActions flags, QUuid paletteId);
};

} // namespace SpriteEditor

Q_DECLARE_OPERATORS_FOR_FLAGS(SpriteEditor::ImportBinaryDialog::ImportActions)
