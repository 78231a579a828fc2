// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <span>

class QDialog;
class QWidget;

namespace halvane {

/// Every entry box within `form` selects its whole text when it gets the focus, by key, mouse or program.
void select_whole_text_on_focus(QWidget& form);

/// Lets no button be clicked that cannot be reached any more: a key's click ends a tenth of a second after
/// the key, when another key may have closed the window, opened a dialog over it or disabled the button.
/// Called once by every program with panels.
void silence_late_clicks();

/// One panel of the program and the button of the main panel that opens it.
struct Panel {
    const char* form;                 ///< objectName of the form
    const char* button;               ///< objectName of the button on the main panel
    bool modal;                       ///< the other windows wait until it is closed
    QDialog* (*make)(QWidget* owner); ///< a new form, loaded, not shown
};

/// The factory of a form whose constructor takes its owner and loads it.
template <class Form>
QDialog* make_panel(QWidget* owner) {
    return new Form(owner);
}

/// Makes and shows the panel; a modal one is waited for. One that is open already is brought to the front.
void open_panel(const Panel& panel, QWidget* owner);

/// Enter does what the focused button says, in every window; from boxes, lists and options it is the default
/// button's. Called once by every program with panels.
void use_halvane_keys();

/// Makes waitseconds handle the event loop's pending events. Called once by every program with panels.
void handle_events_while_waiting();

/// Unloads the main panel, loads it again and shows it. Nothing happens while there is none (a settings
/// panel in a test of its own).
void reload_main_panel();

/// What reload_main_panel does; set by the main panel.
void set_main_panel_reload(std::function<void()> reload);

} // namespace halvane
