// What the game asks of a desktop. Implemented twice, and chosen when linking: by real windows, and by a
// script that answers for the player and keeps a record of every call.
#pragma once

#include "platform/forms.h"

#include <cstdint>
#include <string>

enum class BoxButtons { Ok, OkCancel, YesNo };
enum class BoxIcon { None, Information, Warning };
/// Which of the buttons Enter presses.
enum class BoxDefault { First, Second };
enum class BoxAnswer { Ok, Cancel, Yes, No };

/// Shows a modal box and waits for its answer. A line break in the text is the characters 10 and 13, or 13
/// and 10. Without a title of its own the box bears the program's name. Closing the box is Cancel or No where
/// there is such a button.
BoxAnswer MsgBox(const std::string& text, BoxButtons buttons = BoxButtons::Ok, BoxIcon icon = BoxIcon::None,
                 const std::string& title = "", BoxDefault preset = BoxDefault::First);

/// Takes a command of the media service: "play " and a path, "stop " and a name, "close all". Never waits for
/// a sound. 0 when the command was taken.
std::int32_t mciSendStringA(const std::string& command, std::string& returnString, std::int32_t returnLength,
                            void* callback);

enum class Modality { Modeless, Modal };

/// Loads the form if need be, and shows it. A modal form holds the caller until it is hidden.
void ShowForm(Form& form, Modality modality);

/// Takes the form off the screen; it stays loaded and keeps its picture.
void HideForm(Form& form);

/// Runs the form's Unload, then takes it off the screen unless that set Cancel.
void UnloadForm(Form& form);

/// The loaded forms, in the order in which they were loaded.
std::vector<Form*> LoadedForms();

/// Gives the form's window the keyboard.
void SetFocus(Form& form);

/// Ends the process at once; nothing runs after it.
[[noreturn]] void EndProgram();

/// Seconds since midnight.
float Timer();

/// The folder where the game keeps its files, as the backend was told at the start.
std::string ApplicationFolder();
