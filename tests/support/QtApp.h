#pragma once
// The one application object of the Qt test binary, made on first use and kept to the end.
// Every Qt test calls QtApp() before it touches fonts, images with text, or windows.
// When the binary links the widgets (the window tests do), the object is a QApplication, which
// serves the other tests as well; otherwise a QGuiApplication. Without a platform chosen in the
// environment the tests run offscreen.

#include <QGuiApplication>
#if __has_include(<QApplication>)
#include <QApplication>
#define VERITRACE_TEST_WIDGETS 1
#endif

namespace vt::test {

inline QGuiApplication& QtApp() {
    if (auto* existing = qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        return *existing;
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char name[] = "veritrace_qt_tests";
    static char* argv[] = {name, nullptr};
    // Held by a static pointer and never deleted: the tests may run in any order, and tearing
    // the application down during static destruction would race Qt's own globals.
#ifdef VERITRACE_TEST_WIDGETS
    static QGuiApplication* app = new QApplication(argc, argv);
#else
    static QGuiApplication* app = new QGuiApplication(argc, argv);
#endif
    return *app;
}

} // namespace vt::test
