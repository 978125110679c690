#include "board/core/LayoutFile.h"

#include <sys/stat.h>

#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "board/core/Viewport.h"
#include "shell/core/Primitives.h"

namespace LayoutFile {

using Layout::DimensionRec;
using Layout::LineRec;
using Layout::LoadRec;
using Layout::PointRec;

namespace {

constexpr size_t kHeaderBytes = 10;
constexpr size_t kLineFixedBytes = 44;  // a line entry without its name
constexpr size_t kDimBytes = 56;
constexpr size_t kLoadBytes = 30;
constexpr size_t kViewportBytes = 32;
constexpr size_t kMaxNameBytes = 0xFFFF;
// The longest name the program gives a line: "Line Number " and a 16-bit
// counter plus one, sign included.
constexpr size_t kLongestLineName = 12 + 6;
// Two points whose world coordinates are singles lie at most 2 sqrt(2) times
// the largest single apart.
constexpr double kMaxWorldDistance = 3.0 * FLT_MAX;

// ---- Writing --------------------------------------------------------------------

class Writer {
public:
    template <class T>
    void Put(T v) {
        unsigned char b[sizeof(T)];
        std::memcpy(b, &v, sizeof(T));  // the host is little-endian, as the file
        out_.append(reinterpret_cast<const char*>(b), sizeof(T));
    }
    void Bytes(std::string_view s) { out_.append(s); }
    void Point(const PointRec& p) {
        Put(p.X);
        Put(p.Y);
        Put(p.Flag);
    }
    void Header(size_t rows) {
        Put<uint16_t>(1);
        Put<uint32_t>(static_cast<uint32_t>(rows));
        Put<int32_t>(0);
    }
    std::string Take() { return std::move(out_); }

private:
    std::string out_;
};

// ---- Reading --------------------------------------------------------------------

class Reader {
public:
    explicit Reader(std::string_view b) : b_(b) {}
    size_t Left() const { return b_.size() - pos_; }
    template <class T>
    bool Get(T& v) {
        if (Left() < sizeof(T)) return false;
        std::memcpy(&v, b_.data() + pos_, sizeof(T));
        pos_ += sizeof(T);
        // The program never writes a value that is not a number or infinite;
        // such bytes are damage, and would reach the solver and the boxes.
        if constexpr (std::is_floating_point_v<T>)
            if (!std::isfinite(v)) return false;
        return true;
    }
    bool Bytes(size_t n, std::string& s) {
        if (Left() < n) return false;
        s.assign(b_.data() + pos_, n);
        pos_ += n;
        return true;
    }
    bool Point(PointRec& p) { return Get(p.X) && Get(p.Y) && Get(p.Flag); }
    // A table header; rows is checked against the bytes left, each row taking
    // at least minRowBytes.
    bool Header(size_t minRowBytes, uint32_t& rows) {
        uint16_t dims = 0;
        int32_t lower = 0;
        if (!Get(dims) || !Get(rows) || !Get(lower)) return false;
        if (dims != 1 || lower != 0) return false;
        if (rows > Layout::kMaxTableRows) return false;
        return static_cast<uint64_t>(rows) * minRowBytes <= Left();
    }

private:
    std::string_view b_;
    size_t pos_ = 0;
};

// Values the program never writes, and that would turn into wrong numbers on
// the way to the solver: a view that is not the program's (ZoomBase is always
// 1, the zoom never below 0), a point whose world coordinates overflow a
// single, a length longer than any two such points lie apart, a load beyond
// the range its inputs take.
bool ValuesInRange(const LayoutDocument& in) {
    using Viewport::World_Fits;
    if (in.ZoomBase != 1.0f || !(in.ZoomScale >= 0.0f)) return false;
    const auto lengthOk = [](double v) { return v >= 0.0 && v <= kMaxWorldDistance; };
    for (const LineRec& l : in.Lines)
        if (!World_Fits(in, l.EndPt) || !World_Fits(in, l.StartPt) || !World_Fits(in, l.MidPt) || !lengthOk(l.Length))
            return false;
    for (const DimensionRec& d : in.Dims)
        if (!World_Fits(in, d.DimP1) || !World_Fits(in, d.DimP2) || !World_Fits(in, d.DimMid) ||
            !World_Fits(in, d.DimPos) || !lengthOk(d.DimLength))
            return false;
    const LoadRec& load = in.Load;
    return World_Fits(in, load.LoadPoint) && std::fabs(load.LoadAngle) <= Layout::kMaxLoadValue &&
           std::fabs(load.LoadEccentricity) <= Layout::kMaxLoadValue;
}

bool ViewportValue(Reader& r, float& out) {
    double d = 0.0;
    if (!r.Get(d)) return false;
    const float f = static_cast<float>(d);
    if (!std::isfinite(d) || !std::isfinite(f)) return false;  // no single holds it
    out = f;
    return true;
}

}  // namespace

std::string Layout_Bytes(const LayoutDocument& doc) {
    Writer w;
    w.Put(static_cast<double>(doc.ZoomBase));
    w.Put(static_cast<double>(doc.ZoomScale));
    w.Put(static_cast<double>(doc.OriginY));
    w.Put(static_cast<double>(doc.OriginX));

    w.Header(doc.Lines.size());
    for (const LineRec& l : doc.Lines) {
        w.Point(l.EndPt);
        w.Point(l.StartPt);
        w.Point(l.MidPt);
        w.Put(l.Exists);
        w.Put(l.Selected);
        std::string name = prim::ToCp1252(l.LineName);
        if (name.size() > kMaxNameBytes) name.resize(kMaxNameBytes);
        w.Put(static_cast<uint16_t>(name.size()));
        w.Bytes(name);
        w.Put(l.Length);
    }

    w.Header(doc.Dims.size());
    for (const DimensionRec& d : doc.Dims) {
        w.Point(d.DimP1);
        w.Point(d.DimP2);
        w.Point(d.DimMid);
        w.Point(d.DimPos);
        w.Put(d.DimType);
        w.Put(d.DimDone);
        w.Put(d.DimLength);
        w.Put(d.Exists);
        w.Put(d.DimSpare);
    }

    w.Put(doc.LineCounter);
    w.Put(doc.Load.LoadSide);
    w.Point(doc.Load.LoadPoint);
    w.Put(doc.Load.LoadAngle);
    w.Put(doc.Load.LoadEccentricity);
    w.Put(doc.Load.LoadPlaced);
    return w.Take();
}

bool Layout_FromBytes(std::string_view bytes, LayoutDocument& doc) {
    Reader r(bytes);
    LayoutDocument in;
    if (!ViewportValue(r, in.ZoomBase) || !ViewportValue(r, in.ZoomScale) || !ViewportValue(r, in.OriginY) ||
        !ViewportValue(r, in.OriginX))
        return false;

    // Every table must keep a row: the minimum bytes of what follows each table
    // are reserved so that a count cannot run past the end of the file.
    uint32_t n = 0;
    if (!r.Header(kLineFixedBytes, n)) return false;
    in.Lines.assign(n, LineRec{});
    for (LineRec& l : in.Lines) {
        uint16_t len = 0;
        std::string raw;
        if (!r.Point(l.EndPt) || !r.Point(l.StartPt) || !r.Point(l.MidPt) || !r.Get(l.Exists) ||
            !r.Get(l.Selected) || !r.Get(len) || !r.Bytes(len, raw) || !r.Get(l.Length))
            return false;
        l.LineName = prim::FromCp1252(raw);
    }

    uint32_t m = 0;
    if (!r.Header(kDimBytes, m)) return false;
    in.Dims.assign(m, DimensionRec{});
    for (DimensionRec& d : in.Dims) {
        if (!r.Point(d.DimP1) || !r.Point(d.DimP2) || !r.Point(d.DimMid) || !r.Point(d.DimPos) ||
            !r.Get(d.DimType) || !r.Get(d.DimDone) || !r.Get(d.DimLength) || !r.Get(d.Exists) ||
            !r.Get(d.DimSpare))
            return false;
    }

    LoadRec& load = in.Load;
    if (!r.Get(in.LineCounter) || !r.Get(load.LoadSide) || !r.Point(load.LoadPoint) || !r.Get(load.LoadAngle) ||
        !r.Get(load.LoadEccentricity) || !r.Get(load.LoadPlaced))
        return false;
    // Bytes after the load belong to no field and are ignored.

    if (!ValuesInRange(in)) return false;

    // A table stored without rows comes back as a blank table.
    if (in.Lines.empty()) in.Lines = Layout::BlankLines();
    if (in.Dims.empty()) in.Dims = Layout::BlankDims();

    doc.ZoomBase = in.ZoomBase;
    doc.ZoomScale = in.ZoomScale;
    doc.OriginY = in.OriginY;
    doc.OriginX = in.OriginX;
    doc.Dims = std::move(in.Dims);
    doc.Lines = std::move(in.Lines);
    doc.LineCounter = in.LineCounter;
    doc.Load = in.Load;
    return true;
}

FileError Write_Layout(const LayoutDocument& doc, const std::string& path) {
    return fileio::WriteReplacing(path, Layout_Bytes(doc));
}

size_t Layout_MaxFileBytes() {
    return kViewportBytes + 2 * kHeaderBytes + 2 + kLoadBytes +
           Layout::kMaxTableRows * (kLineFixedBytes + kLongestLineName + kDimBytes);
}

std::string LayoutRead::Cause() const {
    switch (Failure) {
        case ReadFailure::None: return "";
        case ReadFailure::Missing: return "no such file";
        case ReadFailure::NoPermission: return "no permission";
        case ReadFailure::NotRegular: return "not a regular file";
        case ReadFailure::Unreadable: return "unreadable (" + prim::LCase(Error.Description) + ")";
        case ReadFailure::TooLarge: return "too large";
        case ReadFailure::Empty: return "empty";
        case ReadFailure::Damaged: return "damaged";
    }
    return "";
}

LayoutRead Read_Layout_Checked(LayoutDocument& doc, const std::string& path) {
    std::string bytes;
    LayoutRead r;
    switch (fileio::ReadWhole(path, Layout_MaxFileBytes(), bytes, r.Error)) {
        case fileio::ReadOutcome::Read: break;
        case fileio::ReadOutcome::Missing: r.Failure = ReadFailure::Missing; return r;
        case fileio::ReadOutcome::TooLarge: r.Failure = ReadFailure::TooLarge; return r;
        case fileio::ReadOutcome::Unreadable: {
            struct stat st {};
            if (r.Error.Number == fileio::kErrPermission)
                r.Failure = ReadFailure::NoPermission;
            else if (::stat(path.c_str(), &st) == 0 && !S_ISREG(st.st_mode))
                r.Failure = ReadFailure::NotRegular;
            else
                r.Failure = ReadFailure::Unreadable;
            return r;
        }
    }
    if (bytes.empty())
        r.Failure = ReadFailure::Empty;
    else if (!Layout_FromBytes(bytes, doc))
        r.Failure = ReadFailure::Damaged;
    return r;
}

bool Read_Layout(LayoutDocument& doc, const std::string& path) { return Read_Layout_Checked(doc, path).Ok(); }

std::string File_Title(const std::string& path) {
    const size_t p = path.find_last_of("/\\");
    return p == std::string::npos ? path : path.substr(p + 1);
}

// ---- Change test -------------------------------------------------------------------

namespace {

bool WorldDiffers(const LayoutDocument& doc, const PointRec& p, const PointRec& q, bool compareY = true) {
    using Viewport::To_WorldX;
    using Viewport::To_WorldY;
    const bool dx = To_WorldX(doc, p.X) != To_WorldX(doc, q.X);
    const bool dy = To_WorldY(doc, p.Y) != To_WorldY(doc, q.Y);
    return dx || (compareY && dy);
}

}  // namespace

bool Lines_Differ(const LayoutDocument& doc, const LineTable& a, const LineTable& b) {
    if (a.size() != b.size()) return true;
    if (a.empty()) return false;
    bool differ = false;
    for (size_t i = 0; i < a.size(); ++i) {
        // Each row's answer replaces the one before: only the last row counts.
        differ = WorldDiffers(doc, a[i].StartPt, b[i].StartPt) || WorldDiffers(doc, a[i].MidPt, b[i].MidPt) ||
                 WorldDiffers(doc, a[i].EndPt, b[i].EndPt);
    }
    return differ;
}

bool Dims_Differ(const LayoutDocument& doc, const DimTable& a, const DimTable& b) {
    if (a.size() != b.size()) return true;
    if (a.empty()) return false;
    bool differ = false;
    for (size_t i = 0; i < a.size(); ++i) {
        // The Y of DimP2 is not part of the comparison.
        differ = WorldDiffers(doc, a[i].DimPos, b[i].DimPos) || WorldDiffers(doc, a[i].DimMid, b[i].DimMid) ||
                 WorldDiffers(doc, a[i].DimP1, b[i].DimP1) || WorldDiffers(doc, a[i].DimP2, b[i].DimP2, false) ||
                 a[i].DimType != b[i].DimType;
    }
    return differ;
}

bool Layout_Changed(const LayoutDocument& doc) {
    return Lines_Differ(doc, doc.Lines, doc.LinesSaved) || Dims_Differ(doc, doc.Dims, doc.DimsSaved);
}

}  // namespace LayoutFile
