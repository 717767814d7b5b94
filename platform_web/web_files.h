// The game's folder: what the page came with, and over it what the browser keeps for the player.
#pragma once

#include <string>
#include <vector>

/// The folder's name, as players see it in titles and boxes.
constexpr const char* FolderName = "Quillets";

/// Puts a file into the folder that is stored already or came with the page.
std::string& FileOfFolder(const std::string& name);

/// The names that end so.
std::vector<std::string> NamesEndingIn(const std::string& ending);

/// A name that no file has, made from the given one; the same one if its file has that content.
std::string FreeName(const std::string& name, const std::string& content);

/// The next file that is replaced, before the player's next deed, is handed out as well.
void HandOutNextFile(bool handOut);

/// What became of the file that is being stored: empty when it is stored, else the reason in words.
void TakeStored(const std::string& error);
