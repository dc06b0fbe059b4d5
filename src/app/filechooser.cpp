#include "app/filechooser.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

FileChooser::FileChooser(QWidget* parent)
    : mParent(parent)
{
    dialog = [this](const Request& request) {
        QFileDialog chooser(mParent, request.title, *mLastPath, request.filters.join(QStringLiteral(";;")));
        chooser.setAcceptMode(request.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
        chooser.setFileMode(request.save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
        if (!request.suffix.isEmpty())
            chooser.setDefaultSuffix(request.suffix.startsWith('.') ? request.suffix.mid(1) : request.suffix);
        if (chooser.exec() != QDialog::Accepted || chooser.selectedFiles().isEmpty())
            return QString();
        return chooser.selectedFiles().first();
    };
}

QString FileChooser::choose(const Request& request)
{
    // "~" is how a first run remembers the home folder.
    if (mLastPath->isEmpty() || *mLastPath == QStringLiteral("~"))
        *mLastPath = QDir::homePath();
    QString path = dialog(request);
    if (path.isEmpty())
        return path;
    if (request.save && !request.suffix.isEmpty() && QFileInfo(path).suffix().isEmpty())
        path += request.suffix.startsWith('.') ? request.suffix : '.' + request.suffix;
    *mLastPath = QFileInfo(path).absolutePath();
    return path;
}
