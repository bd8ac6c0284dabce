#pragma once

#include <QList>
#include <QWidget>

class Preferences;
class QCheckBox;

// Which applications are erased and watched: one check box per application.
// Mozilla and Netscape, and Safari and Shiira, share their files and are
// always ticked and unticked together.
class ApplicationsPane : public QWidget {
    Q_OBJECT

public:
    explicit ApplicationsPane(Preferences& preferences, QWidget* parent = nullptr);

    // Ticks the boxes of the enabled applications.
    void showEnabledBrowsers();

private:
    Preferences& m_preferences;
    QList<QCheckBox*> m_boxes;
};
