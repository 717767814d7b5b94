// The help page holds together: its links and pictures are there, nothing leads to the network, and it names
// everything on the panel.
#include "core/panel_window.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <regex>
#include <set>

namespace {

const std::filesystem::path DataFolder = DATA_FOLDER;

std::string ReadPage() {
    std::ifstream file(DataFolder / "quillets.htm");
    return {std::istreambuf_iterator<char>(file), {}};
}

const std::string Page = ReadPage();

/// The values that the page gives to an attribute, with or without quotes around them.
std::multiset<std::string> ValuesOf(const std::string& attribute) {
    const std::regex pattern("\\s" + attribute + "\\s*=\\s*\"?([^\"\\s>]*)", std::regex::icase);
    std::multiset<std::string> values;
    for (std::sregex_iterator match(Page.begin(), Page.end(), pattern), end; match != end; ++match)
        values.insert((*match)[1]);
    return values;
}

} // namespace

TEST(HelpPage, EveryLinkLeadsToOneAnchorOfThePage) {
    const auto names = ValuesOf("name"), links = ValuesOf("href");
    EXPECT_FALSE(links.empty());
    for (const std::string& link : links) {
        ASSERT_TRUE(link.starts_with('#')) << link;
        EXPECT_EQ(names.count(link.substr(1)), 1U) << link;
    }
}

TEST(HelpPage, ShowsThePicturesBesideItAndNoOther) {
    std::set<std::string> there, shown;
    for (const auto& entry : std::filesystem::directory_iterator(DataFolder / "help"))
        there.insert("help/" + entry.path().filename().string());
    for (const std::string& source : ValuesOf("src")) shown.insert(source);
    EXPECT_EQ(shown, there);
}

TEST(HelpPage, LoadsNothingFromTheNetwork) {
    // The one address is the name of the document type, which nobody fetches.
    const std::string content = Page.substr(Page.find("<html"));
    EXPECT_FALSE(std::regex_search(
        content, std::regex("://|src\\s*=\\s*\"?//|url\\s*\\(|@import|<(link|script|iframe|object|base)\\b",
                            std::regex::icase)));
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
    captions.erase("");  // the indices that no button has
    captions.erase("-"); // the separator
    EXPECT_GT(captions.size(), 20U);
    // In a heading or in bold type of its own: most captions are everyday words as well.
    for (const std::string& caption : captions)
        EXPECT_TRUE(Page.find(">" + caption + "</b>") != std::string::npos
                    || Page.find(">" + caption + "</h3>") != std::string::npos)
            << caption;
}
