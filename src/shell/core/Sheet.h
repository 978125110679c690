// A calculation sheet as the tools hand it in: a title block, figures drawn
// to scale, and sections of labelled values, tables and plain text. The
// tools fill it in their own words and numbers (the digits their windows
// show); shell/print lays it out on pages, the same for PDF and paper.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace sheet {

struct TitleBlock {
    std::string Project, JobNumber, Engineer, Checker, Date, Title;
};

// A drawing in its own inches, Y up, fitted to its frame at a stated scale.
// Lines and arrows keep their width on paper; texts are set in points.
struct Figure {
    enum class Align { Left, Centre, Right };
    struct Line {
        double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
        uint32_t rgb = 0;
        double widthPt = 0.8;
        bool dashed = false;
        bool arrow = false;  // a head at (x2, y2)
    };
    struct Circle {
        double x = 0, y = 0, radiusPt = 3;  // the radius on paper
        uint32_t rgb = 0;
        bool filled = false;
    };
    struct Label {
        double x = 0, y = 0;
        std::string text;
        uint32_t rgb = 0;
        Align align = Align::Left;
        double dxPt = 0, dyPt = 0;  // offset on paper, points, y down
    };
    std::string Caption;
    std::vector<Line> Lines;
    std::vector<Circle> Circles;
    std::vector<Label> Labels;
};

struct Row {
    std::string Label, Value;
};

struct Table {
    std::vector<std::string> Header;
    std::vector<std::vector<std::string>> Rows;
};

struct Section {
    std::string Heading;
    std::vector<Row> Rows;
    std::vector<Table> Tables;
    std::vector<std::string> Paragraphs;
};

struct Sheet {
    TitleBlock Title;
    std::string FileName;  // of the layout, at the foot of every page
    std::string Version;   // of the program, at the foot of every page
    std::vector<Figure> Figures;
    std::vector<Section> Sections;
};

enum class Paper { Letter, A4 };

// Colours the sheets share with the pictures on screen (0xRRGGBB).
constexpr uint32_t kInk = 0x000000;
constexpr uint32_t kAxis = 0x808080;
constexpr uint32_t kLoad = 0xC00000;    // the load arrow
constexpr uint32_t kCenter = 0x0050C8;  // the instantaneous center

}  // namespace sheet
