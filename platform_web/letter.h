// What the page leaves for the call that it makes next.
#pragma once

#include <string>

/// A text; its meaning is the call's.
extern std::string Letter;

/// The content of a file of the player's own, which the next answer names.
extern std::string OfferedFile;
