#include "cli/TerminalView.h"

#include "cli/CliOutput.h"

#include "watch/ProcessScan.h"

#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <iostream>
#include <string>

using namespace Qt::StringLiterals;

namespace {

void printErr(const QString& text)
{
    std::fputs(text.toUtf8().constData(), stderr);
    std::fflush(stderr);
}

} // namespace

TerminalView::TerminalView(Options options)
    : m_options(options)
{
    std::fill(std::begin(m_labels), std::end(m_labels), LabelColor::LightGray);
    if (m_options.showProgress && ::isatty(STDERR_FILENO))
        m_progress = std::make_unique<TerminalProgress>(stderr);
}

void TerminalView::setProgressIndeterminate(bool indeterminate)
{
    if (m_progress)
        m_progress->setFinding(indeterminate);
}

void TerminalView::showBytes(quint64 done, quint64 total)
{
    if (m_progress)
        m_progress->showBytes(done, total);
}

void TerminalView::setItemText(const QString& text)
{
    if (m_progress)
        m_progress->showFileName(text);
}

void TerminalView::say(const QString& text)
{
    if (m_progress)
        m_progress->print(text);
    else
        printErr(text + u'\n');
}

void TerminalView::clearProgress()
{
    if (m_progress)
        m_progress->clear();
}

void TerminalView::setWatchStatusText(const QString& text)
{
    if (text == m_status)
        return;
    m_status = text;
    if (m_options.printStatus)
        clearProgress(), std::fputs((text + u'\n').toUtf8().constData(), stdout), std::fflush(stdout);
}

void TerminalView::setApplicationLabelColor(WatchedApp application, LabelColor color)
{
    LabelColor& label = m_labels[std::size_t(application)];
    if (label == color)
        return;
    label = color;
    if (!m_options.printApplications)
        return;
    clearProgress();
    for (const auto& watched : ProcessScan::watchedPatterns()) {
        if (watched.flag != application)
            continue;
        const QString state = color == LabelColor::Red     ? Cli::tr("running")
                              : color == LabelColor::Green ? Cli::tr("not running")
                                                           : Cli::tr("not watched");
        std::fputs(u"  %1: %2\n"_s.arg(QString::fromUtf16(watched.enabledName), state).toUtf8().constData(), stdout);
        std::fflush(stdout);
    }
}

int TerminalView::ask(const QString& title, const QString& message, const QString& question)
{
    clearProgress();
    printErr(u"%1\n%2\n"_s.arg(title, message));
    if (!::isatty(STDIN_FILENO)) {
        printErr(Cli::tr("No terminal to answer on: Cancel.\n"));
        return 1;
    }
    printErr(question + u" [y/N] "_s);
    // Ctrl-C while a question waits quits at once.
    const auto previous = std::signal(SIGINT, SIG_DFL);
    std::string answer;
    const bool answered = static_cast<bool>(std::getline(std::cin, answer));
    std::signal(SIGINT, previous);
    if (!answered)
        return 1;
    const QString word = QString::fromStdString(answer).trimmed().toLower();
    return word == u"y"_s || word == u"yes"_s ? 0 : 1;
}

void TerminalView::beginConfirmationSheet(const QString& title, const QString& message, std::function<void(int)> done)
{
    const int answer = m_options.assumeYes ? 0 : ask(title, message, Cli::tr("Shred?"));
    m_cancelled = m_cancelled || answer == 1;
    done(answer);
}

int TerminalView::runQuitBrowsersAlert(const QString& title, const QString& message)
{
    const int answer = m_options.assumeYes ? 0 : ask(title, message, Cli::tr("Continue?"));
    m_cancelled = m_cancelled || answer == 1;
    return answer;
}

void TerminalView::replyToApplicationShouldTerminate(bool terminate)
{
    if (terminate && m_terminate)
        m_terminate();
}

void TerminalView::beep()
{
    printErr(u"\a"_s);
}
