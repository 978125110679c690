// A stand-in copy of the program for the single-instance tests.
//   probe NAME first   claims NAME, shows a minimised window, reports each
//                      hand-over ("raised minimized=0") and runs until killed
//   probe NAME second  hands over to the copy on NAME; exit 0 when it did,
//                      1 when it claimed the name itself, 2 otherwise
#include <QApplication>
#include <QTimer>
#include <QWidget>
#include <cstdio>

#include "shell/ui/SingleInstance.h"

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    if (argc < 3) return 64;
    SingleInstance instance(QString::fromLocal8Bit(argv[1]));
    if (qstrcmp(argv[2], "second") == 0) {
        if (instance.HandOver()) return 0;
        return instance.IsFirst() ? 1 : 2;
    }
    QWidget window;
    window.resize(200, 100);
    window.showMinimized();
    if (!instance.Claim()) return 3;
    QObject::connect(&instance, &SingleInstance::ShowRequested, [&] {
        SingleInstance::Raise(&window);
        std::printf("raised minimized=%d\n", window.isMinimized() ? 1 : 0);
        std::fflush(stdout);
    });
    std::printf("listening\n");
    std::fflush(stdout);
    QTimer::singleShot(60000, &app, &QApplication::quit);  // never outlives a test run
    return app.exec();
}
