#pragma once
#include <QDockWidget>

class QLabel;
class QStackedWidget;

// Base of every dock: shows its content while active, and a centred
// placeholder text while inactive or while it has nothing to show.
class DockWidget : public QDockWidget
{
    Q_OBJECT
public:
    DockWidget(const QString& objectName, const QString& title, const QString& placeholderText,
               QWidget* parent = nullptr);

    QString placeholderText() const;
    void setPlaceholderText(const QString& text);

    // Takes ownership; replaces (and deletes) any earlier content.
    void setContent(QWidget* content);
    QWidget* content() const { return mContent; }

    bool isActive() const { return mActive; }
    bool isShowingPlaceholder() const;

public slots:
    void setActive(bool active);

private:
    void updatePage();

    QStackedWidget* mStack = nullptr;
    QLabel* mPlaceholder = nullptr;
    QWidget* mContent = nullptr;
    bool mActive = false;
};
