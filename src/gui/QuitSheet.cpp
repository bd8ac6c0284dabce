#include "gui/QuitSheet.h"

#include <QCoreApplication>

namespace QuitSheet {

AlertSheet::Alert alert([[maybe_unused]] bool trayIcon)
{
#ifdef Q_OS_MACOS
    const QString message = QCoreApplication::translate(
        "QuitSheet",
        "Quitting Vantle will interrupt Tarnhold watch and Vantle will not run automatically when you quit "
        "from your web browser or email application. Would you prefer to hide Vantle in the Dock?");
#else
    const QString message =
        trayIcon
            ? QCoreApplication::translate("QuitSheet",
                                          "Quitting Vantle will interrupt Tarnhold watch and Vantle will not run "
                                          "automatically when you quit from your web browser or email application. "
                                          "Would you prefer to hide Vantle in the system tray?")
            : QCoreApplication::translate("QuitSheet",
                                          "Quitting Vantle will interrupt Tarnhold watch and Vantle will not run "
                                          "automatically when you quit from your web browser or email application. "
                                          "Would you prefer to minimise Vantle?");
#endif
    return {
        QCoreApplication::translate("QuitSheet", "Quit"),
        message,
        {QCoreApplication::translate("QuitSheet", "&Hide"), QMessageBox::AcceptRole},
        {QCoreApplication::translate("QuitSheet", "&Quit"), QMessageBox::DestructiveRole},
        {QCoreApplication::translate("QuitSheet", "Cancel"), QMessageBox::RejectRole},
    };
}

} // namespace QuitSheet
