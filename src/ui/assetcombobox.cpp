#include "ui/assetcombobox.h"

#include <algorithm>

AssetComboBox::AssetComboBox(QWidget* parent)
    : QComboBox(parent)
{
    setSizeAdjustPolicy(QComboBox::AdjustToContents);
}

void AssetComboBox::addFixedEntry(const QString& text, const QUuid& id)
{
    insertItem(mFixedCount, text, id);
    ++mFixedCount;
}

void AssetComboBox::setAssets(const QHash<QUuid, QString>& assets)
{
    const QUuid previous = currentId();
    while (count() > mFixedCount)
        removeItem(count() - 1);

    QList<QPair<QString, QUuid>> sorted;
    for (auto it = assets.cbegin(); it != assets.cend(); ++it)
        sorted.append({it.value(), it.key()});
    // Names may repeat, so the id breaks ties and keeps the order stable
    // from one showing to the next.
    std::sort(sorted.begin(), sorted.end(), [](const auto& a, const auto& b) {
        const int byName = a.first.compare(b.first, Qt::CaseInsensitive);
        if (byName != 0)
            return byName < 0;
        return a.second.toString() < b.second.toString();
    });
    for (const auto& [name, id] : sorted)
        addItem(name, id);

    const int kept = previous.isNull() ? -1 : findData(previous);
    setCurrentIndex(kept >= 0 ? kept : (count() > 0 ? 0 : -1));
}

QUuid AssetComboBox::currentId() const
{
    return currentData().toUuid();
}

void AssetComboBox::setCurrentId(const QUuid& id)
{
    const int index = findData(id);
    if (index >= 0)
        setCurrentIndex(index);
}
