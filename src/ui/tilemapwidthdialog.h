#pragma once
#include "ui/dialogbase.h"

class QLabel;
class QSpinBox;

// Asks how many cells make a row of a plain tile map, whose file holds the
// cells alone; shows the rows that follow and refuses a width that leaves
// a part row.
class TileMapWidthDialog : public DialogBase
{
    Q_OBJECT
public:
    explicit TileMapWidthDialog(QWidget* parent = nullptr);

    // The map file to import, of `cells` cells; proposes a width.
    void setMapFile(const QString& file, qint64 cells);
    int width() const;

signals:
    void accepted(QString file, int width);

protected:
    QString validate() const override;
    void emitAccepted() override;

private:
    void showRows();

    QSpinBox* mWidth;
    QLabel* mRows;
    QString mFile;
    qint64 mCells = 0;
};
