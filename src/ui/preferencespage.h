#pragma once
#include <QIcon>
#include <QJsonObject>
#include <QWidget>

// One page of the preferences dialog: it knows its own keys and turns
// itself into a JSON object and back.
class PreferencesPage : public QWidget
{
    Q_OBJECT
public:
    PreferencesPage(const QString& key, const QString& title, QWidget* parent = nullptr);

    // The member of the preferences document that holds this page.
    QString key() const { return mKey; }
    QString title() const { return mTitle; }
    QIcon icon() const { return mIcon; }

    virtual QJsonObject toJson() const = 0;
    // Missing keys keep the page's values, but for the check boxes, which
    // take their defaults.
    virtual void fromJson(const QJsonObject& object) = 0;

private:
    QString mKey;
    QString mTitle;
    QIcon mIcon;
};
