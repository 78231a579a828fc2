// SPDX-License-Identifier: MIT
#pragma once

#include "finemap/limitboxes.h"
#include "finemap/mapdocument.h"
#include "panel/formlanguage.h"

#include <QDialog>
#include <memory>
#include <optional>

class QTimer;

namespace halvane {

class FineMapJob;

namespace Ui {
class frmfinemap;
}

/// The world's map of a crescent by any criterion: enlarged, moved, asked for any place, saved. A sketch
/// comes at once, the map as soon as it is made. Stores nothing.
class frmfinemap : public QDialog {
    Q_OBJECT
public:
    explicit frmfinemap(QWidget* owner = nullptr);
    ~frmfinemap() override;

    /// Shows the crescent of a conjunction.
    /// In     conjunction  geocentric; Julian day, UT1                                           [d]
    ///        day          which of its three days, from 0
    ///        criterion    key of the catalogue; another text leaves the chosen one
    void choose(CrescentKind kind, double conjunction, int day, const std::string& criterion);

    /// Whether nothing is being made and nothing waits.
    bool is_settled() const;
    /// The map that is shown whole; null while there is a sketch or none.
    const FineMap* map() const { return map_.get(); }

    void cmdsave_click();
    void cmdmine_click();
    void cmdstop_click();

signals:
    /// The user wants to observe from a place.
    void place_wanted(const halvane::Location& location);

protected:
    void done(int result) override;

private:
    void fill_lists();
    void fill_criteria();
    void set_sizes();
    void connect_controls();
    void connect_view();
    void show_dates();
    void show_limits();
    void change();
    void change_kind();
    void move_month(int months);
    void calculate();
    void show_nothing();
    void show_sketch(const std::shared_ptr<const FineMap>& sketch);
    void show_result();
    void show_look();
    void show_state(const QString& words);
    QString in_order(const QString& words) const;
    void point_at(const std::optional<MapPosition>& place);
    void pick(const MapPosition& place);
    void mark_place();
    void unmark_places();
    void show_marks();

    CrescentKind kind() const;
    std::string shown_criterion() const; ///< its key
    /// Nothing when a limit is wrong, which is told.
    std::optional<FineMapSettings> shown_settings();
    MapLook shown_look() const;
    bool is_up_to_date() const;
    void save(const QString& name);

    std::unique_ptr<Ui::frmfinemap> ui_;
    Language language_;
    LimitBoxes limits_;
    FineMapJob* job_;
    QTimer* pause_;
    std::shared_ptr<const WorldOutline> world_; ///< an empty one where its file cannot be read
    double conjunction_ = 0;
    std::shared_ptr<const FineMap> shown_; ///< a sketch or a map
    std::shared_ptr<const FineMap> map_;
    std::vector<Location> marks_;
    std::optional<MapPosition> picked_;
    bool is_of_choices_ = false; ///< whether what is shown is of what is chosen
    bool showing_ = false;       ///< the program fills the boxes, not the user
};

/// The texts of `frmfinemap` that do not depend on its map.
std::span<const ControlText> frmfinemap_twins();

} // namespace halvane
