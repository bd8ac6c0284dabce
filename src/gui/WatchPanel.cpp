#include "gui/WatchPanel.h"

#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

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
    {WatchedApp::brave, "mTHBrave", u"Brave"},
    {WatchedApp::vivaldi, "mTHVivaldi", u"Vivaldi"},
    {WatchedApp::edge, "mTHEdge", u"Edge"},
    {WatchedApp::currentOpera, "mTHCurrentOpera", u"Opera (current)"},
}};
constexpr int kColumns = 6;

QString stateName(ControllerView::LabelColor color)
{
    switch (color) {
    case ControllerView::LabelColor::Red:
        return WatchPanel::tr("running");
    case ControllerView::LabelColor::Green:
        return WatchPanel::tr("not running");
    case ControllerView::LabelColor::LightGray:
        break;
    }
    return WatchPanel::tr("not watched");
}

void paint(QLabel* label, ControllerView::LabelColor color)
{
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, WatchPanel::colorFor(color, label->parentWidget()->palette()));
    label->setPalette(palette);
}

QLabel* countLabel(const char* objectName, const QString& accessibleName, QWidget* parent)
{
    auto* label = new QLabel(u"0"_s, parent);
    label->setObjectName(QLatin1StringView(objectName));
    label->setAccessibleName(accessibleName);
    return label;
}

// Relative luminance as WCAG 2 defines it.
double luminance(const QColor& color)
{
    const auto channel = [](double value) {
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    const QColor rgb = color.toRgb();
    return 0.2126 * channel(rgb.redF()) + 0.7152 * channel(rgb.greenF()) + 0.0722 * channel(rgb.blueF());
}

} // namespace

WatchPanel::WatchPanel(QWidget* parent)
    : QGroupBox(tr("Tarnhold Watch"), parent)
{
    auto* layout = new QVBoxLayout(this);

    m_status = new QLabel(this);
    m_status->setObjectName(u"tarnholdStatusTextbox"_s);
    m_status->setWordWrap(true);
    layout->addWidget(m_status);

    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(18);
    for (std::size_t i = 0; i < kLabels.size(); ++i) {
        auto* label = new QLabel(this);
        label->setObjectName(QLatin1StringView(kLabels[i].objectName));
        m_applications[std::size_t(kLabels[i].application)] = label;
        grid->addWidget(label, int(i) / kColumns, int(i) % kColumns);
        setApplicationColor(kLabels[i].application, LabelColor::LightGray);
    }
    layout->addLayout(grid);

    m_legend = new QLabel(this);
    m_legend->setTextFormat(Qt::RichText);
    QFont small = m_legend->font();
    small.setPointSizeF(small.pointSizeF() * 0.9);
    m_legend->setFont(small);
    layout->addWidget(m_legend);
    showLegend();

    auto* custom = new QHBoxLayout;
    custom->setSpacing(4);
    custom->addWidget(new QLabel(tr("Custom processes:"), this));
    custom->addSpacing(8);
    m_configured = countLabel("mTHCustomConfigured", tr("Custom processes configured"), this);
    m_stopped = countLabel("mTHCustomStopped", tr("Custom processes stopped"), this);
    m_running = countLabel("mTHCustomRunning", tr("Custom processes running"), this);
    for (const auto& [caption, count] : {std::pair{tr("configured"), m_configured}, std::pair{tr("stopped"), m_stopped},
                                         std::pair{tr("running"), m_running}}) {
        custom->addWidget(count);
        custom->addWidget(new QLabel(caption, this));
        custom->addSpacing(14);
    }
    custom->addStretch();
    layout->addLayout(custom);
    m_runningColor = LabelColor::LightGray;
    paint(m_running, m_runningColor);
}

QColor WatchPanel::colorFor(LabelColor color, const QPalette& palette)
{
    QColor hue(0x80, 0x80, 0x80);
    if (color == LabelColor::Red)
        hue = QColor(0xc6, 0x28, 0x28);
    else if (color == LabelColor::Green)
        hue = QColor(0x2e, 0x7d, 0x32);
    // Darker on a light window, lighter on a dark one, until the text stands out.
    const QColor window = palette.color(QPalette::Window);
    const bool darkWindow = luminance(window) < 0.18;
    float h, s, l, a;
    hue.getHslF(&h, &s, &l, &a);
    QColor shade = hue;
    while (contrast(shade, window) < 4.6 && l > 0.0f && l < 1.0f) {
        l = std::clamp(l + (darkWindow ? 0.02f : -0.02f), 0.0f, 1.0f);
        shade = QColor::fromHslF(h, s, l);
    }
    return shade;
}

double WatchPanel::contrast(const QColor& a, const QColor& b)
{
    const auto [darker, lighter] = std::minmax(luminance(a), luminance(b));
    return (lighter + 0.05) / (darker + 0.05);
}

QString WatchPanel::symbolFor(LabelColor color)
{
    switch (color) {
    case LabelColor::Red:
        return u"\u25CF"_s; // ● running
    case LabelColor::Green:
        return u"\u25CB"_s; // ○ not running
    case LabelColor::LightGray:
        break;
    }
    return u"\u2013"_s; // – not watched
}

void WatchPanel::showLegend()
{
    QStringList parts;
    for (const auto color : {LabelColor::Red, LabelColor::Green, LabelColor::LightGray})
        parts.append(u"<span style=\"color:%1\">%2&nbsp;%3</span>"_s.arg(colorFor(color, palette()).name(),
                                                                         symbolFor(color), stateName(color)));
    m_legend->setText(parts.join(u"&nbsp;&nbsp;&nbsp;"_s));
}

void WatchPanel::changeEvent(QEvent* event)
{
    QGroupBox::changeEvent(event);
    if (event->type() != QEvent::PaletteChange)
        return;
    for (std::size_t i = 0; i < kLabels.size(); ++i)
        setApplicationColor(kLabels[i].application, m_colors[std::size_t(kLabels[i].application)]);
    paint(m_running, m_runningColor);
    showLegend();
}

void WatchPanel::setStatusText(const QString& text)
{
    m_status->setText(text);
}

void WatchPanel::setApplicationColor(WatchedApp application, LabelColor color)
{
    const auto entry = std::find_if(kLabels.cbegin(), kLabels.cend(), [application](const ApplicationLabel& label) {
        return label.application == application;
    });
    const QString name = QString::fromUtf16(entry->title);
    QLabel* label = m_applications[std::size_t(application)];
    m_colors[std::size_t(application)] = color;
    label->setText(symbolFor(color) + u' ' + name);
    paint(label, color);
    label->setToolTip(tr("%1: %2").arg(name, stateName(color)));
    label->setAccessibleName(label->toolTip());
}

void WatchPanel::setCustomConfiguredCount(int count)
{
    m_configured->setNum(count);
}

void WatchPanel::setCustomRunningCount(int count, LabelColor color)
{
    m_running->setNum(count);
    m_runningColor = color;
    paint(m_running, color);
}

void WatchPanel::setCustomStoppedCount(int count)
{
    m_stopped->setNum(count);
}
