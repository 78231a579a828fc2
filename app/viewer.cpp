#include "app/viewer.h"

#include "app/stored/failure.h"
#include "app/stored/textfile.h"

#include <QFileInfo>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace halvane {

namespace {

QString content_of(const QString& path) {
    try {
        return QString::fromStdString(read_text_file(path.toStdString()));
    } catch (const RunTimeFailure& failure) {
        return QString::fromUtf8(failure.what());
    }
}

} // namespace

Viewer::Viewer(const QString& path, QWidget* parent) : QWidget(parent), text_(new QPlainTextEdit(this)) {
    setObjectName(QStringLiteral("viewer"));
    setWindowTitle(QFileInfo(path).fileName());
    text_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    text_->setReadOnly(true);
    text_->setLineWrapMode(QPlainTextEdit::NoWrap);
    text_->setPlainText(content_of(path));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(text_);
}

} // namespace halvane
