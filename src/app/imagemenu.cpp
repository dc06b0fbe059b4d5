#include "app/imagemenu.h"

#include "editors/image/imagedialog.h"
#include "model/palette.h"
#include "project/project.h"

ImageMenu::ImageMenu(FileChooser* files, QWidget* parent)
    : AssetMenu(tr("Image"), files, parent)
    , mDialog(new ImageDialog(parent))
{
    connect(addProjectAction(tr("New Image")), &QAction::triggered, this, [this] {
        if (project()) {
            mDialog->setPalettes(project()->paletteNames());
            mDialog->open();
        }
    });
    connect(mDialog, &ImageDialog::accepted, this,
            [this](const QString& name, Tintorel::ImageMode mode, const QUuid& choice) {
                if (project())
                    emit createImage(name, mode, resolvePalette(*project(), choice, name));
            });
}

QUuid ImageMenu::resolvePalette(Project& project, const QUuid& choice, const QString& name)
{
    if (choice == ImageDialog::newBlankPaletteId())
        return project.createPalette(CreateAction::NewBlank, name)->id();
    if (choice == ImageDialog::newStandardPaletteId())
        return project.createPalette(CreateAction::Standard, name)->id();
    return choice;
}
