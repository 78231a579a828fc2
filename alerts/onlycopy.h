// SPDX-License-Identifier: MIT
#pragma once

#include <QLocalServer>
#include <QLockFile>
#include <QObject>
#include <QString>

namespace halvane {

/// One alert program for the user on this machine, whatever folder it is started from: the first copy holds a
/// lock, which a dead process does not, and listens for the copies after it.
class OnlyCopy : public QObject {
    Q_OBJECT
public:
    /// In     folder  the user's own, of this session
    explicit OnlyCopy(const QString& folder);

    /// Whether this copy is the first one; it is from then on. A lock that cannot be made bars nobody.
    bool is_first();

    /// Asks the first copy to show its window. False when none answers, as one of an older package does not.
    bool ask_first_to_show() const;

signals:
    void asked_to_show();

private:
    void answer();

    QString address_;
    QLockFile lock_;
    QLocalServer server_;
};

} // namespace halvane
