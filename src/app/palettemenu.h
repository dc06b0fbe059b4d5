#pragma once
#include "app/assetmenu.h"
#include "project/createaction.h"

#include <QUuid>

class PaletteDialog;

// "Palette": new palettes, and palette files in and out.
class PaletteMenu : public AssetMenu
{
    Q_OBJECT
public:
    PaletteMenu(FileChooser* files, QWidget* parent = nullptr);

    PaletteDialog* dialog() const { return mDialog; }
    void setCurrentPalette(const QUuid& id) { mCurrent = id; }

public slots:
    void showPaletteDialog();
    void showImportDialog();
    void showExportDialog();
    void exportAccepted(const QString& file);
    void importAccepted(const QString& file);
    void createPalette(CreateAction action, const QString& name);

private:
    PaletteDialog* mDialog;
    QUuid mCurrent;
};
