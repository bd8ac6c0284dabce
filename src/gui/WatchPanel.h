#pragma once

#include "app/ControllerView.h"
#include "core/ApplicationFlags.h"

#include <QGroupBox>

#include <array>

class QLabel;

// The Tarnhold watch as the main window shows it: the status line, one label
// per watched application showing its state by a symbol and a colour (red ●
// running, green ○ not running, grey – not watched), and the counts of the
// custom processes. The colours follow the palette, so that they stand out
// from the window on light and dark themes alike.
class WatchPanel : public QGroupBox {
    Q_OBJECT

public:
    using LabelColor = ControllerView::LabelColor;

    explicit WatchPanel(QWidget* parent = nullptr);

    void setStatusText(const QString& text);
    void setApplicationColor(WatchedApp application, LabelColor color);
    void setCustomConfiguredCount(int count);
    void setCustomRunningCount(int count, LabelColor color);
    void setCustomStoppedCount(int count);

    // The state's colour on palette's window, with a contrast of at least 4.5:1.
    static QColor colorFor(LabelColor color, const QPalette& palette);
    static QString symbolFor(LabelColor color);
    // The WCAG 2 contrast ratio of two colours, from 1 to 21.
    static double contrast(const QColor& a, const QColor& b);

protected:
    void changeEvent(QEvent* event) override;

private:
    void showLegend();

    QLabel* m_status;
    QLabel* m_legend;
    std::array<QLabel*, kWatchedAppCount> m_applications{};
    std::array<LabelColor, kWatchedAppCount> m_colors{};
    LabelColor m_runningColor = LabelColor::LightGray;
    QLabel* m_configured;
    QLabel* m_stopped;
    QLabel* m_running;
};
