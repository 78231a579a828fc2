// SPDX-License-Identifier: MIT
// screenshots FOLDER DATA: pictures of every panel in both languages, at the scale of QT_SCALE_FACTOR. The
// panels stand on a temporary program folder made of the delivered files DATA and a fixed clock.

#include "alerts/alertwindow.h"
#include "base/failure.h"
#include "crescent/crescentevening.h"
#include "crescent/frmcresv.h"
#include "crescent/frmmap.h"
#include "desktop/frmmain.h"
#include "desktop/panels.h"
#include "finemap/frmfinemap.h"
#include "hijri/frmmonths.h"
#include "panel/frmwait.h"
#include "panel/messages.h"
#include "panel/panelstyle.h"
#include "panel/panelsupport.h"
#include "panel/viewer.h"
#include "platform/deliveredfonts.h"
#include "prayer/prayerrun.h"
#include "qibla/frmqmap.h"
#include "routines/machineclock.h"
#include "routines/seriesloader.h"
#include "routines/waitseconds.h"
#include "stored/alert.h"
#include "stored/date.h"
#include "stored/loc.h"
#include "stored/pref.h"
#include "stored/programfolder.h"
#include "stored/tele.h"
#include "timetable/frmtimetable.h"
#include "watch/frmwatch.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string_view>

namespace halvane {
namespace {

namespace fs = std::filesystem;

constexpr int smallest_file = 0; // quality of a PNG: how little it is compressed
constexpr int settle_time = 300; // [ms]

class SilentProgress : public Progress {
public:
    void percent(double) override {}
    bool yield() override { return true; }
};

void settle() {
    QElapsedTimer time;
    time.start();
    while (time.elapsed() < settle_time)
        QCoreApplication::processEvents(QEventLoop::AllEvents, settle_time);
}

class Camera {
public:
    Camera(QString folder, Language language) : folder_(std::move(folder)), language_(language) {}

    /// Shows `form` and keeps its picture as "name-language-scale.png".
    void take(QWidget& form, const QString& name) const {
        // A window may take two thirds of the screen by itself, and this one has no real screen.
        if (!form.testAttribute(Qt::WA_Resized)) {
            const QSize hint = form.sizeHint();
            form.resize(hint.width(),
                        form.hasHeightForWidth() ? form.heightForWidth(hint.width()) : hint.height());
        }
        form.show();
        settle();
        const QString scale = qEnvironmentVariable("QT_SCALE_FACTOR", QStringLiteral("1"));
        const QString language = language_ == Language::english ? QStringLiteral("en") : QStringLiteral("ar");
        const QString file = QStringLiteral("%1/%2-%3-%4.png").arg(folder_, name, language, scale);
        if (!form.grab().save(file, "PNG", smallest_file))
            std::fprintf(stderr, "screenshots: %s cannot be written\n", qPrintable(file));
        form.hide();
    }

private:
    QString folder_;
    Language language_;
};

void copy_program_folder(const fs::path& data, const fs::path& folder) {
    for (const fs::directory_entry& entry : fs::directory_iterator(data))
        if (entry.is_regular_file() || entry.path().filename() == "images")
            fs::copy(entry.path(), folder / entry.path().filename(), fs::copy_options::recursive);
}

void set_sample_settings(Language language) {
    Preferences preferences = read_pref();
    preferences.set_language(language);
    write_pref(preferences);
    CalculationDate date;
    date.period = true;
    date.system_date = false;
    date.start = date.from = {2024, 6, 1};
    date.end = date.to = {2024, 6, 30};
    date.one = {2024, 6, 21};
    write_date(date);
    write_alert({1, 10, 1, 0, true, true, true, true});
    TelescopeSettings telescope;
    telescope.year = 2024;
    telescope.month = 6;
    telescope.day = 8;
    telescope.hour = 19;
    telescope.minute = 55;
    write_tele(telescope);
    MachineTime time;
    time.year = 2024;
    time.month = 6;
    time.day = 21;
    time.hour = 15;
    time.minute = 7;
    set_machine_time(time);
    set_machine_zone(read_loc().zone);
}

/// The crescent panel with its days found, and the map it opens, drawn.
void take_crescent(const Camera& camera) {
    frmcresv form;
    form.show();
    form.cmdprev_click();
    camera.take(form, QStringLiteral("frmcresv-days"));
    frmmap map;
    map.findChild<QComboBox*>(QStringLiteral("cbocri"))->setCurrentIndex(1);
    map.findChild<QRadioButton*>(QStringLiteral("opt1"))->setChecked(true);
    map.resize(map.sizeHint());
    map.show();
    settle();
    map.cmddraw_click();
    camera.take(map, QStringLiteral("frmmap"));
}

/// The watch sheet of the first evening after the conjunction of 6 June 2024.
void take_watch(const Camera& camera) {
    frmwatch watch;
    watch.choose(CrescentKind::new_crescent, DateNumbers{2024, 6, 7});
    watch.show();
    settle();
    camera.take(watch, QStringLiteral("frmwatch"));
}

/// The fine map of the same evening.
void take_fine_map(const Camera& camera) {
    constexpr double near_6_june = 2460468; // 2024 June 6, noon
    Ephemeris ephemeris(loaded_theory());
    frmfinemap map;
    map.choose(CrescentKind::new_crescent, geocentric_conjunction(ephemeris, near_6_june), 1, "yallop-1997");
    constexpr QSize usual_window{1180, 660};
    map.resize(usual_window);
    map.show();
    while (!map.is_settled())
        settle();
    camera.take(map, QStringLiteral("frmfinemap"));
}

void take_alert(const Camera& camera, Language language) {
    const Alert alert{Alert::Kind::window, Prayer::aser,         Athan::mecca, shown_clock(1, 16 + 19.0 / 60),
                      Prayer::maghreb,     shown_clock(1, 19.75)};
    AlertWindow window;
    window.show_alert(words_of(alert, QString::fromStdString(read_loc().name), language), language);
    camera.take(window, QStringLiteral("alert"));
}

void take_shared_windows(const Camera& camera, Language language) {
    frmwait wait;
    wait.load(language == Language::english ? QStringLiteral("Prayer Times")
                                            : QStringLiteral("مواقيت الصلاة"));
    wait.show_percent(42.5);
    camera.take(wait, QStringLiteral("frmwait"));

    SilentProgress progress;
    write_report(*prayer_run(loaded_theory(), machine_time()), progress);
    Viewer report(QString::fromStdString(program_path("results.out")));
    camera.take(report, QStringLiteral("viewer"));
    Viewer help(QString::fromStdString(program_path("help.txt")));
    camera.take(help, QStringLiteral("help"));

    set_message_presenter([&camera](QMessageBox& box) {
        camera.take(box, QStringLiteral("message"));
        return true;
    });
    warn(nullptr, high_latitude_message, language);
    set_message_presenter({});
}

/// The button that fills a panel's read-outs without leaving it.
const char* button_with_answer(std::string_view form) {
    if (form == "frmtele")
        return "cmdcalc";
    return form == "frmhej" ? "cmdcon" : nullptr;
}

/// Waits until a panel of this kind shows what it makes; does nothing for another kind.
template <class Form>
void wait_until_settled(const QWidget& panel) {
    constexpr double a_moment = 0.05; // [s]
    if (const auto* form = qobject_cast<const Form*>(&panel))
        while (!form->is_settled())
            waitseconds(a_moment);
}

void take_all(const QString& folder, Language language) {
    set_sample_settings(language);
    const Camera camera(folder, language);
    frmmain main_panel(panels());
    main_panel.load();
    camera.take(main_panel, QStringLiteral("frmmain"));
    for (const Panel& panel : panels()) {
        const std::unique_ptr<QDialog> form(panel.make(nullptr));
        if (const char* button = button_with_answer(panel.form))
            form->findChild<QPushButton*>(QString::fromLatin1(button))->click();
        wait_until_settled<frmtimetable>(*form);
        wait_until_settled<frmmonths>(*form);
        camera.take(*form, QString::fromLatin1(panel.form));
    }
    frmqmap qiblah_map;
    camera.take(qiblah_map, QStringLiteral("frmqmap"));
    take_crescent(camera);
    take_watch(camera);
    take_fine_map(camera);
    take_alert(camera, language);
    take_shared_windows(camera, language);
}

int run(int count, char** words) {
    if (count != 3) {
        std::fputs("usage: screenshots FOLDER DATA\n", stderr);
        return 2;
    }
    QApplication application(count, words);
    use_delivered_fonts();
    if (qEnvironmentVariableIsSet("HALVANE_DARK")) {
        QPalette dark(QColor(0x2b, 0x2b, 0x2b), QColor(0x23, 0x23, 0x23));
        QApplication::setPalette(dark);
    }
    use_halvane_look();
    handle_events_while_waiting();
    QTemporaryDir program;
    copy_program_folder(words[2], program.path().toStdString());
    set_program_folder(program.path().toStdString());
    QDir().mkpath(QString::fromLocal8Bit(words[1]));
    for (const Language language : languages)
        take_all(QString::fromLocal8Bit(words[1]), language);
    return 0;
}

} // namespace
} // namespace halvane

int main(int count, char** words) {
    try {
        return halvane::run(count, words);
    } catch (const halvane::RunTimeFailure& failure) {
        std::fprintf(stderr, "screenshots: %s\n", failure.what());
        return 1;
    }
}
