#include "cli/TerminalProgress.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kBarWidth = 30;
constexpr int kNameWidth = 40;

} // namespace

TerminalProgress::TerminalProgress(FILE* terminal, bool drawBar)
    : m_terminal(terminal)
    , m_drawBar(drawBar)
{
}

TerminalProgress::~TerminalProgress()
{
    if (m_drawn)
        std::fputs("\n", m_terminal);
}

void TerminalProgress::showProgress(double percent)
{
    const int whole = int(percent);
    if (whole == m_percent)
        return;
    m_percent = whole;
    redraw();
}

void TerminalProgress::showFileName(const QString& name)
{
    if (name == m_name)
        return;
    m_name = name;
    redraw();
}

void TerminalProgress::showWarning(const QString& text)
{
    std::fputs(((m_drawn ? u"\r\x1b[K"_s : QString()) + text + u'\n').toUtf8().constData(), m_terminal);
    std::fflush(m_terminal);
    if (m_drawn)
        redraw();
}

void TerminalProgress::redraw()
{
    if (!m_drawBar)
        return;
    const int percent = qBound(0, m_percent, 100);
    const int filled = percent * kBarWidth / 100;
    QString name = m_name;
    name.replace(u'\n', u'?');
    if (name.size() > kNameWidth)
        name = name.left(kNameWidth - 1) + u'\u2026';
    const QString line = u"\r[%1%2] %3% %4\x1b[K"_s.arg(QString(filled, u'#'), QString(kBarWidth - filled, u' '))
                             .arg(percent, 3)
                             .arg(name);
    std::fputs(line.toUtf8().constData(), m_terminal);
    std::fflush(m_terminal);
    m_drawn = true;
}
