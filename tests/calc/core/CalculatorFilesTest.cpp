// The register file CalcMem.mem and the statistics file SdfInput.sdf: their
// bytes, the readers' refusals and what load and save do with the files (a
// damaged or unreadable file at start-up, with its warning, is in
// CalculatorSettingsTest).
#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <sstream>

#include "CaseFile.h"
#include "calc/core/CalculatorFiles.h"
#include "support/TempFolder.h"

namespace {

namespace fs = std::filesystem;
using namespace CalculatorFiles;
using Outcome = FileStatus::Outcome;
using Kind = DataList::Kind;

std::string Hex(std::string_view bytes) {
    static const char* d = "0123456789ABCDEF";
    std::string out;
    for (unsigned char c : bytes) out += std::string(out.empty() ? "" : " ") + d[c >> 4] + d[c & 15];
    return out;
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

DataList List(std::vector<double> values) { return {Kind::List, std::move(values)}; }
DataList SampleData() { return List({1.0, -2.5, 0.0, 1e308, -4.9e-324}); }

using CalcFilesDir = testutil::TempFolder;

TEST(CalcFiles, RegisterRecordsByteForByteAndTheirNames) {
    EXPECT_EQ(Register_Name(0) + Register_Name(9) + Register_Name(99), "Reg-001Reg-010Reg-100");
    EXPECT_EQ(Data_Name(0) + Data_Name(98) + Data_Name(99), "Data-01Data-99Data-100");
    RegisterArray r;
    EXPECT_EQ(Encode_Registers(r), std::string(1000, '\0'));
    r[0] = {1.5, "ab"};
    r[1] = {-2.0, "é°"};  // two bytes in the 8-bit code page
    const std::string bytes = Encode_Registers(r);
    ASSERT_EQ(bytes.size(), 1000u + 2 + 2);
    EXPECT_EQ(Hex(bytes.substr(0, 24)), "00 00 00 00 00 00 F8 3F 02 00 61 62 00 00 00 00 00 00 00 C0 02 00 E9 B0");
    EXPECT_EQ(bytes.substr(24), std::string(980, '\0'));

    RegisterArray in;
    in[3].Description = std::string(70000, 'x');  // cut to what the length field holds
    RegisterArray out;
    ASSERT_EQ(Decode_Registers(Encode_Registers(in), out).outcome, Outcome::Loaded);
    EXPECT_EQ(out[3].Description, std::string(65535, 'x'));
}

TEST(CalcFiles, RegisterFilesCutShortOrHoldingNoNumbersAreDamaged) {
    const std::string bytes = Encode_Registers(SampleRegisters());
    for (size_t cut = 0; cut < bytes.size(); ++cut) {
        RegisterArray target = SampleRegisters();
        const FileStatus st = Decode_Registers(std::string_view(bytes).substr(0, cut), target);
        ASSERT_EQ(st.outcome, Outcome::Damaged) << cut;
        ASSERT_EQ(st.ErrorNumber, 62) << cut;
        ASSERT_EQ(target[42].Description, SampleRegisters()[42].Description);  // left alone
    }
    RegisterArray out;
    EXPECT_EQ(Decode_Registers(bytes + "junk", out).outcome, Outcome::Loaded);  // bytes after the last record
    for (double bad : {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()})
        EXPECT_EQ(Decode_Registers(std::string(bytes).replace(12, 8, DoubleBytes(bad)), out).ErrorNumber, 13);
}

TEST(CalcFiles, StatisticsFilesAsTheReaderTakesThem) {
    const int cases =
        calctest::ForEachCase("statistics_files.golden", [](const std::string& hex, const std::string& want) {
            const bool written = hex.rfind("= ", 0) == 0;  // the bytes the writer makes of what is read
            std::string bytes;
            std::istringstream in(hex.substr(written ? 2 : 0));
            for (std::string b; in >> b;) bytes.push_back(char(std::stoi(b, nullptr, 16)));
            DataList out = SampleData();
            const FileStatus st = Decode_Data(bytes, out);
            EXPECT_TRUE(!written || Encode_Data(out) == bytes) << Hex(Encode_Data(out));
            if (st.outcome == Outcome::Damaged) {
                EXPECT_EQ(std::to_string(st.ErrorNumber), want);
                EXPECT_EQ(out.Values, SampleData().Values);  // left alone
            } else if (out.IsList()) {
                std::string values;
                for (double v : out.Values) values += (values.empty() ? "" : ",") + prim::PlainText(v);
                EXPECT_EQ(values, want);
            } else {
                EXPECT_EQ(out.kind == Kind::Empty ? "empty" : "text", want);
            }
        });
    EXPECT_EQ(cases, 20);
}

TEST_F(CalcFilesDir, FirstRunThenSaveAndLoadBack) {
    const fs::path mem = dir_ / "sub" / kRegisterFileName;  // the folder is made on the first save
    const fs::path sdf = dir_ / "sub" / kDataFileName;
    RegisterArray regs = SampleRegisters();
    DataList data = SampleData();
    EXPECT_EQ(Load_Registers(mem, regs).outcome, Outcome::FirstRun);  // no file
    EXPECT_EQ(Load_Data(sdf, data).outcome, Outcome::FirstRun);
    EXPECT_EQ(Encode_Registers(regs), Encode_Registers(RegisterArray{}));  // values and texts
    EXPECT_EQ(data.kind, Kind::Empty);
    EXPECT_EQ(Save_Registers(mem, SampleRegisters()).outcome, Outcome::Saved);
    EXPECT_EQ(Save_Data(sdf, SampleData()).outcome, Outcome::Saved);
    EXPECT_EQ(ReadAll(mem), Encode_Registers(SampleRegisters()));
    EXPECT_EQ(ReadAll(sdf), Encode_Data(SampleData()));
    EXPECT_EQ(Load_Registers(mem, regs).outcome, Outcome::Loaded);
    EXPECT_EQ(Load_Data(sdf, data).outcome, Outcome::Loaded);
    EXPECT_EQ(Encode_Registers(regs), Encode_Registers(SampleRegisters()));  // values and texts
    EXPECT_EQ(data.Values, SampleData().Values);
    // Deleting all rows leaves the empty text, which reads back as no list.
    ASSERT_EQ(Save_Data(sdf, {Kind::EmptyText, {}}).outcome, Outcome::Saved);
    EXPECT_EQ(Load_Data(sdf, data).outcome, Outcome::Loaded);
    EXPECT_EQ(data.kind, Kind::EmptyText);
    EXPECT_EQ(Entries(dir_ / "sub"), 2u);
    WriteAll(mem, "");  // an empty file is a first run too
    EXPECT_EQ(Load_Registers(mem, regs).outcome, Outcome::FirstRun);
    EXPECT_EQ(Encode_Registers(regs), Encode_Registers(RegisterArray{}));  // values and texts
}

TEST_F(CalcFilesDir, OversizedFileIsReportedAndSetAside) {
    const fs::path sdf = dir_ / kDataFileName;
    DataList full = List(std::vector<double>(kMaxDataValues, 1.5));
    ASSERT_EQ(Save_Data(sdf, full).outcome, Outcome::Saved);
    EXPECT_EQ(fs::file_size(sdf), kDataFileMax);
    full.Values.push_back(2.5);
    EXPECT_EQ(Save_Data(sdf, full).Message(), "Error No. 6:  Overflow");
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
