#pragma once
#include <QComboBox>

class QStandardItemModel;

// A drop-down of check boxes whose closed face sums them up: one text when
// all are checked, one when none is, and one for anything between.
class CheckList : public QComboBox
{
    Q_OBJECT
public:
    explicit CheckList(QWidget* parent = nullptr);

    void setAllCheckedText(const QString& text);
    void setNoneCheckedText(const QString& text);
    void setSomeCheckedText(const QString& text);
    // The item's data is stored under Qt::UserRole + 1.
    void addCheckItem(const QString& label, const QVariant& data, Qt::CheckState state);
    QStandardItemModel* checkModel() const { return mModel; }
    // Sets an item's check state without emitting globalCheckStateChanged.
    void setItemChecked(int row, bool checked);
    bool isItemChecked(int row) const;

signals:
    // Qt::Checked when all are checked, Qt::Unchecked when none is, else
    // Qt::PartiallyChecked.
    void globalCheckStateChanged(int state);

private:
    int globalState() const;
    void updateText();

    QStandardItemModel* mModel;
    QString mAllText;
    QString mNoneText;
    QString mSomeText;
    bool mQuiet = false;
};
