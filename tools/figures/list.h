// The list of the collection as a page of text.
// It says for every figure how many solutions it has.
#pragma once

#include "source.h"

namespace Figures {

// A Markdown page with number, name, kind and number of solutions of every figure, and the sums.
// Figures are numbered as given. Solving them all takes some seconds.
std::string WriteList(const std::vector<Figure>& figures);

} // namespace Figures
