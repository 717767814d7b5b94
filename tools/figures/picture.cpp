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

constexpr int CellWidth = 250, CellHeight = 280, Columns = 10;
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

std::string DrawCell(const Figure& figure, Look look, int number, int column, int row) {
    const Box box = BoxOf(figure.layout);
    const int x = column * CellWidth + (CellWidth - Pixels(box.least.x + box.most.x)) / 2;
    const int y = row * CellHeight + (CellHeight - 30 - Pixels(box.least.y + box.most.y)) / 2;
    const std::string body = look == Look::Solved ? Pieces(figure.layout) : Silhouette(figure.layout);
    std::ostringstream svg;
    svg << "<g transform=\"translate(" << x << ' ' << y << ")\">\n"
        << body << "</g>\n<text text-anchor=\"middle\" font-family=\"sans-serif\" font-size=\"17\" x=\""
        << column * CellWidth + CellWidth / 2 << "\" y=\"" << (row + 1) * CellHeight - 14 << "\">" << number
        << ' ' << Escaped(figure.name) << "</text>\n";
    return svg.str();
}

} // namespace

std::string DrawGallery(const std::vector<Figure>& figures, Look look, int firstNumber) {
    const int count = static_cast<int>(figures.size());
    const int columns = std::min(count, Columns);
    std::string svg = Header(columns * CellWidth, (count + Columns - 1) / Columns * CellHeight);
    for (int i = 0; i < count; i++)
        svg += DrawCell(figures[i], look, firstNumber + i, i % Columns, i / Columns);
    return svg + "</svg>\n";
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
