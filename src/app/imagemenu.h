#pragma once
#include "app/assetmenu.h"
#include "model/tintorel.h"

#include <QUuid>

class ImageDialog;

// "Image": new full-screen images.
class ImageMenu : public AssetMenu
{
    Q_OBJECT
public:
    ImageMenu(FileChooser* files, QWidget* parent = nullptr);

    ImageDialog* dialog() const { return mDialog; }
    // The palette an image asks for: an existing id, or one of the two
    // fixed ids that ask for a new blank or a new standard palette.
    static QUuid resolvePalette(Project& project, const QUuid& choice, const QString& name);

signals:
    void createImage(QString name, Tintorel::ImageMode mode, QUuid paletteId);

private:
    ImageDialog* mDialog;
};
