// SPDX-License-Identifier: MIT
#pragma once

#include "panel/formlanguage.h"
#include "panel/kepttext.h"
#include "panel/reporthead.h"
#include "panel/textsearch.h"
#include "panel/viewerpages.h"
#include "report/run.h"

#include <QWidget>
#include <optional>

class QLabel;
class QLineEdit;
class QPrinter;
class QPushButton;
class QTextEdit;
class QTimer;

namespace halvane {

class TextView;

/// Shows a text file for reading: fixed-width letters, left to right, the columns as they stand in the file.
/// Finds, zooms, copies, saves under another name, prints and makes a PDF, of the text as it is shown: what
/// takes the file's name later makes no difference. A run's short answer stands above its report, in words of
/// the language.
class Viewer : public QWidget {
    Q_OBJECT
public:
    /// `path` is shown from its first line; a missing file is told in the window. A report (".out") is left
    /// to right throughout; other texts have proportional letters, and each line has the direction of its
    /// own.
    /// In     run  that wrote the report; then it can be saved in the run's other formats
    explicit Viewer(const QString& path, RunPointer run = nullptr, QWidget* parent = nullptr);

    /// Looks for the next place of the find box's text, from the top again after the last, and marks it. A
    /// long text is looked through while the window goes on answering.
    void find_next();
    void find_previous();
    bool is_finding() const { return search_.has_value(); }
    /// One size of type up or down.
    void zoom_in();
    void zoom_out();
    void zoom_normal();
    /// Copies the selection, or the whole text when nothing is selected.
    void copy();
    /// Asks for a name and writes the text's own bytes there; for a report of a run, its ending may choose
    /// CSV or JSON, which the run then calculates once more from the settings that it was made with.
    void save_as();
    /// Asks for a name and writes a PDF.
    void make_pdf();
    /// Asks for a printer and prints.
    void print();

    /// The area that shows the text, `txtreport`.
    TextView& view() const { return *view_; }

signals:
    /// The search is over.
    void find_ended(bool found);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QPushButton* add_button(const char* name, void (Viewer::*action)());
    QPushButton* add_small_button(const char* name, void (Viewer::*action)());
    void build();
    QWidget* make_reading();
    QTextEdit* make_answer(const QString& words);
    QLayout* make_find_bar();
    QLayout* make_action_bar();
    void set_button_heights();
    void add_shortcuts();
    void go_to_language();
    void find(TextSearch::Direction direction);
    void go_on_finding();
    void end_finding();
    void stop_finding();
    void set_type(double points);
    QString title() const;
    PrintedText printed() const;
    void write_pdf(const QString& name, const QPrinter* like);
    void save_text(const QString& name);
    void save_table(const QString& name, ReportFormat format);

    QString path_;
    RunPointer run_;
    Language language_;
    bool is_file_ = false;
    std::shared_ptr<const KeptText> text_;
    ReportHead head_;
    TextView* view_;
    QTextEdit* answer_ = nullptr; ///< where the run has one
    QLineEdit* find_box_;
    QLabel* found_;
    QTimer* find_timer_;
    std::optional<TextSearch> search_;
    double normal_points_ = 0;
};

/// The texts of the viewer.
std::span<const ControlText> viewer_twins();

} // namespace halvane
