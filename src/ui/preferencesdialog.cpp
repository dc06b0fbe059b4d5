#include "ui/preferencesdialog.h"

#include "ui/generalpage.h"
#include "ui/mapeditorpage.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QJsonObject>
#include <QListWidget>
#include <QPushButton>
#include <QShowEvent>
#include <QStackedWidget>
#include <QVBoxLayout>

PreferencesDialog::PreferencesDialog(QWidget* parent)
    : QDialog(parent)
    , mPageList(new QListWidget)
    , mStack(new QStackedWidget)
    , mButtons(new QDialogButtonBox)
    , mGeneral(new GeneralPage)
    , mMapEditor(new MapEditorPage)
{
    setWindowTitle(tr("Preferences"));
    setModal(true);
    setMinimumSize(520, 300);
    mPageList->setSelectionMode(QAbstractItemView::SingleSelection);
    mPageList->setIconSize(QSize(16, 16));
    addPage(mGeneral);
    addPage(mMapEditor);
    mPageList->setMaximumWidth(mPageList->sizeHintForColumn(0) + 2 * mPageList->frameWidth() + 24);
    mPageList->setCurrentRow(0);
    connect(mPageList, &QListWidget::currentRowChanged, this, &PreferencesDialog::changePage);

    mButtons->addButton(tr("Save"), QDialogButtonBox::AcceptRole)->setDefault(true);
    mButtons->addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
    connect(mButtons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(mButtons, &QDialogButtonBox::rejected, this, &PreferencesDialog::reject);

    auto* body = new QHBoxLayout;
    body->setSpacing(5);
    body->addWidget(mPageList);
    body->addWidget(mStack, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(5, 5, 5, 5);
    layout->setSpacing(5);
    layout->addLayout(body);
    layout->addWidget(mButtons);
}

void PreferencesDialog::addPage(PreferencesPage* page)
{
    mPages.append(page);
    mStack->addWidget(page);
    new QListWidgetItem(page->icon(), page->title(), mPageList);
}

void PreferencesDialog::changePage()
{
    if (mPageList->currentRow() >= 0)
        mStack->setCurrentIndex(mPageList->currentRow());
}

QJsonDocument PreferencesDialog::toJson() const
{
    QJsonObject document;
    for (const PreferencesPage* page : mPages)
        document.insert(page->key(), page->toJson());
    return QJsonDocument(document);
}

void PreferencesDialog::fromJson(const QJsonDocument& document)
{
    if (document.isNull() || document.isEmpty())
        return;
    const QJsonObject object = document.object();
    for (PreferencesPage* page : std::as_const(mPages))
        if (object.contains(page->key()))
            page->fromJson(object.value(page->key()).toObject());
}

void PreferencesDialog::showEvent(QShowEvent* event)
{
    // Coming back from the task bar is no new showing.
    if (!event->spontaneous())
        mSnapshot = toJson();
    QDialog::showEvent(event);
}

void PreferencesDialog::reject()
{
    fromJson(mSnapshot);
    QDialog::reject();
}
