#include "shell/ui/SingleInstance.h"

#include <unistd.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QLocalServer>
#include <QLocalSocket>
#include <QLockFile>
#include <QWidget>

namespace {

constexpr char kRequest[] = "show\n";
constexpr char kReply[] = "shown\n";
// How long a live copy may take to accept a connection.
constexpr int kConnectMs = 500;

// Whether a live copy answers on `name`.
bool Answers(const QString& name) {
    QLocalSocket probe;
    probe.connectToServer(name);
    const bool live = probe.waitForConnected(kConnectMs);
    probe.abort();
    return live;
}

}  // namespace

SingleInstance::SingleInstance(const QString& name, QObject* parent) : QObject(parent), name_(name) {}

SingleInstance::~SingleInstance() {
    if (server_ != nullptr) server_->close();  // removes the socket file
}

QString SingleInstance::DefaultName() {
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (!runtime.isEmpty() && QFileInfo(runtime).isDir() && QFileInfo(runtime).isWritable())
        return runtime + "/ferrolith-calculator";
    return QDir::tempPath() + "/ferrolith-calculator-" + QString::number(getuid());
}

bool SingleInstance::Claim() {
    if (server_ != nullptr) return true;
    // Two copies starting together settle it one after the other.
    QLockFile lock(name_ + ".lock");
    lock.setStaleLockTime(5000);
    if (!lock.tryLock(2 * kConnectMs + 1000)) return false;
    if (Answers(name_)) return false;
    // Nobody answers: whatever lies at the name is left from a copy that died.
    QLocalServer::removeServer(name_);
    return Listen();
}

bool SingleInstance::Listen() {
    auto* server = new QLocalServer(this);
    server->setSocketOptions(QLocalServer::UserAccessOption);
    if (!server->listen(name_)) {
        delete server;
        return false;
    }
    server_ = server;
    connect(server_, &QLocalServer::newConnection, this, &SingleInstance::Answer);
    return true;
}

void SingleInstance::Answer() {
    while (QLocalSocket* peer = server_->nextPendingConnection()) {
        connect(peer, &QLocalSocket::disconnected, peer, &QObject::deleteLater);
        connect(peer, &QLocalSocket::readyRead, this, [this, peer] {
            if (!peer->canReadLine()) return;
            const QByteArray line = peer->readLine();
            if (line != kRequest) {
                peer->abort();
                return;
            }
            emit ShowRequested();
            peer->write(kReply);
            peer->flush();
            peer->disconnectFromServer();
        });
    }
}

bool SingleInstance::HandOver(int timeoutMs) {
    if (server_ != nullptr) return false;  // this copy is the one that answers
    QElapsedTimer clock;
    clock.start();
    QLocalSocket socket;
    socket.connectToServer(name_);
    if (socket.waitForConnected(std::min(timeoutMs, kConnectMs))) {
        socket.write(kRequest);
        socket.waitForBytesWritten(timeoutMs);
        while (!socket.canReadLine() && clock.elapsed() < timeoutMs && socket.state() == QLocalSocket::ConnectedState)
            socket.waitForReadyRead(int(std::max<qint64>(1, timeoutMs - clock.elapsed())));
        if (socket.canReadLine() && socket.readLine() == kReply) return true;
    }
    socket.abort();
    Claim();
    return false;
}

void SingleInstance::Raise(QWidget* window) {
    if (window == nullptr) return;
    window->setWindowState((window->windowState() & ~Qt::WindowMinimized) | Qt::WindowActive);
    window->show();
    window->raise();
    window->activateWindow();
}
