#pragma once
#include <QSlider>

// One colour channel on the machine's scale of eight levels, 0 to 7.
class ChannelSlider : public QSlider
{
    Q_OBJECT
public:
    explicit ChannelSlider(QWidget* parent = nullptr);
};
