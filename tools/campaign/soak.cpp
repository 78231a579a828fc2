// SPDX-License-Identifier: MIT
// halvane-soak FOLDER keys SEED SECONDS: the desktop program with random keys pressed on its panels, runs
// cancelled on the way. Its last line tells the keys, the windows opened, the cancels and the memory early
// and late. halvane-soak FOLDER reports: the prayer and the Moon report by the main panel's buttons, into
// prayer.out and mresults.out. FOLDER is a program folder of the campaign's own.

#include "desktop/frmmain.h"
#include "desktop/panels.h"
#include "panel/application.h"
#include "panel/currentplatform.h"
#include "panel/messages.h"
#include "panel/panelstyle.h"
#include "panel/panelsupport.h"
#include "routines/machineclock.h"
#include "stored/programfolder.h"

#include <QElapsedTimer>
#include <QKeySequence>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <unistd.h>

namespace halvane {
namespace {

/// The system's own, without what reaches beyond the folder: no shortcut, no other program.
class SoakPlatform : public Platform {
public:
    explicit SoakPlatform(Platform& own) : own_(own) {}
    void show_text_file(const std::string& name) override { own_.show_text_file(name); }
    void show_report(const std::string& name, const std::shared_ptr<const Run>& run) override {
        own_.show_report(name, run);
    }
    std::string short_time(int hour, int minute, int second) override {
        return own_.short_time(hour, minute, second);
    }
    void keep_on_top(void* panel, bool on_top) override { own_.keep_on_top(panel, on_top); }
    void create_shortcut(const Shortcut& /*shortcut*/) override {}
    void delete_shortcut(const std::string& /*folder*/, const std::string& /*name*/) override {}
    bool is_running(const std::string& /*window_title*/, const std::string& /*executable*/) override {
        return true;
    }
    void start_minimised(const std::string& /*path*/, const std::string& /*working_folder*/) override {}

private:
    Platform& own_;
};

/// Memory that the process holds [MB]
long memory() {
    std::ifstream stream("/proc/self/statm");
    long whole = 0;
    long resident = 0;
    stream >> whole >> resident;
    return resident * ::sysconf(_SC_PAGESIZE) / 1'000'000;
}

struct Stroke {
    int key;
    Qt::KeyboardModifiers modifiers;
    QString text;
};

/// Presses keys on whatever window takes them, until its time is over.
class Keys : public QObject {
public:
    Keys(unsigned long long seed, int seconds) : engine_(seed), end_(1000LL * seconds) {
        clock_.start();
        come_back();
        qApp->installEventFilter(this);
    }

    bool is_over() const { return clock_.elapsed() > end_; }

    void tell() const {
        std::printf("soak: %ld keys, %ld panels, %ld cancels, %ld MB then %ld MB\n", keys_, windows_,
                    cancels_, early_memory_, memory());
    }

protected:
    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() == QEvent::Show && object->isWidgetType() &&
            static_cast<QWidget*>(object)->isWindow())
            ++windows_;
        return false;
    }

private:
    std::size_t below(std::size_t limit) { return static_cast<std::size_t>(engine_() % limit); }

    /// A timer of its own for each key: one that fires does not fire again within the dialog that its key
    /// opens.
    void come_back() {
        QTimer::singleShot(1, this, [this] { tick(); });
    }

    void tick() {
        come_back();
        constexpr long hang = 30'000; // [ms]
        if (early_memory_ == 0 && clock_.elapsed() > end_ / 2)
            early_memory_ = memory();
        if (clock_.elapsed() > end_ + hang) {
            for (const QWidget* window : QApplication::topLevelWidgets())
                if (window->isVisible())
                    std::fprintf(stderr, "%s does not close\n", qPrintable(window->objectName()));
            std::fputs("the windows do not close\n", stderr);
            std::_Exit(EXIT_FAILURE);
        }
        QWidget* window = input_window();
        if (window == nullptr) {
            wait_for_window();
            return;
        }
        last_seen_ = clock_.elapsed();
        if (is_over())
            press(*window, {Qt::Key_Escape, Qt::NoModifier, {}});
        else
            press(*window, random_stroke(*window));
        if (is_over() && QApplication::activeModalWidget() == nullptr)
            QApplication::closeAllWindows();
    }

    /// The program ends soon after its last window.
    void wait_for_window() const {
        constexpr long patience = 5'000; // [ms]
        if (clock_.elapsed() - last_seen_ < patience)
            return;
        std::fputs("the program runs on without a window\n", stderr);
        tell_last_keys();
        std::_Exit(EXIT_FAILURE);
    }

    static QWidget* input_window() {
        if (QWidget* popup = QApplication::activePopupWidget())
            return popup;
        if (QWidget* modal = QApplication::activeModalWidget())
            return modal;
        if (QWidget* active = QApplication::activeWindow())
            return active;
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->isVisible()) {
                window->activateWindow();
                return window;
            }
        return nullptr;
    }

    /// The last keys and their windows, for a finding.
    void remember(const QWidget& window, const Stroke& stroke) {
        constexpr std::size_t most = 40;
        last_.push_back(
            window.objectName() + QLatin1Char(' ') + QLatin1String(window.metaObject()->className()) +
            QLatin1String(": ") +
            QKeySequence(QKeyCombination(stroke.modifiers, static_cast<Qt::Key>(stroke.key))).toString());
        if (last_.size() > most)
            last_.pop_front();
    }

    void tell_last_keys() const {
        for (const QString& key : last_)
            std::fprintf(stderr, "%s\n", qPrintable(key));
    }

    void press(QWidget& window, const Stroke& stroke) {
        QWidget* focus = window.focusWidget();
        QWidget* target = focus != nullptr ? focus : &window;
        ++keys_;
        if (window.objectName() == QLatin1String("frmwait") && stroke.key == Qt::Key_Escape)
            ++cancels_;
        remember(window, stroke);
        QTest::sendKeyEvent(QTest::Click, target, static_cast<Qt::Key>(stroke.key), stroke.text,
                            stroke.modifiers);
    }

    Stroke random_stroke(QWidget& window) {
        static const QString texts =
            QStringLiteral("0123456789012345678901234567890123456789-+.,eE /\"'<&>%nمكة٣٫۴");
        static constexpr int plain[] = {Qt::Key_Tab,       Qt::Key_Tab,   Qt::Key_Tab,      Qt::Key_Backtab,
                                        Qt::Key_Space,     Qt::Key_Space, Qt::Key_Return,   Qt::Key_Escape,
                                        Qt::Key_Up,        Qt::Key_Down,  Qt::Key_Left,     Qt::Key_Right,
                                        Qt::Key_Home,      Qt::Key_End,   Qt::Key_PageDown, Qt::Key_PageUp,
                                        Qt::Key_Backspace, Qt::Key_F5,    Qt::Key_F3};
        static constexpr int with_control[] = {Qt::Key_A, Qt::Key_C,    Qt::Key_V,
                                               Qt::Key_F, Qt::Key_Plus, Qt::Key_Minus};
        const std::size_t kind = below(20);
        if (window.objectName() == QLatin1String("frmwait") && kind < 4)
            return {Qt::Key_Escape, Qt::NoModifier, {}};
        if (kind < 6) {
            const auto letter = static_cast<int>(Qt::Key_A + static_cast<int>(below(26)));
            return {letter, Qt::AltModifier, QString(QChar(letter)).toLower()};
        }
        if (kind < 10) {
            const QChar letter = texts[static_cast<qsizetype>(below(static_cast<std::size_t>(texts.size())))];
            const int key =
                letter.unicode() < 128 ? letter.toUpper().unicode() : static_cast<int>(Qt::Key_unknown);
            return {key, Qt::NoModifier, letter};
        }
        if (kind < 11)
            return {with_control[below(std::size(with_control))], Qt::ControlModifier, {}};
        const int key = plain[below(std::size(plain))];
        return {key, Qt::NoModifier, key == Qt::Key_Space ? QStringLiteral(" ") : QString()};
    }

    std::mt19937_64 engine_;
    qint64 end_;
    std::deque<QString> last_;
    QElapsedTimer clock_;
    qint64 last_seen_ = 0;
    long keys_ = 0;
    long windows_ = 0;
    long cancels_ = 0;
    long early_memory_ = 0;
};

/// A name within the folder for whatever is saved: the keys never lead out of it.
void save_within_the_folder() {
    set_file_chooser([](const QString& /*title*/, const QString& proposed) {
        const QString name = proposed.section(QLatin1Char('/'), -1);
        return QString::fromStdString(program_path("saved-")) +
               (name.isEmpty() ? QStringLiteral("file") : name);
    });
}

int press_keys(unsigned long long seed, int seconds) {
    save_within_the_folder();
    Keys keys(seed, seconds);
    while (!keys.is_over()) {
        frmmain main_panel(panels());
        main_panel.load();
        main_panel.show();
        QApplication::exec();
    }
    keys.tell();
    return EXIT_SUCCESS;
}

int write_reports() {
    set_machine_time({2026, 6, 21, 15, 7, 0});
    frmmain main_panel(panels());
    main_panel.load();
    main_panel.show();
    main_panel.cmdcom_clicked();
    std::filesystem::rename(program_path("results.out"), program_path("prayer.out"));
    main_panel.cmdmoon_clicked();
    return EXIT_SUCCESS;
}

int run(int count, char** words) {
    const std::vector<std::string> arguments(words + 1, words + count);
    Application application(count, words);
    use_halvane_look();
    handle_events_while_waiting();
    if (arguments.size() < 2) {
        std::fputs("halvane-soak FOLDER keys SEED SECONDS, or FOLDER reports\n", stderr);
        return EXIT_FAILURE;
    }
    set_program_folder(arguments[0]);
    SoakPlatform soak_platform(platform());
    set_platform(&soak_platform);
    try {
        const int status = arguments[1] == "keys"
                               ? press_keys(std::stoull(arguments.at(2)), std::stoi(arguments.at(3)))
                               : write_reports();
        set_platform(nullptr);
        return status;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "halvane-soak: %s\n", failure.what());
    }
    return EXIT_FAILURE;
}

} // namespace
} // namespace halvane

int main(int count, char** words) {
    return halvane::run(count, words);
}
