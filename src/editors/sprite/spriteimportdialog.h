#pragma once
#include "ui/dialogbase.h"

#include <QHash>
#include <QUuid>

class AssetComboBox;
class QCheckBox;
class QLabel;
class QRadioButton;

namespace SpriteEditor {

// What the two sprite import dialogs share: the file, whether to append to
// the open bank, and whether the palette is made anew or is the project's.
class SpriteImportDialog : public DialogBase
{
    Q_OBJECT
public:
    // The flag values of the choices, in the derived dialog's own terms.
    SpriteImportDialog(const QString& title, const QString& createText, const QString& existingText,
                       int createFlag, int existingFlag, QWidget* parent = nullptr);

    // Shows the file and offers the project's palettes; appending needs an open bank.
    void prepare(const QString& file, const QHash<QUuid, QString>& palettes, bool canAppend);
    QString file() const { return mFileName; }
    QCheckBox* appendBox() const { return mAppend; }
    QRadioButton* existingButton() const { return mExisting; }
    AssetComboBox* paletteCombo() const { return mPalette; }

signals:
    void chosen(int flags, QUuid paletteId);

protected:
    QString validate() const override;
    void emitAccepted() override;

private:
    QString mFileName;
    QLabel* mFile;
    QCheckBox* mAppend;
    QRadioButton* mCreate;
    QRadioButton* mExisting;
    AssetComboBox* mPalette;
    int mCreateFlag;
    int mExistingFlag;
};

} // namespace SpriteEditor
