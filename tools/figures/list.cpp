// Counts the solutions of every figure and writes the table.
// Congruent pieces exchanged count as one solution, everything else counts.
#include "list.h"

#include "collection.h"
#include "solver.h"

#include <algorithm>
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
            "| Number | Name | Kind | Category | Solutions |\n|---:|---|---|---|---:|\n";
    for (std::size_t i = 0; i < figures.size(); i++)
        list << "| " << i + 1 << " | " << figures[i].name << " | " << KindName(figures[i]) << " | "
             << figures[i].category << " | " << solutions[i] << " |\n";
    return list.str();
}

} // namespace Figures
