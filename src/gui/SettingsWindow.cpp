#include "gui/SettingsWindow.h"

#include "gui/ApplicationsPane.h"
#include "gui/CustomProcessesPane.h"
#include "gui/ErasingPane.h"
#include "gui/GeneralPane.h"
#include "gui/Html5Pane.h"
#include "gui/PluginsPane.h"
#include "gui/PreferenceControls.h"
#include "gui/ProfilesPane.h"
#include "settings/Preferences.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QScreen>
#include <QTabWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

SettingsWindow::SettingsWindow(Models models, std::function<void()> beep, QWidget* parent)
    : QDialog(parent)
    , m_preferences(models.preferences)
    , m_controls(new PreferenceControls(models.preferences, this))
{
    setWindowTitle(tr("Vantle X Settings"));

    m_panes = new QTabWidget(this);
    // Every pane's tab in sight: the tab bar sets the window's least width.
    m_panes->setUsesScrollButtons(false);
    m_panes->addTab(new ErasingPane(*m_controls), tr("&Erasing"));
    m_panes->addTab(new GeneralPane(*m_controls), tr("&General"));
    m_panes->addTab(new ApplicationsPane(models.preferences), tr("&Applications"));
    m_panes->addTab(new Html5Pane(models.html5), tr("HT&ML5"));
    m_panes->addTab(new ProfilesPane(models.profiles), tr("&Profiles"));
    m_panes->addTab(new PluginsPane(models.plugins, beep), tr("Pl&ug-ins"));
    m_panes->addTab(new CustomProcessesPane(models.custom, beep), tr("&Custom Processes"));

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    QPushButton* factory = buttons->addButton(tr("&Factory Settings"), QDialogButtonBox::ResetRole);
    factory->setObjectName(u"revertToDefault"_s);
    factory->setToolTip(tr("Puts the erasing and general settings back to their factory values. Applications, "
                           "profiles, plug-ins and custom processes stay as they are."));
    factory->setAutoDefault(false);
    buttons->button(QDialogButtonBox::Close)->setAutoDefault(false);
    connect(factory, &QPushButton::clicked, this, [this] { m_preferences.revertToDefault(); });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_panes);
    layout->addWidget(buttons);

    m_controls->reallyupdateUI();
    resize(sizeHint().expandedTo(QSize(660, 620)));
}

SettingsWindow::~SettingsWindow() = default;

void SettingsWindow::showPanel()
{
    m_controls->reallyupdateUI();
    const bool wasVisible = isVisible();
    show();
    if (!wasVisible) {
        if (const QScreen* where = screen()) {
            QRect frame = frameGeometry();
            frame.moveCenter(where->availableGeometry().center());
            move(frame.topLeft());
        }
    }
    raise();
    activateWindow();
}

void SettingsWindow::hideEvent(QHideEvent* event)
{
    // A table cell still being edited is committed, not lost.
    if (QWidget* editing = focusWidget())
        editing->clearFocus();
    QDialog::hideEvent(event);
}
