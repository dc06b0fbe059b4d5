#pragma once
#include "ui/dialogbase.h"

#include <QHash>
#include <QUuid>

class AssetComboBox;
class QLineEdit;

// Asks for a new set of animated blocks: its name and the tile set whose
// tiles it animates.
class TileAnimationDialog : public DialogBase
{
    Q_OBJECT
public:
    explicit TileAnimationDialog(QWidget* parent = nullptr);

    // Empties the name and lists the tile sets by id and name; with none it
    // says so at once.
    void setTileSets(const QHash<QUuid, QString>& tileSets);

    using DialogBase::show;

signals:
    void accepted(QString name, QUuid tileSetId);

public slots:
    // setTileSets, then opens the dialog without blocking.
    void show(const QHash<QUuid, QString>& tileSets);

protected:
    QString validate() const override;
    void emitAccepted() override;

private:
    QLineEdit* mName = nullptr;
    AssetComboBox* mTileSet = nullptr;
};
