#include "gui/PaneNote.h"

#include <QLabel>

QLabel* paneNote(const QString& text, QWidget* parent)
{
    auto* note = new QLabel(text, parent);
    note->setWordWrap(true);
    note->setTextFormat(Qt::PlainText);
    note->setForegroundRole(QPalette::PlaceholderText);
    return note;
}
