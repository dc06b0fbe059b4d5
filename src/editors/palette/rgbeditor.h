#pragma once
#include <QColor>
#include <QWidget>

class ChannelSlider;
class QSpinBox;

// Red, green and blue on the machine's scale of eight levels each, a
// slider and a spin box a row, kept in step both ways.
class RgbEditor : public QWidget
{
    Q_OBJECT
public:
    explicit RgbEditor(QWidget* parent = nullptr);

    // The level of an 8-bit channel value: (v * 7) / 255.
    static int levelOf(int channel) { return channel * 7 / 255; }

    QColor colour() const;
    // Shows a colour without emitting colourChanged.
    void setColour(const QColor& colour);

public slots:
    void sliderValuesChanged(int);

signals:
    void colourChanged(QColor colour);

private:
    ChannelSlider* mSliders[3] = {};
    QSpinBox* mBoxes[3] = {};
};
