// Reads and writes figure sources: one line a figure, saying how the seven pieces touch.
// data/figures/README.md describes the notation.
#pragma once

#include "pieces.h"

#include <string>
#include <string_view>
#include <vector>

namespace Figures {

struct Figure {
    std::string name;
    std::string category;
    Layout layout;
    std::string place;      // file:line it was read from
    std::size_t source = 0; // how many figures were read before it
};

struct Source {
    std::vector<Figure> figures;
    std::vector<std::string> faults; // "file:line: reason" for every line that is no figure
};

// Reads the text of one source file; faulty lines become faults and are left out.
Source ReadSource(std::string_view text, const std::string& fileName);

// Reads several source files in the order given; a file that cannot be read is a fault.
Source ReadSourceFiles(const std::vector<std::string>& paths);

// Reads all .txt files of a folder in the order of their names.
Source ReadSourceFolder(const std::string& folder);

// Writes a layout in the notation, each piece by contact with an earlier one where there is any.
std::string WriteLayout(const Layout& layout);

} // namespace Figures
