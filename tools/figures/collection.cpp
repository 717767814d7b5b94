// Turns layouts into whole pixels and puts the figures in order.
#include "collection.h"

#include "region.h"
#include "rows.h"

#include <algorithm>
#include <cmath>
#include <deque>
#include <sstream>

namespace Figures {
namespace {

struct Family {
    std::string_view name, kind;
    std::vector<std::string_view> categories;
};

const std::vector<Family>& Families() {
    static const std::vector<Family> families = {
        {"Animals", "picture", {"animal"}},
        {"Birds", "picture", {"bird"}},
        {"The twelve beasts of the calendar", "picture", {"calendar"}},
        {"People", "picture", {"person"}},
        {"The fleet", "picture", {"boat"}},
        {"On wheels and wings", "picture", {"vehicle"}},
        {"The village", "picture", {"house"}},
        {"The garden", "picture", {"plant"}},
        {"Things and tools", "picture", {"thing", "tool"}},
        {"Clothes", "picture", {"clothes"}},
        {"Signs", "picture", {"sign"}},
        {"Chess", "picture", {"chess"}},
        {"Letters", "picture", {"letter"}},
        {"Digits", "picture", {"digit"}},
        {"Geometry", "geometry", {"geometry", "hole", "pair"}},
        {"Finds", "find", {"find"}},
    };
    return families;
}

const Family* FamilyWith(std::string_view category) {
    for (const Family& family : Families())
        if (std::count(family.categories.begin(), family.categories.end(), category)) return &family;
    return nullptr;
}

// The rules let no other category through.
const Family& FamilyOf(const Figure& figure) {
    const Family* family = FamilyWith(figure.category);
    return family ? *family : Families()[0];
}

// Figures that are played one after the other: the two of a pair, or one alone.
struct Group {
    std::vector<const Figure*> figures;
    int ease, width;
    double share = 0; // place within its family, from 0 to 1
};

int WidthOf(const Figure& figure) {
    const Box box = BoxOf(figure.layout);
    return Pixels(box.most.x - box.least.x);
}

bool IsHalfPair(const Group& group) {
    return group.figures.size() == 1 && group.figures[0]->category == "pair";
}

std::vector<Group> GroupsOfFamily(const std::vector<Figure>& figures, const Family& family) {
    std::vector<Group> groups;
    for (const Figure& figure : figures) {
        if (&FamilyOf(figure) != &family) continue;
        if (figure.category == "pair" && !groups.empty() && IsHalfPair(groups.back())) {
            groups.back().figures.push_back(&figure);
            groups.back().width = std::max(groups.back().width, WidthOf(figure));
        } else
            groups.push_back({{&figure}, EaseOf(figure.layout), WidthOf(figure)});
    }
    std::stable_sort(groups.begin(), groups.end(),
                     [](const Group& l, const Group& r) { return l.ease > r.ease; });
    for (std::size_t i = 0; i < groups.size(); i++)
        groups[i].share = (static_cast<double>(i) + 0.5) / static_cast<double>(groups.size());
    return groups;
}

// From easy to hard, before anybody has looked at the widths.
std::deque<Group> MixedGroups(const std::vector<Figure>& figures) {
    std::deque<Group> all;
    for (const Family& family : Families())
        for (const Group& group : GroupsOfFamily(figures, family)) all.push_back(group);
    std::stable_sort(all.begin(), all.end(),
                     [](const Group& l, const Group& r) { return l.share < r.share; });
    const auto first = std::find_if(all.begin(), all.end(),
                                    [](const Group& group) { return group.figures[0]->name == FirstFigure; });
    if (first != all.end()) std::rotate(all.begin(), first, first + 1);
    return all;
}

// Wide groups left, the first figure before all others.
bool StandsLeft(const Group& l, const Group& r) {
    const bool first = l.figures[0]->name == FirstFigure, other = r.figures[0]->name == FirstFigure;
    return first != other ? first : l.width > r.width;
}

bool FitsRow(const std::vector<Group>& row) {
    std::size_t column = 0;
    for (const Group& group : row) {
        column += group.figures.size();
        if (column > ColumnWidths.size() || group.width > ColumnWidths[column - 1]) return false;
    }
    return true;
}

std::vector<Group> With(std::vector<Group> row, const Group& group) {
    row.push_back(group);
    std::stable_sort(row.begin(), row.end(), StandsLeft);
    return row;
}

// The next groups that make a row without a cut figure; those that found no room begin the next row.
std::vector<Group> TakeRow(std::deque<Group>& rest) {
    std::vector<Group> row;
    std::deque<Group> later;
    std::size_t count = 0;
    while (count < ColumnWidths.size() && !rest.empty()) {
        const Group group = rest.front();
        rest.pop_front();
        if (const auto wider = With(row, group); FitsRow(wider)) {
            row = wider;
            count += group.figures.size();
        } else
            later.push_back(group);
    }
    if (count < ColumnWidths.size()) { // nothing narrow is left
        row.insert(row.end(), later.begin(), later.end());
        later.clear();
    }
    rest.insert(rest.begin(), later.begin(), later.end());
    return row;
}

double LengthOf(const Region& region) {
    double length = 0;
    for (const Edge& edge : region) {
        const Surd part = edge.most - edge.least;
        const double value =
            static_cast<double>(part.whole) + static_cast<double>(part.root) * std::sqrt(2.0);
        length += edge.direction % 2 == 1 ? value * std::sqrt(2.0) : value;
    }
    return length;
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

bool IsCategory(std::string_view category) {
    return FamilyWith(category) != nullptr;
}

std::string_view KindName(const Figure& figure) {
    return FamilyOf(figure).kind;
}

std::string_view FamilyName(const Figure& figure) {
    return FamilyOf(figure).name;
}

std::vector<std::string_view> FamilyNames() {
    std::vector<std::string_view> names;
    for (const Family& family : Families()) names.push_back(family.name);
    return names;
}

int PiecesSticking(const Layout& layout) {
    std::vector<std::vector<Point>> outlines;
    for (int piece = 0; piece < PieceCount; piece++) outlines.push_back(CornersOf(piece, layout[piece]));
    const double whole = LengthOf(RegionOf(outlines));
    int count = 0;
    for (int piece = 0; piece < PieceCount; piece++) {
        auto others = outlines;
        others.erase(others.begin() + piece);
        // What the piece adds to the outline, less what it hides of it, is twice its free rim less its rim.
        count += whole - LengthOf(RegionOf(others)) > 0;
    }
    return count;
}

int EaseOf(const Layout& layout) {
    return static_cast<int>(RegionOf(layout).size()) + 2 * PiecesSticking(layout);
}

std::vector<Figure> InPlayingOrder(const std::vector<Figure>& figures) {
    std::deque<Group> rest = MixedGroups(figures);
    std::vector<Figure> ordered;
    while (!rest.empty())
        for (const Group& group : TakeRow(rest))
            for (const Figure* figure : group.figures) ordered.push_back(*figure);
    return ordered;
}

std::vector<std::string> CutFigures(const std::vector<Figure>& ordered) {
    std::vector<std::string> names;
    for (std::size_t i = 0; i < ordered.size(); i++)
        if (WidthOf(ordered[i]) > ColumnWidths[i % ColumnWidths.size()]) names.push_back(ordered[i].name);
    return names;
}

std::string WriteCollection(const std::vector<Figure>& figures) {
    std::string text = WriteHead();
    for (std::size_t i = 0; i < figures.size(); i++) text += WriteRecord(i + 1, RecordOf(figures[i].layout));
    return text;
}

} // namespace Figures
