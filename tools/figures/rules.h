// The rules every figure keeps so that the game can show it and the player can lay it.
// All limits are in pixels of the game, or in percent.
#pragma once

#include "source.h"

namespace Figures {

constexpr int TargetWidth = 228; // pixels of the panel that shows a figure uncut
constexpr int TargetHeight = 226;
constexpr int BoardWidth = 350;
constexpr int BoardHeight = 390;
constexpr int LeastShare = 20; // percent of its box that a figure has to fill

// What keeps a single layout from being played; empty when it is fit.
std::string FaultOf(const Layout& layout);

// Every breach of the rules as "file:line: reason"; empty when all figures are fit for play.
std::vector<std::string> FaultsOf(const std::vector<Figure>& figures);

// How many percent of its box in pixels, rim included, a layout fills.
int FilledShare(const Layout& layout);

// Whether all pieces hang together as the game sees it: three pixels from a corner of one another one lies.
// Two tips of 45 degrees that meet point to point do not count, for none of the eight pixels is inside.
bool Connected(const Layout& layout);

} // namespace Figures
