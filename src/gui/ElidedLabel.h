#pragma once

#include <QLabel>

// A one-line label that shortens a text too long for it with an ellipsis in the
// middle (file names keep their beginning and their end) instead of widening
// the window; the whole text is its tool tip.
class ElidedLabel : public QLabel {
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget* parent = nullptr);

    void setFullText(const QString& text);
    const QString& fullText() const { return m_fullText; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void elide();

    QString m_fullText;
};
