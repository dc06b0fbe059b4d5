#include "app/projectcontroller.h"

#include "model/image.h"
#include "model/map.h"
#include "model/mapobjects.h"
#include "model/palette.h"
#include "model/spritebank.h"
#include "model/tileset.h"
#include "project/project.h"

ProjectController::ProjectController(QObject* parent)
    : QObject(parent)
{
    mModifiedCheck.setSingleShot(true);
    mModifiedCheck.setInterval(0);
    connect(&mModifiedCheck, &QTimer::timeout, this, [this] { setModified(mProject && hasUnsavedChanges()); });
}

ProjectController::~ProjectController()
{
    close();
}

bool ProjectController::hasUnsavedChanges()
{
    // The undo stacks answer cheaply; the fingerprint, which encodes the
    // whole project, catches what never went through them, such as a new
    // asset.
    if (!_isClean())
        return true;
    return mStore.fingerprint() != mCleanFingerprint;
}

void ProjectController::recordCleanPoint()
{
    mCleanFingerprint = mStore.fingerprint();
    _markClean();
    mModifiedCheck.stop();
    setModified(false);
}

void ProjectController::noteChange()
{
    if (mProject)
        mModifiedCheck.start();
}

void ProjectController::setModified(bool modified)
{
    if (modified == mModified)
        return;
    mModified = modified;
    emit modifiedChanged(modified);
}

// New and copied assets take no undo step; they still change the project.
void ProjectController::followProject(Project* project)
{
    connect(project, &Project::paletteCreated, this, &ProjectController::noteChange);
    connect(project, &Project::tilesetCreated, this, &ProjectController::noteChange);
    connect(project, &Project::blocksCreated, this, &ProjectController::noteChange);
    connect(project, &Project::mapCreated, this, &ProjectController::noteChange);
    connect(project, &Project::spritesCreated, this, &ProjectController::noteChange);
    connect(project, &Project::imageCreated, this, &ProjectController::noteChange);
    connect(project, &Project::tileSetsChanged, this, &ProjectController::noteChange);
}

bool ProjectController::confirmClose()
{
    if (!mProject || !hasUnsavedChanges())
        return true;
    switch (promptUnsaved(mProject->name())) {
    case UnsavedAnswer::Save:
        save();
        return !hasUnsavedChanges();
    case UnsavedAnswer::Discard:
        return true;
    case UnsavedAnswer::Cancel:
        break;
    }
    return false;
}

void ProjectController::close()
{
    if (!mProject)
        return;
    QObject::disconnect(mProject, nullptr, nullptr, nullptr);
    emit projectClosing();
    mStore.closeProject();
    mProject = nullptr;
    mModifiedCheck.stop();
    setModified(false);
    emit projectClosed();
}

void ProjectController::newProject(const QString& name)
{
    if (!confirmClose())
        return;
    close();
    mProject = mStore.create(name, false);
    if (!mProject) {
        emit error(tr("Unable to create a new project"));
        return;
    }
    followProject(mProject);
    emit projectOpened(mProject);
    recordCleanPoint();
}

void ProjectController::openProject(const QString& filePath)
{
    if (!confirmClose())
        return;
    close();
    setUpdatesEnabled(false);
    mProject = mStore.create(QStringLiteral("loading..."), false);
    if (mStore.load(filePath)) {
        mProject = mStore.project();
        followProject(mProject);
        emit projectOpened(mProject);
        emit recentFileAdded(filePath);
        recordCleanPoint();
    } else {
        mStore.closeProject();
        mProject = nullptr;
    }
    setUpdatesEnabled(true);
}

bool ProjectController::saved()
{
    if (!mStore.filePath().isEmpty())
        return mStore.save(_backupOnSave());
    const QString path = askSavePath();
    if (path.isEmpty() || !mStore.saveAs(path))
        return false;
    emit recentFileAdded(path);
    return true;
}

void ProjectController::save()
{
    if (!mProject)
        return;
    emit aboutToSave();
    if (saved())
        recordCleanPoint();
    emit saveFinished();
}

void ProjectController::saveAs()
{
    if (!mProject)
        return;
    // A Save As that does not go through leaves the project tied to its file.
    const QString previous = mStore.filePath();
    mStore.setFilePath(QString());
    save();
    if (mStore.filePath().isEmpty())
        mStore.setFilePath(previous);
}
