#pragma once
#include <QHash>
#include <QTabWidget>
#include <QUuid>
#include <functional>

// The central area: one closable tab per open document. Each editor plugs
// in a page factory for its kind of document; a kind without one opens
// nothing. The scratch image editor has a tab of its own, without an id.
class DocumentTabView : public QTabWidget
{
    Q_OBJECT
public:
    // The editors, stored in each page's "document_type" property.
    enum DocumentType { MapDocument = 0, ImageDocument = 1, SpriteDocument = 2, BlockDocument = 3 };
    using PageFactory = std::function<QWidget*(const QUuid& id)>;

    explicit DocumentTabView(QWidget* parent = nullptr);

    void registerEditor(DocumentType type, const PageFactory& factory);
    bool hasEditor(DocumentType type) const { return mFactories.contains(type); }
    // The scratch editor's page, shown through setScratchEditorVisible.
    void setScratchEditor(QWidget* page);

    // The tab showing `id`, made by the registered factory when missing and
    // made current; -1 when this kind of document has no editor yet.
    int openDocument(DocumentType type, const QUuid& id, const QString& title);
    int indexOf(const QUuid& id) const;
    QStringList documentIds() const;
    void removeDocument(const QUuid& id);
    void renameDocument(const QUuid& id, const QString& title);
    void clearDocuments();

public slots:
    void closeTab(int index);
    void currentIndexChanged(int index);
    void setScratchEditorVisible(bool visible);

signals:
    void MapEditorActivated(QUuid id);
    void ScratchEditorActivated();
    void ImageEditorActivated(QUuid id);
    void SpriteEditorActivated(QUuid id);
    void BlockEditorActivated(QUuid id);
    void showAnimPicker();
    // The scratch tab came or went, by the view menu, its close button or
    // the close of the project.
    void scratchEditorVisibilityChanged(bool visible);

private:
    QHash<int, PageFactory> mFactories;
    QWidget* mScratchEditor = nullptr;
};
