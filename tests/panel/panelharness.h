// SPDX-License-Identifier: MIT
#pragma once

#include "panel/currentplatform.h"
#include "panel/formlanguage.h"
#include "stored/date.h"
#include "tests/support/programfolder.h"

#include <QAbstractButton>
#include <QObject>
#include <QStringList>
#include <QTest>
#include <deque>
#include <functional>
#include <gtest/gtest.h>
#include <iosfwd>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

class QMessageBox;

/// GoogleTest shows texts as texts.
void PrintTo(const QString& text, std::ostream* out);

namespace halvane {

/// A row of captions is named after its control.
void PrintTo(const ControlText& twin, std::ostream* out);

/// `loc.vsk` of the reports of tests/golden that the panels are held against.
inline constexpr const char* place_of_the_golden_reports =
    "\"Amman\",35,54,0,31,57,0,900,2,#TRUE#,#TRUE#,#FALSE#,#FALSE#,0,1010,10\r\n";

/// How a message box looked when it was presented.
struct SeenMessage {
    QString title;
    QString text;
    QString informative_text;
    bool exclamation = false;
    QStringList buttons; ///< without access key marks
    QString of_enter;    ///< the button that is chosen for Enter; empty: the first
    Qt::LayoutDirection direction = Qt::LeftToRight;
};

/// A platform that writes down what it was asked for.
class RecordingPlatform : public Platform {
public:
    void show_text_file(const std::string& name) override { shown_files.push_back(name); }
    void show_report(const std::string& name, const std::shared_ptr<const Run>& run) override {
        shown_files.push_back(name);
        shown_run = run;
    }
    std::string short_time(int hour, int minute, int second) override;
    void keep_on_top(void* panel, bool on_top) override { kept_on_top.push_back({panel, on_top}); }
    void create_shortcut(const Shortcut& shortcut) override {
        refuse_if_told();
        shortcuts.push_back(shortcut);
    }
    void delete_shortcut(const std::string& folder, const std::string& name) override {
        refuse_if_told();
        deleted_shortcuts.push_back(folder + "/" + name);
    }
    bool is_running(const std::string& window_title, const std::string& executable) override {
        looked_for.push_back(window_title + "/" + executable);
        return running;
    }
    void start_minimised(const std::string& path, const std::string& working_folder) override {
        refuse_if_told();
        started.push_back({path, working_folder});
        running = true;
    }

    std::vector<std::string> shown_files;
    std::shared_ptr<const Run> shown_run; ///< of the report shown last
    struct OnTop {
        void* panel;
        bool on_top;
    };
    std::vector<OnTop> kept_on_top;
    std::vector<Shortcut> shortcuts;
    std::vector<std::string> deleted_shortcuts; ///< "folder/name"
    std::vector<std::string> looked_for;        ///< "window title/executable"
    struct Started {
        std::string path;
        std::string working_folder;
    };
    std::vector<Started> started;
    bool running = false; ///< what is_running answers
    bool refuses = false; ///< shortcuts and starts fail

private:
    void refuse_if_told() const {
        if (refuses)
            throw std::runtime_error("refused");
    }
};

/// The control `name` of `form`; the test ends when there is none of that kind.
template <class Control = QWidget>
Control& control(QWidget& form, const char* name) {
    auto* found = form.findChild<Control*>(QString::fromLatin1(name));
    if (found == nullptr) {
        ADD_FAILURE() << "no control " << name << " of that kind";
        throw std::runtime_error(std::string("no control ") + name);
    }
    return *found;
}

/// What an entry box holds, which entry of a list is chosen, all of the list's entries.
QString text(QWidget& form, const char* name);
QString chosen(QWidget& form, const char* name);
QStringList entries(QWidget& form, const char* name);

/// Whether an option or box is set, a control takes input.
template <class Button = QAbstractButton>
bool checked(QWidget& form, const char* name) {
    return control<Button>(form, name).isChecked();
}
bool enabled(QWidget& form, const char* name);

/// The shown window `name`; none when it is not open.
QWidget* open_window(const char* name);

/// The caption of a label, button, frame or (empty name) window.
QString caption(QWidget& form, const char* name);

/// Clicks a button, option or box as the mouse does.
void click(QWidget& form, const char* name);

/// Puts `text` into an entry box as keys do: select all, type.
void enter(QWidget& form, const char* name, const QString& text);

/// Chooses the entry `text` of a list as the user does; the test fails when it is not in the list.
void choose(QWidget& form, const char* name, const QString& text);

/// Gives a control the focus event that a click or the Tab key gives.
void focus(QWidget& form, const char* name);

/// The form's captions that differ from `twins` in `language`, and the controls that are not there.
QStringList wrong_captions(QWidget& form, std::span<const ControlText> twins, Language language);

/// Inputs and buttons that a screen reader cannot name.
QStringList nameless_controls(QWidget& form);

/// Visible controls that take input but that the Tab key never reaches.
QStringList unreachable_controls(QWidget& form);

/// Names of the inputs and buttons of the form in the order in which the Tab key visits them.
QStringList tab_order(QWidget& form);

/// Access keys that two visible controls of the form share.
QStringList shared_access_keys(QWidget& form);

/// Labels and buttons of the shown form whose text does not fit into their rectangle, and stays so: a form
/// that calculates may be laying out the words that just came.
QStringList cut_texts(QWidget& form);

/// A temporary program folder with the series files and fresh stored files, a machine clock at 21 June 2024
/// 15:07, two hours ahead of Universal Time as the place's is, a platform that records, and message boxes
/// that a script answers.
class PanelTest : public ::testing::Test {
protected:
    PanelTest();
    ~PanelTest() override;

    /// The stored language of the forms that load from now on.
    void set_language(Language language);

    /// Does `work` with a new `Form` in English, then with another in Arabic.
    template <class Form, class Work>
    void in_both_languages(const Work& work) {
        for (const Language language : languages) {
            SCOPED_TRACE(language == Language::english ? "in English" : "in Arabic");
            set_language(language);
            Form form;
            work(form, language);
        }
    }

    /// Escape closes a new `Form` once `change` is made in it, and its stored file `name` stays as it was.
    template <class Form, class Change>
    void expect_escape_stores_nothing(const std::string& name, const Change& change) {
        const std::string before = content(name);
        Form form;
        form.show();
        change(form);
        QTest::keyClick(&form, Qt::Key_Escape);
        EXPECT_FALSE(form.isVisible());
        EXPECT_EQ(content(name), before);
    }

    /// Stores the first and last day of the next runs.
    static void set_period(DateNumbers start, DateNumbers end);

    /// Does `action` at the event pass `pass`, counted from 1, of the run that follows.
    void during_run(int pass, const std::function<void()>& action);

    /// The next boxes are answered so, in this order; a box without an answer is refused (No).
    void answer(std::initializer_list<bool> answers) { answers_.assign(answers); }

    /// `name` within the test's program folder.
    std::string path(const std::string& name) const;
    std::string content(const std::string& name) const;
    void put(const std::string& name, const std::string& content) const;
    void remove(const std::string& name) const;
    bool exists(const std::string& name) const;

    std::vector<SeenMessage> messages; ///< every box presented so far
    RecordingPlatform platform_double;
    int main_panel_reloads = 0;

private:
    bool present(QMessageBox& box);

    TemporaryProgramFolder folder_;
    QObject timers_;
    std::deque<bool> answers_;
};

} // namespace halvane
