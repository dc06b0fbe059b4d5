#pragma once
#include <QPointer>
#include <QWidget>

class Animation;
class QHBoxLayout;
class QLineEdit;
class QSpinBox;

namespace AnimationEditor {

// The name, size and delay of the animation being edited, kept in step
// with it both ways.
class AnimationToolBar : public QWidget
{
    Q_OBJECT
public:
    explicit AnimationToolBar(QWidget* parent = nullptr);

    void setAnimation(Animation* animation);
    QLineEdit* nameEdit() const { return mName; }
    QSpinBox* widthBox() const { return mWidth; }
    QSpinBox* heightBox() const { return mHeight; }
    QSpinBox* delayBox() const { return mDelay; }

signals:
    void nameChanged(QString name);
    void widthChanged(int width);
    void heightChanged(int height);
    void delayChanged(int delay);

protected:
    QHBoxLayout* row() const { return mRow; }
    // Shows the animation's values without sending them back.
    virtual void load();
    QPointer<Animation> animation() const { return mAnimation; }

private:
    QPointer<Animation> mAnimation;
    QHBoxLayout* mRow;
    QLineEdit* mName;
    QSpinBox* mWidth;
    QSpinBox* mHeight;
    QSpinBox* mDelay;
};

} // namespace AnimationEditor
