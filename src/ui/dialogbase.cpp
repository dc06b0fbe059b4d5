#include "ui/dialogbase.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

DialogBase::DialogBase(const QString& title, QWidget* parent)
    : QDialog(parent)
    , mForm(new QFormLayout)
    , mMessage(new QLabel(this))
    , mButtons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this))
{
    setWindowTitle(title);
    mMessage->setObjectName(QStringLiteral("message"));
    mMessage->setTextFormat(Qt::PlainText);
    mMessage->setWordWrap(true);
    mMessage->hide();

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(mForm);
    layout->addWidget(mMessage);
    layout->addWidget(mButtons);

    connect(mButtons, &QDialogButtonBox::accepted, this, [this] { accept(); });
    connect(mButtons, &QDialogButtonBox::rejected, this, [this] { reject(); });
}

QString DialogBase::message() const
{
    return mMessage->text();
}

QPushButton* DialogBase::okButton() const
{
    return mButtons->button(QDialogButtonBox::Ok);
}

void DialogBase::accept()
{
    // A disabled OK is the quiet form of refusal, so Enter can't slip past it.
    if (!okButton()->isEnabled())
        return;
    const QString problem = validate();
    if (!problem.isEmpty()) {
        setMessage(problem);
        return;
    }
    emitAccepted();
    QDialog::accept();
}

void DialogBase::done(int result)
{
    // The dialogs are reused between showings; an old complaint must not
    // greet the next one.
    setMessage({});
    QDialog::done(result);
}

void DialogBase::setMessage(const QString& message)
{
    mMessage->setText(message);
    mMessage->setVisible(!message.isEmpty());
}
