#pragma once
#include "ui/dialogbase.h"

class QCheckBox;

// Chooses which of a map's files to export: its cells, its tiles, its
// palette. At least one must be on.
class ExportMapDialog : public DialogBase
{
    Q_OBJECT
public:
    enum Option { MapData = 1, TileData = 2, PaletteData = 4 };
    Q_DECLARE_FLAGS(Options, Option)
    Q_FLAG(Options)

    explicit ExportMapDialog(QWidget* parent = nullptr);

    Options options() const;

signals:
    void accepted(ExportMapDialog::Options options);

protected:
    QString validate() const override;
    void emitAccepted() override;

private:
    QCheckBox* mMapData = nullptr;
    QCheckBox* mTileData = nullptr;
    QCheckBox* mPaletteData = nullptr;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(ExportMapDialog::Options)
