// The figures tool: builds the collection file, the galleries and the list from the figure sources.
// Run it without arguments for its commands.
#include "collection.h"
#include "list.h"
#include "picture.h"
#include "rules.h"
#include "search.h"

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <optional>
#include <sstream>

using namespace Figures;

namespace {

constexpr const char* Usage = "figures build OUT.qui FOLDER    writes the collection file\n"
                              "figures gallery OUT.svg FOLDER  draws the silhouettes, by kind\n"
                              "figures solved OUT.svg FOLDER   draws the solved figures\n"
                              "figures list OUT.md FOLDER      lists the figures with their solutions\n"
                              "figures start OUT.svg           draws the start places\n"
                              "figures search OUT.txt SEED WALKS CORNERS HOLES MIRRORED\n"
                              "                                searches for clean outlines\n"
                              "FOLDER holds the figure sources.\n";

bool WriteFile(const std::string& path, const std::string& text) {
    std::ofstream file(path, std::ios::binary);
    file << text;
    file.close();
    if (!file) std::cerr << path << ": cannot be written\n";
    return static_cast<bool>(file);
}

bool Report(const std::vector<std::string>& faults) {
    for (const std::string& fault : faults) std::cerr << fault << "\n";
    return faults.empty();
}

int RunSearch(const std::string& out, const std::vector<std::string>& words) {
    std::array<int, 5> numbers{1, 100, 12, 0, 0};
    for (std::size_t i = 0; i < numbers.size() && i < words.size(); i++)
        numbers[i] = std::atoi(words[i].c_str());
    const auto [seed, walks, corners, holes, mirrored] = numbers;
    std::ostringstream text;
    int count = 0;
    for (const Layout& find : SearchFigures({corners, holes, mirrored != 0}, seed, walks))
        text << "Find " << seed << '-' << ++count << " | find | " << WriteLayout(find) << '\n';
    return WriteFile(out, text.str()) ? 0 : 1;
}

std::optional<std::string> PageFor(const std::string& command, const std::vector<Figure>& figures) {
    if (command == "build") return WriteCollection(figures);
    if (command == "gallery") return DrawGallery(figures, Look::Silhouette);
    if (command == "solved") return DrawGallery(figures, Look::Solved);
    if (command == "list") return WriteList(figures);
    return std::nullopt;
}

int RunOnSources(const std::string& command, const std::string& out, const std::string& folder) {
    const Source source = ReadSourceFolder(folder);
    const bool readable = Report(source.faults);
    if (!Report(FaultsOf(source.figures)) || !readable) return 1;
    const auto ordered = InPlayingOrder(source.figures);
    for (const std::string& name : CutFigures(ordered)) std::cerr << name << ": cut in View All\n";
    const auto page = PageFor(command, ordered);
    if (!page) std::cerr << Usage;
    return page && WriteFile(out, *page) ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> words(argv + 1, argv + argc);
    if (words.size() < 2) {
        std::cerr << Usage;
        return 2;
    }
    if (words[0] == "start") return WriteFile(words[1], DrawStart()) ? 0 : 1;
    if (words[0] == "search") return RunSearch(words[1], {words.begin() + 2, words.end()});
    return RunOnSources(words[0], words[1], words.size() > 2 ? words[2] : ".");
}
