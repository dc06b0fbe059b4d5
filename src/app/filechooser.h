#pragma once
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

class QWidget;

// The menus' file dialogs: one place that knows the last folder used and
// adds the default suffix. Tests replace `choose` to answer without a dialog.
class FileChooser
{
public:
    struct Request
    {
        QString title;
        QStringList filters;
        QString suffix; // added when a saved name has none
        bool save = false;
    };

    explicit FileChooser(QWidget* parent = nullptr);

    // The chosen path, empty when cancelled.
    QString choose(const Request& request);

    QString lastPath() const { return *mLastPath; }
    void setLastPath(const QString& path) { *mLastPath = path; }

    std::function<QString(const Request&)> dialog;

private:
    QWidget* mParent;
    std::shared_ptr<QString> mLastPath = std::make_shared<QString>();
};
