// Exact plane geometry on numbers whole + root * sqrt(2), the only lengths the seven pieces know.
// Everything is counted in grains, eighths of a straight unit: halves and turns by 45 degrees stay whole.
#pragma once

#include <array>
#include <compare>
#include <cstdint>

namespace Figures {

constexpr std::int64_t UnitGrains = 8;

struct Surd {
    std::int64_t whole = 0;
    std::int64_t root = 0;

    friend bool operator==(const Surd&, const Surd&) = default;
};

constexpr int Sign(Surd value) {
    const auto [a, b] = value;
    if (a >= 0 && b >= 0) return a > 0 || b > 0;
    if (a <= 0 && b <= 0) return -1;
    return (a > 0) == (a * a > 2 * b * b) ? 1 : -1;
}

constexpr Surd operator+(Surd l, Surd r) {
    return {l.whole + r.whole, l.root + r.root};
}
constexpr Surd operator-(Surd l, Surd r) {
    return {l.whole - r.whole, l.root - r.root};
}
constexpr Surd operator-(Surd value) {
    return {-value.whole, -value.root};
}
constexpr Surd operator/(Surd value, std::int64_t by) {
    return {value.whole / by, value.root / by};
}
constexpr std::strong_ordering operator<=>(Surd l, Surd r) {
    return Sign(l - r) <=> 0;
}

// Divides by sqrt(2); the whole part has to be even.
constexpr Surd OverRoot(Surd value) {
    return {value.root, value.whole / 2};
}

struct Point {
    Surd x, y;

    friend bool operator==(const Point&, const Point&) = default;
    friend constexpr std::strong_ordering operator<=>(const Point&, const Point&) = default;
};

constexpr Point operator+(Point l, Point r) {
    return {l.x + r.x, l.y + r.y};
}
constexpr Point operator-(Point l, Point r) {
    return {l.x - r.x, l.y - r.y};
}
constexpr Point Middle(Point l, Point r) {
    return {(l.x + r.x) / 2, (l.y + r.y) / 2};
}

// Turns by 45 degrees clockwise on a screen whose y points down.
constexpr Point Turned(Point p) {
    return {OverRoot(p.x - p.y), OverRoot(p.x + p.y)};
}
constexpr Point Mirrored(Point p) {
    return {-p.x, p.y};
}

// Whole pixels: a straight unit is 24, a slanted unit 34. The map is linear, so points that meet stay
// together.
constexpr int StraightPixels = 24;
constexpr int SlantPixels = 34;

constexpr int Pixels(Surd value) {
    return static_cast<int>((value.whole * StraightPixels + value.root * SlantPixels) / UnitGrains);
}

// The range of a point set along the four directions in which edges can be crossed: x, x+y, y, y-x.
// A convex outline with edges at multiples of 45 degrees is exactly the set of points inside its spans.
struct Span {
    Surd least, most;
};
using Spans = std::array<Span, 4>;

constexpr std::array<Surd, 4> Measures(Point p) {
    return {p.x, p.x + p.y, p.y, p.y - p.x};
}

template <class Points>
constexpr Spans SpansOf(const Points& points) {
    Spans spans{};
    bool first = true;
    for (const Point& point : points) {
        const auto measures = Measures(point);
        for (int i = 0; i < 4; i++) {
            if (first || measures[i] < spans[i].least) spans[i].least = measures[i];
            if (first || measures[i] > spans[i].most) spans[i].most = measures[i];
        }
        first = false;
    }
    return spans;
}

constexpr Spans Moved(Spans spans, Point by) {
    const auto measures = Measures(by);
    for (int i = 0; i < 4; i++) spans[i] = {spans[i].least + measures[i], spans[i].most + measures[i]};
    return spans;
}

// Whether the insides of two convex outlines, or of an outline and an edge, have no point in common.
constexpr bool Apart(const Spans& l, const Spans& r) {
    for (int i = 0; i < 4; i++)
        if (l[i].most <= r[i].least || r[i].most <= l[i].least) return true;
    return false;
}

} // namespace Figures
