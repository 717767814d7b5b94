// The shipped collection file, read from its text alone: nothing here knows how the tool writes it.
// Lengths are pixels.
#pragma once

#include <array>
#include <string>
#include <vector>

struct Spot {
    double x, y;
};

struct Row {
    bool slanted;
    double width, height;
    std::vector<Spot> corners; // the different ones of the four drawn, in order
    Spot fifth;
    Spot shift;
};

struct Piece {
    int turn, x, y;
};

struct Record {
    int number, left, top;
    std::array<Piece, 7> pieces;
};

struct ShippedFile {
    std::string text;
    std::vector<std::string> lines; // without line ends
    std::array<Spot, 7> starts;
    std::array<std::array<Row, 8>, 7> rows;
    std::vector<Record> records;
};

const ShippedFile& Shipped();

std::vector<double> Fields(const std::string& line);
std::vector<Spot> Moved(std::vector<Spot> corners, Spot by);
double Area(const std::vector<Spot>& corners);
Spot Centre(const std::vector<Spot>& corners);

// How far a spot lies outside of the nearest side of a convex outline; negative inside.
double Outside(const std::vector<Spot>& outline, Spot spot);

// How far two convex outlines are apart; negative when they overlap, by how much they do.
double Clearance(const std::vector<Spot>& a, const std::vector<Spot>& b);
