// Reads the shipped collection file and measures outlines.
// Plain arithmetic on pixels, apart from the exact geometry the tool uses.
#include "shipped_file.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>
#include <sstream>

namespace {

Row ReadRow(const std::string& line) {
    const auto f = Fields(line);
    Row row{f.at(1) < 0, 0, 0, {}, {}, {std::floor(f.at(16) * 24), std::floor(f.at(17) * 24)}};
    const double unit = row.slanted ? 34 : 24;
    row.width = f[2] * unit;
    row.height = f[3] * unit;
    row.fifth = {f[14] * unit, f[15] * unit};
    for (int i = 6; i < 14; i += 2) {
        const Spot corner{f[i] * unit, f[i + 1] * unit};
        const bool known = std::any_of(row.corners.begin(), row.corners.end(),
                                       [&](Spot c) { return c.x == corner.x && c.y == corner.y; });
        if (!known) row.corners.push_back(corner);
    }
    return row;
}

Record ReadRecord(const std::string& line) {
    const auto f = Fields(line);
    const auto whole = [&](int i) { return static_cast<int>(f.at(i)); };
    Record record{whole(0), whole(1), whole(2), {}};
    for (int piece = 0; piece < 7; piece++)
        record.pieces[piece] = {whole(3 + 3 * piece), whole(4 + 3 * piece), whole(5 + 3 * piece)};
    return record;
}

ShippedFile ReadShipped() {
    ShippedFile shipped;
    std::ifstream file(DATA_FOLDER "/QUILLET.qui", std::ios::binary);
    shipped.text.assign(std::istreambuf_iterator<char>(file), {});
    std::istringstream lines(shipped.text);
    for (std::string line; std::getline(lines, line);)
        shipped.lines.push_back(line.substr(0, line.size() - 1));
    for (int piece = 0; piece < 7; piece++) {
        const auto cell = Fields(shipped.lines.at(piece));
        shipped.starts[piece] = {100 + 24 * cell.at(0), 100 + 24 * cell.at(1)};
        for (int turn = 0; turn < 8; turn++)
            shipped.rows[piece][turn] = ReadRow(shipped.lines.at(7 + piece * 8 + turn));
    }
    for (std::size_t i = 65; i < shipped.lines.size(); i++)
        shipped.records.push_back(ReadRecord(shipped.lines[i]));
    return shipped;
}

double Cross(Spot a, Spot b, Spot c) {
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

// The widest strip along a side of a that keeps b out.
double WidestStrip(const std::vector<Spot>& a, const std::vector<Spot>& b) {
    double widest = -1e9;
    const double sense = Area(a) > 0 ? 1 : -1;
    for (std::size_t i = 0; i < a.size(); i++) {
        const Spot from = a[i], to = a[(i + 1) % a.size()];
        double nearest = 1e9;
        for (const Spot corner : b)
            nearest = std::min(nearest,
                               -sense * Cross(from, to, corner) / std::hypot(to.x - from.x, to.y - from.y));
        widest = std::max(widest, nearest);
    }
    return widest;
}

} // namespace

const ShippedFile& Shipped() {
    static const ShippedFile shipped = ReadShipped();
    return shipped;
}

std::vector<double> Fields(const std::string& line) {
    std::vector<double> fields;
    std::istringstream words(line);
    for (std::string word; std::getline(words, word, ',');) fields.push_back(std::stod(word));
    return fields;
}

std::vector<Spot> Moved(std::vector<Spot> corners, Spot by) {
    for (Spot& corner : corners) corner = {corner.x + by.x, corner.y + by.y};
    return corners;
}

double Area(const std::vector<Spot>& corners) {
    double twice = 0;
    for (std::size_t i = 0; i < corners.size(); i++)
        twice += Cross({0, 0}, corners[i], corners[(i + 1) % corners.size()]);
    return twice / 2;
}

Spot Centre(const std::vector<Spot>& corners) {
    Spot sum{0, 0};
    for (const Spot corner : corners) sum = {sum.x + corner.x, sum.y + corner.y};
    const auto count = static_cast<double>(corners.size());
    return {sum.x / count, sum.y / count};
}

double Outside(const std::vector<Spot>& outline, Spot spot) {
    return WidestStrip(outline, {spot});
}

double Clearance(const std::vector<Spot>& a, const std::vector<Spot>& b) {
    return std::max(WidestStrip(a, b), WidestStrip(b, a));
}
