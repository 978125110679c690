// ferrolith: the desktop program. It opens the main window, or with
// --calculator the scientific calculator alone.
#include <QApplication>
#include <cstdio>
#include <cstring>

#include "board/ui/MainWindow.h"
#include "calc/ui/CalculatorWindow.h"
#include "calc/core/CalculatorState.h"
#include "shell/core/FileIO.h"
#include "shell/ui/QtText.h"
#include "shell/ui/SingleInstance.h"

namespace {

const char kVersion[] = "1.1";

const char kUsage[] =
    "Usage: ferrolith [OPTION]\n"
    "Weld and bolt group design with a drawing board and a scientific calculator.\n"
    "\n"
    "  --calculator   start the scientific calculator alone, without the drawing board\n"
    "  --help         show this help and exit\n"
    "  --version      show the version and exit\n";

bool HasArg(int argc, char** argv, const char* arg) {
    for (int i = 1; i < argc; ++i)
        if (std::strcmp(argv[i], arg) == 0) return true;
    return false;
}

}  // namespace

int main(int argc, char** argv) {
    if (HasArg(argc, argv, "--help") || HasArg(argc, argv, "-h")) {
        std::fputs(kUsage, stdout);
        return 0;
    }
    if (HasArg(argc, argv, "--version")) {
        std::printf("ferrolith %s\n", kVersion);
        return 0;
    }
    // Settings and files past a file-size limit fail as on a full disk.
    fileio::IgnoreFileSizeSignal();
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Ferrolith"));
    QApplication::setApplicationVersion(QString::fromLatin1(kVersion));
    QApplication::setDesktopFileName(QStringLiteral("ferrolith"));
    // The first copy of the program answers for the user's one calculator.
    SingleInstance calcGuard;
    calcGuard.Claim();
    if (HasArg(argc, argv, "--calculator")) {
        // The calculator's state lives as long as the program, as it does
        // under the main window.
        QApplication::setDesktopFileName(QStringLiteral("ferrolith-calculator"));
        // One calculator per user: a second start hands over to the first,
        // which restores and raises its window, and ends.
        if (!calcGuard.IsFirst() && calcGuard.HandOver()) return 0;
        CalculatorState state;
        CalculatorWindow calc(state);
        QObject::connect(&calcGuard, &SingleInstance::ShowRequested, &calc, [&calc] {
            calc.show();
            SingleInstance::Raise(&calc);
        });
        calc.show();
        return app.exec();
    }
    // One document path, as the shell hands it, byte for byte (Qt has taken
    // its own options out of argv).
    MainWindow w(nullptr, argc > 1 ? QPath(argv[1]) : QString());
    w.SetCalculatorGuard(&calcGuard);
    QObject::connect(&calcGuard, &SingleInstance::ShowRequested, &w, [&w] {
        w.action(QStringLiteral("mnuSciCal"))->trigger();
        if (QWidget* calc = w.findChild<QWidget*>(QStringLiteral("CalcMainFrm"))) SingleInstance::Raise(calc);
    });
    w.show();
    return app.exec();
}
