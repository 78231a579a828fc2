#pragma once

#include "app/language.h"

#include <QTextCursor>
#include <QTextDocument>
#include <QWidget>

class QAbstractScrollArea;
class QLabel;
class QLineEdit;
class QPushButton;

namespace halvane {

/// Shows a text file for reading: fixed-width font, left to right, the columns as they stand in the file.
/// Finds, zooms, copies, saves under another name, prints and makes a PDF.
class Viewer : public QWidget {
    Q_OBJECT
public:
    /// `path` is shown from its first line; a missing file is told in the window. A report (".out") is left
    /// to right throughout; in other texts each paragraph has the direction of its own letters.
    explicit Viewer(const QString& path, QWidget* parent = nullptr);

    /// Marks the next place of the find box's text, from the top again after the last; false when there is
    /// none.
    bool find_next();
    bool find_previous();
    /// One size of type up or down.
    void zoom_in();
    void zoom_out();
    void zoom_normal();
    /// Copies the selection, or the whole text when nothing is selected.
    void copy();
    /// Asks for a name and writes the file's own bytes there.
    void save_as();
    /// Asks for a name and writes a PDF.
    void make_pdf();
    /// Asks for a printer and prints.
    void print();

    QTextDocument& document() const;
    QTextCursor cursor() const;
    /// The area that shows the text, `txtreport`.
    QWidget& area() const;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    QPushButton* add_button(const char* name, void (Viewer::*action)());
    QPushButton* add_small_button(const char* name, void (Viewer::*action)());
    void build(Language language);
    void add_shortcuts();
    void set_directions();
    void go_to_language();
    bool find(QTextDocument::FindFlags flags);
    void set_cursor(const QTextCursor& cursor);
    void set_type(double points);

    QString path_;
    QString content_;
    QAbstractScrollArea* area_;
    QLineEdit* find_box_;
    QLabel* found_;
    Language language_;
    double normal_points_;
};

/// The texts of the viewer.
std::span<const Twin> viewer_twins();

} // namespace halvane
