// Fuzzed files. The readers take each one whole or refuse it with one of its lines; what Append and Remove
// make of a whole collection is whole; settings come back as they were read.
#include "files/collection_format.h"
#include "files/settings.h"
#include "game/game_on_script.h"

#include <cstdio>
#include <cstdlib>

namespace {

/// Ends the run, which keeps the input, unless `right`.
void Insist(bool right, const char* what) {
    if (right) return;
    std::fprintf(stderr, "Not so: %s\n", what);
    std::abort();
}

bool NamesALineOf(const std::string& text, const Fault& fault) {
    const long line = fault.starts_with("Line ") ? std::atol(fault.c_str() + 5) : 0;
    return line >= 1 && line <= std::count(text.begin(), text.end(), '\n') + 1;
}

Collection Read(const std::string& text) {
    Collection collection;
    Insist(ReadCollection(text, collection).empty(), "what Append and Remove write is whole");
    return collection;
}

/// The first Remove numbers all records, also those that did not count. From then on nothing else changes.
void ChangeCollectionOf(const std::string& text) {
    const auto more = [](const std::string& old, Number number) {
        return WithRecord(old, RecordText(number, Figure{}));
    };
    const Number count = Read(text).QuilletCount;
    const std::string grown = more(text, count + 1), plain = WithoutRecord(grown, 0);
    Insist(Read(grown).QuilletCount == count + 1, "a record more is a quillet more");
    const Number all = Read(plain).QuilletCount;
    Insist(WithoutRecord(more(plain, all + 1), all + 1) == plain, "what comes and goes leaves no trace");
}

void ReadAsCollection(const std::string& text) {
    const Fault fault = FaultOfCollection(text);
    if (fault.empty())
        ChangeCollectionOf(text);
    else
        Insist(NamesALineOf(text, fault), "a refusal names a line");
}

void ReadAsSettings(const std::string& text) {
    WriteText(Game.AppPath + "Quillets.cfg", text);
    EnsureSettings();
    const Settings read = ReadSettings();
    Game.QuilletFile = Game.AppPath + read.CollectionName;
    const std::string name = read.CollectionName.substr(read.CollectionName.rfind('/') + 1);
    WriteSettings(read.Placement);
    const Settings again = ReadSettings();
    Insist(again.CollectionName == (name.empty() ? "QUILLET.qui" : name), "the name comes back");
    Insist(again.Placement == read.Placement, "the places come back");
    Insist(Desktop.Boxes.empty(), "nothing is said");
}

/// Behind the letter s the input is a settings file, behind an r the records of a collection; else it is a
/// collection.
void Try(const std::string& text) {
    const char kind = text.empty() ? ' ' : text[0];
    if (kind == 's')
        ReadAsSettings(text.substr(1));
    else
        ReadAsCollection(kind == 'r' ? ShippedHead + text.substr(1) : text);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Game.AppPath = std::filesystem::temp_directory_path().string() + "/";
    Try({data, data + size});
    return 0;
}
