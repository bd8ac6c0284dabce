#pragma once

#include <QList>
#include <QWidget>

class ProfilesManager;
class QLabel;
class QPushButton;

// Which profiles of the six applications that keep several are erased: one
// pull-down menu per application with a check mark per profile.
class ProfilesPane : public QWidget {
    Q_OBJECT

public:
    explicit ProfilesPane(ProfilesManager& profiles, QWidget* parent = nullptr);

private:
    void showMenus();

    ProfilesManager& m_profiles;
    QList<QPushButton*> m_popUps;
    QList<QLabel*> m_summaries;
};
