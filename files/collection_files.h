// The operations on a whole collection file: open another, copy it, remove a quillet from it. The file on
// disk is the master copy; memory is filled again after each change.
#pragma once

/// Lets the player choose a file and loads it, with a random quillet of it shown. A file that is no
/// collection leaves all as it was.
void OpenCollection();

/// Copies the current file under a name of the player's choice; the game goes on with the old one.
void SaveCollectionAs();

/// Drops the shown quillet from the file, after a question, and renumbers the others.
void RemoveQuillet();
