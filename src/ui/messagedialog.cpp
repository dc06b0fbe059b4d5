#include "ui/messagedialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QVBoxLayout>

MessageDialog::MessageDialog(QWidget* parent)
    : QDialog(parent)
    , mHeading(new QLabel(this))
    , mMessage(new QLabel(this))
{
    mHeading->setTextFormat(Qt::RichText);
    mMessage->setTextFormat(Qt::PlainText);
    mMessage->setWordWrap(true);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    connect(buttons, &QDialogButtonBox::accepted, this, [this] { accept(); });

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(mHeading);
    layout->addWidget(mMessage);
    layout->addWidget(buttons);
}

QString MessageDialog::heading() const
{
    return mHeading->text();
}

QString MessageDialog::message() const
{
    return mMessage->text();
}

void MessageDialog::showMessage(const QString& caption, const QString& heading, const QString& message)
{
    setWindowTitle(caption);
    // Escaped, so that a file name with "<" in it reads as written.
    mHeading->setText(QStringLiteral("<h2>%1</h2>").arg(heading.toHtmlEscaped()));
    mMessage->setText(message);
    open();
}
