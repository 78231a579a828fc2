// SPDX-License-Identifier: MIT
// The PDF files of pages, read by Poppler's programs.
#include "tests/support/programfolder.h"
#include "tests/timetable/writtensheet.h"
#include "timetable/pagedigits.h"
#include "timetable/pagetext.h"
#include "timetable/readablepdf.h"
#include "timetable/timetablepdf.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QString>
#include <QStringList>
#include <fstream>
#include <gtest/gtest.h>
#include <set>

namespace halvane {
namespace {

class Pdf : public testing::Test {
protected:
    void SetUp() override {
        if (QStandardPaths::findExecutable(QStringLiteral("pdftotext")).isEmpty())
            GTEST_SKIP() << "poppler-utils is not installed";
    }

    /// What a program of Poppler prints of the pages.
    QString told_by(const char* program, const std::vector<TimetableSheet>& sheets, const PageSettings& page,
                    const QStringList& options = {}) const {
        const std::string path = (folder / "pages.pdf").string();
        std::ofstream(path, std::ios::binary) << pdf_of(sheets, page, "Pages of a test");
        QStringList words = options;
        words << QString::fromStdString(path);
        if (QString::fromLatin1(program) == QStringLiteral("pdftotext"))
            words << QStringLiteral("-");
        QProcess process;
        process.start(QString::fromLatin1(program), words);
        EXPECT_TRUE(process.waitForFinished());
        EXPECT_EQ(process.exitCode(), 0);
        EXPECT_EQ(process.readAllStandardError(), QByteArray());
        return QString::fromUtf8(process.readAllStandardOutput());
    }

    /// A page as Poppler paints it.
    QByteArray picture_of(const QByteArray& pdf) const {
        const std::string path = (folder / "page.pdf").string();
        std::ofstream(path, std::ios::binary) << pdf.toStdString();
        QProcess process;
        process.start(QStringLiteral("pdftoppm"), {QString::fromStdString(path)});
        EXPECT_TRUE(process.waitForFinished());
        QByteArray picture = process.readAllStandardOutput();
        EXPECT_TRUE(picture.startsWith("P6")) << process.readAllStandardError().toStdString();
        return picture;
    }

    TemporaryProgramFolder folder;
};

/// Stretches of letters and figures.
QStringList words_of(const QString& text) {
    static const QRegularExpression between(QStringLiteral("[^\\p{L}\\p{M}\\p{N}]+"));
    return text.split(between, Qt::SkipEmptyParts);
}

/// Without the marks of direction that Poppler puts around figures.
QString without_marks(QString text) {
    static const QRegularExpression marks(QStringLiteral("[\\x{202A}-\\x{202E}]"));
    return text.remove(marks);
}

std::set<QString> set_of(const QStringList& words) {
    return {words.begin(), words.end()};
}

/// Every text of a sheet that a page of the language shows.
QString texts_of(const TimetableSheet& sheet, PageLanguage page) {
    std::vector<TwinWords> all{sheet.title,       sheet.hijri_months, sheet.place,
                               sheet.coordinates, sheet.zone,         sheet.rules};
    for (const SheetColumn& column : sheet.columns)
        all.push_back(column.heading);
    for (const SheetRow& row : sheet.rows)
        for (const SheetCell& cell : row.cells)
            all.push_back(cell.text);
    all.insert(all.end(), sheet.notes.begin(), sheet.notes.end());
    QString texts;
    for (const TwinWords& words : all)
        for (const Language language : languages)
            if (page == PageLanguage::both ||
                (page == PageLanguage::arabic) == (language == Language::arabic))
                texts += QString::fromStdString(words.in(language)) + QLatin1Char('\n');
    return texts;
}

TEST_F(Pdf, HoldsEveryWordOfTheSheet) {
    for (const PageLanguage language : {PageLanguage::english, PageLanguage::arabic, PageLanguage::both})
        for (const bool full : {false, true}) {
            const TimetableSheet sheet = written_sheet({full ? many_columns() : usual_columns(), full});
            const std::set<QString> found =
                set_of(words_of(told_by("pdftotext", {sheet}, page_in(language))));
            for (const QString& word : words_of(texts_of(sheet, language)))
                EXPECT_TRUE(found.contains(word)) << word.toStdString();
        }
}

TEST_F(Pdf, HasArabicInItsOrderOfReading) {
    const QString text = told_by("pdftotext", {written_sheet()}, page_in(PageLanguage::arabic));
    for (const char* phrase : {"مواقيت الصلاة", "كانون الثاني", "العصر للجمهور"})
        EXPECT_TRUE(text.contains(QString::fromUtf8(phrase))) << phrase;
    // Letters, and no shapes of letters.
    for (const QChar letter : text)
        EXPECT_FALSE(letter.unicode() >= 0xFB50 && letter.unicode() <= 0xFEFC) << int{letter.unicode()};
}

TEST_F(Pdf, KeepsLettersThatMakeOneShape) {
    TimetableSheet sheet = written_sheet();
    const QString words = QStringLiteral("لا إلا الآن الأمة الإسلام السلام بلاد خلال");
    sheet.title = {words.toStdString(), words.toStdString()};
    const QStringList read = words_of(told_by("pdftotext", {sheet}, page_in(PageLanguage::arabic)));
    EXPECT_TRUE(read.join(QLatin1Char(' ')).contains(words)) << read.join(QLatin1Char(' ')).toStdString();
}

TEST_F(Pdf, HasEnglishInItsOrder) {
    const QString text =
        told_by("pdftotext", {written_sheet()}, page_in(PageLanguage::english), {QStringLiteral("-layout")});
    static const QRegularExpression heading(
        QStringLiteral("Date +Day +Hijri +Fajer +Shuroq +Dhohur +Aser +Maghreb +Isha"));
    EXPECT_TRUE(text.contains(heading)) << text.toStdString();
    static const QRegularExpression fifth(
        QStringLiteral("5 +Mon +16 +08:15 ?\\* +09:15 +10:15 +11:15 +12:15 +13:15 ?\\*"));
    EXPECT_TRUE(text.contains(fifth)) << text.toStdString();
    EXPECT_TRUE(text.contains(QStringLiteral("Page 1 of 1")));
}

TEST_F(Pdf, HasFiguresOnceInBothLanguages) {
    TimetableSheet sheet = written_sheet();
    for (SheetRow& row : sheet.rows)
        for (SheetCell& cell : row.cells)
            cell.text.arabic = arabic_digits(cell.text.arabic);
    PageSettings page = page_in(PageLanguage::both);
    page.digits = PageDigits::arabic;
    const QString text = told_by("pdftotext", {sheet}, page);
    EXPECT_TRUE(text.contains(QStringLiteral("٠٨:١٥"))); // of the 5th
    EXPECT_FALSE(text.contains(QStringLiteral("08:15")));
    EXPECT_TRUE(text.contains(QStringLiteral("Sha'ban")) && text.contains(QStringLiteral("شعبان")));
    static const QRegularExpression foot(QStringLiteral("صفحة\\s*١\\s*من\\s*١"));
    EXPECT_TRUE(without_marks(text).contains(foot));
}

TEST_F(Pdf, EmbedsItsFontsAsSubsets) {
    for (const PageLanguage language : {PageLanguage::english, PageLanguage::arabic, PageLanguage::both}) {
        const QString table = told_by("pdffonts", {written_sheet()}, page_in(language));
        const QStringList lines = table.split(QLatin1Char('\n'), Qt::SkipEmptyParts).mid(2);
        EXPECT_GE(lines.size(), 2);
        for (const QString& line : lines)
            EXPECT_TRUE(line.contains(QRegularExpression(QStringLiteral(" yes +yes +yes +\\d+ +\\d+$"))))
                << line.toStdString();
    }
}

TEST_F(Pdf, HasAPageForEachSheetAndATitle) {
    const std::vector<TimetableSheet> year(12, written_sheet());
    const QString a4 = told_by("pdfinfo", year, page_in(PageLanguage::english));
    EXPECT_TRUE(a4.contains(QRegularExpression(QStringLiteral("Pages: +12\n"))));
    EXPECT_TRUE(a4.contains(QRegularExpression(QStringLiteral("Title: +Pages of a test\n"))));
    EXPECT_TRUE(a4.contains(QRegularExpression(QStringLiteral("595 x 842 pts"))));
    const QString letter = told_by("pdfinfo", year, page_in(PageLanguage::english, PaperSize::letter));
    EXPECT_TRUE(letter.contains(QRegularExpression(QStringLiteral("612 x 792 pts"))));
    const QString text = told_by("pdftotext", year, page_in(PageLanguage::english));
    EXPECT_TRUE(text.contains(QStringLiteral("Page 12 of 12")));
}

/// A page of some texts, one below the other, as QPdfWriter writes it.
QByteArray written_page(const std::vector<std::string>& texts) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    QPainter painter(&writer);
    painter.scale(0.3, 0.3);
    double baseline = 3 * page_units;
    for (const std::string& text : texts) {
        PageFont font;
        font.points = 20;
        PageText(text, font, Language::arabic)
            .draw(painter, QPointF(100 * page_units, baseline += 12 * page_units), LineAnchor::right);
    }
    painter.end();
    return bytes;
}

TEST_F(Pdf, LooksAsBeforeItWasMadeReadable) {
    // Fonts write the widths of many figures in a row, and of letters, in two ways.
    const QByteArray written = written_page({"لا إله", "0123456789", "Gent, Utrecht 2005"});
    ASSERT_TRUE(written.contains(" 572 \n")) << "the figures of Noto Sans are of one width";
    const QByteArray readable = readable_pdf(written);
    EXPECT_NE(readable, written);
    EXPECT_TRUE(picture_of(readable) == picture_of(written));
}

TEST(ReadablePdf, LeavesWhatItDoesNotKnow) {
    for (const QByteArray& bytes :
         {QByteArray(), QByteArray("%PDF-1.4\n"), QByteArray("startxref\n7\n%%EOF\n"),
          QByteArray("startxref\n99999\n%%EOF\n")})
        EXPECT_EQ(readable_pdf(bytes), bytes);
}

} // namespace
} // namespace halvane
