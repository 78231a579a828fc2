// SPDX-License-Identifier: MIT
#pragma once

#include "base/failure.h"
#include "crescent/visibilitymap.h"
#include "panel/formlanguage.h"

#include <QDialog>
#include <memory>
#include <optional>
#include <string>

namespace halvane {

namespace Ui {
class frmmap;
}

/// The world map of the crescent's visibility, drawn block by block over a picture of the world. It starts
/// from `conjunctionstart` and `crescentkind`, so a conjunction must have been found. The constructor loads
/// it. Error  raises RunTimeFailure for a missing or damaged `pref.vsk`.
class frmmap : public QDialog {
    Q_OBJECT
public:
    explicit frmmap(QWidget* owner = nullptr);
    ~frmmap() override;

    void cmddraw_click(); ///< draws until the world is done, Stop is pressed or the panel closed
    void cmdstop_click(); ///< stops a drawing and loads the panel anew; what is painted stays
    void cmdfine_click(); ///< asks for the fine map of the chosen day and criterion
    void cmdsave_click(); ///< saves the picture as a GIF file; a failure is told in `lblsave`
    void done(int result) override;

    /// Chooses the day that the map was opened for: 0, 1, 2 as map_day() counts. The same day once more
    /// leaves the user's own choice.
    void choose_day(int choice);

signals:
    /// The fine map is wanted, which another room makes.
    /// In     conjunction  geocentric; Julian day, UT1                                           [d]
    ///        day          0, 1, 2 as map_day() counts
    ///        criterion    its key
    void fine_map_wanted(halvane::CrescentKind kind, double conjunction, int day,
                         const std::string& criterion);

protected:
    bool event(QEvent* event) override;

private:
    class BlockPainter;

    void fill_lists();
    void set_sizes();
    void connect_controls();
    void load();
    void show_clean_map();
    int shown_day() const;
    MapRun shown_run() const;
    bool is_drawing_of_choice() const;
    void show_progress(int percent);
    void show_state();
    void show_texts(const MapRun& run);
    void show_mouse(double x, double y);
    QString class_words(std::optional<VisibilityClass> visibility) const;
    void clear_mouse();
    QString ask_for_name();
    void save_picture(const QString& name);
    void show_save(const TwinText& how, const QString& name, const FailureParts& reason = {});

    std::unique_ptr<Ui::frmmap> ui_;
    Language language_;
    CrescentKind kind_ = CrescentKind::new_crescent;
    MapConjunction conjunction_;
    int offered_day_ = 0;
    std::optional<MapRun> drawn_; ///< what the picture shows, once drawn
    bool drawing_ = false;
    int percent_ = 0; ///< of the drawing
    bool stop_ = false;
};

/// The texts of `frmmap` that do not depend on its conjunction.
std::span<const ControlText> frmmap_twins();

} // namespace halvane
