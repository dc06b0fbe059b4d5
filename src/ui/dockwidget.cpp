#include "ui/dockwidget.h"

#include <QLabel>
#include <QStackedWidget>

DockWidget::DockWidget(const QString& objectName, const QString& title, const QString& placeholderText,
                       QWidget* parent)
    : QDockWidget(title, parent)
    , mStack(new QStackedWidget(this))
    , mPlaceholder(new QLabel(placeholderText, mStack))
{
    setObjectName(objectName);
    mPlaceholder->setAlignment(Qt::AlignCenter);
    mPlaceholder->setWordWrap(true);
    mPlaceholder->setEnabled(false);
    mStack->addWidget(mPlaceholder);
    setWidget(mStack);
}

QString DockWidget::placeholderText() const
{
    return mPlaceholder->text();
}

void DockWidget::setPlaceholderText(const QString& text)
{
    mPlaceholder->setText(text);
}

void DockWidget::setContent(QWidget* content)
{
    if (content == mContent)
        return;
    if (mContent) {
        mStack->removeWidget(mContent);
        delete mContent;
    }
    mContent = content;
    if (mContent)
        mStack->addWidget(mContent);
    updatePage();
}

bool DockWidget::isShowingPlaceholder() const
{
    return mStack->currentWidget() == mPlaceholder;
}

void DockWidget::setActive(bool active)
{
    mActive = active;
    updatePage();
}

void DockWidget::updatePage()
{
    mStack->setCurrentWidget(mActive && mContent ? mContent : static_cast<QWidget*>(mPlaceholder));
}
