#pragma once
#include "ui/dialogbase.h"

#include <QHash>
#include <QUuid>

class AssetComboBox;
class QCheckBox;
class QComboBox;
class QLineEdit;

// Asks for a new tile set: its name, 256 or 512 tiles, high resolution, and
// a new empty palette (the null id) or one of the project's.
class TileSetDialog : public DialogBase
{
    Q_OBJECT
public:
    explicit TileSetDialog(QWidget* parent = nullptr);

    // Empties the name and lists the project's palettes by id and name.
    void setPalettes(const QHash<QUuid, QString>& palettes);

signals:
    void accepted(QString name, QUuid paletteId, int tileCount, bool hiRes);

protected:
    QString validate() const override;
    void emitAccepted() override;

private:
    QLineEdit* mName = nullptr;
    QComboBox* mTileCount = nullptr;
    QCheckBox* mHiRes = nullptr;
    AssetComboBox* mPalette = nullptr;
};
