// The figures tool: builds the collection file, the galleries and the list from the figure sources.
// Run it without arguments for its commands.
#include "collection.h"
#include "picture.h"
#include "rules.h"

#include <fstream>
#include <iostream>

using namespace Figures;

namespace {

constexpr const char* Usage = "figures build OUT.qui SOURCE...    writes the collection file\n"
                              "figures gallery OUT.svg SOURCE...  draws the silhouettes\n"
                              "figures solved OUT.svg SOURCE...   draws the solved figures\n"
                              "figures start OUT.svg              draws the start places\n";

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

int Run(const std::string& command, const std::string& out, const std::vector<std::string>& paths) {
    if (command == "start") return WriteFile(out, DrawStart()) ? 0 : 1;
    Source source = ReadSourceFiles(paths);
    bool right = Report(source.faults);
    right = Report(FaultsOf(source.figures)) && right;
    const auto figures = InPlayingOrder(std::move(source.figures));
    if (command == "gallery") return WriteFile(out, DrawGallery(figures, Look::Silhouette)) && right ? 0 : 1;
    if (command == "solved") return WriteFile(out, DrawGallery(figures, Look::Solved)) && right ? 0 : 1;
    if (command == "build" && right) return WriteFile(out, WriteCollection(figures)) ? 0 : 1;
    return 1;
}

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> words(argv + 1, argv + argc);
    if (words.size() < 2) {
        std::cerr << Usage;
        return 2;
    }
    return Run(words[0], words[1], {words.begin() + 2, words.end()});
}
