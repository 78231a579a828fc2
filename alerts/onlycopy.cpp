// SPDX-License-Identifier: MIT
#include "alerts/onlycopy.h"

#include <QLocalSocket>
#include <QThread>

namespace halvane {

namespace {

constexpr int attempts = 20;   // the first copy may be starting still
constexpr int pause = 50;      // [ms]
constexpr int patience = 1000; // [ms]

} // namespace

OnlyCopy::OnlyCopy(const QString& folder)
    : address_(folder + QStringLiteral("/halvane-alerts.socket")),
      lock_(folder + QStringLiteral("/halvane-alerts.lock")) {
    lock_.setStaleLockTime(0);
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&server_, &QLocalServer::newConnection, this, &OnlyCopy::answer);
}

bool OnlyCopy::is_first() {
    if (!lock_.tryLock() && lock_.error() == QLockFile::LockFailedError)
        return false;
    // What is there belongs to a copy that died.
    QLocalServer::removeServer(address_);
    server_.listen(address_);
    return true;
}

bool OnlyCopy::ask_first_to_show() const {
    for (int attempt = 0; attempt < attempts; ++attempt) {
        QLocalSocket socket;
        socket.connectToServer(address_);
        if (socket.waitForConnected(patience))
            return true;
        QThread::msleep(pause);
    }
    return false;
}

/// To connect is to ask.
void OnlyCopy::answer() {
    while (QLocalSocket* socket = server_.nextPendingConnection()) {
        socket->deleteLater();
        emit asked_to_show();
    }
}

} // namespace halvane
