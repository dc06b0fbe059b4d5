#pragma once
#include <QColor>
#include <QFrame>

class ColourEditor;

// The colour editor as a pop-up next to a colour picker: OK passes the
// colour on and closes it, Cancel or a click outside just closes it.
class ColourEditorPopover : public QFrame
{
    Q_OBJECT
public:
    explicit ColourEditorPopover(QWidget* parent = nullptr);

    ColourEditor* colourEditor() const { return mEditor; }
    // Opens at a global position with the colour loaded.
    void popup(const QPoint& globalPos, const QColor& colour, bool priority);

public slots:
    void confirmColourChanged(const QColor& colour, bool priority);
    void cancelled();

signals:
    void colourChanged(QColor colour, bool priority);
    void closed();

protected:
    void hideEvent(QHideEvent* event) override;

private:
    ColourEditor* mEditor;
};
