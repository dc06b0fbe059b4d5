#pragma once
#include <QTabWidget>

// The central area of the window: one tab per open document.
class DocumentTabView : public QTabWidget
{
    Q_OBJECT
public:
    explicit DocumentTabView(QWidget* parent = nullptr);
};
