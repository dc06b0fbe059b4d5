#include "ui/checklist.h"

#include <QLineEdit>
#include <QStandardItemModel>

CheckList::CheckList(QWidget* parent)
    : QComboBox(parent)
    , mModel(new QStandardItemModel(this))
{
    setModel(mModel);
    // An editable face that nobody can type into shows the summary text.
    setEditable(true);
    lineEdit()->setReadOnly(true);
    connect(mModel, &QStandardItemModel::itemChanged, this, [this] {
        updateText();
        if (!mQuiet)
            emit globalCheckStateChanged(globalState());
    });
    // Picking a row toggles it rather than choosing it.
    connect(this, qOverload<int>(&QComboBox::activated), this, [this](int row) {
        if (QStandardItem* item = mModel->item(row))
            item->setCheckState(item->checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
        updateText();
    });
}

void CheckList::setAllCheckedText(const QString& text)
{
    mAllText = text;
    updateText();
}

void CheckList::setNoneCheckedText(const QString& text)
{
    mNoneText = text;
    updateText();
}

void CheckList::setSomeCheckedText(const QString& text)
{
    mSomeText = text;
    updateText();
}

void CheckList::addCheckItem(const QString& label, const QVariant& data, Qt::CheckState state)
{
    auto* item = new QStandardItem(label);
    item->setFlags(Qt::ItemIsUserCheckable | Qt::ItemIsEnabled);
    item->setData(data, Qt::UserRole + 1);
    item->setCheckState(state);
    mQuiet = true;
    mModel->appendRow(item);
    mQuiet = false;
    updateText();
}

void CheckList::setItemChecked(int row, bool checked)
{
    if (QStandardItem* item = mModel->item(row)) {
        mQuiet = true;
        item->setCheckState(checked ? Qt::Checked : Qt::Unchecked);
        mQuiet = false;
    }
}

bool CheckList::isItemChecked(int row) const
{
    const QStandardItem* item = mModel->item(row);
    return item && item->checkState() == Qt::Checked;
}

int CheckList::globalState() const
{
    int checked = 0;
    for (int row = 0; row < mModel->rowCount(); ++row)
        checked += isItemChecked(row) ? 1 : 0;
    if (checked == 0)
        return Qt::Unchecked;
    return checked == mModel->rowCount() ? Qt::Checked : Qt::PartiallyChecked;
}

void CheckList::updateText()
{
    const int state = globalState();
    lineEdit()->setText(state == Qt::Checked ? mAllText : state == Qt::Unchecked ? mNoneText : mSomeText);
}
