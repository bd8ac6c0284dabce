#include "gui/WatchPanel.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

struct ApplicationLabel {
    WatchedApp application;
    const char* objectName;
    const char16_t* title;
};

// The labels in the order the window shows them.
constexpr std::array<ApplicationLabel, kWatchedAppCount> kLabels{{
    {WatchedApp::safari, "mTHSafari", u"Safari"},
    {WatchedApp::ie, "mTHExplorer", u"Explorer"},
    {WatchedApp::mozilla, "mTHMozilla", u"Mozilla"},
    {WatchedApp::netscape, "mTHNetscape", u"Netscape"},
    {WatchedApp::icab, "mTHiCab", u"iCab"},
    {WatchedApp::omniweb, "mTHOmniweb", u"OmniWeb"},
    {WatchedApp::opera, "mTHOpera", u"Opera"},
    {WatchedApp::mail, "mTHMail", u"Mail"},
    {WatchedApp::eudora, "mTHEudora", u"Eudora"},
    {WatchedApp::postbox, "mTHPostbox", u"Postbox"},
    {WatchedApp::camino, "mTHCamino", u"Camino"},
    {WatchedApp::firefox, "mTHFirefox", u"Firefox"},
    {WatchedApp::thunderbird, "mTHThunderbird", u"Thunderbird"},
    {WatchedApp::shiira, "mTHShiira", u"Shiira"},
    {WatchedApp::flock, "mTHFlock", u"Flock"},
    {WatchedApp::chrome, "mTHChrome", u"Chrome"},
    {WatchedApp::seamonkey, "mTHSeaMonkey", u"SeaMonkey"},
}};
constexpr int kColumns = 6;

QString stateName(ControllerView::LabelColor color)
{
    switch (color) {
    case ControllerView::LabelColor::Red:
        return u"running"_s;
    case ControllerView::LabelColor::Green:
        return u"not running"_s;
    case ControllerView::LabelColor::LightGray:
        break;
    }
    return u"not watched"_s;
}

void paint(QLabel* label, ControllerView::LabelColor color)
{
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, WatchPanel::colorFor(color));
    label->setPalette(palette);
}

QLabel* countLabel(const char* objectName, QWidget* parent)
{
    auto* label = new QLabel(u"0"_s, parent);
    label->setObjectName(QLatin1StringView(objectName));
    return label;
}

QString legend()
{
    QStringList parts;
    for (const auto color :
         {WatchPanel::LabelColor::Red, WatchPanel::LabelColor::Green, WatchPanel::LabelColor::LightGray})
        parts.append(u"<span style=\"color:%1\">&#9679;</span>&nbsp;%2"_s.arg(WatchPanel::colorFor(color).name(),
                                                                              stateName(color)));
    return parts.join(u"&nbsp;&nbsp;&nbsp;"_s);
}

} // namespace

WatchPanel::WatchPanel(QWidget* parent)
    : QGroupBox(u"Tarnhold Watch"_s, parent)
{
    auto* layout = new QVBoxLayout(this);

    m_status = new QLabel(this);
    m_status->setObjectName(u"tarnholdStatusTextbox"_s);
    m_status->setWordWrap(true);
    layout->addWidget(m_status);

    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(18);
    for (std::size_t i = 0; i < kLabels.size(); ++i) {
        auto* label = new QLabel(QString::fromUtf16(kLabels[i].title), this);
        label->setObjectName(QLatin1StringView(kLabels[i].objectName));
        m_applications[std::size_t(kLabels[i].application)] = label;
        grid->addWidget(label, int(i) / kColumns, int(i) % kColumns);
        setApplicationColor(kLabels[i].application, LabelColor::LightGray);
    }
    layout->addLayout(grid);

    auto* key = new QLabel(legend(), this);
    key->setTextFormat(Qt::RichText);
    QFont small = key->font();
    small.setPointSizeF(small.pointSizeF() * 0.9);
    key->setFont(small);
    layout->addWidget(key);

    auto* custom = new QHBoxLayout;
    custom->setSpacing(4);
    custom->addWidget(new QLabel(u"Custom processes:"_s, this));
    custom->addSpacing(8);
    m_configured = countLabel("mTHCustomConfigured", this);
    m_stopped = countLabel("mTHCustomStopped", this);
    m_running = countLabel("mTHCustomRunning", this);
    for (const auto& [caption, count] : {std::pair{u"configured"_s, m_configured}, std::pair{u"stopped"_s, m_stopped},
                                         std::pair{u"running"_s, m_running}}) {
        custom->addWidget(count);
        custom->addWidget(new QLabel(caption, this));
        custom->addSpacing(14);
    }
    custom->addStretch();
    layout->addLayout(custom);
    paint(m_running, LabelColor::LightGray);
}

QColor WatchPanel::colorFor(LabelColor color)
{
    switch (color) {
    case LabelColor::Red:
        return QColor(0xc6, 0x28, 0x28);
    case LabelColor::Green:
        return QColor(0x2e, 0x7d, 0x32);
    case LabelColor::LightGray:
        break;
    }
    return QColor(0xa8, 0xa8, 0xa8);
}

void WatchPanel::setStatusText(const QString& text)
{
    m_status->setText(text);
}

void WatchPanel::setApplicationColor(WatchedApp application, LabelColor color)
{
    QLabel* label = m_applications[std::size_t(application)];
    paint(label, color);
    label->setToolTip(u"%1: %2"_s.arg(label->text(), stateName(color)));
}

void WatchPanel::setCustomConfiguredCount(int count)
{
    m_configured->setNum(count);
}

void WatchPanel::setCustomRunningCount(int count, LabelColor color)
{
    m_running->setNum(count);
    paint(m_running, color);
}

void WatchPanel::setCustomStoppedCount(int count)
{
    m_stopped->setNum(count);
}
