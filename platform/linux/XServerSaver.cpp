#include "platform/linux/XServerSaver.h"

#include <xcb/screensaver.h>
#include <xcb/xcb.h>

#include <QGuiApplication>

namespace {

/// Qt's connection to the X server, which lives as long as the application object; nil on any other platform.
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
    // By the first inhibition the answer has come, and needn't be waited for.
    if (auto* connection = Connection()) xcb_prefetch_extension_data(connection, &xcb_screensaver_id);
}

XServerSaver::~XServerSaver() { Release(); }

void XServerSaver::Inhibit() {
    auto* connection = Connection();
    if (suspended_ || !connection) return;
    // A request to an extension that the server doesn't have would end the connection.
    const auto* extension = xcb_get_extension_data(connection, &xcb_screensaver_id);
    if (!extension || !extension->present) return;
    // The protocol wants the version to be asked before anything else; suspending came with 1.1.
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
    // Shorter than any time-out that people set; at the pace of a clock's ticks it would only be traffic.
    constexpr std::chrono::seconds kInterval{10};
    const auto now = std::chrono::steady_clock::now();
    if (lastDelay_ && now - *lastDelay_ < kInterval) return;
    lastDelay_ = now;
    auto* connection = Connection();
    if (!connection) return;
    xcb_force_screen_saver(connection, XCB_SCREEN_SAVER_RESET);
    xcb_flush(connection);
}
