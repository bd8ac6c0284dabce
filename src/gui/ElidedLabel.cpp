#include "gui/ElidedLabel.h"

ElidedLabel::ElidedLabel(QWidget* parent)
    : QLabel(parent)
{
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    setTextFormat(Qt::PlainText);
}

void ElidedLabel::setFullText(const QString& text)
{
    m_fullText = text;
    setToolTip(text);
    elide();
}

QSize ElidedLabel::sizeHint() const
{
    // One line tall even while empty, so the window does not jump when a name appears.
    return {fontMetrics().horizontalAdvance(m_fullText), fontMetrics().height()};
}

QSize ElidedLabel::minimumSizeHint() const
{
    return {0, fontMetrics().height()};
}

void ElidedLabel::resizeEvent(QResizeEvent* event)
{
    QLabel::resizeEvent(event);
    elide();
}

void ElidedLabel::elide()
{
    setText(fontMetrics().elidedText(m_fullText, Qt::ElideMiddle, contentsRect().width()));
}
