#pragma once
#include <QHash>
#include <QPointer>
#include <QWidget>

class QAction;
class QLabel;

// The media buttons of an animation editor, with the frame number between
// them. The editor that holds it does the playing.
class AnimationControlWidget : public QWidget
{
    Q_OBJECT
public:
    enum Action { First, Previous, Play, Pause, Stop, Next, Last, AddFrame, DeleteFrame, Loop, PingPong };
    Q_ENUM(Action)

    explicit AnimationControlWidget(QWidget* parent = nullptr);

    QAction* action(Action action) const { return mActions.value(action); }
    QString frameText() const;
    // Clamped to 1..total, the lower bound first: "Frame %1 of %2".
    void setFrame(int frame, int total);
    void setChecked(Action action, bool checked);

signals:
    void buttonClicked(AnimationControlWidget::Action action, bool checked);

private:
    QHash<Action, QPointer<QAction>> mActions;
    QLabel* mFrame;
};
