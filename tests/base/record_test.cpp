// SPDX-License-Identifier: MIT
#include "base/numberformat.h"

#include "base/failure.h"
#include "base/record.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>

namespace halvane {
namespace {

/// The words of the failure that `read` raises; an empty text when it raises none.
template <class Read>
std::string failure_of(const std::string& text, Read read) {
    RecordReader reader(text, "some.vsk");
    try {
        read(reader);
    } catch (const RunTimeFailure& failure) {
        return failure.what();
    }
    return {};
}

std::string number_failure(const std::string& text) {
    return failure_of(text, [](RecordReader& reader) { reader.number(); });
}

TEST(RecordReader, ReadsFieldsOfEveryKindInOrder) {
    const std::string line = "\"Mecca\",39.5,-7,#TRUE#,#FALSE#,3\r\n";
    RecordReader reader(line, "some.vsk");
    EXPECT_EQ(reader.text(), "Mecca");
    EXPECT_EQ(reader.number(), 39.5);
    EXPECT_EQ(reader.number(), -7);
    EXPECT_TRUE(reader.boolean());
    EXPECT_FALSE(reader.boolean());
    EXPECT_EQ(reader.integer(), 3);
    EXPECT_TRUE(reader.at_end());
}

TEST(RecordReader, TakesEveryKindOfLineEndAsASeparator) {
    for (const char* line : {"1\r\n2\r\n3", "1\n2\n3", "1\r2\r3", "1,2\n3", " 1 ,\t2 , 3 "}) {
        const std::string text = line;
        RecordReader reader(text, "some.vsk");
        EXPECT_EQ(reader.number(), 1) << line;
        EXPECT_EQ(reader.number(), 2) << line;
        EXPECT_EQ(reader.number(), 3) << line;
    }
}

TEST(RecordReader, LeavesCommasBlanksAndLineEndsOfAQuotedTextAlone) {
    const std::string line = "\" Al-Quds, \r\n old \",2";
    RecordReader reader(line, "some.vsk");
    EXPECT_EQ(reader.text(), " Al-Quds, \r\n old ");
    EXPECT_EQ(reader.number(), 2);
}

TEST(RecordReader, TakesAnEmptyTextAndATextWithoutQuotes) {
    const std::string line = "\"\",plain text ,,5";
    RecordReader reader(line, "some.vsk");
    EXPECT_EQ(reader.text(), "");
    EXPECT_EQ(reader.text(), "plain text");
    EXPECT_EQ(reader.text(), "");
    EXPECT_EQ(reader.number(), 5);
}

TEST(RecordReader, TakesExponentsAndSigns) {
    const std::string line = "1e3,+2.5,-0.25E-1,.5,5.";
    RecordReader reader(line, "some.vsk");
    EXPECT_EQ(reader.number(), 1000);
    EXPECT_EQ(reader.number(), 2.5);
    EXPECT_EQ(reader.number(), -0.025);
    EXPECT_EQ(reader.number(), 0.5);
    EXPECT_EQ(reader.number(), 5);
}

TEST(RecordReader, NamesFileRecordFieldAndWhatWasFound) {
    const std::string text = "1,2\r\n3,four\r\n";
    RecordReader reader(text, "some.vsk");
    reader.start_record();
    reader.number();
    reader.number();
    reader.start_record();
    reader.number();
    try {
        reader.number();
        FAIL() << "junk was taken";
    } catch (const RunTimeFailure& failure) {
        EXPECT_STREQ(failure.what(), "some.vsk, record 2, field 2: wanted a number, found \"four\".");
    }
}

TEST(RecordReader, RefusesWhatIsNoNumber) {
    for (const char* junk : {"", " ", "x", "1x", "1 2", "--1", "+-1", "+", "-", ".", "1e", "0x10", "nan",
                             "inf", "-inf", "1e999", "\"18\"", "#TRUE#", "١٢"})
        EXPECT_NE(number_failure(junk), "") << junk;
    EXPECT_NE(number_failure("inf").find("\"inf\""), std::string::npos);
}

TEST(RecordReader, TellsTheEndOfTheFile) {
    EXPECT_EQ(number_failure(""), "some.vsk, record 1, field 1: wanted a number, found the end of the file.");
    EXPECT_EQ(failure_of("7,",
                         [](RecordReader& reader) {
                             reader.number();
                             reader.boolean();
                         }),
              "some.vsk, record 1, field 2: wanted #TRUE# or #FALSE#, found the end of the file.");
}

TEST(RecordReader, RefusesBooleansOfAnotherForm) {
    for (const char* junk : {"TRUE", "#true#", "\"#TRUE#\"", "1", "#TRUE", "#FALSE #"})
        EXPECT_NE(failure_of(junk, [](RecordReader& reader) { reader.boolean(); }), "") << junk;
}

TEST(RecordReader, RefusesIntegersBeyond16BitsAndFractions) {
    for (const char* junk : {"1.5", "32768", "-32769", "1e300"})
        EXPECT_NE(failure_of(junk, [](RecordReader& reader) { reader.integer(); }), "") << junk;
    const std::string ends = "32767,-32768";
    RecordReader reader(ends, "some.vsk");
    EXPECT_EQ(reader.integer(), 32767);
    EXPECT_EQ(reader.integer(), -32768);
}

TEST(RecordReader, RefusesNumbersBeyondALimit) {
    const auto within_ten = [](RecordReader& reader) { reader.number_within(10); };
    EXPECT_EQ(failure_of("10", within_ten), "");
    EXPECT_EQ(failure_of("-10", within_ten), "");
    EXPECT_EQ(failure_of("10.5", within_ten),
              "some.vsk, record 1, field 1: wanted a number within 10, found \"10.5\".");
}

TEST(RecordReader, RefusesAQuotedTextThatDoesNotClose) {
    const auto read_text = [](RecordReader& reader) { reader.text(); };
    EXPECT_NE(failure_of("\"Mecca,39", read_text).find("a closing double quote mark"), std::string::npos);
    EXPECT_NE(failure_of("\"Mecca\"x,39", read_text).find("a comma or a line end, found \"x\""),
              std::string::npos);
}

TEST(RecordReader, ShowsOnlyTheStartOfALongField) {
    const std::string words = number_failure(std::string(100000, 'x'));
    EXPECT_LT(words.size(), 150U);
    EXPECT_NE(words.find(std::string(40, 'x') + "..."), std::string::npos);
    // A character of several bytes is not cut.
    const std::string arabic = number_failure(std::string(39, 'x') + "ععع");
    EXPECT_NE(arabic.find(std::string(39, 'x') + "..."), std::string::npos) << arabic;
}

TEST(RecordWriter, WritesTheFormThatIsRead) {
    RecordWriter writer;
    writer.text("Al-Quds, old").number(18).number(0.5).number(-3600).boolean(true).boolean(false);
    EXPECT_EQ(writer.line(), "\"Al-Quds, old\",18,0.5,-3600,#TRUE#,#FALSE#\r\n");
}

TEST(RecordWriter, StoresWhatWouldBreakTheRecordAsApostropheAndBlank) {
    RecordWriter writer;
    writer.text("a \"b\"\r\nc");
    EXPECT_EQ(writer.line(), "\"a 'b'  c\"\r\n");
}

TEST(PlainNumber, IsTheShortestTextWithoutExponent) {
    EXPECT_EQ(plain_number(0.1), "0.1");
    EXPECT_EQ(plain_number(1e21), "1000000000000000000000");
    EXPECT_EQ(plain_number(1e-7), "0.0000001");
    EXPECT_EQ(plain_number(-35.9), "-35.9");
    EXPECT_EQ(plain_number(-0.0), "0");
    EXPECT_EQ(plain_number(0.1F), "0.1");
    EXPECT_EQ(plain_number(18.0), "18");
    EXPECT_THROW(plain_number(std::numeric_limits<double>::infinity()), RunTimeFailure);
    EXPECT_THROW(plain_number(std::nan("")), RunTimeFailure);
}

TEST(PlainNumber, ReadsBackAsTheSameNumber) {
    std::mt19937_64 random(20260217);
    std::uniform_real_distribution<double> mantissa(-1, 1);
    std::uniform_int_distribution<int> exponent(-60, 60);
    for (int i = 0; i < 2000; ++i) {
        const double value = std::ldexp(mantissa(random), exponent(random));
        const std::string text = plain_number(value);
        EXPECT_EQ(text.find('e'), std::string::npos);
        RecordReader reader(text, "some.vsk");
        EXPECT_EQ(reader.number(), value) << text;
    }
}

} // namespace
} // namespace halvane
