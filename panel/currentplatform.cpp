// SPDX-License-Identifier: MIT
#include "panel/currentplatform.h"

#include "panel/viewer.h"
#include "stored/programfolder.h"

namespace halvane {

namespace {

void show_in_viewer(const std::string& name, const RunPointer& run) {
    auto* viewer = new Viewer(QString::fromStdString(delivered_path(name)), run);
    viewer->setAttribute(Qt::WA_DeleteOnClose);
    viewer->showMaximized();
    viewer->raise();
    viewer->activateWindow();
}

Platform*& replacement() {
    static Platform* current = nullptr;
    return current;
}

} // namespace

Platform& platform() {
    return replacement() != nullptr ? *replacement() : own_platform();
}

Platform& own_platform() {
    static const std::unique_ptr<Platform> own = make_platform(show_in_viewer);
    return *own;
}

void set_platform(Platform* other) {
    replacement() = other;
}

} // namespace halvane
