#include "gui/PaneButton.h"

QPushButton* paneButton(const QString& title, const char* objectName, QWidget* parent)
{
    auto* added = new QPushButton(title, parent);
    added->setObjectName(QLatin1StringView(objectName));
    added->setAutoDefault(false);
    return added;
}
