#include "gui/MainWindow.h"

#include "gui/ApplicationMenus.h"
#include "gui/CoreTexts.h"

#include "gui/AlertSheet.h"
#include "gui/AllDesktops.h"
#include "gui/ElidedLabel.h"
#include "gui/WatchPanel.h"
#include "settings/UserDefaults.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

QWidget* header(const QList<QPushButton*>& buttons, QWidget* parent)
{
    auto* widget = new QWidget(parent);
    auto* layout = new QHBoxLayout(widget);
    layout->setContentsMargins(0, 0, 0, 0);

    auto* icon = new QLabel(widget);
    icon->setPixmap(QApplication::windowIcon().pixmap(48, 48));
    layout->addWidget(icon);

    auto* titles = new QVBoxLayout;
    titles->setSpacing(2);
    auto* name = new QLabel(MainWindow::tr("Vantle X"), widget);
    QFont big = name->font();
    big.setBold(true);
    big.setPointSizeF(big.pointSizeF() * 1.3);
    name->setFont(big);
    titles->addWidget(name);
    titles->addWidget(
        new QLabel(MainWindow::tr("Erases the traces that browsers and mail clients leave behind."), widget));
    layout->addLayout(titles);
    layout->addStretch();
    layout->addSpacing(12);
    for (QPushButton* button : buttons)
        layout->addWidget(button, 0, Qt::AlignVCenter);
    return widget;
}

} // namespace

MainWindow::MainWindow(UserDefaults& defaults, std::function<void()> beep, QWidget* parent)
    : QMainWindow(parent)
    , m_defaults(defaults)
    , m_beep(std::move(beep))
{
    setWindowTitle(tr("Vantle X"));

    m_shredButton = new QPushButton(tr("Shred"));
    m_shredButton->setObjectName(u"mShredButton"_s);
    m_shredButton->setDefault(true);
    m_shredButton->setMinimumWidth(m_shredButton->fontMetrics().horizontalAdvance(m_shredButton->text()) * 3);
    m_shredButton->setToolTip(tr("Erase the traces of the enabled applications (%1)")
                                  .arg(ApplicationMenus::shredShortcut().toString(QKeySequence::NativeText)));
    m_shredButton->setAccessibleDescription(m_shredButton->toolTip());
    connect(m_shredButton, &QPushButton::clicked, this, &MainWindow::shredClicked);
    m_previewButton = new QPushButton(tr("&Preview…"));
    m_previewButton->setObjectName(u"mPreviewButton"_s);
    m_previewButton->setToolTip(tr("Show what a run would erase and rewrite, and change nothing"));
    m_previewButton->setAccessibleDescription(m_previewButton->toolTip());
    connect(m_previewButton, &QPushButton::clicked, this, &MainWindow::previewClicked);
    m_stopButton = new QPushButton(tr("S&top"));
    m_stopButton->setObjectName(u"mStopButton"_s);
    m_stopButton->setToolTip(tr("Stop the run after the item it is erasing; the others stay as they are"));
    m_stopButton->setAccessibleDescription(m_stopButton->toolTip());
    m_stopButton->setEnabled(false);
    connect(m_stopButton, &QPushButton::clicked, this, [this] {
        m_stopButton->setEnabled(false);
        m_stopButton->setText(tr("Stopping…"));
        emit stopClicked();
    });

    m_progress = new QProgressBar;
    m_progress->setObjectName(u"mShreddingProgressIndicator"_s);
    m_progress->setTextVisible(false);
    m_progress->setAccessibleName(tr("Shredding progress"));
    m_progress->setRange(0, 100);
    m_progress->setValue(0);

    m_item = new ElidedLabel;
    m_item->setObjectName(u"mItemTextField"_s);
    m_item->setAccessibleName(tr("Item being shredded"));
    m_watch = new WatchPanel;

    auto* central = new QWidget(this);
    auto* layout = new QVBoxLayout(central);
    layout->setContentsMargins(16, 14, 16, 16);
    layout->addWidget(header({m_previewButton, m_stopButton, m_shredButton}, central));
    layout->addSpacing(10);
    layout->addWidget(m_progress);
    layout->addWidget(m_item);
    layout->addSpacing(8);
    layout->addWidget(m_watch);
    setCentralWidget(central);

    m_shredButton->setFocus();
    resize(sizeHint());
    restoreGeometry(m_defaults.dataForKey(frameKey()));

    // Moves and resizes come in bursts; the frame is stored once they settle.
    m_frameSave.setSingleShot(true);
    m_frameSave.setInterval(500);
    connect(&m_frameSave, &QTimer::timeout, this, &MainWindow::saveFrame);

    AllDesktops::showOnAllDesktops(this);
}

MainWindow::~MainWindow() = default;

QString MainWindow::frameKey()
{
    return u"NSWindow Frame "_s + kFrameAutosaveName;
}

void MainWindow::saveFrame()
{
    m_frameSave.stop();
    m_defaults.setObject(saveGeometry(), frameKey());
    m_defaults.synchronize();
}

void MainWindow::moveEvent(QMoveEvent* event)
{
    QMainWindow::moveEvent(event);
    if (isVisible())
        m_frameSave.start();
}

void MainWindow::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    if (isVisible())
        m_frameSave.start();
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    // What closing means (hide or quit) is the application's decision.
    event->ignore();
    emit closeRequested();
}

void MainWindow::showProgress()
{
    if (m_indeterminate && m_animating) {
        m_progress->setRange(0, 0);
        return;
    }
    m_progress->setRange(0, 100);
    m_progress->setValue(m_indeterminate ? 0 : qRound(qBound(0.0, m_value, 100.0)));
}

void MainWindow::setProgressValue(double percent)
{
    m_value = percent;
    showProgress();
}

void MainWindow::setProgressIndeterminate(bool indeterminate)
{
    m_indeterminate = indeterminate;
    if (indeterminate) {
        m_progress->setTextVisible(false);
        m_progressText.reset();
    }
    showProgress();
}

void MainWindow::setProgressAnimating(bool animating)
{
    m_animating = animating;
    showProgress();
}

void MainWindow::setItemText(const QString& text)
{
    m_item->setFullText(CoreTexts::translated(text));
}

void MainWindow::setWatchStatusText(const QString& text)
{
    m_watch->setStatusText(CoreTexts::translated(text));
}

void MainWindow::setApplicationLabelColor(WatchedApp application, LabelColor color)
{
    m_watch->setApplicationColor(application, color);
}

void MainWindow::setCustomRunningCount(int count, LabelColor color)
{
    m_watch->setCustomRunningCount(count, color);
}

void MainWindow::setCustomStoppedCount(int count)
{
    m_watch->setCustomStoppedCount(count);
}

void MainWindow::setShredButtonEnabled(bool enabled)
{
    m_shredButton->setEnabled(enabled);
    m_previewButton->setEnabled(enabled);
    m_stopButton->setEnabled(!enabled);
    m_stopButton->setText(tr("S&top"));
    if (enabled)
        m_shredButton->setFocus();
}

void MainWindow::showWindow()
{
    if (isMinimized())
        showNormal();
    else
        show();
    if (const QScreen* where = screen()) {
        QRect frame = frameGeometry();
        frame.moveCenter(where->availableGeometry().center());
        move(frame.topLeft());
    }
    raise();
    activateWindow();
}

void MainWindow::hideApplication()
{
    emit hideRequested();
}

void MainWindow::beginConfirmationSheet(const QString& title, const QString& message, std::function<void(int)> done)
{
    // Cancel is the default button: Return cancels, only a deliberate OK erases.
    AlertSheet::begin(this,
                      {CoreTexts::translated(title),
                       CoreTexts::translated(message),
                       {tr("Cancel"), QMessageBox::RejectRole},
                       {tr("OK"), QMessageBox::AcceptRole},
                       {}},
                      std::move(done));
}

int MainWindow::runQuitBrowsersAlert(const QString& title, const QString& message)
{
    return AlertSheet::run(this, {CoreTexts::translated(title),
                                  CoreTexts::translated(message),
                                  {tr("Cancel"), QMessageBox::RejectRole},
                                  {tr("OK"), QMessageBox::AcceptRole},
                                  {}});
}

void MainWindow::replyToApplicationShouldTerminate(bool terminate)
{
    emit terminationReplied(terminate);
}

void MainWindow::beep()
{
    m_beep();
}

void MainWindow::showBytes(quint64 done, quint64 total)
{
    // Only %p, %v and %m are placeholders: the percentage in the text stays as it is.
    m_progress->setFormat(m_progressText.update(done, total));
    m_progress->setTextVisible(true);
}

void MainWindow::showResult(const RunResult& result)
{
    m_progress->setTextVisible(false);
    const QString summary = RunReport::resultSummary(result);
    m_item->setFullText(summary);
    m_item->setToolTip(RunReport::resultLines(result).join(u'\n'));
    emit resultShown(summary);
}
