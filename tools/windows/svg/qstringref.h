// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringView>

/// A part of a string as Qt 5 has it, over that of Qt 6.
class QStringRef : public QStringView {
public:
    QStringRef() = default;
    QStringRef(QStringView part) : QStringView(part) {}
    explicit QStringRef(const QString* text) : QStringView(*text) {}
    QStringRef(const QString* text, qsizetype from, qsizetype count)
        : QStringView(QStringView(*text).mid(from, count)) {}
    QStringRef(const QChar* text, qsizetype from, qsizetype count) : QStringView(text + from, count) {}

    /// Ends with a null character where it is empty: numbers are read without a look at the length.
    const QChar* data() const {
        static constexpr QChar end;
        return isEmpty() ? &end : QStringView::data();
    }
    const QChar* constData() const { return data(); }
    const QChar* string() const { return data(); }
    int position() const { return 0; } ///< within string()
};

using QXmlStreamStringRef = QStringRef;
