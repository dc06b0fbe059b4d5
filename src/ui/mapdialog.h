#pragma once
#include "ui/dialogbase.h"

#include <QHash>
#include <QUuid>

class AssetComboBox;
class QLineEdit;
class QSpinBox;

// Asks for a new map: its name, its size in cells and its tile set.
class MapDialog : public DialogBase
{
    Q_OBJECT
public:
    explicit MapDialog(QWidget* parent = nullptr);

    // Empties the name and lists the project's tile sets by id and name.
    void setTileSets(const QHash<QUuid, QString>& tileSets);

signals:
    void accepted(QString name, QUuid tileSetId, QSize& size);

protected:
    QString validate() const override;
    void emitAccepted() override;

private:
    QLineEdit* mName = nullptr;
    QSpinBox* mWidth = nullptr;
    QSpinBox* mHeight = nullptr;
    AssetComboBox* mTileSet = nullptr;
};
