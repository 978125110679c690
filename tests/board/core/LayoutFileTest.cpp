#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

#include "board/core/Dimensions.h"
#include "board/core/LayoutFile.h"
#include "support/BoardTestDoc.h"

using namespace Layout;
using namespace LayoutFile;
using boardtest::P;
namespace fs = std::filesystem;

namespace {

LayoutDocument OneLine() {
    LayoutDocument doc;
    Viewport::Add_Drawn_Line(doc, P(1, 1), P(3, 2));
    return doc;
}

// A document with a bit of everything: zoomed viewport, names outside ASCII,
// a selected line, dimensions of each kind, a placed load.
LayoutDocument Rich() {
    LayoutDocument doc;
    Viewport::Add_Drawn_Line(doc, P(0.5f, 4), P(0.5f, 1));
    Viewport::Add_Drawn_Line(doc, P(0.5f, 1), P(4.25f, 1));
    Viewport::Add_Drawn_Line(doc, P(0.5f, 4), P(4.25f, 2.125f));
    Viewport::Zoom_Factor(doc, 1.05f);
    doc.Lines[1].Selected = -1;
    doc.Lines[2].LineName = "Naht \xC3\xA9 \xE2\x82\xAC \xC2\x81 \xC2\x9D";  // é, €, and two undefined code points
    doc.LineCounter = 7;
    DimensionRec d = boardtest::Dim(0.5f, 4, 0.5f, 1, 0.2f, 2.5f);
    d.DimLength = 3.0;
    doc.Dims[0] = d;
    d.DimType = 2;
    d.DimSpare = 5;
    doc.Dims.push_back(d);
    doc.Load = {1, {6.1f, 2.2f, 0}, 30, 0.75, -1};
    return doc;
}

template <class T>
T At(const std::string& b, size_t off) {
    T v;
    std::memcpy(&v, b.data() + off, sizeof v);
    return v;
}

template <class T>
void Put(std::string& b, size_t off, T v) {
    std::memcpy(b.data() + off, &v, sizeof v);
}

}  // namespace

TEST(WldFormat, OneLineDocumentLayout) {
    const LayoutDocument doc = OneLine();
    const std::string b = Layout_Bytes(doc);
    const size_t nameLen = std::string("Line Number 1").size();
    ASSERT_EQ(b.size(), 84 + (44 + nameLen) + 56);

    EXPECT_EQ(At<double>(b, 16), static_cast<double>(doc.OriginY));  // Y before X
    EXPECT_EQ(At<uint32_t>(b, 34), 1u);                              // a one-dimensional array of 1
    EXPECT_EQ(At<float>(b, 42), 3.0f);                               // EndPt comes first
    EXPECT_EQ(At<int16_t>(b, 72), -1);                               // Exists
    EXPECT_EQ(b.substr(78, nameLen), "Line Number 1");
    EXPECT_EQ(At<int16_t>(b, b.size() - 32), 1);  // LineCounter

    // The name's length is its byte count; the counter survives and numbers the next line.
    LayoutDocument back;
    ASSERT_TRUE(Layout_FromBytes(b, back));
    back.LineCounter = 11;
    ASSERT_TRUE(Layout_FromBytes(Layout_Bytes(back), back));
    Viewport::Add_Drawn_Line(back, P(0, 0), P(0, 1));
    EXPECT_EQ(back.Lines.back().LineName, "Line Number 12");
    EXPECT_EQ(At<uint16_t>(Layout_Bytes(back), 76 + 44 + nameLen), 14);
    EXPECT_EQ(File_Title("C:\\work\\a.wld") + File_Title("/home/u/box.wld") + File_Title("dir\\"), "a.wldbox.wld");
}

TEST(WldFormat, RoundTripsAreByteIdentical) {
    std::vector<std::string> files = {Layout_Bytes(OneLine()), Layout_Bytes(Rich()), Layout_Bytes({})};
    for (const auto& e : fs::directory_iterator(FERROLITH_SOURCE_DIR "/examples"))
        if (e.path().extension() == ".wld")
            files.push_back(
                std::string(std::istreambuf_iterator<char>(std::ifstream(e.path(), std::ios::binary).rdbuf()), {}));
    for (const std::string& b : files) {
        LayoutDocument back;
        ASSERT_TRUE(Layout_FromBytes(b, back));
        EXPECT_EQ(Layout_Bytes(back), b);
    }
    // Every byte value of a name comes back as it was written; in memory a name is UTF-8.
    std::string raw;
    for (int c = 1; c < 256; ++c) raw += static_cast<char>(c);
    std::string b = Layout_Bytes(OneLine());
    b.replace(78, 13, raw);
    Put(b, 76, static_cast<uint16_t>(raw.size()));
    LayoutDocument back;
    ASSERT_TRUE(Layout_FromBytes(b, back));
    EXPECT_EQ(Layout_Bytes(back), b);
    ASSERT_TRUE(Layout_FromBytes(Layout_Bytes(Rich()), back));
    EXPECT_EQ(back.Lines[2].LineName, Rich().Lines[2].LineName);
    // A read replaces only what a file holds: the crossings are rebuilt by
    // the caller, and the saved copies are the caller's.
    back.LinesSaved = back.Lines;
    back.Intersections = {P(9, 9)};
    ASSERT_TRUE(Layout_FromBytes(Layout_Bytes(OneLine()), back));
    EXPECT_TRUE(back.Lines.size() == 1 && Dimensions::Dims_Empty(back.Dims) && back.ZoomScale == 1.0f);
    EXPECT_TRUE(back.Intersections[0].X == 9.0f && back.LinesSaved.size() == 3u);
}

TEST(WldFormat, BadFilesLeaveTheDocumentAlone) {
    const std::string good = Layout_Bytes(Rich());
    const size_t dimHeader = good.size() - 32 - 2 * 56 - 10;
    struct Case {
        const char* what;
        std::string bytes;
    };
    std::vector<Case> cases;
    auto patched = [&](const char* what, size_t off, auto v) {
        std::string b = good;
        Put(b, off, v);
        cases.push_back({what, b});
    };
    patched("absurd line count", 34, uint32_t{0xFFFFFFFF});
    patched("line count past the end", 34, uint32_t{4});
    patched("two-dimensional table", 32, uint16_t{2});
    patched("lower bound 1", 38, int32_t{1});
    patched("absurd dimension count", dimHeader + 2, uint32_t{0x7FFFFFFF});
    patched("name longer than the file", 76, uint16_t{0xFFFF});
    patched("viewport beyond a single", 0, 1e300);
    patched("viewport not a number", 8, std::numeric_limits<double>::quiet_NaN());
    patched("line end not a number", 42, std::numeric_limits<float>::quiet_NaN());
    patched("load angle not a number", good.size() - 18, std::numeric_limits<double>::quiet_NaN());
    patched("eccentricity infinite", good.size() - 10, std::numeric_limits<double>::infinity());
    // Values no input of the program takes, whose arithmetic overflows or gives a wrong capacity.
    patched("eccentricity whose inches overflow", good.size() - 10, 1e308);
    patched("eccentricity beyond a single", good.size() - 10, -1e307);
    patched("load angle beyond a single", good.size() - 18, 1e39);
    patched("zoom base other than 1", 0, 2.0);
    patched("zoom below 0", 8, -1.05);
    patched("line length beyond any two points", 91, 1e300);
    patched("origin far off the drawing", 24, -3e38);
    Put(cases.back().bytes, 42, 3e38f);  // ... and a point on its far side: its world X overflows

    LayoutDocument doc = OneLine();
    const std::string before = Layout_Bytes(doc);
    for (const Case& c : cases) {
        EXPECT_FALSE(Layout_FromBytes(c.bytes, doc)) << c.what;
        EXPECT_EQ(Layout_Bytes(doc), before) << c.what;
    }
    // Every shorter prefix of a good file fails, the empty file too.
    for (size_t n = 0; n < good.size(); ++n) ASSERT_FALSE(Layout_FromBytes(good.substr(0, n), doc)) << n;
    // Bytes after the load are ignored.
    EXPECT_TRUE(Layout_FromBytes(good + "trailing", doc));
}

TEST(WldFormat, TablesStoredWithoutRowsComeBackBlank) {
    // A file cannot be made so by the program, but a table must never lose its
    // last row: zero rows read as the blank table.
    std::string b =
        std::string(32, '\0') + std::string("\x01\0\0\0\0\0\0\0\0\0\x01\0\0\0\0\0\0\0\0\0", 20) + std::string(32, '\0');
    Put(b, 0, 1.0);
    Put(b, 8, 1.0);
    LayoutDocument doc = Rich();
    ASSERT_TRUE(Layout_FromBytes(b, doc));
    EXPECT_TRUE(doc.Lines.size() == 1u && Viewport::Lines_Empty(doc.Lines) && Dimensions::Dims_Empty(doc.Dims));
}

TEST(WldFile, LargestLayoutIsReadAndALongerFileIsRefusedFromItsSize) {
    const fs::path dir = fs::temp_directory_path() / ("ferrolith-board-" + std::to_string(::getpid()));
    fs::create_directories(dir);
    const std::string path = (dir / "full.wld").string();
    LayoutDocument doc;
    doc.Lines.assign(Layout::kMaxTableRows, LineRec{});
    doc.Dims.assign(Layout::kMaxTableRows, DimensionRec{});
    for (LineRec& line : doc.Lines) line.LineName = "Line Number -32768";
    doc.LineCounter = 32767;
    ASSERT_EQ(Write_Layout(doc, path).Number, 0);
    EXPECT_EQ(fs::file_size(path), Layout_MaxFileBytes());
    LayoutDocument back;
    ASSERT_TRUE(Read_Layout(back, path) && back.Lines.size() == Layout::kMaxTableRows);
    // A good layout with bytes after it reads; past the cap it is refused.
    ASSERT_EQ(Write_Layout(OneLine(), path).Number, 0);
    fs::resize_file(path, Layout_MaxFileBytes());
    EXPECT_TRUE(Read_Layout(back, path));
    fs::resize_file(path, Layout_MaxFileBytes() + 1);
    EXPECT_FALSE(Read_Layout(back, path));
    fs::remove_all(dir);
}

TEST(ChangeTest, OnlyRowCountsAndTheLastRowCount) {
    LayoutDocument doc;
    Viewport::Add_Drawn_Line(doc, P(1, 1), P(2, 1));
    Viewport::Add_Drawn_Line(doc, P(1, 1), P(1, 3));
    doc.Dims[0] = boardtest::Dim(1, 1, 2, 1, 1.5f, 0.5f);
    doc.LinesSaved = doc.Lines;
    doc.DimsSaved = doc.Dims;
    EXPECT_FALSE(Layout_Changed(doc));

    // Only the last row of each table counts, the Y of DimP2, the lengths
    // and the selection are left out; a pan moves the last row.
    const std::pair<std::function<void(LayoutDocument&)>, bool> cases[] = {
        {[](LayoutDocument& t) { t.Lines[0].StartPt.X = 0.25f; }, false},
        {[](LayoutDocument& t) { t.Lines[1].EndPt.Y = 4.0f; }, true},
        {[](LayoutDocument& t) { t.Lines.pop_back(); }, true},
        {[](LayoutDocument& t) { t.Dims[0].DimP2.Y = 9.0f; }, false},
        {[](LayoutDocument& t) { t.Dims[0].DimP2.X = 9.0f; }, true},
        {[](LayoutDocument& t) { t.Dims[0].DimType = 1; }, true},
        {[](LayoutDocument& t) { t.Dims[0].DimLength = t.Lines[1].Length = 42, t.Lines[1].Selected = -1; }, false},
        {[](LayoutDocument& t) { Viewport::Pan_Board(t, 0.5, 0.0); }, true},
    };
    for (size_t i = 0; i < std::size(cases); ++i) {
        LayoutDocument t = doc;
        cases[i].first(t);
        EXPECT_EQ(Layout_Changed(t), cases[i].second) << i;
    }
}
