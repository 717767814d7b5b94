// Turns layouts into whole pixels and puts the figures in order.
// A silhouette with many corners gives its pieces away, so the corner count stands for how easy a figure is.
#include "collection.h"

#include "region.h"
#include "rows.h"

#include <algorithm>
#include <sstream>

namespace Figures {
namespace {

constexpr std::array<std::string_view, 3> KindNames = {"picture", "geometry", "find"};

int KindIndex(const Figure& figure) {
    if (figure.category == "find") return 2;
    return figure.category == "geometry" || figure.category == "hole" || figure.category == "pair" ? 1 : 0;
}

// Figures that are played one after the other: the two of a pair, or one alone.
struct Group {
    std::vector<const Figure*> figures;
    std::size_t corners;
    double share = 0; // place within its kind, from 0 to 1
};

bool IsHalfPair(const Group& group) {
    return group.figures.size() == 1 && group.figures[0]->category == "pair";
}

std::vector<Group> GroupsOfKind(const std::vector<Figure>& figures, int kind) {
    std::vector<Group> groups;
    for (const Figure& figure : figures) {
        if (KindIndex(figure) != kind) continue;
        if (figure.category == "pair" && !groups.empty() && IsHalfPair(groups.back()))
            groups.back().figures.push_back(&figure);
        else
            groups.push_back({{&figure}, RegionOf(figure.layout).size()});
    }
    return groups;
}

std::string WriteRecord(std::size_t number, const Record& record) {
    std::ostringstream line;
    line << number << ',' << record.left << ',' << record.top;
    for (const auto& [turn, x, y] : record.pieces) line << ',' << turn << ',' << x << ',' << y;
    line << "\r\n";
    return line.str();
}

} // namespace

Record RecordOf(const Layout& layout) {
    Record record{FigureLeft, FigureTop, {}};
    int left = Pixels(layout[0].at.x), top = Pixels(layout[0].at.y);
    for (const Placed& placed : layout) {
        left = std::min(left, Pixels(placed.at.x));
        top = std::min(top, Pixels(placed.at.y));
    }
    for (int piece = 0; piece < PieceCount; piece++) {
        const Placed& placed = layout[piece];
        record.pieces[piece] = {placed.turn, Pixels(placed.at.x) - left + FigureLeft,
                                Pixels(placed.at.y) - top + FigureTop};
    }
    return record;
}

std::string_view KindName(const Figure& figure) {
    return KindNames[KindIndex(figure)];
}

std::vector<Figure> InPlayingOrder(const std::vector<Figure>& figures) {
    std::vector<Group> all;
    for (int kind = 0; kind < static_cast<int>(KindNames.size()); kind++) {
        auto groups = GroupsOfKind(figures, kind);
        std::stable_sort(groups.begin(), groups.end(),
                         [](const Group& l, const Group& r) { return l.corners > r.corners; });
        for (std::size_t i = 0; i < groups.size(); i++)
            groups[i].share = (static_cast<double>(i) + 0.5) / static_cast<double>(groups.size());
        all.insert(all.end(), groups.begin(), groups.end());
    }
    std::stable_sort(all.begin(), all.end(),
                     [](const Group& l, const Group& r) { return l.share < r.share; });
    std::vector<Figure> ordered;
    for (const Group& group : all)
        for (const Figure* figure : group.figures) ordered.push_back(*figure);
    return ordered;
}

std::string WriteCollection(const std::vector<Figure>& figures) {
    std::string text = WriteHead();
    for (std::size_t i = 0; i < figures.size(); i++) text += WriteRecord(i + 1, RecordOf(figures[i].layout));
    return text;
}

} // namespace Figures
