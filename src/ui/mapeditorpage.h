#pragma once
#include "ui/preferencespage.h"

#include <QColor>

class QCheckBox;
class QColorDialog;
class QPushButton;
class QSpinBox;

// The "mapEditor" preferences, which every new map tab starts with: the
// grid's overlay, size and colours, the checker board and the
// magnification.
class MapEditorPage : public PreferencesPage
{
    Q_OBJECT
public:
    explicit MapEditorPage(QWidget* parent = nullptr);

    QJsonObject toJson() const override;
    void fromJson(const QJsonObject& object) override;

    bool checkerBoard() const;
    QColor gridColour1() const { return mColours[0]; }
    QColor gridColour2() const { return mColours[1]; }
    bool overlayGrid() const;
    int gridSize() const;
    int defaultZoom() const;

    QCheckBox* checkerBox() const { return mChecker; }
    QCheckBox* overlayBox() const { return mOverlay; }
    QSpinBox* gridSizeBox() const { return mGridSize; }
    QSpinBox* zoomBox() const { return mZoom; }
    QPushButton* colourButton(int index) const { return mColourButtons[index]; }
    QColorDialog* colourPicker() const { return mPicker; }

public slots:
    void setFirstGridColour(QColor colour);
    void setSecondGridColour(QColor colour);
    // Index 0 is the grid colour, 1 the alternate one.
    void showColourPicker(int index);

private:
    void setColour(int index, const QColor& colour);

    QCheckBox* mChecker;
    QCheckBox* mOverlay;
    QSpinBox* mGridSize;
    QSpinBox* mZoom;
    QPushButton* mColourButtons[2];
    // Until a document names them, the grid's own colours.
    QColor mColours[2] { QColor(64, 64, 64), QColor(80, 80, 80) };
    QColorDialog* mPicker;
    int mPickerIndex = 0;
};
