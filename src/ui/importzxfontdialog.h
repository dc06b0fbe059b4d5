#pragma once
#include "ui/dialogbase.h"

class QLineEdit;
class QSpinBox;

// Asks for a ZX font file and where and how its characters land in the
// tile set. Tile numbers and palette offsets are 1-based here, as
// everywhere in the interface; `accepted` carries them 0-based.
class ImportZXFontDialog : public DialogBase
{
    Q_OBJECT
public:
    explicit ImportZXFontDialog(QWidget* parent = nullptr);

    // Limits "Start Tile" to the tile set's count.
    void setTileCount(int count);

signals:
    void accepted(int index, int foreIndex, int backIndex, int offset, QString file);

protected:
    QString validate() const override;
    void emitAccepted() override;

private:
    void browse();

    QLineEdit* mFile = nullptr;
    QSpinBox* mStartTile = nullptr;
    QSpinBox* mInk = nullptr;
    QSpinBox* mPaper = nullptr;
    QSpinBox* mOffset = nullptr;
};
