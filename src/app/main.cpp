// ferrolith: the desktop program. It opens the main window.
#include <QApplication>

#include "board/MainFrm.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Ferrolith"));
    QApplication::setApplicationVersion(QStringLiteral("1.1"));
    QApplication::setDesktopFileName(QStringLiteral("ferrolith"));
    // One document path, as the shell hands it.
    const QStringList args = QApplication::arguments();
    MainFrm w(nullptr, args.size() > 1 ? args.at(1) : QString());
    w.show();
    return app.exec();
}
