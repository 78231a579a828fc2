// SPDX-License-Identifier: MIT
#include "timetable/readablepdf.h"

#include "timetable/pdfobjects.h"

#include <QList>
#include <QString>
#include <algorithm>
#include <map>
#include <vector>

namespace halvane {
namespace {

using Code = int; ///< of a glyph in a font of the file

/// What the glyphs of a font say.
struct FontTexts {
    std::map<Code, QString> texts; ///< of one letter each
    std::map<Code, std::vector<Code>>
        rest_of_shape; ///< of a shape of several letters: those behind the first
};

QByteArray hexadecimal(int value) {
    return QByteArray::number(value, 16).toUpper().rightJustified(4, '0');
}

QByteArray in_brackets(Code code) {
    return '<' + hexadecimal(code) + '>';
}

bool is_presentation_form(char16_t letter) {
    return (letter >= 0xFB00 && letter <= 0xFDFF) || (letter >= 0xFE70 && letter <= 0xFEFE);
}

bool is_right_to_left(QChar letter) {
    return letter.direction() == QChar::DirR || letter.direction() == QChar::DirAL;
}

/// The letters of a shape, in their order.
QString letters_of(char16_t shape) {
    const QString text{QChar(shape)};
    return is_presentation_form(shape) ? text.normalized(QString::NormalizationForm_KC).trimmed() : text;
}

/// The numbers in angle brackets of a text.
std::vector<int> bracketed(const QByteArray& text) {
    std::vector<int> numbers;
    for (qsizetype open = text.indexOf('<'); open >= 0; open = text.indexOf('<', open + 1))
        numbers.push_back(text.mid(open + 1, text.indexOf('>', open) - open - 1).toInt(nullptr, 16));
    return numbers;
}

/// The shapes of a ToUnicode map's ranges: "<from> <to> <shape>" or "<from> <to> [<shape> <shape> ...]".
std::map<Code, char16_t> shapes_of(const QByteArray& map) {
    std::map<Code, char16_t> shapes;
    for (qsizetype block = map.indexOf("beginbfrange\n"); block >= 0;
         block = map.indexOf("beginbfrange\n", block)) {
        block = map.indexOf('\n', block) + 1;
        for (const QByteArray& line : map.mid(block, map.indexOf("endbfrange", block) - block).split('\n')) {
            const std::vector<int> numbers = bracketed(line);
            for (int code = numbers.empty() ? 1 : numbers[0]; numbers.size() > 2 && code <= numbers[1];
                 ++code) {
                const auto offset = static_cast<std::size_t>(code - numbers[0]);
                const int shape =
                    line.contains('[') ? numbers.at(2 + offset) : numbers[2] + static_cast<int>(offset);
                shapes[code] = static_cast<char16_t>(shape);
            }
        }
    }
    return shapes;
}

/// In     free  the first code that the font has no glyph for
FontTexts texts_of(const std::map<Code, char16_t>& shapes, Code free) {
    FontTexts font;
    std::map<QChar, Code> inkless;
    for (const auto& [code, shape] : shapes) {
        const QString letters = letters_of(shape);
        if (shape == 0 || letters.isEmpty())
            continue;
        if (!is_right_to_left(letters[0])) {
            font.texts[code] = letters;
            continue;
        }
        font.texts[code] = letters.left(1);
        for (const QChar letter : letters.mid(1)) {
            const auto [place, added] = inkless.try_emplace(letter, free);
            if (added)
                font.texts[free++] = QString(letter);
            font.rest_of_shape[code].push_back(place->second);
        }
    }
    return font;
}

QByteArray map_of(const FontTexts& font) {
    QByteArray map = "/CIDInit /ProcSet findresource begin\n12 dict begin\nbegincmap\n"
                     "/CIDSystemInfo << /Registry (Adobe) /Ordering (UCS) /Supplement 0 >> def\n"
                     "/CMapName /Adobe-Identity-UCS def\n/CMapType 2 def\n"
                     "1 begincodespacerange\n<0000> <FFFF>\nendcodespacerange\n";
    constexpr std::size_t most_of_block = 100; // Adobe Technical Note 5014, 3.4
    std::size_t left = font.texts.size();
    std::size_t of_block = 0;
    for (const auto& [code, text] : font.texts) {
        if (of_block == 0) {
            of_block = std::min(left, most_of_block);
            map += QByteArray::number(of_block) + " beginbfchar\n";
        }
        map += in_brackets(code) + " <";
        for (const QChar letter : text)
            map += hexadecimal(letter.unicode());
        map += ">\n";
        --left;
        if (--of_block == 0)
            map += "endbfchar\n";
    }
    return map + "endcmap\nCMapName currentdict /CMap defineresource pop\nend\nend\n";
}

/// The glyphs of the codes: each its own number, those without ink none.
QByteArray glyph_map(Code glyphs, Code codes) {
    QByteArray map;
    for (Code code = 0; code < codes; ++code) {
        const int glyph = code < glyphs ? code : 0;
        map += static_cast<char>(glyph >> 8);
        map += static_cast<char>(glyph & 0xFF);
    }
    return map;
}

/// Where the widths of a descendant font begin and end; -1 without any. They are "0 [w w w ]" from a code on
/// and "2 11 w" from a code to another one.
struct WidthsPlace {
    qsizetype begin = -1;
    qsizetype end = -1;
};

WidthsPlace widths_place(const QByteArray& descendant) {
    const QByteArray key = "/W [";
    WidthsPlace place;
    const qsizetype found = descendant.indexOf(key);
    if (found < 0)
        return place;
    place.begin = found + key.size();
    int open = 1;
    for (place.end = place.begin; place.end < descendant.size(); ++place.end) {
        const char letter = descendant[place.end];
        open += letter == '[' ? 1 : letter == ']' ? -1 : 0;
        if (open == 0)
            return place;
    }
    return {};
}

/// How many glyphs a descendant font has a width for.
Code width_count(const QByteArray& descendant) {
    const WidthsPlace place = widths_place(descendant);
    QByteArray widths = descendant.mid(place.begin, place.end - place.begin);
    widths.replace("[", " [ ").replace("]", " ] ");
    Code count = 0;
    bool in_list = false;
    std::vector<int> numbers; // of the part that is being read
    for (const QByteArray& word : widths.simplified().split(' ')) {
        if (word == "[") {
            in_list = true;
            continue;
        }
        if (word != "]")
            numbers.push_back(word.toInt());
        const bool is_run = !in_list && numbers.size() == 3;
        if (word == "]")
            count = numbers.front() + static_cast<Code>(numbers.size()) - 1;
        else if (is_run)
            count = numbers[1] + 1;
        else
            continue;
        in_list = false;
        numbers.clear();
    }
    return count;
}

/// Adds codes without width and without ink to a descendant font.
QByteArray with_inkless(QByteArray descendant, Code glyphs, Code codes, int glyph_map_object) {
    QByteArray widths = ' ' + QByteArray::number(glyphs) + " [";
    for (Code code = glyphs; code < codes; ++code)
        widths += "0 ";
    descendant.insert(widths_place(descendant).end, widths + "]\n");
    return descendant.replace("/CIDToGIDMap /Identity",
                              "/CIDToGIDMap " + QByteArray::number(glyph_map_object) + " 0 R");
}

/// Changes a font of the file, and gives what its glyphs say.
FontTexts make_readable(PdfObjects& file, int number) {
    QByteArray font = file.object(number);
    const int descendant_number = reference(font, "/DescendantFonts");
    const int map_number = reference(font, "/ToUnicode");
    QByteArray descendant = file.object(descendant_number);
    const Code glyphs = width_count(descendant);
    if (glyphs == 0 || map_number == 0)
        return {};
    FontTexts texts = texts_of(shapes_of(stream_data(file.object(map_number))), glyphs);
    const Code codes = texts.texts.empty() ? glyphs : std::max(glyphs, texts.texts.rbegin()->first + 1);
    if (codes > glyphs)
        descendant =
            with_inkless(descendant, glyphs, codes, file.add(stream_object(glyph_map(glyphs, codes))));
    const QByteArray name = "/BaseFont /" + name_of(font, "/BaseFont");
    const QByteArray descriptor = file.object(reference(descendant, "/FontDescriptor"));
    const QByteArray tagged = "/BaseFont /" + name_of(descriptor, "/FontName");
    file.replace(number, font.replace(name, tagged));
    file.replace(descendant_number, descendant.replace(name, tagged));
    file.replace(map_number, stream_object(map_of(texts)));
    return texts;
}

/// Puts the letters behind the first of a shape before it, in a page's content; each glyph is shown by a line
/// that ends with "<code> Tj".
class ContentWriter {
public:
    explicit ContentWriter(const std::map<QByteArray, FontTexts>& fonts) : fonts_(fonts) {}

    QByteArray written(const QByteArray& content) {
        QByteArray whole;
        whole.reserve(content.size() + content.size() / 8);
        for (const QByteArray& line : content.split('\n')) {
            whole += line_of(line);
            whole += '\n';
        }
        whole.chop(1);
        return whole;
    }

private:
    QByteArray line_of(const QByteArray& line) {
        if (line.startsWith('/') && line.contains(" Tf")) {
            const auto found = fonts_.find(line.mid(1, line.indexOf(' ') - 1));
            font_ = found == fonts_.end() ? nullptr : &found->second;
        }
        if (font_ == nullptr || !line.endsWith("> Tj"))
            return line;
        const qsizetype shown = line.lastIndexOf('<');
        const auto shape = font_->rest_of_shape.find(bracketed(line.mid(shown)).front());
        return shape == font_->rest_of_shape.end()
                   ? line
                   : line.left(shown) + inkless(shape->second) + line.mid(shown);
    }

    static QByteArray inkless(const std::vector<Code>& letters) {
        QByteArray shown;
        for (const Code letter : letters)
            shown.prepend(in_brackets(letter) + " Tj ");
        return "3 Tr " + shown + "0 Tr ";
    }

    const std::map<QByteArray, FontTexts>& fonts_;
    const FontTexts* font_ = nullptr;
};

} // namespace

QByteArray readable_pdf(const QByteArray& pdf) {
    std::optional<PdfObjects> file = PdfObjects::read(pdf);
    if (!file)
        return pdf;
    std::map<QByteArray, FontTexts> fonts; // by the names that QPdfWriter gives them, of their numbers
    std::vector<int> contents;
    const std::map<int, QByteArray> objects = file->all();
    for (const auto& [number, object] : objects) {
        const QByteArray type = name_of(object, "/Type");
        if (type == "Font" && name_of(object, "/Subtype") == "Type0")
            fonts['F' + QByteArray::number(number)] = make_readable(*file, number);
        else if (type == "Page")
            contents.push_back(reference(object, "/Contents"));
    }
    for (const int content : contents) {
        const QByteArray data = stream_data(file->object(content));
        const QByteArray written = ContentWriter(fonts).written(data);
        if (written != data)
            file->replace(content, stream_object(written));
    }
    return file->updated();
}

} // namespace halvane
