// One calculator per user. The first copy of the program listens on a local
// socket named for the user; a second copy that is about to show its
// calculator asks the first to show and raise its own instead, and closes.
// A socket left behind by a copy that crashed is found dead and replaced, so
// it never keeps the calculator from starting.
#pragma once

#include <QObject>
#include <QString>

class QLocalServer;
class QWidget;

class SingleInstance : public QObject {
    Q_OBJECT
public:
    // `name`: the socket's full path; DefaultName() for the program.
    explicit SingleInstance(const QString& name = DefaultName(), QObject* parent = nullptr);
    ~SingleInstance() override;

    // The user's socket: in the user's runtime folder, or in the temporary
    // folder with the user id in its name.
    static QString DefaultName();

    // Takes the name when no live copy holds it. True when this copy now
    // answers for the calculator.
    bool Claim();
    bool IsFirst() const { return server_ != nullptr; }

    // Asks the copy that answers to show its calculator. True when it said it
    // did: this copy's calculator should then close. False when no copy
    // answered in time; this copy then claims the name itself.
    bool HandOver(int timeoutMs = 3000);

    // Restores a minimised window, brings it to the front and activates it.
    static void Raise(QWidget* window);

signals:
    // Another copy handed its calculator over: show and raise ours.
    void ShowRequested();

private:
    bool Listen();
    void Answer();

    QString name_;
    QLocalServer* server_ = nullptr;
};
