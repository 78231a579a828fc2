#pragma once

#include <QWidget>

class QPlainTextEdit;

namespace halvane {

/// Shows a text file for reading: fixed-width font, left to right, columns as they stand in the file.
class Viewer : public QWidget {
    Q_OBJECT
public:
    /// `path` is shown from its first line; a missing file is told in the window.
    explicit Viewer(const QString& path, QWidget* parent = nullptr);

private:
    QPlainTextEdit* text_;
};

} // namespace halvane
