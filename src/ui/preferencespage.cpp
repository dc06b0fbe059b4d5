#include "ui/preferencespage.h"

#include "ui/themedicon.h"

PreferencesPage::PreferencesPage(const QString& key, const QString& title, QWidget* parent)
    : QWidget(parent)
    , mKey(key)
    , mTitle(title)
    , mIcon(themedIcon(QStringLiteral(":/tb-new-file")))
{
}
