#include "ui/projectdialog.h"

#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>

ProjectDialog::ProjectDialog(QWidget* parent)
    : DialogBase(tr("Create a new project"), parent)
    , mName(new QLineEdit(this))
{
    mName->setObjectName(QStringLiteral("name"));
    form()->addRow(tr("Project name"), mName);
    connect(mName, &QLineEdit::textChanged, this,
            [this](const QString& text) { okButton()->setEnabled(!text.trimmed().isEmpty()); });
    reset();
}

void ProjectDialog::reset()
{
    mName->clear();
    okButton()->setEnabled(false);
}

void ProjectDialog::emitAccepted()
{
    emit accepted(mName->text().trimmed());
}
