#pragma once
#include "ui/dialogbase.h"

class QCheckBox;
class QLineEdit;
class QSpinBox;

namespace TileEditor {

// Asks where to export tiles, and for the .bin form which range of blocks
// and whether to turn them.
class ExportDialog : public DialogBase
{
    Q_OBJECT
public:
    explicit ExportDialog(QWidget* parent = nullptr);

    // The count bounds the two block numbers; both start at the ends.
    void setTileCount(int count);
    QLineEdit* fileEdit() const { return mFile; }
    QSpinBox* startBox() const { return mStart; }
    QSpinBox* endBox() const { return mEnd; }
    QCheckBox* rotateBox() const { return mRotate; }

public slots:
    void startBlockUpdated(int value);
    void endBlockUpdated(int value);
    void fileAccepted();

signals:
    void accepted(QString name, int first, int last, bool rotate);

protected:
    QString validate() const override;
    void emitAccepted() override;

private:
    void browse();

    QLineEdit* mFile;
    QSpinBox* mStart;
    QSpinBox* mEnd;
    QCheckBox* mRotate;
};

} // namespace TileEditor
