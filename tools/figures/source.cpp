// The figure notation: "Name | category | A:n B:sw nw=A.se ..." with A to G for the pieces 0 to 6.
// Corners are named by where they lie on the piece's upright box, so nobody has to learn a numbering.
#include "source.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>

namespace Figures {
namespace {

std::string CornerName(const Shape& shape, Point corner) {
    std::string name;
    if (corner.y == Surd{}) name += 'n';
    if (corner.y == shape.size.y) name += 's';
    if (corner.x == Surd{}) name += 'w';
    if (corner.x == shape.size.x) name += 'e';
    return name;
}

// Triangles are named after the way their right angle points, the square by how it stands.
std::string TurnName(int piece, int turn) {
    if (piece == Square) return turn == 0 ? "flat" : "tilt";
    if (piece == Slope) return std::to_string(turn);
    const Shape& shape = ShapeOf(piece, turn);
    return CornerName(shape, shape.corners[0]);
}

std::optional<int> TurnNamed(int piece, std::string_view name) {
    for (int turn = 0; turn < UsedTurns(piece); turn++)
        if (TurnName(piece, turn) == name) return turn;
    return std::nullopt;
}

std::optional<Point> CornerNamed(const Shape& shape, std::string_view name) {
    for (const Point corner : shape.corners)
        if (CornerName(shape, corner) == name) return corner;
    return std::nullopt;
}

// A corner such as "nw", or the middle between two such as "nw/ne".
std::optional<Point> SpotNamed(const Shape& shape, std::string_view name) {
    const auto slash = name.find('/');
    const auto first = CornerNamed(shape, name.substr(0, slash));
    if (slash == name.npos || !first) return first;
    const auto second = CornerNamed(shape, name.substr(slash + 1));
    if (!second) return std::nullopt;
    return Middle(*first, *second);
}

// A number such as "3", "-2r" or "1+2r", where r is the square root of two.
std::optional<Surd> ReadSurd(std::string_view text) {
    Surd sum;
    if (text.empty()) return std::nullopt;
    while (!text.empty()) {
        if (text[0] == '+') text.remove_prefix(1);
        int number = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
        if (error != std::errc{}) return std::nullopt;
        text.remove_prefix(end - text.data());
        const bool root = text.starts_with('r');
        if (root) text.remove_prefix(1);
        (root ? sum.root : sum.whole) += number * UnitGrains;
        if (!text.empty() && text[0] != '+' && text[0] != '-') return std::nullopt;
    }
    return sum;
}

// A pair in brackets such as "(1,-2r)".
std::optional<Point> ReadPair(std::string_view text) {
    const auto comma = text.find(',');
    if (!text.starts_with('(') || !text.ends_with(')') || comma == text.npos) return std::nullopt;
    const auto x = ReadSurd(text.substr(1, comma - 1));
    const auto y = ReadSurd(text.substr(comma + 1, text.size() - comma - 2));
    if (!x || !y) return std::nullopt;
    return Point{*x, *y};
}

struct Reader {
    Layout layout;
    std::array<bool, PieceCount> laid{};
    std::string fault;
};

// The place after "=": "B.sw", "B.sw(1,2r)" or "(1,2r)".
std::optional<Point> ReadPlace(const Reader& reader, std::string_view text) {
    const auto bracket = text.find('(');
    const auto offset = bracket == text.npos ? Point{} : ReadPair(text.substr(bracket));
    const auto target = text.substr(0, bracket);
    if (!offset || target.empty()) return offset;
    const int piece = target[0] - 'A';
    if (target.size() < 3 || target[1] != '.' || piece < 0 || piece >= PieceCount || !reader.laid[piece])
        return std::nullopt;
    const Placed& placed = reader.layout[piece];
    const auto spot = SpotNamed(ShapeOf(piece, placed.turn), target.substr(2));
    if (!spot) return std::nullopt;
    return placed.at + *spot + *offset;
}

void ReadContact(Reader& reader, int piece, std::string_view word) {
    const auto equals = word.find('=');
    const auto spot = SpotNamed(ShapeOf(piece, reader.layout[piece].turn), word.substr(0, equals));
    if (equals == word.npos || !spot) {
        reader.fault = "no corner of that piece in '" + std::string(word) + "'";
        return;
    }
    const auto place = ReadPlace(reader, word.substr(equals + 1));
    if (place)
        reader.layout[piece].at = *place - *spot;
    else
        reader.fault = "no such place in '" + std::string(word) + "'";
}

// Reads "A:n" and gives the piece, or -1.
int ReadPiece(Reader& reader, std::string_view word) {
    const int piece = word[0] - 'A';
    const bool known = word.size() > 2 && word[1] == ':' && piece >= 0 && piece < PieceCount;
    const auto turn = known ? TurnNamed(piece, word.substr(2)) : std::nullopt;
    if (!turn || reader.laid[piece]) {
        reader.fault = "no new piece with a turn in '" + std::string(word) + "'";
        return -1;
    }
    reader.layout[piece].turn = *turn;
    return piece;
}

Reader ReadLayout(const std::string& text) {
    Reader reader;
    std::istringstream words(text);
    std::string word;
    for (int count = 0; count < PieceCount && reader.fault.empty(); count++) {
        if (!(words >> word)) {
            reader.fault = "fewer than seven pieces";
            return reader;
        }
        const int piece = ReadPiece(reader, word);
        if (piece < 0) return reader;
        if (count > 0) {
            words >> word;
            ReadContact(reader, piece, word);
        }
        reader.laid[piece] = true;
    }
    if (reader.fault.empty() && words >> word) reader.fault = "more than seven pieces";
    return reader;
}

std::string Trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(" \t\r");
    if (first == text.npos) return {};
    return std::string(text.substr(first, text.find_last_not_of(" \t\r") - first + 1));
}

void ReadLine(Source& source, const std::string& line, const std::string& place) {
    const auto first = line.find('|');
    const auto second = first == line.npos ? first : line.find('|', first + 1);
    if (second == line.npos) {
        source.faults.push_back(place + ": not 'name | category | pieces'");
        return;
    }
    const Reader reader = ReadLayout(line.substr(second + 1));
    Figure figure{Trimmed(line.substr(0, first)), Trimmed(line.substr(first + 1, second - first - 1)),
                  reader.layout, place, source.figures.size()};
    if (!reader.fault.empty())
        source.faults.push_back(place + ": " + reader.fault);
    else if (figure.name.empty() || figure.category.empty())
        source.faults.push_back(place + ": name or category missing");
    else
        source.figures.push_back(std::move(figure));
}

std::string WriteSurd(Surd value) {
    const auto whole = value.whole / UnitGrains;
    const auto root = value.root / UnitGrains;
    std::ostringstream text;
    if (whole != 0 || root == 0) text << whole;
    if (whole != 0 && root > 0) text << '+';
    if (root != 0) text << root << 'r';
    return text.str();
}

std::string PieceLetter(int piece) {
    return std::string(1, static_cast<char>('A' + piece));
}

// The contact of a piece with one of the pieces before it: a shared corner if there is one.
std::string WriteContact(const Layout& layout, int piece) {
    const Shape& shape = ShapeOf(piece, layout[piece].turn);
    for (int other = 0; other < piece; other++) {
        const Shape& otherShape = ShapeOf(other, layout[other].turn);
        for (const Point corner : shape.corners)
            for (const Point target : otherShape.corners)
                if (corner + layout[piece].at == target + layout[other].at)
                    return CornerName(shape, corner) + "=" + PieceLetter(other) + "."
                           + CornerName(otherShape, target);
    }
    const Point corner = shape.corners[0];
    const Point gap = corner + layout[piece].at - layout[0].at - ShapeOf(0, layout[0].turn).corners[0];
    return CornerName(shape, corner) + "=A." + TurnName(0, layout[0].turn) + "(" + WriteSurd(gap.x) + ","
           + WriteSurd(gap.y) + ")";
}

} // namespace

Source ReadSource(std::string_view text, const std::string& fileName) {
    Source source;
    std::istringstream lines{std::string(text)};
    std::string line;
    for (int number = 1; std::getline(lines, line); number++) {
        const std::string content = Trimmed(line);
        if (content.empty() || content[0] == '#') continue;
        ReadLine(source, content, fileName + ":" + std::to_string(number));
    }
    return source;
}

Source ReadSourceFiles(const std::vector<std::string>& paths) {
    Source all;
    for (const std::string& path : paths) {
        std::ifstream file(path);
        if (!file) all.faults.push_back(path + ": cannot be read");
        std::ostringstream text;
        text << file.rdbuf();
        const Source one = ReadSource(text.str(), path);
        for (Figure figure : one.figures) {
            figure.source = all.figures.size();
            all.figures.push_back(std::move(figure));
        }
        all.faults.insert(all.faults.end(), one.faults.begin(), one.faults.end());
    }
    return all;
}

Source ReadSourceFolder(const std::string& folder) {
    std::error_code error;
    std::vector<std::string> paths;
    for (const auto& entry : std::filesystem::directory_iterator(folder, error))
        if (entry.path().extension() == ".txt") paths.push_back(entry.path().string());
    if (paths.empty()) return {{}, {folder + ": no sources there"}};
    std::sort(paths.begin(), paths.end());
    return ReadSourceFiles(paths);
}

std::string WriteLayout(const Layout& layout) {
    std::string text;
    for (int piece = 0; piece < PieceCount; piece++) {
        if (piece > 0) text += ' ';
        text += PieceLetter(piece) + ":" + TurnName(piece, layout[piece].turn);
        if (piece > 0) text += ' ' + WriteContact(layout, piece);
    }
    return text;
}

} // namespace Figures
