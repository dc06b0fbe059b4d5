#pragma once
#include "model/tintorel.h"
#include "ui/dialogbase.h"

#include <QHash>
#include <QUuid>

class AssetComboBox;
class QComboBox;
class QLineEdit;

// Asks for a new full-screen image: its name, its resolution, and a palette
// that is either new (one of the two fixed ids) or one of the project's.
class ImageDialog : public DialogBase
{
    Q_OBJECT
public:
    // Stand-ins for a palette that the image menu still has to create.
    static QUuid newBlankPaletteId();
    static QUuid newStandardPaletteId();

    explicit ImageDialog(QWidget* parent = nullptr);

    // Empties the name and lists the project's palettes by id and name.
    void setPalettes(const QHash<QUuid, QString>& palettes);

signals:
    void accepted(QString name, Tintorel::ImageMode mode, QUuid paletteId);

protected:
    QString validate() const override;
    void emitAccepted() override;

private:
    QLineEdit* mName = nullptr;
    QComboBox* mResolution = nullptr;
    AssetComboBox* mPalette = nullptr;
};
