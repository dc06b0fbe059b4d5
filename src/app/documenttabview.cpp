#include "app/documenttabview.h"

DocumentTabView::DocumentTabView(QWidget* parent)
    : QTabWidget(parent)
{
    setDocumentMode(true);
    setTabsClosable(true);
    setMovable(true);
}
