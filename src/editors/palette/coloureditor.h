#pragma once
#include <QColor>
#include <QWidget>

class QCheckBox;
class QLabel;
class QPushButton;
class RgbEditor;

// Edits one colour on the machine's scale: the saved and the edited colour
// side by side, the levels, the priority bit, and OK to confirm the edit.
// Nothing reaches a palette before OK.
class ColourEditor : public QWidget
{
    Q_OBJECT
public:
    explicit ColourEditor(QWidget* parent = nullptr);

    // Loads the colour as both the saved and the edited one.
    void setColour(const QColor& colour, bool priority);
    QColor editedColour() const { return mEdited; }
    QColor savedColour() const { return mSaved; }
    bool priority() const;
    QPushButton* okButton() const { return mOk; }
    RgbEditor* rgbEditor() const { return mRgb; }

public slots:
    void rgbValueChanged(const QColor& colour);
    void okClick();
    void cancelClick();
    void priorityChanged(bool checked);
    void darken();
    void lighten();

signals:
    void colourChanged(QColor colour, bool priority);
    void cancelled();

private:
    void showEdited(const QColor& colour);
    void updateOk();
    // One visible step along QColor::darker or lighter: the smallest factor
    // from 100 to 198 that changes a level.
    void step(bool darker);

    QLabel* mSavedSwatch;
    QLabel* mEditedSwatch;
    RgbEditor* mRgb;
    QCheckBox* mPriority;
    QPushButton* mOk;
    QPushButton* mCancel;
    QColor mSaved = Qt::black;
    QColor mEdited = Qt::black;
    bool mSavedPriority = false;
};
