#include "tables/csv_rows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/stdio_file.h"
#include "tests/support/test_folder.h"

namespace {

using Rows = std::vector<std::vector<std::string>>;

// A table read to its end: rows, and where faults were.
struct Read {
    Rows rows;
    std::vector<std::string> faults;  ///< LINE:COLUMN
};

Read ReadTable(const std::string& bytes) {
    const TestFolder folder;
    const StdioFile file = OpenStdioFile(folder.Write("table.csv", bytes), "rb");
    CsvRows rows(file.get(), TableEncoding::kUtf8);
    Read read;
    while (rows.Next()) {
        if (rows.Fault()) {
            read.faults.push_back(std::to_string(rows.Fault()->place.line) + ":" +
                                  std::to_string(rows.Fault()->place.column));
            continue;
        }
        read.rows.emplace_back();
        for (const CsvField& field : rows.Fields())
            read.rows.back().emplace_back(field.text);
    }
    if (rows.Fault())
        read.faults.push_back(std::to_string(rows.Fault()->place.line) + ":" +
                              std::to_string(rows.Fault()->place.column) + " end");
    return read;
}

std::vector<std::string> Places(const std::string& bytes) {
    const TestFolder folder;
    const StdioFile file = OpenStdioFile(folder.Write("table.csv", bytes), "rb");
    CsvRows rows(file.get(), TableEncoding::kUtf8);
    std::vector<std::string> places;
    while (rows.Next())
        for (const CsvField& field : rows.Fields()) {
            const TablePlace place = rows.PlaceAt(field.at);
            places.push_back(std::to_string(place.line) + ":" + std::to_string(place.column));
        }
    return places;
}

}  // namespace

TEST(CsvRows, AreSeparatedByWhatTheFirstRowHasMostOf) {
    const Rows expected{{"a", "b", "c"}, {"1", "2", "3"}};
    EXPECT_EQ(expected, ReadTable("a,b,c\n1,2,3\n").rows);
    EXPECT_EQ(expected, ReadTable("a;b;c\n1;2;3\n").rows);
    EXPECT_EQ(expected, ReadTable("a\tb\tc\n1\t2\t3\n").rows);
    EXPECT_EQ((Rows{{"a", "b"}, {"1,5", "2"}}), ReadTable("a;b\n1,5;2\n").rows);
    EXPECT_EQ((Rows{{"a,x,y", "b", "c"}, {"1", "2", "3"}}), ReadTable("\"a,x,y\";b;c\n1;2;3").rows);
}

TEST(CsvRows, EndWithAnyLineEndAndAtTheEndOfTheFile) {
    const Rows expected{{"a", "b"}, {"1", "2"}, {"3", "4"}};
    for (const char* bytes :
         {"a,b\n1,2\n3,4\n", "a,b\r\n1,2\r\n3,4", "a,b\r1,2\r3,4\r", "a,b\n1,2\r\n\r\r\n3,4",
          "\xEF\xBB\xBF"
          "a,b\n1,2\n3,4"})
        EXPECT_EQ(expected, ReadTable(bytes).rows) << bytes;
}

TEST(CsvRows, PassOverCommentsAndRowsWithoutText) {
    EXPECT_EQ((Rows{{"a", "b"}, {"1", "2"}}),
              ReadTable("# \"from\n\n  \n  # here, too\na,b\n,\n \t,\"\"\n1,2\n#end").rows);
}

TEST(CsvRows, LoseTheBlanksAroundTheirFields) {
    EXPECT_EQ((Rows{{"a", "b c"}, {"1", "2"}}), ReadTable(" a\t, b c \n1 , \" 2 \" \n").rows);
}

TEST(CsvRows, HoldWhatStandsInQuotationMarksInOneField) {
    EXPECT_EQ((Rows{{"a", "b"}, {"1,5", "say \"x\""}, {"two\nlines", "#2"}, {"5\" pipe", ""}}),
              ReadTable("a,b\n\"1,5\",\"say \"\"x\"\"\"\n\"two\nlines\",\"#2\"\n5\" pipe,\n").rows);
    EXPECT_EQ((Rows{{"a", "b"}, {"#1", ""}}), ReadTable("a,b\n\"#1\",").rows);
}

TEST(CsvRows, RefuseTextBehindAClosingMarkInThatRowOnly) {
    const Read read = ReadTable("a,b\n1,\"x\"y\n2,3\n");
    EXPECT_EQ((Rows{{"a", "b"}, {"2", "3"}}), read.rows);
    EXPECT_EQ((std::vector<std::string>{"2:6"}), read.faults);
}

TEST(CsvRows, EndAtAMarkThatIsNeverClosed) {
    const Read read = ReadTable("a,b\n1,2\n3, \"x\n4,5\n");
    EXPECT_EQ((Rows{{"a", "b"}, {"1", "2"}}), read.rows);
    EXPECT_EQ((std::vector<std::string>{"3:4 end"}), read.faults);
    const std::string endless = "a,b\n\"" + std::string(3 * CsvRows::kLongestRow, '\n');
    EXPECT_EQ((std::vector<std::string>{"2:1 end"}), ReadTable(endless).faults);
}

TEST(CsvRows, EndAtALineThatIsTooLong) {
    const std::string longest(CsvRows::kLongestRow - 2, 'x');
    EXPECT_EQ(2U, ReadTable("a,b\n1," + longest + "\n").rows.size());
    const Read read = ReadTable("a,b\n1,2" + longest + "\n3,4\n");
    EXPECT_EQ(1U, read.rows.size());
    EXPECT_EQ((std::vector<std::string>{"2:1 end"}), read.faults);
}

TEST(CsvRows, EndAtARowOfTooManyFields) {
    const Read read = ReadTable("a,b\n" + std::string(CsvRows::kMostFields - 1, ',') + "1\n" +
                                std::string(CsvRows::kMostFields, ',') + "1\n");
    EXPECT_EQ(2U, read.rows.size());
    EXPECT_EQ((std::vector<std::string>{"3:1 end"}), read.faults);
}

TEST(CsvRows, AreReadThroughManyBuffersWithoutLosingABoundary) {
    std::string bytes = "number,text\n";
    constexpr int kRows = 60000;
    for (int i = 0; i < kRows; ++i)
        bytes += std::to_string(i) +
                 (i % 7 == 0 ? ",\"some \"\"text\"\",\n two\""
                             : ",a text of some sixty bytes to fill the buffers sooner") +
                 (i % 2 == 0 ? "\r\n" : "\n");
    const Read read = ReadTable(bytes);
    ASSERT_EQ(kRows + 1U, read.rows.size());
    for (int i = 0; i < kRows; ++i)
        ASSERT_EQ(std::to_string(i), read.rows[static_cast<std::size_t>(i) + 1][0]);
    EXPECT_EQ("some \"text\",\n two", read.rows[1][1]);
}

TEST(CsvRows, KnowThePlacesOfTheirFieldsInCharacters) {
    EXPECT_EQ((std::vector<std::string>{"1:1", "1:3", "3:2", "3:5", "3:6"}),
              Places("a,b\n#\n 柱1,,x\n"));
    EXPECT_EQ((std::vector<std::string>{"1:1", "1:3", "2:1", "3:8", "4:1", "4:3"}),
              Places("a,b\n\"two\nlines\",5\n6,7"));
}
