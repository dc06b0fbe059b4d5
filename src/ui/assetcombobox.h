#pragma once
#include <QComboBox>
#include <QHash>
#include <QUuid>

// A combo of project assets, sorted by name and carrying their ids in
// Qt::UserRole, after any fixed entries such as "New empty palette".
class AssetComboBox : public QComboBox
{
    Q_OBJECT
public:
    explicit AssetComboBox(QWidget* parent = nullptr);

    // Fixed entries come first and survive setAssets; add them before it.
    void addFixedEntry(const QString& text, const QUuid& id = QUuid());
    // Replaces the assets, keeping the current choice when it is still there.
    void setAssets(const QHash<QUuid, QString>& assets);

    int assetCount() const { return count() - mFixedCount; }
    QUuid currentId() const;
    void setCurrentId(const QUuid& id);

private:
    int mFixedCount = 0;
};
