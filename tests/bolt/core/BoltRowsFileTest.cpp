#include "bolt/core/BoltRowsFile.h"

#include <gtest/gtest.h>

#include <cfloat>

#include "shell/core/Primitives.h"
#include "support/TempFolder.h"

using namespace BoltRows;
namespace fs = std::filesystem;

namespace {

class BoltDataFile : public testutil::TempFolder {
protected:
    void SetUp() override {
        TempFolder::SetUp();
        path_ = P(kBoltDataFileName);
    }
    std::string Bytes() const { return ReadAll(path_); }
    void Put(const std::string& bytes) const { WriteAll(path_, bytes); }
    void Write(const std::vector<BoltRecord>& records) {
        BoltData_Write(records, path_, [this](const std::string& m) { messages_.push_back(m); });
    }
    ReadResult Read(std::vector<BoltRecord>& records) {
        return BoltData_Read(records, path_, [this](const std::string& m) { messages_.push_back(m); });
    }

    std::string path_;
    std::vector<std::string> messages_;
};

// A record with M and, optionally, Angle set; the other texts empty.
BoltRecord Rec(int16_t row, std::string m, std::string angle = "") {
    BoltRecord r;
    r.Row = row;
    r.M = std::move(m);
    r.Angle = std::move(angle);
    return r;
}

std::vector<BoltRecord> SampleRecords() {
    return {
        {1, "4", "2", "3.000  ", "3.000  ", "6.000  ", "0.000  ", "3.756  ", "26.032  "},
        {3, "12", "2", "3.000  ", "3.000  ", "36.000  ", "45.000  ", "7.335  ", "203.530  "},
        {20, "3", "", "2.5  ", "", "", "-12.5  ", "", ""},
        {7, "1", "1", "0.000  ", "0.000  ", "0.000  ", "90°", "1,234.000  ", ""},
    };
}

TEST_F(BoltDataFile, RoundTripKeepsRowsAndTextsExactlyAndAShorterTableReplacesAll) {
    Write(std::vector<BoltRecord>(40, SampleRecords()[1]));
    const auto longSize = Bytes().size();
    Write(SampleRecords());
    EXPECT_LT(Bytes().size(), longSize);
    std::vector<BoltRecord> back;
    EXPECT_EQ(Read(back), ReadResult::Loaded);
    EXPECT_EQ(back, SampleRecords());
    EXPECT_TRUE(messages_.empty());
    EXPECT_EQ(Entries(), 1u);  // no temporary file left behind
}

TEST_F(BoltDataFile, BytesOfTheFormat) {
    // Three rows, all texts empty but M: 10 + 3 x (2 + 8 x 2) plus the M bytes.
    Write({Rec(1, "4"), Rec(2, "12"), Rec(5, "7")});
    const std::string b = Bytes();
    ASSERT_EQ(b.size(), 10u + 3u * (2 + 8 * 2) + 4u);
    EXPECT_EQ(b.substr(0, 10), std::string("\x01\x00\x03\x00\x00\x00\x00\x00\x00\x00", 10));
    // First element: row 1, M = "4", then seven empty lengths.
    EXPECT_EQ(b.substr(10, 5), std::string("\x01\x00\x01\x00" "4", 5));
    EXPECT_EQ(b.substr(15, 14), std::string(14, '\0'));
    // The degree sign is one Windows-1252 byte on disk.
    Write({Rec(-2, "", "90°")});
    EXPECT_EQ(Bytes(), std::string("\x01\x00\x01\x00\x00\x00\x00\x00\x00\x00\xFE\xFF"
                                   "\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x03\x00"
                                   "90\xB0\x00\x00\x00\x00",
                                   31));
}

TEST_F(BoltDataFile, NoFileAnEmptyOneAndOneThatCannotBeOpened) {
    // No file, or an empty one (removed): records untouched, nothing said.
    for (bool empty : {false, true}) {
        if (empty) Put("");
        std::vector<BoltRecord> recs = SampleRecords();
        EXPECT_EQ(Read(recs), ReadResult::NoFile);
        EXPECT_EQ(recs, SampleRecords());
        EXPECT_FALSE(fs::exists(path_));
        EXPECT_TRUE(messages_.empty());
    }
    // A folder at the path: reported, left alone, and the table starts empty.
    fs::create_directory(path_);
    std::vector<BoltRecord> recs;
    EXPECT_EQ(Read(recs), ReadResult::Unreadable);
    EXPECT_EQ(messages_, std::vector<std::string>{"Error No. 75:  Path/File access error"});
    EXPECT_TRUE(fs::is_directory(path_));
    EXPECT_TRUE(recs.empty());
}

TEST_F(BoltDataFile, DamagedFilesAreReportedAndDeleted) {
    std::string good;
    BoltDataError err;
    ASSERT_TRUE(EncodeBoltRecords(SampleRecords(), good, err));
    std::string hugeCount = good;
    hugeCount[2] = hugeCount[3] = hugeCount[4] = '\xFF';
    hugeCount[5] = '\x7F';
    std::string twoDims = good;
    twoDims[0] = 2;
    // One row more than the program writes, each row complete: refused from the header.
    std::string tooMany = good.substr(0, 10) + std::string((kMaxRecords + 1) * 18, '\0');
    tooMany[2] = static_cast<char>((kMaxRecords + 1) & 0xFF);
    tooMany[3] = static_cast<char>((kMaxRecords + 1) >> 8);
    const std::pair<std::string, const char*> cases[] = {
        {good.substr(0, good.size() - 1), "Error No. 62:  Input past end of file"},
        {good.substr(0, 7), "Error No. 62:  Input past end of file"},
        {hugeCount, "Error No. 13:  Type mismatch"},
        {twoDims, "Error No. 13:  Type mismatch"},
        {tooMany, "Error No. 13:  Type mismatch"},
    };
    for (const auto& [bytes, message] : cases) {
        messages_.clear();
        Put(bytes);
        std::vector<BoltRecord> recs = {Rec(9, "x")};
        EXPECT_EQ(Read(recs), ReadResult::Malformed);
        EXPECT_EQ(messages_, std::vector<std::string>{message});
        EXPECT_FALSE(fs::exists(path_));
        EXPECT_EQ(recs.size(), 1u);
    }
}

TEST_F(BoltDataFile, TheLargestTableFitsAndALongerFileIsReportedAndSetAside) {
    // Every text as long as a cell shows the largest double.
    const std::string longest = prim::Format(-DBL_MAX, "##,##0.000  ");
    EXPECT_EQ(longest.size(), kLongestText);
    EXPECT_LE(prim::Format(-DBL_MAX, "0.000##  ").size(), kLongestText);
    const std::vector<BoltRecord> one(1, {1, longest, longest, longest, longest, longest, longest, longest, longest});
    std::string bytes;
    BoltDataError err;
    ASSERT_TRUE(EncodeBoltRecords(one, bytes, err));
    EXPECT_EQ(10 + kMaxRecords * (bytes.size() - 10), kMaxFileBytes);

    // Reported and kept under another name, never over an earlier one.
    WriteAll(path_ + ".too-large", "earlier");
    Put(bytes);
    fs::resize_file(path_, kMaxFileBytes + 1);
    std::vector<BoltRecord> recs;
    EXPECT_EQ(Read(recs), ReadResult::TooLarge);
    EXPECT_EQ(messages_, std::vector<std::string>{"Error No. 7:  Out of memory"});
    EXPECT_FALSE(fs::exists(path_));
    EXPECT_EQ(ReadAll(path_ + ".too-large"), "earlier");
    EXPECT_EQ(fs::file_size(path_ + ".too-large-2"), kMaxFileBytes + 1);
    EXPECT_TRUE(recs.empty());
}

TEST_F(BoltDataFile, FailedWriteKeepsTheOldFile) {
    Write(SampleRecords());
    const std::string before = Bytes();
    // A text too long for its length field.
    Write({Rec(1, std::string(70000, '1'))});
    // A folder that cannot be made: a plain file stands in its place.
    BoltData_Write(SampleRecords(), (fs::path(path_) / kBoltDataFileName).string(),
                   [this](const std::string& m) { messages_.push_back(m); });
    EXPECT_EQ(messages_, (std::vector<std::string>{"Error No. 6:  Overflow", "Error No. 76:  Path not found"}));
    EXPECT_EQ(Bytes(), before);
    EXPECT_EQ(Entries(), 1u);
}

}  // namespace
