#pragma once
#include "ui/dialogbase.h"

#include <QHash>
#include <QUuid>

class AssetComboBox;

// Picks one of the project's palettes, as for a palette swap. OK stays
// disabled while there is none to pick.
class PaletteSelectorDialog : public DialogBase
{
    Q_OBJECT
public:
    explicit PaletteSelectorDialog(QWidget* parent = nullptr);

    // Lists the palettes by id and name and preselects `current` if listed.
    void setPalettes(const QHash<QUuid, QString>& palettes, const QUuid& current = QUuid());

signals:
    void accepted(QUuid paletteId);

protected:
    void emitAccepted() override;

private:
    AssetComboBox* mPalette = nullptr;
};
