#include "platform/linux/XServerSaver.h"

#include <xcb/screensaver.h>
#include <xcb/xcb.h>

#include <QGuiApplication>

namespace {

/// Returns Qt's connection to the X server, valid as long as the application object; nil without an X server.
xcb_connection_t* Connection() {
    const auto* application = qobject_cast<QGuiApplication*>(QCoreApplication::instance());
    auto* x11 = application ? application->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    return x11 ? x11->connection() : nullptr;
}

void Suspend(xcb_connection_t* connection, bool on) {
    xcb_screensaver_suspend(connection, on);
    xcb_flush(connection);
}

}  // namespace

XServerSaver::XServerSaver() {
    // Prefetching spares the first inhibition from waiting for the reply.
    if (auto* connection = Connection()) xcb_prefetch_extension_data(connection, &xcb_screensaver_id);
}

XServerSaver::~XServerSaver() { Release(); }

void XServerSaver::Inhibit() {
    auto* connection = Connection();
    if (suspended_ || !connection) return;
    // A request to an extension that the server lacks would break the connection.
    const auto* extension = xcb_get_extension_data(connection, &xcb_screensaver_id);
    if (!extension || !extension->present) return;
    // The protocol requires a version query before other requests. Suspending needs version 1.1.
    xcb_discard_reply(connection, xcb_screensaver_query_version_unchecked(connection, 1, 1).sequence);
    Suspend(connection, true);
    suspended_ = true;
}

void XServerSaver::Release() {
    if (!suspended_) return;
    suspended_ = false;
    if (auto* connection = Connection()) Suspend(connection, false);
}

void XServerSaver::Delay() {
    // The interval is shorter than any usual time-out. A request at every tick would only add traffic.
    constexpr std::chrono::seconds kInterval{10};
    const auto now = std::chrono::steady_clock::now();
    if (lastDelay_ && now - *lastDelay_ < kInterval) return;
    lastDelay_ = now;
    auto* connection = Connection();
    if (!connection) return;
    xcb_force_screen_saver(connection, XCB_SCREEN_SAVER_RESET);
    xcb_flush(connection);
}
