#include "ui/palettedialog.h"

#include <QButtonGroup>
#include <QFormLayout>
#include <QLineEdit>
#include <QRadioButton>
#include <QVBoxLayout>

PaletteDialog::PaletteDialog(QWidget* parent)
    : DialogBase(tr("Create a new palette"), parent)
    , mName(new QLineEdit(this))
    , mActions(new QButtonGroup(this))
    , mStandard(new QRadioButton(tr("Use the default Next palette"), this))
    , mCopy(new QRadioButton(tr("Copy colours from current palette"), this))
{
    mName->setObjectName(QStringLiteral("name"));
    auto* blank = new QRadioButton(tr("Create a blank palette"), this);
    mActions->addButton(mStandard, int(CreateAction::Standard));
    mActions->addButton(blank, int(CreateAction::Blank));
    mActions->addButton(mCopy, int(CreateAction::Copy));
    mStandard->setChecked(true);

    auto* choices = new QVBoxLayout;
    for (QAbstractButton* button : mActions->buttons())
        choices->addWidget(button);
    form()->addRow(tr("Palette Name"), mName);
    form()->addRow(QString(), choices);
}

void PaletteDialog::setPaletteNames(const QStringList& names)
{
    mName->clear();
    mTakenNames = names;
}

void PaletteDialog::setCopyAvailable(bool available)
{
    if (!available && mCopy->isChecked())
        mStandard->setChecked(true);
    mCopy->setEnabled(available);
}

QString PaletteDialog::validate() const
{
    const QString name = mName->text().trimmed();
    if (name.isEmpty())
        return tr("Palette name is required");
    // Case is ignored: "Sky" and "sky" side by side in the project tree
    // would be told apart by no one.
    for (const QString& taken : mTakenNames) {
        if (taken.trimmed().compare(name, Qt::CaseInsensitive) == 0)
            return tr("Palette names must be unique");
    }
    return {};
}

void PaletteDialog::emitAccepted()
{
    emit accepted(CreateAction(mActions->checkedId()), mName->text().trimmed());
}
