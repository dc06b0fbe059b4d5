#pragma once
#include "ui/dialogbase.h"

#include <QHash>
#include <QUuid>

class AssetComboBox;
class QLineEdit;
class QRadioButton;

// Asks for a new sprite bank: its name, 16 or 256 colour sprites, and a new
// empty palette or one of the project's.
class SpriteDialog : public DialogBase
{
    Q_OBJECT
public:
    enum CreateOption { CreateNewPalette = 1, UseProjectPalette = 2, FourBit = 4, EightBit = 8 };
    Q_DECLARE_FLAGS(CreateOptions, CreateOption)
    Q_FLAG(CreateOptions)

    explicit SpriteDialog(QWidget* parent = nullptr);

    // Empties the name and lists the project's palettes by id and name.
    void setPalettes(const QHash<QUuid, QString>& palettes);

    using DialogBase::show;

signals:
    // `paletteId` is null with CreateNewPalette.
    void accepted(SpriteDialog::CreateOptions options, QString name, QUuid paletteId);

public slots:
    // setPalettes, then opens the dialog without blocking.
    void show(const QHash<QUuid, QString>& palettes);

protected:
    QString validate() const override;
    void emitAccepted() override;

private:
    QLineEdit* mName = nullptr;
    QRadioButton* mFourBit = nullptr;
    AssetComboBox* mPalette = nullptr;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(SpriteDialog::CreateOptions)
