#pragma once
#include <QDialog>
#include <QJsonDocument>

class GeneralPage;
class MapEditorPage;
class PreferencesPage;
class QDialogButtonBox;
class QListWidget;
class QStackedWidget;

// The user's settings, a page per group. The pages hold the values while
// the program runs; a document with one member per page carries them to
// and from preferences.json. Cancel puts back what the pages held when the
// dialog was shown.
class PreferencesDialog : public QDialog
{
    Q_OBJECT
public:
    explicit PreferencesDialog(QWidget* parent = nullptr);

    QJsonDocument toJson() const;
    // An empty or null document changes nothing.
    void fromJson(const QJsonDocument& document);

    GeneralPage* general() const { return mGeneral; }
    MapEditorPage* mapEditor() const { return mMapEditor; }
    QListWidget* pageList() const { return mPageList; }
    QStackedWidget* pages() const { return mStack; }
    QDialogButtonBox* buttons() const { return mButtons; }

public slots:
    void changePage();
    void reject() override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void addPage(PreferencesPage* page);

    QListWidget* mPageList;
    QStackedWidget* mStack;
    QDialogButtonBox* mButtons;
    GeneralPage* mGeneral;
    MapEditorPage* mMapEditor;
    // In the order of the list.
    QList<PreferencesPage*> mPages;
    QJsonDocument mSnapshot;
};
