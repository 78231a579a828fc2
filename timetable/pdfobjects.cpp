// SPDX-License-Identifier: MIT
#include "timetable/pdfobjects.h"

#include <QList>
#include <QtEndian>

namespace halvane {
namespace {

/// The number at the start of a text, behind spaces; 0 where there is none.
int number_at(const QByteArray& text, qsizetype place) {
    while (place < text.size() && text[place] == ' ')
        ++place;
    qsizetype end = place;
    while (end < text.size() && text[end] >= '0' && text[end] <= '9')
        ++end;
    return text.mid(place, end - place).toInt();
}

/// Where the value of `key` begins; -1 where there is none.
qsizetype value_place(const QByteArray& dictionary, const QByteArray& key) {
    const qsizetype found = dictionary.indexOf(key + ' ');
    return found < 0 ? -1 : found + key.size() + 1;
}

/// The places of the objects in a table that begins with "xref\n0 N\n"; none for any other.
std::map<int, int> table_of(const QByteArray& file, int table) {
    constexpr qsizetype entry_size = 20;
    const QByteArray head = "xref\n0 ";
    std::map<int, int> places;
    if (file.mid(table, head.size()) != head)
        return places;
    const int count = number_at(file, table + head.size());
    const qsizetype entries = file.indexOf('\n', table + head.size()) + 1;
    for (int number = 0; number < count; ++number) {
        const QByteArray entry = file.mid(entries + number * entry_size, entry_size);
        if (entry.size() == entry_size && entry[17] == 'n')
            places[number] = entry.left(10).toInt();
    }
    return places;
}

/// What stands between "obj" and "endobj" in the bytes from an object's place to the next one's.
QByteArray content_of(const QByteArray& bytes) {
    const qsizetype begin = bytes.indexOf("obj\n") + 4;
    return bytes.mid(begin, bytes.lastIndexOf("endobj") - begin);
}

QByteArray table_entry(int number, qsizetype place) {
    return QByteArray::number(number) + " 1\n" + QByteArray::number(place).rightJustified(10, '0') +
           " 00000 n \n";
}

} // namespace

std::optional<PdfObjects> PdfObjects::read(const QByteArray& file) {
    PdfObjects objects;
    objects.file_ = file;
    const QByteArray start = "startxref\n";
    const qsizetype found = file.lastIndexOf(start);
    if (found < 0)
        return std::nullopt;
    objects.table_ = number_at(file, found + start.size());
    const std::map<int, int> places = table_of(file, objects.table_);
    if (places.empty())
        return std::nullopt;
    std::map<int, int> rising; // places, with the number there
    for (const auto& [number, place] : places)
        rising[place] = number;
    for (auto entry = rising.begin(); entry != rising.end(); ++entry) {
        const auto next = std::next(entry);
        const int end = next == rising.end() ? objects.table_ : next->first;
        objects.objects_[entry->second] = content_of(file.mid(entry->first, end - entry->first));
    }
    const QByteArray trailer = file.mid(objects.table_, found - objects.table_);
    objects.size_ = number_at(trailer, value_place(trailer, "/Size"));
    for (const char* key : {"/Info", "/Root"})
        objects.trailer_ += QByteArray(key) + ' ' + QByteArray::number(reference(trailer, key)) + " 0 R\n";
    return objects;
}

QByteArray PdfObjects::object(int number) const {
    const auto found = objects_.find(number);
    return found == objects_.end() ? QByteArray() : found->second;
}

void PdfObjects::replace(int number, const QByteArray& content) {
    objects_[number] = content;
    changed_[number] = content;
}

int PdfObjects::add(const QByteArray& content) {
    replace(size_, content);
    return size_++;
}

QByteArray PdfObjects::updated() const {
    QByteArray file = file_;
    QByteArray table = "xref\n";
    for (const auto& [number, content] : changed_) {
        table += table_entry(number, file.size());
        file += QByteArray::number(number) + " 0 obj\n" + content + "endobj\n";
    }
    const QByteArray place = QByteArray::number(file.size());
    return file + table + "trailer\n<<\n/Size " + QByteArray::number(size_) + '\n' + trailer_ + "/Prev " +
           QByteArray::number(table_) + "\n>>\nstartxref\n" + place + "\n%%EOF\n";
}

int reference(const QByteArray& dictionary, const QByteArray& key) {
    const qsizetype place = value_place(dictionary, key);
    if (place < 0)
        return 0;
    return number_at(dictionary, dictionary[place] == '[' ? place + 1 : place);
}

QByteArray name_of(const QByteArray& dictionary, const QByteArray& key) {
    const qsizetype place = value_place(dictionary, key);
    if (place < 0 || dictionary[place] != '/')
        return {};
    qsizetype end = place + 1;
    while (end < dictionary.size() && dictionary[end] > ' ' && dictionary[end] != '/' &&
           dictionary[end] != '>')
        ++end;
    return dictionary.mid(place + 1, end - place - 1);
}

QByteArray stream_object(const QByteArray& data) {
    const QByteArray packed = qCompress(data).mid(4); // Qt puts the size before it
    return "<<\n/Length " + QByteArray::number(packed.size()) + "\n/Filter /FlateDecode\n>>\nstream\n" +
           packed + "\nendstream\n";
}

QByteArray stream_data(const QByteArray& object) {
    const QByteArray begin = "stream\n";
    const qsizetype place = object.indexOf(begin);
    const qsizetype end = object.lastIndexOf("endstream");
    if (place < 0 || end < place)
        return {};
    QByteArray data = object.mid(place + begin.size(), end - place - begin.size());
    if (!object.left(place).contains("/FlateDecode"))
        return data;
    QByteArray packed(4, '\0');
    qToBigEndian(static_cast<quint32>(data.size() * 8), packed.data()); // a guess of the size, for Qt
    return qUncompress(packed + data);
}

} // namespace halvane
