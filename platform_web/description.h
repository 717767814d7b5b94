// Forms and questions in the words of JSON, for the page.
#pragma once

#include "platform/forms.h"

#include <string>
#include <vector>

/// Writes one object. Names are ours and plain; texts are escaped, and their line breaks are one character.
class Description {
  public:
    Description& Text(const char* name, const std::string& text);
    Description& Texts(const char* name, const std::vector<std::string>& texts);
    Description& Number(const char* name, double number);
    Description& Flag(const char* name, bool flag);
    /// A record of the game, by its address.
    Description& Record(const char* name, const void* record);
    Description& Objects(const char* name, const std::vector<std::string>& objects);
    /// The whole object.
    std::string Whole() const { return "{" + Members + "}"; }

  private:
    void Name(const char* name);
    std::string Members;
};

/// Whole pixels, as every desktop places controls.
int PixelsOf(float twips);

/// All that the page has to know of a form but the pixels of its surfaces.
std::string DescriptionOf(const Form& form, bool modal);

/// The pictures among the controls, those in frames as well.
std::vector<Picture*> PicturesIn(const std::vector<ControlRef>& controls);
