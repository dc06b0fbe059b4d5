#include "editors/palette/channelslider.h"

ChannelSlider::ChannelSlider(QWidget* parent)
    : QSlider(Qt::Horizontal, parent)
{
    setRange(0, 7);
    setPageStep(1);
    setTickInterval(1);
    setTickPosition(QSlider::TicksBelow);
}
