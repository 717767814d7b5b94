// What the game asks of a desktop. Three desktops implement it, and the linker chooses: real windows, a page
// in a browser, and a script that answers for the player and records every call.
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

constexpr std::int32_t OFN_HIDEREADONLY = 4;
constexpr std::int32_t OFN_FILEMUSTEXIST = 4096;

/// What a file dialog is asked, and where it leaves its answer.
struct OpenFileName {
    std::int32_t lStructSize = 0;
    Form* hwndOwner = nullptr;
    std::intptr_t hInstance = 0;
    std::string lpstrFilter;
    std::string lpstrCustomFilter;
    std::int32_t nMaxCustFilter = 0;
    std::int32_t nFilterIndex = 0;
    /// In: what stands in the name box, padded with blanks. Out: the chosen path, a NUL behind it.
    std::string lpstrFile;
    std::int32_t nMaxFile = 0;
    std::string lpstrFileTitle;
    std::int32_t nMaxFileTitle = 0;
    std::string lpstrInitialDir;
    std::string lpstrTitle;
    std::int32_t Flags = 0;
    std::int16_t nFileOffset = 0;
    std::int16_t nFileExtension = 0;
    std::string lpstrDefExt;
    std::intptr_t lCustData = 0;
    std::intptr_t lpfnHook = 0;
    std::string lpTemplateName;
};

/// Ask for a file to open or a name to save under, and wait for the answer. 0 when the player cancels. A
/// pattern in the name box narrows the list to the files that match it. Neither asks about overwriting.
std::int32_t GetOpenFileNameA(OpenFileName& record);
std::int32_t GetSaveFileNameA(OpenFileName& record);

/// The program's instance, for records that want it.
std::intptr_t ProgramInstance();

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

/// Puts the picture of the form's client area, at its own size, on a page of the default printer; where there
/// is none, into a PDF file of that size, which the player names.
void PrintForm(Form& form);

/// Shows a page of the program's folder; no other is ever shown, and nothing is fetched.
void Navigate(WebBrowser& browser, const std::string& address);
/// The address of the page shown, with "#" and the anchor after a jump within it.
std::string LocationURL(const WebBrowser& browser);
/// One step in the history; nothing where there is none.
void GoBack(WebBrowser& browser);
void GoForward(WebBrowser& browser);

/// Ends the process at once; nothing runs after it.
[[noreturn]] void EndProgram();

/// Seconds since midnight.
float Timer();

/// The folder where the game keeps its files, as the desktop was told at the start.
std::string ApplicationFolder();
