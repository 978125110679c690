#include "board/core/DxfFile.h"

#include <dl_creationadapter.h>
#include <dl_dxf.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <istream>
#include <map>
#include <memory>
#include <streambuf>
#include <unistd.h>

#include "shell/core/Primitives.h"

namespace Dxf {

namespace {

struct UnitInfo {
    Units units;
    const char* word;
    double inches;
};
constexpr UnitInfo kUnits[] = {
    {Units::Inches, "in", 1.0},         {Units::Feet, "ft", 12.0},         {Units::Millimetres, "mm", 1 / 25.4},
    {Units::Centimetres, "cm", 1 / 2.54}, {Units::Metres, "m", 1 / 0.0254},
};

// $INSUNITS codes of the units the board takes.
Units UnitsOfCode(int code) {
    switch (code) {
        case 0: return Units::Unitless;
        case 1: return Units::Inches;
        case 2: return Units::Feet;
        case 4: return Units::Millimetres;
        case 5: return Units::Centimetres;
        case 6: return Units::Metres;
        default: return Units::Other;
    }
}

// Hands the file to the library in blocks, keeps its first and last bytes for
// the checks of a DXF file's frame, reports progress and stops (an early end
// of file for the library) when the reader cancels.
class ProgressBuffer : public std::streambuf {
public:
    ProgressBuffer(std::FILE* file, long size, const std::function<bool(double)>& progress)
        : file_(file), size_(size), progress_(progress), block_(1 << 16) {}

    bool cancelled = false;
    std::string head;  // the first bytes of the file
    std::string tail;  // the last bytes read

protected:
    int_type underflow() override {
        if (gptr() < egptr()) return traits_type::to_int_type(*gptr());
        if (cancelled) return traits_type::eof();
        const size_t n = std::fread(block_.data(), 1, block_.size(), file_);
        if (n == 0) return traits_type::eof();
        read_ += static_cast<long>(n);
        if (head.size() < kKeep) head.append(block_.data(), std::min(n, kKeep - head.size()));
        tail.append(block_.data() + (n > kKeep ? n - kKeep : 0), std::min(n, kKeep));
        if (tail.size() > kKeep) tail.erase(0, tail.size() - kKeep);
        if (progress_ && !progress_(size_ > 0 ? static_cast<double>(read_) / static_cast<double>(size_) : 1.0)) {
            cancelled = true;
            return traits_type::eof();
        }
        setg(block_.data(), block_.data(), block_.data() + n);
        return traits_type::to_int_type(*gptr());
    }

private:
    static constexpr size_t kKeep = 512;
    std::FILE* file_;
    long size_;
    long read_ = 0;
    const std::function<bool(double)>& progress_;
    std::vector<char> block_;
};

// The group code and value lines of a piece of DXF text, trimmed.
std::vector<std::string> TrimmedLines(const std::string& text) {
    std::vector<std::string> lines;
    size_t start = 0;
    while (start < text.size()) {
        size_t end = text.find('\n', start);
        if (end == std::string::npos) end = text.size();
        std::string line = text.substr(start, end - start);
        const size_t a = line.find_first_not_of(" \t\r");
        const size_t b = line.find_last_not_of(" \t\r");
        lines.push_back(a == std::string::npos ? std::string() : line.substr(a, b - a + 1));
        start = end + 1;
    }
    return lines;
}

// A DXF file opens with a section, after any comments (group 999).
bool LooksLikeDxf(const std::string& head) {
    const std::vector<std::string> lines = TrimmedLines(head);
    for (size_t i = 0; i + 1 < lines.size(); i += 2) {
        if (lines[i] == "999") continue;
        return lines[i] == "0" && lines[i + 1] == "SECTION";
    }
    return false;
}

// ... and closes with the EOF group.
bool EndsWithEof(const std::string& tail) {
    std::vector<std::string> lines = TrimmedLines(tail);
    while (!lines.empty() && lines.back().empty()) lines.pop_back();
    return lines.size() >= 2 && lines[lines.size() - 2] == "0" && lines.back() == "EOF";
}

// Collects the straight segments of model space. Entities inside block
// definitions belong to the blocks, which are counted where they are inserted.
class Collector : public DL_CreationAdapter {
public:
    explicit Collector(Drawing& d) : d_(d) {}

    void addBlock(const DL_BlockData&) override {
        FinishPolyline();
        inBlock_ = true;
    }
    void endBlock() override { inBlock_ = false; }
    void addLine(const DL_LineData& l) override {
        FinishPolyline();
        if (!inBlock_) d_.Segments.push_back({l.x1, l.y1, l.x2, l.y2, LayerIndex()});
    }
    void addPolyline(const DL_PolylineData& p) override {
        FinishPolyline();
        if (inBlock_) return;
        // Meshes (flags 16 and 64) are surfaces, not lines.
        if (p.flags & (16 | 64)) {
            ++d_.Skipped;
            return;
        }
        inPolyline_ = true;
        closed_ = (p.flags & 1) != 0;
        expected_ = p.number;
        layer_ = LayerIndex();
        vertices_.clear();
    }
    void addVertex(const DL_VertexData& v) override {
        if (!inPolyline_) return;
        vertices_.push_back(v);
        if (expected_ > 0 && vertices_.size() == expected_) FinishPolyline();
    }
    void endSequence() override { FinishPolyline(); }
    void setVariableInt(const std::string& key, int value, int) override {
        if (key == "$INSUNITS") d_.units = UnitsOfCode(value);
    }
    void setVariableString(const std::string& key, const std::string& value, int) override {
        // Before AutoCAD 2007 (AC1021) the texts of a drawing are in its code page.
        if (key == "$ACADVER") unicode_ = value >= "AC1021";
    }
    // Layer names as UTF-8.
    void FinishNames() {
        if (unicode_) return;
        for (std::string& name : d_.Layers) name = prim::FromCp1252(name);
    }

    // Everything else that is drawn is counted as skipped.
    void addPoint(const DL_PointData&) override { Skip(); }
    void addXLine(const DL_XLineData&) override { Skip(); }
    void addRay(const DL_RayData&) override { Skip(); }
    void addArc(const DL_ArcData&) override { Skip(); }
    void addCircle(const DL_CircleData&) override { Skip(); }
    void addEllipse(const DL_EllipseData&) override { Skip(); }
    void addSpline(const DL_SplineData&) override { Skip(); }
    void addInsert(const DL_InsertData&) override { Skip(); }
    void addTrace(const DL_TraceData&) override { Skip(); }
    void add3dFace(const DL_3dFaceData&) override { Skip(); }
    void addSolid(const DL_SolidData&) override { Skip(); }
    void addMText(const DL_MTextData&) override { Skip(); }
    void addText(const DL_TextData&) override { Skip(); }
    void addDimAlign(const DL_DimensionData&, const DL_DimAlignedData&) override { Skip(); }
    void addDimLinear(const DL_DimensionData&, const DL_DimLinearData&) override { Skip(); }
    void addDimRadial(const DL_DimensionData&, const DL_DimRadialData&) override { Skip(); }
    void addDimDiametric(const DL_DimensionData&, const DL_DimDiametricData&) override { Skip(); }
    void addDimAngular(const DL_DimensionData&, const DL_DimAngular2LData&) override { Skip(); }
    void addDimAngular3P(const DL_DimensionData&, const DL_DimAngular3PData&) override { Skip(); }
    void addDimOrdinate(const DL_DimensionData&, const DL_DimOrdinateData&) override { Skip(); }
    void addLeader(const DL_LeaderData&) override { Skip(); }
    void addHatch(const DL_HatchData&) override { Skip(); }
    void addImage(const DL_ImageData&) override { Skip(); }

    void FinishPolyline() {
        if (!inPolyline_) return;
        inPolyline_ = false;
        const size_t n = vertices_.size();
        const size_t pieces = closed_ && n > 2 ? n : (n > 0 ? n - 1 : 0);
        for (size_t i = 0; i < pieces; ++i) {
            const DL_VertexData& a = vertices_[i];
            const DL_VertexData& b = vertices_[(i + 1) % n];
            // A bulge makes the piece an arc.
            if (a.bulge != 0.0)
                ++d_.Skipped;
            else
                d_.Segments.push_back({a.x, a.y, b.x, b.y, layer_});
        }
    }

private:
    void Skip() {
        FinishPolyline();
        if (!inBlock_) ++d_.Skipped;
    }
    int32_t LayerIndex() {
        const std::string& name = attributes.getLayer();
        const auto found = index_.find(name);
        if (found != index_.end()) return found->second;
        d_.Layers.push_back(name);
        const auto i = static_cast<int32_t>(d_.Layers.size() - 1);
        index_.emplace(name, i);
        return i;
    }

    Drawing& d_;
    std::map<std::string, int32_t> index_;
    bool inBlock_ = false;
    bool unicode_ = false;
    bool inPolyline_ = false;
    bool closed_ = false;
    unsigned expected_ = 0;
    int32_t layer_ = 0;
    std::vector<DL_VertexData> vertices_;
};

}  // namespace

double InchesPer(Units units) {
    for (const UnitInfo& u : kUnits)
        if (u.units == units) return u.inches;
    return 1.0;
}

const char* UnitWord(Units units) {
    for (const UnitInfo& u : kUnits)
        if (u.units == units) return u.word;
    return "";
}

bool ParseUnitWord(const std::string& word, Units& units) {
    for (const UnitInfo& u : kUnits)
        if (word == u.word) {
            units = u.units;
            return true;
        }
    return false;
}

ReadError Read(const std::string& path, Drawing& drawing, const std::function<bool(double)>& progress) {
    drawing = Drawing{};
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"), &std::fclose);
    if (!file) return ReadError::CannotOpen;
    long size = 0;
    if (std::fseek(file.get(), 0, SEEK_END) == 0) size = std::ftell(file.get());
    std::rewind(file.get());
    return Read(file.get(), size, drawing, progress);
}

ReadError Read(std::FILE* file, long size, Drawing& drawing, const std::function<bool(double)>& progress) {
    drawing = Drawing{};
    ProgressBuffer buffer(file, size, progress);
    std::istream in(&buffer);
    // The frame first: a file that does not open as DXF is not handed on.
    if (in.peek() == std::char_traits<char>::eof() && buffer.cancelled) return ReadError::Cancelled;
    if (!LooksLikeDxf(buffer.head)) return ReadError::NotDxf;
    Collector collector(drawing);
    DL_Dxf dxf;
    dxf.in(in, &collector);
    collector.FinishPolyline();
    collector.FinishNames();
    if (buffer.cancelled) return ReadError::Cancelled;
    if (!EndsWithEof(buffer.tail)) return ReadError::CutShort;
    return ReadError::None;
}

std::string ErrorText(ReadError error, const std::string& path) {
    switch (error) {
        case ReadError::None: return {};
        case ReadError::CannotOpen: return "cannot open " + path;
        case ReadError::NotDxf: return path + " is not a DXF drawing (DXF text starts with a SECTION)";
        case ReadError::CutShort: return path + " is cut short: the drawing has no end of file";
        case ReadError::Cancelled: return "the import of " + path + " was cancelled";
    }
    return {};
}

// ---- Writing -----------------------------------------------------------------------

std::string Write(const Output& output) {
    // The library writes to a file of its own naming; the bytes are read
    // back so that the caller writes them to their place in one step.
    char name[] = "/tmp/ferrolith-dxf-XXXXXX";
    const int fd = mkstemp(name);
    if (fd < 0) return {};
    close(fd);
    {
        DL_Dxf dxf;
        std::unique_ptr<DL_WriterA> dw(dxf.out(name, DL_Codes::AC1015));
        if (!dw) {
            std::remove(name);
            return {};
        }
        dxf.writeHeader(*dw);
        dw->dxfString(9, "$INSUNITS");
        dw->dxfInt(70, 1);
        dw->dxfString(9, "$DWGCODEPAGE");
        dw->dxfString(3, "ANSI_1252");
        dw->sectionEnd();

        dw->sectionTables();
        dxf.writeVPort(*dw);
        dw->tableLinetypes(3);
        dxf.writeLinetype(*dw, DL_LinetypeData("BYBLOCK", "", 0, 0, 0.0));
        dxf.writeLinetype(*dw, DL_LinetypeData("BYLAYER", "", 0, 0, 0.0));
        dxf.writeLinetype(*dw, DL_LinetypeData("CONTINUOUS", "Continuous", 0, 0, 0.0));
        dw->tableEnd();
        dw->tableLayers(static_cast<int>(output.Layers.size()) + 1);
        dxf.writeLayer(*dw, DL_LayerData("0", 0), DL_Attributes("", 7, 100, "CONTINUOUS", 1.0));
        for (const Layer& l : output.Layers)
            dxf.writeLayer(*dw, DL_LayerData(l.name, 0), DL_Attributes("", l.colour, 100, "CONTINUOUS", 1.0));
        dw->tableEnd();
        dw->tableStyle(1);
        dxf.writeStyle(*dw, DL_StyleData("standard", 0, 0.0, 1.0, 0.0, 0, 2.5, "txt", ""));
        dw->tableEnd();
        dxf.writeView(*dw);
        dxf.writeUcs(*dw);
        dw->tableAppid(1);
        dxf.writeAppid(*dw, "ACAD");
        dw->tableEnd();
        dxf.writeDimStyle(*dw, 1, 1, 1, 1, 1);
        dxf.writeBlockRecord(*dw);
        dw->tableEnd();
        dw->sectionEnd();

        dw->sectionBlocks();
        for (const char* block : {"*Model_Space", "*Paper_Space", "*Paper_Space0"}) {
            dxf.writeBlock(*dw, DL_BlockData(block, 0, 0.0, 0.0, 0.0));
            dxf.writeEndBlock(*dw, block);
        }
        dw->sectionEnd();

        dw->sectionEntities();
        for (const Line& l : output.Lines)
            dxf.writeLine(*dw, DL_LineData(l.x1, l.y1, 0.0, l.x2, l.y2, 0.0),
                          DL_Attributes(l.layer, 256, -1, "BYLAYER", 1.0));
        for (const Circle& c : output.Circles)
            dxf.writeCircle(*dw, DL_CircleData(c.x, c.y, 0.0, c.radius), DL_Attributes(c.layer, 256, -1, "BYLAYER", 1.0));
        for (const Text& t : output.Texts)
            // Texts of this format are in the drawing's code page, Windows-1252.
            dxf.writeText(*dw,
                          DL_TextData(t.x, t.y, 0.0, t.x, t.y, 0.0, t.height, 1.0, 0, 0, 0, prim::ToCp1252(t.text),
                                      "standard", t.angle),
                          DL_Attributes(t.layer, 256, -1, "BYLAYER", 1.0));
        dw->sectionEnd();
        dxf.writeObjects(*dw);
        dxf.writeObjectsEnd(*dw);
        dw->dxfEOF();
        dw->close();
    }
    std::ifstream in(name, std::ios::binary);
    std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    std::remove(name);
    return bytes;
}

}  // namespace Dxf
