#pragma once

#include "app/ControllerView.h"
#include "core/ApplicationFlags.h"

#include <QGroupBox>

#include <array>

class QLabel;

// The Tarnhold watch as the main window shows it: the status line, one label
// per watched application coloured by its state (red running, green not
// running, light grey not watched), and the counts of the custom processes.
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

    static QColor colorFor(LabelColor color);

private:
    QLabel* m_status;
    std::array<QLabel*, kWatchedAppCount> m_applications{};
    QLabel* m_configured;
    QLabel* m_stopped;
    QLabel* m_running;
};
