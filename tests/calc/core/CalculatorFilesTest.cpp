#include "calc/core/CalculatorFiles.h"

#include "support/TempFolder.h"

#include <gtest/gtest.h>


#include <cmath>
#include <cstring>
#include <limits>

namespace {

namespace fs = std::filesystem;
using namespace CalculatorFiles;
using Outcome = FileStatus::Outcome;

std::string Hex(std::string_view bytes) {
    static const char* d = "0123456789ABCDEF";
    std::string out;
    for (unsigned char c : bytes) {
        if (!out.empty()) out += ' ';
        out += d[c >> 4];
        out += d[c & 15];
    }
    return out;
}

std::string Bytes(std::initializer_list<int> list) {
    std::string s;
    for (int b : list) s.push_back(char(b));
    return s;
}

std::string DoubleBytes(double v) {
    std::string s(8, '\0');
    std::memcpy(s.data(), &v, 8);  // the test machine is little-endian
    return s;
}

RegisterArray SampleRegisters() {
    RegisterArray r;
    r[0] = {1.5, "ab"};
    r[1] = {-2.25e-300, ""};
    r[7] = {0.0, "kept though free"};
    r[42] = {6.02214e23, "Avogadro · °C é"};
    r[99] = {-1.0, "last"};
    return r;
}

DataList SampleData() {
    DataList d;
    d.kind = DataList::Kind::List;
    d.Values = {1.0, -2.5, 0.0, 1e308, -4.9e-324};
    return d;
}

void ExpectSameRegisters(const RegisterArray& a, const RegisterArray& b) {
    for (int i = 0; i < kRegisterCount; ++i) {
        EXPECT_EQ(a[i].Value, b[i].Value) << i;
        EXPECT_EQ(a[i].Description, b[i].Description) << i;
    }
}

using CalcFilesDir = testutil::TempFolder;

// ---- Names ----------------------------------------------------------------------

TEST(CalcFilesNames, RegisterAndDataRowNames) {
    EXPECT_EQ(Register_Name(0), "Reg-001");
    EXPECT_EQ(Register_Name(9), "Reg-010");
    EXPECT_EQ(Register_Name(99), "Reg-100");
    EXPECT_EQ(Data_Name(0), "Data-01");
    EXPECT_EQ(Data_Name(98), "Data-99");
    EXPECT_EQ(Data_Name(99), "Data-100");
}

TEST(CalcFilesNames, MessageText) {
    FileStatus st;
    st.outcome = Outcome::Damaged;
    st.ErrorNumber = 62;
    st.ErrorDescription = "Input past end of file";
    EXPECT_EQ(st.Message(), "Error No. 62:  Input past end of file");
    EXPECT_TRUE(st.ShowMessage());
    EXPECT_STREQ(FileStatus::MessageTitle, "Warning:");
    st.outcome = Outcome::FirstRun;
    EXPECT_FALSE(st.ShowMessage());
}

// ---- Register layout ---------------------------------------------------------------

TEST(RegisterLayout, EmptyRegistersMakeThousandZeroBytes) {
    const std::string bytes = Encode_Registers(RegisterArray{});
    EXPECT_EQ(bytes, std::string(1000, '\0'));
}

TEST(RegisterLayout, RecordBytesExactly) {
    RegisterArray r;
    r[0] = {1.5, "ab"};
    r[1] = {-2.0, "é°"};  // two bytes in the 8-bit code page
    const std::string bytes = Encode_Registers(r);
    ASSERT_EQ(bytes.size(), 1000u + 2 + 2);
    EXPECT_EQ(Hex(bytes.substr(0, 12)), "00 00 00 00 00 00 F8 3F 02 00 61 62");
    EXPECT_EQ(Hex(bytes.substr(12, 12)), "00 00 00 00 00 00 00 C0 02 00 E9 B0");
    EXPECT_EQ(bytes.substr(24), std::string(980, '\0'));
}

TEST(RegisterLayout, RoundTripKeepsValuesAndDescriptions) {
    const RegisterArray in = SampleRegisters();
    RegisterArray out;
    const FileStatus st = Decode_Registers(Encode_Registers(in), out);
    EXPECT_EQ(st.outcome, Outcome::Loaded);
    ExpectSameRegisters(in, out);
}

TEST(RegisterLayout, OverlongDescriptionIsCutToTheLengthField) {
    RegisterArray in;
    in[3].Description = std::string(70000, 'x');
    const std::string bytes = Encode_Registers(in);
    EXPECT_EQ(bytes.size(), 1000u + 65535);
    RegisterArray out;
    ASSERT_EQ(Decode_Registers(bytes, out).outcome, Outcome::Loaded);
    EXPECT_EQ(out[3].Description, std::string(65535, 'x'));
}

TEST(RegisterLayout, EveryTruncationIsDamagedAndLeavesTargetAlone) {
    const std::string bytes = Encode_Registers(SampleRegisters());
    const RegisterArray before = SampleRegisters();
    for (size_t cut = 0; cut < bytes.size(); ++cut) {
        RegisterArray target = before;
        const FileStatus st = Decode_Registers(std::string_view(bytes).substr(0, cut), target);
        ASSERT_EQ(st.outcome, Outcome::Damaged) << cut;
        ASSERT_EQ(st.ErrorNumber, 62) << cut;
        ASSERT_EQ(target[42].Description, before[42].Description);
    }
}

TEST(RegisterLayout, BadValuesAndTrailingBytes) {
    RegisterArray out;
    std::string bytes = Encode_Registers(RegisterArray{});
    // Bytes past the hundredth record are not part of the file's content.
    EXPECT_EQ(Decode_Registers(bytes + "junk", out).outcome, Outcome::Loaded);
    for (double bad : {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
        std::string b = bytes;
        b.replace(50 * 10, 8, DoubleBytes(bad));
        const FileStatus st = Decode_Registers(b, out);
        EXPECT_EQ(st.outcome, Outcome::Damaged);
        EXPECT_EQ(st.ErrorNumber, 13);
    }
    // A length that runs past the end of the file.
    std::string b = bytes;
    b[99 * 10 + 8] = char(0xFF);
    b[99 * 10 + 9] = char(0xFF);
    EXPECT_EQ(Decode_Registers(b, out).ErrorNumber, 62);
}

// ---- Data layout ---------------------------------------------------------------------

TEST(DataLayout, BytesOfEachKind) {
    DataList empty;
    DataList text;
    text.kind = DataList::Kind::EmptyText;
    DataList list;
    list.kind = DataList::Kind::List;
    list.Values = {1.0, -2.5};
    EXPECT_EQ(Hex(Encode_Data(empty)), "00 00");
    EXPECT_EQ(Hex(Encode_Data(text)), "08 00 00 00");
    EXPECT_EQ(Hex(Encode_Data(list)),
              "0C 20 01 00 02 00 00 00 00 00 00 00 "
              "05 00 00 00 00 00 00 00 F0 3F "
              "05 00 00 00 00 00 00 00 04 C0");
}

TEST(DataLayout, RoundTripOfEachKind) {
    DataList text;
    text.kind = DataList::Kind::EmptyText;
    for (const DataList& in : {DataList{}, text, SampleData()}) {
        DataList out = SampleData();
        ASSERT_EQ(Decode_Data(Encode_Data(in), out).outcome, Outcome::Loaded);
        EXPECT_EQ(out.kind, in.kind);
        EXPECT_EQ(out.Values, in.Values);
    }
}

TEST(DataLayout, MalformedFiles) {
    const std::string header = Bytes({0x0C, 0x20, 0x01, 0x00});
    const std::string one = Bytes({0x01, 0, 0, 0});
    const std::string zero32 = Bytes({0, 0, 0, 0});
    const std::string item = Bytes({0x05, 0x00}) + DoubleBytes(3.0);
    const struct {
        const char* what;
        std::string bytes;
        int error;  // 0: reads fine
        DataList::Kind kind;
    } cases[] = {
        {"nothing", "", 62, {}},
        {"half a tag", Bytes({0x0C}), 62, {}},
        {"empty", Bytes({0, 0}), 0, DataList::Kind::Empty},
        {"empty text", Bytes({8, 0, 0, 0}), 0, DataList::Kind::EmptyText},
        {"some text", Bytes({8, 0, 2, 0, 'h', 'i'}), 0, DataList::Kind::EmptyText},
        {"text cut short", Bytes({8, 0, 5, 0, 'h', 'i'}), 62, {}},
        {"text without length", Bytes({8, 0}), 62, {}},
        {"a lone number", Bytes({5, 0}) + DoubleBytes(1.0), 13, {}},
        {"unknown tag", Bytes({0x34, 0x12}), 13, {}},
        {"one value", header + one + zero32 + item, 0, DataList::Kind::List},
        {"list of none", header + zero32 + zero32, 0, DataList::Kind::Empty},
        {"two dimensions", Bytes({0x0C, 0x20, 0x02, 0x00}) + one + zero32 + item, 13, {}},
        {"lower bound 1", header + one + one + item, 13, {}},
        {"count past the bytes", header + Bytes({2, 0, 0, 0}) + zero32 + item, 62, {}},
        {"huge count", header + Bytes({0xFF, 0xFF, 0xFF, 0xFF}) + zero32 + item, 62, {}},
        {"header cut short", header + one, 62, {}},
        {"item of another type", header + one + zero32 + Bytes({2, 0}) + DoubleBytes(3.0), 13, {}},
        {"item not a number", header + one + zero32 + Bytes({5, 0}) +
                                  DoubleBytes(std::numeric_limits<double>::quiet_NaN()), 13, {}},
        {"trailing bytes", header + one + zero32 + item + "xyz", 0, DataList::Kind::List},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        DataList out = SampleData();
        const FileStatus st = Decode_Data(c.bytes, out);
        if (c.error == 0) {
            EXPECT_EQ(st.outcome, Outcome::Loaded);
            EXPECT_EQ(out.kind, c.kind);
            if (c.kind == DataList::Kind::List) {
                EXPECT_EQ(out.Values, std::vector<double>{3.0});
            }
        } else {
            EXPECT_EQ(st.outcome, Outcome::Damaged);
            EXPECT_EQ(st.ErrorNumber, c.error);
            EXPECT_EQ(out.Values, SampleData().Values);  // untouched
        }
    }
}

// ---- Files ---------------------------------------------------------------------------

TEST_F(CalcFilesDir, FirstRunFindsNoFileOrAnEmptyOne) {
    const fs::path mem = dir_ / kRegisterFileName;
    const fs::path sdf = dir_ / kDataFileName;
    RegisterArray regs = SampleRegisters();
    DataList data = SampleData();
    EXPECT_EQ(Load_Registers(mem, regs).outcome, Outcome::FirstRun);
    EXPECT_EQ(Load_Data(sdf, data).outcome, Outcome::FirstRun);
    ExpectSameRegisters(regs, RegisterArray{});
    EXPECT_EQ(data.kind, DataList::Kind::Empty);
    EXPECT_EQ(Entries(), 0u);

    WriteAll(mem, "");
    WriteAll(sdf, "");
    regs = SampleRegisters();
    EXPECT_EQ(Load_Registers(mem, regs).outcome, Outcome::FirstRun);
    EXPECT_EQ(Load_Data(sdf, data).outcome, Outcome::FirstRun);
    ExpectSameRegisters(regs, RegisterArray{});
}

TEST_F(CalcFilesDir, SaveWritesTheFormatAndLoadReadsItBack) {
    const fs::path mem = dir_ / "sub" / kRegisterFileName;  // folder made on first write
    const fs::path sdf = dir_ / "sub" / kDataFileName;
    const FileStatus s1 = Save_Registers(mem, SampleRegisters());
    const FileStatus s2 = Save_Data(sdf, SampleData());
    EXPECT_EQ(s1.outcome, Outcome::Saved);
    EXPECT_EQ(s2.outcome, Outcome::Saved);
    EXPECT_FALSE(s1.ShowMessage());
    EXPECT_EQ(ReadAll(mem), Encode_Registers(SampleRegisters()));
    EXPECT_EQ(ReadAll(sdf), Encode_Data(SampleData()));

    RegisterArray regs;
    DataList data;
    EXPECT_EQ(Load_Registers(mem, regs).outcome, Outcome::Loaded);
    EXPECT_EQ(Load_Data(sdf, data).outcome, Outcome::Loaded);
    ExpectSameRegisters(regs, SampleRegisters());
    EXPECT_EQ(data.Values, SampleData().Values);

    // Deleting all rows leaves the empty text, which reads back as no list.
    DataList none;
    none.kind = DataList::Kind::EmptyText;
    ASSERT_EQ(Save_Data(sdf, none).outcome, Outcome::Saved);
    EXPECT_EQ(Load_Data(sdf, data).outcome, Outcome::Loaded);
    EXPECT_FALSE(data.IsList());
    EXPECT_EQ(Entries(dir_ / "sub"), 2u);
}

TEST_F(CalcFilesDir, DamagedFilesAreDeletedWithAWarning) {
    const fs::path mem = dir_ / kRegisterFileName;
    const fs::path sdf = dir_ / kDataFileName;
    WriteAll(mem, Encode_Registers(SampleRegisters()).substr(0, 500));
    WriteAll(sdf, Bytes({0x0C, 0x20, 0x01, 0x00, 9, 0, 0, 0, 0, 0, 0, 0}));

    RegisterArray regs = SampleRegisters();
    const FileStatus st = Load_Registers(mem, regs);
    EXPECT_EQ(st.outcome, Outcome::Damaged);
    EXPECT_TRUE(st.ShowMessage());
    EXPECT_EQ(st.Message(), "Error No. 62:  Input past end of file");
    EXPECT_TRUE(st.FileDeleted);
    EXPECT_FALSE(fs::exists(mem));
    ExpectSameRegisters(regs, RegisterArray{});

    DataList data = SampleData();
    const FileStatus sd = Load_Data(sdf, data);
    EXPECT_EQ(sd.outcome, Outcome::Damaged);
    EXPECT_EQ(sd.ErrorNumber, 62);
    EXPECT_TRUE(sd.FileDeleted);
    EXPECT_FALSE(fs::exists(sdf));
    EXPECT_FALSE(data.IsList());

    // The next start is a first run.
    EXPECT_EQ(Load_Registers(mem, regs).outcome, Outcome::FirstRun);
}

TEST_F(CalcFilesDir, AFileThatCannotBeOpenedIsReportedAndKept) {
    const fs::path mem = dir_ / kRegisterFileName;
    fs::create_directory(mem);
    RegisterArray regs = SampleRegisters();
    const FileStatus st = Load_Registers(mem, regs);
    EXPECT_EQ(st.outcome, Outcome::Unreadable);
    EXPECT_EQ(st.Message(), "Error No. 75:  Path/File access error");
    EXPECT_TRUE(st.ShowMessage());
    EXPECT_FALSE(st.FileDeleted);
    EXPECT_TRUE(fs::is_directory(mem));
    EXPECT_EQ(regs[0].Value, 0.0) << "the calculator starts empty";

    const FileStatus sv = Save_Registers(mem, SampleRegisters());
    EXPECT_EQ(sv.outcome, Outcome::Failed);
    EXPECT_TRUE(sv.ShowMessage());
    EXPECT_TRUE(fs::is_directory(mem));
    EXPECT_EQ(Entries(), 1u);  // no temporary file left behind
}

TEST_F(CalcFilesDir, OversizedFileIsReportedAndSetAside) {
    const fs::path sdf = dir_ / kDataFileName;
    DataList full;
    full.kind = DataList::Kind::List;
    full.Values.assign(kMaxDataValues, 1.5);
    ASSERT_EQ(Save_Data(sdf, full).outcome, Outcome::Saved);
    EXPECT_EQ(fs::file_size(sdf), kDataFileMax);
    full.Values.push_back(2.5);
    const FileStatus over = Save_Data(sdf, full);
    EXPECT_EQ(over.Message(), "Error No. 6:  Overflow");
    EXPECT_EQ(fs::file_size(sdf), kDataFileMax) << "the old file stays";
    DataList back;
    ASSERT_EQ(Load_Data(sdf, back).outcome, Outcome::Loaded);
    EXPECT_EQ(back.Values.size(), kMaxDataValues);

    // Refused from its size alone, reported, and kept under another name.
    fs::resize_file(sdf, kDataFileMax + 1);
    DataList data = SampleData();
    const FileStatus st = Load_Data(sdf, data);
    EXPECT_EQ(st.outcome, Outcome::TooLarge);
    EXPECT_EQ(st.Message(), "Error No. 7:  Out of memory");
    EXPECT_TRUE(st.ShowMessage());
    EXPECT_EQ(st.SetAsideTo, sdf.string() + ".too-large");
    EXPECT_EQ(fs::file_size(st.SetAsideTo), kDataFileMax + 1);
    EXPECT_FALSE(fs::exists(sdf));
    EXPECT_FALSE(data.IsList());
}

}  // namespace
