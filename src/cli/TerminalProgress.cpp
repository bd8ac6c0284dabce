#include "cli/TerminalProgress.h"

#include "cli/CliOutput.h"

#include <sys/ioctl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int kBarWidth = 20;
// Redraws of the bytes alone come at most this often; a new entry shows at once.
constexpr qint64 kRedrawMilliseconds = 100;

} // namespace

TerminalProgress::TerminalProgress(FILE* terminal, bool drawBar)
    : m_terminal(terminal)
    , m_drawBar(drawBar)
{
}

TerminalProgress::~TerminalProgress()
{
    clear();
}

int TerminalProgress::width() const
{
    winsize size{};
    if (::ioctl(::fileno(m_terminal), TIOCGWINSZ, &size) == 0 && size.ws_col > 20)
        return size.ws_col;
    return 80;
}

void TerminalProgress::setFinding(bool finding)
{
    if (finding == m_finding)
        return;
    m_finding = finding;
    if (finding)
        redraw(true);
    else
        clear();
}

void TerminalProgress::showFileName(const QString& name)
{
    if (name == m_name)
        return;
    m_name = name;
    if (name.isEmpty()) {
        // The end of a run's list.
        m_total = 0;
        m_text.reset();
        clear();
    } else {
        redraw(true);
    }
}

void TerminalProgress::showBytes(quint64 done, quint64 total)
{
    m_done = done;
    m_total = total;
    redraw(false);
}

void TerminalProgress::print(const QString& text)
{
    const bool wasDrawn = m_drawn;
    clear();
    std::fputs((text + u'\n').toUtf8().constData(), m_terminal);
    std::fflush(m_terminal);
    if (wasDrawn)
        redraw(true);
}

void TerminalProgress::clear()
{
    if (!m_drawn)
        return;
    std::fputs("\r\x1b[K", m_terminal);
    std::fflush(m_terminal);
    m_drawn = false;
}

void TerminalProgress::redraw(bool force)
{
    if (!m_drawBar)
        return;
    if (!force && m_drawn && m_lastDraw.isValid() && m_lastDraw.elapsed() < kRedrawMilliseconds)
        return;
    QString line;
    if (m_finding) {
        line = Cli::tr("Finding items that need shredding…");
    } else if (!m_name.isEmpty() && m_total != 0) {
        const int percent = int(qMin<quint64>(100, 100 * m_done / m_total));
        const int filled = percent * kBarWidth / 100;
        line = u"[%1%2] %3  %4"_s.arg(QString(filled, u'#'), QString(kBarWidth - filled, u' '),
                                      m_text.update(m_done, m_total), RunReport::tilde(m_name));
    } else if (!m_name.isEmpty()) {
        line = RunReport::tilde(m_name);
    } else {
        clear();
        return;
    }
    line.replace(u'\n', u'?');
    // A line that wraps could no longer be redrawn in place.
    const int room = width() - 1;
    if (line.size() > room)
        line = line.left(room - 1) + u'…';
    std::fputs((u"\r"_s + line + u"\x1b[K"_s).toUtf8().constData(), m_terminal);
    std::fflush(m_terminal);
    m_drawn = true;
    m_lastDraw.start();
}
