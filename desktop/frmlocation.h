// SPDX-License-Identifier: MIT
#pragma once

#include "panel/formlanguage.h"
#include "stored/loc.h"

#include <QDialog>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace halvane {

namespace Ui {
class frmlocation;
}

/// The location panel: edits the list of saved locations, and makes what it shows the current location. The
/// constructor loads it; a missing or damaged list or current location leaves blank what cannot be read.
/// Error  raises RunTimeFailure for a missing or damaged `pref.vsk`.
class frmlocation : public QDialog {
    Q_OBJECT
public:
    explicit frmlocation(QWidget* owner = nullptr);
    ~frmlocation() override;

    void List1_click();
    void cmdadd_click();
    void cmdmod_click();
    void cmddel_click();
    /// Stores the current location, rebuilds the main panel and closes; a value without times is refused.
    void cmdok_click();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void load();
    void set_sizes();
    void connect_controls();
    void show_location(const Location& location);
    Location shown() const;
    std::optional<Location> usable();
    void fill_list(const std::vector<Location>& locations);
    void select_name(const std::string& name);
    void select_first();
    void pick_first_found();
    void pick_focused();
    void filter_list(const QString& part);
    bool confirmed(const TwinText& title, const TwinText& question);

    std::unique_ptr<Ui::frmlocation> ui_;
    Language language_;
};

} // namespace halvane
