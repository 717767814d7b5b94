// SVG drawing: silhouettes from the boundary of a figure, solved figures piece by piece.
// Each figure has a cell of its own, centred, with its number and name below.
#include "picture.h"

#include "collection.h"
#include "region.h"
#include "rows.h"

#include <algorithm>
#include <sstream>

namespace Figures {
namespace {

constexpr int CellWidth = 250, CellHeight = 280, HeadingHeight = 70, Columns = 13;
constexpr std::array<std::string_view, PieceCount> Colours = {"#800080", "#FFFF00", "#008000", "#0000FF",
                                                              "#800000", "#00FFFF", "#FF0000"};

std::string Header(int width, int height) {
    std::ostringstream svg;
    svg << "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 " << width << ' ' << height
        << "\" width=\"" << width << "\" height=\"" << height
        << "\">\n<rect width=\"100%\" height=\"100%\" fill=\"#FFFFFF\"/>\n";
    return svg.str();
}

std::string PathOf(const std::vector<Point>& loop) {
    std::ostringstream path;
    char lead = 'M';
    for (const Point& corner : loop) {
        path << lead << Pixels(corner.x) << ',' << Pixels(corner.y);
        lead = ' ';
    }
    path << 'Z';
    return path.str();
}

std::string Silhouette(const Layout& layout) {
    std::string path;
    for (const auto& loop : LoopsOf(RegionOf(layout))) path += PathOf(loop);
    return "<path fill=\"#303040\" fill-rule=\"evenodd\" d=\"" + path + "\"/>\n";
}

std::string Pieces(const Layout& layout) {
    std::ostringstream svg;
    for (int piece = 0; piece < PieceCount; piece++)
        svg << "<path fill=\"" << Colours[piece] << "\" stroke=\"#000000\" d=\""
            << PathOf(CornersOf(piece, layout[piece])) << "\"/>\n";
    return svg.str();
}

std::string Escaped(const std::string& text) {
    std::string escaped;
    for (const char c : text) escaped += c == '&' ? "&amp;" : c == '<' ? "&lt;" : std::string(1, c);
    return escaped;
}

std::string WriteText(int x, int y, int size, std::string_view anchor, const std::string& text) {
    std::ostringstream svg;
    svg << "<text text-anchor=\"" << anchor << "\" font-family=\"sans-serif\" font-size=\"" << size
        << "\" x=\"" << x << "\" y=\"" << y << "\">" << Escaped(text) << "</text>\n";
    return svg.str();
}

std::string DrawCell(const Figure& figure, Look look, std::size_t number, int left, int top) {
    const Box box = BoxOf(figure.layout);
    const int x = left + (CellWidth - Pixels(box.least.x + box.most.x)) / 2;
    const int y = top + (CellHeight - 30 - Pixels(box.least.y + box.most.y)) / 2;
    const std::string body = look == Look::Solved ? Pieces(figure.layout) : Silhouette(figure.layout);
    return "<g transform=\"translate(" + std::to_string(x) + ' ' + std::to_string(y) + ")\">\n" + body
           + "</g>\n"
           + WriteText(left + CellWidth / 2, top + CellHeight - 14, 17, "middle",
                       std::to_string(number) + ' ' + figure.name);
}

// The numbers of a family's figures, in the order of the sources: there stands next to each other what
// belongs together.
std::vector<std::size_t> MembersOf(std::string_view family, const std::vector<Figure>& ordered) {
    std::vector<std::size_t> members;
    for (std::size_t i = 0; i < ordered.size(); i++)
        if (FamilyName(ordered[i]) == family) members.push_back(i);
    std::sort(members.begin(), members.end(),
              [&](std::size_t l, std::size_t r) { return ordered[l].source < ordered[r].source; });
    return members;
}

} // namespace

std::string DrawGallery(const std::vector<Figure>& ordered, Look look) {
    std::string cells;
    int top = 0;
    for (const std::string_view family : FamilyNames()) {
        const auto members = MembersOf(family, ordered);
        if (members.empty()) continue;
        cells += WriteText(20, top + HeadingHeight - 20, 34, "start", std::string(family));
        top += HeadingHeight;
        for (std::size_t i = 0; i < members.size(); i++)
            cells +=
                DrawCell(ordered[members[i]], look, members[i] + 1, static_cast<int>(i) % Columns * CellWidth,
                         top + static_cast<int>(i) / Columns * CellHeight);
        top += (static_cast<int>(members.size()) + Columns - 1) / Columns * CellHeight;
    }
    return Header(Columns * CellWidth, top) + cells + "</svg>\n";
}

std::string DrawStart() {
    constexpr std::array startTurns = {0, 2, 1, 0, 0, 0, 0};
    constexpr int boardWidth = 350, boardHeight = 390, origin = 110;
    Layout layout;
    for (int piece = 0; piece < PieceCount; piece++) {
        const auto& [column, row] = StartCells[piece];
        layout[piece] = {startTurns[piece], {{column * UnitGrains, 0}, {row * UnitGrains, 0}}};
    }
    return Header(boardWidth, boardHeight) + "<g transform=\"translate(" + std::to_string(origin) + " "
           + std::to_string(origin) + ")\">\n" + Pieces(layout) + "</g>\n</svg>\n";
}

} // namespace Figures
