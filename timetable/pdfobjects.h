// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <map>
#include <optional>

namespace halvane {

/// The objects of a PDF file with one cross-reference table (ISO 32000-1:2008, 7.5), and an incremental
/// update of them (7.5.6): the file stays as it is, and what has changed follows it.
class PdfObjects {
public:
    /// Nothing when the file has another form.
    static std::optional<PdfObjects> read(const QByteArray& file);

    /// Every object as it is now, by its number: what stands between "obj" and "endobj".
    const std::map<int, QByteArray>& all() const { return objects_; }
    /// An object; empty where there is none.
    QByteArray object(int number) const;

    void replace(int number, const QByteArray& content);
    /// Adds an object, and gives its number.
    int add(const QByteArray& content);

    /// The file with what has been replaced and added.
    QByteArray updated() const;

private:
    QByteArray file_;
    int table_ = 0;      ///< place of the cross-reference table
    QByteArray trailer_; ///< the entries of its dictionary, without /Size
    std::map<int, QByteArray> objects_;
    std::map<int, QByteArray> changed_;
    int size_ = 0; ///< one more than the greatest number
};

/// The number of the object that a dictionary refers to under `key`; 0 where there is none.
int reference(const QByteArray& dictionary, const QByteArray& key);

/// The name that stands in a dictionary under `key`, without its slash; empty where there is none.
QByteArray name_of(const QByteArray& dictionary, const QByteArray& key);

/// A stream object, compressed (7.4.4).
QByteArray stream_object(const QByteArray& data);
/// The data of a stream object, compressed or not.
QByteArray stream_data(const QByteArray& object);

} // namespace halvane
