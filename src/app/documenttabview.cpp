#include "app/documenttabview.h"

#include <QVariant>

namespace {
const char* IdProperty = "document_id";
const char* TypeProperty = "document_type";
} // namespace

DocumentTabView::DocumentTabView(QWidget* parent)
    : QTabWidget(parent)
{
    setDocumentMode(true);
    setTabsClosable(true);
    setMovable(true);
    connect(this, &QTabWidget::tabCloseRequested, this, &DocumentTabView::closeTab);
    connect(this, &QTabWidget::currentChanged, this, &DocumentTabView::currentIndexChanged);
}

void DocumentTabView::registerEditor(DocumentType type, const PageFactory& factory)
{
    mFactories.insert(type, factory);
}

void DocumentTabView::setScratchEditor(QWidget* page)
{
    mScratchEditor = page;
}

int DocumentTabView::indexOf(const QUuid& id) const
{
    for (int i = 0; i < count(); ++i) {
        const QVariant value = widget(i)->property(IdProperty);
        if (value.isValid() && value.toUuid() == id)
            return i;
    }
    return -1;
}

int DocumentTabView::openDocument(DocumentType type, const QUuid& id, const QString& title)
{
    int index = indexOf(id);
    if (index < 0) {
        const auto factory = mFactories.constFind(type);
        QWidget* page = factory == mFactories.constEnd() ? nullptr : (*factory)(id);
        if (!page)
            return -1;
        page->setProperty(IdProperty, id);
        page->setProperty(TypeProperty, int(type));
        index = addTab(page, title);
    }
    setCurrentIndex(index);
    return index;
}

QStringList DocumentTabView::documentIds() const
{
    QStringList ids;
    for (int i = 0; i < count(); ++i) {
        const QVariant value = widget(i)->property(IdProperty);
        if (value.isValid())
            ids.append(value.toUuid().toString());
    }
    return ids;
}

void DocumentTabView::removeDocument(const QUuid& id)
{
    const int index = indexOf(id);
    if (index >= 0)
        closeTab(index);
}

void DocumentTabView::renameDocument(const QUuid& id, const QString& title)
{
    const int index = indexOf(id);
    if (index >= 0)
        setTabText(index, title);
}

void DocumentTabView::clearDocuments()
{
    while (count() > 0)
        closeTab(0);
}

void DocumentTabView::closeTab(int index)
{
    QWidget* page = widget(index);
    if (!page)
        return;
    removeTab(index);
    // The scratch editor lives as long as the window; document pages go.
    if (page == mScratchEditor)
        emit scratchEditorVisibilityChanged(false);
    else
        page->deleteLater();
}

void DocumentTabView::currentIndexChanged(int index)
{
    QWidget* page = widget(index);
    if (!page)
        return;
    const QVariant id = page->property(IdProperty);
    if (!id.isValid()) {
        if (page == mScratchEditor)
            emit ScratchEditorActivated();
        return;
    }
    const QUuid uuid = id.toUuid();
    switch (page->property(TypeProperty).toInt()) {
    case MapDocument: emit MapEditorActivated(uuid); break;
    case ImageDocument: emit ImageEditorActivated(uuid); break;
    case SpriteDocument: emit SpriteEditorActivated(uuid); break;
    case BlockDocument: emit BlockEditorActivated(uuid); break;
    }
}

void DocumentTabView::setScratchEditorVisible(bool visible)
{
    if (!mScratchEditor)
        return;
    const int index = QTabWidget::indexOf(mScratchEditor);
    if (visible && index < 0)
        setCurrentIndex(addTab(mScratchEditor, tr("Scratch Image Editor")));
    else if (!visible && index >= 0)
        removeTab(index);
    else
        return;
    emit scratchEditorVisibilityChanged(visible);
}
