#include "app/alerts/alertprogram.h"
#include "app/application.h"
#include "app/frmstyle.h"
#include "app/stored/programfolder.h"
#include "ephemeris/series.h"

#include <QLockFile>
#include <QStandardPaths>
#include <cstdio>
#include <cstdlib>

namespace halvane {
namespace {

/// One lock for the user on this machine, whatever folder the program is started from.
QString lock_path() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    const QString base = folder.isEmpty() ? QString::fromStdString(program_folder()) : folder;
    return base + QStringLiteral("/halvane-alerts.lock");
}

/// A copy that does not answer for its lock any more does not hold it.
bool is_only_copy(QLockFile& lock) {
    lock.setStaleLockTime(0);
    return lock.tryLock() || lock.error() != QLockFile::LockFailedError;
}

int run(int count, char** words) {
    if (!has_display()) {
        std::fputs("halvane: there is no display to show alerts on\n", stderr);
        return EXIT_FAILURE;
    }
    Application application(count, words);
    QApplication::setApplicationName(QStringLiteral("Halvane Alerts"));
    QApplication::setQuitOnLastWindowClosed(false);
    QLockFile lock(lock_path());
    if (!is_only_copy(lock))
        return EXIT_SUCCESS;
    use_halvane_look();
    try {
        load_term();
        load_mterm();
        SoundPlayer sounds;
        AlertProgram program(sounds);
        program.start();
        return QApplication::exec();
    } catch (const std::exception& failure) {
        end_with_failure(failure);
    }
}

} // namespace
} // namespace halvane

int main(int count, char** words) {
    return halvane::run(count, words);
}
