// Counts the solutions of every figure and writes the table.
// Congruent pieces exchanged count as one solution, everything else counts.
#include "list.h"

#include "collection.h"
#include "solver.h"

#include <algorithm>
#include <iomanip>
#include <map>
#include <sstream>

namespace Figures {
namespace {

std::string WriteSums(const std::vector<Figure>& figures, const std::vector<std::size_t>& solutions) {
    std::map<std::string_view, int> kinds;
    for (const Figure& figure : figures) kinds[KindName(figure)]++;
    std::ostringstream sums;
    sums << figures.size() << " figures:";
    for (const auto& [kind, count] : kinds) sums << ' ' << count << " of kind " << kind << ',';
    sums << ' ' << std::count(solutions.begin(), solutions.end(), 1) << " with exactly one solution.\n";
    return sums.str();
}

// How the evening gets harder, in parts of equal length.
std::string WriteParts(const std::vector<Figure>& figures, const std::vector<std::size_t>& solutions) {
    constexpr std::size_t partCount = 8;
    std::ostringstream table;
    table << std::fixed << std::setprecision(1);
    for (std::size_t part = 0; part < partCount; part++) {
        const std::size_t begin = part * figures.size() / partCount,
                          end = (part + 1) * figures.size() / partCount;
        double corners = 0, sticking = 0;
        for (std::size_t i = begin; i < end; i++) {
            corners += static_cast<double>(RegionOf(figures[i].layout).size());
            sticking += PiecesSticking(figures[i].layout);
        }
        std::vector<std::size_t> counts(solutions.begin() + begin, solutions.begin() + end);
        std::sort(counts.begin(), counts.end());
        const auto count = static_cast<double>(end - begin);
        table << "| " << begin + 1 << " to " << end << " | " << corners / count << " | " << sticking / count
              << " | " << counts[counts.size() / 2] << " | " << std::count(counts.begin(), counts.end(), 1)
              << " |\n";
    }
    return table.str();
}

} // namespace

std::string WriteList(const std::vector<Figure>& figures) {
    std::vector<std::size_t> solutions;
    for (const Figure& figure : figures) solutions.push_back(Solve(RegionOf(figure.layout)).size());
    std::ostringstream list;
    list << "# The collection\n\n"
         << WriteSums(figures, solutions)
         << "\nWritten by `figures list`; the sources are in `data/figures`. A solution is a way to lay the "
            "seven pieces\n"
            "into the outline; exchanging the two large or the two small triangles does not make another "
            "one.\n\n"
            "## From easy to hard\n\n"
            "A figure is easy when its outline tells how the pieces lie: many corners, and many pieces that "
            "stick out,\n"
            "which is to say with more than half of their rim on the outline. Corners and pieces are "
            "means.\n\n"
            "| Figures | Corners | Pieces that stick out | Solutions, median | With one solution |\n"
            "|---:|---:|---:|---:|---:|\n"
         << WriteParts(figures, solutions)
         << "\n## All figures\n\n"
            "| Number | Name | Kind | Category | Solutions |\n|---:|---|---|---|---:|\n";
    for (std::size_t i = 0; i < figures.size(); i++)
        list << "| " << i + 1 << " | " << figures[i].name << " | " << KindName(figures[i]) << " | "
             << figures[i].category << " | " << solutions[i] << " |\n";
    return list.str();
}

} // namespace Figures
