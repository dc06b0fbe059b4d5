#pragma once
#include <QWidget>

class QLabel;
class QSpinBox;

// A number within a range, such as a 1-based tile number, with the range's
// end shown beside it.
class NumberRange : public QWidget
{
    Q_OBJECT
public:
    explicit NumberRange(QWidget* parent = nullptr);

    int value() const;
    int minimum() const;
    int maximum() const;
    void setRange(int minimum, int maximum);
    QSpinBox* spinBox() const { return mBox; }

public slots:
    void setValue(int value);

signals:
    void currentValueChanged(int value);

private:
    QSpinBox* mBox;
    QLabel* mEnd;
};
