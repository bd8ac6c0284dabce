#include "gui/AllDesktops.h"

#include <QGuiApplication>
#include <QWidget>

#ifdef VANTLE_HAVE_XCB
#include <xcb/xcb.h>

#include <cstdlib>
#endif

namespace AllDesktops {

void showOnAllDesktops(QWidget* window)
{
#ifdef VANTLE_HAVE_XCB
    // Only the xcb platform has real X windows (the offscreen one may still answer as X11).
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (QGuiApplication::platformName() != QLatin1StringView("xcb") || !x11 || !x11->connection())
        return;
    xcb_connection_t* connection = x11->connection();
    static constexpr char kDesktop[] = "_NET_WM_DESKTOP";
    xcb_intern_atom_reply_t* atom =
        xcb_intern_atom_reply(connection, xcb_intern_atom(connection, 0, sizeof kDesktop - 1, kDesktop), nullptr);
    if (!atom)
        return;
    // Set before the window is first mapped, 0xFFFFFFFF asks for every desktop.
    const quint32 everyDesktop = 0xFFFFFFFF;
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, xcb_window_t(window->winId()), atom->atom, XCB_ATOM_CARDINAL,
                        32, 1, &everyDesktop);
    xcb_flush(connection);
    std::free(atom);
#else
    Q_UNUSED(window);
#endif
}

} // namespace AllDesktops
