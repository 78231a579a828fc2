// SPDX-License-Identifier: MIT
#include "panel/messages.h"
#include "panel/textview.h"
#include "panel/viewer.h"
#include "stored/programfolder.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <cstdio>
#include <fstream>
#include <string>

namespace {

/// The most memory this process has had so far                                                       [kB]
long most_memory() {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;)
        if (word == "VmHWM:") {
            long size = 0;
            status >> size;
            return size;
        }
    return -1;
}

void tell(const char* done) {
    std::printf("%s %ld\n", done, most_memory());
}

/// Looks for `words`; whether they are found.
bool finds(halvane::Viewer& viewer, const QString& words) {
    viewer.findChild<QLineEdit*>(QStringLiteral("txtfind"))->setText(words);
    const halvane::TextPlace before = viewer.view().cursor();
    viewer.find_next();
    while (viewer.is_finding())
        QCoreApplication::processEvents();
    return viewer.view().cursor() != before;
}

} // namespace

/// longviewer PROGRAM-FOLDER FILE WORDS COPY: shows a file, finds words, copies and saves it, and tells after
/// each step the most memory that has been in use.
int main(int count, char** words) {
    using halvane::Viewer;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(count, words);
    halvane::set_program_folder(words[1]);
    Viewer viewer(QString::fromLocal8Bit(words[2]));
    viewer.show();
    QCoreApplication::processEvents();
    tell("shown");
    const bool found = finds(viewer, QString::fromLocal8Bit(words[3]));
    tell(found ? "found" : "missed");
    tell(finds(viewer, QStringLiteral("nowhere at all")) ? "mistaken" : "sought");
    for (int page = 0; page < 50; ++page)
        QTest::keyClick(&viewer.view(), Qt::Key_PageUp);
    viewer.view().select_all();
    viewer.copy();
    tell("copied");
    halvane::set_file_chooser(
        [&words](const QString&, const QString&) { return QString::fromLocal8Bit(words[4]); });
    viewer.save_as();
    tell("saved");
    return 0;
}
