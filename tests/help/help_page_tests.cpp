// The help page holds together: its links and pictures are there, nothing leads to the network, and it names
// everything on the panel.
#include "core/panel_window.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <regex>
#include <set>

namespace {

const std::string Page = [] {
    std::ifstream file(DATA_FOLDER "/quillets.htm");
    return std::string(std::istreambuf_iterator<char>(file), {});
}();

/// The values that the page gives to an attribute, with or without quotes around them.
std::multiset<std::string> ValuesOf(const std::string& attribute) {
    const std::regex pattern("\\s" + attribute + "\\s*=\\s*\"?([^\"\\s>]*)", std::regex::icase);
    std::multiset<std::string> values;
    for (std::sregex_iterator match(Page.begin(), Page.end(), pattern), end; match != end; ++match)
        values.insert((*match)[1]);
    return values;
}

} // namespace

TEST(HelpPage, LeadsToItsOwnAnchorsAndPicturesAlone) {
    const auto names = ValuesOf("name"), links = ValuesOf("href"), sources = ValuesOf("src");
    EXPECT_FALSE(links.empty());
    for (const std::string& link : links)
        EXPECT_TRUE(link.starts_with('#') && names.count(link.substr(1)) == 1) << link;
    std::set<std::string> there;
    for (const auto& entry : std::filesystem::directory_iterator(DATA_FOLDER "/help"))
        there.insert("help/" + entry.path().filename().string());
    EXPECT_EQ(std::set(sources.begin(), sources.end()), there);
    // Before that stands the name of the document type, an address which nobody fetches.
    const std::regex away("://|src\\s*=\\s*\"?//|url\\s*\\(|@import|<(link|script|iframe|object|base)\\b",
                          std::regex::icase);
    EXPECT_FALSE(std::regex_search(Page.substr(Page.find("<html")), away));
}

TEST(HelpPage, NamesEverythingOnThePanel) {
    DesignForm1();
    std::set<std::string> captions;
    for (const Frame& frame : Form1.MFrame) captions.insert(frame.Caption);
    for (const TileButton& button : Form1.MenuButx) captions.insert(button.ToolTipText);
    for (const Menu& menu : Form1.Menus) {
        captions.insert(menu.Caption);
        for (const MenuItem& item : menu.Items) captions.insert(item.Caption);
    }
    std::erase_if(captions, [](const auto& text) { return text.size() < 2; }); // no button, a separator
    // In a heading or in bold type of its own: most captions are everyday words as well.
    for (const std::string& caption : captions)
        EXPECT_TRUE(std::regex_search(Page, std::regex(">" + caption + "</(b|h3)>"))) << caption;
}
